// The filter-box language: how filters read, leniently and strictly.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "utl/FilterMatcher.h"

namespace {

using Problem = FilterMatcher::Problem;

TEST(FilterMatcher, SelectsTheTextsTheFilterDescribes) {
  std::vector<std::string> const texts = {
      "Pump station 12",
      "Valve 7",
      "pump valve",
      "Cold water tank",
      "cold",
      "water cold",
      "run-3.csv",
      "Run 4.CSV",
      "Dry run 5",
      "a|b",
      "say \"hi\"",
      // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): split so that e is no hex digit.
      "Stra\xc3\x9f"
      "e",
      "",
  };
  struct Case {
    char const * filter;
    std::vector<int> matching;  // indexes into texts
  } const cases[] = {
      {"", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
      {"pump", {0, 2}},             // substring, no regard to case
      {"PUMP valve", {2}},          // AND
      {"pump | valve", {0, 1, 2}},  // OR
      {"pump -valve", {0}},         // exclusion
      {"\"cold water\"", {3}},      // one term with a blank
      {"-\"cold water\" cold", {4, 5}},
      {"pump station | cold -water", {0, 4}},  // "|" binds loosest
      {"*.csv", {6, 7}},                       // wildcards match the whole text
      {"run", {6, 7, 8}},
      {"?alve*", {1}},
      {"--3", {0, 1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12}},  // excludes "-3"
      {"\"-\"", {6}},                                    // a quoted minus is searched for
      {"\"a|b\"", {9}},                                  // a quoted bar too
      {"\"say \"\"hi\"\"\"", {10}},                      // "" inside quotes is a quotation mark
      {"strasse", {11}},                                 // full folding: ß is ss
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.filter);
    EXPECT_EQ(FilterMatcher::FindProblem(c.filter), Problem::None);
    FilterMatcher const matcher(c.filter);
    std::vector<int> matching;
    for (size_t i = 0; i < texts.size(); ++i)
      if (matcher.MatchString(texts[i])) matching.push_back(static_cast<int>(i));
    EXPECT_EQ(matching, c.matching);
  }
}

TEST(FilterMatcher, ReadsMalformedFiltersLenientlyAndNamesTheLastProblem) {
  struct Case {
    char const * filter;
    Problem problem;
    char const * sameAs;  // a well-formed filter with the lenient meaning
  } const cases[] = {
      {"\"cold wat", Problem::UnclosedQuote, "\"cold wat\""},
      {"pump \"", Problem::UnclosedQuote, "pump"},
      {"a - b", Problem::MinusWithoutText, "a b"},
      {"a -|b", Problem::MinusWithoutText, "a|b"},
      {"a \"\" b", Problem::EmptyQuotes, "a b"},
      {"a||b", Problem::EmptyAlternative, "a|b"},
      {"a |", Problem::EmptyAlternative, "a"},
      {"- \"x", Problem::UnclosedQuote, "\"x\""},  // the last problem wins
      {"\"x\" - |", Problem::EmptyAlternative, "x"},
  };
  std::vector<std::string> const texts = {"cold water", "pump", "a b", "a",  "b",
                                          "x",          "-",    "",    "\"", "cold wat"};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.filter);
    EXPECT_EQ(FilterMatcher::FindProblem(c.filter), c.problem);
    ASSERT_EQ(FilterMatcher::FindProblem(c.sameAs), Problem::None);
    FilterMatcher const lenient(c.filter);
    FilterMatcher const meant(c.sameAs);
    for (std::string const & text : texts)
      EXPECT_EQ(lenient.MatchString(text), meant.MatchString(text)) << text;
  }
}

TEST(FilterMatcher, SkipsInvalidUtf8InFilterAndText) {
  FilterMatcher const matcher("pu\xffmp -v\xc3");
  EXPECT_EQ(FilterMatcher::FindProblem("pu\xffmp"), Problem::None);
  EXPECT_TRUE(matcher.MatchString("PU\xfeMP"));
  EXPECT_FALSE(matcher.MatchString("pump valve"));
  EXPECT_TRUE(FilterMatcher("caf\xc3\xa9").MatchString("CAF\xc3\x89\xff"));
}

}  // namespace
