#include "frame/KnownFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "utl/Paths.h"

namespace {

// The variable's value when it is an absolute path; empty otherwise.
std::string AbsoluteFromEnvironment(char const * name) {
  char const * value = std::getenv(name);
  return value != nullptr && value[0] == '/' ? value : "";
}

std::string HomeFolder() {
  std::string home = AbsoluteFromEnvironment("HOME");
  if (!home.empty()) return home;
  struct passwd entry {};
  struct passwd * found = nullptr;
  char buffer[4096];
  if (::getpwuid_r(::geteuid(), &entry, buffer, sizeof buffer, &found) == 0 && found != nullptr &&
      found->pw_dir != nullptr && found->pw_dir[0] == '/')
    return found->pw_dir;
  return "";
}

}  // namespace

namespace vx3 {

std::string UserDataFolder() {
  std::string config = AbsoluteFromEnvironment("XDG_CONFIG_HOME");
  if (!config.empty()) return config;
  std::string const home = HomeFolder();
  return home.empty() ? "" : VxPathAppend(home, ".config");
}

std::string CommonDataFolder() {
  // The list is separated by ':'; its first absolute entry counts.
  char const * value = std::getenv("XDG_CONFIG_DIRS");
  std::string const list = value != nullptr ? value : "";
  size_t start = 0;
  while (start <= list.size()) {
    size_t end = list.find(':', start);
    if (end == std::string::npos) end = list.size();
    std::string entry = list.substr(start, end - start);
    if (!entry.empty() && entry[0] == '/') return entry;
    start = end + 1;
  }
  return "/etc/xdg";
}

}  // namespace vx3
