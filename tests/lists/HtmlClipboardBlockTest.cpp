// The HTML clipboard block, byte for byte: office programs locate the
// document and the fragment by its offsets alone.
#include <gtest/gtest.h>

#include <string>

#include "lists/HtmlClipboardBlock.h"

namespace {

size_t FieldValue(std::string const & block, std::string const & field) {
  size_t const at = block.find(field + ":");
  EXPECT_NE(at, std::string::npos) << field;
  return std::stoul(block.substr(at + field.size() + 1, 22));
}

TEST(HtmlClipboardBlock, IsTheVersionZeroNineBlockByteForByte) {
  auto const block = MakeHTMLClipStringFromText("<b>x</b>");
  ASSERT_TRUE(block);
  EXPECT_EQ(*block,
            "Version:0.9\n"
            "StartHTML:00000169\n"
            "EndHTML:0000000000000000000276\n"
            "StartFragment:00000233\n"
            "EndFragment:00000242\n"
            "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\n"
            "<html><head><title></title></head>\n"
            "<body>\n"
            "<!--StartFragment -->\n"
            "<b>x</b>\n"
            "<!--EndFragment-->\n"
            "</body>\n"
            "</html>");
}

TEST(HtmlClipboardBlock, OffsetsPointAtTheDocumentAndTheFragment) {
  struct Case {
    char const * name;
    std::string fragment;
  };
  for (Case const & c : {Case{"empty", ""}, Case{"utf8", "<td>\xc3\x96lprobe \xe2\x82\xac</td>"},
                         Case{"NUL ends it", std::string("<td>a</td>\0<td>b</td>", 21)},
                         Case{"long", std::string(200000, 'x')}}) {
    SCOPED_TRACE(c.name);
    auto const block = MakeHTMLClipStringFromText(c.fragment.c_str());
    ASSERT_TRUE(block);
    std::string const fragment(c.fragment.c_str());
    size_t const start = FieldValue(*block, "StartFragment");
    size_t const end = FieldValue(*block, "EndFragment");
    EXPECT_EQ(block->substr(start, end - start), fragment + "\n");
    EXPECT_EQ(block->compare(FieldValue(*block, "StartHTML"), 6, "<html>"), 0);
    EXPECT_EQ(FieldValue(*block, "EndHTML"), block->size());
    EXPECT_EQ(block->back(), '>');
    EXPECT_EQ(HtmlDocumentOfClipBlock(*block).compare(0, 6, "<html>"), 0);
  }
}

TEST(HtmlClipboardBlock, FirstMatchDecidesWhereTheFragmentEnds) {
  std::string const fragment = "<td>a</td><!--EndFragment--><td>b</td>";
  auto const block = MakeHTMLClipStringFromText(fragment.c_str());
  ASSERT_TRUE(block);
  size_t const start = FieldValue(*block, "StartFragment");
  EXPECT_EQ(FieldValue(*block, "EndFragment"), start + 10);
  // The numbers keep their widths: the header is not shifted.
  EXPECT_EQ(block->find("<!DOCTYPE"), 106u);
}

TEST(HtmlClipboardBlock, NoBlockWithoutAFragmentOrWhenAnOffsetNeedsNineDigits) {
  EXPECT_FALSE(MakeHTMLClipStringFromText(nullptr));
  size_t const nineDigits = 100000000;  // the fragment alone puts its end there
  std::string const huge(nineDigits, 'x');
  EXPECT_FALSE(MakeHTMLClipStringFromText(huge.c_str()));
  // An early end marker keeps every offset short: the block is made.
  std::string const early = "<!--EndFrag" + huge;
  auto const block = MakeHTMLClipStringFromText(early.c_str());
  ASSERT_TRUE(block);
  EXPECT_EQ(FieldValue(*block, "EndHTML"), block->size());
}

TEST(HtmlClipboardBlock, DocumentFallsBackToTheWholeTextWhenTheOffsetIsBad) {
  for (std::string const text : {"", "StartHTML:0000x000\n<html>", "StartHTML:99999999\n"})
    EXPECT_EQ(HtmlDocumentOfClipBlock(text), text);
}

}  // namespace
