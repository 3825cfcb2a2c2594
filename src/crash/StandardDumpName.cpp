#include "crash/StandardDumpName.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <stdexcept>

#include "frame/VxAppCore.h"
#include "utl/Paths.h"
#include "utl/VxSystemInfo.h"

namespace {

std::string TempFolder() {
  char const * const variable = std::getenv("TMPDIR");
  std::string folder = variable != nullptr && variable[0] == '/' ? variable : "/tmp";
  if (VxFileExist(folder) != VxFolder) throw std::runtime_error("Could not get system temp path.");
  if (folder.back() != '/') folder += '/';
  return folder;
}

}  // namespace

std::string DumpFileName(std::string const & application, std::string const & version,
                         unsigned int millisecondsSinceBoot) {
  std::string dotless = version;
  std::replace(dotless.begin(), dotless.end(), '.', '_');
  char ticks[16];
  std::snprintf(ticks, sizeof ticks, "%d", static_cast<int>(millisecondsSinceBoot));
  return application + "_" + dotless + "-" + ticks + ".dmp";
}

unsigned int MillisecondsSinceBoot() {
  timespec now{};
  ::clock_gettime(CLOCK_BOOTTIME, &now);
  auto const ms = static_cast<unsigned long long>(now.tv_sec) * 1000 +
                  static_cast<unsigned long long>(now.tv_nsec) / 1000000;
  return static_cast<unsigned int>(ms);  // wraps after 49.7 days, as the tick count did
}

std::string StandardDumpName() {
  std::string path;
  try {
    path = TempFolder();
    std::string profile = VxAppCore::ProfileName();
    std::replace(profile.begin(), profile.end(), '\\', '/');
    path += std::string(VxAppCore::RegistryKey()) + "/" + profile + "/Crash diagnostics/";
    if (VxFileExist(path) != VxFolder && !VxCreateFolder(path))
      throw std::runtime_error("Could not create temp path.");
    path += DumpFileName(VxSystemInfo::GetApplicationName(),
                         VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionDisplay),
                         MillisecondsSinceBoot());
  } catch (std::runtime_error const &) {
    // The path as far as it got: "" or the folder, which the writer fails on.
  }
  return path;
}
