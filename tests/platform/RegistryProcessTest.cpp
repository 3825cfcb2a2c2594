// Hives used by several processes at once, a writer killed in the middle, and
// a user who may read the system hive but not write it.
#include <gtest/gtest.h>

#include <pwd.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <map>
#include <sstream>

#include "ChildProcess.h"
#include "RegistryTestSupport.h"

namespace {

std::string Helper() { return VxGetExecutableDirectory() + "/registry_test_child"; }

// The hive's own consistency check, on a connection of its own.
std::string IntegrityCheck(std::string const & path) {
  sqlite3 * db = nullptr;
  std::string result = "cannot open";
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
    sqlite3_stmt * statement = nullptr;
    sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &statement, nullptr);
    if (sqlite3_step(statement) == SQLITE_ROW)
      result = reinterpret_cast<char const *>(sqlite3_column_text(statement, 0));
    sqlite3_finalize(statement);
  }
  sqlite3_close(db);
  return result;
}

class RegistryProcesses : public RegistryTest {
protected:
  // Checks that HKEY_CURRENT_USER\`path` holds prefix0 = 0 ... and returns
  // how many there are; they must form an unbroken run from 0.
  static DWORD CountRun(wchar_t const * path, std::wstring const & prefix) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key), ERROR_SUCCESS);
    DWORD count = 0;
    for (;; ++count) {
      DWORD value = 0xFFFFFFFF, size = sizeof value;
      std::wstring const name = prefix + std::to_wstring(count);
      if (RegQueryValueExW(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE *>(&value),
                           &size) != ERROR_SUCCESS)
        break;
      EXPECT_EQ(value, count);
    }
    RegCloseKey(key);
    return count;
  }
  static DWORD ValueCount(wchar_t const * path) {
    HKEY key = Create(HKEY_CURRENT_USER, path);
    DWORD values = 0;
    EXPECT_EQ(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values,
                               nullptr, nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(key);
    return values;
  }
};

TEST_F(RegistryProcesses, FourWritersAtOnceLoseNothing) {
  constexpr int kWriters = 4;
  constexpr long kEach = 10000;
  ChildProcess writers[kWriters];
  for (int w = 0; w < kWriters; ++w)
    ASSERT_TRUE(writers[w].Start({Helper(), "write", "Software\\Stress",
                                  "w" + std::to_string(w) + "-", std::to_string(kEach)}));
  for (ChildProcess & writer : writers) EXPECT_EQ(writer.Wait(), 0);
  EXPECT_EQ(ValueCount(L"Software\\Stress"), static_cast<DWORD>(kWriters * kEach));
  for (int w = 0; w < kWriters; ++w)
    EXPECT_EQ(CountRun(L"Software\\Stress", L"w" + std::to_wstring(w) + L"-"),
              static_cast<DWORD>(kEach));
  EXPECT_EQ(IntegrityCheck(UserHive()), "ok");
}

TEST_F(RegistryProcesses, AWriterKilledMidWayLeavesEveryCommittedValue) {
  ChildProcess writer;
  // Bounded, so that it ends by itself if the kill never came.
  ASSERT_TRUE(writer.Start({Helper(), "write", "Software\\Killed", "v", "200000", "--report"}));
  constexpr size_t kAcknowledged = 400;
  ASSERT_TRUE(writer.ReadBytes(kAcknowledged));  // each byte follows one commit
  ::kill(writer.pid, SIGKILL);
  EXPECT_EQ(writer.Wait(), 128 + SIGKILL);

  EXPECT_EQ(IntegrityCheck(UserHive()), "ok");
  DWORD const present = CountRun(L"Software\\Killed", L"v");
  EXPECT_GE(present, static_cast<DWORD>(kAcknowledged));
  EXPECT_EQ(ValueCount(L"Software\\Killed"), present) << "no value beyond an unbroken run";
  HKEY key = Create(HKEY_CURRENT_USER, L"Software\\Killed");
  EXPECT_EQ(SetDword(key, L"after", 1), ERROR_SUCCESS);
  RegCloseKey(key);
  EXPECT_TRUE(registry::TakeNotices().empty()) << "the hive was not taken for damaged";
}

