// Rich text from anywhere: reading stops with a message or ends complete,
// never past the character limit, and what it read is a valid document.
#include <cstdint>
#include <string_view>

#include "controls/RtfReader.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const rtf(reinterpret_cast<char const *>(data), size);
  constexpr size_t kLimit = 4096;
  RtfReadResult const read = ReadRtf(rtf, kLimit);
  if (read.document.paragraphs.empty()) __builtin_trap();
  if (read.document.CharacterCount() > kLimit) __builtin_trap();
  if (!read.Complete() && read.failure.ToString(std::locale::classic()).empty()) __builtin_trap();
  for (auto const & paragraph : read.document.paragraphs)
    for (auto const & run : paragraph)
      for (wchar_t c : run.text)
        if (c == 0 || (c >= 0xD800 && c < 0xE000) || c > 0x10FFFF) __builtin_trap();
  return 0;
}
