#pragma once
// A source picture for an art archive, as it is to be stored: read from a
// file (JPEG by libjpeg with limits; PNG, BMP, GIF, TIFF... by wxImage),
// turned, and shrunk to fit, never enlarged.

#include <string>

#include <wx/image.h>

namespace vx3 {

// Quarter turns clockwise: rotation mod 4 with the sign of rotation; 1, 2
// and 3 turn by 90, 180 and 270 degrees, 0 and negative results not at all.
wxImage TurnArtPicture(wxImage const & image, int rotation);

// The size that fits `width` x `height` into the maximum by one scale
// factor, truncated and never above the maximum; unchanged if it fits.
wxSize FitArtPicture(int width, int height, int maxWidth, int maxHeight);

// Reads, turns and shrinks the picture at `path` (UTF-8). Returns an
// invalid image if the file cannot be read as a picture or is larger than
// 100 megapixels.
wxImage LoadArtPicture(std::string const & path, int maxWidth, int maxHeight, int rotation);

}  // namespace vx3
