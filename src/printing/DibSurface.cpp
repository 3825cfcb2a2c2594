#include "printing/DibSurface.h"

#include <cairo.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "pictures/DibBlock.h"

namespace {

struct Layout {
  long long width = 0;
  long long height = 0;  // rows, always positive
  bool bottomUp = true;
  unsigned bits = 0;
  std::uint32_t compression = BI_RGB;
  std::array<std::uint32_t, 256> palette{};  // 0xAARRGGBB
  std::uint32_t masks[3] = {0x7C00, 0x03E0, 0x001F};
};

bool ReadLayout(void const * info, Layout & layout) {
  std::uint32_t size = 0;
  std::memcpy(&size, info, sizeof size);
  auto const * bytes = static_cast<std::uint8_t const *>(info);
  std::size_t entrySize = 4;
  if (size == sizeof(BITMAPCOREHEADER)) {
    BITMAPCOREHEADER core{};
    std::memcpy(&core, info, sizeof core);
    layout.width = core.bcWidth;
    layout.height = core.bcHeight;
    layout.bits = core.bcBitCount;
    entrySize = 3;
  } else if (size >= sizeof(BITMAPINFOHEADER)) {
    BITMAPINFOHEADER header{};
    std::memcpy(&header, info, sizeof header);
    layout.width = header.biWidth;
    layout.bottomUp = header.biHeight > 0;
    layout.height =
        header.biHeight < 0 ? -static_cast<long long>(header.biHeight) : header.biHeight;
    layout.bits = header.biBitCount;
    layout.compression = header.biCompression;
    if (layout.compression == BI_BITFIELDS) {
      std::memcpy(layout.masks, bytes + size, sizeof layout.masks);
    }
  } else {
    return false;
  }
  if (layout.width <= 0 || layout.height <= 0) {
    return false;
  }
  if (layout.compression != BI_RGB && layout.compression != BI_BITFIELDS) {
    return false;  // run-length data has no rows to address
  }
  if (layout.bits == 1 || layout.bits == 4 || layout.bits == 8) {
    unsigned const colours = std::min(DibColorCount(info), 256U);
    std::uint8_t const * table = bytes + size;
    for (unsigned i = 0; i < colours; ++i) {
      std::uint8_t const * entry = table + std::size_t(i) * entrySize;
      layout.palette[i] =
          0xFF000000U | (std::uint32_t(entry[2]) << 16) | (std::uint32_t(entry[1]) << 8) | entry[0];
    }
    return true;
  }
  return layout.bits == 16 || layout.bits == 24 || layout.bits == 32;
}

// Expands a mask's field to 8 bits.
std::uint32_t Field(std::uint32_t pixel, std::uint32_t mask) {
  if (mask == 0) {
    return 0;
  }
  int shift = 0;
  while (((mask >> shift) & 1U) == 0) {
    ++shift;
  }
  std::uint32_t const maximum = mask >> shift;
  return ((pixel & mask) >> shift) * 255U / maximum;
}

void ConvertRow(Layout const & layout, std::uint8_t const * row, long long first, int count,
                std::uint32_t * out) {
  switch (layout.bits) {
    case 1:
    case 4:
    case 8: {
      unsigned const perByte = 8 / layout.bits;
      unsigned const mask = (1U << layout.bits) - 1;
      for (int i = 0; i < count; ++i) {
        long long const column = first + i;
        unsigned const shift = 8 - layout.bits * unsigned(column % perByte + 1);
        out[i] = layout.palette[(row[column / perByte] >> shift) & mask];
      }
      break;
    }
    case 16:
      for (int i = 0; i < count; ++i) {
        std::uint8_t const * p = row + (first + i) * 2;
        std::uint32_t const pixel = std::uint32_t(p[0]) | (std::uint32_t(p[1]) << 8);
        out[i] = 0xFF000000U | (Field(pixel, layout.masks[0]) << 16) |
                 (Field(pixel, layout.masks[1]) << 8) | Field(pixel, layout.masks[2]);
      }
      break;
    case 24:
      for (int i = 0; i < count; ++i) {
        std::uint8_t const * p = row + (first + i) * 3;
        out[i] = 0xFF000000U | (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[1]) << 8) | p[0];
      }
      break;
    default:  // 32
      for (int i = 0; i < count; ++i) {
        std::uint8_t const * p = row + (first + i) * 4;
        out[i] = 0xFF000000U | (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[1]) << 8) | p[0];
      }
      break;
  }
}

}  // namespace

DibSurface::DibSurface(void const * info, void const * bits, int x, int y, int width, int height) {
  Layout layout;
  if (info == nullptr || bits == nullptr || width <= 0 || height <= 0 ||
      !ReadLayout(info, layout)) {
    return;
  }
  // The rectangle's top row counted from the first row shown on the page.
  long long const top = layout.bottomUp ? layout.height - y - height : y;
  long long const left = std::max<long long>(x, 0);
  long long const right = std::min<long long>(static_cast<long long>(x) + width, layout.width);
  long long const first = std::max<long long>(top, 0);
  long long const last = std::min<long long>(top + height, layout.height);
  if (left >= right || first >= last) {
    return;
  }
  mOffsetX = int(left - x);
  mOffsetY = int(first - top);
  int const columns = int(right - left);
  int const rows = int(last - first);
  cairo_surface_t * surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, columns, rows);
  if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(surface);
    return;
  }
  cairo_surface_flush(surface);
  std::size_t const stride = DibStride(layout.width, layout.bits);
  auto const * pixels = static_cast<std::uint8_t const *>(bits);
  unsigned char * data = cairo_image_surface_get_data(surface);
  int const outStride = cairo_image_surface_get_stride(surface);
  for (int r = 0; r < rows; ++r) {
    long long const shown = first + r;
    long long const stored = layout.bottomUp ? layout.height - 1 - shown : shown;
    ConvertRow(layout, pixels + stride * std::size_t(stored), left, columns,
               reinterpret_cast<std::uint32_t *>(data + std::ptrdiff_t(r) * outStride));
  }
  cairo_surface_mark_dirty(surface);
  mSurface = surface;
}

DibSurface::~DibSurface() {
  if (mSurface != nullptr) {
    cairo_surface_destroy(mSurface);
  }
}
