// What the help window reads from a compiled help file, fed with what help
// authors' tools write and with damaged and hostile variants: nothing may
// crash, and what can be read is kept.
#include <gtest/gtest.h>

#include <string>

#include "help/PopupText.h"
#include "help/Sitemap.h"

namespace {

std::string Object(std::string const & name, std::string const & local) {
  return "<LI> <OBJECT type=\"text/sitemap\">\n<param name=\"Name\" value=\"" + name +
         "\">\n<param name=\"Local\" value=\"" + local + "\">\n</OBJECT>\n";
}

// "name(child,child)" for a tree, to compare whole trees in one line.
std::string Shape(std::vector<SitemapEntry> const & entries) {
  std::string text;
  for (SitemapEntry const & entry : entries) {
    if (!text.empty()) text += ",";
    text += entry.name;
    if (!entry.children.empty()) text += "(" + Shape(entry.children) + ")";
  }
  return text;
}

TEST(Sitemap, ReadsTheTreesThatHelpFilesHold) {
  struct Case {
    char const * what;
    std::string file;
    char const * shape;
  };
  std::string const nested = "<HTML><BODY><UL>" + Object("Start", "a.htm") + "<UL>" +
                             Object("One", "b.htm") + Object("Two", "c.htm") + "</UL>" +
                             Object("End", "d.htm") + "</UL></BODY></HTML>";
  Case const cases[] = {
      {"nested lists", nested, "Start(One,Two),End"},
      {"no closing tags at all", "<ul>" + Object("A", "a.htm") + "<ul>" + Object("B", "b.htm"),
       "A(B)"},
      {"lower-case tags and attributes",
       "<ul><li><object type=\"TEXT/SITEMAP\"><PARAM NAME=\"name\" VALUE=\"x\"></object></ul>",
       "x"},
      {"objects of other types are not entries",
       "<ul><li><object type=\"text/site properties\"><param name=\"Name\" value=\"p\">"
       "</object>" +
           Object("kept", "k.htm") + "</ul>",
       "kept"},
      {"a list before any entry", "<ul><ul>" + Object("deep", "d.htm") + "</ul></ul>", "deep"},
      {"not HTML at all", std::string("\x00\xff\xfe<<<>>>&&&", 12), ""},
      {"empty", "", ""},
  };
  for (Case const & c : cases) EXPECT_EQ(Shape(ParseSitemap(c.file).entries), c.shape) << c.what;
}

TEST(Sitemap, KeepsEveryTopicOfAnEntryAndReadsOldCodePages) {
  std::string const index =
      "<ul><li><object type=\"text/sitemap\"><param name=\"Name\" value=\"Caf\xe9\">"
      "<param name=\"Local\" value=\"one.htm\"><param name=\"Name\" value=\"second name\">"
      "<param name=\"Local\" value=\"two.htm\"></object></ul>";
  Sitemap const map = ParseSitemap(index);
  ASSERT_EQ(map.entries.size(), 1u);
  EXPECT_EQ(map.entries[0].name, "Caf\xc3\xa9") << "Windows-1252 read as such";
  EXPECT_EQ(map.entries[0].locals, (std::vector<std::string>{"one.htm", "two.htm"}));
}

TEST(Sitemap, HostileFilesStayWithinTheLimits) {
  // 10,000 nested lists: the depth is capped and the rest joins the deepest level.
  std::string deep;
  for (int i = 0; i < 10000; ++i) deep += "<ul>" + Object("e" + std::to_string(i), "x.htm");
  Sitemap const deepMap = ParseSitemap(deep, SitemapLimits{8, 1000});
  size_t depth = 0;
  for (auto const * level = &deepMap.entries; !level->empty(); level = &level->back().children)
    ++depth;
  EXPECT_LE(depth, 8u);
  EXPECT_TRUE(deepMap.truncated);

  std::string wide = "<ul>";
  for (int i = 0; i < 50; ++i) wide += Object("w", "w.htm");
  Sitemap const wideMap = ParseSitemap(wide, SitemapLimits{32, 20});
  EXPECT_EQ(wideMap.entryCount, 20u);
  EXPECT_EQ(wideMap.entries.size(), 20u);
  EXPECT_TRUE(wideMap.truncated);
}

TEST(PopupText, FindsTheTextOfEachNumber) {
  std::string const file =
      "; comment lines before the first topic are not text\r\n"
      ".topic 1001\r\n"
      "Type the name of the run.\r\n"
      "It is shown in every report.\r\n"
      "\r\n"
      "  Second paragraph.  \r\n"
      "\r\n"
      ".topic IDH_SYMBOLIC\n"
      "needs a map file\n"
      ".TOPIC 0x3EA\n"
      "Hexadecimal.\n"
      ".topic 1003\n"
      ".topic 1004 trailing words\n"
      "skipped\n"
      ".topicx 1005\n"
      ".topic 1001\n"
      "The last entry of a number wins.\n";
  PopupText const popups = PopupText::Parse(file);
  struct Case {
    uint32_t id;
    std::optional<std::string> text;
  };
  Case const cases[] = {
      {1001, "The last entry of a number wins."},
      {1002, "Hexadecimal."},
      {1003, ""},
      {1004, std::nullopt},
      {4242, std::nullopt},
  };
  for (Case const & c : cases) EXPECT_EQ(popups.Find(c.id), c.text) << c.id;
  EXPECT_EQ(popups.SkippedCount(), 2u) << "the symbol and the number with words after it";

  PopupText const paragraphs = PopupText::Parse(".topic 7\nOne\ntwo\n\n\nThree\n\n");
  EXPECT_EQ(paragraphs.Find(7), "One\ntwo\n\nThree");
}

TEST(PopupText, LongEntriesAreCutAtACharacter) {
  std::string line;
  while (line.size() < PopupText::MaxTextBytes + 10) line += "\xc3\xa4";  // "ä"
  std::string const text = *PopupText::Parse(".topic 5\nx" + line + "\n").Find(5);
  EXPECT_LE(text.size(), PopupText::MaxTextBytes);
  EXPECT_EQ(text.size() % 2, 1u) << "no half of a two-byte character at the end";
}

}  // namespace
