#pragma once
// Helpers for tests with real windows. Waiting is always for a condition,
// with the event loop pumped meanwhile, never a bare sleep.

#include <functional>

class wxTopLevelWindow;
class wxWindow;

namespace gui_test {

// Handles pending events until `condition` holds or `timeoutMs` passes;
// returns the condition's last value.
bool WaitUntil(std::function<bool()> const & condition, int timeoutMs = 5000);

// Shows the top-level window and waits until the X server has mapped it and
// it has been painted once.
bool ShowAndWait(wxWindow & window, int timeoutMs = 5000);

// Waits until the window manager has framed and placed the shown top-level
// window and wx knows its place: the X server's frame is where wx says the
// window is. Before that, GTK reports the place it asked for, not the one it
// got. Returns true at once without a window manager.
bool WaitUntilPlaced(wxTopLevelWindow & window, int timeoutMs = 5000);

// Waits until `window` has the keyboard focus and the X server gives keys
// to its top-level window. wx reports a focus set on a window whose
// top-level is not active yet as its own at once, before a typed key can
// reach it.
bool WaitUntilFocused(wxWindow & window, int timeoutMs = 5000);

// Whether a window manager has taken the screen, read from the root window
// each time (GDK's own answer is cached for seconds).
bool WindowManagerRunning();

// With TALVO_SNAPSHOTS naming a folder, writes a PNG of `window` as shown
// there under `name`, to look at; nothing otherwise.
void Snapshot(wxWindow & window, char const * name);

// Handles everything that is pending now.
void Flush();

// Clicks the button `id` inside `window` as wx reports a click (the event
// from the button); fails the test when there is no such control.
void Click(wxWindow & window, int id);

// A key press as a dialog sees it first (wxEVT_CHAR_HOOK), e.g. WXK_ESCAPE.
void PressKey(wxWindow & window, int keyCode);

}  // namespace gui_test
