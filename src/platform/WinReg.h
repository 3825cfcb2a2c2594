#pragma once
// The registry functions with Win32 semantics, on the store of hives in
// SQLite databases (see RegistryStore.h for where the hives lie).
//
// HKEY_CURRENT_USER is the per-user hive, HKEY_LOCAL_MACHINE the
// system-wide one; HKEY_CLASSES_ROOT is HKEY_LOCAL_MACHINE\SOFTWARE\Classes.
// Names of keys and values are case-insensitive and keep their case; sub-keys
// enumerate sorted without regard to case, values in creation order. Every
// change is one transaction, seen at once by every process on the hive; a
// RegistryTransaction (RegistryTransaction.h) groups several.
//
// Differences from Windows, by design: keys carry no class, security
// descriptor or last-write time (they read as empty and zero); there are no
// volatile keys (REG_OPTION_VOLATILE makes a lasting key) and no links. Who may
// write a hive is who may write its file: a process that cannot gets
// ERROR_ACCESS_DENIED for every change and for every open that asks for a
// right to change.

#include "platform/WinError.h"
#include "platform/WinTypes.h"

struct HKEY__;
using HKEY = HKEY__ *;
using PHKEY = HKEY *;
using REGSAM = ACCESS_MASK;
using PLONG = LONG *;

// Predefined keys: the 32-bit values sign-extended to a pointer, as on Windows.
#define TALVO_PREDEFINED_HKEY(value) \
  (reinterpret_cast<HKEY>(           \
      static_cast<intptr_t>(static_cast<int32_t>(static_cast<uint32_t>(value)))))
#define HKEY_CLASSES_ROOT TALVO_PREDEFINED_HKEY(0x80000000u)
#define HKEY_CURRENT_USER TALVO_PREDEFINED_HKEY(0x80000001u)
#define HKEY_LOCAL_MACHINE TALVO_PREDEFINED_HKEY(0x80000002u)
#define HKEY_USERS TALVO_PREDEFINED_HKEY(0x80000003u)
#define HKEY_CURRENT_CONFIG TALVO_PREDEFINED_HKEY(0x80000005u)

// Value types.
constexpr DWORD REG_NONE = 0;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_DWORD_LITTLE_ENDIAN = 4;
constexpr DWORD REG_DWORD_BIG_ENDIAN = 5;
constexpr DWORD REG_LINK = 6;
constexpr DWORD REG_MULTI_SZ = 7;
constexpr DWORD REG_RESOURCE_LIST = 8;
constexpr DWORD REG_FULL_RESOURCE_DESCRIPTOR = 9;
constexpr DWORD REG_RESOURCE_REQUIREMENTS_LIST = 10;
constexpr DWORD REG_QWORD = 11;
constexpr DWORD REG_QWORD_LITTLE_ENDIAN = 11;

// Standard and generic access rights.
constexpr ACCESS_MASK DELETE = 0x00010000;
constexpr ACCESS_MASK READ_CONTROL = 0x00020000;
constexpr ACCESS_MASK WRITE_DAC = 0x00040000;
constexpr ACCESS_MASK WRITE_OWNER = 0x00080000;
constexpr ACCESS_MASK SYNCHRONIZE = 0x00100000;
constexpr ACCESS_MASK STANDARD_RIGHTS_READ = READ_CONTROL;
constexpr ACCESS_MASK STANDARD_RIGHTS_WRITE = READ_CONTROL;
constexpr ACCESS_MASK STANDARD_RIGHTS_ALL = 0x001F0000;
constexpr ACCESS_MASK MAXIMUM_ALLOWED = 0x02000000;
constexpr ACCESS_MASK GENERIC_ALL = 0x10000000;
constexpr ACCESS_MASK GENERIC_EXECUTE = 0x20000000;
constexpr ACCESS_MASK GENERIC_WRITE = 0x40000000;
constexpr ACCESS_MASK GENERIC_READ = 0x80000000;

