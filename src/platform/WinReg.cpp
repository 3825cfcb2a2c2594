#include "platform/WinReg.h"

#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

#include "platform/RegistryNotices.h"
#include "platform/RegistryStore.h"
#include "utl/Utf.h"

using registry::Hive;
using registry::KeyId;
using registry::Name;
using registry::OpenKey;

namespace {

constexpr REGSAM kWriteRights =
    KEY_SET_VALUE | KEY_CREATE_SUB_KEY | KEY_CREATE_LINK | DELETE | WRITE_DAC | WRITE_OWNER;

// The rights a request amounts to, generic rights mapped as Windows maps
// them for keys. MAXIMUM_ALLOWED grants what the hive's file permits.
REGSAM Rights(REGSAM requested, bool writable) {
  REGSAM rights = requested & (0x3F | STANDARD_RIGHTS_ALL);
  if ((requested & GENERIC_READ) != 0) rights |= KEY_READ;
  if ((requested & GENERIC_WRITE) != 0) rights |= KEY_WRITE;
  if ((requested & GENERIC_EXECUTE) != 0) rights |= KEY_EXECUTE;
  if ((requested & GENERIC_ALL) != 0) rights |= KEY_ALL_ACCESS;
  if ((requested & MAXIMUM_ALLOWED) != 0) rights |= writable ? KEY_ALL_ACCESS : KEY_READ;
  return rights;
}

bool IsPredefined(HKEY key) {
  return key == HKEY_CURRENT_USER || key == HKEY_LOCAL_MACHINE || key == HKEY_CLASSES_ROOT;
}

// Where a path given relative to a handle starts: the handle's key, and for
// HKEY_CLASSES_ROOT the path of the classes key in the system hive.
struct Base {
  Hive * hive = nullptr;
  KeyId id = 0;
  REGSAM access = 0;
  std::vector<Name> prefix;
};

LONG ResolveBase(HKEY handle, Base & base) {
  if (IsPredefined(handle)) {
    Hive & hive = handle == HKEY_CURRENT_USER ? registry::UserHive() : registry::SystemHive();
    base.hive = &hive;
    base.id = registry::kRootKey;
    base.access = hive.IsWritable() ? KEY_ALL_ACCESS : KEY_READ;
    registry::TellNotices();  // what opening the hive repaired, told unlocked
    if (handle == HKEY_CLASSES_ROOT) registry::ParseKeyPath(L"SOFTWARE\\Classes", base.prefix);
    return ERROR_SUCCESS;
  }
  OpenKey key;
  if (!registry::FindHandle(handle, key)) return ERROR_INVALID_HANDLE;
  base.hive = key.hive;
  base.id = key.id;
  base.access = key.access;
  return ERROR_SUCCESS;
}

// The base followed by `subKey`.
LONG ResolvePath(HKEY handle, wchar_t const * subKey, Base & base, std::vector<Name> & path) {
  LONG rc = ResolveBase(handle, base);
  if (rc != ERROR_SUCCESS) return rc;
  // As on Windows, a leading separator is allowed beneath HKEY_CLASSES_ROOT
  // only (and is ERROR_BAD_PATHNAME beneath any other key).
  if (handle == HKEY_CLASSES_ROOT && subKey != nullptr && *subKey == L'\\') ++subKey;
  rc = registry::ParseKeyPath(subKey, path);
  if (rc != ERROR_SUCCESS) return rc;
  path.insert(path.begin(), base.prefix.begin(), base.prefix.end());
  return ERROR_SUCCESS;
}

// The key a handle stands on, for an operation that needs `rights` on it.
LONG ResolveKey(HKEY handle, REGSAM rights, OpenKey & key) {
  Base base;
  LONG const rc = ResolveBase(handle, base);
  if (rc != ERROR_SUCCESS) return rc;
  if ((base.access & rights) != rights) return ERROR_ACCESS_DENIED;
  key.hive = base.hive;
  key.id = base.id;
  key.access = base.access;
  return base.prefix.empty() ? ERROR_SUCCESS : base.hive->OpenPath(base.id, base.prefix, key.id);
}

// Copies a name into a caller's buffer of `*count` characters, which must
// leave room for the terminator; on success `*count` is the name's length.
LONG ReturnName(std::string const & name, wchar_t * buffer, DWORD * count) {
  std::wstring const wide = vx3::Utf8ToWide(name);
  if (wide.size() >= *count) return ERROR_MORE_DATA;
  std::wmemcpy(buffer, wide.data(), wide.size());
  buffer[wide.size()] = L'\0';
  *count = static_cast<DWORD>(wide.size());
  return ERROR_SUCCESS;
}

// Copies data into a caller's buffer as RegQueryValueExW does: with no
// buffer only the size is told; a buffer too small gets ERROR_MORE_DATA
// and the size needed.
LONG ReturnData(std::string const & data, BYTE * buffer, DWORD * size) {
  if (size == nullptr) return ERROR_SUCCESS;
  auto const needed = static_cast<DWORD>(data.size());
  if (buffer != nullptr && *size < needed) {
    *size = needed;
    return ERROR_MORE_DATA;
  }
  // NOLINTNEXTLINE(bugprone-not-null-terminated-result): value bytes, copied as stored.
  if (buffer != nullptr && needed > 0) std::memcpy(buffer, data.data(), needed);
  *size = needed;
  return ERROR_SUCCESS;
}

// A key has no class here: it reads as the empty text.
LONG ReturnEmptyClass(wchar_t * buffer, DWORD * count) {
  if (count == nullptr) return ERROR_SUCCESS;
  if (buffer != nullptr) {
    if (*count == 0) return ERROR_MORE_DATA;
    buffer[0] = L'\0';
  }
  *count = 0;
  return ERROR_SUCCESS;
}

}  // namespace

