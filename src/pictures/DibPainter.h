#pragma once
// A DIB painted on a device context, and the palette of its colour table.

#include <wx/gdicmn.h>

#include "pictures/DibBlock.h"

class wxDC;
class wxPalette;

// Paints the part `source` of the picture (top-down coordinates) into
// `target` on the device context: unscaled when the two are of one size,
// else stretched by repeating or dropping pixels (no smoothing, as colour on
// colour stretching does). Palettes are accepted and ignored. False for a
// null or unreadable block or nothing to paint.
bool PaintDIB(wxDC & dc, wxRect const & target, HDIB dib, wxRect const & source,
              wxPalette const * palette);

// Makes `palette` from the colour table of a 1, 4 or 8-bit DIB (3-byte
// entries behind a core header). False for other depths, a table the block
// does not hold, or a palette that cannot be made.
bool CreateDIBPalette(HDIB dib, wxPalette & palette);
