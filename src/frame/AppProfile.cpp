#include "frame/AppProfile.h"

#include <cstring>
#include <vector>

#include "settings/RegistryBaseKeyName.h"
#include "utl/Utf.h"

namespace {

class OpenKey {
public:
  explicit OpenKey(HKEY key) : mKey(key) {}
  ~OpenKey() {
    if (mKey != nullptr) RegCloseKey(mKey);
  }
  OpenKey(OpenKey const &) = delete;
  OpenKey & operator=(OpenKey const &) = delete;
  HKEY get() const { return mKey; }

private:
  HKEY mKey;
};

HKEY CreateKey(std::string const & path) {
  HKEY key = nullptr;
  std::wstring const wide = vx3::Utf8ToWide(path);
  if (RegCreateKeyExW(HKEY_CURRENT_USER, wide.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_READ | KEY_WRITE, nullptr, &key, nullptr) != ERROR_SUCCESS)
    return nullptr;
  return key;
}

// Reads the value `entry`: its type and bytes; false when it cannot be read.
bool QueryValue(char const * section, char const * entry, DWORD & type, std::vector<BYTE> & data) {
  if (section == nullptr || entry == nullptr) return false;
  std::wstring const path = vx3::Utf8ToWide(GetRegistryBaseKeyName() + "\\" + section);
  HKEY raw = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &raw) != ERROR_SUCCESS)
    return false;
  OpenKey const key(raw);
  std::wstring const name = vx3::Utf8ToWide(entry);
  DWORD size = 0;
  if (RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
    return false;
  // Room for a terminator that the stored text may lack.
  data.assign(size + sizeof(wchar_t), 0);
  return RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, data.data(), &size) ==
         ERROR_SUCCESS;
}

}  // namespace

namespace AppProfile {

HKEY GetAppRegistryKey() { return CreateKey(GetRegistryBaseKeyName()); }

HKEY GetSectionKey(char const * section) {
  if (section == nullptr) return nullptr;
  return CreateKey(GetRegistryBaseKeyName() + "\\" + section);
}

int GetProfileInt(char const * section, char const * entry, int defaultValue) {
  DWORD type = REG_NONE;
  std::vector<BYTE> data;
  if (!QueryValue(section, entry, type, data) || type != REG_DWORD) return defaultValue;
  DWORD value = 0;
  std::memcpy(&value, data.data(), sizeof value);
  return static_cast<int>(value);
}

std::string GetProfileString(char const * section, char const * entry, char const * defaultValue) {
  DWORD type = REG_NONE;
  std::vector<BYTE> data;
  if (!QueryValue(section, entry, type, data) || (type != REG_SZ && type != REG_EXPAND_SZ))
    return defaultValue != nullptr ? defaultValue : "";
  size_t const characters = data.size() / sizeof(wchar_t);
  std::wstring text(characters, L'\0');
  std::memcpy(text.data(), data.data(), characters * sizeof(wchar_t));
  text.resize(std::wcslen(text.c_str()));
  return vx3::WideToUtf8(text);
}

bool WriteProfileInt(char const * section, char const * entry, int value) {
  if (entry == nullptr) return false;
  OpenKey const key(GetSectionKey(section));
  if (key.get() == nullptr) return false;
  DWORD const dword = static_cast<DWORD>(value);
  std::wstring const name = vx3::Utf8ToWide(entry);
  return RegSetValueExW(key.get(), name.c_str(), 0, REG_DWORD,
                        reinterpret_cast<BYTE const *>(&dword), sizeof dword) == ERROR_SUCCESS;
}

bool WriteProfileString(char const * section, char const * entry, char const * value) {
  if (section == nullptr) return false;
  if (entry == nullptr || value == nullptr) {
    // Removing: what is not there is removed already, and no key is made
    // only to remove something from it.
    HKEY raw = nullptr;
    std::string const path =
        GetRegistryBaseKeyName() + (entry == nullptr ? "" : "\\" + std::string(section));
    LSTATUS rc = RegOpenKeyExW(HKEY_CURRENT_USER, vx3::Utf8ToWide(path).c_str(), 0,
                               KEY_READ | KEY_WRITE, &raw);
    if (rc == ERROR_FILE_NOT_FOUND) return true;
    if (rc != ERROR_SUCCESS) return false;
    OpenKey const key(raw);
    rc = entry == nullptr ? RegDeleteTreeW(key.get(), vx3::Utf8ToWide(section).c_str())
                          : RegDeleteValueW(key.get(), vx3::Utf8ToWide(entry).c_str());
    return rc == ERROR_SUCCESS || rc == ERROR_FILE_NOT_FOUND;
  }
  OpenKey const key(GetSectionKey(section));
  if (key.get() == nullptr) return false;
  std::wstring const name = vx3::Utf8ToWide(entry);
  std::wstring const text = vx3::Utf8ToWide(value);
  return RegSetValueExW(key.get(), name.c_str(), 0, REG_SZ,
                        reinterpret_cast<BYTE const *>(text.c_str()),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

}  // namespace AppProfile
