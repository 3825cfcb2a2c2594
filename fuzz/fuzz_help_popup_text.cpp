// Pop-up text files from anywhere: every entry stays within its size, and
// no text holds a ".topic" line of its own.
#include <cstdint>
#include <string_view>

#include "help/PopupText.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const bytes(reinterpret_cast<char const *>(data), size);
  PopupText const popups = PopupText::Parse(bytes);
  for (uint32_t id = 0; id < 64; ++id) {
    std::optional<std::string> const text = popups.Find(id);
    if (id == 0 && text) __builtin_trap();  // 0 ends a dialog's table: never an entry
    if (text && (text->size() > PopupText::MaxTextBytes || text->rfind(".topic ", 0) == 0))
      __builtin_trap();
  }
  return 0;
}
