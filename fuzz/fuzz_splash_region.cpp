// Any picture and transparent colour: the splash outline, merged into
// rectangles, covers exactly the pixels a plain reading of the row rules
// gives (each pixel that is not the key, except a run that begins on a
// row's last pixel), with no rectangle overlapping another. The same bytes
// also go through the picture header reader, which must not read past them.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "controls/SplashPicture.h"
#include "controls/SplashRegion.h"

namespace {

bool Covered(std::vector<unsigned char> const & rgb, int width, int x, int y, COLORREF key) {
  auto opaque = [&](int at) {
    unsigned char const * p = &rgb[(static_cast<size_t>(y) * width + at) * 3];
    return !(p[0] == GetRValue(key) && p[1] == GetGValue(key) && p[2] == GetBValue(key));
  };
  if (!opaque(x)) return false;
  int start = x;
  while (start > 0 && opaque(start - 1)) --start;
  int end = x;
  while (end + 1 < width && opaque(end + 1)) ++end;
  return !(end == width - 1 && start == width - 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  int width = 0;
  int height = 0;
  if (ReadPictureHeaderSize(data, size, width, height) && (width < 0 || height < 0)) std::abort();
  if (size < 2) return 0;
  width = 1 + data[0] % 48;
  // Two colours and the key, so that runs start and end often.
  COLORREF const key = RGB(data[1], 0, 255);
  std::vector<unsigned char> rgb;
  for (size_t i = 2; i < size; ++i) {
    if ((data[i] & 3) == 0)
      rgb.insert(rgb.end(), {data[1], 0, 255});
    else
      rgb.insert(rgb.end(), {static_cast<unsigned char>(data[i] & 1), data[i], 255});
  }
  height = static_cast<int>(rgb.size() / 3 / width);
  if (height == 0) return 0;

  std::vector<char> hits(static_cast<size_t>(width) * height, 0);
  for (wxRect const & r : MergeSplashRuns(SplashRegionRuns(rgb.data(), width, height, key))) {
    if (r.x < 0 || r.y < 0 || r.width <= 0 || r.height <= 0 || r.GetRight() >= width ||
        r.GetBottom() >= height)
      std::abort();
    for (int y = r.y; y <= r.GetBottom(); ++y)
      for (int x = r.x; x <= r.GetRight(); ++x)
        if (hits[static_cast<size_t>(y) * width + x]++ != 0) std::abort();
  }
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      if ((hits[static_cast<size_t>(y) * width + x] != 0) != Covered(rgb, width, x, y, key))
        std::abort();
  return 0;
}
