#include "service/ServiceUnitFile.h"

#include <cstdio>
#include <cstdlib>

#include "utl/Utf.h"

namespace VxService {

namespace {

// `raw` in double quotes. Specifiers are resolved in the program's path and
// in arguments, variables only in arguments.
std::string Quote(std::string const & raw, bool argument) {
  std::string quoted = "\"";
  for (unsigned char c : raw) {
    switch (c) {
      case '%': quoted += "%%"; break;
      case '$': quoted += argument ? "$$" : "$"; break;
      case '\\': quoted += "\\\\"; break;
      case '"': quoted += "\\\""; break;
      case '\n': quoted += "\\n"; break;
      case '\t': quoted += "\\t"; break;
      default:
        if (c < 0x20 || c == 0x7F) {
          char escape[5];
          std::snprintf(escape, sizeof escape, "\\x%02x", c);
          quoted += escape;
        } else {
          quoted += static_cast<char>(c);
        }
    }
  }
  return quoted + "\"";
}

}  // namespace

std::string QuoteExecStart(std::string const & program, std::string const * arguments,
                           std::size_t argumentCount) {
  std::string line = Quote(program, false);
  for (std::size_t i = 0; i < argumentCount; ++i) line += " " + Quote(arguments[i], true);
  return line;
}

bool IsUsableProgramPath(std::string const & path) {
  if (path.empty() || path[0] != '/' || path.size() >= 4096) return false;
  if (vx3::SanitizeUtf8(path) != path) return false;
  for (unsigned char c : path)
    if (c < 0x20 || c == 0x7F || c == '"' || c == '\'' || c == '\\') return false;
  // Normalised: no empty, "." or ".." component, no trailing "/".
  std::size_t start = 1;
  while (start <= path.size()) {
    std::size_t const end = path.find('/', start);
    std::string const part =
        path.substr(start, end == std::string::npos ? std::string::npos : end - start);
    if (part.empty() || part == "." || part == "..") return false;
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return true;
}

std::string UnitFileText(std::string const & serviceName, std::string const & program,
                         std::string const & account) {
  std::string text = "[Unit]\nDescription=" + serviceName + "\n\n[Service]\nType=notify\n";
  text += "ExecStart=" + QuoteExecStart(program) + "\n";
  if (!account.empty()) text += "User=" + account + "\n";
  return text;
}

std::string UnitFolder(bool userManager) {
  if (!userManager) return "/etc/systemd/system";
  char const * config = std::getenv("XDG_CONFIG_HOME");
  if (config != nullptr && config[0] == '/') return std::string(config) + "/systemd/user";
  char const * home = std::getenv("HOME");
  return std::string(home != nullptr ? home : "") + "/.config/systemd/user";
}

}  // namespace VxService