LONG registry::FindKey(HKEY handle, OpenKey & key) { return ResolveKey(handle, 0, key); }

LSTATUS RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD ulOptions, REGSAM samDesired,
                      PHKEY phkResult) {
  if (phkResult == nullptr) return ERROR_INVALID_PARAMETER;
  *phkResult = nullptr;
  Base base;
  std::vector<Name> path;
  LONG rc = ResolvePath(hKey, lpSubKey, base, path);
  if (rc != ERROR_SUCCESS) return rc;
  // A predefined key opened with no sub-key is the predefined key itself.
  if (path.empty() && IsPredefined(hKey)) {
    *phkResult = hKey;
    return ERROR_SUCCESS;
  }
  KeyId id = 0;
  rc = base.hive->OpenPath(base.id, path, id);
  if (rc != ERROR_SUCCESS) return rc;
  bool const writable = base.hive->IsWritable();
  REGSAM const rights = Rights(samDesired, writable);
  if (!writable && (rights & kWriteRights) != 0) return ERROR_ACCESS_DENIED;
  *phkResult = registry::AddHandle({base.hive, id, rights});
  return ERROR_SUCCESS;
}

LSTATUS RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD Reserved, LPWSTR lpClass,
                        DWORD dwOptions, REGSAM samDesired,
                        LPSECURITY_ATTRIBUTES lpSecurityAttributes, PHKEY phkResult,
                        LPDWORD lpdwDisposition) {
  if (phkResult == nullptr) return ERROR_INVALID_PARAMETER;
  *phkResult = nullptr;
  if (lpSubKey == nullptr) return ERROR_BADKEY;
  Base base;
  std::vector<Name> path;
  LONG rc = ResolvePath(hKey, lpSubKey, base, path);
  if (rc != ERROR_SUCCESS) return rc;
  if ((dwOptions & REG_OPTION_CREATE_LINK) != 0) return ERROR_INVALID_PARAMETER;
  bool const writable = base.hive->IsWritable();
  REGSAM const rights = Rights(samDesired, writable);
  KeyId id = 0;
  bool created = false;
  if (writable) {
    rc = base.hive->CreatePath(base.id, path, id, created);
  } else {
    rc = base.hive->OpenPath(base.id, path, id);
    if (rc == ERROR_FILE_NOT_FOUND || (rc == ERROR_SUCCESS && (rights & kWriteRights) != 0))
      rc = ERROR_ACCESS_DENIED;
  }
  if (rc != ERROR_SUCCESS) return rc;
  *phkResult = registry::AddHandle({base.hive, id, rights});
  if (lpdwDisposition != nullptr)
    *lpdwDisposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
  return ERROR_SUCCESS;
}

LSTATUS RegCloseKey(HKEY hKey) {
  if (IsPredefined(hKey)) return ERROR_SUCCESS;
  return registry::RemoveHandle(hKey) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

LSTATUS RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType,
                         LPBYTE lpData, LPDWORD lpcbData) {
  if (lpReserved != nullptr || (lpData != nullptr && lpcbData == nullptr))
    return ERROR_INVALID_PARAMETER;
  OpenKey key;
  LONG rc = ResolveKey(hKey, KEY_QUERY_VALUE, key);
  if (rc != ERROR_SUCCESS) return rc;
  Name name;
  // A name no value can have (too long, not Unicode) names no value.
  if (registry::ParseValueName(lpValueName, name) != ERROR_SUCCESS) return ERROR_FILE_NOT_FOUND;
  DWORD type = REG_NONE;
  std::string data;
  rc = key.hive->QueryValue(key.id, name.folded, type, data);
  if (rc != ERROR_SUCCESS) return rc;
  if (lpType != nullptr) *lpType = type;
  return ReturnData(data, lpData, lpcbData);
}

