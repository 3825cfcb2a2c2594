// Records from anywhere sorted as a header click sorts the column tree, in
// both directions: the first byte picks the column and whether groups come
// first, the rest splits into records at NUL (a record's first byte gives
// its priority and whether it has children, the rest its text, 0x01 the
// divider). The order may contradict itself; the sort must still give a
// permutation of the records and never leave its range, and the keys a
// sort takes once must answer as the records do.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "lists/VxTreeCtrlEx.h"
#include "platform/commctrl/MergeSortBy.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size == 0) return 0;
  TreeSortInfo info;
  info.column = data[0] & 0x03;
  info.groupsFirst = (data[0] & 0x04) != 0;
  std::vector<ItemData> records(1);
  bool fresh = true;
  for (std::size_t k = 1; k < size; ++k) {
    uint8_t const byte = data[k];
    if (byte == 0) {
      records.emplace_back();
      fresh = true;
    } else if (fresh) {
      records.back().priority = 1000 + (byte & 0x07) - 3;
      records.back().hasChildren = (byte & 0x08) != 0 ? 1 : 0;
      fresh = false;
    } else {
      records.back().text.push_back(byte == 1 ? ItemData::kSeparator : static_cast<wchar_t>(byte));
    }
  }
  for (bool const ascending : {true, false}) {
    info.ascending = ascending;
    std::vector<std::size_t> order(records.size());
    for (std::size_t k = 0; k < order.size(); ++k) order[k] = k;
    MergeSortBy(order, [&](std::size_t a, std::size_t b) {
      return VxTreeCtrlEx::CompareFunc(reinterpret_cast<LPARAM>(&records[a]),
                                       reinterpret_cast<LPARAM>(&records[b]),
                                       reinterpret_cast<LPARAM>(&info));
    });
    std::vector<std::size_t> sorted = order;
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t k = 0; k < sorted.size(); ++k)
      if (sorted[k] != k) __builtin_trap();
    // The keys taken once answer as the records do.
    for (std::size_t k = 1; k < records.size(); ++k) {
      ItemData const & a = records[k - 1];
      ItemData const & b = records[k];
      if (CompareSortKeys(MakeSortKey(a, info.column), MakeSortKey(b, info.column), info) !=
          CompareItemData(a, b, info))
        __builtin_trap();
    }
    // Groups first holds whatever the texts answer.
    if (info.groupsFirst)
      for (std::size_t k = 1; k < order.size(); ++k)
        if (records[order[k]].hasChildren != 0 && records[order[k - 1]].hasChildren == 0)
          __builtin_trap();
  }
  return 0;
}
