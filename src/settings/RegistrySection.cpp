#include "settings/RegistrySection.h"

#include <boost/format.hpp>

#include <cwchar>
#include <memory>

#include "utl/Exception.h"
#include "utl/Utf.h"

namespace {

std::wstring Wide(char const * text) { return vx3::Utf8ToWide(text != nullptr ? text : ""); }

std::string Indexed(char const * name, int index) {
  return (boost::format("%1% %2%") % (name != nullptr ? name : "") % index).str();
}

// Empties `key` of its sub-keys, as the family always has: the name buffer
// holds the longest name without its terminator, so that name ends the walk
// (ERROR_MORE_DATA), and the index steps on after each deletion, so every
// second sub-key is passed over. Sub-keys are opened with KEY_WRITE, which
// cannot ask RegQueryInfoKeyW, so their own sub-keys stay. False only when the
// key cannot be asked or a sub-key cannot be opened.
bool DeleteSubKeys(HKEY key) {
  DWORD longest = 0;
  if (RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, &longest, nullptr, nullptr, nullptr,
                       nullptr, nullptr, nullptr) != ERROR_SUCCESS)
    return false;
  std::unique_ptr<wchar_t[]> const name(new wchar_t[longest]);
  for (DWORD index = 0;; ++index) {
    DWORD length = longest;
    if (RegEnumKeyExW(key, index, name.get(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS)
      return true;
    HKEY sub = nullptr;
    if (RegOpenKeyExW(key, name.get(), 0, KEY_WRITE, &sub) != ERROR_SUCCESS) return false;
    DeleteSubKeys(sub);
    RegCloseKey(sub);
    RegDeleteKeyW(key, name.get());
  }
}

}  // namespace

RegistrySection::RegistrySection() = default;

RegistrySection::RegistrySection(HKEY parent, char const * path, REGSAM access, bool create)
    : mParentKey(parent), mAccess(access), mPath(path != nullptr ? path : "") {
  std::wstring const wide = Wide(path);
  if (RegOpenKeyExW(parent, wide.c_str(), 0, access, &mKey) == ERROR_SUCCESS) return;
  if (!create) throw Exception(ExceptionMessage::translate("Registry Key not found."));
  if (RegCreateKeyExW(parent, wide.c_str(), 0, nullptr, 0, access, nullptr, &mKey, nullptr) !=
      ERROR_SUCCESS)
    throw Exception(ExceptionMessage::translate("Registry Key couldn't be created."));
}

RegistrySection::~RegistrySection() { RegCloseKey(mKey); }

bool RegistrySection::Open(HKEY parent, char const * path, REGSAM access, bool create) {
  std::wstring const wide = Wide(path);
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, wide.c_str(), 0, access, &key) != ERROR_SUCCESS &&
      (!create || RegCreateKeyExW(parent, wide.c_str(), 0, nullptr, 0, access, nullptr, &key,
                                  nullptr) != ERROR_SUCCESS))
    return false;
  RegCloseKey(mKey);
  mKey = key;
  mParentKey = parent;
  mAccess = access;
  mPath = path != nullptr ? path : "";
  return true;
}

ConfigurationSection * RegistrySection::Copy() const {
  return new RegistrySection(mKey, "", mAccess, false);
}

void RegistrySection::ChangeSection(char const * name) {
  std::string::size_type const slash = mPath.rfind('\\');
  std::string const path =
      (slash == std::string::npos ? std::string() : mPath.substr(0, slash)) + (name ? name : "");
  std::wstring const wide = Wide(path.c_str());
  HKEY key = nullptr;
  if (RegOpenKeyExW(mParentKey, wide.c_str(), 0, mAccess, &key) != ERROR_SUCCESS &&
      RegCreateKeyExW(mParentKey, wide.c_str(), 0, nullptr, 0, mAccess, nullptr, &key, nullptr) !=
          ERROR_SUCCESS)
    return;
  RegCloseKey(mKey);
  mKey = key;
  mPath = path;
}

bool RegistrySection::ChangeSubSection(char const * name, int index) {
  return ChangeSubSection(Indexed(name, index).c_str());
}

bool RegistrySection::ChangeSubSection(char const * name) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(mKey, Wide(name).c_str(), 0, mAccess, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(mKey);
  mKey = key;
  mPath += "\\";
  mPath += name != nullptr ? name : "";
  return true;
}

ConfigurationSection * RegistrySection::CreateSubSection(char const * name, int index) const {
  return RegistrySection::CreateSubSection(Indexed(name, index).c_str());
}

ConfigurationSection * RegistrySection::CreateSubSection(char const * name) const {
  return new RegistrySection(mKey, name, mAccess, true);
}

bool RegistrySection::SupportsSubSections() const { return true; }

