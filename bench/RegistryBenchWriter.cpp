// One of the four writer processes of the registry throughput figure:
//
//   talvo-bench-registry-writer registry PREFIX COUNT
//       COUNT DWORD values PREFIX0... under HKEY_CURRENT_USER\Software\Bench,
//       each its own committed change through the registry functions
//   talvo-bench-registry-writer sqlite FILE PREFIX COUNT
//       the same rows with a bare insert-or-replace, each in its own
//       transaction, into a plain table of FILE (WAL, synchronous=NORMAL)
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/WinReg.h"
#include "utl/Utf.h"

namespace {

int Registry(std::string const & prefix, long count) {
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Bench", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                      &key, nullptr) != ERROR_SUCCESS)
    return 2;
  std::wstring const wide = vx3::Utf8ToWide(prefix);
  for (long i = 0; i < count; ++i) {
    auto const value = static_cast<DWORD>(i);
    if (RegSetValueExW(key, (wide + std::to_wstring(i)).c_str(), 0, REG_DWORD,
                       reinterpret_cast<BYTE const *>(&value), sizeof value) != ERROR_SUCCESS)
      return 2;
  }
  RegCloseKey(key);
  return 0;
}

int Sqlite(char const * file, std::string const & prefix, long count) {
  sqlite3 * db = nullptr;
  if (sqlite3_open(file, &db) != SQLITE_OK) return 2;
  sqlite3_busy_timeout(db, 30000);
  sqlite3_exec(db, "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL", nullptr, nullptr,
               nullptr);
  sqlite3_stmt * insert = nullptr;
  sqlite3_prepare_v2(db, "INSERT OR REPLACE INTO vals(name, type, data) VALUES(?1, 4, ?2)", -1,
                     &insert, nullptr);
  int failures = insert == nullptr ? 1 : 0;
  for (long i = 0; i < count && failures == 0; ++i) {
    auto const value = static_cast<uint32_t>(i);
    std::string const name = prefix + std::to_string(i);
    failures += sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK;
    sqlite3_bind_text(insert, 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    sqlite3_bind_blob(insert, 2, &value, sizeof value, SQLITE_STATIC);
    failures += sqlite3_step(insert) != SQLITE_DONE;
    sqlite3_reset(insert);
    failures += sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK;
  }
  sqlite3_finalize(insert);
  sqlite3_close(db);
  return failures == 0 ? 0 : 2;
}

}  // namespace

int main(int argc, char ** argv) {
  if (argc == 4 && std::strcmp(argv[1], "registry") == 0)
    return Registry(argv[2], std::atol(argv[3]));
  if (argc == 5 && std::strcmp(argv[1], "sqlite") == 0)
    return Sqlite(argv[2], argv[3], std::atol(argv[4]));
  std::fprintf(stderr,
               "usage: talvo-bench-registry-writer registry PREFIX COUNT | sqlite FILE "
               "PREFIX COUNT\n");
  return 64;
}
