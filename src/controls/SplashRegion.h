#pragma once
// The outline of a shaped splash picture: every pixel that is not the
// transparent colour, as rectangles, built row by row the way the family's
// splash always has (see SplashRegionRuns for the row-end rule).

#include <wx/bitmap.h>
#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/region.h>

#include <vector>

#include "platform/WinGdi.h"

// No transparent colour: the window stays rectangular.
constexpr COLORREF kNoTransparentColor = 0xFFFFFFFF;

// The runs of non-transparent pixels, one row high, rows from the bottom of
// the picture to the top. The key is compared on red, green and blue only.
// A run still open at a row's end is closed at the right edge only when it
// is more than one pixel long, so a lone opaque last pixel is dropped.
std::vector<wxRect> SplashRegionRuns(unsigned char const * rgb, int width, int height,
                                     COLORREF transparentColor);

// The same runs with equal runs of neighbouring rows joined into taller
// rectangles: the same set of pixels, far fewer rectangles to unite.
std::vector<wxRect> MergeSplashRuns(std::vector<wxRect> const & runs);

// The region of `picture` without the transparent colour; empty when every
// pixel is transparent (or the picture is not valid).
wxRegion CreateRgnFromBitmap(wxBitmap const & picture, COLORREF transparentColor);
wxRegion CreateRgnFromImage(wxImage const & picture, COLORREF transparentColor);
