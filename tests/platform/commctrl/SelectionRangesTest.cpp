// The owner-data list's selection as ranges: merging, splitting, shifting
// and counting, checked against a plain set of rows.
#include "platform/commctrl/SelectionRanges.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <vector>

namespace {

std::vector<int> Rows(SelectionRanges const & ranges) {
  std::vector<int> rows;
  for (int row = ranges.NextAfter(-1); row >= 0; row = ranges.NextAfter(row)) rows.push_back(row);
  return rows;
}

TEST(SelectionRanges, AddMergesTouchingAndOverlappingRangesRemoveSplits) {
  struct Step {
    bool add;
    int first, last;
    std::vector<int> rows;
  };
  Step const steps[] = {
      {true, 2, 3, {2, 3}},
      {true, 5, 6, {2, 3, 5, 6}},
      {true, 4, 4, {2, 3, 4, 5, 6}},  // touching both: one range
      {false, 3, 5, {2, 6}},          // a hole in the middle
      {true, 0, 9, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
      {false, 0, 0, {1, 2, 3, 4, 5, 6, 7, 8, 9}},
      {false, 9, 20, {1, 2, 3, 4, 5, 6, 7, 8}},
      {false, 30, 40, {1, 2, 3, 4, 5, 6, 7, 8}},  // nothing there
  };
  SelectionRanges ranges;
  for (Step const & step : steps) {
    if (step.add)
      ranges.Add(step.first, step.last);
    else
      ranges.Remove(step.first, step.last);
    EXPECT_EQ(Rows(ranges), step.rows) << step.first << ".." << step.last;
    EXPECT_EQ(ranges.Count(), static_cast<int64_t>(step.rows.size()));
  }
  // Touching ranges are one: the same rows make equal selections.
  SelectionRanges other;
  other.Add(5, 8);
  other.Add(1, 4);
  EXPECT_EQ(other, ranges);
}

TEST(SelectionRanges, DeletingARowShiftsTheRowsAfterItAndClosesTheGap) {
  SelectionRanges ranges;
  ranges.Add(1, 2);
  ranges.Add(4, 5);
  ranges.RemoveRowAndShift(3);  // the unselected row between them
  EXPECT_EQ(Rows(ranges), (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(ranges.Count(), 4);
  ranges.RemoveRowAndShift(0);
  EXPECT_EQ(Rows(ranges), (std::vector<int>{0, 1, 2, 3}));
  ranges.RemoveRowAndShift(1);  // a selected one goes
  EXPECT_EQ(Rows(ranges), (std::vector<int>{0, 1, 2}));
  ranges.Truncate(2);
  EXPECT_EQ(Rows(ranges), (std::vector<int>{0, 1}));
  ranges.Truncate(0);
  EXPECT_TRUE(ranges.Empty());
}

TEST(SelectionRanges, TheWholeIntRangeIsOneEntry) {
  SelectionRanges ranges;
  ranges.Add(0, INT_MAX);
  EXPECT_EQ(ranges.Count(), int64_t{INT_MAX} + 1);
  EXPECT_TRUE(ranges.Contains(INT_MAX));
  EXPECT_EQ(ranges.NextAfter(INT_MAX), -1);
  EXPECT_EQ(ranges.NextAfter(1000000000), 1000000001);
  ranges.Remove(INT_MAX, INT_MAX);
  EXPECT_FALSE(ranges.Contains(INT_MAX));
  ranges.Add(INT_MAX, INT_MAX);  // touches the rest: merges again
  EXPECT_EQ(ranges.Count(), int64_t{INT_MAX} + 1);
  ranges.RemoveRowAndShift(0);
  EXPECT_EQ(ranges.Count(), int64_t{INT_MAX});
  EXPECT_FALSE(ranges.Contains(INT_MAX));
}

}  // namespace
