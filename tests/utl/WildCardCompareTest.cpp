// Wildcard matching: the cases users type, and agreement with a reference
// matcher on many random ones.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "WildCardReference.h"
#include "utl/WildCardCompare.h"

namespace {

TEST(WildCardCompare, MatchesTheWholeText) {
  struct Case {
    char const *pattern, *text;
    bool caseSensitive, expected;
  } const cases[] = {
      {"*", "", true, true},
      {"?", "\xc3\xa9", true, true},          // é: one character, two bytes
      {"?", "\xf0\x9f\x98\x80", true, true},  // 😀: one character, four bytes
      {"a?c",
       "a\xe2\x82\xac"
       "c",
       true, true},  // a€c
      {"run*", "Run 7", false, true},
      {"*\xc3\xa9t\xc3\xa9*", "L'\xc3\x89T\xc3\x89 2", false, true},  // *été* / L'ÉTÉ 2
      {"stra?e", "STRASSE", false, false},                            // simple folding: ß is no ss
      {"stra?e",
       "STRA\xc3\x9f"
       "E",
       false, true},
      {"k", "\xe2\x84\xaa", false, true},  // Kelvin sign
      {"ab*ba", "aba", true, false},       // head and tail must not overlap
      {"[a]", "[a]", true, true},          // brackets are plain characters
      {"a\xff*",
       "a\xfe"
       "bc",
       true, true},  // invalid bytes skipped in both
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(std::string(c.pattern) + " / " + c.text);
    EXPECT_EQ(VxString::WildCardCompare(c.pattern, c.text, c.caseSensitive), c.expected);
    EXPECT_EQ(reference::WildCardMatch(c.pattern, c.text, c.caseSensitive), c.expected);
  }
  EXPECT_TRUE(VxString::WildCardCompare(nullptr, nullptr, true));
  EXPECT_TRUE(VxString::WildCardCompare("*", nullptr, false));
}

TEST(WildCardCompare, AgreesWithTheReferenceOnRandomInput) {
  static char const * const patternPieces[] = {"a", "b",        "A",        "*",       "*",
                                               "?", "\xc3\xa9", "\xc3\x89", "\xc3\x9f"};
  static char const * const textPieces[] = {"a",        "b",        "A",        "B",
                                            "\xc3\xa9", "\xc3\x89", "\xc3\x9f", "s"};
  std::mt19937 random(7);
  auto const make = [&](auto const & pieces, int longest) {
    std::uniform_int_distribution<int> length(0, longest);
    std::uniform_int_distribution<size_t> piece(0, std::size(pieces) - 1);
    std::string text;
    for (int n = length(random); n > 0; --n) text += pieces[piece(random)];
    return text;
  };
  // Long pieces over a small alphabet: periodic text, where a search that
  // resumes at the wrong place after a near match misses.
  static char const * const longPatternPieces[] = {"a", "b", "A", "*", "aab", "abaa"};
  static char const * const longTextPieces[] = {"a", "b", "B", "aab"};
  for (int round = 0; round < 40000; ++round) {
    bool const longPieces = round % 2 == 1;
    std::string const pattern = longPieces ? make(longPatternPieces, 12) : make(patternPieces, 7);
    std::string const text = longPieces ? make(longTextPieces, 20) : make(textPieces, 9);
    for (bool const caseSensitive : {true, false}) {
      ASSERT_EQ(VxString::WildCardCompare(pattern.c_str(), text.c_str(), caseSensitive),
                reference::WildCardMatch(pattern, text, caseSensitive))
          << pattern << " / " << text << " / " << caseSensitive;
    }
  }
}

}  // namespace
