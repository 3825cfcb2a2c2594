// The tree's text form on a plain model: what each kind of indentation
// builds, the line ends read, round trips, and text that is refused whole.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "lists/TreeText.h"
#include "utl/Exception.h"

namespace {

// Items as (parent, text); item n is nodes[n - 1].
struct Model : TreeTextBuilder, TreeTextWalk {
  struct Node {
    Item parent;
    std::string text;
  };
  std::vector<Node> nodes;

  Item AddChild(Item parent, std::string_view text) override {
    nodes.push_back({parent, std::string(text)});
    return nodes.size();
  }
  size_t Depth(Item item) const {
    size_t depth = 0;
    for (Item up = nodes[item - 1].parent; up != 0; up = nodes[up - 1].parent) ++depth;
    return depth;
  }
  // Items were appended as last children in walking order, so the walk is
  // the order of `nodes`.
  size_t walked = 0;
  bool Next(size_t & depth, std::string & text) override {
    if (walked == nodes.size()) return false;
    depth = Depth(++walked);
    text = nodes[walked - 1].text;
    return true;
  }
  // "depth:text" a line, to compare shapes.
  std::string Shape() const {
    std::string out;
    for (size_t n = 1; n <= nodes.size(); ++n)
      out += std::to_string(Depth(n)) + ":" + nodes[n - 1].text + "\n";
    return out;
  }
};

TEST(TreeText, IndentationBuildsTheShape) {
  struct Case {
    char const * name;
    std::string text;
    char const * shape;
  };
  Case const cases[] = {
      {"plain", "a\r\n\tb\r\n\t\tc\r\n\td\r\ne\r\n", "0:a\n1:b\n2:c\n1:d\n0:e\n"},
      {"first line indented", "\t\ta\r\n\t\t\tb\r\n\t\tc\r\n", "0:a\n1:b\n0:c\n"},
      {"deeper jump is a child", "a\n\t\t\t\tb\n\t\t\t\t\t\t\tc\n\td\n", "0:a\n1:b\n2:c\n1:d\n"},
      {"up several levels", "a\n\tb\n\t\tc\n\t\t\td\ne\n\tf\n", "0:a\n1:b\n2:c\n3:d\n0:e\n1:f\n"},
      {"shallower than the first", "\t\ta\n\t\t\tb\nc\n\td\n\t\t\te\n",
       "0:a\n1:b\n0:c\n0:d\n1:e\n"},
      {"empty lines skipped", "\r\n\r\na\r\n\r\n\tb\n\n", "0:a\n1:b\n"},
      {"LF, CR and CRLF", "a\n\tb\r\tc\r\n\t\td", "0:a\n1:b\n1:c\n2:d\n"},
      {"no line end", "only", "0:only\n"},
      {"tabs inside text stay", "a\tb\n\tc\td", "0:a\tb\n1:c\td\n"},
      {"tabs-only line is an empty item", "a\n\t\n", "0:a\n1:\n"},
      {"nothing", "", ""},
  };
  for (Case const & c : cases) {
    Model model;
    ReadTreeText(c.text, model);
    EXPECT_EQ(model.Shape(), c.shape) << c.name;
  }
}

TEST(TreeText, WritesTabsTextAndCrLfAndReadsItBack) {
  Model model;
  ReadTreeText("Projekt Ä\n\tRun 1\n\t\tPeak ß\n\tRun 2\nZweites\n", model);
  std::ostringstream out;
  WriteTreeText(model, out);
  EXPECT_EQ(out.str(), "Projekt Ä\r\n\tRun 1\r\n\t\tPeak ß\r\n\tRun 2\r\nZweites\r\n");

  Model again;
  std::istringstream in(out.str());
  ReadTreeText(in, again);
  EXPECT_EQ(again.Shape(), model.Shape());
}

TEST(TreeText, LineBreaksInsideAnItemAreWrittenAsSpaces) {
  Model model;
  model.AddChild(0, "two\nlines\rhere");
  std::ostringstream out;
  WriteTreeText(model, out);
  EXPECT_EQ(out.str(), "two lines here\r\n");
}

TEST(TreeText, RefusedTextAddsNothingAndNamesTheLine) {
  struct Case {
    std::string text;
    char const * why;
  };
  Case const cases[] = {
      {std::string("a\n\tb\n\tc\xC3"), "not valid UTF-8 in line 3"},
      {std::string("a\r\n\xFF\xFE", 5), "not valid UTF-8 in line 2"},
      {std::string("a\rb\r\0c", 6), "NUL character in line 3"},
      {std::string("\xED\xA0\x80", 3), "not valid UTF-8 in line 1"},  // a surrogate
  };
  for (Case const & c : cases) {
    Model model;
    try {
      ReadTreeText(c.text, model);
      ADD_FAILURE() << "accepted: " << c.why;
    } catch (Exception const & e) {
      EXPECT_NE(e.Why().find(c.why), std::string::npos) << e.Why();
    }
    EXPECT_TRUE(model.nodes.empty()) << c.why;
  }
}

TEST(TreeText, ExtremeShapesLoadWithoutRecursion) {
  // 3,000 levels, each line one tab deeper, then back to the root at once.
  std::string deep;
  for (size_t level = 0; level < 3000; ++level) deep += std::string(level, '\t') + "x\n";
  deep += "root\n";
  Model model;
  ReadTreeText(deep, model);
  ASSERT_EQ(model.nodes.size(), 3001u);
  EXPECT_EQ(model.nodes[2999].parent, 2999u);
  EXPECT_EQ(model.nodes[3000].parent, 0u);

  Model wide;
  std::string const megabyte(1 << 20, 'm');
  ReadTreeText("root\n" + std::string(100000, '\t') + "far\n\t" + megabyte + "\n" + megabyte, wide);
  ASSERT_EQ(wide.nodes.size(), 4u);
  EXPECT_EQ(wide.Shape().substr(0, 17), "0:root\n1:far\n1:mm");
  EXPECT_TRUE(wide.nodes[2].text == megabyte && wide.nodes[3].text == megabyte);
  EXPECT_EQ(wide.Depth(4), 0u);
}

TEST(TreeText, AFailingStreamIsAnError) {
  Model model;
  model.AddChild(0, "a");
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  EXPECT_THROW(WriteTreeText(model, out), Exception);
}

}  // namespace
