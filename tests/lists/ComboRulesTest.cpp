// The rules the combo boxes compute by: which item a data value selects,
// how many rows the drop-down shows, and how checked items are joined.
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "lists/ListSeparator.h"
#include "lists/VxComboBox.h"

namespace {

TEST(ComboRulesTest, NearestDataSelectsExactThenNearestEarliestOnTie) {
  struct Case {
    std::vector<uint64_t> items;
    uint64_t data;
    int expected;
  };
  uint64_t const minus5 = static_cast<uint64_t>(static_cast<uint32_t>(-5));
  Case const cases[] = {
      {{}, 7, -1},            // nothing to select
      {{10, 20, 30}, 20, 1},  // exact
      {{10, 20, 30}, 24, 1},  // nearer the lower
      {{10, 20, 30}, 26, 2},  // nearer the upper
      {{10, 20, 30}, 25, 1},  // a tie: the earlier
      {{30, 20, 10}, 25, 0},  // a tie the other way round
      {{10, 20, 20}, 21, 1},  // equal items: the first
      {{5, minus5}, static_cast<uint64_t>(static_cast<uint32_t>(-4)), 1},  // negative 32-bit values
      {{0x100000005ULL, 9}, 0x100000005ULL, 0},  // exact compares all 64 bits
      {{0x100000005ULL, 9}, 6, 0},               // nearness reads 32 bits: 5 is nearer 6
      {{0x7FFFFFFF, 0}, 0x80000000ULL, 1},       // far apart: no wrap, -2^31 is nearer 0
  };
  for (auto const & c : cases)
    EXPECT_EQ(VxComboBox::FindNearest(c.items, c.data), c.expected)
        << "data " << c.data << " among " << c.items.size() << " items";
}

TEST(ComboRulesTest, DropDownKeepsTwoRowsAndAThirdOfTheMonitor) {
  struct Case {
    int count, itemHeight, monitorHeight, rows, height;
  };
  Case const cases[] = {
      {0, 20, 900, 2, 80},     // an empty list still asks for two rows
      {1, 20, 900, 2, 80},     // so does a list of one
      {5, 20, 900, 5, 140},    // rows plus two rows' margin
      {13, 20, 900, 13, 300},  // exactly a third fits
      {14, 20, 900, 15, 300},  // over a third: whole rows of the third
      {1000, 17, 1080, 21, 357},
  };
  for (auto const & c : cases) {
    VxComboBox::DropDown const drop =
        VxComboBox::ComputeDropDown(c.count, c.itemHeight, c.monitorHeight);
    EXPECT_EQ(drop.rows, c.rows) << c.count << " items";
    EXPECT_EQ(drop.height, c.height) << c.count << " items";
  }
}

TEST(ComboRulesTest, ListSeparatorFollowsTheDecimalPoint) {
  EXPECT_EQ(ListSeparatorFor(","), ";");
  EXPECT_EQ(ListSeparatorFor("."), ",");
  EXPECT_EQ(ListSeparatorFor(""), ",");
  // The user's locale is read from the environment; C has a decimal point.
  setenv("LC_ALL", "C", 1);
  EXPECT_EQ(UserListSeparator(), ",");
  setenv("LC_ALL", "no_such_LOCALE.UTF-8", 1);
  EXPECT_EQ(UserListSeparator(), ",");
  unsetenv("LC_ALL");
}

}  // namespace
