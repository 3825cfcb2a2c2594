// Path rules with "/" separators, and the file system as it really is.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdlib>
#include <fstream>

#include "TestFiles.h"
#include "utl/Paths.h"

namespace {

TEST(Paths, SplitsFolderNameAndExtension) {
  struct Case {
    char const *path, *directory, *name, *extension;
  } const cases[] = {
      {"/a/b/c.txt", "/a/b", "c.txt", "txt"},
      {"/a/b/", "/a/b", "", ""},
      {"c.tar.gz", "", "c.tar.gz", "gz"},
      {"/a//b", "/a", "b", ""},
      {"/c", "/", "c", ""},
      {"/a.d/file", "/a.d", "file", ""},
      {"/home/u/.profile", "/home/u", ".profile", ""},
      {"", "", "", ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.path);
    EXPECT_EQ(VxGetDirectory(c.path), c.directory);
    EXPECT_EQ(VxGetFileName(c.path), c.name);
    EXPECT_EQ(VxGetFileExtension(c.path), c.extension);
  }
}

TEST(Paths, AppendJoinsWithExactlyOneSeparator) {
  EXPECT_EQ(VxPathAppend("/a//", "//c/d"), "/a/c/d");
  EXPECT_EQ(VxPathAppend("/", "c"), "/c");
  EXPECT_EQ(VxPathAppend("", "c"), "c");
  EXPECT_EQ(VxPathAppend("/a", ""), "/a");
}

TEST(Paths, CreateFolderMakesMissingParentsButNotWhereAFileStands) {
  std::string const deep = Temp("one/two/three");
  EXPECT_TRUE(VxCreateFolder(deep));
  EXPECT_EQ(VxFileExist(deep), VxFolder);
  EXPECT_TRUE(VxCreateFolder(deep + "/"));
  EXPECT_FALSE(VxCreateFolder(""));
  std::string const file = Temp("plain-file");
  std::ofstream(file) << "x";
  EXPECT_FALSE(VxCreateFolder(file + "/below"));
  EXPECT_EQ(VxFileExist(file), VxFile);
}

TEST(Paths, FileExistTellsNothingFileAndFolderApart) {
  EXPECT_EQ(VxFileExist(""), VxNothing);
  EXPECT_EQ(VxFileExist(std::getenv("TMPDIR")), VxFolder);
  EXPECT_EQ(VxFileExist("/dev/null"), VxFile);
  std::string const link = Temp("dangling");
  ASSERT_EQ(::symlink("/nonexistent/target", link.c_str()), 0);
  EXPECT_EQ(VxFileExist(link), VxNothing);
  EXPECT_EQ(VxFileExist(VxPathAppend(VxGetExecutableDirectory(), "test_utl_system")), VxFile);
}

}  // namespace
