#pragma once
// The order of the column tree's rows: groups (rows with children) first,
// then the higher priority, then the sort column's text, a number in it
// compared as a number when the texts before it are the same ("Run 9"
// before "Run 10"), else without case.
//
// The text comparison returns the difference of the first differing
// lowered characters, and descending order flips only the results -1 and
// +1: other differences keep their sign. The order is therefore not always
// consistent, so rows are sorted by a merge that never leaves its range
// (MergeSortBy), never by std::sort.

#include <string_view>

#include "lists/VxTreeCtrlExItemData.h"

struct TreeSortInfo {
  int column = 0;
  bool ascending = true;
  bool groupsFirst = true;
};

// The difference of the first differing lowered characters, 0 when equal.
int CompareNoCaseDifference(std::wstring_view a, std::wstring_view b);

// Negative when `a` comes first, positive when `b` does.
int CompareItemData(ItemData const & a, ItemData const & b, TreeSortInfo const & info);

// What the order reads of one record, taken once before a sort of many:
// CompareSortKeys on two keys answers what CompareItemData answers on their
// records.
struct TreeSortKey {
  int hasChildren = 0;
  int priority = 0;
  std::wstring_view text;  // the sort column's text
  std::size_t digit = 0;   // where its first digit stands; text.size() for none
  int number = 0;          // the digit run's value, held at INT_MAX
};
TreeSortKey MakeSortKey(ItemData const & record, int column);
int CompareSortKeys(TreeSortKey const & a, TreeSortKey const & b, TreeSortInfo const & info);
