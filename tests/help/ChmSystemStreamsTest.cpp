// The streams that say what a help file holds: the help map, its topic
// names and the system records, intact and damaged.
#include <gtest/gtest.h>

#include <string>

#include "ChmTestFiles.h"
#include "help/ChmSystemStreams.h"

namespace {

using namespace std::string_literals;

TEST(ChmSystemStreams, ReadsTheWritersStreams) {
  ChmError error = ChmError::None;
  auto archive = ChmArchive::OpenBytes(chmtest::SmallHelp(), error);
  ASSERT_TRUE(archive);
  ChmSystemInfo info;
  ASSERT_EQ(ReadChmSystem(*archive, info), ChmError::None);
  EXPECT_EQ(info.title, "Small help");
  EXPECT_EQ(info.defaultTopic, "index.htm");
  EXPECT_EQ(info.contentsFile, "toc.hhc");
  EXPECT_EQ(info.lcid, 0x409U);

  std::string ivb;
  std::string strings;
  ASSERT_EQ(archive->Extract("/#IVB", ivb), ChmError::None);
  ASSERT_EQ(archive->Extract("/#STRINGS", strings), ChmError::None);
  auto const pairs = ParseChmIdMap(ivb);
  ASSERT_TRUE(pairs);
  ASSERT_EQ(pairs->size(), 3U);
  std::map<std::uint32_t, std::string> topics;
  for (auto const & p : *pairs) topics[p.helpId] = ChmStringAt(strings, p.stringOffset).value();
  EXPECT_EQ(topics[7], "index.htm");
  EXPECT_EQ(topics[1001], "index.htm");
  EXPECT_EQ(topics[1002], "sub dir/b 1.htm");
}

TEST(ChmSystemStreams, HelpMapAndTopicNamesRefuseWhatLiesPastTheirEnd) {
  struct MapCase {
    char const * what;
    std::string bytes;
    int pairs;  // -1: refused
  };
  MapCase const maps[] = {
      {"no size", "\x08\0"s, -1},
      {"size past the stream", "\x10\0\0\0"s + std::string(8, '\0'), -1},
      {"empty map", "\0\0\0\0"s, 0},
      {"one pair", "\x08\0\0\0\x01\0\0\0\x02\0\0\0"s, 1},
      {"size not a multiple of 8", "\x0A\0\0\0"s + std::string(10, '\0'), 1},
      {"bytes behind the size", "\x08\0\0\0"s + std::string(20, '\0'), 1},
  };
  for (auto const & c : maps) {
    auto const pairs = ParseChmIdMap(c.bytes);
    EXPECT_EQ(pairs ? static_cast<int>(pairs->size()) : -1, c.pairs) << c.what;
  }
  std::string const strings = "\0first\0unterminated"s;
  EXPECT_EQ(ChmStringAt(strings, 1), "first");
  EXPECT_EQ(ChmStringAt(strings, 0), "");
  EXPECT_EQ(ChmStringAt(strings, 7), std::nullopt) << "no zero byte";
  EXPECT_EQ(ChmStringAt(strings, 500), std::nullopt) << "offset past the stream";
}

TEST(ChmSystemStreams, SystemRecordsStopAtDamage) {
  ChmSystemInfo info;
  EXPECT_FALSE(ParseChmSystem("\x03\0"s, info));
  std::string const title = "\x03\0\0\0"s + "\x03\0\x04\0Abc\0"s;
  EXPECT_TRUE(ParseChmSystem(title, info));
  EXPECT_EQ(info.title, "Abc");
  // A record whose length runs past the stream: the one before is kept.
  ChmSystemInfo damaged;
  EXPECT_FALSE(ParseChmSystem(title + "\x02\0\xFF\0x.htm"s, damaged));
  EXPECT_EQ(damaged.title, "Abc");
  EXPECT_TRUE(damaged.defaultTopic.empty());
  // A text without its zero byte ends with its record.
  ChmSystemInfo unterminated;
  EXPECT_TRUE(ParseChmSystem("\x03\0\0\0\x02\0\x03\0abc"s, unterminated));
  EXPECT_EQ(unterminated.defaultTopic, "abc");
}

TEST(ChmSystemStreams, TopicTextsAreUtf8ElseWindows1252) {
  struct Case {
    std::string in;
    std::string out;
  };
  Case const cases[] = {
      {"plain.htm", "plain.htm"},
      {"caf\xC3\xA9.htm", "caf\xC3\xA9.htm"},            // UTF-8 stays
      {"caf\xE9.htm", "caf\xC3\xA9.htm"},                // é in Windows-1252
      {"\x80uro", "\xE2\x82\xACuro"},                    // the euro sign
      {"\xC3", "\xC3\x83"},                              // a cut sequence is not UTF-8
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},  // nor is a surrogate
  };
  for (auto const & c : cases) EXPECT_EQ(ChmTextToUtf8(c.in), c.out) << c.in;
}

}  // namespace
