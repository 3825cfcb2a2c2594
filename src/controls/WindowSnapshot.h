#pragma once
// A picture of what a window shows on screen, read back from the X server.
// For screenshots of the sample application and for tests that look at
// pixels.

#include <wx/image.h>
#include <wx/string.h>

class wxWindow;

// The window's client content as the display shows it now; an invalid image
// when the window is not on screen.
wxImage CaptureWindowImage(wxWindow & window);

// Writes CaptureWindowImage as a PNG file; false when there was nothing to
// capture or the file could not be written.
bool SaveWindowSnapshot(wxWindow & window, wxString const & pngPath);
