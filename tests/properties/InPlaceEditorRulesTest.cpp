// The in-place editors' rules that need no window: where the edit lies in
// its cell, how high the drop list drops, how the choice steps and cycles,
// and the colour editor's text.
#include <gtest/gtest.h>

#include "properties/PropertyInPlaceBrowseForColor.h"
#include "properties/PropertyInPlaceLayout.h"

namespace {

using namespace PropertyInPlaceLayout;

TEST(InPlaceEditorRules, EditIsCentredAndInsetInItsCell) {
  struct Case {
    RECT cell;
    int textHeight;
    int reserved;
    RECT expected;
  } const cases[] = {
      {{100, 20, 300, 40}, 14, 0, {103, 23, 297, 37}},
      {{100, 20, 300, 41}, 14, 0, {103, 23, 297, 37}},  // an odd pixel stays below
      {{0, 0, 200, 20}, 14, 15, {3, 3, 182, 17}},       // beside the "..." button
      {{0, 0, 200, 10}, 14, 0, {3, -2, 197, 12}},       // taller than the cell: still centred
  };
  for (Case const & c : cases) {
    RECT const r = EditRect(c.cell, c.textHeight, c.reserved);
    EXPECT_EQ(r.left, c.expected.left);
    EXPECT_EQ(r.top, c.expected.top);
    EXPECT_EQ(r.right, c.expected.right);
    EXPECT_EQ(r.bottom, c.expected.bottom);
  }
}

TEST(InPlaceEditorRules, DropListShowsAtMostEightRowsAndAHundredPixelsWhenEmpty) {
  struct Case {
    int count;
    int height;
  } const cases[] = {{0, 100}, {1, 18 + 2}, {7, 7 * 18 + 2}, {8, 8 * 18 + 2}, {20, 8 * 18 + 2}};
  for (Case const & c : cases) EXPECT_EQ(DropListHeight(c.count, 18), c.height) << c.count;
}

TEST(InPlaceEditorRules, SteppingStopsAtTheEndsAndDoubleClickWraps) {
  struct Case {
    int current, count;
    int up, down, cycle;
  } const cases[] = {
      {0, 3, 0, 1, 1},     {2, 3, 1, 2, 0}, {1, 3, 0, 2, 2},
      {-1, 3, -1, 0, 0},  // nothing chosen: down and a double click take the first
      {0, 1, 0, 0, 0},    // one entry: a double click leaves it
      {-1, 0, -1, -1, -1},
  };
  for (Case const & c : cases) {
    EXPECT_EQ(StepIndex(c.current, c.count, true), c.up) << c.current << "/" << c.count;
    EXPECT_EQ(StepIndex(c.current, c.count, false), c.down) << c.current << "/" << c.count;
    EXPECT_EQ(CycleIndex(c.current, c.count), c.cycle) << c.current << "/" << c.count;
  }
}

TEST(InPlaceEditorRules, ColourTextReadsTheThreeLowBytesInOrder) {
  struct Case {
    COLORREF colour;
    char const * text;
  } const cases[] = {
      {RGB(1, 2, 3), "R: 1 G: 2 B: 3"},
      {0x00FFFFFF, "R: 255 G: 255 B: 255"},
      {0xFF332211, "R: 17 G: 34 B: 51"},  // the top byte is not a colour
  };
  for (Case const & c : cases)
    EXPECT_EQ(PropertyInPlaceBrowseForColor::FormatEditString(c.colour), c.text);
}

}  // namespace
