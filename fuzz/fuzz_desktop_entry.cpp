// Desktop-entry files read as shortcuts: any bytes give a reason or four
// slots, and slots that were read write back to a file that reads the same.
#include <cstdint>
#include <string>
#include <string_view>

#include "settings/DesktopEntry.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const text(reinterpret_cast<char const *>(data), size);
  DesktopShortcut shortcut;
  std::string error;
  if (!ParseDesktopEntry(text, shortcut, error)) {
    if (error.empty()) __builtin_trap();
    return 0;
  }
  DesktopShortcut again;
  if (!ParseDesktopEntry(FormatDesktopEntry(shortcut, "fuzz"), again, error)) __builtin_trap();
  if (!(again == shortcut)) __builtin_trap();
  return 0;
}
