// The default launcher hands the target to the desktop's opener as one
// argument, never through a shell: a fake xdg-open first on PATH records
// what it was given.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "harness/GuiTestUtilities.h"
#include "settings/LaunchURL.h"
#include "utl/Utf.h"

namespace {

class DesktopLauncher : public testing::Test {
protected:
  void SetUp() override {
    std::string const tmp = std::getenv("TMPDIR");
    mBin = tmp + "/fake-bin";
    mRecord = tmp + "/opened";
    ASSERT_EQ(::mkdir(mBin.c_str(), 0755) == 0 || errno == EEXIST, true);
    std::string const opener = mBin + "/xdg-open";
    // One line per argument, then a marker, so that a split is visible.
    std::ofstream(opener) << "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > '"
                          << mRecord << ".part'\necho END >> '" << mRecord << ".part'\nmv '"
                          << mRecord << ".part' '" << mRecord << "'\n";
    ASSERT_EQ(::chmod(opener.c_str(), 0755), 0);
    mPath = std::getenv("PATH");
    ASSERT_EQ(::setenv("PATH", (mBin + ":" + mPath).c_str(), 1), 0);
    std::remove(mRecord.c_str());
  }
  void TearDown() override { ::setenv("PATH", mPath.c_str(), 1); }

  // What the fake opener received, once it has run.
  std::string Opened() {
    gui_test::WaitUntil([this] { return std::ifstream(mRecord).good(); });
    std::ifstream in(mRecord);
    std::ostringstream text;
    text << in.rdbuf();
    std::remove(mRecord.c_str());
    return text.str();
  }

  std::string mBin;
  std::string mRecord;
  std::string mPath;
};

TEST_F(DesktopLauncher, PassesUrlsAndPathsAsOneArgument) {
  EXPECT_TRUE(LaunchURL(L"https://example.org/?a=1&b=$(id);echo x", false));
  EXPECT_EQ(Opened(), "https://example.org/?a=1&b=$(id);echo x\nEND\n");
  std::string const document = std::string(std::getenv("TMPDIR")) + "/Ré sumé `id` $HOME.pdf";
  std::ofstream(document) << "%PDF";
  EXPECT_TRUE(LaunchURL(vx3::Utf8ToWide(document).c_str(), false));
  EXPECT_EQ(Opened(), document + "\nEND\n");
}

}  // namespace
