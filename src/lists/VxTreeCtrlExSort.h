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
