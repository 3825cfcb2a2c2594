#include "controls/SplashRegion.h"

#include <algorithm>
#include <map>
#include <utility>

std::vector<wxRect> SplashRegionRuns(unsigned char const * rgb, int width, int height,
                                     COLORREF transparentColor) {
  std::vector<wxRect> runs;
  if (rgb == nullptr || width <= 0 || height <= 0) return runs;
  unsigned char const red = GetRValue(transparentColor);
  unsigned char const green = GetGValue(transparentColor);
  unsigned char const blue = GetBValue(transparentColor);
  auto const stride = static_cast<size_t>(width) * 3;
  for (int y = height - 1; y >= 0; --y) {
    unsigned char const * pixel = rgb + stride * static_cast<size_t>(y);
    bool inside = false;
    int start = 0;
    for (int x = 0; x < width; ++x, pixel += 3) {
      bool const transparent = pixel[0] == red && pixel[1] == green && pixel[2] == blue;
      if (inside && transparent) {
        runs.emplace_back(start, y, x - start, 1);
        inside = false;
      } else if (!inside && !transparent) {
        start = x;
        inside = true;
      }
    }
    // The row-end rule: a run that begins on the last pixel is dropped.
    if (inside && width - start > 1) runs.emplace_back(start, y, width - start, 1);
  }
  return runs;
}

std::vector<wxRect> MergeSplashRuns(std::vector<wxRect> const & runs) {
  // Runs arrive bottom-up; a run continues a rectangle whose top row is the
  // row just below it and whose columns are the same.
  std::vector<wxRect> merged;
  merged.reserve(runs.size());
  std::map<std::pair<int, int>, size_t> open;  // (x, width) -> index in merged
  std::map<std::pair<int, int>, size_t> next;
  int row = -1;
  for (wxRect const & run : runs) {
    if (run.y != row) {
      // A new row: only rectangles that reached the previous row stay open.
      open = (run.y == row - 1) ? std::move(next) : decltype(open){};
      next.clear();
      row = run.y;
    }
    auto const key = std::make_pair(run.x, run.width);
    auto const found = open.find(key);
    if (found != open.end()) {
      wxRect & rect = merged[found->second];
      rect.y = run.y;
      ++rect.height;
      next.emplace(key, found->second);
      open.erase(found);
    } else {
      next.emplace(key, merged.size());
      merged.push_back(run);
    }
  }
  return merged;
}

wxRegion CreateRgnFromImage(wxImage const & picture, COLORREF transparentColor) {
  wxRegion region;
  if (!picture.IsOk()) return region;
  for (wxRect const & rect : MergeSplashRuns(SplashRegionRuns(
           picture.GetData(), picture.GetWidth(), picture.GetHeight(), transparentColor)))
    region.Union(rect);
  return region;
}

wxRegion CreateRgnFromBitmap(wxBitmap const & picture, COLORREF transparentColor) {
  if (!picture.IsOk()) return wxRegion();
  return CreateRgnFromImage(picture.ConvertToImage(), transparentColor);
}
