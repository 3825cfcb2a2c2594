#pragma once
// DIB blocks for the printing tests: a header, a colour table for up to 8
// bits, rows bottom-up (or top-down) with every pixel given by the caller.

#include <cstdint>
#include <functional>
#include <memory>

#include "pictures/DibBlock.h"

namespace test_dib {

struct Freer {
  void operator()(DibBlock * dib) const { GlobalFree(dib); }
};
using Owned = std::unique_ptr<DibBlock, Freer>;

// `pixel(x, y)` with y from the top gives the stored value: a palette index
// for 1, 4 and 8 bits, 0x00RRGGBB for 24 and 32, a 5-5-5 word for 16.
// The palette entries are 0x00RRGGBB.
Owned Make(int width, int height, unsigned bits,
           std::function<std::uint32_t(int, int)> const & pixel,
           std::initializer_list<std::uint32_t> palette = {}, bool topDown = false);

inline BITMAPINFOHEADER * Header(HDIB dib) {
  return static_cast<BITMAPINFOHEADER *>(GlobalLock(dib));
}
inline std::uint8_t * Bits(HDIB dib) {
  return static_cast<std::uint8_t *>(GlobalLock(dib)) + sizeof(BITMAPINFOHEADER) +
         DibPaletteSize(GlobalLock(dib));
}

}  // namespace test_dib
