#pragma once
// Window placements of real windows: read from a top-level window and
// applied to one, so that a frame comes back where the user left it.
//
// rcNormalPosition is the restored (neither maximised nor minimised) outer
// rectangle, decorations included, in screen coordinates. wx does not report
// it while a window is maximised or minimised, so a window is tracked: from
// the first VxSetWindowPlacement or VxTrackWindowPlacement on, every move
// and resize in the normal state is remembered (once its events have
// settled, since the window manager reports sizes of a window on its way to
// maximised or minimised before the new state), and a window that is shown
// or restored goes back to the remembered rectangle, as on Windows. (wx on
// GTK learns the size of decorations from the first window it shows; the
// first window of a process, maximised before it was ever shown, may be
// restored a few pixels off until it is moved.) The
// minimised and maximised positions are not the desktop's to choose here;
// they are written as -1, -1 and ignored when applied.

#include <vector>

#include "platform/WinGeometry.h"

class wxTopLevelWindow;

// The placement now: showCmd SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED or
// SW_SHOWNORMAL (also for a hidden window, so that a saved placement never
// brings a window back hidden); flags WPF_RESTORETOMAXIMIZED when it is
// minimised and also maximised.
WINDOWPLACEMENT VxGetWindowPlacement(wxTopLevelWindow const & window);

// Gives the window the normal rectangle, brought onto the work area of a
// connected display when it lies off every one, then maximises or minimises
// it as showCmd says (SW_SHOWMAXIMIZED; SW_SHOWMINIMIZED, SW_MINIMIZE,
// SW_SHOWMINNOACTIVE; any other restores it). It does not show a hidden
// window: the caller shows it, as a frame is shown after it is placed.
void VxSetWindowPlacement(wxTopLevelWindow & window, WINDOWPLACEMENT const & placement);

// Starts remembering the window's normal rectangle (see above); calling it
// again does nothing.
void VxTrackWindowPlacement(wxTopLevelWindow & window);

// The client areas of the connected displays (without panels and docks).
std::vector<RECT> VxGetDisplayWorkAreas();
