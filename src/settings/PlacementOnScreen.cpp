#include "settings/PlacementOnScreen.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

// Widths and distances in 64 bits: a parsed placement may hold any LONG, and
// right - left of two of them overflows 32 bits.
int64_t Extent(LONG low, LONG high) { return std::max<int64_t>(int64_t(high) - low, 1); }

int64_t Overlap(LONG low1, int64_t extent1, LONG low2, LONG high2) {
  return std::min<int64_t>(low1 + extent1, high2) - std::max<int64_t>(low1, low2);
}

// Distance along one axis between [low1, low1 + extent1) and [low2, high2);
// 0 when they overlap.
int64_t Gap(LONG low1, int64_t extent1, LONG low2, LONG high2) {
  if (low1 + extent1 <= low2) return low2 - (low1 + extent1);
  if (high2 <= low1) return int64_t(low1) - high2;
  return 0;
}

// The start of an extent of `size` moved into [low, high), shrunk if needed.
void FitAxis(int64_t start, int64_t size, LONG low, LONG high, LONG & outLow, LONG & outHigh) {
  int64_t const room = std::max<int64_t>(int64_t(high) - low, 1);
  size = std::min(size, room);
  start = std::clamp<int64_t>(start, low, int64_t(high) - size);
  outLow = static_cast<LONG>(start);
  outHigh = static_cast<LONG>(start + size);
}

}  // namespace

bool VxIsOnAWorkArea(RECT const & rect, std::vector<RECT> const & workAreas, int minimumOverlap) {
  int64_t const width = Extent(rect.left, rect.right);
  int64_t const height = Extent(rect.top, rect.bottom);
  int64_t const needX = std::min<int64_t>(minimumOverlap, width);
  int64_t const needY = std::min<int64_t>(minimumOverlap, height);
  return std::any_of(workAreas.begin(), workAreas.end(), [&](RECT const & area) {
    return Overlap(rect.left, width, area.left, area.right) >= needX &&
           Overlap(rect.top, height, area.top, area.bottom) >= needY;
  });
}

RECT VxBringOntoWorkArea(RECT const & rect, std::vector<RECT> const & workAreas,
                         int minimumOverlap) {
  if (workAreas.empty() || VxIsOnAWorkArea(rect, workAreas, minimumOverlap)) return rect;
  int64_t const width = Extent(rect.left, rect.right);
  int64_t const height = Extent(rect.top, rect.bottom);
  RECT const * nearest = nullptr;
  double best = std::numeric_limits<double>::infinity();
  for (RECT const & area : workAreas) {
    // Squared in double: a gap may approach 2^33, its square overflows 64 bits.
    double const dx = double(Gap(rect.left, width, area.left, area.right));
    double const dy = double(Gap(rect.top, height, area.top, area.bottom));
    double const distance = dx * dx + dy * dy;
    if (distance < best) {
      best = distance;
      nearest = &area;
    }
  }
  RECT moved{};
  FitAxis(rect.left, width, nearest->left, nearest->right, moved.left, moved.right);
  FitAxis(rect.top, height, nearest->top, nearest->bottom, moved.top, moved.bottom);
  return moved;
}
