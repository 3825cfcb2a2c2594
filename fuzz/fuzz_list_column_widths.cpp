// A "ListColumnWidths" profile value as anything may have left it: the
// first byte chooses the list's column count, the rest is the stored text.
// Whatever it holds, only sound widths come out.
#include <cstdint>
#include <string>

#include "lists/ListColumnWidths.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size == 0) return 0;
  int const columns = data[0] % 16;
  std::string const stored(reinterpret_cast<char const *>(data) + 1, size - 1);
  auto const widths = ParseColumnWidths(stored, columns);
  if (!widths.empty() && static_cast<int>(widths.size()) != columns) __builtin_trap();
  std::vector<int> kept;
  for (auto const & width : widths) {
    if (width && (*width < 0 || *width > kMaxStoredColumnWidth)) __builtin_trap();
    kept.push_back(width.value_or(0));
  }
  if (!kept.empty() && ParseColumnWidths(ComposeColumnWidths(kept), columns).size() != kept.size())
    __builtin_trap();
  return 0;
}
