// The display-free half of the application object: data folders, the
// settings files, the layered subsystem settings, the plug-in folder and the
// profile. This binary never starts GTK, as a service process would not.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

#include "frame/AppProfile.h"
#include "frame/VxAppCore.h"
#include "frame/ZipPackageBuilder.h"
#include "settings/RegistryBaseKeyName.h"
#include "utl/CollectingUserComm.h"
#include "utl/ConfigurationSection.h"
#include "utl/Exception.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"
#include "utl/XercesXMLSection.h"

namespace {

namespace fs = std::filesystem;
using frame_test::ReadBytes;
using frame_test::WriteBytes;

// Each test gets its own user and all-users configuration folders.
class VxAppCoreTest : public testing::Test {
protected:
  void SetUp() override {
    mRoot = fs::path(std::getenv("TMPDIR")) /
            testing::UnitTest::GetInstance()->current_test_info()->name();
    fs::remove_all(mRoot);
    fs::create_directories(mRoot / "user");
    fs::create_directories(mRoot / "system");
    ::setenv("XDG_CONFIG_HOME", (mRoot / "user").c_str(), 1);
    ::setenv("XDG_CONFIG_DIRS", (mRoot / "system").c_str(), 1);
    VxSystemInfo::SetApplication("Core Test", "2.5.1.77");
  }

  fs::path UserFile() const { return mRoot / "user/Karvinel/Core Test/2.5/Core Test.kvxml"; }
  fs::path CommonFile() const { return mRoot / "system/Karvinel/Core Test/2.5/Core Test.kvxml"; }

  static std::string Read(ConfigurationSection const & section, char const * key) {
    std::string value = "(absent)";
    section.ReadKey(key, value);
    return value;
  }

