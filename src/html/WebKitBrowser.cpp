#include "html/WebKitBrowser.h"

#include <dlfcn.h>
#include <gtk/gtk.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include <wx/accel.h>
#include <wx/defs.h>
#include <wx/webview.h>

#include "platform/GpuRendering.h"

namespace {

// WEBKIT_SAVE_MODE_MHTML
constexpr int kSaveModeMhtml = 0;

using SaveToFile = void (*)(void *, GFile *, int, GCancellable *, GAsyncReadyCallback, gpointer);
using SaveToFileFinish = gboolean (*)(void *, GAsyncResult *, GError **);
using TerminateProcess = void (*)(void *);
using GetSettings = GObject * (*)(void *);

// This library and what it links, WebKit among them: the view loads it
// with RTLD_LOCAL, so WebKit is not in the global scope.
void * OwnScope() {
  static void * const handle = [] {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void *>(&OwnScope), &info) == 0 || info.dli_fname == nullptr)
      return RTLD_DEFAULT;
    void * self = dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
    return self != nullptr ? self : RTLD_DEFAULT;
  }();
  return handle;
}

template <typename Function>
Function WebKitFunction(char const * name) {
  return reinterpret_cast<Function>(dlsym(OwnScope(), name));
}

GtkWidget * Widget(wxWebView & browser) {
  return static_cast<GtkWidget *>(browser.GetNativeBackend());
}

int KeyCodeOf(guint keyval) {
  guint const upper = gdk_keyval_to_upper(keyval);
  if ((upper >= 'A' && upper <= 'Z') || (upper >= '0' && upper <= '9'))
    return static_cast<int>(upper);
  if (keyval >= GDK_KEY_F1 && keyval <= GDK_KEY_F24)
    return WXK_F1 + static_cast<int>(keyval - GDK_KEY_F1);
  switch (keyval) {
    case GDK_KEY_Delete: return WXK_DELETE;
    case GDK_KEY_Insert: return WXK_INSERT;
    case GDK_KEY_Home: return WXK_HOME;
    case GDK_KEY_End: return WXK_END;
    case GDK_KEY_Page_Up: return WXK_PAGEUP;
    case GDK_KEY_Page_Down: return WXK_PAGEDOWN;
    case GDK_KEY_Left: return WXK_LEFT;
    case GDK_KEY_Right: return WXK_RIGHT;
    case GDK_KEY_Up: return WXK_UP;
    case GDK_KEY_Down: return WXK_DOWN;
    case GDK_KEY_Return:
    case GDK_KEY_KP_Enter: return WXK_RETURN;
    case GDK_KEY_Escape: return WXK_ESCAPE;
    case GDK_KEY_Tab:
    case GDK_KEY_ISO_Left_Tab: return WXK_TAB;
    case GDK_KEY_space: return WXK_SPACE;
    case GDK_KEY_BackSpace: return WXK_BACK;
    default: return 0;
  }
}

gboolean OnKeyPress(GtkWidget *, GdkEventKey * event, gpointer data) {
  int flags = wxACCEL_NORMAL;
  if (event->state & GDK_CONTROL_MASK) flags |= wxACCEL_CTRL;
  if (event->state & GDK_SHIFT_MASK) flags |= wxACCEL_SHIFT;
  if (event->state & GDK_MOD1_MASK) flags |= wxACCEL_ALT;
  int const keyCode = KeyCodeOf(event->keyval);
  if (keyCode == 0) return FALSE;
  return static_cast<HtmlBrowserEvents *>(data)->OnBrowserKey(flags, keyCode) ? TRUE : FALSE;
}

gboolean OnContextMenu(GtkWidget * widget, gpointer, GdkEvent * event, gpointer, gpointer data) {
  bool const keyboard =
      event == nullptr || (event->type != GDK_BUTTON_PRESS && event->type != GDK_BUTTON_RELEASE);
  wxPoint point;
  gdouble x = 0, y = 0;
  if (!keyboard && gdk_event_get_root_coords(event, &x, &y)) {
    point = wxPoint(static_cast<int>(x), static_cast<int>(y));
  } else {
    gint originX = 0, originY = 0;
    GdkWindow * window = gtk_widget_get_window(widget);
    if (window != nullptr) gdk_window_get_origin(window, &originX, &originY);
    point = wxPoint(originX, originY);
  }
  static_cast<HtmlBrowserEvents *>(data)->OnBrowserContextMenu(keyboard, point);
  return TRUE;  // WebKit's own menu never shows
}

void OnProcessTerminated(GtkWidget *, int, gpointer data) {
  static_cast<HtmlBrowserEvents *>(data)->OnBrowserProcessGone();
}

struct SaveState {
  SaveToFileFinish finish;
  bool done = false;
  bool saved = false;
  std::string error;
};

void OnSaved(GObject * source, GAsyncResult * result, gpointer data) {
  auto * state = static_cast<SaveState *>(data);
  GError * error = nullptr;
  state->saved = state->finish(source, result, &error) != FALSE;
  if (error != nullptr) {
    state->error = error->message;
    g_error_free(error);
  }
  state->done = true;
}

}  // namespace

namespace WebKitBrowser {

void ChooseRendering() {
  static bool const chosen = [] {
    if (!GpuRendering::HasGpu()) ::setenv("WEBKIT_DISABLE_COMPOSITING_MODE", "1", 0);
    return true;
  }();
  static_cast<void>(chosen);
}

void Attach(wxWebView & browser, HtmlBrowserEvents * events) {
  GtkWidget * widget = Widget(browser);
  if (widget == nullptr) return;
  auto const settingsOf = WebKitFunction<GetSettings>("webkit_web_view_get_settings");
  if (settingsOf != nullptr) {
    if (GObject * settings = settingsOf(widget))
      g_object_set(settings, "enable-javascript-markup", FALSE, nullptr);
  }
  g_signal_connect(widget, "key-press-event", G_CALLBACK(OnKeyPress), events);
  g_signal_connect(widget, "context-menu", G_CALLBACK(OnContextMenu), events);
  g_signal_connect(widget, "web-process-terminated", G_CALLBACK(OnProcessTerminated), events);
}

void Disconnect(wxWebView & browser, HtmlBrowserEvents * events) {
  GtkWidget * widget = Widget(browser);
  if (widget != nullptr) g_signal_handlers_disconnect_by_data(widget, events);
}

bool SaveAsMhtml(wxWebView & browser, std::string const & path, std::string & error) {
  auto const save = WebKitFunction<SaveToFile>("webkit_web_view_save_to_file");
  SaveState state;
  state.finish = WebKitFunction<SaveToFileFinish>("webkit_web_view_save_to_file_finish");
  if (save == nullptr || state.finish == nullptr || Widget(browser) == nullptr) {
    error = "this WebKit cannot save pages";
    return false;
  }
  std::string const temporary = path + ".saving";
  GFile * file = g_file_new_for_path(temporary.c_str());
  save(Widget(browser), file, kSaveModeMhtml, nullptr, &OnSaved, &state);
  while (!state.done) g_main_context_iteration(nullptr, TRUE);
  g_object_unref(file);
  if (state.saved && std::rename(temporary.c_str(), path.c_str()) == 0) return true;
  std::remove(temporary.c_str());
  error = state.error.empty() ? path + " cannot be written" : state.error;
  return false;
}

bool TerminateWebProcess(wxWebView & browser) {
  auto const terminate = WebKitFunction<TerminateProcess>("webkit_web_view_terminate_web_process");
  if (terminate == nullptr || Widget(browser) == nullptr) return false;
  terminate(Widget(browser));
  return true;
}

}  // namespace WebKitBrowser
