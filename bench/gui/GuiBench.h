#pragma once
// wx and GTK started once for the GUI benchmark binary, whichever figure
// runs first; false without a display.

bool GuiStarted();
