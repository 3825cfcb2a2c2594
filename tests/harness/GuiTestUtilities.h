#pragma once
// Helpers for tests with real windows. Waiting is always for a condition,
// with the event loop pumped meanwhile, never a bare sleep.

#include <functional>

class wxWindow;

namespace gui_test {

// Handles pending events until `condition` holds or `timeoutMs` passes;
// returns the condition's last value.
bool WaitUntil(std::function<bool()> const & condition, int timeoutMs = 5000);

// Shows the top-level window and waits until the X server has mapped it and
// it has been painted once.
bool ShowAndWait(wxWindow & window, int timeoutMs = 5000);

// Handles everything that is pending now.
void Flush();

}  // namespace gui_test
