// "its:" addresses from the browser: what parses has a file, an inner name
// that starts with "/" and never climbs ("/../" or a trailing "/.."), and
// no zero byte; a made address parses back to what it was made of.
#include <cstdint>
#include <string>

#include "help/ChmAddress.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const url(reinterpret_cast<char const *>(data), size);
  std::string path;
  std::string inner;
  if (ParseChmAddress(url, path, inner)) {
    if (path.empty() || inner.empty() || inner[0] != '/') __builtin_trap();
    if (inner.find("/../") != std::string::npos || inner.find("/./") != std::string::npos ||
        inner.find('\0') != std::string::npos || path.find('\0') != std::string::npos)
      __builtin_trap();
    if (inner.size() >= 3 && inner.compare(inner.size() - 3, 3, "/..") == 0) __builtin_trap();
  }
  // The input as a file path: it must come back unchanged.
  if (!url.empty() && url.find('\0') == std::string::npos) {
    std::string back;
    std::string topic;
    if (!ParseChmAddress(MakeChmAddress(url, "/t.htm"), back, topic) || back != url ||
        topic != "/t.htm")
      __builtin_trap();
  }
  std::string file;
  std::string foreignTopic;
  ParseForeignChmLink(url, file, foreignTopic);
  return 0;
}
