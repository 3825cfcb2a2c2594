// "hh.ini" texts from anywhere: an entry found in "[files]" is trimmed and
// holds no line break.
#include <cstdint>
#include <string>

#include "help/ChmFileSearch.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const ini(reinterpret_cast<char const *>(data), size);
  for (char const * key : {"help.chm", "a", ""}) {
    std::string value;
    if (!ReadHhIniFilesEntry(ini, key, value)) continue;
    if (value.find('\n') != std::string::npos) __builtin_trap();
    if (!value.empty() && (value.front() == ' ' || value.back() == ' ' || value.back() == '\r'))
      __builtin_trap();
  }
  return 0;
}
