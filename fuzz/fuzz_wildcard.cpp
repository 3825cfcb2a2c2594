// A pattern and a text from anywhere: the first byte's low bit is the case
// flag, then the pattern up to the first NUL, then the text up to the next.
// Small inputs are checked against the reference matcher of the tests.
#include <cstdint>
#include <string>

#include "../tests/utl/WildCardReference.h"
#include "utl/WildCardCompare.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size == 0) return 0;
  bool const caseSensitive = (data[0] & 1) != 0;
  std::string const rest(reinterpret_cast<char const *>(data) + 1, size - 1);
  size_t const split = rest.find('\0');
  std::string const pattern = rest.substr(0, split);
  std::string text = split == std::string::npos ? std::string() : rest.substr(split + 1);
  text = text.substr(0, text.find('\0'));

  bool const matched = VxString::WildCardCompare(pattern.c_str(), text.c_str(), caseSensitive);
  if (pattern.size() <= 64 && text.size() <= 512 &&
      matched != reference::WildCardMatch(pattern, text, caseSensitive))
    __builtin_trap();
  // A text without wildcards matches itself in either mode.
  if (text.find_first_of("*?") == std::string::npos &&
      !VxString::WildCardCompare(text.c_str(), text.c_str(), caseSensitive))
    __builtin_trap();
  return 0;
}
