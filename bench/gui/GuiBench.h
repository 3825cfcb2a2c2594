#pragma once
// wx and GTK started once for the GUI benchmark binary, whichever figure
// runs first; false without a display.

class wxWindow;

bool GuiStarted();

// Destroys a figure's window now, children included. wx leaves a top-level
// window to the next idle time, which may come in another figure, after
// what the window points at (a manager, a trail, settings on the figure's
// stack) is gone.
void DestroyNow(wxWindow * window);
