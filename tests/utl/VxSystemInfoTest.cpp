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

}  // namespace
