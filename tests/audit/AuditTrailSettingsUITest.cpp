// The audit-trail settings: the administrator's policy merged one way over
// the user's, the prompt flag's two keys, the login name, and turning a
// trail on and off in the right order.
#include <gtest/gtest.h>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <optional>

#include "audit/AuditTrailSettingsUI.h"
#include "platform/WinReg.h"
#include "settings/RegistrySection.h"
#include "utl/AuditTrail.h"
#include "utl/Exception.h"
#include "utl/InMemorySection.h"
#include "utl/TestFiles.h"
#include "utl/VxSystemInfo.h"

namespace {

std::wstring Wide(std::string const & text) { return std::wstring(text.begin(), text.end()); }

// The administrator's key, emptied for each test.
class AuditSettingsTest : public ::testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication("AuditSample", "6.3.2.1");
    for (HKEY const root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER})
      RegDeleteTreeW(root, Wide(AuditTrailSettingsUI::GetRegistryKeyPath()).c_str());
  }
  static RegistrySection Machine() {
    return RegistrySection(HKEY_LOCAL_MACHINE, AuditTrailSettingsUI::GetRegistryKeyPath().c_str(),
                           KEY_ALL_ACCESS, true);
  }
  static RegistrySection User() {
    return RegistrySection(HKEY_CURRENT_USER, AuditTrailSettingsUI::GetRegistryKeyPath().c_str(),
                           KEY_ALL_ACCESS, true);
  }
};

TEST_F(AuditSettingsTest, TheKeyKeepsItsTrailingSeparator) {
  std::string const key = AuditTrailSettingsUI::GetRegistryKeyPath();
  EXPECT_EQ(key, "SOFTWARE\\Karvinel\\AuditSample\\6.3\\AuditTrail\\");
}

TEST_F(AuditSettingsTest, TheAdministratorsLevelTurnsOnButOnlyTwoOrMoreImposesItself) {
  struct Case {
    std::optional<int> admin;
    std::optional<int> user;
    std::optional<int> expected;
  };
  Case const cases[] = {
      {1, 3, 3},
      {2, 3, 2},
      {1, 0, 1},
      {1, std::nullopt, 1},
      {0, 3, 3},
      {5, 1, 5},
      {std::nullopt, 3, 3},
      {std::nullopt, std::nullopt, std::nullopt},
      {-1, 2, 2},
      {1, -4, -4},  // only an off of exactly 0 is turned on
  };
  for (Case const & c : cases) {
    SetUp();
    if (c.admin) Machine().WriteInt("LogEvents", *c.admin);
    InMemorySection section;
    if (c.user) section.WriteInt("LogEvents", *c.user);
    AuditTrailSettingsUI::ApplyAdminSettingsOnUserSettings(&section);
    int level = 12345;
    bool const has = section.ReadInt("LogEvents", level);
    EXPECT_EQ(has, c.expected.has_value()) << c.admin.value_or(-99) << "/" << c.user.value_or(-99);
    if (has && c.expected) EXPECT_EQ(level, *c.expected);
  }
}

TEST_F(AuditSettingsTest, TheAdministratorsFlagsOnlyTurnOn) {
  struct Case {
    std::optional<bool> admin;
    std::optional<bool> user;
    std::optional<bool> expected;
  };
  Case const cases[] = {
      {true, false, true},        {false, true, true},          {false, std::nullopt, false},
      {true, std::nullopt, true}, {std::nullopt, false, false}, {false, false, false},
  };
  for (char const * name : {"PromptForExtendedUserInfo", "LockedUI"}) {
    for (Case const & c : cases) {
      SetUp();
      if (c.admin) Machine().WriteBool(name, *c.admin);
      InMemorySection section;
      if (c.user) section.WriteBool(name, *c.user);
      AuditTrailSettingsUI::ApplyAdminSettingsOnUserSettings(&section);
      bool value = false;
      bool const has = section.ReadBool(name, value);
      EXPECT_EQ(has, c.expected.has_value()) << name;
      if (has && c.expected) EXPECT_EQ(value, *c.expected) << name;
    }
  }
}

