#include "settings/VxExecutablePath.h"

#include <string>

#include "utl/Paths.h"
#include "utl/Utf.h"

namespace {

struct ExecutableLocation {
  std::wstring path;
  std::wstring directory;
};

ExecutableLocation const & Location() {
  static ExecutableLocation const location = [] {
    std::string const file = VxGetModuleFileName();
    return ExecutableLocation{vx3::Utf8ToWide(file),
                              vx3::Utf8ToWide(file.empty() ? file : VxGetDirectory(file))};
  }();
  return location;
}

}  // namespace

wchar_t const * VxGetExecutablePath() { return Location().path.c_str(); }
wchar_t const * VxGetExecutableDirectoryW() { return Location().directory.c_str(); }
