// Customization packages from anywhere: opening either succeeds or throws
// Exception; no entry read back is larger than the limit, and every name the
// reader lists is found again by name.
#include <cstdint>
#include <string>

#include "frame/AppConfigPackage.h"
#include "utl/Exception.h"
#include "utl/VxSystemInfo.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  AppConfigLimits limits;
  limits.maxEntryBytes = size_t(1) << 20;
  limits.maxTotalBytes = size_t(4) << 20;
  limits.maxEntries = 256;
  try {
    AppConfigPackage const package(std::string(reinterpret_cast<char const *>(data), size),
                                   "fuzz.appconfig", limits);
    for (std::string const & name : package.EntryNames()) {
      if (!package.HasEntry(name.c_str())) __builtin_trap();
      if (package.ReadFile(name.c_str()).size() > limits.maxEntryBytes) __builtin_trap();
    }
    std::string const markup = package.ReadFile("about_us.xaml");
    AppConfigPackage::ApplyReplacements(markup, package.IconReplacements());
    try {
      package.ReadAppName();
    } catch (Exception const &) {}
    try {
      // What is taken must be an address the desktop may be asked to open.
      std::string const page = package.ReadSupportPage();
      if (!page.empty() && !VxSystemInfo::IsUsableSupportPage(page)) __builtin_trap();
    } catch (Exception const &) {}
  } catch (Exception const &) {}
  return 0;
}
