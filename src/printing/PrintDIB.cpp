#include "printing/PrintDIB.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/WinGeometry.h"

namespace {

struct Picture {
  BITMAPINFOHEADER const * header = nullptr;
  void const * bits = nullptr;
  long long width = 0;
  long long height = 0;  // rows, positive
  bool bottomUp = true;
};

// The header, colour table and rows must lie inside the block: a header
// that lies about them is refused before anything reads past the end.
bool Lock(HDIB dib, Picture & picture) {
  auto const * block = static_cast<std::uint8_t const *>(GlobalLock(dib));
  std::size_t const size = GlobalSize(dib);
  if (block == nullptr || size < sizeof(BITMAPINFOHEADER)) {
    return false;
  }
  auto const * header = reinterpret_cast<BITMAPINFOHEADER const *>(block);
  if (header->biSize < sizeof(BITMAPINFOHEADER) || header->biSize > size || header->biWidth <= 0 ||
      header->biHeight == 0 || header->biClrUsed > 256) {
    return false;
  }
  std::size_t offset = header->biSize + DibPaletteSize(header);
  if (header->biCompression == BI_BITFIELDS) {
    offset += 3 * sizeof(std::uint32_t);
  }
  long long const rows =
      header->biHeight < 0 ? -static_cast<long long>(header->biHeight) : header->biHeight;
  if (offset > size) {
    return false;
  }
  std::size_t const room = size - offset;
  if (header->biCompression == BI_RLE8 || header->biCompression == BI_RLE4) {
    if (header->biSizeImage > room) {
      return false;
    }
  } else {
    // Rows times stride is compared by division: a lying header's product
    // would overflow.
    std::size_t const stride = DibStride(header->biWidth, header->biBitCount);
    if (stride != 0 && std::size_t(rows) > room / stride) {
      return false;
    }
  }
  picture.header = header;
  picture.bits = block + offset;
  picture.width = header->biWidth;
  picture.height = rows;
  picture.bottomUp = header->biHeight > 0;
  return true;
}

// A half added, then truncated: the source rectangle's arithmetic (its
// values are never negative).
int AddHalfAndTruncate(double value) { return static_cast<int>(std::floor(value + 0.5)); }

// The part of the picture that falls into `band`, stretched there.
bool PaintBand(CDC * dc, Picture const & picture, RECT const & target, RECT const & band) {
  double const scaleX = double(target.right - target.left) / double(picture.width);
  double const scaleY = double(target.bottom - target.top) / double(picture.height);
  RECT const part{std::max(target.left, band.left), std::max(target.top, band.top),
                  std::min(target.right, band.right), std::min(target.bottom, band.bottom)};
  if (part.left >= part.right || part.top >= part.bottom) {
    return true;
  }
  int const width = part.right - part.left;
  int const height = part.bottom - part.top;
  int const sourceLeft = AddHalfAndTruncate((part.left - target.left) / scaleX);
  int const sourceWidth = AddHalfAndTruncate(width / scaleX + sourceLeft) - sourceLeft;
  int const sourceTop = AddHalfAndTruncate((part.top - target.top) / scaleY);
  int const sourceHeight = AddHalfAndTruncate(height / scaleY + sourceTop) - sourceTop;
  if (sourceWidth <= 0 || sourceHeight <= 0) {
    return true;  // a sliver of less than half a pixel at the picture's edge
  }
  // A bottom-up DIB's source rows count from its last row; a top-down
  // one's from its first.
  int const sourceY =
      picture.bottomUp ? int(picture.height) - (sourceTop + sourceHeight) : sourceTop;
  return dc->StretchDIBits(part.left, part.top, width, height, sourceLeft, sourceY, sourceWidth,
                           sourceHeight, picture.bits, picture.header, DIB_RGB_COLORS, SRCCOPY) > 0;
}

}  // namespace

unsigned short PrintDIB(HDIB dib, unsigned short mode, unsigned short xScale, unsigned short yScale,
                        CDC * dc, int top) {
  if (dib == nullptr) {
    return PRINT_DIB_NO_DIB;
  }
  Picture picture;
  if (!Lock(dib, picture)) {
    return PRINT_DIB_LOCK_FAILED;
  }
  if (dc == nullptr) {
    return PRINT_DIB_NO_DC;
  }
  dc->SetStretchBltMode(COLORONCOLOR);

  long long const pageWidth = dc->GetDeviceCaps(HORZRES);
  long long const pageHeight = dc->GetDeviceCaps(VERTRES);
  long long const dpiX = std::max(dc->GetDeviceCaps(LOGPIXELSX), 1);
  long long const dpiY = dc->GetDeviceCaps(LOGPIXELSY);
  RECT target{0, top, LONG(pageWidth), LONG(pageHeight - top)};
  if (mode == 1) {
    target.bottom = LONG(pageWidth * picture.height * dpiY / (dpiX * picture.width));
  } else if (mode == 3) {
    long long const width = xScale * picture.width;
    target.left = LONG((pageWidth - width) / 2);
    target.right = LONG(target.left + width);
    target.bottom = LONG(yScale * picture.height);
  }

  int escape = NEXTBAND;
  if (dc->Escape(QUERYESCSUPPORT, sizeof escape, &escape, nullptr) > 0) {
    escape = BANDINFO;
    bool const bandInfo = dc->Escape(QUERYESCSUPPORT, sizeof escape, &escape, nullptr) > 0;
    for (;;) {
      RECT band{};
      if (dc->Escape(NEXTBAND, 0, nullptr, &band) <= 0) {
        return PRINT_DIB_NEWFRAME_FAILED;
      }
      if (band.left >= band.right || band.top >= band.bottom) {
        return 0;  // the driver has the page
      }
      BANDINFOSTRUCT info{1, 1, 0, 0, 0, 0};
      if (bandInfo) {
        BANDINFOSTRUCT asked = info;
        dc->Escape(BANDINFO, sizeof asked, &asked, &info);
      }
      if (info.fGraphicsFlag != 0 && !PaintBand(dc, picture, target, band)) {
        return PRINT_DIB_STRETCH_FAILED;
      }
    }
  }
  if (!PaintBand(dc, picture, target, target)) {
    return PRINT_DIB_STRETCH_FAILED;
  }
  if (dc->Escape(NEWFRAME, 0, nullptr, nullptr) < 0) {
    return PRINT_DIB_NEWFRAME_FAILED;
  }
  return 0;
}
