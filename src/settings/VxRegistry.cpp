#include "settings/VxRegistry.h"

#include <unistd.h>

#include <cstring>
#include <cwchar>
#include <vector>

#include "settings/RegistryBaseKeyName.h"
#include "utl/Exception.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

namespace {

// A wide copy of a narrow argument that keeps "no argument" apart from "".
class WideArgument {
public:
  explicit WideArgument(char const * text)
      : mNull(text == nullptr), mText(vx3::Utf8ToWide(text != nullptr ? text : "")) {}
  wchar_t const * get() const { return mNull ? nullptr : mText.c_str(); }

private:
  bool mNull;
  std::wstring mText;
};

// Text stored in a byte buffer that holds at least one more zeroed wchar_t.
std::string TextOf(std::vector<BYTE> const & buffer) {
  return vx3::WideToUtf8(reinterpret_cast<wchar_t const *>(buffer.data()));
}

bool GetNames(HKEY root, char const * subKey, std::vector<std::string> & names, bool values) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, WideArgument(subKey).get(), 0, KEY_READ, &key) != ERROR_SUCCESS)
    return false;
  wchar_t name[260];
  for (DWORD index = 0;; ++index) {
    DWORD length = 260;
    LONG const rc =
        values ? RegEnumValueW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr)
               : RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr);
    if (rc != ERROR_SUCCESS) break;
    names.push_back(vx3::WideToUtf8(std::wstring(name, length)));
  }
  RegCloseKey(key);
  return true;
}

}  // namespace

bool VxSetRegKey(HKEY root, char const * subKey, char const * value, char const * name) {
  WideArgument const wideKey(subKey);
  std::wstring const text = vx3::Utf8ToWide(value != nullptr ? value : "");
  if (name == nullptr) {
    return RegSetValueW(root, wideKey.get(), REG_SZ, text.c_str(),
                        static_cast<DWORD>(text.size() * 2)) == ERROR_SUCCESS;
  }
  HKEY key = nullptr;
  if (RegCreateKeyExW(root, wideKey.get(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) !=
      ERROR_SUCCESS)
    return false;
  bool const set =
      RegSetValueExW(key, WideArgument(name).get(), 0, REG_SZ,
                     reinterpret_cast<BYTE const *>(text.c_str()),
                     static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
  bool const closed = RegCloseKey(key) == ERROR_SUCCESS;
  return set && closed;
}

std::string VxGetRegKey(HKEY root, char const * subKey, char const * name,
                        char const * defaultValue) {
  std::string fallback = defaultValue != nullptr ? defaultValue : "";
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, WideArgument(subKey).get(), 0, KEY_READ, &key) != ERROR_SUCCESS)
    return fallback;
  WideArgument const wideName(name);
  DWORD type = REG_NONE;
  DWORD size = 0;
  std::string result = fallback;
  if (RegQueryValueExW(key, wideName.get(), nullptr, nullptr, nullptr, &size) == ERROR_SUCCESS) {
    // The data and a zeroed terminator after it, in whole characters.
    std::vector<BYTE> buffer((size / sizeof(wchar_t) + 2) * sizeof(wchar_t), 0);
    if (RegQueryValueExW(key, wideName.get(), nullptr, &type, buffer.data(), &size) ==
        ERROR_SUCCESS) {
      if (type == REG_DWORD) {
        DWORD number = 0;
        std::memcpy(&number, buffer.data(), sizeof number);
        result = std::to_string(number);
      } else {
        result = TextOf(buffer);
      }
    }
  }
  RegCloseKey(key);
  return result;
}

