// The hive files: how a new one is made, and what becomes of a file that is
// no hive.
#include <gtest/gtest.h>

#include <dirent.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <set>
#include <thread>

#include <wx/init.h>

#include "RegistryTestSupport.h"
#include "utl/CollectingUserComm.h"
#include "utl/Log.h"

namespace {

std::set<std::string> FilesIn(std::string const & folder) {
  std::set<std::string> names;
  if (DIR * dir = ::opendir(folder.c_str())) {
    while (dirent const * entry = ::readdir(dir))
      if (entry->d_name[0] != '.') names.insert(entry->d_name);
    ::closedir(dir);
  }
  return names;
}

unsigned Mode(std::string const & path) {
  struct stat info {};
  ::stat(path.c_str(), &info);
  return info.st_mode & 0777;
}

class RegistryHive : public RegistryTest {
protected:
  // A valid hive whose table pages are overwritten: SQLite opens it, only the
  // check finds the damage.
  static std::string TornHive(std::string const & path) {
    ::setenv("TALVO_REGISTRY_USER_HIVE", path.c_str(), 1);
    registry::CloseHives();
    HKEY key = Create(HKEY_CURRENT_USER, L"Software");
    std::vector<BYTE> const data(3000, 0x5A);
    for (int i = 0; i < 20; ++i)
      RegSetValueExW(key, std::to_wstring(i).c_str(), 0, REG_BINARY, data.data(), 3000);
    RegCloseKey(key);
    registry::CloseHives();
    std::string bytes = FileBytes(path);
    for (size_t at = 4096; at < bytes.size() && at < 3 * 4096; ++at) bytes[at] = '\x5A';
    return bytes;
  }

