// The owner-data list's selection ranges under any sequence of operations,
// checked against a plain set of rows over a small window of row numbers
// (and near the top of int, where the arithmetic could overflow).
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>

#include "platform/commctrl/SelectionRanges.h"

namespace {

// Rows 0..63 stand for themselves; with the top bit they sit just below
// INT32_MAX.
int RowOf(uint8_t byte) {
  int const low = byte & 0x3F;
  return (byte & 0x80) != 0 ? INT32_MAX - low : low;
}

void Check(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  SelectionRanges ranges;
  std::set<int> model;
  for (size_t at = 0; at + 2 < size; at += 3) {
    int a = RowOf(data[at + 1]);
    int b = RowOf(data[at + 2]);
    if (a > b) std::swap(a, b);
    switch (data[at] % 4) {
      case 0:
        // A range from the bottom to the top of int is beyond the model.
        if (static_cast<int64_t>(b) - a > 128) break;
        ranges.Add(a, b);
        for (int row = a; row <= b && row >= a; ++row) {
          model.insert(row);
          if (row == INT32_MAX) break;
        }
        break;
      case 1:
        ranges.Remove(a, b);
        for (auto it = model.lower_bound(a); it != model.end() && *it <= b;) it = model.erase(it);
        break;
      case 2: {
        ranges.RemoveRowAndShift(a);
        std::set<int> shifted;
        for (int const row : model)
          if (row != a) shifted.insert(row > a ? row - 1 : row);
        model.swap(shifted);
        break;
      }
      default:
        ranges.Truncate(b);
        model.erase(model.lower_bound(b), model.end());
        break;
    }
    Check(ranges.Count() == static_cast<int64_t>(model.size()));
    int row = ranges.NextAfter(-1);
    for (int const expected : model) {
      Check(row == expected);
      Check(ranges.Contains(row));
      row = ranges.NextAfter(row);
    }
    Check(row == -1);
  }
  return 0;
}
