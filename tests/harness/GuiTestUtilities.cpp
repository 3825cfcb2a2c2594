#include "harness/GuiTestUtilities.h"

#include <cstdlib>

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/eventfilter.h>
#include <wx/evtloop.h>
#include <wx/toplevel.h>
#include <wx/utils.h>
#include <wx/window.h>

#include "controls/WindowSnapshot.h"

// Last: Xlib defines macros (None, Success, Bool) that other headers use as names.
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

namespace gui_test {

namespace {

void DispatchOnce() {
  // Without a running loop (tests call us from main) a temporary one
  // dispatches GTK's events.
  wxEventLoopBase * active = wxEventLoopBase::GetActive();
  if (active != nullptr) {
    active->YieldFor(wxEVT_CATEGORY_ALL);
    return;
  }
  wxEventLoop loop;
  wxEventLoopActivator activate(&loop);
  while (loop.Pending()) loop.Dispatch();
  wxTheApp->ProcessPendingEvents();
  loop.ProcessIdle();
}

// True when the window manager has set the frame's extents on `window`,
// which it does once it has framed it.
bool HasFrameExtents(GdkWindow * window) {
  Display * const display = GDK_WINDOW_XDISPLAY(window);
  Atom const extents = XInternAtom(display, "_NET_FRAME_EXTENTS", True);
  if (extents == None) return false;
  Atom type = None;
  int format = 0;
  unsigned long count = 0, after = 0;
  unsigned char * data = nullptr;
  int const status = XGetWindowProperty(display, GDK_WINDOW_XID(window), extents, 0, 4, False,
                                        AnyPropertyType, &type, &format, &count, &after, &data);
  if (data != nullptr) XFree(data);
  return status == Success && count == 4;
}

// Notes a paint of any of `windows`. An event filter leaves the windows'
// handler tables as the application made them: a handler bound and unbound
// again leaves a hole there, and a control whose own handler sends it a
// further event (a notification it reflects) then trips wx's table upkeep.
class PaintWatch : public wxEventFilter {
public:
  explicit PaintWatch(std::vector<wxWindow *> windows) : mWindows(std::move(windows)) {
    wxEvtHandler::AddFilter(this);
  }
  ~PaintWatch() override { wxEvtHandler::RemoveFilter(this); }
  PaintWatch(PaintWatch const &) = delete;
  PaintWatch & operator=(PaintWatch const &) = delete;

  int FilterEvent(wxEvent & event) override {
    if (event.GetEventType() == wxEVT_PAINT &&
        std::find(mWindows.begin(), mWindows.end(), event.GetEventObject()) != mWindows.end())
      mPainted = true;
    return Event_Skip;
  }
  bool Painted() const { return mPainted; }

private:
  std::vector<wxWindow *> mWindows;
  bool mPainted = false;
};

bool HasWindowManager(GdkWindow * window) {
  return gdk_x11_screen_supports_net_wm_hint(gdk_window_get_screen(window),
                                             gdk_atom_intern_static_string("_NET_FRAME_EXTENTS"));
}

}  // namespace

bool WindowManagerRunning() {
  GdkAtom type = GDK_NONE;
  gint format = 0;
  gint length = 0;
  guchar * data = nullptr;
  bool const found = gdk_property_get(gdk_get_default_root_window(),
                                      gdk_atom_intern_static_string("_NET_SUPPORTING_WM_CHECK"),
                                      GDK_NONE, 0, 1, FALSE, &type, &format, &length, &data) &&
                     length > 0;
  g_free(data);
  return found;
}

void Snapshot(wxWindow & window, char const * name) {
  char const * folder = std::getenv("TALVO_SNAPSHOTS");
  if (folder == nullptr) return;
  {
    PaintWatch const paint({&window});
    window.Refresh();
    WaitUntil([&] { return window.IsShownOnScreen() && paint.Painted(); });
  }
  Flush();
  SaveWindowSnapshot(window, wxString::FromUTF8(folder) + "/" + name);
}

bool WaitUntilPlaced(wxTopLevelWindow & window, int timeoutMs) {
  return WaitUntil(
      [&] {
        if (!window.IsShownOnScreen()) return false;
        GdkWindow * const gdk = gtk_widget_get_window(window.GetHandle());
        if (gdk == nullptr || !GDK_IS_X11_WINDOW(gdk)) return gdk != nullptr;
        if (!HasWindowManager(gdk)) return true;
        if (!HasFrameExtents(gdk)) return false;
        GdkRectangle frame;
        gdk_window_get_frame_extents(gdk, &frame);
        return window.GetScreenRect() == wxRect(frame.x, frame.y, frame.width, frame.height);
      },
      timeoutMs);
}

bool WaitUntilFocused(wxWindow & window, int timeoutMs) {
  return WaitUntil(
      [&] {
        if (!window.HasFocus()) return false;
        wxWindow * const top = wxGetTopLevelParent(&window);
        GtkWidget * const widget = top != nullptr ? top->GetHandle() : nullptr;
        // A pop-up window takes no focus of its own; its keys come by a grab.
        if (widget == nullptr || !GTK_IS_WINDOW(widget) ||
            gtk_window_get_window_type(GTK_WINDOW(widget)) != GTK_WINDOW_TOPLEVEL)
          return true;
        return gtk_window_has_toplevel_focus(GTK_WINDOW(widget)) != FALSE;
      },
      timeoutMs);
}

void Flush() { DispatchOnce(); }

bool WaitUntil(std::function<bool()> const & condition, int timeoutMs) {
  auto const deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= deadline) return condition();
    DispatchOnce();
    wxMilliSleep(2);  // let the X server answer; this is polling, not a wait for time
  }
  return true;
}

bool ShowAndWait(wxWindow & window, int timeoutMs) {
  // A frame is often covered by its children, so a paint of any window of
  // the tree counts.
  std::vector<wxWindow *> tree{&window};
  for (size_t i = 0; i < tree.size(); ++i)
    for (wxWindow * child : tree[i]->GetChildren()) tree.push_back(child);
  bool ok = false;
  {
    PaintWatch const paint(tree);
    window.Show();
    window.Raise();
    ok = WaitUntil([&] { return window.IsShownOnScreen() && paint.Painted(); }, timeoutMs);
  }
  // One more round so that every child has painted too.
  Flush();
  return ok;
}

void Click(wxWindow & window, int id) {
  wxWindow * button = window.FindWindow(id);
  ASSERT_NE(button, nullptr) << "no control " << id;
  wxCommandEvent click(wxEVT_BUTTON, id);
  click.SetEventObject(button);
  button->ProcessWindowEvent(click);
}

void PressKey(wxWindow & window, int keyCode) {
  wxKeyEvent key(wxEVT_CHAR_HOOK);
  key.m_keyCode = keyCode;
  key.SetEventObject(&window);
  window.ProcessWindowEvent(key);
}

}  // namespace gui_test
