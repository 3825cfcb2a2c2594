// The customization package reader: finding the package, entries by name
// without regard to case, icons and their replacements, the application
// name, and packages that are damaged or hostile (limits checked at their edge).
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "frame/AppConfigPackage.h"
#include "frame/ZipPackageBuilder.h"
#include "utl/Exception.h"

namespace {

using frame_test::WriteZip;
using frame_test::ZipEntries;

class AppConfigPackageTest : public testing::Test {
protected:
  void SetUp() override {
    mFolder = std::filesystem::path(std::getenv("TMPDIR")) /
              testing::UnitTest::GetInstance()->current_test_info()->name();
    std::filesystem::remove_all(mFolder);
    std::filesystem::create_directories(mFolder);
  }
  std::string PathOf(std::string const & name) const { return (mFolder / name).string(); }
  std::string Zip(ZipEntries const & entries) { return WriteZip(PathOf("package.zip"), entries); }

  std::filesystem::path mFolder;
};

std::string Why(Exception const & e) { return e.Why(std::locale::classic()); }

TEST_F(AppConfigPackageTest, FindsTheFirstPackageByNameOnly) {
  ZipEntries const one{{"a.txt", "a"}};
  WriteZip(PathOf("b.appconfig"), one);
  WriteZip(PathOf("a.APPCONFIG"), one);
  std::filesystem::create_directory(mFolder / "0.appconfig");  // a folder is no package
  WriteZip(PathOf("0.appconfig.bak"), one);
  EXPECT_EQ(AppConfigPackage::FindPackage(mFolder.string()), PathOf("a.APPCONFIG"));
}

TEST_F(AppConfigPackageTest, EntriesAreFoundWithoutRegardToCase) {
  AppConfigPackage const package(Zip({{"About_Us.XAML", "<about/>"},
                                      {"about_us.xaml", "second"},
                                      {"data/notes.txt", "notes"}}),
                                 "memory");
  EXPECT_EQ(package.ReadFile("about_us.xaml"), "<about/>") << "the first of equal names wins";
  EXPECT_EQ(package.ReadFile("DATA/Notes.txt"), "notes");
  EXPECT_FALSE(package.HasEntry("notes.txt")) << "the folder is part of the name";
}

TEST_F(AppConfigPackageTest, IconsAreNumberedInArchiveOrderWithoutTheSplash) {
  AppConfigPackage const package(Zip({{"zeta.png", "z"},
                                      {"Splash.PNG", "s"},
                                      {"readme.txt", "r"},
                                      {"Alpha.Png", "a"},
                                      {"pictures/b.png", "b"},
                                      {"x.png.txt", "t"}}),
                                 "memory");
  EXPECT_EQ(package.IconEntryNames(),
            (std::vector<std::string>{"zeta.png", "Alpha.Png", "pictures/b.png"}));
  EXPECT_EQ(
      package.IconReplacements(),
      (std::map<std::string, std::string>{
          {"file://zeta.png", "1"}, {"file://Alpha.Png", "2"}, {"file://pictures/b.png", "3"}}));
}

TEST_F(AppConfigPackageTest, ApplicationNameFromTheConfigEntry) {
  struct Case {
    char const * xml;
    char const * expected;  // null: refused with an Exception
  };
  Case const cases[] = {
      {"<AppConfig><AppName>Renamed ☃</AppName></AppConfig>", "Renamed ☃"},
      {"<AppConfig><Other>x</Other></AppConfig>", ""},
      {"<Settings><AppName>Wrong root</AppName></Settings>", nullptr},
      {"<AppConfig><AppName>../escape</AppName></AppConfig>", nullptr},
      {"<AppConfig><AppName>a\\b</AppName></AppConfig>", nullptr},
      {"<AppConfig><AppName>not closed</AppConfig>", nullptr},
      {"<!DOCTYPE x [<!ENTITY e 'x'>]><AppConfig><AppName>&e;</AppName></AppConfig>", nullptr},
  };
  for (Case const & c : cases) {
    AppConfigPackage const package(Zip({{"APPCONFIG.xml", c.xml}}), "memory");
    if (c.expected != nullptr) {
      EXPECT_EQ(package.ReadAppName(), c.expected) << c.xml;
    } else {
      EXPECT_THROW(package.ReadAppName(), Exception) << c.xml;
    }
  }
  AppConfigPackage const without(Zip({{"other.xml", "<AppConfig/>"}}), "memory");
  EXPECT_EQ(without.ReadAppName(), "");
}

TEST_F(AppConfigPackageTest, DamagedOrHostilePackagesAreRefusedClearly) {
  std::string const good = Zip({{"splash.png", std::string(5000, 'x')}, {"b.txt", "bee"}});
  std::string corrupt = good;
  // Flip a byte inside the first entry's compressed data, which follows its
  // local header (30 bytes, then the name and the extra field whose lengths
  // stand at offsets 26 and 28): the checksum no longer matches.
  auto const word = [&](size_t at) {
    return size_t(static_cast<unsigned char>(good[at])) |
           size_t(static_cast<unsigned char>(good[at + 1])) << 8;
  };
  corrupt[30 + word(26) + word(28) + 2] ^= 0x55;

  AppConfigLimits small;
  small.maxEntryBytes = 4096;
  AppConfigLimits fewEntries;
  fewEntries.maxEntries = 1;
  AppConfigLimits tinyTotal;
  tinyTotal.maxTotalBytes = 5001;

  struct Case {
    char const * what;
    std::string bytes;
    AppConfigLimits limits;
    char const * expected;  // part of the message
  };
  Case const cases[] = {
      {"not a ZIP", "this is plain text, not an archive", {}, "not a readable ZIP archive"},
      {"truncated", good.substr(0, good.size() / 2), {}, "not a readable ZIP archive"},
      {"no end record", good.substr(0, good.size() - 10), {}, "not a readable ZIP archive"},
      {"corrupt data", corrupt, {}, "splash.png"},
      {"entry beyond the limit", good, small, "inflates beyond the limit"},
      {"all entries beyond the limit", good, tinyTotal, "inflates beyond the limit"},
      {"too many entries", good, fewEntries, "too many entries"},
  };
  for (Case const & c : cases) {
    try {
      AppConfigPackage const package(c.bytes, "hostile.appconfig", c.limits);
      ADD_FAILURE() << c.what << ": accepted";
    } catch (Exception const & e) {
      EXPECT_NE(Why(e).find("hostile.appconfig"), std::string::npos) << c.what << ": " << Why(e);
      EXPECT_NE(Why(e).find(c.expected), std::string::npos) << c.what << ": " << Why(e);
    }
  }
  AppConfigLimits const edge{good.size(), 5000, 5003, 2};  // each limit just reached passes
  EXPECT_EQ(AppConfigPackage(good, "good", edge).ReadFile("splash.png").size(), 5000u);
  EXPECT_THROW(AppConfigPackage(PathOf("missing.appconfig")), Exception);
  EXPECT_THROW(AppConfigPackage(mFolder.string()), Exception) << "a folder";
}

}  // namespace
