#pragma once
// A window's picture as a 24-bit DIB, for printing it. The window must be
// shown: the picture is what the display shows of it now.

#include "pictures/DibBlock.h"

class wxImage;
class wxWindow;

// Null when the window shows nothing or memory is short; the caller frees
// the block with GlobalFree.
HDIB WindowToDib(wxWindow & window);
// A 24-bit bottom-up DIB of the image, 96 pixels an inch.
HDIB ImageToDib(wxImage const & image);
