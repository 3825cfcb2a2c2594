// Folder removal, write checks, path equivalence, the temp folder and the
// executable's location, on real files in the test's own temp folder.
#include <gtest/gtest.h>

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <functional>

#include "settings/VxCanCreateFile.h"
#include "settings/VxEquivalentPaths.h"
#include "settings/VxExecutablePath.h"
#include "settings/VxGetTempPath.h"
#include "settings/VxRemoveDirectory.h"
#include "utl/Paths.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

namespace {

class FileHelpers : public testing::Test {
protected:
  void SetUp() override {
    char const * const tmp = std::getenv("TMPDIR");
    std::string base = std::string(tmp != nullptr ? tmp : "/tmp") + "/files-XXXXXX";
    std::vector<char> buffer(base.begin(), base.end());
    buffer.push_back('\0');
    ASSERT_NE(::mkdtemp(buffer.data()), nullptr);
    mRoot = buffer.data();
  }
  void TearDown() override {
    if (::chdir("/") != 0) ADD_FAILURE() << "cannot leave the test folder";
    std::system(("rm -rf '" + mRoot + "'").c_str());
  }

  // Runs `body` in a child process without root's rights, so that file
  // permissions hold: as "nobody", owning the test folder, when the tests run
  // as root (as in CI). The child's exit code, -1 when it could not run.
  int RunUnprivileged(std::function<int()> const & body) const {
    uid_t uid = ::geteuid();
    gid_t gid = ::getegid();
    if (uid == 0) {
      struct passwd const * nobody = ::getpwnam("nobody");
      if (nobody == nullptr) return -1;
      uid = nobody->pw_uid;
      gid = nobody->pw_gid;
      // The run's temporary root is root's alone: let others pass through.
      for (std::string at = VxGetDirectory(mRoot); at.size() > 1 && at != "/tmp";
           at = VxGetDirectory(at)) {
        struct stat info {};
        ::stat(at.c_str(), &info);
        ::chmod(at.c_str(), (info.st_mode & 07777) | 0711);
        if (VxGetFileName(at).rfind("talvo-test.", 0) == 0) break;
      }
      std::string const chown = "chown -R " + std::to_string(uid) + ":" + std::to_string(gid) +
                                " '" + mRoot + "'";
      if (std::system(chown.c_str()) != 0) return -1;
    }
    pid_t const child = ::fork();
    if (child == 0) {
      if (::geteuid() == 0 &&
          (::setgroups(0, nullptr) != 0 || ::setresgid(gid, gid, gid) != 0 ||
           ::setresuid(uid, uid, uid) != 0))
        ::_exit(99);
      ::_exit(body());
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
  }

  std::string Path(std::string const & name) const { return VxPathAppend(mRoot, name); }
  void Write(std::string const & name, std::string const & text = "x") const {
    std::ofstream(Path(name)) << text;
  }
  void Folder(std::string const & name) const { ASSERT_TRUE(VxCreateFolder(Path(name))); }

  std::string mRoot;
};

TEST_F(FileHelpers, RemoveDirectoryRemovesATreeButNoLinkTarget) {
  Folder("outside");
  Write("outside/precious", "keep me");
  Folder("tree/a/b/c");
  Write("tree/top");
  Write("tree/a/b/c/deep");
  Write("tree/.hidden");
  ASSERT_EQ(::symlink(Path("outside").c_str(), Path("tree/a/folderLink").c_str()), 0);
  ASSERT_EQ(::symlink(Path("outside/precious").c_str(), Path("tree/fileLink").c_str()), 0);
  ASSERT_EQ(::symlink("/nonexistent", Path("tree/a/b/dangling").c_str()), 0);

  EXPECT_TRUE(VxRemoveDirectory(Path("tree")));
  EXPECT_EQ(VxFileExist(Path("tree")), VxNothing);
  std::ifstream precious(Path("outside/precious"));
  std::string text;
  std::getline(precious, text);
  EXPECT_EQ(text, "keep me") << "a link is removed as a link";
}

TEST_F(FileHelpers, RemoveDirectoryRefusesLinksAndFilesAndGoesOnAfterAFailure) {
  Folder("real");
  Write("real/file");
  ASSERT_EQ(::symlink(Path("real").c_str(), Path("link").c_str()), 0);
  EXPECT_FALSE(VxRemoveDirectory(Path("link"))) << "the path itself is a link";
  EXPECT_EQ(VxFileExist(Path("real/file")), VxFile);
  EXPECT_FALSE(VxRemoveDirectory(Path("real/file")));
  EXPECT_FALSE(VxRemoveDirectory(Path("missing")));
  EXPECT_FALSE(VxRemoveDirectory(""));

  // A folder whose entries cannot be removed: the rest goes all the same.
  Folder("partly/locked");
  Write("partly/locked/stuck");
  Write("partly/a-free");
  Write("partly/z-free");
  int const result = RunUnprivileged([this] {
    if (::chmod(Path("partly/locked").c_str(), 0555) != 0) return 10;
    return VxRemoveDirectory(Path("partly")) ? 11 : 0;
  });
  ASSERT_EQ(result, 0) << "10: no chmod; 11: reported success; -1 or 99: no child";
  EXPECT_EQ(VxFileExist(Path("partly/a-free")), VxNothing) << "the walk goes on";
  EXPECT_EQ(VxFileExist(Path("partly/z-free")), VxNothing) << "the walk goes on";
  EXPECT_EQ(VxFileExist(Path("partly/locked/stuck")), VxFile);
  ::chmod(Path("partly/locked").c_str(), 0755);
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
  std::ifstream existing(Path("existing"));
  std::string text;
  std::getline(existing, text);
  EXPECT_EQ(text, "content") << "an existing file is not changed";
  EXPECT_TRUE(VxCanCreateFile(Path("other"), nullptr, nullptr));

  // A read-only file and a read-only folder, for a user without root's rights.
  Folder("readonly");
  int const result = RunUnprivileged([this] {
    if (::chmod(Path("existing").c_str(), 0444) != 0) return 10;
    if (::chmod(Path("readonly").c_str(), 0555) != 0) return 10;
    for (std::string const & path : {Path("existing"), Path("readonly/new")}) {
      std::string error;
      if (VxCanCreateFile(path, &error, nullptr)) return 11;
      if (error.find(path) == std::string::npos) return 12;
      if (error.find("Permission denied") == std::string::npos) return 13;
    }
    return 0;
  });
  EXPECT_EQ(result, 0) << "11: writable; 12, 13: the error lacks the path or the reason";
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
      {Path("dir/file"), Path("dir//sub/../file"), true},
      {Path("dir/file"), "dir/file", true},
      {Path("dir/file"), Path("hard"), true},
      {Path("dir/file"), Path("soft/file"), true},
      {Path("dir"), Path("dir/"), true},
      {Path("dir/file"), Path("dir/sub"), false},
      {Path("dir/File"), Path("dir/file"), false},
      {Path("dir/gone"), Path("dir/sub/../gone"), true},
      {Path("dir/gone"), "./dir/gone/", true},
      {Path("dir/gone"), Path("dir/Gone"), false},
      {Path("dir/gone"), Path("dir/file"), false},
      {"", "", false},
  };
  for (Case const & c : cases)
    EXPECT_EQ(VxEquivalentPaths(c.a.c_str(), c.b.c_str()), c.same) << c.a << " vs " << c.b;
  EXPECT_FALSE(VxEquivalentPaths(nullptr, Path("dir").c_str()));
}

TEST_F(FileHelpers, TempPathIsTheApplicationsFolderUnderTmpdir) {
  VxSystemInfo::SetApplication("Analyser", "6.3.2.1234");
  std::string const tmp = std::getenv("TMPDIR");
  std::string const expected = tmp + "/Karvinel/Analyser/6.3/";
  EXPECT_EQ(VxGetTempPath(""), expected);
  EXPECT_EQ(VxFileExist(expected), VxFolder);
  EXPECT_EQ(VxGetTempPath("Reports"), expected + "Reports/");
  EXPECT_EQ(VxFileExist(expected + "Reports"), VxFolder);

  ASSERT_EQ(::setenv("TMPDIR", "relative/tmp", 1), 0);
  std::string const ignored = VxGetTempPath("");
  ASSERT_EQ(::setenv("TMPDIR", tmp.c_str(), 1), 0);
  EXPECT_EQ(ignored, "/tmp/Karvinel/Analyser/6.3/") << "a relative TMPDIR is ignored";
  // Only what this test made, and only when empty: /tmp is shared.
  for (char const * level : {"/tmp/Karvinel/Analyser/6.3", "/tmp/Karvinel/Analyser", "/tmp/Karvinel"})
    ::rmdir(level);
}

TEST(ExecutablePath, NamesThisTestBinaryAndItsFolder) {
  std::string const path = vx3::WideToUtf8(VxGetExecutablePath());
  EXPECT_EQ(VxGetFileName(path), "test_settings_helpers");
  EXPECT_EQ(vx3::WideToUtf8(VxGetExecutableDirectoryW()), VxGetExecutableDirectory());
  EXPECT_EQ(VxGetDirectory(path), VxGetExecutableDirectory());
  EXPECT_EQ(VxGetExecutablePath(), VxGetExecutablePath()) << "one buffer, filled once";
}

}  // namespace