  fs::path mRoot;
};

TEST_F(VxAppCoreTest, TheFirstRunWritesTheApplicationInfoAndALaterRunLeavesIt) {
  {
    VxAppCore core;
    core.SetRegistryLocation();
    ASSERT_NE(core.GetSettingsSection(), nullptr);
    EXPECT_TRUE(fs::is_directory(CommonFile().parent_path())) << "both folders are made";
    EXPECT_FALSE(fs::exists(UserFile())) << "nothing is written before the end";
  }
  XercesXMLSection written(UserFile().c_str(), false);
  ASSERT_TRUE(written.ChangeSubSection("AppSettings"));
  EXPECT_EQ(Read(written, "AppName"), "Core Test");

  written.WriteKey("AppName", "Edited");
  ASSERT_TRUE(written.Flush());
  VxSystemInfo::SetApplication("Core Test", "2.5.9");
  {
    VxAppCore core;
    core.SetRegistryLocation();
    EXPECT_EQ(Read(*core.GetSettingsSection(), "AppName"), "Edited");
  }
}

TEST_F(VxAppCoreTest, TheUserFileIsReadWhenSettingsAreFirstAskedFor) {
  // What the file says when settings are first asked for counts, not what
  // it said at SetRegistryLocation: an application may show its window
  // before anything of XML is loaded.
  VxAppCore core;
  core.SetRegistryLocation();
  fs::create_directories(UserFile().parent_path());
  WriteBytes(UserFile().string(),
             "<Settings><Section name=\"AppSettings\"><Key name=\"AppName\">Core Test</Key>"
             "<Section name=\"Late\"><Key name=\"K\">written after</Key></Section>"
             "</Section></Settings>");
  std::unique_ptr<ConfigurationSection> section(core.GetAppSettings("Late", 0));
  EXPECT_EQ(Read(*section, "K"), "written after");
  // Later changes of the file are not read again: the process owns it now.
  WriteBytes(UserFile().string(), "<Settings/>");
  EXPECT_EQ(Read(*core.GetSettingsSection(), "AppName"), "Core Test");
}

TEST_F(VxAppCoreTest, ADamagedSettingsFileIsKeptAsideAndTheSessionIsSaved) {
  fs::create_directories(UserFile().parent_path());
  std::string const damaged = "<?xml version=\"1.0\"?>\n<Settings><Section name=\"AppSet";
  WriteBytes(UserFile().string(), damaged);
  CollectingUserComm channel;
  {
    VxAppCore core;
    EXPECT_NO_THROW(core.SetRegistryLocation());
    std::unique_ptr<ConfigurationSection> section(core.GetAppSettings("Lists", 0));
    ASSERT_NE(section, nullptr);
    section->WriteKey("Columns", "3");
  }
  std::vector<fs::path> aside;
  for (auto const & entry : fs::directory_iterator(UserFile().parent_path()))
    if (entry.path().filename().string().rfind("Core Test.kvxml.damaged-", 0) == 0)
      aside.push_back(entry.path());
  ASSERT_EQ(aside.size(), 1u);
  EXPECT_EQ(ReadBytes(aside[0].string()), damaged);
  XercesXMLSection saved(UserFile().c_str(), false);
  ASSERT_TRUE(saved.ChangeSubSection("AppSettings"));
  EXPECT_EQ(Read(saved, "AppName"), "Core Test");
  ASSERT_TRUE(saved.ChangeSubSection("Lists"));
  EXPECT_EQ(Read(saved, "Columns"), "3");
  ASSERT_EQ(channel.told.size(), 1u);
  EXPECT_NE(channel.told[0].find(UserFile().string()), std::string::npos) << channel.told[0];
}

TEST_F(VxAppCoreTest, SettingsAreLayeredUserFirstThenAllUsersThenDefaults) {
  fs::create_directories(UserFile().parent_path());
  fs::create_directories(CommonFile().parent_path());
  WriteBytes(UserFile().string(),
             "<Settings><Section name=\"AppSettings\">"
             "<Section name=\"Mine\"><Key name=\"From\">user</Key></Section>"
             "</Section></Settings>");
  WriteBytes(CommonFile().string(),
             "<Settings><Section name=\"AppSettings\">"
             "<Section name=\"Mine\"><Key name=\"From\">common</Key></Section>"
             "<Section name=\"Shared\"><Key name=\"From\">common</Key></Section>"
             "</Section></Settings>");
  VxAppCore core;
  core.SetRegistryLocation();
  std::vector<unsigned int> asked;
  core.SetDefaultsReader([&](unsigned int id) -> std::string {
    asked.push_back(id);
    if (id == 700)
      return "<Settings><Section name=\"AppSettings\">"
             "<Section name=\"Mine\"><Key name=\"From\">defaults</Key></Section>"
             "<Section name=\"Shared\"><Key name=\"From\">defaults</Key></Section>"
             "<Section name=\"Fresh\"><Key name=\"From\">defaults</Key>"
             "<Section name=\"Inner\"><Key name=\"Deep\">yes</Key></Section></Section>"
             "</Section></Settings>";
    if (id == 701)  // no "AppSettings": the root is looked at instead
      return "<Settings><Section name=\"Bare\"><Key name=\"From\">root</Key></Section></Settings>";
    if (id == 702) return "<Settings><Section name=\"Broken\">";
    throw Exception(ExceptionMessage::translate("No resource {1}.") % int(id));
  });

  struct Case {
    char const * name;
    unsigned int resource;
    std::string from;  // the key "From" of the result
  };
  Case const cases[] = {
      {"Mine", 700, "user"},        // the user's own section wins
      {"Shared", 700, "(absent)"},  // all-users has it: a new, empty section
      {"Fresh", 700, "defaults"},   // copied from the defaults document
      {"Bare", 701, "root"},
      {"Fresh", 0, "defaults"},      // made by the call above: now the user's
      {"Broken", 702, "(absent)"},   // an unreadable document counts as absent
      {"Missing", 703, "(absent)"},  // and so does a missing one
      {"Nothing", 0, "(absent)"},
  };
  for (Case const & c : cases) {
    std::unique_ptr<ConfigurationSection> section(core.GetAppSettings(c.name, c.resource));
    ASSERT_NE(section, nullptr) << c.name;
    EXPECT_EQ(Read(*section, "From"), c.from) << c.name << " " << c.resource;
  }
  EXPECT_EQ(asked, (std::vector<unsigned int>{700, 701, 702, 703})) << "each read once";

  std::unique_ptr<ConfigurationSection> inner(core.GetAppSettings("Fresh", 0));
  ASSERT_TRUE(inner->ChangeSubSection("Inner"));
  EXPECT_EQ(Read(*inner, "Deep"), "yes") << "sections of a defaults document come along";

  // What was made lands in the user's file at the end, the all-users file
  // is never written.
  std::string const commonBefore = ReadBytes(CommonFile().string());
  core.GetSettingsSection()->Flush();
  XercesXMLSection saved(UserFile().c_str(), false);
  ASSERT_TRUE(saved.ChangeSubSection("AppSettings"));
  EXPECT_TRUE(saved.HasSection("Fresh", 1));
  EXPECT_TRUE(saved.HasSection("Nothing", 1));
  EXPECT_EQ(ReadBytes(CommonFile().string()), commonBefore);
}

TEST_F(VxAppCoreTest, AnAllUsersFileThatChangesIsReadAgain) {
  fs::create_directories(CommonFile().parent_path());
  auto const common = [&](char const * sections) {
    WriteBytes(CommonFile().string(), std::string("<Settings><Section name=\"AppSettings\">") +
                                          sections + "</Section></Settings>");
  };
  VxAppCore core;
  core.SetRegistryLocation();
  core.SetDefaultsReader([](unsigned int) {
    return std::string(
        "<Settings><Section name=\"AppSettings\"><Section name=\"A\">"
        "<Key name=\"K\">default</Key></Section></Section></Settings>");
  });
  common("<Section name=\"B\"/>");
  std::unique_ptr<ConfigurationSection> first(core.GetAppSettings("A", 1));
  EXPECT_EQ(Read(*first, "K"), "default");
  first->DeleteSection();
  // Now the all-users file names "A" (a longer file, so the change shows
  // whatever the clock's resolution): the new section starts empty.
  common("<Section name=\"A\"><Key name=\"K\">common</Key></Section>");
  std::unique_ptr<ConfigurationSection> second(core.GetAppSettings("A", 1));
  EXPECT_EQ(Read(*second, "K"), "(absent)");
  second->DeleteSection();
  // An unreadable all-users file counts as absent.
  common("<Section name=\"A\">");
  std::unique_ptr<ConfigurationSection> third(core.GetAppSettings("A", 1));
  EXPECT_EQ(Read(*third, "K"), "default");
}

TEST_F(VxAppCoreTest, TheProfileLivesUnderTheRegistryBase) {
  EXPECT_TRUE(AppProfile::WriteProfileInt("Window", "Left", -25));
  EXPECT_TRUE(AppProfile::WriteProfileString("Window", "Placement", "0,1,10,20 ☃"));
  EXPECT_EQ(AppProfile::GetProfileInt("window", "LEFT", 0), -25);
  EXPECT_EQ(AppProfile::GetProfileString("WINDOW", "placement", ""), "0,1,10,20 ☃");
  EXPECT_EQ(AppProfile::GetProfileInt("Window", "Placement", 7), 7) << "only its own type";
  EXPECT_TRUE(AppProfile::WriteProfileString("Window", "Placement", nullptr));
  EXPECT_EQ(AppProfile::GetProfileString("Window", "Placement", "gone"), "gone");
  EXPECT_TRUE(AppProfile::WriteProfileString("Window", nullptr, nullptr));  // the whole section
  EXPECT_EQ(AppProfile::GetProfileInt("Window", "Left", 0), 0);

  // Removing what is not there succeeds, and makes no key to remove it from.
  struct Removal {
    char const * section;
    char const * entry;
  } const removals[] = {
      {"Window", "Never written"}, {"No such section", "Entry"}, {"No such section", nullptr}};
  AppProfile::WriteProfileInt("Window", "Left", 3);
  for (Removal const & r : removals) {
    SCOPED_TRACE(std::string(r.section) + "/" + (r.entry != nullptr ? r.entry : "(section)"));
    EXPECT_TRUE(AppProfile::WriteProfileString(r.section, r.entry, nullptr));
    EXPECT_TRUE(AppProfile::WriteProfileString(r.section, r.entry, nullptr)) << "a second time";
  }
  EXPECT_EQ(AppProfile::GetProfileInt("Window", "Left", 0), 3);
  HKEY absent = nullptr;
  std::wstring const missing = vx3::Utf8ToWide(GetRegistryBaseKeyName() + "\\No such section");
  EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, missing.c_str(), 0, KEY_READ, &absent),
            ERROR_FILE_NOT_FOUND);

  // Another application version has a profile of its own.
  AppProfile::WriteProfileInt("Window", "Left", 5);
  VxSystemInfo::SetApplication("Core Test", "2.6");
  EXPECT_EQ(AppProfile::GetProfileInt("Window", "Left", 0), 0);
}

TEST(ServiceProcess, NeverLoadsGtk) {
  // Everything above ran in this process: none of it may pull in GTK, or a
  // service without a display could not use it.
  std::string const maps = frame_test::ReadBytes("/proc/self/maps");
  ASSERT_FALSE(maps.empty());
  EXPECT_EQ(maps.find("libgtk-3"), std::string::npos);
  EXPECT_EQ(maps.find("libwx_gtk3"), std::string::npos);
}

}  // namespace
