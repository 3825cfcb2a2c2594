#include "datetime/RecentDateFormats.h"

#include <algorithm>

#include "frame/AppProfile.h"
#include "settings/RegistrySection.h"

namespace VxTimeUtl {

namespace {

char const kKeyName[] = "DateTimeDefaults";
char const kValueName[] = "Settings";
char const kSeparator = ';';
// KEY_READ, and KEY_READ with the rights to set values and create sub-keys:
// the masks the family has always opened this key with.
constexpr REGSAM kReadAccess = 0x20019;
constexpr REGSAM kWriteAccess = 0x2001F;

// The application's key, closed when this goes.
class AppKey {
public:
  AppKey() : mKey(AppProfile::GetAppRegistryKey()) {}
  ~AppKey() {
    if (mKey != nullptr) RegCloseKey(mKey);
  }
  AppKey(AppKey const &) = delete;
  AppKey & operator=(AppKey const &) = delete;
  HKEY Get() const { return mKey; }

private:
  HKEY mKey;
};

}  // namespace

std::vector<std::string> ReadRecentDateFormats() {
  std::vector<std::string> formats;
  AppKey app;
  if (app.Get() == nullptr) return formats;
  RegistrySection section;
  if (!section.Open(app.Get(), kKeyName, kReadAccess, false)) return formats;
  section.ReadStringVector(kValueName, formats, kSeparator);
  return formats;
}

void WriteRecentDateFormats(std::vector<std::string> const & formats) {
  AppKey app;
  if (app.Get() == nullptr) return;
  RegistrySection section;
  if (!section.Open(app.Get(), kKeyName, kWriteAccess, true)) return;
  size_t const count = std::min(formats.size(), kMaxRecentDateFormats);
  section.WriteStringVector(
      kValueName, std::vector<std::string>(formats.begin(), formats.begin() + count), kSeparator);
}

bool MoveToFront(std::vector<std::string> & formats, std::string const & format) {
  if (!formats.empty() && formats.front() == format) return false;
  formats.erase(std::remove(formats.begin(), formats.end(), format), formats.end());
  formats.insert(formats.begin(), format);
  if (formats.size() > kMaxRecentDateFormats) formats.resize(kMaxRecentDateFormats);
  return true;
}

}  // namespace VxTimeUtl
