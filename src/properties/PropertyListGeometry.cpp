#include "properties/PropertyListGeometry.h"

#include <algorithm>

namespace PropertyListGeometry {

namespace {
// Width of the row right of the gutter.
int InnerWidth(wxRect const & row) { return row.GetRight() + 1 - (row.x + kGutterWidth); }
}  // namespace

wxRect ValueRect(wxRect const & row) {
  int const left = row.x + kGutterWidth + 1 + InnerWidth(row) / 2;
  int const right = row.x + row.width;
  int const bottom = row.y + row.height - 1;
  return {left, row.y, std::max(0, right - left), std::max(0, bottom - row.y)};
}

wxRect ExpanderRect(wxRect const & row) {
  return {row.x + kExpanderLeft, row.y + (row.height - kExpanderSize) / 2, kExpanderSize,
          kExpanderSize};
}

int DividerX(wxRect const & row, NameSpan span) {
  int const gutter = row.x + kGutterWidth;
  if (span == NameSpan::Whole) return gutter + InnerWidth(row) - 1;
  return gutter + InnerWidth(row) / 2;
}

wxRect NameRect(wxRect const & row, NameSpan span) {
  int const left = row.x + kGutterWidth + 1;
  int const right = DividerX(row, span);
  return {left, row.y, std::max(0, right - left), std::max(0, row.height - 1)};
}

int NameWrapWidth(int rowWidth, NameSpan span) {
  int const left = kGutterWidth;
  int const right = rowWidth;
  int const limitLeft = (span == NameSpan::Whole ? right - 1 : left + (right - left) / 2) + 4;
  return right - kTextInset - limitLeft;
}

int RowHeight(std::int64_t lines, int lineHeight) {
  std::int64_t const height = std::max<std::int64_t>(lines, 1) * lineHeight + kRowPadding;
  return static_cast<int>(std::min<std::int64_t>(height, kMaxRowHeight));
}

}  // namespace PropertyListGeometry
