// A column of cells from anywhere, sorted as a header click sorts it: the
// first byte gives the direction and the range, the rest splits into cells
// at NUL. The result must be ordered and a permutation of the range.
#include <algorithm>
#include <cstdint>
#include <locale>
#include <string>
#include <vector>

#include "lists/ListSortOrder.h"
#include "utl/VxStdString.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size == 0) return 0;
  bool const ascending = (data[0] & 1) != 0;
  bool const whole = (data[0] & 2) != 0;
  std::vector<std::string> texts;
  std::string cell;
  for (size_t k = 1; k < size; ++k) {
    if (data[k] == 0) {
      texts.push_back(cell);
      cell.clear();
    } else {
      cell.push_back(static_cast<char>(data[k]));
    }
  }
  texts.push_back(cell);
  int const count = static_cast<int>(texts.size());
  int const low = whole ? 0 : std::min(count - 1, static_cast<int>(data[0] >> 4));
  int const high = whole ? -1 : count - 1;
  std::vector<std::string> sorted = texts;
  std::vector<int> const origin = QuickSortTexts(sorted, ascending, low, high);
  int const last = high == -1 ? count - 1 : high;
  if (last <= low) {
    if (!origin.empty() || sorted != texts) __builtin_trap();
    return 0;
  }
  if (static_cast<int>(origin.size()) != last - low + 1) __builtin_trap();
  std::locale const locale;
  std::vector<bool> used(texts.size(), false);
  for (int k = 0; k <= last - low; ++k) {
    int const from = origin[static_cast<size_t>(k)];
    if (from < low || from > last || used[static_cast<size_t>(from)]) __builtin_trap();
    used[static_cast<size_t>(from)] = true;
    int const at = low + k;
    if (texts[static_cast<size_t>(from)] != sorted[static_cast<size_t>(at)]) __builtin_trap();
    if (k > 0) {
      int const before = at - 1;
      int const c = VxStdString::CompareNumber(sorted[static_cast<size_t>(before)],
                                               sorted[static_cast<size_t>(at)], locale);
      if (ascending ? c > 0 : c < 0) __builtin_trap();
    }
  }
  for (int k = 0; k < low; ++k)
    if (sorted[static_cast<size_t>(k)] != texts[static_cast<size_t>(k)]) __builtin_trap();
  return 0;
}