LSTATUS RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD Reserved, DWORD dwType,
                       BYTE const * lpData, DWORD cbData) {
  OpenKey key;
  LONG rc = ResolveKey(hKey, KEY_SET_VALUE, key);
  if (rc != ERROR_SUCCESS) return rc;
  if (lpData == nullptr && cbData > 0) return ERROR_NOACCESS;
  Name name;
  rc = registry::ParseValueName(lpValueName, name);
  if (rc != ERROR_SUCCESS) return rc;
  if (cbData > REG_MAX_VALUE_SIZE) return ERROR_NO_SYSTEM_RESOURCES;
  return key.hive->SetValue(key.id, name, dwType, lpData, cbData);
}

LSTATUS RegDeleteKeyW(HKEY hKey, LPCWSTR lpSubKey) {
  if (lpSubKey == nullptr) return ERROR_INVALID_PARAMETER;
  Base base;
  std::vector<Name> path;
  LONG rc = ResolvePath(hKey, lpSubKey, base, path);
  if (rc != ERROR_SUCCESS) return rc;
  KeyId id = 0;
  rc = base.hive->OpenPath(base.id, path, id);
  if (rc != ERROR_SUCCESS) return rc;
  return base.hive->DeleteKey(id);
}

LSTATUS RegDeleteTreeW(HKEY hKey, LPCWSTR lpSubKey) {
  Base base;
  std::vector<Name> path;
  LONG rc = ResolvePath(hKey, lpSubKey, base, path);
  if (rc != ERROR_SUCCESS) return rc;
  bool const withKey = lpSubKey != nullptr && *lpSubKey != L'\0';
  // Emptying the handle's own key takes the right to change its values.
  if (!withKey && (base.access & KEY_SET_VALUE) == 0) return ERROR_ACCESS_DENIED;
  KeyId id = 0;
  rc = base.hive->OpenPath(base.id, path, id);
  if (rc != ERROR_SUCCESS) return rc;
  return base.hive->DeleteTree(id, withKey);
}

LSTATUS RegDeleteValueW(HKEY hKey, LPCWSTR lpValueName) {
  OpenKey key;
  LONG const rc = ResolveKey(hKey, KEY_SET_VALUE, key);
  if (rc != ERROR_SUCCESS) return rc;
  Name name;
  if (registry::ParseValueName(lpValueName, name) != ERROR_SUCCESS) return ERROR_FILE_NOT_FOUND;
  return key.hive->DeleteValue(key.id, name.folded);
}

LSTATUS RegEnumKeyExW(HKEY hKey, DWORD dwIndex, LPWSTR lpName, LPDWORD lpcchName,
                      LPDWORD lpReserved, LPWSTR lpClass, LPDWORD lpcchClass,
                      PFILETIME lpftLastWriteTime) {
  if (lpName == nullptr || lpcchName == nullptr || lpReserved != nullptr ||
      (lpClass != nullptr && lpcchClass == nullptr))
    return ERROR_INVALID_PARAMETER;
  OpenKey key;
  LONG rc = ResolveKey(hKey, KEY_ENUMERATE_SUB_KEYS, key);
  if (rc != ERROR_SUCCESS) return rc;
  std::string name;
  rc = key.hive->EnumKey(key.id, dwIndex, name);
  if (rc != ERROR_SUCCESS) return rc;
  rc = ReturnName(name, lpName, lpcchName);
  if (rc != ERROR_SUCCESS) return rc;
  if (lpftLastWriteTime != nullptr) *lpftLastWriteTime = FILETIME{0, 0};
  return ReturnEmptyClass(lpClass, lpcchClass);
}

LSTATUS RegEnumValueW(HKEY hKey, DWORD dwIndex, LPWSTR lpValueName, LPDWORD lpcchValueName,
                      LPDWORD lpReserved, LPDWORD lpType, LPBYTE lpData, LPDWORD lpcbData) {
  if (lpValueName == nullptr || lpcchValueName == nullptr || lpReserved != nullptr ||
      (lpData != nullptr && lpcbData == nullptr))
    return ERROR_INVALID_PARAMETER;
  OpenKey key;
  LONG rc = ResolveKey(hKey, KEY_QUERY_VALUE, key);
  if (rc != ERROR_SUCCESS) return rc;
  registry::StoredValue value;
  rc = key.hive->EnumValue(key.id, dwIndex, value);
  if (rc != ERROR_SUCCESS) return rc;
  rc = ReturnName(value.name, lpValueName, lpcchValueName);
  if (rc != ERROR_SUCCESS) return rc;
  if (lpType != nullptr) *lpType = value.type;
  return ReturnData(value.data, lpData, lpcbData);
}