class UnprivilegedUser : public RegistryTest {
protected:
  // Runs the probe as "nobody" (when the tests run as root, as in CI) or as
  // this user, against a system hive file that user cannot write, in a
  // folder that user can enter but not change; returns "<what> <code>" as a
  // map.
  std::map<std::string, long> Probe() {
    std::string const folder = VxGetDirectory(SystemHive());
    std::vector<std::string> command = {Helper(), "probe", "SOFTWARE\\Locked"};
    if (::geteuid() == 0) {
      // The temporary root of the run is root's alone: let others pass.
      for (std::string at = folder; at.size() > 1 && at != "/tmp"; at = VxGetDirectory(at)) {
        struct stat info {};
        ::stat(at.c_str(), &info);
        ::chmod(at.c_str(), (info.st_mode & 07777) | 0711);
        if (VxGetFileName(at).rfind("talvo-test.", 0) == 0) break;
      }
      ::chmod(folder.c_str(), 0755);
      ::chmod(SystemHive().c_str(), 0644);
      struct passwd const * nobody = ::getpwnam("nobody");
      if (nobody == nullptr) return {};
      command.insert(command.begin(),
                     {"/usr/bin/setpriv", "--reuid=" + std::to_string(nobody->pw_uid),
                      "--regid=" + std::to_string(nobody->pw_gid), "--clear-groups", "--"});
    } else {
      ::chmod(SystemHive().c_str(), 0444);
      ::chmod(folder.c_str(), 0555);
    }
    ChildProcess probe;
    if (!probe.Start(command, {{"TALVO_REGISTRY_USER_HIVE", mFolder + "/probe/user.db"}}))
      return {};
    std::istringstream lines(probe.ReadAll());
    int const exit = probe.Wait();
    if (::geteuid() != 0) ::chmod(folder.c_str(), 0755);
    std::map<std::string, long> results;
    results["exit"] = exit;
    for (std::string what; lines >> what;) lines >> results[what];
    return results;
  }
};

TEST_F(UnprivilegedUser, ReadsTheSystemHiveAndIsDeniedEveryChange) {
  HKEY key = Create(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Locked");
  ASSERT_EQ(SetDword(key, L"Setting", 42), ERROR_SUCCESS);
  RegCloseKey(key);
  registry::CloseHives();
  std::string const before = FileBytes(SystemHive());

  auto const results = Probe();
  ASSERT_EQ(results.count("exit"), 1u) << "the probe did not run";
  EXPECT_EQ(results.at("exit"), 0);
  long const ok = ERROR_SUCCESS, denied = ERROR_ACCESS_DENIED;
  std::map<std::string, long> const expected = {{"open-read", ok},
                                                {"query", ok},
                                                {"value", 42},
                                                {"enumerate", ok},
                                                {"query-info", ok},
                                                {"set-through-read-handle", denied},
                                                {"open-write", denied},
                                                {"open-maximum-allowed", ok},
                                                {"set-through-maximum-allowed", denied},
                                                {"create-existing-for-reading", ok},
                                                {"create-existing-for-writing", denied},
                                                {"create-new", denied},
                                                {"set-on-predefined", denied},
                                                {"set-legacy", denied},
                                                {"delete-value", denied},
                                                {"delete-key", denied},
                                                {"delete-tree", denied},
                                                {"flush", ok}};
  for (auto const & [what, code] : expected) {
    auto const found = results.find(what);
    ASSERT_NE(found, results.end()) << what;
    EXPECT_EQ(found->second, code) << what;
  }
  EXPECT_EQ(FileBytes(SystemHive()), before) << "the hive is unchanged";
}

TEST_F(UnprivilegedUser, ADamagedSystemHiveItCannotReplaceIsLeftAlone) {
  ASSERT_TRUE(VxCreateFolder(VxGetDirectory(SystemHive())));
  std::string const garbage = "this is no database, but an administrator's file\n";
  std::ofstream(SystemHive(), std::ios::binary) << garbage;

  auto const results = Probe();
  ASSERT_EQ(results.count("exit"), 1u) << "the probe did not run";
  EXPECT_EQ(results.at("open-read"), ERROR_FILE_NOT_FOUND) << "an empty hive";
  EXPECT_EQ(results.at("create-new"), ERROR_ACCESS_DENIED);
  EXPECT_EQ(FileBytes(SystemHive()), garbage);
  for (char const * suffix : {"-wal", "-shm", ".lock"})
    EXPECT_EQ(VxFileExist(SystemHive() + suffix), VxNothing) << suffix;
}

}  // namespace
