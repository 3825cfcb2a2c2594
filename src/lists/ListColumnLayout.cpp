#include "lists/ListColumnLayout.h"

#include <cmath>
#include <limits>

std::vector<int> SpreadWidthChange(std::vector<int> const & widths, int change) {
  std::vector<int> result = widths;
  double total = 0;
  for (int width : widths) total += width;
  if (total <= 0) return result;
  int d = change;
  size_t const last = widths.size() - 1;
  for (size_t column = 0; column < widths.size(); ++column) {
    int const w = widths[column];
    if (column == last && w + d > 1) {
      result[column] = w + d;
      continue;
    }
    double const share = w / total;
    total -= w;
    int const width = static_cast<int>(share * d) + w;
    d -= width - w;
    if (width >= 2) result[column] = width;
  }
  return result;
}

bool ColumnsMayGrow(std::vector<int> const & widths, int change, int clientWidth,
                    int scrollBarWidth) {
  double total = 0;
  for (int width : widths) total += width;
  return !(change > 0 && total > clientWidth - scrollBarWidth - 4);
}

std::vector<int> PercentColumnWidths(int clientWidth, int scrollBarWidth, float const * percents,
                                     int count) {
  std::vector<int> widths;
  if (count <= 0) return widths;
  int const width = clientWidth - scrollBarWidth + 4;
  int used = 0;
  for (int column = 0; column + 1 < count; ++column) {
    float const percent = percents != nullptr ? percents[column] : 0.0F;
    float const exact = static_cast<float>(width) * percent / 100.0F;
    // A percent that is no number or leads out of range gives no width.
    int const w = std::isfinite(exact) && std::fabs(exact) < 1e9F ? static_cast<int>(exact) : 0;
    widths.push_back(w);
    used += w;
  }
  widths.push_back(width - 4 - used);
  return widths;
}

int ColumnAtX(std::vector<int> const & widths, int rowLeft, int x) {
  int left = rowLeft;
  for (size_t column = 0; column < widths.size(); ++column) {
    if (left <= x && x <= left + widths[column]) return static_cast<int>(column);
    left += widths[column];
  }
  return -1;
}
