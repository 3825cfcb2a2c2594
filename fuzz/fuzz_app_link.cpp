// Link addresses from anywhere: only "app:" in some case is a command link,
// and a name without "%" comes back as it was.
#include <cstdint>
#include <string>

#include "html/AppLink.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const url(reinterpret_cast<char const *>(data), size);
  wxString name;
  bool const isApp = ParseAppLink(url, name);
  bool const looksApp = url.size() >= 4 && (url[0] | 0x20) == 'a' && (url[1] | 0x20) == 'p' &&
                        (url[2] | 0x20) == 'p' && url[3] == ':';
  if (isApp != looksApp) __builtin_trap();
  std::string const rest = isApp ? url.substr(4) : std::string();
  if (isApp && rest.find('%') == std::string::npos && !wxString::FromUTF8(rest).empty() &&
      name != wxString::FromUTF8(rest))
    __builtin_trap();
  return 0;
}
