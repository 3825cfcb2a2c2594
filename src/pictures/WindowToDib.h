#pragma once
// Screen shots of windows and of screen rectangles, as bitmaps and as BMP
// files.

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

class wxWindow;

// The whole window as it draws itself: GTK draws the widget into a cairo
// surface, so covered windows and Wayland give their content too; when that
// cannot be done (a window never realised) the pixels are read back from
// the X server. A 24-bit bitmap, invalid when the window shows nothing.
wxBitmap CaptureWindowBitmap(wxWindow & window);

// The screen's content in `rect` (screen coordinates) from the X server;
// invalid for an empty rectangle or where there is no screen to read.
wxBitmap ScreenRectToBitmap(wxRect const & rect);

// Writes a screen shot of the window to `file` as WriteDIB does (so a
// 24-bit picture's file header carries WriteDIB's pixel offset). Nonzero
// when the picture could be taken, whatever the writing gave.
int WriteWindowToDIB(wchar_t const * file, wxWindow * window);
