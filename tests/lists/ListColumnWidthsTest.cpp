// Column widths kept in the profile: what a damaged or foreign string does
// to the columns.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "lists/ListColumnWidths.h"

namespace {

using Widths = std::vector<std::optional<int>>;

TEST(ListColumnWidths, StoredStringsApplyOnlyWhatIsSound) {
  struct Case {
    char const * stored;
    int columns;
    Widths expected;
  };
  Case const cases[] = {
      {"2,120,80", 2, {120, 80}},
      {" 2 , 120 ,80 ", 2, {120, 80}},
      {"3,120,80", 2, {}},  // another list's count
      {"2,120,80", 3, {}},  // columns added since
      {"", 2, {}},
      {"x,1,2", 2, {}},
      {"2x,1,2", 2, {}},
      {"-2,1,2", 2, {}},
      {"2,abc,-5", 2, {std::nullopt, std::nullopt}},  // kept as they are
      {"2,99999999999,70000", 2, {std::nullopt, kMaxStoredColumnWidth}},
      {"2,50", 2, {50, std::nullopt}},
      {"2,50,60,70", 2, {50, 60}},
      {"1,\xff\xfe"
       "40",
       1,
       {40}},  // invalid UTF-8 dropped
      {"0", 0, {}},
  };
  for (Case const & c : cases)
    EXPECT_EQ(ParseColumnWidths(c.stored, c.columns), c.expected) << c.stored;
}

TEST(ListColumnWidths, ComposedStringReadsBack) {
  std::vector<int> const widths{120, 0, 80};
  std::string const stored = ComposeColumnWidths(widths);
  EXPECT_EQ(stored, "3,120,0,80");
  EXPECT_EQ(ParseColumnWidths(stored, 3), (Widths{120, 0, 80}));
  EXPECT_EQ(ComposeColumnWidths({}), "0");
}

}  // namespace