TEST_F(AuditSettingsTest, ValuesOfAnotherTypeCountAsAbsent) {
  Machine().WriteKey("LogEvents", "3");
  Machine().WriteKey("LockedUI", "1");
  HKEY key = nullptr;
  ASSERT_EQ(
      RegOpenKeyExW(HKEY_LOCAL_MACHINE, Wide(AuditTrailSettingsUI::GetRegistryKeyPath()).c_str(), 0,
                    KEY_ALL_ACCESS, &key),
      ERROR_SUCCESS);
  uint64_t const wide = 1;
  RegSetValueExW(key, L"PromptForExtendedUserInfo", 0, REG_QWORD,
                 reinterpret_cast<BYTE const *>(&wide), sizeof wide);
  RegCloseKey(key);
  InMemorySection section;
  AuditTrailSettingsUI::ApplyAdminSettingsOnUserSettings(&section);
  for (char const * name : {"LogEvents", "LockedUI", "PromptForExtendedUserInfo"})
    EXPECT_FALSE(section.HasKey(name)) << name;
  EXPECT_FALSE(AuditTrailSettingsUI::GetPromptForExtendedUserInfo());
}

TEST_F(AuditSettingsTest, WithoutAnAdministratorKeyOnlyTheUserInformationIsWritten) {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, Wide(AuditTrailSettingsUI::GetRegistryKeyPath()).c_str());
  AuditTrailSettingsUI::SetExtendedUserInfo("QA reviewer, room 2");
  InMemorySection section;
  AuditTrailSettingsUI::ApplyAdminSettingsOnUserSettings(&section);
  std::string info;
  EXPECT_TRUE(section.ReadKey("ExtendedUserInfo", info));
  EXPECT_EQ(info, "QA reviewer, room 2");
  EXPECT_FALSE(section.HasKey("LogEvents"));
  EXPECT_FALSE(section.HasKey("LockedUI"));

  // The global settings are the same merge over nothing.
  Machine().WriteInt("LogEvents", 1);
  Machine().WriteBool("LockedUI", true);
  std::unique_ptr<ConfigurationSection> global(AuditTrailSettingsUI::GetGlobalAuditTrailSettings());
  AuditTrailSettings settings(global.release());
  settings.Load();
  EXPECT_EQ(settings.mLogLevel, 1);
  EXPECT_TRUE(settings.mLocked);
  EXPECT_EQ(settings.mExtendedUserInfo, "QA reviewer, room 2");
}

TEST_F(AuditSettingsTest, UserInformationIsKeptPerLoginNameFromThePasswordDatabase) {
  ::setenv("USER", "someone-else", 1);
  passwd const * self = ::getpwuid(::geteuid());
  ASSERT_NE(self, nullptr);
  EXPECT_EQ(AuditTrailSettingsUI::GetLoginName(), self->pw_name);

  AuditTrailSettingsUI::SetExtendedUserInfo("ann", "Reviewer");
  AuditTrailSettingsUI::SetExtendedUserInfo("", "ignored");
  AuditTrailSettingsUI::SetExtendedUserInfo(nullptr, "ignored");
  AuditTrailSettingsUI::SetExtendedUserInfo("ann", nullptr);  // keeps "Reviewer"
  EXPECT_EQ(AuditTrailSettingsUI::GetExtendedUserInfo("ann"), "Reviewer");
  EXPECT_EQ(AuditTrailSettingsUI::GetExtendedUserInfo("bob"), "");
  EXPECT_EQ(AuditTrailSettingsUI::GetExtendedUserInfo(""), "");
}

