#pragma once
// Pictures between the screen's bitmaps (wxBitmap stands for HBITMAP) and
// DIB blocks. The screen side has no palettes here: a palette is accepted
// where callers pass one and then ignored.

#include <cstdint>

#include <wx/bitmap.h>
#include <wx/image.h>

#include "pictures/DibBlock.h"

class wxPalette;

// The largest picture a DIB may describe before it is decoded (8192 x 8192):
// a header asking for more is refused before anything is allocated.
constexpr long long kMaxDibPixels = 1LL << 26;

// A new DIB block of the bitmap: a 40-byte header, a colour table for 1 bit,
// rows bottom-up in the bitmap's own depth (1, 24 or 32 bits; 32 keeps the
// alpha in the fourth byte). Null for BI_BITFIELDS, for a compression other
// than BI_RGB (the screen's depths leave nothing to run-length encode), for
// an invalid bitmap or without memory. The caller frees it with GlobalFree.
HDIB DDBToDIB(wxBitmap const & bitmap, std::uint32_t compression, wxPalette const * palette);

// As DDBToDIB with BI_RGB, but the bit count reduced to 1 or 24, as printers
// are given pictures.
HDIB BitmapToDIB(wxBitmap const & bitmap, wxPalette const * palette);

// A 24-bit bottom-up DIB of the image; null for an invalid or empty image or
// without memory.
HDIB ImageToDIB(wxImage const & image);

// The DIB's picture, top row first: every depth (1, 4, 8, 16, 24, 32 bits),
// BI_RGB, BI_RLE4, BI_RLE8 and BI_BITFIELDS, info and core headers, rows
// bottom-up or (negative height) top-down. An invalid image when the block
// does not hold what its header says or asks for more than kMaxDibPixels.
wxImage DibToImage(HDIB dib);

// A bitmap for the screen made from the DIB; invalid where DibToImage is.
wxBitmap DIBToDDB(HDIB dib);
