#include "settings/VxGetTempPath.h"

#include <algorithm>
#include <cstdlib>

#include "settings/RegistryBaseKeyName.h"
#include "utl/Paths.h"

namespace {

std::string TempBase() {
  char const * const variable = std::getenv("TMPDIR");
  if (variable != nullptr && variable[0] == '/') return variable;
  return "/tmp";
}

// "Karvinel/<App>/<Ver>": the registry base without "SOFTWARE\", as a path.
std::string ApplicationElements() {
  std::string base = GetRegistryBaseKeyName();
  std::string const root = "SOFTWARE\\";
  if (base.compare(0, root.size(), root) == 0) base.erase(0, root.size());
  std::replace(base.begin(), base.end(), '\\', '/');
  return base;
}

}  // namespace

std::string VxGetTempPath(std::string const & subFolder) {
  std::string path = VxPathAppend(TempBase(), ApplicationElements());
  if (!subFolder.empty()) path = VxPathAppend(path, subFolder);
  if (VxFileExist(path) == VxNothing) VxCreateFolder(path);
  return path + "/";
}
