// The rules that read typed folders and stored folder lists, and the file
// dialog's filter in the chooser's form.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/FileDialogFilter.h"
#include "dialogs/FolderPathRules.h"

using namespace FolderPathRules;

namespace {

TEST(FolderPathRules, TypedFoldersAreMadeAbsoluteFromTheCurrentFolderOrHome) {
  struct Case {
    char const *typed, *expected;
  };
  Case const cases[] = {
      {"/data/runs", "/data/runs"},
      {"  /data/runs \n", "/data/runs"},  // pasted with white space around
      {"runs/2024", "/work/project/runs/2024"},
      {"~", "/home/ann"},
      {"~/Projects", "/home/ann/Projects"},
      {"~ann/x", "/work/project/~ann/x"},  // only the user's own home is "~"
      {"", ""},
      {"   ", ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.typed);
    EXPECT_EQ(ResolveTypedFolder(c.typed, "/work/project", "/home/ann"), c.expected);
  }
  // A current folder given with its separator gets no second one.
  EXPECT_EQ(ResolveTypedFolder("runs", "/work/", "/home/ann"), "/work/runs");
  EXPECT_EQ(ResolveTypedFolder("runs", "/", "/home/ann"), "/runs");
}

TEST(FolderPathRules, SeparatorsAtTheEndAndDoubledOnes) {
  EXPECT_TRUE(HasDoubleSeparator("//server/share"));
  EXPECT_TRUE(HasDoubleSeparator("/data//runs"));
  EXPECT_FALSE(HasDoubleSeparator("/data/runs/"));
  EXPECT_FALSE(HasDoubleSeparator("/"));

  EXPECT_EQ(CutTrailingSeparator("/data/runs/"), "/data/runs");
  EXPECT_EQ(CutTrailingSeparator("/data/runs//"), "/data/runs/");  // one only
  EXPECT_EQ(CutTrailingSeparator("/"), "/");  // the root keeps its only separator
  EXPECT_EQ(CutTrailingSeparator("runs"), "runs");

  EXPECT_EQ(WithTrailingSeparator("/data"), "/data/");
  EXPECT_EQ(WithTrailingSeparator("/data/"), "/data/");
  EXPECT_EQ(WithTrailingSeparator("/"), "/");
  EXPECT_EQ(WithTrailingSeparator(""), "");
}

TEST(FolderPathRules, DisplayablePathsStayInOneLineAndShowBadBytes) {
  struct Case {
    std::string path, shown;
  };
  Case const cases[] = {
      {"/data/Messungen \xC3\xA4", "/data/Messungen \xC3\xA4"},
      {"/data/two\nlines", "/data/two\\nlines"},
      {"/data/tab\there\r", "/data/tab\\there\\r"},
      {"/data/bell\x07", "/data/bell\\x07"},
      {"/data/del\x7F", "/data/del\\x7F"},
      {"/data/bad\xFF\xFEname", "/data/bad\xEF\xBF\xBD\xEF\xBF\xBDname"},
      {"/data/c1\xC2\x85", "/data/c1\\x85"},  // NEL breaks lines too
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.path);
    EXPECT_EQ(DisplayablePath(c.path), c.shown);
  }
}

TEST(FolderPathRules, FolderListsReadTrimmedAndWriteEachEndedBySemicolon) {
  EXPECT_EQ(SplitFolderList(" /a ;/b b;; ;/c"), (std::vector<std::string>{"/a", "/b b", "/c"}));
  EXPECT_TRUE(SplitFolderList("").empty());
  EXPECT_TRUE(SplitFolderList(";;").empty());
  EXPECT_EQ(JoinFolderList({"/a", "", "/b"}), "/a;/b;");
  EXPECT_EQ(JoinFolderList({}), "");

  EXPECT_TRUE(FitsFolderList("/data/runs 2024"));
  EXPECT_FALSE(FitsFolderList("/data/a;b"));
  EXPECT_FALSE(FitsFolderList("/data/trailing "));
  EXPECT_FALSE(FitsFolderList(" /data"));
}

TEST(FileDialogFilter, WindowsFiltersBecomeChooserWildcards) {
  struct Case {
    wchar_t const * filter;
    char const * wildcard;
  };
  Case const cases[] = {
      {L"Text files (*.txt)|*.txt|All files (*.*)|*.*||",
       "Text files (*.txt)|*.txt|All files (*.*)|*"},
      {L"Pictures|*.png; *.jpg;*.jpeg|", "Pictures|*.png;*.jpg;*.jpeg"},
      {L"Broken|", ""},
      {L"No patterns||Data|*.dat||", "Data|*.dat"},
      {L"", ""},
      {nullptr, ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.wildcard);
    EXPECT_EQ(ToChooserWildcard(c.filter), wxString::FromUTF8(c.wildcard));
  }
}

}  // namespace
