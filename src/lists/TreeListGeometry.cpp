#include "lists/TreeListGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int kAutoSizeThreshold = 10;
constexpr int kAutoSizeFloor = 15;
constexpr int kAutoSizeMargin = 4;

}  // namespace

int StretchWidth(int columnsWidth, int clientWidth) {
  if (clientWidth == 0) return 0;
  return (columnsWidth / clientWidth + 1) * clientWidth;
}

int SidewaysScrollLimit(int max, int page) { return std::max(max - std::max(page - 1, 0), 0); }

int SidewaysScrollTarget(UINT code, int position, int thumb, int limit, int pageWidth) {
  int const last = limit - 1;
  switch (code) {
    case SB_LINELEFT: return std::max(position - kSidewaysLineStep, 0);
    case SB_LINERIGHT: return std::min(position + kSidewaysLineStep, last);
    case SB_PAGELEFT: return std::max(position - pageWidth, 0);
    case SB_PAGERIGHT: return std::min(position + pageWidth, last);
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
      if (thumb == 0) return 0;
      return std::min((thumb / kSidewaysLineStep + 1) * kSidewaysLineStep, last);
    case SB_LEFT: return 0;
    case SB_RIGHT: return last;
    default: return position;
  }
}

int OffsetAfterColumnChange(int offset, int oldColumnsWidth, int columnsWidth, int position,
                            int limit, int clientWidth) {
  if (columnsWidth < oldColumnsWidth && position >= limit - 1 && clientWidth < columnsWidth)
    return clientWidth - columnsWidth;
  return offset;
}

bool AutoSizeColumns(int & storedWidth, int clientWidth, int verticalBarWidth,
                     std::vector<int> & widths) {
  if (storedWidth < 1) return false;
  int change = clientWidth - storedWidth;
  if (std::abs(change) < kAutoSizeThreshold) return false;
  storedWidth = clientWidth;
  long long sum = 0;
  for (int const width : widths) sum += width;
  int const available = clientWidth - verticalBarWidth - kAutoSizeMargin;
  if ((change > 0 && sum > available) || (change < 0 && available > sum)) return false;
  auto total = static_cast<double>(sum);
  for (size_t column = 0; column < widths.size(); ++column) {
    int & width = widths[column];
    if (column + 1 == widths.size() && (width + change > kAutoSizeFloor || change >= 1)) {
      width += change;
      continue;
    }
    int const old = width;
    // A column of a zero total takes no share (the original divided by it).
    double const share = total > 0 ? std::trunc(old / total * change) : 0.0;
    auto const now = static_cast<int>(std::trunc(share + old));
    total -= old;
    change -= now - old;
    if (now > kAutoSizeFloor || now > old) width = now;
  }
  return true;
}
