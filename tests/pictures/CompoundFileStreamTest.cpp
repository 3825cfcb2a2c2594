// Reading one stream straight from a compound file, checked against files
// that libgsf writes: mini and regular streams, many entries, a file large
// enough for the extra allocation-table sectors, and damaged files.
#include <gtest/gtest.h>

#include <map>

#include "pictures/CompoundFile.h"
#include "pictures/CompoundFileStream.h"
#include "utl/TestFiles.h"

namespace {

std::string Pattern(size_t size, int seed) {
  std::string bytes(size, '\0');
  for (size_t i = 0; i < size; ++i)
    bytes[i] = static_cast<char>((i * 7 + seed * 13 + i / 251) & 0xFF);
  return bytes;
}

std::map<std::string, std::string> WriteArchive(std::string const & path, size_t largest) {
  std::map<std::string, std::string> streams;
  size_t const sizes[] = {0, 1, 63, 64, 65, 4095, 4096, 5000, 70000, largest};
  int seed = 0;
  for (size_t const size : sizes) streams["s" + std::to_string(size)] = Pattern(size, ++seed);
  for (int i = 0; i < 300; ++i) streams[std::to_string(1000000 + i * 7919)] = Pattern(100 + i, i);
  streams["ArtInfo"] = "22 serialization::archive 11 0 0 0 0 0 0\n";
  streams
      ["\xc3\x9c"
       "ber"] = "non-ASCII name";
  vx3::CompoundFileWriter writer;
  for (auto const & [name, bytes] : streams) writer.AddStream(name, bytes);
  Spit(path, writer.Finish());
  return streams;
}

TEST(CompoundFileStream, ReadsWhatLibgsfWrote) {
  std::string const path = Temp("streams.vart");
  // 7.5 MB needs more allocation-table sectors than the header lists.
  auto const streams = WriteArchive(path, 7500000);
  for (auto const & [name, bytes] : streams) {
    SCOPED_TRACE(name);
    std::string read;
    ASSERT_EQ(vx3::CompoundStreamRead::kRead,
              vx3::ReadCompoundFileStream(path, name, 1u << 24, read));
    EXPECT_EQ(bytes, read);
  }
  std::string read = "untouched";
  EXPECT_EQ(vx3::CompoundStreamRead::kUnreadable,
            vx3::ReadCompoundFileStream(path, "s70000", 69999, read));
  for (char const * absent : {"artinfo", "s7", "", "12345678901234567890123456789012"})
    EXPECT_EQ(vx3::CompoundStreamRead::kAbsent,
              vx3::ReadCompoundFileStream(path, absent, 1u << 24, read));
  EXPECT_EQ(vx3::CompoundStreamRead::kUnreadable,
            vx3::ReadCompoundFileStream(Temp("absent.vart"), "ArtInfo", 100, read));
  EXPECT_EQ("untouched", read);
}

TEST(CompoundFileStream, DamagedFilesGiveFalse) {
  std::string const path = Temp("damaged.vart");
  WriteArchive(path, 9000);
  std::string const good = Slurp(path);
  struct Case {
    char const * what;
    std::string bytes;
  } const cases[] = {
      {"empty", ""},
      {"header only", good.substr(0, 512)},
      {"cut in half", good.substr(0, good.size() / 2)},
      {"cut by one byte", good.substr(0, good.size() - 1)},
      {"no signature", "X" + good.substr(1)},
      {"sector size 2^20", good.substr(0, 0x1E) + '\x14' + good.substr(0x1F)},
      {"directory sector beyond the end",
       good.substr(0, 0x30) + "\xF0\xFF\xFF\x0F" + good.substr(0x34)},
      {"allocation tables that point to sector 0 everywhere",
       [&] {
         std::string bytes = good;
         auto const word = [&](size_t at) {
           return static_cast<uint32_t>(static_cast<uint8_t>(bytes[at]) |
                                        static_cast<uint8_t>(bytes[at + 1]) << 8 |
                                        static_cast<uint8_t>(bytes[at + 2]) << 16 |
                                        static_cast<uint8_t>(bytes[at + 3]) << 24);
         };
         for (uint32_t i = 0; i < word(0x2C); ++i)
           bytes.replace((word(0x4C + 4 * i) + 1) * 512, 512, 512, '\0');
         return bytes;
       }()},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    Spit(path, c.bytes);
    for (char const * name : {"ArtInfo", "s9000", "s64"}) {
      std::string read;
      if (vx3::ReadCompoundFileStream(path, name, 1u << 24, read) ==
          vx3::CompoundStreamRead::kRead) {
        EXPECT_EQ(std::string(c.what), "cut by one byte");  // only the padding of the end is lost
      }
    }
  }
}

}  // namespace
