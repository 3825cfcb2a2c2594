// The runner gives every binary private folders: a test that writes settings
// must never touch the developer's home, and two binaries never share state.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "utl/Paths.h"

namespace {

std::string Env(char const * name) {
  char const * value = std::getenv(name);
  return value != nullptr ? value : "";
}

TEST(Isolation, EveryFolderIsPrivateAndExists) {
  std::string const home = Env("HOME");
  ASSERT_FALSE(home.empty());
  // All folders live in one fresh temporary root, not under /root or /home.
  std::string const root = VxGetDirectory(home);
  EXPECT_NE(root.find("talvo-test."), std::string::npos) << root;
  for (char const * name : {"HOME", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME",
                            "XDG_CACHE_HOME", "XDG_STATE_HOME", "TMPDIR"}) {
    std::string const value = Env(name);
    EXPECT_EQ(VxGetDirectory(value), root) << name << "=" << value;
    EXPECT_EQ(VxFileExist(value), VxFolder) << name;
  }
}

TEST(Isolation, RegistryHivesLieInTheTemporaryRoot) {
  std::string const root = VxGetDirectory(Env("HOME"));
  for (char const * name : {"TALVO_REGISTRY_USER_HIVE", "TALVO_REGISTRY_SYSTEM_HIVE"}) {
    std::string const hive = Env(name);
    EXPECT_EQ(hive.compare(0, root.size() + 1, root + "/"), 0) << name << "=" << hive;
  }
}

TEST(Isolation, UnitBinariesHaveNoDisplay) { EXPECT_EQ(std::getenv("DISPLAY"), nullptr); }

}  // namespace
