// DIB blocks written as BMP files: WriteDIB's header arithmetic as it has
// always been, SaveDIB's exact one, what `file` reads from both, and the
// failures that must leave files alone.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <sstream>

#include "DibTestBlocks.h"
#include "pictures/DibFile.h"
#include "utl/Exception.h"
#include "utl/TestFiles.h"

namespace {

std::wstring Wide(std::string const & path) { return std::wstring(path.begin(), path.end()); }

BITMAPFILEHEADER FileHeaderOf(std::string const & bytes) {
  BITMAPFILEHEADER header{};
  std::memcpy(&header, bytes.data(), sizeof header);
  return header;
}

// The first line `file` prints about `path`; empty when it cannot be run.
std::string Describe(std::string const & path) {
  std::string const command = "file -b '" + path + "' 2>/dev/null";
  std::FILE * const pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return std::string();
  char line[512] = {};
  std::string text = std::fgets(line, sizeof line, pipe) != nullptr ? line : "";
  ::pclose(pipe);
  return text;
}

TEST(WriteDib, FileHeaderKeepsItsOffsetArithmeticAndTheWholeBlockFollows) {
  struct Case {
    int bits;
    std::uint32_t offset;
  } const cases[] = {
      {1, 40 + 14 + 8},       {4, 40 + 14 + 64}, {8, 40 + 14 + 1024},
      {16, 40 + 14 + 262144}, {24, 67108918},    {32, 58},  // the shift count taken mod 32
  };
  for (Case const & test : cases) {
    SCOPED_TRACE(testing::Message() << test.bits << " bits");
    OwnedDib const dib = MakeDib(InfoHeader(3, 2, test.bits), Bytes(1024 + 24, 0x5A));
    std::string const path = Temp("write-" + std::to_string(test.bits) + ".bmp");
    ASSERT_NE(WriteDIB(Wide(path).c_str(), dib.get()), 0);
    std::string const bytes = Slurp(path);
    ASSERT_EQ(bytes.size(), GlobalSize(dib.get()) + 14);
    BITMAPFILEHEADER const header = FileHeaderOf(bytes);
    EXPECT_EQ(Unpacked(header.bfType), 0x4D42);
    EXPECT_EQ(Unpacked(header.bfSize), bytes.size());
    EXPECT_EQ(Unpacked(header.bfReserved1) | Unpacked(header.bfReserved2), 0);
    EXPECT_EQ(Unpacked(header.bfOffBits), test.offset);
    EXPECT_EQ(0, std::memcmp(bytes.data() + 14, GlobalLock(dib.get()), GlobalSize(dib.get())));
    std::string const described = Describe(path);
    if (!described.empty()) {
      EXPECT_NE(described.find("bits offset " + std::to_string(test.offset)), std::string::npos)
          << described;
    }
  }
}

TEST(WriteDib, FailuresGiveZeroAndLeaveFilesAsTheyWere) {
  OwnedDib const dib = MakeDib(InfoHeader(1, 1, 24), Bytes(4, 0));
  std::string const kept = Temp("kept.bmp");
  Spit(kept, "old picture");
  EXPECT_EQ(WriteDIB(Wide(kept).c_str(), nullptr), 0);
  EXPECT_EQ(WriteDIB(Wide(kept).c_str(), MakeDib(Bytes(10, 0)).get()), 0);
  EXPECT_EQ(Slurp(kept), "old picture");
  EXPECT_EQ(WriteDIB(Wide(Temp("missing") + "/new.bmp").c_str(), dib.get()), 0);
  EXPECT_FALSE(std::filesystem::exists(Temp("missing")));
}

TEST(SaveDib, WritesTheExactOffsetAndStoresTheImageSize) {
  struct Case {
    std::string name;
    OwnedDib dib;
    std::uint32_t offset;
    std::uint32_t imageSize;
    char const * described;  // what `file` reads
  };
  BITMAPINFOHEADER runs = InfoHeader(4, 2, 8, BI_RLE8, 2);
  runs.biSizeImage = 6;
  Case cases[] = {
      {"24 bits", MakeDib(InfoHeader(3, 2, 24), Bytes(24 + 7, 1)), 54, 24, "3 x 2 x 24"},
      {"top-down 24 bits", MakeDib(InfoHeader(3, -2, 24), Bytes(24, 1)), 54, 24, "3 x -2 x 24"},
      {"8 bits", MakeDib(InfoHeader(5, 3, 8), Bytes(1024 + 24, 2)), 1078, 24, "5 x 3 x 8"},
      {"1 bit, 2 colours", MakeDib(InfoHeader(33, 2, 1), Bytes(8 + 16, 3)), 62, 16, "33 x 2 x 1"},
      {"run-length keeps its size", MakeDib(runs, Bytes(8 + 6, 4)), 62, 6, "4 x 2 x 8"},
  };
  for (Case const & test : cases) {
    SCOPED_TRACE(test.name);
    std::string const path = Temp("save.bmp");
    {
      std::ofstream file(path, std::ios::binary | std::ios::trunc);
      ASSERT_EQ(SaveDIB(test.dib.get(), file), 1);
    }
    BITMAPINFOHEADER stored{};
    std::memcpy(&stored, GlobalLock(test.dib.get()), sizeof stored);
    EXPECT_EQ(Unpacked(stored.biSizeImage), test.imageSize);
    std::string const bytes = Slurp(path);
    BITMAPFILEHEADER const header = FileHeaderOf(bytes);
    EXPECT_EQ(Unpacked(header.bfOffBits), test.offset);
    EXPECT_EQ(Unpacked(header.bfSize), bytes.size());
    EXPECT_EQ(bytes.size(), 14 + test.offset - 14 + test.imageSize);
    EXPECT_EQ(0, std::memcmp(bytes.data() + 14, &stored, sizeof stored));
    std::string const described = Describe(path);
    if (!described.empty()) {
      EXPECT_NE(described.find(test.described), std::string::npos) << described;
      EXPECT_NE(described.find("bits offset " + std::to_string(test.offset)), std::string::npos)
          << described;
    }
  }
}

TEST(SaveDib, RefusesBlocksItCannotWriteAndReportsAFailingFile) {
  std::ostringstream out;
  EXPECT_EQ(SaveDIB(nullptr, out), 0);
  EXPECT_EQ(SaveDIB(MakeDib(BITMAPCOREHEADER{12, 2, 2, 1, 24}, Bytes(40, 0)).get(), out), 0);
  EXPECT_EQ(SaveDIB(MakeDib(InfoHeader(100, 100, 24), Bytes(64, 0)).get(), out), 0);
  BITMAPINFOHEADER runs = InfoHeader(4, 2, 8, BI_RLE8, 1);
  runs.biSizeImage = 4000;
  EXPECT_EQ(SaveDIB(MakeDib(runs, Bytes(4 + 6, 0)).get(), out), 0);
  EXPECT_TRUE(out.str().empty());

  std::ofstream closed;
  EXPECT_THROW(SaveDIB(MakeDib(InfoHeader(1, 1, 24), Bytes(4, 0)).get(), closed), Exception);
}

}  // namespace
