#include "pictures/ArtPictureSource.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <mutex>

#include <wx/imaggif.h>
#include <wx/imagpng.h>
#include <wx/imagtiff.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include "pictures/ArtJpeg.h"

namespace vx3 {

namespace {

constexpr unsigned long long kMaxSourcePixels = 100ull << 20;
constexpr std::streamoff kMaxSourceBytes = 256ll << 20;

bool ReadSource(std::string const & path, std::string & bytes) {
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  if (!in) return false;
  std::streamoff const size = in.tellg();
  if (size <= 0 || size > kMaxSourceBytes) return false;
  bytes.resize(static_cast<size_t>(size));
  in.seekg(0);
  return static_cast<bool>(in.read(&bytes[0], size));
}

bool IsJpeg(std::string const & bytes) {
  return bytes.size() > 3 && static_cast<unsigned char>(bytes[0]) == 0xFF &&
         static_cast<unsigned char>(bytes[1]) == 0xD8;
}

unsigned long BigEndian32(std::string const & bytes, size_t at) {
  unsigned long value = 0;
  for (size_t i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  return value;
}

// A PNG's size from its header chunk, so that wxImage never inflates a
// hostile one. False for a PNG larger than the limit.
bool PngSizeAcceptable(std::string const & bytes) {
  static char const kPngSignature[] = "\x89PNG\r\n\x1a\n";
  if (bytes.size() < 24 || bytes.compare(0, 8, kPngSignature, 8) != 0) return true;
  unsigned long long const width = BigEndian32(bytes, 16);
  unsigned long long const height = BigEndian32(bytes, 20);
  return width * height <= kMaxSourcePixels;
}

// The format by the file's signature: only these are offered to wxImage,
// which would otherwise try every handler it has on any bytes.
wxBitmapType SourceType(std::string const & bytes) {
  auto const startsWith = [&](char const * signature, size_t length) {
    return bytes.size() >= length && bytes.compare(0, length, signature, length) == 0;
  };
  if (startsWith("\x89PNG\r\n\x1a\n", 8)) return wxBITMAP_TYPE_PNG;
  if (startsWith("GIF87a", 6) || startsWith("GIF89a", 6)) return wxBITMAP_TYPE_GIF;
  // NOLINTNEXTLINE(bugprone-string-literal-with-embedded-nul): compared by length.
  if (startsWith("II*\0", 4) || startsWith("MM\0*", 4)) return wxBITMAP_TYPE_TIFF;
  if (startsWith("BM", 2)) return wxBITMAP_TYPE_BMP;
  return wxBITMAP_TYPE_INVALID;
}

// The handlers for the source formats, each added unless the application
// has added it already.
void EnsureImageHandlers() {
  static std::once_flag once;
  std::call_once(once, [] {
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
    if (wxImage::FindHandler(wxBITMAP_TYPE_GIF) == nullptr) wxImage::AddHandler(new wxGIFHandler);
    if (wxImage::FindHandler(wxBITMAP_TYPE_TIFF) == nullptr) wxImage::AddHandler(new wxTIFFHandler);
  });
}

bool QuarterTurnsSwapSides(int rotation) {
  int const turns = rotation % 4;
  return turns == 1 || turns == 3;
}

}  // namespace

wxImage TurnArtPicture(wxImage const & image, int rotation) {
  switch (rotation % 4) {
    case 1: return image.Rotate90(true);
    case 2: return image.Rotate180();
    case 3: return image.Rotate90(false);
    default: return image;
  }
}

wxSize FitArtPicture(int width, int height, int maxWidth, int maxHeight) {
  double scale = 1.0;
  if (height > maxHeight) scale = static_cast<double>(maxHeight) / height;
  if (width > maxWidth) scale = std::min(scale, static_cast<double>(maxWidth) / width);
  if (scale >= 1.0) return wxSize(width, height);
  int const newWidth = std::max(1, std::min(static_cast<int>(width * scale), maxWidth));
  int const newHeight = std::max(1, std::min(static_cast<int>(height * scale), maxHeight));
  return wxSize(newWidth, newHeight);
}

wxImage LoadArtPicture(std::string const & path, int maxWidth, int maxHeight, int rotation) {
  std::string bytes;
  if (!ReadSource(path, bytes)) return wxImage();
  wxImage picture;
  wxSize target;
  if (IsJpeg(bytes)) {
    auto const * const data = reinterpret_cast<unsigned char const *>(bytes.data());
    try {
      int width = 0;
      int height = 0;
      ReadJpegSize(data, bytes.size(), width, height);
      bool const swap = QuarterTurnsSwapSides(rotation);
      target = swap ? FitArtPicture(height, width, maxWidth, maxHeight)
                    : FitArtPicture(width, height, maxWidth, maxHeight);
      // The decoder may shrink by a power of two on the way, down to the
      // target (in the picture's own orientation); the rest is bicubic.
      JpegDecodeLimits limits;
      limits.maxWidth = limits.maxHeight = 65535;
      limits.maxPixels = kMaxSourcePixels;
      picture = DecodeArtJpeg(data, bytes.size(), limits, swap ? target.y : target.x,
                              swap ? target.x : target.y);
    } catch (ArtJpegError const &) {
      return wxImage();
    }
    picture = TurnArtPicture(picture, rotation);
  } else {
    if (!PngSizeAcceptable(bytes)) return wxImage();
    EnsureImageHandlers();
    wxLogNull quiet;
    wxBitmapType const type = SourceType(bytes);
    if (type == wxBITMAP_TYPE_INVALID) return wxImage();
    wxMemoryInputStream in(bytes.data(), bytes.size());
    if (!picture.LoadFile(in, type) || !picture.IsOk()) return wxImage();
    picture = TurnArtPicture(picture, rotation);
    target = FitArtPicture(picture.GetWidth(), picture.GetHeight(), maxWidth, maxHeight);
  }
  if (picture.GetSize() != target) picture.Rescale(target.x, target.y, wxIMAGE_QUALITY_BICUBIC);
  return picture;
}

}  // namespace vx3
