#pragma once
// JPEG in and out of memory for the art archive, on libjpeg-turbo.
//
// Decoding checks the dimensions from the header against limits before any
// pixel is allocated, and stops a progressive file after too many scans, so
// that a small hostile file cannot make a huge image or take minutes.

#include <cstddef>
#include <stdexcept>
#include <string>

#include <wx/image.h>

namespace vx3 {

struct JpegDecodeLimits {
  int maxWidth = 8192;
  int maxHeight = 8192;
  unsigned long long maxPixels = 16ull << 20;
  int maxScans = 100;
};

class ArtJpegError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// The dimensions that the header gives. Throws ArtJpegError if the bytes
// are no JPEG.
void ReadJpegSize(unsigned char const * data, size_t size, int & width, int & height);

// The decoded picture, RGB. With `minWidth` and `minHeight` above 0 the
// decoder may shrink by 1/2, 1/4 or 1/8 while both sides stay at least that
// large (the limits apply to the shrunk size). Throws ArtJpegError.
wxImage DecodeArtJpeg(unsigned char const * data, size_t size, JpegDecodeLimits const & limits,
                      int minWidth = 0, int minHeight = 0);

// The picture's RGB (alpha ignored) as a baseline JPEG of `quality`.
std::string EncodeArtJpeg(wxImage const & image, int quality);

}  // namespace vx3