// Key access rights.
constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
constexpr REGSAM KEY_SET_VALUE = 0x0002;
constexpr REGSAM KEY_CREATE_SUB_KEY = 0x0004;
constexpr REGSAM KEY_ENUMERATE_SUB_KEYS = 0x0008;
constexpr REGSAM KEY_NOTIFY = 0x0010;
constexpr REGSAM KEY_CREATE_LINK = 0x0020;
constexpr REGSAM KEY_WOW64_64KEY = 0x0100;
constexpr REGSAM KEY_WOW64_32KEY = 0x0200;
constexpr REGSAM KEY_WOW64_RES = 0x0300;
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr REGSAM KEY_EXECUTE = 0x20019;
constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

// Options and dispositions of RegCreateKeyExW.
constexpr DWORD REG_OPTION_RESERVED = 0;
constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
constexpr DWORD REG_OPTION_VOLATILE = 1;
constexpr DWORD REG_OPTION_CREATE_LINK = 2;
constexpr DWORD REG_OPTION_BACKUP_RESTORE = 4;
constexpr DWORD REG_OPTION_OPEN_LINK = 8;
constexpr DWORD REG_CREATED_NEW_KEY = 1;
constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

// Limits: characters of one key name (one path element) and of a value
// name; bytes of a value's data (the store's own limit: Windows names only
// "available memory").
constexpr DWORD REG_MAX_KEY_NAME_LENGTH = 255;
constexpr DWORD REG_MAX_VALUE_NAME_LENGTH = 16383;
constexpr DWORD REG_MAX_VALUE_SIZE = 16u * 1024 * 1024;

LSTATUS RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD ulOptions, REGSAM samDesired,
                      PHKEY phkResult);
LSTATUS RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD Reserved, LPWSTR lpClass,
                        DWORD dwOptions, REGSAM samDesired,
                        LPSECURITY_ATTRIBUTES lpSecurityAttributes, PHKEY phkResult,
                        LPDWORD lpdwDisposition);
LSTATUS RegCloseKey(HKEY hKey);
LSTATUS RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType,
                         LPBYTE lpData, LPDWORD lpcbData);
LSTATUS RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD Reserved, DWORD dwType,
                       BYTE const * lpData, DWORD cbData);
LSTATUS RegDeleteKeyW(HKEY hKey, LPCWSTR lpSubKey);
LSTATUS RegDeleteTreeW(HKEY hKey, LPCWSTR lpSubKey);
LSTATUS RegDeleteValueW(HKEY hKey, LPCWSTR lpValueName);
LSTATUS RegEnumKeyExW(HKEY hKey, DWORD dwIndex, LPWSTR lpName, LPDWORD lpcchName,
                      LPDWORD lpReserved, LPWSTR lpClass, LPDWORD lpcchClass,
                      PFILETIME lpftLastWriteTime);
LSTATUS RegEnumValueW(HKEY hKey, DWORD dwIndex, LPWSTR lpValueName, LPDWORD lpcchValueName,
                      LPDWORD lpReserved, LPDWORD lpType, LPBYTE lpData, LPDWORD lpcbData);
LSTATUS RegQueryInfoKeyW(HKEY hKey, LPWSTR lpClass, LPDWORD lpcchClass, LPDWORD lpReserved,
                         LPDWORD lpcSubKeys, LPDWORD lpcbMaxSubKeyLen, LPDWORD lpcbMaxClassLen,
                         LPDWORD lpcValues, LPDWORD lpcbMaxValueNameLen, LPDWORD lpcbMaxValueLen,
                         LPDWORD lpcbSecurityDescriptor, PFILETIME lpftLastWriteTime);
// The legacy pair on the default value of a sub-key (REG_SZ only; the size
// written is that of the text with its terminator, whatever cbData says).
LSTATUS RegSetValueW(HKEY hKey, LPCWSTR lpSubKey, DWORD dwType, LPCWSTR lpData, DWORD cbData);
LSTATUS RegQueryValueW(HKEY hKey, LPCWSTR lpSubKey, LPWSTR lpData, PLONG lpcbData);
// Makes the hive's committed changes durable on disk (a change is atomic and
// safe from a crash of the process at once; this adds safety from a crash of
// the machine).
LSTATUS RegFlushKey(HKEY hKey);
