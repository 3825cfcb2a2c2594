// The order a header click gives: natural order, both directions, and the
// quicksort's own placement of equal texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <locale>
#include <random>
#include <string>
#include <vector>

#include "lists/ListSortOrder.h"
#include "utl/VxStdString.h"

namespace {

TEST(ListSortOrder, SortsNaturallyInBothDirections) {
  struct Case {
    bool ascending;
    std::vector<std::string> expected;
  };
  std::vector<std::string> const runs{"Run 10", "Run 9", "run 100", "Run 2", "Blank", "Run 9"};
  for (Case const & c : {Case{true, {"Blank", "Run 2", "Run 9", "Run 9", "Run 10", "run 100"}},
                         Case{false, {"run 100", "Run 10", "Run 9", "Run 9", "Run 2", "Blank"}}}) {
    std::vector<std::string> texts = runs;
    std::vector<int> const origin = QuickSortTexts(texts, c.ascending, 0, -1);
    EXPECT_EQ(texts, c.expected);
    ASSERT_EQ(origin.size(), runs.size());
    for (size_t k = 0; k < origin.size(); ++k)
      EXPECT_EQ(runs[static_cast<size_t>(origin[k])], texts[k]) << k;
  }
}

TEST(ListSortOrder, EqualTextsLandWhereTheQuicksortPutsThem) {
  // The middle "b" is the pivot; the first "b" is exchanged with the "a"
  // and so ends after the second: not the order a stable sort gives.
  std::vector<std::string> texts{"b", "b", "a"};
  EXPECT_EQ(QuickSortTexts(texts, true, 0, -1), (std::vector<int>{2, 1, 0}));
  // Equal texts are never exchanged with each other.
  std::vector<std::string> same(5, "Run 1");
  EXPECT_EQ(QuickSortTexts(same, false, 0, -1), (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST(ListSortOrder, SortsOnlyTheRangeAndRefusesTooShortOnes) {
  std::vector<std::string> texts{"d", "c", "b", "a"};
  EXPECT_EQ(QuickSortTexts(texts, true, 1, 2), (std::vector<int>{2, 1}));
  EXPECT_EQ(texts, (std::vector<std::string>{"d", "b", "c", "a"}));
  struct Range {
    int low, high;
  };
  for (Range r : {Range{2, 2}, Range{3, 1}, Range{-1, 2}, Range{0, 4}, Range{0, -1}}) {
    std::vector<std::string> few = r.high == -1 ? std::vector<std::string>{"x"} : texts;
    std::vector<std::string> const before = few;
    EXPECT_TRUE(QuickSortTexts(few, true, r.low, r.high).empty()) << r.low << ".." << r.high;
    EXPECT_EQ(few, before);
  }
}

TEST(ListSortOrder, ManyRandomRowsEndInOrderAsAPermutation) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> number(0, 300);
  std::vector<std::string> texts;
  texts.reserve(5000);
  for (int i = 0; i < 5000; ++i) texts.push_back("Run " + std::to_string(number(random)));
  std::vector<std::string> sorted = texts;
  std::vector<int> origin = QuickSortTexts(sorted, true, 0, -1);
  std::locale const locale;
  EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end(), [&](auto const & a, auto const & b) {
    return VxStdString::CompareNumber(a, b, locale) < 0;
  }));
  std::vector<int> seen = origin;
  std::sort(seen.begin(), seen.end());
  for (int k = 0; k < static_cast<int>(seen.size()); ++k) ASSERT_EQ(seen[k], k);
}

}  // namespace
