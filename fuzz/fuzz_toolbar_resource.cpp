// Tool bar resources of any bytes: refused whole, or read with exactly the
// count of items the header gives, all within the data.
#include <cstdint>
#include <string_view>

#include "favourites/ToolBarResource.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const bytes(reinterpret_cast<char const *>(data), size);
  ToolBarLayout layout;
  if (!ParseToolBarResource(bytes, layout)) return 0;
  if (size % 2 != 0 || size < 8) __builtin_trap();
  size_t const count = data[6] | (data[7] << 8U);
  if (layout.items.size() != count || 8 + (2 * count) > size) __builtin_trap();
  return 0;
}
