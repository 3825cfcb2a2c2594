// Finding a topic without the help window: the index filtered as the user
// types, the word search, help numbers, and links between topics.
#include <gtest/gtest.h>

#include <string>

#include "MemoryHelpArchive.h"
#include "help/ChmHelpEngine.h"
#include "help/HelpFile.h"
#include "help/HelpIndex.h"
#include "help/HelpSearch.h"

namespace {

SitemapEntry Keyword(std::string name, std::vector<SitemapEntry> children = {}) {
  std::string local = name + ".htm";
  return SitemapEntry{std::move(name), {std::move(local)}, std::move(children)};
}

std::vector<std::string> Texts(HelpIndex const & index, HelpIndexRange range) {
  std::vector<std::string> texts;
  for (size_t row = range.first; row < range.last; ++row) texts.push_back(index.Rows()[row].text);
  return texts;
}

TEST(HelpIndex, FiltersKeywordsByTheirStartWithoutRegardToCase) {
  Sitemap map;
  map.entries = {Keyword("calibration", {Keyword("curves"), Keyword("points")}),
                 Keyword("Ändern"),
                 Keyword("Baseline"),
                 Keyword("CALCULATE"),
                 Keyword("Straße"),
                 Keyword("alpha"),
                 Keyword("calc")};
  map.entryCount = 9;
  HelpIndex const index(map);
  using List = std::vector<std::string>;
  EXPECT_EQ(Texts(index, index.Filter("")),
            (List{"alpha", "Baseline", "calc", "CALCULATE", "calibration", "curves", "points",
                  "Straße", "Ändern"}))
      << "keywords in folded order, sub-keywords under theirs";
  struct Case {
    char const * typed;
    List rows;
  };
  Case const cases[] = {
      {"CAL", {"calc", "CALCULATE", "calibration", "curves", "points"}},
      {"calc", {"calc", "CALCULATE"}},
      {"calibration", {"calibration", "curves", "points"}},
      {"cu", {}},  // sub-keywords are found through their keyword
      {"ä", {"Ändern"}},
      {"STRASS", {"Straße"}},
      {"z", {}},
      {"alphabet", {}},
  };
  for (Case const & c : cases) EXPECT_EQ(Texts(index, index.Filter(c.typed)), c.rows) << c.typed;
  EXPECT_EQ(index.Rows()[5].level, 1u);
}

TEST(HelpSearch, FindsTopicsThatHoldEveryWord) {
  HelpTopicText const page = ExtractHelpTopicText(
      "<html><head><title>Runs &amp; Series</title><style>p{color:red}</style>"
      "<script>var hidden = 1;</script></head><body><p>Start a <b>run</b>.</p></body></html>");
  EXPECT_EQ(page.title, "Runs & Series");
  EXPECT_EQ(SplitHelpWords(page.text), (std::vector<std::string>{"start", "a", "run"}))
      << "no style or script text";

  HelpSearchIndex index;
  index.AddTopic(0, "Calibration curves for ÄRGER and Straße");
  index.AddTopic(1, "Runs, series; calibration-points");
  index.AddTopic(2, "run the series again; run it twice");
  index.Finish();
  struct Case {
    char const * query;
    std::vector<uint32_t> topics;
  };
  Case const cases[] = {
      {"calibration", {0, 1}},
      {"CALIBRATION points", {1}},
      {"run", {2}},
      {"run*", {1, 2}},
      {"series run", {2}},
      {"ärger strasse", {0}},
      {"calibration missing", {}},
      {"", {}},
      {"*", {}},
  };
  for (Case const & c : cases) EXPECT_EQ(index.Find(c.query), c.topics) << c.query;
}

TEST(HelpFile, NumbersLeadToTopicsAndAreReadOnce) {
  std::map<std::string, std::string> files{
      {"/#SYSTEM", SystemStream("toc.hhc", "keys.hhk", "start.htm", "Sample help")},
      {"/toc.hhc",
       "<ul><li><object type=\"text/sitemap\"><param name=\"Name\" value=\"S\">"
       "<param name=\"Local\" value=\"start.htm\"></object></ul>"},
      {"/start.htm", "<title>Start</title>First page about runs"},
      {"/sub/b.htm", "<title>B</title>Second page about runs"},
  };
  AddNumberMap(files, {{100, "start.htm"}, {200, "sub\\b.htm"}, {300, ""}});
  auto archive = std::make_unique<MemoryHelpArchive>(files);
  MemoryHelpArchive const & reads = *archive;
  HelpFile file("sample.chm", std::move(archive));
  EXPECT_EQ(file.Title(), "Sample help");
  EXPECT_EQ(file.TopicOfNumber(100), "/start.htm");
  EXPECT_EQ(file.TopicOfNumber(200), "/sub/b.htm");
  EXPECT_EQ(file.TopicOfNumber(300), std::nullopt) << "an empty name is no topic";
  EXPECT_EQ(file.TopicOfNumber(999), std::nullopt);
  EXPECT_EQ(reads.reads.at("/#IVB"), 1);

  // The search covers the pages the contents name; the index is missing.
  EXPECT_EQ(file.SearchIndex().Find("runs").size(), 1u);
  ASSERT_EQ(file.SearchTopics().size(), 1u);
  EXPECT_EQ(file.SearchTopics()[0].title, "Start");
}

TEST(HelpFile, DamagedStreamsGiveNoTopicButKeepWhatCanBeRead) {
  std::map<std::string, std::string> files{
      // The title record is whole; the one after it claims more than is there.
      {"/#SYSTEM",
       SystemStream("", "", "", "Kept \x96 title") + std::string("\x02\x00\xff\x7f", 4)},
      {"/#IVB", std::string("\xf0\xff\xff\xff\x64\x00\x00\x00\x00\x00\x00\x00", 12)},
      {"/#STRINGS", "a.htm"},
      {"/a.htm", "page"},
  };
  HelpFile file("damaged.chm", std::make_unique<MemoryHelpArchive>(files));
  EXPECT_EQ(file.Title(), "Kept \xe2\x80\x93 title");
  EXPECT_EQ(file.TopicOfNumber(100), std::nullopt) << "a map size past its stream";
  EXPECT_TRUE(file.Contents().entries.empty());
  EXPECT_TRUE(file.Index().Rows().empty());
  EXPECT_TRUE(file.SearchTopics().empty());
}

TEST(HelpLinks, StayInsideTheHelpFile) {
  struct Case {
    char const * from;
    char const * link;
    char const * path;
  };
  Case const cases[] = {
      {"/a/b.htm", "c.htm", "/a/c.htm"},
      {"/a/b.htm", "../c.htm#part", "/c.htm"},
      {"/a/b.htm", "..\\..\\..\\etc\\passwd", "/etc/passwd"},
      {"/a/b.htm", "/x.htm?q", "/x.htm"},
      {"/a/b.htm", "#top", "/a/b.htm"},
      {"/", "./d/./e.htm", "/d/e.htm"},
  };
  for (Case const & c : cases) EXPECT_EQ(ResolveHelpLink(c.from, c.link), c.path) << c.link;
}

TEST(HelpPath, SplitsFileTopicAndWindow) {
  struct Case {
    wchar_t const * path;
    char const * file;
    char const * topic;
    char const * window;
  };
  Case const cases[] = {
      {L"help.chm", "help.chm", "", ""},
      {L"help.chm>main", "help.chm", "", "main"},
      {L"/opt/help.chm::/popups.txt", "/opt/help.chm", "/popups.txt", ""},
      {L"dir\\help.chm::topics\\a.htm>side", "dir\\help.chm", "/topics/a.htm", "side"},
      {L"", "", "", ""},
  };
  for (Case const & c : cases) {
    HelpPath const path = ParseHelpPath(c.path);
    EXPECT_EQ(path.file, c.file);
    EXPECT_EQ(path.topic, c.topic);
    EXPECT_EQ(path.window, c.window);
  }
}

}  // namespace
