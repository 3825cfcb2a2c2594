// The property list's arithmetic without a display: where a row's cells
// and expander lie, how wide a name wraps, how high a row may grow, and
// which row a typed letter reaches.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "properties/PropertyItem.h"
#include "properties/PropertyListGeometry.h"
#include "properties/PropertyListLookup.h"

namespace geometry = PropertyListGeometry;
using geometry::NameSpan;

namespace {

TEST(PropertyListGeometry, CellsDividerAndExpanderFollowTheRow) {
  struct Case {
    wxRect row;
    NameSpan span;
    wxRect value, name, expander;
    int divider;
  } const cases[] = {
      // 200 wide: 184 right of the gutter, half of it 92.
      {{0, 0, 200, 21}, NameSpan::Half, {109, 0, 91, 20}, {17, 0, 91, 20}, {3, 6, 9, 9}, 108},
      {{0, 21, 200, 21}, NameSpan::Whole, {109, 21, 91, 20}, {17, 21, 182, 20}, {3, 27, 9, 9}, 199},
      // Odd widths round the half down; a tall row centres the box.
      {{0, 0, 201, 60}, NameSpan::Half, {109, 0, 92, 59}, {17, 0, 91, 59}, {3, 25, 9, 9}, 108},
      // Narrower than the gutter: nothing negative.
      {{0, 0, 10, 21}, NameSpan::Half, {14, 0, 0, 20}, {17, 0, 0, 20}, {3, 6, 9, 9}, 13},
  };
  for (Case const & c : cases) {
    EXPECT_EQ(geometry::ValueRect(c.row), c.value) << c.row.width;
    EXPECT_EQ(geometry::NameRect(c.row, c.span), c.name) << c.row.width;
    EXPECT_EQ(geometry::ExpanderRect(c.row), c.expander) << c.row.height;
    EXPECT_EQ(geometry::DividerX(c.row, c.span), c.divider) << c.row.width;
  }
}

TEST(PropertyListGeometry, WholeRowNamesAreNotWrappedAndHeightsStayBounded) {
  EXPECT_EQ(geometry::NameWrapWidth(200, NameSpan::Whole), -6);
  EXPECT_EQ(geometry::NameWrapWidth(200, NameSpan::Half), 200 - 3 - (16 + 92 + 4));
  struct Case {
    long long lines;
    int lineHeight, height;
  } const heights[] = {{1, 17, 21},
                       {3, 17, 55},
                       {0, 17, 21},  // an empty name still has its line
                       {10000, 17, geometry::kMaxRowHeight},
                       {1LL << 40, 17, geometry::kMaxRowHeight}};
  for (auto const & c : heights)
    EXPECT_EQ(geometry::RowHeight(c.lines, c.lineHeight), c.height) << c.lines;
}

TEST(PropertyListLookup, ALetterFindsTheNextNameAfterTheSelectionAndWrapsOnce) {
  std::vector<std::unique_ptr<PropertyItem>> items;
  std::vector<PropertyItem *> rows;
  for (wchar_t const * name : {L"Alpha", L"apple", L"", L"42 runs", L"\u00C9tat", L"Avocado"}) {
    items.push_back(std::make_unique<PropertyItem>(name, 0, L""));
    rows.push_back(items.back().get());
  }
  rows.push_back(nullptr);  // a hole is passed over
  struct Case {
    int selected;
    wchar_t key;
    int found;
  } const cases[] = {
      {-1, L'a', 0}, {0, L'A', 1}, {1, L'a', 5},      {5, L'a', 0},  {6, L'a', 0},
      {2, L'x', -1}, {0, L'4', 3}, {0, L'\u00E9', 4}, {4, L'e', -1}, {99, L'a', 0},
  };
  for (Case const & c : cases)
    EXPECT_EQ(FindPropertyRowByLetter(rows, c.selected, c.key), c.found)
        << c.selected << " " << static_cast<int>(c.key);
}

}  // namespace