int VxDeleteRegKey(HKEY root, char const * subKey) {
  if (subKey == nullptr || *subKey == '\0') return ERROR_BADKEY;
  std::wstring const wideKey = vx3::Utf8ToWide(subKey);
  HKEY key = nullptr;
  LONG rc = RegOpenKeyExW(root, wideKey.c_str(), 0, DELETE | KEY_ENUMERATE_SUB_KEYS, &key);
  if (rc != ERROR_SUCCESS) return rc;
  // Always the first sub-key: each deletion moves the next one there.
  wchar_t name[1024];
  for (;;) {
    DWORD length = 1024;
    rc = RegEnumKeyExW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr);
    if (rc == ERROR_NO_MORE_ITEMS) break;
    if (rc == ERROR_SUCCESS) rc = VxDeleteRegKey(key, vx3::WideToUtf8(name).c_str());
    if (rc != ERROR_SUCCESS) {
      RegCloseKey(key);
      return rc;
    }
  }
  rc = RegDeleteKeyW(root, wideKey.c_str());
  RegCloseKey(key);
  return rc;
}

bool VxDeleteRegValue(HKEY root, char const * subKey, char const * name) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, WideArgument(subKey).get(), 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS)
    return true;
  bool const deleted = RegDeleteValueW(key, WideArgument(name).get()) == ERROR_SUCCESS;
  RegCloseKey(key);
  return deleted;
}

bool VxGetRegSubKeys(HKEY root, char const * subKey, std::vector<std::string> & names) {
  return GetNames(root, subKey, names, false);
}

bool VxGetRegValues(HKEY root, char const * subKey, std::vector<std::string> & names) {
  return GetNames(root, subKey, names, true);
}

std::string RegGetInstallationPath() {
  std::wstring const path = vx3::Utf8ToWide(GetRegistryBaseKeyName() + "\\Install");
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_QUERY_VALUE, &key) == ERROR_SUCCESS) {
    // 260 bytes of 2-byte characters in the original: 130 characters, and
    // one more, zeroed, so that the text always ends.
    std::vector<BYTE> buffer(131 * sizeof(wchar_t), 0);
    DWORD size = 130 * sizeof(wchar_t);
    LONG const rc = RegQueryValueExW(key, L"Path", nullptr, nullptr, buffer.data(), &size);
    RegCloseKey(key);
    if (rc == ERROR_SUCCESS) return TextOf(buffer);
  }
  throw Exception(ExceptionMessage::translate(
                      "The location of the {1} install folder was not found in the registry. "
                      "Make sure you have used the setup program to install {1}.") %
                  VxSystemInfo::GetApplicationName());
}

void VerifyRegistered(_GUID const & clsid, std::string name) {
  if (name.empty()) name = "ActiveX control";
  wchar_t text[64];
  std::swprintf(text, 64, L"CLSID\\{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                static_cast<unsigned>(clsid.Data1), clsid.Data2, clsid.Data3, clsid.Data4[0],
                clsid.Data4[1], clsid.Data4[2], clsid.Data4[3], clsid.Data4[4], clsid.Data4[5],
                clsid.Data4[6], clsid.Data4[7]);
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, text, 0, KEY_READ, &key) != ERROR_SUCCESS) {
    throw Exception(ExceptionMessage::translate(
                        "The {1} is not correctly registered. Make sure you have run the setup "
                        "program to install this program.") %
                    name);
  }
  auto const notFound = [&] {
    return Exception(ExceptionMessage::translate(
                         "The {1} could not be found. Make sure you have run the setup program "
                         "to install this program.") %
                     name);
  };
  HKEY server = nullptr;
  LONG const opened = RegOpenKeyExW(key, L"InProcServer32", 0, KEY_QUERY_VALUE, &server);
  RegCloseKey(key);
  if (opened != ERROR_SUCCESS) throw notFound();
  // 260 bytes of 2-byte characters in the original: 130 characters here.
  wchar_t file[131] = {};
  LONG size = 130 * sizeof(wchar_t);
  LONG const rc = RegQueryValueW(server, nullptr, file, &size);
  RegCloseKey(server);
  if (rc == ERROR_SUCCESS && file[0] != L'\0' && ::access(vx3::WideToUtf8(file).c_str(), F_OK) != 0)
    throw notFound();
}
