// Text from anywhere cut into user-perceived characters: the clusters,
// taken one by one, put the (sanitised) text together again, none is
// empty, and ranges beyond the end are cut, never thrown at.
#include <cstdint>
#include <locale>
#include <string>

#include "utl/Utf.h"
#include "utl/VxStdString.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const text(reinterpret_cast<char const *>(data), size);
  std::locale const locale;
  size_t const count = VxStdString::GraphemeClusterCount(text, locale);
  std::string joined;
  for (size_t i = 0; i < count; ++i) {
    std::string const cluster = VxStdString::GraphemeClusterSubString(text, i, 1, locale);
    if (cluster.empty()) __builtin_trap();
    joined += cluster;
  }
  if (joined != vx3::SanitizeUtf8(text)) __builtin_trap();
  if (VxStdString::GraphemeClusterSubString(text, 0, SIZE_MAX, locale) != joined) __builtin_trap();
  if (!VxStdString::GraphemeClusterSubString(text, count, 1, locale).empty()) __builtin_trap();
  if (count > 0 && VxStdString::GraphemeClusterSubString(text, count - 1, SIZE_MAX, locale) !=
                       VxStdString::GraphemeClusterSubString(text, count - 1, 1, locale))
    __builtin_trap();
  return 0;
}
