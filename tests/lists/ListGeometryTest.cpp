// The arithmetic behind the list's columns, drag selection, cell editor
// moves and the flat header's arrow.
#include <gtest/gtest.h>

#include <vector>

#include "lists/FlatHeaderGeometry.h"
#include "lists/InPlaceEditMoves.h"
#include "lists/ListColumnLayout.h"
#include "lists/ListSelectionChange.h"

namespace {

TEST(ListColumnLayout, WidthChangeIsSharedByProportionAndTheRemainderMovesOn) {
  struct Case {
    std::vector<int> widths;
    int change;
    std::vector<int> expected;
  };
  Case const cases[] = {
      {{100, 100}, 50, {125, 125}},
      {{100, 300}, -40, {90, 270}},
      {{30, 30, 30}, 10, {33, 33, 34}},  // truncation, remainder to the last
      {{3, 100}, -100, {3, 2}},          // 3 - 2 is below 2: kept, the 2 taken
      {{100, 1}, -2, {99, 1}},           // the last would be 0: kept
      {{0, 0}, 20, {0, 0}},              // nothing to share by
  };
  for (Case const & c : cases) EXPECT_EQ(SpreadWidthChange(c.widths, c.change), c.expected);
}

TEST(ListColumnLayout, OverflowingColumnsDoNotGrowButMayShrink) {
  EXPECT_TRUE(ColumnsMayGrow({100, 100}, 10, 300, 16));
  EXPECT_FALSE(ColumnsMayGrow({200, 100}, 10, 300, 16));
  EXPECT_TRUE(ColumnsMayGrow({200, 100}, -10, 300, 16));
  EXPECT_TRUE(ColumnsMayGrow({140, 140}, 10, 300, 16));  // exactly 300 - 16 - 4
}

TEST(ListColumnLayout, PercentLayoutReadsAllButTheLastPercent) {
  float const percents[] = {25.0F, 50.0F, 99.0F};
  // 400 - 16 + 4 = 388; 97 and 194; the last: 388 - 4 - 291.
  EXPECT_EQ(PercentColumnWidths(400, 16, percents, 3), (std::vector<int>{97, 194, 93}));
  EXPECT_EQ(PercentColumnWidths(400, 16, nullptr, 1), (std::vector<int>{384}));
  float const bad[] = {1e30F, -1e30F};
  EXPECT_EQ(PercentColumnWidths(400, 16, bad, 3), (std::vector<int>{0, 0, 384}));
  EXPECT_TRUE(PercentColumnWidths(400, 16, percents, 0).empty());
}

TEST(ListColumnLayout, ColumnAtXIncludesTheRightEdge) {
  std::vector<int> const widths{50, 30};
  struct Case {
    int x, column;
  };
  for (Case c : {Case{9, -1}, Case{10, 0}, Case{60, 0}, Case{61, 1}, Case{90, 1}, Case{91, -1}})
    EXPECT_EQ(ColumnAtX(widths, 10, c.x), c.column) << c.x;
}

TEST(ListSelectionChange, OnlyRowsWhoseStateDiffersAreTouched) {
  using C = RowSelectionChange;
  // Rows 1 and 5 selected; wanted 3..2 (reversed range) and the extras 0, 5.
  EXPECT_EQ(SelectionChanges(7, {5, 1}, 3, 2, {0, 5}),
            (std::vector<C>{{0, true}, {1, false}, {2, true}, {3, true}}));
  EXPECT_TRUE(SelectionChanges(4, {1, 2}, 1, 2, {}).empty());
  // Extras beyond the rows, and duplicated ones, do no harm.
  EXPECT_EQ(SelectionChanges(3, {}, 0, 0, {2, 2, 9}), (std::vector<C>{{0, true}, {2, true}}));
}

TEST(InPlaceEditMoves, KeysMoveTheEditorAsTheTableSays) {
  struct Case {
    char const * name;
    EditMoveKey key;
    bool shift, control;
    ListCell from;
    std::optional<ListCell> to;
  };
  // A table of 10 rows and 3 columns, 4 rows a page.
  Case const cases[] = {
      {"tab", EditMoveKey::Tab, false, false, {2, 1}, ListCell{2, 2}},
      {"tab wraps", EditMoveKey::Tab, false, false, {2, 2}, ListCell{3, 0}},
      {"tab at the end", EditMoveKey::Tab, false, false, {9, 2}, ListCell{9, 2}},
      {"shift tab wraps", EditMoveKey::Tab, true, false, {3, 0}, ListCell{2, 2}},
      {"shift tab at the start", EditMoveKey::Tab, true, false, {0, 0}, ListCell{0, 0}},
      {"page up", EditMoveKey::PageUp, false, false, {5, 1}, ListCell{2, 1}},
      {"page up at the top", EditMoveKey::PageUp, false, false, {1, 1}, ListCell{0, 1}},
      {"page down", EditMoveKey::PageDown, false, false, {5, 1}, ListCell{8, 1}},
      {"page down at the end", EditMoveKey::PageDown, false, false, {8, 1}, ListCell{9, 1}},
      {"ctrl end", EditMoveKey::End, false, true, {2, 1}, ListCell{9, 1}},
      {"ctrl home", EditMoveKey::Home, false, true, {7, 2}, ListCell{0, 2}},
      {"home alone", EditMoveKey::Home, false, false, {7, 2}, std::nullopt},
      {"up", EditMoveKey::Up, false, false, {7, 2}, ListCell{6, 2}},
      {"up on the first row", EditMoveKey::Up, false, false, {0, 2}, std::nullopt},
      {"down on the last row", EditMoveKey::Down, false, false, {9, 0}, std::nullopt},
      {"other", EditMoveKey::Other, false, true, {3, 0}, std::nullopt},
  };
  for (Case const & c : cases)
    EXPECT_EQ(NextEditCell(c.key, c.shift, c.control, c.from, 10, 3, 4), c.to) << c.name;
}

TEST(FlatHeaderGeometry, PressedHeadingShiftsAndTheSortColumnMakesRoomForTheArrow) {
  RECT const item{0, 0, 100, 20};
  auto same = [](RECT a, RECT b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
  };
  EXPECT_TRUE(same(HeadingTextRect(item, 6, false, false), RECT{6, 0, 94, 20}));
  EXPECT_TRUE(same(HeadingTextRect(item, 6, true, false), RECT{7, 2, 95, 20}));
  EXPECT_TRUE(same(HeadingTextRect(item, 6, true, true), RECT{7, 2, 77, 20}));
}

TEST(FlatHeaderGeometry, ArrowStrokesPointDownAscendingAndUpDescending) {
  RECT const item{0, 0, 100, 24};
  auto points = [](std::vector<ArrowStroke> const & strokes) {
    std::vector<long> flat;
    for (auto const & s : strokes) {
      flat.insert(flat.end(), {s.highlight ? 1L : 0L, s.from.x, s.from.y, s.to.x, s.to.y});
    }
    return flat;
  };
  // g = 6, r = 100, b = 24.
  EXPECT_EQ(points(SortArrowStrokes(item, 6, true)),
            (std::vector<long>{1, 88, 5, 91, 18, 1, 91, 18, 83, 18, 0, 84, 17, 88, 4}));
  EXPECT_EQ(points(SortArrowStrokes(item, 6, false)),
            (std::vector<long>{1, 91, 5, 87, 19, 0, 87, 18, 84, 5, 0, 84, 5, 91, 5}));
  EXPECT_EQ(ColumnEdges({40, 0, 25}), (std::vector<int>{40, 40, 65}));
}

}  // namespace
