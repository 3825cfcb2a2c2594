// The placement string, both ways, and bringing a saved rectangle back onto
// a work area.
#include <gtest/gtest.h>

#include <cstring>

#include "settings/PlacementOnScreen.h"
#include "settings/RectPrinting.h"
#include "settings/WindowPlacement.h"

namespace {

WINDOWPLACEMENT Filled(UINT value) {
  WINDOWPLACEMENT placement;
  std::memset(&placement, static_cast<int>(value), sizeof placement);
  return placement;
}

TEST(WindowPlacementText, RoundTripsEveryFieldInOrder) {
  WINDOWPLACEMENT const extremes{44,
                                 4294967295u,
                                 0,
                                 POINT{-2147483647 - 1, 2147483647},
                                 POINT{-1, -1},
                                 RECT{-3000, -20, 810, 620}};
  WINDOWPLACEMENT const ordinary{44,          0,           SW_SHOWMAXIMIZED,
                                 POINT{1, 2}, POINT{3, 4}, RECT{5, 6, 7, 8}};
  EXPECT_EQ(WindowPlacementToString(ordinary), "0,3,1,2,3,4,5,6,7,8");
  EXPECT_EQ(WindowPlacementToString(extremes),
            "4294967295,0,-2147483648,2147483647,-1,-1,-3000,-20,810,620");
  for (WINDOWPLACEMENT const & original : {ordinary, extremes}) {
    WINDOWPLACEMENT parsed = Filled(0xAB);
    ASSERT_TRUE(ParseWindowPlacement(WindowPlacementToString(original).c_str(), parsed));
    EXPECT_EQ(parsed.length, 44u);
    EXPECT_EQ(WindowPlacementToString(parsed), WindowPlacementToString(original));
  }
}

TEST(WindowPlacementText, RefusesAnythingButTenNumbers) {
  struct Case {
    char const * text;
    char const * why;
  } const cases[] = {
      {"", "empty"},
      {"0,1,2,3,4,5,6,7,8", "nine fields"},
      {"0,1,2,3,4,5,6,7,8,9,10", "eleven fields"},
      {"0,1,2,3,4,5,6,7,8,9 ", "a trailing blank"},
      {"0,1,2,3,4,5,6,7,8,9x", "a number with a tail"},
      {"0,1,2,3,4,5,6,7,,9", "an empty field"},
      {"-1,1,2,3,4,5,6,7,8,9", "a negative unsigned field"},
      {"4294967296,1,2,3,4,5,6,7,8,9", "an unsigned field out of range"},
      {"0,1,-2147483649,3,4,5,6,7,8,9", "a signed field out of range"},
      {"0,1,99999999999999999999999999,3,4,5,6,7,8,9", "a number that overflows 64 bits"},
      {"+0,1,2,3,4,5,6,7,8,9", "a plus sign"},
  };
  for (Case const & c : cases) {
    WINDOWPLACEMENT placement{};
    EXPECT_FALSE(ParseWindowPlacement(c.text, placement)) << c.why << ": \"" << c.text << "\"";
    EXPECT_EQ(placement.length, 44u) << "length is set first";
  }
  WINDOWPLACEMENT placement{};
  EXPECT_FALSE(ParseWindowPlacement(nullptr, placement));
}

TEST(WindowPlacementText, KeepsWhatWasReadBeforeAFailureAndAllowsBlanks) {
  WINDOWPLACEMENT placement = Filled(0);
  EXPECT_FALSE(ParseWindowPlacement("2,3,-5,6,x,1,1,1,1,1", placement));
  EXPECT_EQ(placement.flags, 2u);
  EXPECT_EQ(placement.showCmd, 3u);
  EXPECT_EQ(placement.ptMinPosition.y, 6);
  EXPECT_EQ(placement.ptMaxPosition.x, 0) << "the field that failed is not written";

  ASSERT_TRUE(ParseWindowPlacement(" 0, 1,\t-1, -1,-1,-1, 10, 20, 810, 620", placement));
  EXPECT_EQ(placement.rcNormalPosition, (RECT{10, 20, 810, 620}));
}

// Reachable rectangles stay; lost ones move onto the nearest area, whole
// when they fit.
TEST(PlacementOnScreen, MovesOnlyLostRectanglesOntoTheNearestArea) {
  std::vector<RECT> const areas{{0, 0, 1280, 1000}, {1280, 0, 3200, 1080}};
  struct Case {
    RECT rect;
    RECT expected;
    char const * why;
  } const cases[] = {
      {{1200, 100, 1800, 700}, {1200, 100, 1800, 700}, "across both"},
      {{-700, 100, 100, 700}, {-700, 100, 100, 700}, "100 pixels on the first"},
      {{3150, 1030, 3600, 1400}, {3150, 1030, 3600, 1400}, "a corner of 50 by 50 on the second"},
      {{10, 10, 20, 20}, {10, 10, 20, 20}, "a tiny window, all of it on screen"},
      {{-900, 100, -100, 700}, {0, 100, 800, 700}, "left of the first"},
      {{3000, 1060, 3400, 1400}, {2800, 740, 3200, 1080}, "a 20-pixel corner is too little"},
      {{100, -5000, 900, -4400}, {100, 0, 900, 600}, "above"},
      {{-90000, -9000, -80000, 1000}, {0, 0, 1280, 1000}, "larger than any screen: shrunk"},
      {{-2147483647 - 1, -2147483647 - 1, -2147483000, -2147483000},
       {0, 0, 648, 648},
       "extreme coordinates"},
      {{-500, 50, -900, 10}, {0, 50, 1, 51}, "inverted: one pixel"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.why);
    EXPECT_EQ(VxIsOnAWorkArea(c.rect, areas), c.rect == c.expected);
    EXPECT_EQ(VxBringOntoWorkArea(c.rect, areas), c.expected);
  }
  RECT const anywhere{-50000, -50000, -49000, -49000};
  EXPECT_EQ(VxBringOntoWorkArea(anywhere, {}), anywhere) << "no displays known: nothing to do";
}

}  // namespace
