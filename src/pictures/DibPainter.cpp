#include "pictures/DibPainter.h"

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/image.h>
#include <wx/palette.h>

#include <cstring>
#include <vector>

#include "pictures/DibBitmap.h"

namespace {

// Each target pixel takes the source pixel it falls in (wx's own nearest
// scaling drifts by a pixel through its fixed-point steps).
wxImage Stretch(wxImage const & source, int width, int height) {
  wxImage stretched(width, height, false);
  int const sourceWidth = source.GetWidth();
  int const sourceHeight = source.GetHeight();
  unsigned char const * const in = source.GetData();
  unsigned char * out = stretched.GetData();
  for (int y = 0; y < height; ++y) {
    long long const sy = static_cast<long long>(y) * sourceHeight / height;
    unsigned char const * const row = in + sy * sourceWidth * 3;
    for (int x = 0; x < width; ++x, out += 3)
      std::memcpy(out, row + static_cast<long long>(x) * sourceWidth / width * 3, 3);
  }
  return stretched;
}

}  // namespace

bool PaintDIB(wxDC & dc, wxRect const & target, HDIB dib, wxRect const & source,
              wxPalette const * palette) {
  static_cast<void>(palette);
  if (dib == nullptr || target.IsEmpty()) return false;
  wxImage const picture = DibToImage(dib);
  if (!picture.IsOk()) return false;
  wxRect const part = source.Intersect(wxRect(picture.GetSize()));
  if (part.IsEmpty()) return false;
  wxImage shown = part.GetSize() == picture.GetSize() ? picture : picture.GetSubImage(part);
  if (source.GetSize() != target.GetSize()) {
    long long const width = static_cast<long long>(target.width) * part.width / source.width;
    long long const height = static_cast<long long>(target.height) * part.height / source.height;
    if (width < 1 || height < 1 || width * height > kMaxDibPixels) return false;
    shown = Stretch(shown, static_cast<int>(width), static_cast<int>(height));
  }
  int const x = target.x + (part.x - source.x) * target.width / source.width;
  int const y = target.y + (part.y - source.y) * target.height / source.height;
  dc.DrawBitmap(wxBitmap(shown, 24), x, y, false);
  return true;
}

bool CreateDIBPalette(HDIB dib, wxPalette & palette) {
  std::size_t const size = GlobalSize(dib);
  if (dib == nullptr || size < sizeof(BITMAPCOREHEADER)) return false;
  auto const * const block = static_cast<unsigned char const *>(GlobalLock(dib));
  std::uint32_t headerSize = 0;
  std::memcpy(&headerSize, block, sizeof headerSize);
  bool const core = headerSize == sizeof(BITMAPCOREHEADER);
  if (!core && (headerSize < sizeof(BITMAPINFOHEADER) || headerSize > size)) return false;
  std::uint16_t bits = 0;
  std::memcpy(&bits,
              block + (core ? offsetof(BITMAPCOREHEADER, bcBitCount)
                            : offsetof(BITMAPINFOHEADER, biBitCount)),
              sizeof bits);
  if (bits != 1 && bits != 4 && bits != 8) return false;
  std::size_t const colors = DibColorCount(block);
  std::size_t const entryBytes = core ? 3 : 4;
  if (colors == 0 || colors > (size - headerSize) / entryBytes) return false;
  std::vector<unsigned char> red(colors), green(colors), blue(colors);
  for (std::size_t i = 0; i < colors; ++i) {
    unsigned char const * entry = block + headerSize + i * entryBytes;
    blue[i] = entry[0];
    green[i] = entry[1];
    red[i] = entry[2];
  }
  return palette.Create(static_cast<int>(colors), red.data(), green.data(), blue.data());
}
