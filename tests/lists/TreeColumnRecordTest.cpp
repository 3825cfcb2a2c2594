// The column tree's record and order without a display: the column text
// rules of one divided string, the row order (groups, priority, numbers in
// text, case), and the merge that must survive an inconsistent order.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "lists/VxTreeCtrlExItemData.h"
#include "lists/VxTreeCtrlExSort.h"
#include "platform/commctrl/MergeSortBy.h"

namespace {

// The divider written as '|' in the tables.
std::wstring Divided(std::wstring text) {
  std::replace(text.begin(), text.end(), L'|', ItemData::kSeparator);
  return text;
}

ItemData Record(std::wstring const & text, int priority = ItemData::kDefaultPriority,
                int hasChildren = 0) {
  ItemData record;
  record.text = Divided(text);
  record.priority = priority;
  record.hasChildren = hasChildren;
  return record;
}

}  // namespace

TEST(TreeColumnRecord, WritesAndReadsColumnsOfOneString) {
  struct Case {
    wchar_t const * before;
    int column;
    wchar_t const * value;
    wchar_t const * after;
  };
  Case const cases[] = {
      {L"", 3, L"t", L"|||t"},        // a new item: three dividers ahead
      {L"a", 2, L"c", L"a||c"},       // padding up to the column
      {L"a|b|c", 1, L"X", L"a|X|c"},  // replaced, both sides kept
      {L"a|b|c", 2, L"", L"a|b|"},    // emptied at the end
      {L"a|b", 2, L"c", L"a|b|c"},    // just enough dividers
      {L"a|b|c", 0, L"Z", L"Z|b|c"},
      {L"|b|c", 1, L"X", L"X|c"},  // empty column 0: the write merges
      {L"|b", 1, L"X", L"X"},
      {L"", 1, L"x", L"|x"},
  };
  for (Case const & c : cases) {
    ItemData record = Record(c.before);
    record.SetColumnText(c.column, c.value);
    EXPECT_EQ(record.text, Divided(c.after)) << c.before << " column " << c.column;
  }
}

TEST(TreeColumnRecord, ReadsEmptyPastTheDividersAndForBadColumns) {
  ItemData const record = Record(L"a||c");
  EXPECT_EQ(record.GetColumnText(0), L"a");
  EXPECT_EQ(record.GetColumnText(1), L"");
  EXPECT_EQ(record.GetColumnText(2), L"c");
  EXPECT_EQ(record.GetColumnText(3), L"");
  EXPECT_EQ(record.GetColumnText(-1), L"");
  EXPECT_TRUE(ItemData::HoldsSeparator(Divided(L"x|y")));
  EXPECT_FALSE(ItemData::HoldsSeparator(L"plain"));
}

TEST(TreeRowOrder, ComparesAsTheTreeSorts) {
  struct Case {
    wchar_t const * a;
    wchar_t const * b;
    bool ascending;
    int result;
  };
  Case const cases[] = {
      {L"Sample 2", L"Sample 10", true, -1},  // numbers as numbers
      {L"Sample 2", L"Sample 10", false, 1},
      {L"Run 9", L"Run 10", true, -1},
      {L"a2", L"b1", true, 'a' - 'b'},        // prefixes differ: text
      {L"Run 5", L"run 4", true, '5' - '4'},  // prefixes differ in case: text
      {L"B1", L"b1", true, 0},                // case only, equal numbers
      {L"abc", L"ABD", true, -1},
      {L"abc", L"ABD", false, 1},          // -1 and +1 flip...
      {L"abc", L"abz", false, 'c' - 'z'},  // ...other differences stand
      {L"", L"a", false, -'a'},            // the shorter text ends in 0
      // Numbers are held at the largest int, so these two fall to text.
      {L"x10000000000", L"x9000000000", true, '1' - '9'},
  };
  TreeSortInfo info;
  for (Case const & c : cases) {
    info.ascending = c.ascending;
    EXPECT_EQ(CompareItemData(Record(c.a), Record(c.b), info), c.result)
        << c.a << " / " << c.b << (c.ascending ? " up" : " down");
  }
}

TEST(TreeRowOrder, GroupsAndPriorityComeFirstInBothDirections) {
  for (bool const ascending : {true, false}) {
    TreeSortInfo info;
    info.ascending = ascending;
    EXPECT_EQ(CompareItemData(Record(L"z", 1000, 1), Record(L"a"), info), -1);
    EXPECT_EQ(CompareItemData(Record(L"a", 5), Record(L"z", 6), info), 1);
    info.groupsFirst = false;
    EXPECT_EQ(CompareItemData(Record(L"z", 1000, 1), Record(L"a"), info), 'z' - 'a');
  }
  TreeSortInfo second;
  second.column = 1;
  EXPECT_EQ(CompareItemData(Record(L"a|Run 10"), Record(L"b|Run 9"), second), 1);
}

TEST(TreeRowOrder, MergeGivesAPermutationWhateverTheOrderAnswers) {
  // Answers that contradict themselves: std::sort may run off its range on
  // these, the merge must not.
  for (int const seed : {1, 7, 42}) {
    std::vector<int> items(1000);
    std::iota(items.begin(), items.end(), 0);
    unsigned state = static_cast<unsigned>(seed);
    MergeSortBy(items, [&state](int, int) {
      state = state * 1103515245U + 12345U;
      return static_cast<int>((state >> 16) % 3) - 1;
    });
    std::vector<int> sorted = items;
    std::sort(sorted.begin(), sorted.end());
    for (int k = 0; k < 1000; ++k) ASSERT_EQ(sorted[static_cast<size_t>(k)], k) << seed;
  }
  // A consistent order is sorted and stable.
  std::vector<std::pair<int, int>> pairs;
  pairs.reserve(100);
  for (int k = 0; k < 100; ++k) pairs.emplace_back(k % 7, k);
  MergeSortBy(pairs, [](auto const & a, auto const & b) { return a.first - b.first; });
  EXPECT_TRUE(std::is_sorted(pairs.begin(), pairs.end()));
}
