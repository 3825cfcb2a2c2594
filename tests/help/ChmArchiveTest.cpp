// The compiled-help reader: what the writer stores comes back byte for
// byte, the compressed fixture decompresses, and damaged or hostile files
// give an error, never a crash or a runaway allocation.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "ChmTestFiles.h"
#include "help/ChmArchive.h"

namespace {

std::string Patch32(std::string bytes, std::size_t at, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
  return bytes;
}

TEST(ChmArchive, GivesBackWhatWasStored) {
  std::vector<chmwriter::ChmFile> files;
  // Enough long names for several listing chunks and an index chunk.
  for (int i = 0; i < 700; ++i) {
    std::string const name = "/pages/topic-with-a-long-name-" + std::to_string(i) + ".htm";
    files.push_back({name, "page " + std::to_string(i) + std::string(i % 50, 'x')});
  }
  files.push_back({"/Mixed Case.HTM", "mixed"});
  files.push_back({"/empty.htm", ""});
  std::string const path =
      std::string(std::getenv("TMPDIR") ? std::getenv("TMPDIR") : "/tmp") + "/stored.chm";
  chmtest::WriteFile(path, chmwriter::BuildChm(files));

  ChmError error = ChmError::Format;
  auto archive = ChmArchive::Open(path, error);
  ASSERT_TRUE(archive) << ChmErrorText(error);
  EXPECT_EQ(error, ChmError::None);
  for (auto const & f : files) {
    std::string bytes = "stale";
    ASSERT_EQ(archive->Extract(f.name, bytes), ChmError::None) << f.name;
    EXPECT_EQ(bytes, f.bytes) << f.name;
    EXPECT_EQ(archive->GetSize(f.name), static_cast<std::int64_t>(f.bytes.size()));
  }
  std::string bytes;
  EXPECT_EQ(archive->Extract("/mixed case.htm", bytes), ChmError::None);
  EXPECT_EQ(bytes, "mixed");
  EXPECT_EQ(archive->Extract("pages/topic-with-a-long-name-1.htm", bytes), ChmError::NotFound)
      << "names keep their leading slash";
  EXPECT_EQ(archive->Extract("/missing.htm", bytes), ChmError::NotFound);
  EXPECT_TRUE(bytes.empty());
  EXPECT_EQ(archive->GetSize("/missing.htm"), -1);
}

TEST(ChmArchive, DecompressesTheCompressedFixture) {
  ChmError error = ChmError::None;
  auto archive = ChmArchive::Open(chmtest::DataFolder() + "/lzx.chm", error);
  ASSERT_TRUE(archive) << ChmErrorText(error);
  std::string bytes;
  // The second page first: extraction must not depend on reading in order.
  ASSERT_EQ(archive->Extract("/second.htm", bytes), ChmError::None);
  EXPECT_EQ(bytes, chmtest::FixtureSecondPage());
  ASSERT_EQ(archive->Extract("/first.htm", bytes), ChmError::None);
  EXPECT_EQ(bytes, chmtest::FixtureFirstPage());
  ASSERT_EQ(archive->Extract("/second.htm", bytes), ChmError::None);
  EXPECT_EQ(bytes, chmtest::FixtureSecondPage());
}

TEST(ChmArchive, CapsWhatOneFileAndOneArchiveMayHold) {
  ChmError error = ChmError::None;
  auto const fixture = chmtest::DataFolder() + "/lzx.chm";
  ChmLimits small;
  small.maxFileBytes = 10000;  // the first page is larger, the second smaller
  auto archive = ChmArchive::Open(fixture, error, small);
  ASSERT_TRUE(archive);
  std::string bytes;
  EXPECT_EQ(archive->Extract("/first.htm", bytes), ChmError::TooLarge);
  EXPECT_EQ(archive->Extract("/second.htm", bytes), ChmError::None);

  ChmLimits tiny;
  tiny.maxArchiveBytes = 1000;
  EXPECT_FALSE(ChmArchive::Open(fixture, error, tiny));
  EXPECT_EQ(error, ChmError::TooLarge);
}

TEST(ChmArchive, RefusesDamagedFiles) {
  std::string const good = chmtest::SmallHelp();
  std::string wrongGuid = good;
  wrongGuid[0x28] = 0x10;  // the second header GUID as one writer gets it wrong
  // The listing's entry count is the chunk's last two bytes; the directory
  // starts behind the 0x60-byte header, its section and the 0x54-byte header.
  std::size_t const firstChunk = 0x60 + 0x18 + 0x54;
  std::string manyEntries = good;
  manyEntries[firstChunk + 4094] = '\xFF';
  manyEntries[firstChunk + 4095] = '\x7F';
  struct Case {
    char const * what;
    std::string bytes;
    bool opens;  // damage the directory reader tolerates, found at extraction
  };
  std::vector<Case> const cases = {
      {"empty", "", false},
      {"not a help file", std::string(4096, 'x'), false},
      {"cut in the header", good.substr(0, 0x40), false},
      {"cut in the directory", good.substr(0, firstChunk + 100), false},
      {"wrong second GUID", wrongGuid, false},
      {"huge chunk count", Patch32(good, 0x78 + 0x2C, 0x7FFFFFFF), false},
      {"chunk size zero", Patch32(good, 0x78 + 0x10, 0), false},
      {"entry count past the chunk", manyEntries, true},
      {"cut in the content", good.substr(0, good.size() - 40), true},
  };
  for (auto const & c : cases) {
    ChmError error = ChmError::None;
    auto archive = ChmArchive::OpenBytes(c.bytes, error);
    if (!c.opens) {
      EXPECT_FALSE(archive) << c.what;
      EXPECT_NE(error, ChmError::None) << c.what;
      continue;
    }
    if (!archive) continue;  // refusing at the door is fine too
    bool anyRefused = false;
    for (auto const & name : archive->GetNames()) {
      std::string bytes;
      ChmError const result = archive->Extract(name, bytes);
      if (result != ChmError::None) {
        anyRefused = true;
        EXPECT_TRUE(bytes.empty()) << c.what << " " << name;
      } else {
        EXPECT_EQ(static_cast<std::int64_t>(bytes.size()), archive->GetSize(name));
      }
    }
    if (std::string(c.what) == "cut in the content") {
      EXPECT_TRUE(anyRefused) << c.what;
    }
  }
}

TEST(ChmArchive, SurvivesDamagedCompressedData) {
  std::string const fixture = chmtest::ReadFile(chmtest::DataFolder() + "/lzx.chm");
  ASSERT_GT(fixture.size(), 8000U);
  int refused = 0;
  // Flip bytes across the compressed content at the end of the file.
  for (std::size_t at = fixture.size() - 6000; at < fixture.size(); at += 397) {
    std::string damaged = fixture;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x5A);
    ChmError error = ChmError::None;
    auto archive = ChmArchive::OpenBytes(damaged, error);
    if (!archive) continue;
    std::string bytes;
    ChmError const result = archive->Extract("/first.htm", bytes);
    if (result == ChmError::None) {
      EXPECT_EQ(bytes.size(), chmtest::FixtureFirstPage().size());
    } else {
      ++refused;
      EXPECT_TRUE(bytes.empty());
    }
  }
  EXPECT_GT(refused, 0) << "no damage was noticed at all";
}

}  // namespace
