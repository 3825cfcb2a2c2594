// The RTF reader and writer without a display: what rich text from other
// programs turns into, what damaged input leaves behind, and that what the
// writer writes reads back the same.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/RtfReader.h"
#include "controls/RtfWriter.h"

namespace {

std::string Header() {
  return "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}"
         "{\\f1\\froman\\fcharset204 Times New Roman;}{\\f2\\fmodern Courier New;}}"
         "{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}";
}

struct TextCase {
  char const * name;
  std::string body;
  std::wstring text;
};

TEST(RtfReader, DecodesTextAsWindowsWritesIt) {
  std::vector<TextCase> const cases = {
      {"plain", "Hello world", L"Hello world"},
      {"escapes", "a\\\\b\\{c\\}", L"a\\b{c}"},
      {"unicode skips one fallback", "\\u228?b", L"\u00e4b"},
      {"negative unicode", "\\u-3913?", L"\uf0b7"},
      {"uc2 skips two", "\\uc2\\u8364??x", L"\u20acx"},
      {"uc0 skips none", "\\uc0\\u8364 x", L"\u20acx"},
      {"fallback as hex counts one", "\\u946\\'e2z", L"\u03b2z"},
      {"surrogate pair", "\\u-10179?\\u-8704?", L"\U0001F600"},
      {"lone surrogate", "\\u-10179?x", L"\ufffdx"},
      {"hex in ansi page", "caf\\'e9", L"caf\u00e9"},
      {"hex in the font's page", "\\f1 \\'c4\\'e0", L"\u0414\u0430"},
      {"hex back in ansi after the font", "{\\f1 \\'c4}\\'c4", L"\u0414\u00c4"},
      {"ansicpg for a font without charset", "\\ansicpg1251\\f2\\'c4", L"\u0414"},
      {"line and tab", "a\\line b\\tab c", L"a\nb\tc"},
      {"paragraphs", "a\\par b", L"a\nb"},
      {"line feeds are not text", "a\r\nb", L"ab"},
      {"skipped destinations", "{\\*\\unknown x}{\\info{\\title t}}y", L"y"},
      {"binary skipped in a destination", "{\\*\\blob\\bin3 }}}x}z", L"z"},
      {"typographic words", "\\ldblquote q\\rdblquote \\emdash ", L"\u201cq\u201d\u2014"},
  };
  for (auto const & c : cases) {
    RtfReadResult const read = ReadRtf(Header() + c.body + "}");
    EXPECT_TRUE(read.Complete()) << c.name << ": " << read.failure.Id();
    EXPECT_EQ(read.document.PlainText(), c.text) << c.name;
  }
}

TEST(RtfReader, FormatsFollowGroupsAndTables) {
  RtfReadResult const read = ReadRtf(
      Header() + "\\f0\\fs20 n{\\b b{\\ul u}}{\\cf1 r}{\\f2\\fs30\\i c}\\plain p{\\cf2\\cf0 a}}");
  ASSERT_TRUE(read.Complete()) << read.failure.Id();
  auto const & runs = read.document.paragraphs.at(0);
  ASSERT_EQ(runs.size(), 6u);
  EXPECT_EQ(runs[0].text, L"n");
  EXPECT_EQ(runs[0].format.halfPoints, 20);
  EXPECT_EQ(runs[0].format.face, L"Arial");
  EXPECT_TRUE(runs[1].format.bold && !runs[1].format.underline);
  EXPECT_TRUE(runs[2].format.bold && runs[2].format.underline);
  EXPECT_EQ(runs[3].text, L"r");
  EXPECT_FALSE(runs[3].format.autoColour);
  EXPECT_EQ(runs[3].format.colour, RGB(255, 0, 0));
  EXPECT_FALSE(runs[3].format.bold) << "the group of the bold run ended";
  EXPECT_EQ(runs[4].format.face, L"Courier New");
  EXPECT_EQ(runs[4].format.halfPoints, 30);
  EXPECT_TRUE(runs[4].format.italic);
  // \plain returns to the start format in the default font; \cf0 is auto.
  EXPECT_EQ(runs[5].text, L"pa");
  EXPECT_EQ(runs[5].format.face, L"Arial");
  EXPECT_EQ(runs[5].format.halfPoints, 24);
  EXPECT_TRUE(runs[5].format.autoColour);
}

TEST(RtfReader, KeepsPngAndJpegPictures) {
  RtfReadResult const read =
      ReadRtf(Header() +
              "a{\\pict\\pngblip\\picwgoal300\\pichgoal150 89504e47 0d0a}"
              "{\\pict\\jpegblip\\bin2 \xff\xd8}{\\pict\\wmetafile8 0102}b}");
  ASSERT_TRUE(read.Complete()) << read.failure.Id();
  auto const & runs = read.document.paragraphs.at(0);
  ASSERT_EQ(runs.size(), 4u);
  EXPECT_EQ(runs[1].picture, RichTextPicture::Png);
  EXPECT_EQ(runs[1].pictureBytes, std::string("\x89PNG\r\n"));
  EXPECT_EQ(runs[1].widthTwips, 300);
  EXPECT_EQ(runs[1].heightTwips, 150);
  EXPECT_EQ(runs[2].picture, RichTextPicture::Jpeg);
  EXPECT_EQ(runs[2].pictureBytes, std::string("\xff\xd8"));
  EXPECT_EQ(runs[3].text, L"b") << "a metafile is dropped";
}

struct DamageCase {
  char const * name;
  std::string rtf;
  std::wstring kept;      // what was read before the fault
  char const * mentions;  // a word of the message id
};

TEST(RtfReader, DamagedInputKeepsWhatWasReadAndSaysWhy) {
  std::string const deep = Header() + "ok" + std::string(100000, '{') + "x";
  std::string const nul = Header() + std::string("ab\0c}", 5);
  std::vector<DamageCase> const cases = {
      {"not rich text", "Hello", L"", "not rich text"},
      {"unclosed group", Header() + "abc{\\b d", L"abcd", "ends inside a group"},
      {"extra closing brace", Header() + "ab}}cd", L"ab", "goes on after"},
      {"100000 deep", deep, L"ok", "deeper than"},
      {"huge bin", Header() + "ab\\bin99999999999 x}", L"ab", "out of range"},
      {"bin past the end", Header() + "ab{\\pict\\pngblip\\bin500 xy}}", L"ab", "more bytes"},
      {"huge uc", Header() + "ab\\uc70000 \\u300?}", L"ab", "\\uc"},
      {"huge number", Header() + "ab\\fs123456789012 c}", L"ab", "out of range"},
      {"bad hex", Header() + "ab\\'zzc}", L"ab", "hex"},
      {"bad picture hex", Header() + "ab{\\pict\\pngblip 89x0}c}", L"ab", "hex"},
      {"colour not in the table", Header() + "ab\\cf7 c}", L"ab", "colour 7"},
      {"font not in the table", Header() + "ab\\f9 c}", L"ab", "font 9"},
      {"NUL", nul, L"ab", "NUL"},
      {"control word at the end", Header() + "ab\\", L"ab", "control word"},
  };
  for (auto const & c : cases) {
    RtfReadResult const read = ReadRtf(c.rtf);
    EXPECT_FALSE(read.Complete()) << c.name;
    EXPECT_EQ(read.document.PlainText(), c.kept) << c.name;
    std::string const why = read.failure.ToString(std::locale::classic());
    EXPECT_NE(why.find(c.mentions), std::string::npos) << c.name << ": " << why;
  }
}

TEST(RtfReader, StopsAtTheCharacterLimit) {
  std::string const body(50, 'x');
  RtfReadResult const exact = ReadRtf(Header() + body + "}", 50);
  EXPECT_TRUE(exact.Complete());
  RtfReadResult const over = ReadRtf(Header() + body + "\\par y}", 50);
  EXPECT_FALSE(over.Complete());
  EXPECT_EQ(over.document.PlainText(), std::wstring(50, L'x'));
  EXPECT_NE(over.failure.ToString(std::locale::classic()).find("50"), std::string::npos);
}

TEST(RtfWriter, WhatIsWrittenReadsBackTheSame) {
  RichTextDocument document;
  RichTextFormat bold;
  bold.bold = true;
  bold.face = L"Times New Roman";
  RichTextFormat coloured;
  coloured.underline = true;
  coloured.autoColour = false;
  coloured.colour = RGB(10, 200, 30);
  coloured.halfPoints = 40;
  coloured.face = L"Courier New";
  RichTextFormat plain;
  plain.face = L"Odd {face} \\; \u00e9";
  document.paragraphs = {
      {{bold, L"Bold \\{braces}\t\u00e9\u20ac\U0001F600"}, {coloured, L"green"}},
      {},
      {{plain, L"line\nbreak"}},
  };
  RichTextRun picture;
  picture.format = coloured;
  picture.picture = RichTextPicture::Png;
  picture.pictureBytes = std::string("\x89PNG\0\xff", 6);
  picture.widthTwips = 100;
  document.paragraphs[1].push_back(picture);

  std::string const rtf = WriteRtf(document);
  for (unsigned char c : rtf) ASSERT_LT(c, 0x80) << "rich text is 7-bit";
  RtfReadResult const read = ReadRtf(rtf);
  ASSERT_TRUE(read.Complete()) << read.failure.Id();
  EXPECT_EQ(read.document, document);
  EXPECT_EQ(WriteRtf(read.document), rtf);
}

// Inputs the fuzzers found: a NUL written as \'00 or \u0 is no text, and
// a leading space of a paragraph after an empty one survives any number of
// rounds of writing and reading.
TEST(RtfWriter, RoundsKeepTextExactly) {
  RtfReadResult const nul = ReadRtf("{\\rtf1 a\\'00b\\u0?c}");
  EXPECT_EQ(nul.document.PlainText(), L"abc");

  RichTextDocument document;
  document.paragraphs.assign(2, RichTextParagraph());
  RichTextRun run;
  run.text = L" ! spaced";
  document.paragraphs[1].push_back(run);
  std::string const once = WriteRtf(document);
  RtfReadResult const read = ReadRtf(once);
  ASSERT_TRUE(read.Complete());
  EXPECT_EQ(read.document.PlainText(), document.PlainText());
  EXPECT_EQ(WriteRtf(read.document), once);
}

}  // namespace