bool RegistrySection::DeleteKey(char const * name) {
  return RegDeleteValueW(mKey, Wide(name).c_str()) == ERROR_SUCCESS;
}

bool RegistrySection::DeleteSection() {
  if (!DeleteSubKeys(mKey)) return false;
  return RegDeleteKeyW(mParentKey, Wide(mPath.c_str()).c_str()) == ERROR_SUCCESS;
}

bool RegistrySection::Flush() const { return true; }

bool RegistrySection::IsEmpty() const {
  wchar_t name[1];
  DWORD length = 0;
  return RegEnumValueW(mKey, 0, name, &length, nullptr, nullptr, nullptr, nullptr) !=
         ERROR_NO_MORE_ITEMS;
}

bool RegistrySection::HasSection(char const * name, int) const {
  HKEY key = nullptr;
  if (RegOpenKeyExW(mKey, Wide(name).c_str(), 0, mAccess, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

bool RegistrySection::HasKey(char const * name) const {
  DWORD type = REG_NONE;
  return RegQueryValueExW(mKey, Wide(name).c_str(), nullptr, &type, nullptr, nullptr) ==
         ERROR_SUCCESS;
}

bool RegistrySection::ReadBool(char const * name, bool & value) const {
  int number = 0;
  if (!ReadInt(name, number)) return false;
  value = number != 0;
  return true;
}

bool RegistrySection::ReadInt(char const * name, int & value) const {
  DWORD type = REG_NONE;
  DWORD number = 0;
  DWORD size = sizeof number;
  if (RegQueryValueExW(mKey, Wide(name).c_str(), nullptr, &type, reinterpret_cast<BYTE *>(&number),
                       &size) != ERROR_SUCCESS ||
      type != REG_DWORD)
    return false;
  value = static_cast<int>(number);
  return true;
}

bool RegistrySection::ReadKey(char const * name, std::wstring & value) const {
  std::wstring const wide = Wide(name);
  DWORD type = REG_NONE;
  DWORD size = 0;
  LONG rc = RegQueryValueExW(mKey, wide.c_str(), nullptr, &type, nullptr, &size);
  if (type != REG_SZ) return false;
  if (rc != ERROR_SUCCESS && rc != ERROR_MORE_DATA) return false;
  // (size + 1) characters for `size` bytes: room to spare, and a terminator
  // whatever the stored text ends with.
  std::unique_ptr<wchar_t[]> const text(new wchar_t[size + 1]());
  rc = RegQueryValueExW(mKey, wide.c_str(), nullptr, &type, reinterpret_cast<BYTE *>(text.get()),
                        &size);
  if (rc != ERROR_SUCCESS) return false;
  value = text.get();
  return true;
}

bool RegistrySection::ReadKey(char const * name, std::string & value) const {
  std::wstring text;
  if (!ReadKey(name, text)) return false;
  value = vx3::WideToUtf8(text);
  return true;
}

bool RegistrySection::WriteBool(char const * name, bool value) {
  return WriteInt(name, value ? 1 : 0);
}

bool RegistrySection::WriteInt(char const * name, int value) {
  auto const number = static_cast<DWORD>(value);
  return RegSetValueExW(mKey, Wide(name).c_str(), 0, REG_DWORD,
                        reinterpret_cast<BYTE const *>(&number), sizeof number) == ERROR_SUCCESS;
}

bool RegistrySection::WriteKey(char const * name, wchar_t const * value) {
  if (value == nullptr) value = L"";
  auto const size = static_cast<DWORD>((std::wcslen(value) + 1) * sizeof(wchar_t));
  return RegSetValueExW(mKey, Wide(name).c_str(), 0, REG_SZ, reinterpret_cast<BYTE const *>(value),
                        size) == ERROR_SUCCESS;
}

bool RegistrySection::WriteKey(char const * name, char const * value) {
  return WriteKey(name, Wide(value).c_str());
}

bool RegistrySection::WriteToSection(ConfigurationSection *) const { return false; }

std::vector<std::string> RegistrySection::GetSectionNames() const {
  std::vector<std::string> names;
  DWORD count = 0;
  DWORD longest = 0;
  if (RegQueryInfoKeyW(mKey, nullptr, nullptr, nullptr, &count, &longest, nullptr, nullptr, nullptr,
                       nullptr, nullptr, nullptr) != ERROR_SUCCESS)
    return names;
  std::unique_ptr<wchar_t[]> const name(new wchar_t[longest + 1]);
  for (DWORD index = 0; index < count; ++index) {
    DWORD length = longest + 1;
    if (RegEnumKeyExW(mKey, index, name.get(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS)
      break;
    names.push_back(vx3::WideToUtf8(std::wstring(name.get(), length)));
  }
  return names;
}
