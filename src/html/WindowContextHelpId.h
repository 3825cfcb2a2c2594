#pragma once
// The context help identifier of a window: the number of its pop-up text in
// the help project. Windows carry none (0) until one is set; the identifier
// is forgotten when the window is destroyed.

#include <cstdint>

class wxWindow;

// Sets the identifier of `window`; 0 removes it. False for a null window.
bool VxSetWindowContextHelpId(wxWindow * window, uint32_t contextHelpId);

// The identifier of `window`, 0 when none was set or `window` is null.
uint32_t VxGetWindowContextHelpId(wxWindow const * window);
