// User-perceived characters: what an edit control's selection counts.
#include <gtest/gtest.h>

#include <cstdint>

#include "utl/VxStdString.h"

namespace {

#define E_ACUTE "e\xcc\x81"  // e + U+0301
// man, woman, girl joined by U+200D
#define FAMILY "\xf0\x9f\x91\xa8\xe2\x80\x8d\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x91\xa7"
#define FLAG_DE "\xf0\x9f\x87\xa9\xf0\x9f\x87\xaa"  // regional indicators D E

TEST(GraphemeCluster, CountsUserPerceivedCharacters) {
  struct Case {
    char const * text;
    size_t expected;
  } const cases[] = {
      {"", 0},
      {"a\r\nb", 3},  // CR LF is one
      {E_ACUTE, 1},
      {FLAG_DE, 1},
      {FLAG_DE FLAG_DE, 2},  // regional indicators pair up
      {"x" E_ACUTE "\r\n" FAMILY "y", 5},
      {"a\xff"
       "b",
       2},              // invalid byte skipped
      {"\xcc\x81", 1},  // a lone combining mark is a cluster
  };
  std::locale const locale;
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(VxStdString::GraphemeClusterCount(c.text, locale), c.expected);
  }
}

TEST(GraphemeCluster, SubStringTakesWholeClustersAndClampsTheRange) {
  std::string const text = "x" E_ACUTE "\r\n" FAMILY FLAG_DE "y";  // 6 clusters
  struct Case {
    size_t first, count;
    std::string expected;
  } const cases[] = {
      {1, 1, E_ACUTE},     {1, 3, E_ACUTE "\r\n" FAMILY},
      {4, 2, FLAG_DE "y"}, {5, 10, "y"},  // count beyond the end
      {0, SIZE_MAX, text},                // "all", without overflow
      {6, 1, ""},                         // first at the end
      {SIZE_MAX, 1, ""},
  };
  std::locale const locale;
  for (Case const & c : cases) {
    SCOPED_TRACE(std::to_string(c.first) + "+" + std::to_string(c.count));
    EXPECT_EQ(VxStdString::GraphemeClusterSubString(text, c.first, c.count, locale), c.expected);
  }
  EXPECT_EQ(VxStdString::GraphemeClusterSubString("a\xff" E_ACUTE "b", 1, 1, locale), E_ACUTE);
}

}  // namespace
