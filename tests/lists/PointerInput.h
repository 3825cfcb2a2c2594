#pragma once
// Real pointer input at a place inside a window (XTest), for popups whose
// rows, edges and corners are the targets rather than their middles.

#include "work/XTestInput.h"

// Where the X server has the point `at` (client coordinates of `target`).
inline wxPoint ScreenPoint(wxWindow & target, wxPoint at) {
  wxPoint const centre = ScreenCentre(target);
  GtkWidget * const widget = target.GetHandle();
  return wxPoint(centre.x - gtk_widget_get_allocated_width(widget) / 2 + at.x,
                 centre.y - gtk_widget_get_allocated_height(widget) / 2 + at.y);
}

inline void FakeMoveTo(wxPoint screen) {
  Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  XTestFakeMotionEvent(display, -1, screen.x, screen.y, CurrentTime);
  XSync(display, False);
}

inline void FakeButton(bool press) {
  Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  XTestFakeButtonEvent(display, 1, press ? True : False, CurrentTime);
  XSync(display, False);
}

// Presses and releases the first button at `at` inside `target`.
inline void FakeClickAt(wxWindow & target, wxPoint at) {
  FakeMoveTo(ScreenPoint(target, at));
  FakeButton(true);
  FakeButton(false);
}

// Two clicks at `at` that the server takes as one double click: all four
// button events go in one request, so no wait on a loaded machine can put
// the desktop's double-click time between them.
inline void FakeDoubleClickAt(wxWindow & target, wxPoint at) {
  FakeMoveTo(ScreenPoint(target, at));
  Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  for (int click = 0; click < 2; ++click) {
    XTestFakeButtonEvent(display, 1, True, CurrentTime);
    XTestFakeButtonEvent(display, 1, False, CurrentTime);
  }
  XSync(display, False);
}

// Types `text` (letters, digits and blanks) into the focused window.
inline void FakeType(char const * text) {
  for (; *text != 0; ++text) {
    char const name[2] = {*text, 0};
    FakeKey(*text == ' ' ? XK_space : XStringToKeysym(name));
  }
}
