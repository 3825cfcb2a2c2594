#pragma once
// Real input for the list tests: XTest presses at points of a window's
// client area, with modifier keys held, and key strokes on the focus.

#include <X11/extensions/XTest.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/window.h>

#include <X11/keysym.h>

#include <initializer_list>
#include <vector>

namespace list_input {

inline Display * XDisplay() { return GDK_DISPLAY_XDISPLAY(gdk_display_get_default()); }

// Holds the modifier keys (XK_Control_L, XK_Shift_L) for its lifetime.
class Modifiers {
public:
  Modifiers(std::initializer_list<KeySym> keys) : mKeys(keys) {
    for (KeySym const key : mKeys)
      XTestFakeKeyEvent(XDisplay(), XKeysymToKeycode(XDisplay(), key), True, CurrentTime);
    XSync(XDisplay(), False);
  }
  ~Modifiers() {
    for (KeySym const key : mKeys)
      XTestFakeKeyEvent(XDisplay(), XKeysymToKeycode(XDisplay(), key), False, CurrentTime);
    XSync(XDisplay(), False);
  }
  Modifiers(Modifiers const &) = delete;
  Modifiers & operator=(Modifiers const &) = delete;

private:
  std::vector<KeySym> mKeys;
};

inline void MoveTo(wxWindow & window, wxPoint client) {
  wxPoint const screen = window.ClientToScreen(client);
  XTestFakeMotionEvent(XDisplay(), -1, screen.x, screen.y, CurrentTime);
  XSync(XDisplay(), False);
}

inline void Press(unsigned button, bool down) {
  XTestFakeButtonEvent(XDisplay(), button, down ? True : False, CurrentTime);
  XSync(XDisplay(), False);
}

// A click of `button` (1 left, 3 right) at `client` in `window`.
inline void ClickAt(wxWindow & window, wxPoint client, unsigned button = 1) {
  MoveTo(window, client);
  Press(button, true);
  Press(button, false);
}

// Presses the left button at `from`, moves to `to` in a few steps and lets
// go, handing each step to the toolkit before the next as a hand would
// (GDK merges motions queued behind each other).
template <typename Handle>
void DragFromTo(wxWindow & window, wxPoint from, wxPoint to, Handle const & handle) {
  MoveTo(window, from);
  Press(1, true);
  handle();
  for (int step = 1; step <= 4; ++step) {
    MoveTo(window, from + wxPoint((to.x - from.x) * step / 4, (to.y - from.y) * step / 4));
    handle();
  }
  Press(1, false);
}

inline void Key(KeySym key) {
  KeyCode const code = XKeysymToKeycode(XDisplay(), key);
  XTestFakeKeyEvent(XDisplay(), code, True, CurrentTime);
  XTestFakeKeyEvent(XDisplay(), code, False, CurrentTime);
  XSync(XDisplay(), False);
}

}  // namespace list_input
