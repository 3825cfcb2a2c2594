// The application's name and version in the forms the library uses.
#include <gtest/gtest.h>

#include "utl/VxSystemInfo.h"

namespace {

TEST(VxSystemInfo, VersionFormatsForDisplayPathsAndBuild) {
  VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
  EXPECT_EQ(VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionDisplay), "6.3.2");
  EXPECT_EQ(VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionFull), "6.3.2.1234");
  EXPECT_EQ(VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionPath), "6.3");
  EXPECT_EQ(VxSystemInfo::GetApplicationVersionAndBuild(), "6.3.2 (build 1234)");
  EXPECT_EQ(VxSystemInfo::GetApplicationVersion(static_cast<VxSystemInfo::EVersionFormat>(0)),
            "6.3.2");
}

TEST(VxSystemInfo, ShortOrMalformedVersionsFillWithZero) {
  VxSystemInfo::SetApplication("A", "7");
  EXPECT_EQ(VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionFull), "7.0.0.0");
  VxSystemInfo::SetApplication("A", "2.x.-1.9.9");
  EXPECT_EQ(VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionFull), "2.0.0.9");
  VxSystemInfo::SetApplication("A", "");
  EXPECT_EQ(VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionPath), "0.0");
}

TEST(VxSystemInfo, SupportPageTakesOnlyWebAddressesAndSurvivesRenaming) {
  EXPECT_EQ(VxSystemInfo::GetSupportPage(), VxSystemInfo::kDefaultSupportPage);
  struct Case {
    char const * address;
    bool taken;
  };
  Case const cases[] = {
      {"https://help.example.org/crash?id=1", true},
      {"http://intranet/support", true},
      {"", false},
      {"https://", false},
      {"file:///etc/passwd", false},
      {"javascript:alert(1)", false},
      {"https://a.example/ page", false},
      {"https://a.example/\npage", false},
  };
  std::string expected = VxSystemInfo::GetSupportPage();
  for (Case const & c : cases) {
    SCOPED_TRACE(c.address);
    EXPECT_EQ(VxSystemInfo::SetSupportPage(c.address), c.taken);
    if (c.taken) expected = c.address;
    EXPECT_EQ(VxSystemInfo::GetSupportPage(), expected);
  }
  VxSystemInfo::SetApplication("Renamed", "1.0");
  EXPECT_EQ(VxSystemInfo::GetSupportPage(), expected);
}

}  // namespace
