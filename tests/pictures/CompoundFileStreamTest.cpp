// Reading one stream straight from a compound file, checked against files
// that libgsf writes: mini and regular streams, many entries, a file large
// enough for the extra allocation-table sectors, and damaged files: cut at
// every sector boundary and at the ends of its structures, or with links
// that lead out of the file.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <vector>

#include "pictures/ArtInfo.h"
#include "pictures/CompoundFile.h"
#include "pictures/CompoundFileStream.h"
#include "platform/MessageBoxes.h"
#include "utl/Exception.h"
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

constexpr size_t kSector = 512;

uint32_t Word(std::string const & bytes, size_t at) {
  return static_cast<uint32_t>(
      static_cast<uint8_t>(bytes[at]) | static_cast<uint8_t>(bytes[at + 1]) << 8 |
      static_cast<uint8_t>(bytes[at + 2]) << 16 | static_cast<uint8_t>(bytes[at + 3]) << 24);
}

void SetWord(std::string & bytes, size_t at, uint32_t value) {
  for (int i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(value >> (8 * i) & 0xFF);
}

// Where libgsf put the structures of a file it wrote with 512-byte sectors,
// read the plain way: this is the test's own reading of the format.
struct Layout {
  explicit Layout(std::string const & file) : bytes(file) {
    for (uint32_t i = 0; i < Word(bytes, 0x2C); ++i) fat.push_back(Word(bytes, 0x4C + 4 * i));
    directory = Chain(Word(bytes, 0x30));
    miniFat = Chain(Word(bytes, 0x3C));
    miniStream = Chain(Word(bytes, Entry(0) + 0x74));
  }
  static size_t Start(uint32_t sector) { return (sector + 1) * kSector; }
  size_t FatEntry(uint32_t sector) const { return Start(fat[sector / 128]) + sector % 128 * 4; }
  size_t MiniFatEntry(uint32_t mini) const { return Start(miniFat[mini / 128]) + mini % 128 * 4; }
  std::vector<uint32_t> Chain(uint32_t sector) const {
    std::vector<uint32_t> chain;
    for (; sector < 0xFFFFFFFA; sector = Word(bytes, FatEntry(sector))) chain.push_back(sector);
    return chain;
  }
  size_t Entry(uint32_t id) const { return Start(directory[id / 4]) + id % 4 * 128; }
  size_t Entry(std::string const & name) const {
    for (uint32_t id = 0; id < directory.size() * 4; ++id) {
      size_t const at = Entry(id);
      std::string ascii;
      for (size_t i = 0; i + 2 < Word(bytes, at + 0x40) % 65536; i += 2) ascii += bytes[at + i];
      if (ascii == name) return at;
    }
    ADD_FAILURE() << "no entry " << name;
    return 0;
  }
  std::vector<uint32_t> StreamChain(std::string const & name) const {
    return Chain(Word(bytes, Entry(name) + 0x74));
  }

  std::string bytes;
  std::vector<uint32_t> fat;
  std::vector<uint32_t> directory;
  std::vector<uint32_t> miniFat;
  std::vector<uint32_t> miniStream;
};

// What a damaged file must give: each stream its own bytes or "unreadable"
// with a reason, never other bytes; the libgsf side and the archive refuse
// it with its name; a save into it changes nothing (and, refused before
// libgsf reads it, loses no memory: libgsf leaks a root's siblings).
void ExpectRefusedWithoutForeignBytes(std::string const & path,
                                      std::map<std::string, std::string> const & streams,
                                      std::string const & unreadableStream) {
  std::string const bytes = Slurp(path);
  for (auto const & [name, original] : streams) {
    std::string read;
    std::string why;
    vx3::CompoundStreamRead const result =
        vx3::ReadCompoundFileStream(path, name, 1u << 24, read, &why);
    if (result == vx3::CompoundStreamRead::kRead) {
      EXPECT_NE(unreadableStream, name);
      EXPECT_EQ(original, read) << name;
    } else {
      EXPECT_EQ(vx3::CompoundStreamRead::kUnreadable, result) << name;
      EXPECT_FALSE(why.empty()) << name;
    }
  }
  EXPECT_NE("", vx3::FindCompoundFileDamage(bytes));
  try {
    vx3::CompoundFileReader const reader(path);
    ADD_FAILURE() << "libgsf was given the damaged file";
  } catch (vx3::CompoundFileError const & error) {
    EXPECT_EQ(0u, std::string(error.what()).find(path + ": ")) << error.what();
  }
  try {
    ArtInfo::LoadArtInfo(path);
    ADD_FAILURE() << "the damaged archive was loaded";
  } catch (Exception const & error) {
    EXPECT_EQ(0u, error.Why().find("The art archive " + path + " is unreadable: ")) << error.Why();
  }
  std::vector<std::string> boxes;
  FrameworkMessageBoxHandler const former =
      SetFrameworkMessageBoxHandler([&](wxString const & text, UINT, UINT) {
        boxes.push_back(text.utf8_string());
        return IDOK;
      });
  EXPECT_FALSE(ArtInfo().SaveToFile(path, {}, {}, {}, {}));
  SetFrameworkMessageBoxHandler(former);
  EXPECT_EQ(std::vector<std::string>{"The file " + path + " could not be opened!"}, boxes);
  EXPECT_EQ(bytes, Slurp(path));
}

TEST(CompoundFileStream, FilesCutAtSectorBoundariesAreUnreadableNeverForeign) {
  std::string const path = Temp("cut.vart");
  auto const streams = WriteArchive(path, 9000);
  std::string const good = Slurp(path);
  ASSERT_EQ(0u, good.size() % kSector);
  ASSERT_EQ("", vx3::FindCompoundFileDamage(good));
  Layout const layout(good);
  ASSERT_FALSE(layout.miniStream.empty());

  // Before and after the last sector of each structure, where it ends inside
  // the file.
  std::vector<std::pair<std::string, size_t>> cuts{{"inside the header", 100},
                                                   {"after the header sector", kSector},
                                                   {"one sector short", good.size() - kSector}};
  auto const around = [&](std::string const & what, std::vector<uint32_t> const & chain) {
    size_t const start = Layout::Start(chain.back());
    cuts.emplace_back(what + ": before its last sector", start);
    if (start + kSector < good.size()) cuts.emplace_back(what + ": after its end", start + kSector);
  };
  around("the allocation table", layout.fat);
  around("the directory chain", layout.directory);
  around("the mini allocation table", layout.miniFat);
  around("the mini stream", layout.miniStream);
  around("a regular stream's chain", layout.StreamChain("s9000"));
  for (auto const & [what, at] : cuts) {
    SCOPED_TRACE(what);
    Spit(path, good.substr(0, at));
    ExpectRefusedWithoutForeignBytes(path, streams, "");
  }
  // Every other boundary, with one stream of each kind (mini, regular, the
  // list, the last entries) to keep the run short.
  std::map<std::string, std::string> some;
  for (char const * name : {"ArtInfo", "s1", "s65", "s4096", "s70000", "s9000", "3367781"})
    some[name] = streams.at(name);
  for (size_t at = kSector; at < good.size(); at += kSector) {
    SCOPED_TRACE("the sector boundary at " + std::to_string(at));
    Spit(path, good.substr(0, at));
    ExpectRefusedWithoutForeignBytes(path, some, "");
  }
}

TEST(CompoundFileStream, LinksOutOfTheFileAreUnreadableNeverForeign) {
  std::string const path = Temp("links.vart");
  auto const streams = WriteArchive(path, 9000);
  std::string const good = Slurp(path);
  Layout const layout(good);
  uint32_t const pastTheEnd = static_cast<uint32_t>(good.size() / kSector + 3);
  uint32_t const regular = layout.StreamChain("s9000")[1];
  uint32_t const mini = Word(good, layout.Entry("s65") + 0x74);

  struct Case {
    char const * what;
    size_t at;  // the word changed
    uint32_t value;
    char const * stream;  // the stream it must make unreadable; "" for a directory fault
  } const cases[] = {
      {"a regular stream's link past the end", layout.FatEntry(regular), pastTheEnd, "s9000"},
      {"a regular stream's link beyond the allocation table", layout.FatEntry(regular), 0xFFFFFF,
       "s9000"},
      {"a regular stream's link to a free sector", layout.FatEntry(regular), 0xFFFFFFFF, "s9000"},
      {"a regular stream's link back to itself", layout.FatEntry(regular), regular, "s9000"},
      {"a regular stream's first sector past the end", layout.Entry("s9000") + 0x74, pastTheEnd,
       "s9000"},
      {"a stream longer than its chain", layout.Entry("s5000") + 0x78, 9000, "s5000"},
      {"the directory's link past the end", layout.FatEntry(layout.directory[0]), pastTheEnd, "s0"},
      {"a mini link past the mini stream", layout.MiniFatEntry(mini), 100000, "s65"},
      {"a mini link to itself", layout.MiniFatEntry(mini), mini, "s65"},
      {"the mini stream's link past the end", layout.FatEntry(layout.miniStream[0]), pastTheEnd,
       "s64"},
      {"the mini stream's start past the end", layout.Entry(0) + 0x74, pastTheEnd, "s64"},
      {"the mini allocation table's link past the end", layout.FatEntry(layout.miniFat[0]),
       pastTheEnd, "s64"},
      {"the root with a sibling", layout.Entry(0) + 0x48, 1, ""},
      {"a stream with a child", layout.Entry("s64") + 0x4C, 1, ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    std::string bytes = good;
    SetWord(bytes, c.at, c.value);
    Spit(path, bytes);
    ExpectRefusedWithoutForeignBytes(path, streams, c.stream);
  }
}

}  // namespace
