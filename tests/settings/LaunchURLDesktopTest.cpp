// The default launcher hands the target to the desktop's opener as one
// argument, never through a shell: a fake xdg-open first on PATH records
// what it was given.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdlib>
#include <fstream>

#include "harness/GuiTestUtilities.h"
#include "settings/LaunchURL.h"
#include "utl/TestFiles.h"
#include "utl/Utf.h"

namespace {

TEST(DesktopLauncher, PassesUrlsAndPathsAsOneArgument) {
  std::string const record = Temp("opened");
  ASSERT_TRUE(VxCreateFolder(Temp("fake-bin")));
  // One line per argument, then a marker, so that a split is visible.
  Spit(Temp("fake-bin/xdg-open"), "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > '" +
                                      record + ".part'\necho END >> '" + record + ".part'\nmv '" +
                                      record + ".part' '" + record + "'\n");
  ASSERT_EQ(::chmod(Temp("fake-bin/xdg-open").c_str(), 0755), 0);
  std::string const path = std::getenv("PATH");
  ASSERT_EQ(::setenv("PATH", (Temp("fake-bin") + ":" + path).c_str(), 1), 0);
  // What the fake opener received, once it has run.
  auto const opened = [&record] {
    gui_test::WaitUntil([&record] { return std::ifstream(record).good(); });
    std::string text = Slurp(record);
    std::remove(record.c_str());
    return text;
  };

  EXPECT_TRUE(LaunchURL(L"https://example.org/?a=1&b=$(id);echo x", false));
  EXPECT_EQ(opened(), "https://example.org/?a=1&b=$(id);echo x\nEND\n");
  std::string const document = Temp("Ré sumé `id` $HOME.pdf");
  Spit(document, "%PDF");
  EXPECT_TRUE(LaunchURL(vx3::Utf8ToWide(document).c_str(), false));
  EXPECT_EQ(opened(), document + "\nEND\n");
  ::setenv("PATH", path.c_str(), 1);
}

}  // namespace
