#include "controls/SplashPicture.h"

#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include "utl/Log.h"

namespace {

unsigned long BigEndian32(unsigned char const * p) {
  return (static_cast<unsigned long>(p[0]) << 24) | (static_cast<unsigned long>(p[1]) << 16) |
         (static_cast<unsigned long>(p[2]) << 8) | p[3];
}

long LittleEndian32(unsigned char const * p) {
  auto const value = static_cast<unsigned long>(p[0]) | (static_cast<unsigned long>(p[1]) << 8) |
                     (static_cast<unsigned long>(p[2]) << 16) |
                     (static_cast<unsigned long>(p[3]) << 24);
  return static_cast<long>(static_cast<int32_t>(value));
}

bool Fits(long long width, long long height) {
  return width > 0 && height > 0 && width <= kMaxSplashSide && height <= kMaxSplashSide &&
         width * height <= kMaxSplashPixels;
}

void Refuse(std::string const & path, char const * why) {
  Log::WriteMessage("VxSplashWindow", "SetBitmap", "Splash picture " + path + ": " + why,
                    Log::Error, false);
}

}  // namespace

bool ReadPictureHeaderSize(unsigned char const * data, size_t size, int & width, int & height) {
  static unsigned char const png[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  long long w = 0;
  long long h = 0;
  if (size >= 24 && std::memcmp(data, png, sizeof png) == 0 &&
      std::memcmp(data + 12, "IHDR", 4) == 0) {
    w = static_cast<long long>(BigEndian32(data + 16));
    h = static_cast<long long>(BigEndian32(data + 20));
  } else if (size >= 26 && data[0] == 'B' && data[1] == 'M') {
    // BITMAPINFOHEADER and later; a negative height is a top-down picture.
    w = LittleEndian32(data + 18);
    h = LittleEndian32(data + 22);
    if (h < 0) h = -h;
  } else {
    return false;
  }
  if (w < 0 || w > INT32_MAX || h > INT32_MAX) return false;
  width = static_cast<int>(w);
  height = static_cast<int>(h);
  return true;
}

wxImage DecodeSplashPicture(unsigned char const * data, size_t size, char const *& problem) {
  int width = 0;
  int height = 0;
  if (!ReadPictureHeaderSize(data, size, width, height)) {
    problem = "is no PNG or BMP picture";
    return wxImage();
  }
  if (!Fits(width, height)) {
    problem = "declares a size a splash picture cannot have";
    return wxImage();
  }
  wxLogNull quiet;  // the reason goes to the log, not to a box
  wxImage image;
  bool const png = data[0] == 0x89;
  // An application need not have registered the decoders.
  if (png && wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr)
    wxImage::AddHandler(new wxPNGHandler);
  wxMemoryInputStream stream(data, size);
  if (!image.LoadFile(stream, png ? wxBITMAP_TYPE_PNG : wxBITMAP_TYPE_BMP) ||
      image.GetWidth() != width || image.GetHeight() != height) {
    problem = "is damaged";
    return wxImage();
  }
  return image;
}

wxBitmap LoadSplashPicture(std::string const & path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    Refuse(path, "cannot be read");
    return wxBitmap();
  }
  std::vector<unsigned char> const bytes((std::istreambuf_iterator<char>(file)),
                                         std::istreambuf_iterator<char>());
  char const * problem = nullptr;
  wxImage const image = DecodeSplashPicture(bytes.data(), bytes.size(), problem);
  if (!image.IsOk()) {
    Refuse(path, problem);
    return wxBitmap();
  }
  return wxBitmap(image);
}
