#pragma once
// Real input for tests: XTest on the display's own connection, so that
// nothing but GTK (and the progress pump in front of it) reads the events.

#include <X11/extensions/XTest.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/toplevel.h>
#include <wx/window.h>

#include <cstdlib>

// Where the X server has the middle of `target` now. GTK moves a window it
// maps in its next layout pass, so wx's idea of the place can be ahead of
// the server's.
inline wxPoint ScreenCentre(wxWindow & target) {
  GtkWidget * const widget = target.GetHandle();
  GtkWidget * const top = gtk_widget_get_toplevel(widget);
  gint left = 0, topEdge = 0, x = 0, y = 0;
  gdk_window_get_origin(gtk_widget_get_window(top), &left, &topEdge);
  gtk_widget_translate_coordinates(widget, top, 0, 0, &x, &y);
  return wxPoint(left + x + gtk_widget_get_allocated_width(widget) / 2,
                 topEdge + y + gtk_widget_get_allocated_height(widget) / 2);
}

// True once the X server shows the top-level window where wx placed it
// (give or take its frame).
inline bool IsWherePlaced(wxTopLevelWindow & window) {
  if (!window.IsShownOnScreen() || !gtk_widget_get_mapped(window.GetHandle())) return false;
  gint x = 0, y = 0;
  gdk_window_get_origin(gtk_widget_get_window(window.GetHandle()), &x, &y);
  wxPoint const placed = window.GetPosition();
  return std::abs(x - placed.x) < 40 && std::abs(y - placed.y) < 40;
}

namespace x_test_detail {
// Whether the top-level frame holding `target` is the topmost one at its middle.
inline bool IsClickable(wxWindow & target, Display * display) {
  Window const rootWindow = DefaultRootWindow(display);
  // The child of the root that holds the target: the manager's frame.
  Window mine = GDK_WINDOW_XID(gtk_widget_get_window(gtk_widget_get_toplevel(target.GetHandle())));
  for (;;) {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display, mine, &root, &parent, &children, &count)) return false;
    if (children != nullptr) XFree(children);
    if (parent == rootWindow) break;
    mine = parent;
  }
  wxPoint const centre = ScreenCentre(target);
  Window root = 0, parent = 0, *children = nullptr;
  unsigned count = 0;
  if (!XQueryTree(display, rootWindow, &root, &parent, &children, &count)) return false;
  Window top = 0;
  for (unsigned i = count; i-- > 0 && top == 0;) {  // top of the stack first
    XWindowAttributes a;
    if (XGetWindowAttributes(display, children[i], &a) && a.map_state == IsViewable &&
        wxRect(a.x, a.y, a.width, a.height).Contains(centre))
      top = children[i];
  }
  if (children != nullptr) XFree(children);
  return top == mine;
}
}  // namespace x_test_detail

// True when a click on the middle of `target` reaches its window: the X
// server has it mapped there and no other window over it. The window
// manager maps, places and stacks a window in steps of its own.
inline bool IsClickable(wxWindow & target) {
  if (!target.IsShownOnScreen() || !gtk_widget_get_mapped(target.GetHandle())) return false;
  // A window listed by XQueryTree may be gone when it is asked about (another
  // test's, the manager's frame of one closing): that is an answer, not the
  // fatal error GDK makes of an X error by default.
  GdkDisplay * const gdk = gdk_display_get_default();
  gdk_x11_display_error_trap_push(gdk);
  bool const clickable = x_test_detail::IsClickable(target, GDK_DISPLAY_XDISPLAY(gdk));
  gdk_x11_display_error_trap_pop_ignored(gdk);
  return clickable;
}

// Presses and releases `keysym` (XK_...) on the window that has the focus.
inline void FakeKey(KeySym keysym) {
  Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  KeyCode const code = XKeysymToKeycode(display, keysym);
  XTestFakeKeyEvent(display, code, True, CurrentTime);
  XTestFakeKeyEvent(display, code, False, CurrentTime);
  XSync(display, False);
}

// Presses and releases the first button over the middle of `target`; the
// server has made the events once this returns.
inline void FakeClick(wxWindow & target) {
  Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  wxPoint const centre = ScreenCentre(target);
  XTestFakeMotionEvent(display, -1, centre.x, centre.y, CurrentTime);
  XTestFakeButtonEvent(display, 1, True, CurrentTime);
  XTestFakeButtonEvent(display, 1, False, CurrentTime);
  XSync(display, False);
}