TEST_F(AuditSettingsTest, ThePromptFlagReadsTheAdministratorsTrueFirst) {
  struct Case {
    std::optional<bool> admin;
    std::optional<bool> user;
    bool expected;
  };
  Case const cases[] = {{true, false, true},
                        {false, true, true},
                        {std::nullopt, true, true},
                        {false, false, false},
                        {std::nullopt, std::nullopt, false}};
  for (Case const & c : cases) {
    SetUp();
    if (c.admin) Machine().WriteBool("PromptForExtendedUserInfo", *c.admin);
    if (c.user) User().WriteBool("PromptForExtendedUserInfo", *c.user);
    EXPECT_EQ(AuditTrailSettingsUI::GetPromptForExtendedUserInfo(), c.expected);
  }
  // Whoever may write the administrator's key writes there.
  AuditTrailSettingsUI::SetPromptForExtendedUserInfo(true);
  bool value = false;
  EXPECT_TRUE(Machine().ReadBool("PromptForExtendedUserInfo", value));
  EXPECT_TRUE(value);
  // As the hive's own tool sees it.
  std::string const command =
      "sqlite3 '" + std::string(std::getenv("TALVO_REGISTRY_SYSTEM_HIVE")) + "' .dump";
  FILE * dump = ::popen(command.c_str(), "r");
  ASSERT_NE(dump, nullptr);
  std::string text;
  char buffer[4096];
  for (size_t read = 0; (read = std::fread(buffer, 1, sizeof buffer, dump)) > 0;)
    text.append(buffer, read);
  ::pclose(dump);
  EXPECT_NE(text.find("PromptForExtendedUserInfo"), std::string::npos) << text.substr(0, 2000);
}

// Run in a child as an account that may not write the system hive: the
// write falls back to the user's own key. Skipped unless the parent asks.
TEST_F(AuditSettingsTest, UnprivilegedPromptProbe) {
  if (std::getenv("TALVO_AUDIT_PROBE") == nullptr) GTEST_SKIP() << "run by the test below";
  AuditTrailSettingsUI::SetPromptForExtendedUserInfo(true);
  bool value = false;
  RegistrySection const user(HKEY_CURRENT_USER, AuditTrailSettingsUI::GetRegistryKeyPath().c_str(),
                             KEY_READ, false);
  EXPECT_TRUE(user.ReadBool("PromptForExtendedUserInfo", value));
  EXPECT_TRUE(value);
  EXPECT_TRUE(AuditTrailSettingsUI::GetPromptForExtendedUserInfo());
}

TEST_F(AuditSettingsTest, AnAccountDeniedTheSystemHiveWritesThePromptFlagToItsOwn) {
  Machine().WriteInt("LogEvents", 1);  // the key exists, the flag does not
  std::string const system = std::getenv("TALVO_REGISTRY_SYSTEM_HIVE");
  std::string const before = Slurp(system);
  std::string const folder = Temp("probe");
  ::mkdir(folder.c_str(), 0777);
  ::chmod(folder.c_str(), 0777);
  std::string command = "TALVO_AUDIT_PROBE=1 TALVO_REGISTRY_USER_HIVE='" + folder +
                        "/user.db' XDG_CONFIG_HOME='" + folder + "' ";
  std::string const self = "'/proc/" + std::to_string(::getpid()) + "/exe'";
  if (::geteuid() == 0) {
    passwd const * nobody = ::getpwnam("nobody");
    ASSERT_NE(nobody, nullptr);
    // Let "nobody" reach the hive through the run's private folders.
    for (std::string at = system.substr(0, system.rfind('/')); at.size() > 1 && at != "/tmp";
         at = at.substr(0, at.rfind('/'))) {
      struct stat info {};
      ::stat(at.c_str(), &info);
      ::chmod(at.c_str(), (info.st_mode & 07777) | 0711);
    }
    ::chmod(system.c_str(), 0644);
    command += "/usr/bin/setpriv --reuid=" + std::to_string(nobody->pw_uid) +
               " --regid=" + std::to_string(nobody->pw_gid) + " --clear-groups -- ";
  } else {
    ::chmod(system.c_str(), 0444);
  }
  command += self + " --gtest_filter=AuditSettingsTest.UnprivilegedPromptProbe 2>&1";
  FILE * child = ::popen(command.c_str(), "r");
  ASSERT_NE(child, nullptr);
  std::string output;
  char buffer[256];
  while (std::fgets(buffer, sizeof buffer, child) != nullptr) output += buffer;
  int const status = ::pclose(child);
  if (::geteuid() != 0) ::chmod(system.c_str(), 0644);
  EXPECT_EQ(status, 0) << output;
  EXPECT_NE(output.find("[  PASSED  ] 1 test"), std::string::npos) << output;
  EXPECT_EQ(output.find("SKIPPED"), std::string::npos) << output;
  EXPECT_EQ(Slurp(system), before) << "the system hive is unchanged";
}

