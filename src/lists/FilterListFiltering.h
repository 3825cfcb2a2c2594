#pragma once
// One filtering of the filter popup: which of the caller's items pass the
// filter, in their order, and which of the resulting rows are selected.

#include <climits>
#include <cstdint>
#include <string>
#include <vector>

class FilterListItems;

// The index that stands for none (all bits set).
constexpr uint64_t kNoFilterItem = ~uint64_t{0};
// The list counts its rows in an int: more matches are not shown.
constexpr size_t kMaxFilterRows = INT_MAX;

struct FilteredRows {
  std::vector<uint64_t> visible;  // the caller's index of each row
  std::vector<int> selected;      // rows to select, ascending
  uint64_t total = 0;             // the caller's count
};

// Filters `items` (null: none) by `filter`. `initial` passes whatever the
// filter says and is selected; the items of `carried` (ascending) are
// selected again where they pass. An item whose text cannot be read does
// not pass.
FilteredRows FilterItems(FilterListItems const * items, std::string const & filter,
                         uint64_t initial, std::vector<uint64_t> const & carried);
