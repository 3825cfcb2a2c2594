// Bytes from anywhere through every conversion: the output is valid UTF-8
// and converting it again changes nothing.
#include <cstdint>
#include <string>

#include "utl/Utf.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  std::string const clean = vx3::SanitizeUtf8(input);
  if (vx3::SanitizeUtf8(clean) != clean) __builtin_trap();
  if (vx3::WideToUtf8(vx3::Utf8ToWide(input)) != clean) __builtin_trap();
  if (vx3::Utf32ToUtf8(vx3::Utf8ToUtf32(input)) != clean) __builtin_trap();
  return 0;
}
