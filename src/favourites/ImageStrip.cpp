#include "favourites/ImageStrip.h"

#include <algorithm>

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/imaglist.h>

int AddImageStrip(wxImageList & images, wxBitmap const & strip, wxColour const * mask) {
  int width = 0;
  int height = 0;
  if (!strip.IsOk() || !images.GetSize(0, width, height) || width <= 0 || height <= 0) return 0;
  int const count = strip.GetWidth() / width;
  int const rows = std::min(height, strip.GetHeight());
  int added = 0;
  for (int i = 0; i < count; ++i) {
    wxBitmap image = strip.GetSubBitmap(wxRect(i * width, 0, width, rows));
    int const index = mask != nullptr ? images.Add(image, *mask) : images.Add(image);
    if (index >= 0) ++added;
  }
  return added;
}