  static std::string ForeignDatabase(std::string const & path) {
    sqlite3 * db = nullptr;
    sqlite3_open(path.c_str(), &db);
    sqlite3_exec(db, "CREATE TABLE notes(text);", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return FileBytes(path);
  }
};

TEST_F(RegistryHive, ANewHiveAppearsCompleteWithTheRightPermissions) {
  EXPECT_EQ(VxFileExist(UserHive()), VxNothing) << "made on first use only";
  RegCloseKey(Create(HKEY_CURRENT_USER, L"Software"));
  RegCloseKey(Create(HKEY_LOCAL_MACHINE, L"SOFTWARE"));
  EXPECT_EQ(Mode(UserHive()), 0600u) << "a user's settings are private";
  EXPECT_EQ(Mode(SystemHive()), 0644u) << "every user reads the system hive";
  registry::CloseHives();
  // The WAL files stay for readers that cannot make them; nothing else is left.
  EXPECT_EQ(
      FilesIn(VxGetDirectory(SystemHive())),
      (std::set<std::string>{"system.db", "system.db-shm", "system.db-wal", "system.db.lock"}));
}

TEST_F(RegistryHive, AFileThatIsNoHiveIsKeptAsideAndReplaced) {
  struct Case {
    char const * what;
    std::string bytes;
  } const cases[] = {
      {"text", "REGEDIT4\n\n[HKEY_CURRENT_USER\\Software]\n"},
      {"an empty file", ""},
      {"another application's database", ForeignDatabase(mFolder + "/foreign.db")},
      {"a hive with torn pages", TornHive(mFolder + "/torn.db")},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    std::string const folder = mFolder + "/" + std::to_string(&c - cases);
    ASSERT_TRUE(VxCreateFolder(folder));
    std::string const hive = folder + "/user.db";
    std::ofstream(hive, std::ios::binary) << c.bytes;
    ::setenv("TALVO_REGISTRY_USER_HIVE", hive.c_str(), 1);
    registry::CloseHives();
    registry::TakeNotices();

    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND)
        << "the application goes on with an empty hive";
    key = Create(HKEY_CURRENT_USER, L"Software");
    EXPECT_EQ(SetDword(key, L"works", 1), ERROR_SUCCESS);
    RegCloseKey(key);

    auto const notices = registry::TakeNotices();
    ASSERT_EQ(notices.size(), 1u);
    std::string const text = notices[0].ToString(std::locale::classic());
    EXPECT_NE(text.find(hive + " was damaged"), std::string::npos) << text;
    std::string aside;
    for (std::string const & name : FilesIn(folder))
      if (name.rfind("user.db.damaged-", 0) == 0 && name.find("-wal") == std::string::npos &&
          name.find("-shm") == std::string::npos)
        aside = folder + "/" + name;
    ASSERT_FALSE(aside.empty()) << "the damaged file is kept";
    EXPECT_EQ(FileBytes(aside), c.bytes);
    EXPECT_NE(text.find(aside), std::string::npos) << "the notice says where";
    EXPECT_NE(FileBytes(Log::GetLogFilePath()).find(text), std::string::npos) << "and it is logged";
  }
}

TEST_F(RegistryHive, TheUserIsToldOnceAboutADamagedHiveThroughTheChannel) {
  CollectingUserComm channel;
  std::string const hive = mFolder + "/told.db";
  ::setenv("TALVO_REGISTRY_USER_HIVE", hive.c_str(), 1);
  for (int damage = 0; damage < 2; ++damage) {
    SCOPED_TRACE(damage);
    std::ofstream(hive, std::ios::binary) << "not a hive at all, but long enough to be read";
    registry::CloseHives();
    HKEY key = Create(HKEY_CURRENT_USER, L"Software");
    RegCloseKey(key);
    EXPECT_TRUE(registry::TakeNotices().empty()) << "the channel has taken them";
  }
  // The second damage of the same file is logged, but not told again.
  std::string const log = FileBytes(Log::GetLogFilePath());
  size_t const first = log.find(hive + " was damaged (file is not a database)");
  ASSERT_NE(first, std::string::npos) << log;
  EXPECT_NE(log.find(hive + " was damaged", first + 1), std::string::npos) << log;
  ASSERT_EQ(channel.told.size(), 1u);
  EXPECT_NE(channel.told[0].find(hive + " was damaged (file is not a database)"), std::string::npos)
      << channel.told[0];
  EXPECT_NE(channel.told[0].find(hive + ".damaged-"), std::string::npos) << channel.told[0];
}

TEST_F(RegistryHive, AWorkerThreadLeavesTheNoticeToTheMainThread) {
  wxInitializer wx;  // knows the main thread from here on
  ASSERT_TRUE(wx.IsOk());
  CollectingUserComm channel;
  std::string const hive = mFolder + "/worker.db";
  ::setenv("TALVO_REGISTRY_USER_HIVE", hive.c_str(), 1);
  std::ofstream(hive, std::ios::binary) << "not a hive at all, but long enough to be read";
  registry::CloseHives();
  std::thread([] { RegCloseKey(Create(HKEY_CURRENT_USER, L"Software")); }).join();
  EXPECT_TRUE(channel.told.empty()) << "a channel may show a dialog: not from a worker";
  RegCloseKey(Create(HKEY_CURRENT_USER, L"Software"));
  ASSERT_EQ(channel.told.size(), 1u);
  EXPECT_NE(channel.told[0].find(hive + " was damaged"), std::string::npos) << channel.told[0];
}

TEST_F(RegistryHive, AHiveWithWorkInItsLogIsNoDamage) {
  // A hive whose last changes still lie in its -wal file (as after a crash
  // before any checkpoint) opens with them.
  HKEY key = Create(HKEY_CURRENT_USER, L"Software");
  ASSERT_EQ(SetDword(key, L"in the log", 5), ERROR_SUCCESS);
  RegCloseKey(key);
  std::string const copy = mFolder + "/copy.db";
  for (char const * suffix : {"", "-wal"}) {
    std::ofstream(copy + suffix, std::ios::binary) << FileBytes(UserHive() + suffix);
    ::chmod((copy + suffix).c_str(), 0600);
  }
  EXPECT_GT(FileBytes(copy + "-wal").size(), 0u);
  ::setenv("TALVO_REGISTRY_USER_HIVE", copy.c_str(), 1);
  registry::CloseHives();
  ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key), ERROR_SUCCESS);
  DWORD type = 0;
  std::string data;
  EXPECT_EQ(Query(key, L"in the log", type, data), ERROR_SUCCESS);
  RegCloseKey(key);
  EXPECT_TRUE(registry::TakeNotices().empty());
}

}  // namespace
