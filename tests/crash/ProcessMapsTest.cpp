// Lines of /proc/<pid>/maps as the dump writer reads them: paths with
// spaces and the kernel's own names kept whole, damaged lines left out.
#include <gtest/gtest.h>

#include "crash/ProcessMemory.h"

namespace {

TEST(ProcessMaps, LinesTable) {
  std::string const text =
      "55d0c0a00000-55d0c0a02000 r--p 00000000 fe:00 1234    /opt/my app/bin/run (deleted)\n"
      "7ffd1000-7ffd2000 rw-p 00000000 00:00 0                          [stack]\n"
      "7f0000000000-7f0000001000 ---p 00000000 00:00 0 \n"
      "7f0000001000-7f0000002000 r-xp 00001000 fe:00 99 /lib/x86_64-linux-gnu/libc.so.6\n"
      "garbage line\n"
      "2000-1000 r--p 00000000 00:00 0\n"  // ends before it starts
      "zz00-3000 r--p 00000000 00:00 0\n"  // no number
      "1000-2000 r-\n";                    // cut short
  std::vector<Mapping> const maps = ParseMaps(text);
  ASSERT_EQ(maps.size(), 4U);
  EXPECT_EQ(maps[0].start, 0x55d0c0a00000U);
  EXPECT_EQ(maps[0].end, 0x55d0c0a02000U);
  EXPECT_EQ(maps[0].path, "/opt/my app/bin/run (deleted)");
  EXPECT_TRUE(maps[0].readable);
  EXPECT_FALSE(maps[0].writable);
  EXPECT_EQ(maps[1].path, "[stack]");
  EXPECT_TRUE(maps[1].writable);
  EXPECT_FALSE(maps[2].readable);
  EXPECT_EQ(maps[2].path, "");
  EXPECT_TRUE(maps[3].executable);
  EXPECT_EQ(maps[3].offset, 0x1000U);
}

}  // namespace
