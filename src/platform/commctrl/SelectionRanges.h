#pragma once
// The selected rows of an owner-data list as ordered, disjoint, non-touching
// ranges: selecting all of two billion rows, or a Shift+End over them, is
// one range, not two billion entries.

#include <cstdint>
#include <map>

class SelectionRanges {
public:
  bool Contains(int row) const;
  void Add(int first, int last);     // inclusive; first <= last
  void Remove(int first, int last);  // inclusive; first <= last
  void Clear() { mRanges.clear(); }
  // Only rows below `count` remain.
  void Truncate(int count);
  // Rows above `row` move up by one (the row itself goes).
  void RemoveRowAndShift(int row);
  bool Empty() const { return mRanges.empty(); }
  int64_t Count() const;
  // The first selected row after `row`, or -1.
  int NextAfter(int row) const;
  bool operator==(SelectionRanges const & other) const { return mRanges == other.mRanges; }
  bool operator!=(SelectionRanges const & other) const { return !(*this == other); }

private:
  std::map<int, int> mRanges;  // first -> last
};
