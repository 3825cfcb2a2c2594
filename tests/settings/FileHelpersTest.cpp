// Folder removal, write checks, path equivalence, the temp folder and the
// executable's location, on real files in the test's own temp folder.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>

#include "settings/VxCanCreateFile.h"
#include "settings/VxEquivalentPaths.h"
#include "settings/VxExecutablePath.h"
#include "settings/VxGetTempPath.h"
#include "settings/VxRemoveDirectory.h"
#include "utl/Paths.h"
#include "utl/TestFiles.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

namespace {

// Each test works in a folder of its own under the binary's own TMPDIR.
class FileHelpers : public testing::Test {
protected:
  void SetUp() override {
    mRoot = Temp(testing::UnitTest::GetInstance()->current_test_info()->name());
    ASSERT_TRUE(VxCreateFolder(mRoot));
  }
  std::string Path(std::string const & name) const { return VxPathAppend(mRoot, name); }
  void Write(std::string const & name, std::string const & text = "x") const {
    Spit(Path(name), text);
  }
  void Folder(std::string const & name) const { ASSERT_TRUE(VxCreateFolder(Path(name))); }

  std::string mRoot;
};

TEST_F(FileHelpers, RemoveDirectoryRemovesATreeButNoLinkTarget) {
  Folder("outside");
  Write("outside/precious", "keep me");
  Folder("tree/a/b");
  Write("tree/a/b/.hidden");
  ASSERT_EQ(::symlink(Path("outside").c_str(), Path("tree/a/folderLink").c_str()), 0);
  ASSERT_EQ(::symlink(Path("outside/precious").c_str(), Path("tree/fileLink").c_str()), 0);
  ASSERT_EQ(::symlink("/nonexistent", Path("tree/a/b/dangling").c_str()), 0);

  EXPECT_TRUE(VxRemoveDirectory(Path("tree")));
  EXPECT_EQ(VxFileExist(Path("tree")), VxNothing);
  EXPECT_EQ(Slurp(Path("outside/precious")), "keep me") << "a link is removed as a link";

  ASSERT_EQ(::symlink(Path("outside").c_str(), Path("link").c_str()), 0);
  EXPECT_FALSE(VxRemoveDirectory(Path("link"))) << "the path itself is a link";
  EXPECT_EQ(VxFileExist(Path("outside/precious")), VxFile);
  EXPECT_FALSE(VxRemoveDirectory(Path("outside/precious")));
  EXPECT_FALSE(VxRemoveDirectory(Path("missing")));
}

TEST_F(FileHelpers, CanCreateFileByWhatStandsThere) {
  Write("existing", "content");
  Folder("folder");
  struct Case {
    std::string path;
    bool expected;
    int existed;
  };
  Case const cases[] = {
      {Path("existing"), true, VxFile},
      {Path("new"), true, VxNothing},
      {Path("folder"), false, VxFolder},
      {Path("no/such/folder/file"), false, VxNothing},
  };
  for (Case const & c : cases) {
    std::string error = "unchanged";
    int existed = -1;
    EXPECT_EQ(VxCanCreateFile(c.path, &error, &existed), c.expected) << c.path;
    EXPECT_EQ(existed, c.existed) << c.path;
    if (c.expected || c.existed == VxFolder)
      EXPECT_EQ(error, "unchanged") << c.path;
    else
      EXPECT_NE(error.find(c.path), std::string::npos) << error;
  }
  EXPECT_EQ(VxFileExist(Path("new")), VxNothing) << "the test file is removed";
  EXPECT_EQ(Slurp(Path("existing")), "content") << "an existing file is not changed";
}

TEST_F(FileHelpers, EquivalentPathsCompareFilesOrNormalisedText) {
  Folder("dir/sub");
  Write("dir/file");
  ASSERT_EQ(::link(Path("dir/file").c_str(), Path("hard").c_str()), 0);
  ASSERT_EQ(::symlink(Path("dir").c_str(), Path("soft").c_str()), 0);
  ASSERT_EQ(::chdir(mRoot.c_str()), 0);
  struct Case {
    std::string a;
    std::string b;
    bool same;
  };
  Case const cases[] = {
      {Path("dir/file"), "dir//sub/../file", true},
      {Path("dir/file"), Path("hard"), true},
      {Path("dir/file"), Path("soft/file"), true},
      {Path("dir/File"), Path("dir/file"), false},
      {Path("dir/gone"), "./dir/sub/../gone/", true},  // missing: compared as text
      {Path("dir/gone"), Path("dir/Gone"), false},
      {Path("dir/gone"), Path("dir/file"), false},
      {"", "", false},
  };
  for (Case const & c : cases)
    EXPECT_EQ(VxEquivalentPaths(c.a.c_str(), c.b.c_str()), c.same) << c.a << " vs " << c.b;
  EXPECT_FALSE(VxEquivalentPaths(nullptr, Path("dir").c_str()));
  ASSERT_EQ(::chdir("/"), 0);
}

TEST_F(FileHelpers, TempPathIsTheApplicationsFolderUnderTmpdir) {
  VxSystemInfo::SetApplication("Analyser", "6.3.2.1234");
  std::string const tmp = std::getenv("TMPDIR");
  std::string const expected = tmp + "/Karvinel/Analyser/6.3/";
  EXPECT_EQ(VxGetTempPath(""), expected);
  EXPECT_EQ(VxGetTempPath("Reports"), expected + "Reports/");
  EXPECT_EQ(VxFileExist(expected + "Reports"), VxFolder);

  ASSERT_EQ(::setenv("TMPDIR", "relative/tmp", 1), 0);
  std::string const ignored = VxGetTempPath("");
  ASSERT_EQ(::setenv("TMPDIR", tmp.c_str(), 1), 0);
  EXPECT_EQ(ignored, "/tmp/Karvinel/Analyser/6.3/") << "a relative TMPDIR is ignored";
  // Only what this test made, and only when empty: /tmp is shared.
  for (char const * level :
       {"/tmp/Karvinel/Analyser/6.3", "/tmp/Karvinel/Analyser", "/tmp/Karvinel"})
    ::rmdir(level);
}

TEST(ExecutablePath, NamesThisTestBinaryAndItsFolder) {
  std::string const path = vx3::WideToUtf8(VxGetExecutablePath());
  EXPECT_EQ(VxGetFileName(path), "test_settings_helpers");
  EXPECT_EQ(VxGetDirectory(path), VxGetExecutableDirectory());
}

}  // namespace
