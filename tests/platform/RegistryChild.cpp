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
  for (long i = 0; rc == ERROR_SUCCESS && i < count; ++i) {
    auto const value = static_cast<DWORD>(i);
    rc = RegSetValueExW(key, (prefix + std::to_wstring(i)).c_str(), 0, REG_DWORD,
                        reinterpret_cast<BYTE const *>(&value), sizeof value);
    if (rc == ERROR_SUCCESS && report && ::write(STDOUT_FILENO, "+", 1) != 1) return 3;
  }
  if (rc != ERROR_SUCCESS) std::fprintf(stderr, "registry error %d\n", static_cast<int>(rc));
  RegCloseKey(key);
  return rc == ERROR_SUCCESS ? 0 : 2;
}

void Print(char const * what, LONG code) { std::printf("%s %d\n", what, static_cast<int>(code)); }

// Prints the code of an open or create; the key made, or null when it failed.
HKEY Opened(char const * what, LONG code, HKEY const & key) {
  Print(what, code);
  return code == ERROR_SUCCESS ? key : nullptr;
}

int Probe(std::wstring const & path) {
  HKEY key = nullptr;
  Print("open-read", RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key));
  DWORD value = 0;
  DWORD size = sizeof value;
  Print("query", RegQueryValueExW(key, L"Setting", nullptr, nullptr,
                                  reinterpret_cast<BYTE *>(&value), &size));
  std::printf("value %u\n", static_cast<unsigned>(value));
  wchar_t name[64];
  DWORD length = 64;
  Print("enumerate", RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr));
  Print("query-info", RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                       &size, nullptr, nullptr, nullptr, nullptr));
  DWORD const one = 1;
  auto const * data = reinterpret_cast<BYTE const *>(&one);
  Print("set-through-read-handle", RegSetValueExW(key, L"Setting", 0, REG_DWORD, data, 4));
  RegCloseKey(key);

  auto const open = [&](REGSAM access) {
    return RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, access, &key);
  };
  auto const create = [&](std::wstring const & at, REGSAM access) {
    return RegCreateKeyExW(HKEY_LOCAL_MACHINE, at.c_str(), 0, nullptr, 0, access, nullptr, &key,
                           nullptr);
  };
  RegCloseKey(Opened("open-write", open(KEY_WRITE), key));
  if (HKEY all = Opened("open-maximum-allowed", open(MAXIMUM_ALLOWED), key)) {
    Print("set-through-maximum-allowed", RegSetValueExW(all, L"Setting", 0, REG_DWORD, data, 4));
    RegCloseKey(all);
  }
  RegCloseKey(Opened("create-existing-for-reading", create(path, KEY_READ), key));
  RegCloseKey(Opened("create-existing-for-writing", create(path, KEY_WRITE), key));
  RegCloseKey(Opened("create-new", create(path + L"\\New", KEY_READ), key));
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
