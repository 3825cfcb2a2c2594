#pragma once
// A device-independent bitmap: a BITMAPINFOHEADER (or, in old data, a
// BITMAPCOREHEADER), its colour table and the pixel rows in one block. The
// block remembers its size, so that a reader can check every offset against
// it (GlobalSize).

#include <cstddef>
#include <cstdint>

#pragma pack(push, 2)
struct BITMAPINFOHEADER {
  std::uint32_t biSize;
  std::int32_t biWidth;
  std::int32_t biHeight;
  std::uint16_t biPlanes;
  std::uint16_t biBitCount;
  std::uint32_t biCompression;
  std::uint32_t biSizeImage;
  std::int32_t biXPelsPerMeter;
  std::int32_t biYPelsPerMeter;
  std::uint32_t biClrUsed;
  std::uint32_t biClrImportant;
};
struct BITMAPCOREHEADER {
  std::uint32_t bcSize;
  std::uint16_t bcWidth;
  std::uint16_t bcHeight;
  std::uint16_t bcPlanes;
  std::uint16_t bcBitCount;
};
#pragma pack(pop)
static_assert(sizeof(BITMAPINFOHEADER) == 40 && sizeof(BITMAPCOREHEADER) == 12,
              "DIB headers are stored byte for byte");

struct RGBQUAD {
  std::uint8_t rgbBlue;
  std::uint8_t rgbGreen;
  std::uint8_t rgbRed;
  std::uint8_t rgbReserved;
};

constexpr std::uint32_t BI_RGB = 0;
constexpr std::uint32_t BI_RLE8 = 1;
constexpr std::uint32_t BI_RLE4 = 2;
constexpr std::uint32_t BI_BITFIELDS = 3;

struct DibBlock;
using HDIB = DibBlock *;

// A zero-filled block of `bytes`; null when memory is short.
HDIB GlobalAlloc(std::size_t bytes);
// Frees the block (null is allowed) and gives null.
HDIB GlobalFree(HDIB dib);
// The size the block was allocated with; 0 for null.
std::size_t GlobalSize(HDIB dib);
// The block's first byte; null for null.
void * GlobalLock(HDIB dib);

// Entries of the colour table: biClrUsed if set, else 2, 16 or 256 for 1, 4
// and 8 bits (and 4 for 2 bits), else 0. The header is a core header when
// its first field is 12.
unsigned DibColorCount(void const * header);
// Bytes of the colour table: 4 per entry behind an info header, 3 behind a
// core header.
std::size_t DibPaletteSize(void const * header);
// Bytes of one row of `bitCount`-bit pixels, padded to 32 bits.
std::size_t DibStride(long long width, unsigned bitCount);
