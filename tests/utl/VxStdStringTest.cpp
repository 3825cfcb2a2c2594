// Case-insensitive comparison, search and lower-casing of UTF-8 text.
#include <gtest/gtest.h>

#include <boost/locale/generator.hpp>

#include "utl/VxStdString.h"

namespace {

int Sign(int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; }

TEST(CompareNoCase, FoldsCaseFullyAndIgnoresInvalidBytes) {
  struct Case {
    char const *a, *b;
    int expected;
  } const cases[] = {
      {"Registry", "rEGISTRY", 0},
      {"abc", "abd", -1},
      {"Z", "a", 1},                                  // by folded letter, not by byte
      {"\xc3\x89t\xc3\xa9", "\xc3\xa9T\xc3\x89", 0},  // Été / éTÉ
      {"STRASSE",
       "stra\xc3\x9f"
       "e",
       0},  // ß folds to ss
      {"\xe2\x84\xaa"
       "elvin",
       "kelvin", 0},                                                // Kelvin sign folds to k
      {"\xce\xa3\xce\x9f\xce\xa6", "\xcf\x83\xce\xbf\xcf\x86", 0},  // ΣΟΦ / σοφ
      {"I", "\xc4\xb1", -1},          // dotless ı is not i (no Turkic folding)
      {"\xc4\xb0", "i", 1},           // İ folds to i + U+0307, longer than i
      {"e\xcc\x81", "\xc3\xa9", -1},  // not normalised: e+U+0301 before é
      {"a\xff"
       "b",
       "AB", 0},  // invalid byte skipped
      {"\xe2\x82"
       "x",
       "X", 0},                                      // cut sequence skipped, x kept
      {"\xf0\x9f\x98\x80", "\xf0\x9f\x98\x81", -1},  // beyond the BMP by code point
  };
  std::locale const locale;
  for (Case const & c : cases) {
    SCOPED_TRACE(std::string(c.a) + " / " + c.b);
    EXPECT_EQ(Sign(VxStdString::CompareNoCase(c.a, c.b, locale)), c.expected);
    EXPECT_EQ(Sign(VxStdString::CompareNoCase(c.b, c.a, locale)), -c.expected);
  }
}

TEST(ContainsNoCase, FindsFoldedParts) {
  struct Case {
    char const *text, *part;
    bool expected;
  } const cases[] = {
      {"anything", "", true},
      {"Pump Station 12", "station", true},
      {"abababc", "ababc", true},  // restart after a partial match
      {"Gro\xc3\x9f"
       "e Stra\xc3\x9f"
       "e",
       "STRASSE", true},
      {"GROSSE", "\xc3\x9f", true},  // ß in the part, ss in the text
      {"\xe2\x84\xaa", "k", true},   // non-ASCII text, ASCII part
      {"k", "\xe2\x84\xaa", true},   // ASCII text, non-ASCII part
      {"a\xff"
       "b",
       "ab", true},                  // invalid byte skipped
      {"x\xc4\xb1x", "xix", false},  // dotless ı
  };
  std::locale const locale;
  for (Case const & c : cases) {
    SCOPED_TRACE(std::string(c.text) + " / " + c.part);
    EXPECT_EQ(VxStdString::ContainsNoCase(c.text, c.part, locale), c.expected);
  }
}

TEST(ToLowerCase, FollowsTheLanguageOnlyWithABoostLocaleConverter) {
  std::locale const plain = std::locale::classic();
  EXPECT_EQ(VxStdString::ToLowerCase("MIXED Case \xc3\x89T\xc3\x89", plain),
            "mixed case \xc3\xa9t\xc3\xa9");
  EXPECT_EQ(VxStdString::ToLowerCase("A\xff\xc3"
                                     "B",
                                     plain),
            "ab");

  boost::locale::generator generator;
  std::locale const turkish = generator("tr_TR.UTF-8");
  std::locale const english = generator("en_US.UTF-8");
  EXPECT_EQ(VxStdString::ToLowerCase("I", turkish), "\xc4\xb1");  // ı
  EXPECT_EQ(VxStdString::ToLowerCase("I", english), "i");
  EXPECT_EQ(VxStdString::ToLowerCase("KAR\xff"
                                     "I",
                                     turkish),
            "kar\xc4\xb1");
}

}  // namespace