LSTATUS RegQueryInfoKeyW(HKEY hKey, LPWSTR lpClass, LPDWORD lpcchClass, LPDWORD lpReserved,
                         LPDWORD lpcSubKeys, LPDWORD lpcbMaxSubKeyLen, LPDWORD lpcbMaxClassLen,
                         LPDWORD lpcValues, LPDWORD lpcbMaxValueNameLen, LPDWORD lpcbMaxValueLen,
                         LPDWORD lpcbSecurityDescriptor, PFILETIME lpftLastWriteTime) {
  if (lpReserved != nullptr || (lpClass != nullptr && lpcchClass == nullptr))
    return ERROR_INVALID_PARAMETER;
  OpenKey key;
  LONG rc = ResolveKey(hKey, KEY_QUERY_VALUE, key);
  if (rc != ERROR_SUCCESS) return rc;
  registry::KeyCounts counts;
  rc = key.hive->QueryCounts(key.id, counts);
  if (rc != ERROR_SUCCESS) return rc;
  rc = ReturnEmptyClass(lpClass, lpcchClass);
  if (rc != ERROR_SUCCESS) return rc;
  if (lpcSubKeys != nullptr) *lpcSubKeys = counts.subKeys;
  if (lpcbMaxSubKeyLen != nullptr) *lpcbMaxSubKeyLen = counts.maxSubKeyLength;
  if (lpcbMaxClassLen != nullptr) *lpcbMaxClassLen = 0;
  if (lpcValues != nullptr) *lpcValues = counts.values;
  if (lpcbMaxValueNameLen != nullptr) *lpcbMaxValueNameLen = counts.maxValueNameLength;
  if (lpcbMaxValueLen != nullptr) *lpcbMaxValueLen = counts.maxValueSize;
  if (lpcbSecurityDescriptor != nullptr) *lpcbSecurityDescriptor = 0;
  if (lpftLastWriteTime != nullptr) *lpftLastWriteTime = FILETIME{0, 0};
  return ERROR_SUCCESS;
}

LSTATUS RegSetValueW(HKEY hKey, LPCWSTR lpSubKey, DWORD dwType, LPCWSTR lpData, DWORD cbData) {
  if (dwType != REG_SZ || lpData == nullptr) return ERROR_INVALID_PARAMETER;
  HKEY target = hKey;
  bool const sub = lpSubKey != nullptr && *lpSubKey != L'\0';
  if (sub) {
    LONG const rc = RegCreateKeyExW(hKey, lpSubKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                    KEY_SET_VALUE, nullptr, &target, nullptr);
    if (rc != ERROR_SUCCESS) return rc;
  }
  auto const size = static_cast<DWORD>((std::wcslen(lpData) + 1) * sizeof(wchar_t));
  LONG const rc =
      RegSetValueExW(target, nullptr, 0, REG_SZ, reinterpret_cast<BYTE const *>(lpData), size);
  if (sub) RegCloseKey(target);
  return rc;
}

LSTATUS RegQueryValueW(HKEY hKey, LPCWSTR lpSubKey, LPWSTR lpData, PLONG lpcbData) {
  if (lpData != nullptr && lpcbData == nullptr) return ERROR_INVALID_PARAMETER;
  HKEY target = hKey;
  bool const sub = lpSubKey != nullptr && *lpSubKey != L'\0';
  if (sub) {
    LONG const rc = RegOpenKeyExW(hKey, lpSubKey, 0, KEY_QUERY_VALUE, &target);
    if (rc != ERROR_SUCCESS) return rc;
  }
  DWORD size = lpcbData != nullptr && *lpcbData > 0 ? static_cast<DWORD>(*lpcbData) : 0;
  LONG rc = RegQueryValueExW(target, nullptr, nullptr, nullptr, reinterpret_cast<BYTE *>(lpData),
                             lpcbData != nullptr ? &size : nullptr);
  if (rc == ERROR_FILE_NOT_FOUND) {
    // A key without a default value reads as the empty text.
    rc = ReturnData(std::string(sizeof(wchar_t), '\0'), reinterpret_cast<BYTE *>(lpData),
                    lpcbData != nullptr ? &size : nullptr);
  }
  if (lpcbData != nullptr) *lpcbData = static_cast<LONG>(size);
  if (sub) RegCloseKey(target);
  return rc;
}

LSTATUS RegFlushKey(HKEY hKey) {
  OpenKey key;
  LONG const rc = ResolveKey(hKey, 0, key);
  return rc != ERROR_SUCCESS ? rc : key.hive->Flush();
}
