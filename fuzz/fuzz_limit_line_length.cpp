// Any text, any limit, through the character wrap: only line feeds are
// inserted. The first byte is the limit; the rest are UTF-8 text, or, with
// the limit's top bit set, raw 32-bit values that need not be code points.
#include <cstdint>
#include <cstring>
#include <string>

#include "dialogs/LimitLineLength.h"
#include "utl/Utf.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  if (size == 0) return 0;
  size_t const limit = data[0] & 0x7F;
  std::wstring text;
  if (data[0] & 0x80) {
    for (size_t at = 1; at + 4 <= size; at += 4) {
      uint32_t value = 0;
      std::memcpy(&value, data + at, 4);
      text += static_cast<wchar_t>(value);
    }
  } else {
    text = vx3::Utf8ToWide(std::string(reinterpret_cast<char const *>(data + 1), size - 1));
  }
  std::wstring const wrapped = LimitLineLength::ByCharacters(text, limit);
  size_t at = 0;
  for (wchar_t c : wrapped) {
    if (at < text.size() && c == text[at])
      ++at;
    else if (c != L'\n')
      __builtin_trap();
  }
  if (at != text.size()) __builtin_trap();
  return 0;
}
