#include "utl/DamagedCopyName.h"

#include <ctime>

#include "utl/Paths.h"

namespace vx3 {

std::string DamagedCopyName(std::string const & path) {
  std::time_t const now = std::time(nullptr);
  std::tm parts{};
  ::gmtime_r(&now, &parts);
  char stamp[32];
  std::strftime(stamp, sizeof stamp, "%Y%m%dT%H%M%SZ", &parts);
  std::string const base = path + ".damaged-" + stamp;
  std::string name = base;
  for (int n = 2; VxFileExist(name) != VxNothing; ++n) name = base + "-" + std::to_string(n);
  return name;
}

}  // namespace vx3
