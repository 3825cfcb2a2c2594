// /proc/stat's "cpu" line: any text parses or is refused, and a load
// between two parsed readings lies in 0..100.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "service/ProcessorTimes.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  std::string_view const text(reinterpret_cast<char const *>(data), size);
  std::size_t const split = text.find('\n');
  ProcessorTimes first;
  ProcessorTimes second;
  if (!ParseProcessorTimes(text.substr(0, split), first)) return 0;
  if (first.busy > first.total) std::abort();
  if (split == std::string_view::npos || !ParseProcessorTimes(text.substr(split + 1), second))
    return 0;
  int percent = -1;
  if (LoadPercentBetween(first, second, percent) && (percent < 0 || percent > 100)) std::abort();
  return 0;
}