// A trail whose settings are kept in memory, with its signals counted.
class TrailLevelTest : public AuditSettingsTest {
protected:
  void SetUp() override {
    AuditSettingsTest::SetUp();
    path = Temp("level-" + std::to_string(++serial) + ".xml");
    auto * section = new InMemorySection;
    trail = std::make_unique<AuditTrail>(path.c_str(), section, Temp("keys"));
    trail->SetUserName("ann");
    connections[0] = AuditTrail::msAuditTrailActiveAuditTrailChanged.connect(
        [this](AuditTrail *) { ++broadcasts; });
    connections[1] = AuditTrail::msAuditTrailEndSession.connect([this](AuditTrail *) { ++ends; });
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (auto const & event : trail->GetEvents()) texts.push_back(event.type + ":" + event.text);
    return texts;
  }
  static inline int serial = 0;
  std::string path;
  std::unique_ptr<AuditTrail> trail;
  boost::signals2::scoped_connection connections[2];
  int broadcasts = 0;
  int ends = 0;
};

TEST_F(TrailLevelTest, TurningOnOpensASessionAndBroadcastsOnce) {
  AuditTrailSettingsUI::SetAuditTrailLogLevel(trail.get(), 1, true);
  EXPECT_EQ(trail->mSettings.mLogLevel, 1);
  EXPECT_TRUE(trail->mSettings.mPromptForExtendedUserInfo);
  int saved = 0;
  trail->mSettings.GetSection()->ReadInt("LogEvents", saved);
  EXPECT_EQ(saved, 1) << "the level is saved";
  ASSERT_FALSE(trail->GetEvents().empty());
  EXPECT_EQ(Texts().front().rfind("session-begin:", 0), 0u);
  EXPECT_EQ(Texts().back(), "event:Audit Trail turned on.");
  EXPECT_EQ(broadcasts, 1);

  // On to on: the flag is saved, nothing else happens.
  size_t const events = trail->GetEvents().size();
  AuditTrailSettingsUI::SetAuditTrailLogLevel(trail.get(), 2, false);
  EXPECT_EQ(trail->GetEvents().size(), events);
  EXPECT_EQ(broadcasts, 1);
  bool prompt = true;
  trail->mSettings.GetSection()->ReadBool("PromptForExtendedUserInfo", prompt);
  EXPECT_FALSE(prompt);

  // Off: the last event is written while logging is still on; the session
  // then ends (off, so without an event of its own) and is saved.
  AuditTrailSettingsUI::SetAuditTrailLogLevel(trail.get(), 0, false);
  std::vector<std::string> const texts = Texts();
  EXPECT_EQ(texts.back(), "event:Audit Trail turned off.");
  EXPECT_EQ(ends, 1);
  EXPECT_EQ(broadcasts, 2);
  EXPECT_FALSE(trail->IsModified()) << "saved";

  // Off to off: nothing.
  AuditTrailSettingsUI::SetAuditTrailLogLevel(trail.get(), -1, false);
  EXPECT_EQ(Texts(), texts);
  EXPECT_EQ(broadcasts, 2);
}

TEST_F(TrailLevelTest, ATamperedTrailRefusesToBeTurnedOn) {
  AuditTrailSettingsUI::SetAuditTrailLogLevel(trail.get(), 1, false);
  trail->AddEvent("Sample A measured.", "", 0);
  AuditTrailSettingsUI::SetAuditTrailLogLevel(trail.get(), 0, false);
  std::string text = Slurp(path);
  text.replace(text.find("Sample A"), 8, "Sample B");
  Spit(path, text);
  trail = std::make_unique<AuditTrail>(path.c_str(), new InMemorySection, Temp("keys"));
  EXPECT_THROW(AuditTrailSettingsUI::SetAuditTrailLogLevel(trail.get(), 1, false), Exception);
  EXPECT_EQ(Slurp(path), text) << "the refused file is left alone";
}

}  // namespace
