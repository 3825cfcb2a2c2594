// Settings files that cannot be used: the user's damaged file is kept byte
// for byte beside a new one that takes the session's settings, a file that
// cannot be read is left alone and never written, and each is told once
// and logged with its path and the parser's reason.
#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

#include "CollectingUserComm.h"
#include "TestFiles.h"
#include "utl/Log.h"
#include "utl/SettingsFileOpening.h"
#include "utl/XercesXMLSection.h"

namespace {

// The names in `folder` that start with `prefix`.
std::vector<std::string> Named(std::string const & folder, std::string const & prefix) {
  std::vector<std::string> names;
  if (DIR * directory = ::opendir(folder.c_str())) {
    while (dirent const * entry = ::readdir(directory))
      if (std::string(entry->d_name).rfind(prefix, 0) == 0) names.push_back(entry->d_name);
    ::closedir(directory);
  }
  return names;
}

std::string FreshFolder(std::string const & name) {
  std::string folder = Temp(name);
  VxCreateFolder(folder);
  return folder;
}

TEST(SettingsFileOpening, ADamagedUserFileIsKeptAsideAndTheSessionWritesANewOne) {
  struct Case {
    char const * what;
    std::string bytes;
    char const * reason;  // part of the parser's reason
  };
  Case const cases[] = {
      {"broken XML", "<Settings format=\"1\"><Key name=\"a\">1</Section>", "line 1"},
      {"cut short", "<?xml version=\"1.0\"?>\n<Settings format=\"1\">\n  <Key name=\"a\">", "line"},
      {"another root", "<Other/>", "<Other>"},
      {"binary", std::string("\x89PNG\r\n\x1a\n\0\0", 10), "cannot be read"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    CollectingUserComm channel;
    std::string const folder = FreshFolder(std::string("damaged-") + c.what);
    std::string const path = VxPathAppend(folder, "App.kvxml");
    Spit(path, c.bytes);

    std::unique_ptr<XercesXMLSection> settings = vx3::OpenUserSettingsFile(path);
    ASSERT_NE(settings, nullptr);
    EXPECT_TRUE(settings->IsEmpty());
    std::vector<std::string> const aside = Named(folder, "App.kvxml.damaged-");
    ASSERT_EQ(aside.size(), 1u);
    EXPECT_EQ(Slurp(VxPathAppend(folder, aside[0])), c.bytes) << "kept byte for byte";

    EXPECT_TRUE(settings->WriteKey("Kept", "from this session"));
    ASSERT_TRUE(settings->Flush());
    XercesXMLSection again(path.c_str(), false);
    std::string value;
    EXPECT_TRUE(again.ReadKey("Kept", value));
    EXPECT_EQ(value, "from this session");

    ASSERT_EQ(channel.told.size(), 1u);
    EXPECT_NE(channel.told[0].find(path), std::string::npos) << channel.told[0];
    EXPECT_NE(channel.told[0].find(aside[0]), std::string::npos) << channel.told[0];
    EXPECT_NE(channel.told[0].find(c.reason), std::string::npos) << channel.told[0];
    EXPECT_NE(Slurp(Log::GetLogFilePath()).find("is damaged and was kept as " + folder),
              std::string::npos);

    // Damaged again in the same run: kept again, logged again, not asked again.
    Spit(path, c.bytes);
    EXPECT_NE(vx3::OpenUserSettingsFile(path), nullptr);
    EXPECT_EQ(Named(folder, "App.kvxml.damaged-").size(), 2u);
    EXPECT_EQ(channel.told.size(), 1u);
  }
}

TEST(SettingsFileOpening, AFileThatCannotBeReadIsLeftAloneAndNotWritten) {
  CollectingUserComm channel;
  std::string const folder = FreshFolder("unreadable");
  // A folder where the file should be: nothing to parse, so nothing proves
  // damage, and nothing may be moved or written over it.
  std::string const path = VxPathAppend(folder, "App.kvxml");
  VxCreateFolder(path);
  EXPECT_EQ(vx3::OpenUserSettingsFile(path), nullptr);
  EXPECT_EQ(vx3::OpenUserSettingsFile(path), nullptr);
  EXPECT_EQ(VxFileExist(path), VxFolder);
  EXPECT_TRUE(Named(folder, "App.kvxml.damaged-").empty());
  ASSERT_EQ(channel.told.size(), 1u);
  EXPECT_NE(channel.told[0].find(path), std::string::npos) << channel.told[0];
  EXPECT_NE(channel.told[0].find("will not be saved"), std::string::npos) << channel.told[0];
}

TEST(SettingsFileOpening, ADamagedFileForAllUsersIsReportedButNeverMoved) {
  CollectingUserComm channel;
  std::string const folder = FreshFolder("shared");
  std::string const path = VxPathAppend(folder, "App.kvxml");
  Spit(path, "<Settings>");
  EXPECT_EQ(vx3::OpenSharedSettingsFile(path), nullptr);
  EXPECT_EQ(vx3::OpenSharedSettingsFile(path), nullptr);
  EXPECT_EQ(Slurp(path), "<Settings>");
  EXPECT_TRUE(Named(folder, "App.kvxml.damaged-").empty());
  ASSERT_EQ(channel.told.size(), 1u);
  EXPECT_NE(channel.told[0].find(path), std::string::npos) << channel.told[0];

  // A good file and a missing one are simply opened.
  Spit(path, "<Settings format=\"1\"><Key name=\"K\">v</Key></Settings>");
  std::unique_ptr<XercesXMLSection> const good = vx3::OpenSharedSettingsFile(path);
  ASSERT_NE(good, nullptr);
  EXPECT_TRUE(good->HasKey("K"));
  EXPECT_NE(vx3::OpenUserSettingsFile(VxPathAppend(folder, "New.kvxml")), nullptr);
  EXPECT_EQ(channel.told.size(), 1u);
}

TEST(SettingsFileOpening, AProblemMetBeforeAnyChannelIsToldThroughTheFirstOne) {
  UserComm * const before = UserComm::SetUserComm(nullptr);
  vx3::ForgetReportedFiles();
  std::string const folder = FreshFolder("early");
  std::string const path = VxPathAppend(folder, "App.kvxml");
  Spit(path, "<Settings>");
  EXPECT_EQ(vx3::OpenSharedSettingsFile(path), nullptr);
  EXPECT_NE(Slurp(Log::GetLogFilePath()).find(path), std::string::npos) << "logged at once";
  {
    CollectingUserComm channel(CollectingUserComm::TakingWhatWaits);
    ASSERT_EQ(channel.told.size(), 1u);
    EXPECT_NE(channel.told[0].find(path), std::string::npos) << channel.told[0];
    EXPECT_EQ(vx3::OpenSharedSettingsFile(path), nullptr);
    EXPECT_EQ(channel.told.size(), 1u);
  }
  {
    CollectingUserComm later(CollectingUserComm::TakingWhatWaits);
    EXPECT_TRUE(later.told.empty()) << "told once only";
  }
  UserComm::SetUserComm(before);
}

TEST(SettingsFileOpening, ProblemsHeldDuringAStartAreToldWhenReleased) {
  CollectingUserComm channel;
  vx3::HoldFileProblems();
  std::string const path = VxPathAppend(FreshFolder("held"), "App.kvxml");
  Spit(path, "<Settings>");
  EXPECT_EQ(vx3::OpenSharedSettingsFile(path), nullptr);
  {
    CollectingUserComm installedMeanwhile(CollectingUserComm::TakingWhatWaits);
    EXPECT_TRUE(installedMeanwhile.told.empty()) << "a new channel does not end the hold";
  }
  EXPECT_TRUE(channel.told.empty());
  vx3::ReleaseFileProblems();
  ASSERT_EQ(channel.told.size(), 1u);
  EXPECT_NE(channel.told[0].find(path), std::string::npos) << channel.told[0];
  vx3::ReleaseFileProblems();
  EXPECT_EQ(channel.told.size(), 1u) << "told once";
}

}  // namespace
