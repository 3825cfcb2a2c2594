// A process of its own against the hives that the environment names, for
// the tests that need several processes or another user.
//
//   registry_test_child write KEY PREFIX COUNT [--report]
//       Writes the DWORD values PREFIX0 = 0 ... PREFIX<COUNT-1> under
//       HKEY_CURRENT_USER\KEY, one committed change each; with --report one
//       byte goes to stdout after each commit. Exit 0 when all were written.
//   registry_test_child probe KEY
//       Tries every kind of read and change on HKEY_LOCAL_MACHINE\KEY (which
//       holds the DWORD "Setting") and prints one line "<what> <code>" each.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/WinReg.h"
#include "utl/Utf.h"

namespace {

int Write(std::wstring const & path, std::wstring const & prefix, long count, bool report) {
  HKEY key = nullptr;
  LONG rc = RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                            &key, nullptr);
  if (rc != ERROR_SUCCESS) {
    std::fprintf(stderr, "create: %d\n", static_cast<int>(rc));
    return 2;
  }
  for (long i = 0; i < count; ++i) {
    auto const value = static_cast<DWORD>(i);
    std::wstring const name = prefix + std::to_wstring(i);
    rc = RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<BYTE const *>(&value),
                        sizeof value);
    if (rc != ERROR_SUCCESS) {
      std::fprintf(stderr, "set %ld: %d\n", i, static_cast<int>(rc));
      return 2;
    }
    if (report && ::write(STDOUT_FILENO, "+", 1) != 1) return 3;
  }
  RegCloseKey(key);
  return 0;
}

void Print(char const * what, LONG code) { std::printf("%s %d\n", what, static_cast<int>(code)); }

int Probe(std::wstring const & path) {
  HKEY key = nullptr;
  LONG rc = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key);
  Print("open-read", rc);
  DWORD value = 0;
  DWORD size = sizeof value;
  Print("query", RegQueryValueExW(key, L"Setting", nullptr, nullptr,
                                  reinterpret_cast<BYTE *>(&value), &size));
  std::printf("value %u\n", static_cast<unsigned>(value));
  wchar_t name[64];
  DWORD length = 64;
  Print("enumerate", RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr));
  DWORD values = 0;
  Print("query-info", RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                       &values, nullptr, nullptr, nullptr, nullptr));
  DWORD const one = 1;
  auto const * data = reinterpret_cast<BYTE const *>(&one);
  Print("set-through-read-handle", RegSetValueExW(key, L"Setting", 0, REG_DWORD, data, 4));
  RegCloseKey(key);

  HKEY other = nullptr;
  rc = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_WRITE, &other);
  Print("open-write", rc);
  if (rc == ERROR_SUCCESS) RegCloseKey(other);
  rc = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, MAXIMUM_ALLOWED, &other);
  Print("open-maximum-allowed", rc);
  if (rc == ERROR_SUCCESS) {
    Print("set-through-maximum-allowed", RegSetValueExW(other, L"Setting", 0, REG_DWORD, data, 4));
    RegCloseKey(other);
  }
  rc = RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &other,
                       nullptr);
  Print("create-existing-for-reading", rc);
  if (rc == ERROR_SUCCESS) RegCloseKey(other);
  Print("create-existing-for-writing", RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr,
                                                       0, KEY_WRITE, nullptr, &other, nullptr));
  std::wstring const child = path + L"\\New";
  Print("create-new", RegCreateKeyExW(HKEY_LOCAL_MACHINE, child.c_str(), 0, nullptr, 0, KEY_READ,
                                      nullptr, &other, nullptr));
  Print("set-on-predefined", RegSetValueExW(HKEY_LOCAL_MACHINE, L"x", 0, REG_DWORD, data, 4));
  Print("set-legacy", RegSetValueW(HKEY_LOCAL_MACHINE, path.c_str(), REG_SZ, L"x", 0));
  Print("delete-value", RegDeleteValueW(HKEY_LOCAL_MACHINE, L"Setting"));
  Print("delete-key", RegDeleteKeyW(HKEY_LOCAL_MACHINE, path.c_str()));
  Print("delete-tree", RegDeleteTreeW(HKEY_LOCAL_MACHINE, path.c_str()));
  Print("flush", RegFlushKey(HKEY_LOCAL_MACHINE));
  return 0;
}

}  // namespace

int main(int argc, char ** argv) {
  if (argc >= 5 && std::strcmp(argv[1], "write") == 0) {
    bool const report = argc >= 6 && std::strcmp(argv[5], "--report") == 0;
    return Write(vx3::Utf8ToWide(argv[2]), vx3::Utf8ToWide(argv[3]), std::atol(argv[4]), report);
  }
  if (argc == 3 && std::strcmp(argv[1], "probe") == 0) return Probe(vx3::Utf8ToWide(argv[2]));
  std::fprintf(stderr,
               "usage: registry_test_child write KEY PREFIX COUNT [--report] | probe KEY\n");
  return 64;
}
