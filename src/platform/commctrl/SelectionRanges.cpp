#include "platform/commctrl/SelectionRanges.h"

#include <algorithm>
#include <iterator>

bool SelectionRanges::Contains(int row) const {
  auto after = mRanges.upper_bound(row);
  if (after == mRanges.begin()) return false;
  return std::prev(after)->second >= row;
}

void SelectionRanges::Add(int first, int last) {
  if (first > last) return;
  // Merge with every range that overlaps or touches [first, last].
  auto at = mRanges.upper_bound(first);
  if (at != mRanges.begin()) {
    auto const before = std::prev(at);
    if (static_cast<int64_t>(before->second) + 1 >= first) at = before;
  }
  while (at != mRanges.end() && static_cast<int64_t>(at->first) <= static_cast<int64_t>(last) + 1) {
    first = std::min(first, at->first);
    last = std::max(last, at->second);
    at = mRanges.erase(at);
  }
  mRanges.emplace(first, last);
}

void SelectionRanges::Remove(int first, int last) {
  if (first > last) return;
  auto at = mRanges.upper_bound(first);
  if (at != mRanges.begin() && std::prev(at)->second >= first) at = std::prev(at);
  while (at != mRanges.end() && at->first <= last) {
    int const from = at->first, to = at->second;
    at = mRanges.erase(at);
    if (from < first) mRanges.emplace(from, first - 1);
    if (to > last) at = mRanges.emplace(last + 1, to).first;
  }
}

void SelectionRanges::Truncate(int count) {
  if (count <= 0) {
    mRanges.clear();
    return;
  }
  Remove(count, INT32_MAX);
}

void SelectionRanges::RemoveRowAndShift(int row) {
  Remove(row, row);
  std::map<int, int> shifted;
  for (auto const & [from, to] : mRanges) {
    if (to < row)
      shifted.emplace(from, to);
    else if (from > row)
      shifted.emplace(from - 1, to - 1);
  }
  // A gap of the removed row closes: touching ranges merge.
  mRanges.clear();
  for (auto const & [from, to] : shifted) Add(from, to);
}

int64_t SelectionRanges::Count() const {
  int64_t total = 0;
  for (auto const & [from, to] : mRanges) total += static_cast<int64_t>(to) - from + 1;
  return total;
}

int SelectionRanges::NextAfter(int row) const {
  if (row == INT32_MAX) return -1;
  int const wanted = std::max(row + 1, 0);
  if (Contains(wanted)) return wanted;
  auto const after = mRanges.upper_bound(wanted);
  return after == mRanges.end() ? -1 : after->first;
}
