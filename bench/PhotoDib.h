#pragma once
// A bottom-up DIB with something like a photograph in it (smooth shapes
// with fine grain, so that a compressor has real work), for the picture
// figures; and a file name in TMPDIR private to this run.

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "pictures/DibBlock.h"

namespace bench {

constexpr int kPhotoSide = 2048;

inline std::string PictureBenchFile(std::string const & name) {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-bench-picture-" +
         std::to_string(::getpid()) + "-" + name;
}

// Header and rows of a kPhotoSide square picture of `bits` (24 or 32).
inline std::vector<unsigned char> PhotoDib(int bits) {
  std::size_t const stride = DibStride(kPhotoSide, static_cast<unsigned>(bits));
  std::vector<unsigned char> dib(40 + stride * kPhotoSide);
  BITMAPINFOHEADER header{
      40, kPhotoSide, kPhotoSide, 1, static_cast<std::uint16_t>(bits), BI_RGB, 0, 0, 0, 0, 0};
  std::memcpy(dib.data(), &header, sizeof header);
  unsigned noise = 12345u;
  int const bytes = bits / 8;
  for (int y = 0; y < kPhotoSide; ++y) {
    unsigned char * pixel = dib.data() + 40 + stride * static_cast<std::size_t>(y);
    for (int x = 0; x < kPhotoSide; ++x, pixel += bytes) {
      noise = noise * 1103515245u + 12345u;
      int const grain = static_cast<int>(noise >> 28) - 8;
      double const wave = std::sin(x * 0.01) * std::cos(y * 0.013) * 80;
      pixel[0] =
          static_cast<unsigned char>(std::clamp(120 + static_cast<int>(wave) + grain, 0, 255));
      pixel[1] = static_cast<unsigned char>(std::clamp(90 + x * 100 / kPhotoSide + grain, 0, 255));
      pixel[2] = static_cast<unsigned char>(std::clamp(60 + y * 120 / kPhotoSide - grain, 0, 255));
      if (bytes == 4) pixel[3] = static_cast<unsigned char>(x * 255 / kPhotoSide);
    }
  }
  return dib;
}

}  // namespace bench
