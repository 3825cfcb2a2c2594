// Where a crash's dump goes: the file name's parts, the folder under the
// temp folder, and what is left of the path when the folder cannot be had.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "crash/StandardDumpName.h"
#include "utl/VxSystemInfo.h"

namespace {

TEST(StandardDumpName, FileNameTable) {
  struct Case {
    char const * application;
    char const * version;
    unsigned int ticks;
    char const * expected;
  };
  Case const cases[] = {
      {"Name", "13.0.1.123", 5551212, "Name_13_0_1_123-5551212.dmp"},
      {"Analyzer", "6.3.2", 0, "Analyzer_6_3_2-0.dmp"},
      // The tick count is printed as a signed 32-bit number, as it wraps.
      {"Analyzer", "6.3.2", 0xffffffffU, "Analyzer_6_3_2--1.dmp"},
      {"Analyzer", "6.3.2", 0x80000000U, "Analyzer_6_3_2--2147483648.dmp"},
  };
  for (Case const & c : cases)
    EXPECT_EQ(DumpFileName(c.application, c.version, c.ticks), c.expected) << c.expected;
}

TEST(StandardDumpName, LiesInTheApplicationsCrashFolderUnderTemp) {
  VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
  std::string const temp = std::getenv("TMPDIR");
  std::string const folder = temp + "/Karvinel/Analyzer/6.3/Crash diagnostics/";
  std::string const path = StandardDumpName();
  ASSERT_EQ(path.compare(0, folder.size(), folder), 0) << path;
  struct stat info {};
  EXPECT_EQ(::stat(folder.c_str(), &info), 0);  // made
  std::string const name = path.substr(folder.size());
  EXPECT_EQ(name.compare(0, 15, "Analyzer_6_3_2-"), 0) << name;
  EXPECT_EQ(name.substr(name.size() - 4), ".dmp");
}

TEST(StandardDumpName, WithoutAUsableFolderThePathStopsWhereItFailed) {
  VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
  std::string const temp = std::getenv("TMPDIR");
  // A file where the maker's folder should be: the folder cannot be made.
  std::string const blocked = temp + "/blocked";
  ::mkdir(blocked.c_str(), 0700);
  std::ofstream(blocked + "/Karvinel") << "a file";
  ::setenv("TMPDIR", blocked.c_str(), 1);
  EXPECT_EQ(StandardDumpName(), blocked + "/Karvinel/Analyzer/6.3/Crash diagnostics/");
  // No temp folder at all: no path, so no dump and no callback.
  ::setenv("TMPDIR", (temp + "/missing").c_str(), 1);
  EXPECT_EQ(StandardDumpName(), "");
  ::setenv("TMPDIR", temp.c_str(), 1);
}

}  // namespace
