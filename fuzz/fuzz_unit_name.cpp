// A service name from anywhere, escaped into its unit name: the result has
// only the characters systemd keeps in a unit name, never a leading ".",
// and unescaping it (as systemd-escape --unescape does) gives the name back.
#include <cstdint>
#include <string>

#include "service/ServiceUnit.h"

namespace {

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const name(reinterpret_cast<char const *>(data), size);
  std::string const escaped = VxService::EscapeUnitName(name);
  if (!escaped.empty() && escaped[0] == '.') __builtin_trap();
  std::string back;
  for (size_t i = 0; i < escaped.size(); ++i) {
    char const c = escaped[i];
    bool const kept = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                      c == ':' || c == '_' || c == '.';
    if (c == '-') {
      back += '/';
    } else if (c == '\\') {
      if (i + 3 >= escaped.size()) __builtin_trap();
      if (escaped[i + 1] != 'x') __builtin_trap();
      int const high = HexValue(escaped[i + 2]), low = HexValue(escaped[i + 3]);
      if (high < 0 || low < 0) __builtin_trap();
      back += static_cast<char>(high * 16 + low);
      i += 3;
    } else if (kept) {
      back += c;
    } else {
      __builtin_trap();
    }
  }
  if (back != name) __builtin_trap();
  return 0;
}
