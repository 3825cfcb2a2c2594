#include "TestDib.h"

#include <cstring>

namespace test_dib {

Owned Make(int width, int height, unsigned bits,
           std::function<std::uint32_t(int, int)> const & pixel,
           std::initializer_list<std::uint32_t> palette, bool topDown) {
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = width;
  header.biHeight = topDown ? -height : height;
  header.biPlanes = 1;
  header.biBitCount = static_cast<std::uint16_t>(bits);
  header.biCompression = BI_RGB;
  header.biClrUsed = static_cast<std::uint32_t>(palette.size());
  std::size_t const stride = DibStride(width, bits);
  std::size_t const tableSize = palette.size() * 4;
  Owned dib(GlobalAlloc(sizeof header + tableSize + stride * std::size_t(height)));
  auto * block = static_cast<std::uint8_t *>(GlobalLock(dib.get()));
  std::memcpy(block, &header, sizeof header);
  std::uint8_t * table = block + sizeof header;
  for (std::uint32_t colour : palette) {
    table[0] = std::uint8_t(colour);
    table[1] = std::uint8_t(colour >> 8);
    table[2] = std::uint8_t(colour >> 16);
    table += 4;
  }
  std::uint8_t * rows = block + sizeof header + tableSize;
  for (int y = 0; y < height; ++y) {
    std::uint8_t * row = rows + stride * std::size_t(topDown ? y : height - 1 - y);
    for (int x = 0; x < width; ++x) {
      std::uint32_t const value = pixel(x, y);
      switch (bits) {
        case 1:
        case 4:
        case 8: {
          unsigned const perByte = 8 / bits;
          unsigned const shift = 8 - bits * (unsigned(x) % perByte + 1);
          row[unsigned(x) / perByte] |= std::uint8_t(value << shift);
          break;
        }
        case 16:
          row[x * 2] = std::uint8_t(value);
          row[x * 2 + 1] = std::uint8_t(value >> 8);
          break;
        default: {
          std::uint8_t * p = row + std::size_t(x) * (bits / 8);
          p[0] = std::uint8_t(value);
          p[1] = std::uint8_t(value >> 8);
          p[2] = std::uint8_t(value >> 16);
          break;
        }
      }
    }
  }
  return dib;
}

}  // namespace test_dib
