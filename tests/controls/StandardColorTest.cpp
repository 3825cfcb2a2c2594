// The colour table with its candidates, and the HSV arithmetic, against
// values worked out by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "controls/StandardColor.h"

namespace {

// The nearest of a fixed palette, as an indexed display answers.
StandardColor::NearestColorFunction PaletteOf(std::vector<COLORREF> palette) {
  return [palette = std::move(palette)](COLORREF wanted) {
    auto distance = [wanted](COLORREF c) {
      int const r = GetRValue(c) - GetRValue(wanted), g = GetGValue(c) - GetGValue(wanted),
                b = GetBValue(c) - GetBValue(wanted);
      return r * r + g * g + b * b;
    };
    return *std::min_element(palette.begin(), palette.end(),
                             [&](COLORREF a, COLORREF b) { return distance(a) < distance(b); });
  };
}

// The twenty static colours of a 256-colour palette display.
std::vector<COLORREF> const StaticColours = {0x000000, 0x000080, 0x008000, 0x008080, 0x800000,
                                             0x800080, 0x808000, 0xC0C0C0, 0xC0DCC0, 0xF0CAA6,
                                             0xF0FBFF, 0xA4A0A0, 0x808080, 0x0000FF, 0x00FF00,
                                             0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};

class StandardColorTest : public testing::Test {
protected:
  void TearDown() override { StandardColor::SetNearestColorFunction(nullptr); }
};

TEST_F(StandardColorTest, ATrueColourDisplayTakesTheFirstCandidates) {
  StandardColor::SetNearestColorFunction([](COLORREF c) { return c; });
  struct Case {
    int def;
    COLORREF value;
  };
  // The first and last entries of the table, and past its ends: white.
  Case const cases[] = {{StandardColor::Blue, 0xFF8080},
                        {StandardColor::LightMagenta, 0xFF80FF},
                        {-1, 0xFFFFFF},
                        {24, 0xFFFFFF}};
  for (Case const & c : cases) EXPECT_EQ(StandardColor::GetColor(c.def), c.value) << c.def;
}

TEST_F(StandardColorTest, APaletteDisplayTakesTheFirstCandidateItShowsExactly) {
  StandardColor::SetNearestColorFunction(PaletteOf(StaticColours));
  EXPECT_EQ(StandardColor::GetColorBlue(), 0xF0CAA6u);   // third candidate
  EXPECT_EQ(StandardColor::GetColorGreen(), 0xC0DCC0u);  // second
  EXPECT_EQ(StandardColor::GetColorRed(), 0x0000FFu);
  EXPECT_EQ(StandardColor::GetColorYellow(), 0x00FFFFu);
  EXPECT_EQ(StandardColor::GetColorLightGray(), 0xC0C0C0u);
  // On paper the light colours come back.
  std::pair<COLORREF, COLORREF> const printed[] = {{0xF0CAA6, 0xFF8080},
                                                   {0xC0DCC0, 0x80FF80},
                                                   {0x0000FF, 0x8080FF},
                                                   {0x123456, 0x123456},
                                                   {0xFF8080, 0xFF8080}};
  for (auto const & [shown, onPaper] : printed)
    EXPECT_EQ(StandardColor::GetPrintColor(shown), onPaper) << std::hex << shown;
}

TEST_F(StandardColorTest, WhenNoCandidateIsShownTheLastAnswerStands) {
  // Black and white only: every light candidate and the gray end on white.
  StandardColor::SetNearestColorFunction(PaletteOf({0x000000, 0xFFFFFF}));
  EXPECT_EQ(StandardColor::GetColorBlue(), 0xFFFFFFu);
  EXPECT_EQ(StandardColor::GetColorRed(), 0xFFFFFFu);
  EXPECT_EQ(StandardColor::GetColorGray(), 0xFFFFFFu);
  EXPECT_EQ(StandardColor::GetColorBlack(), 0x000000u);
  EXPECT_EQ(StandardColor::GetComment(), 0xFFFFFFu);  // light gray
  // White is the display's blue too, so on paper it turns light blue.
  EXPECT_EQ(StandardColor::GetPrintColor(0xFFFFFF), 0xFF8080u);
}

TEST_F(StandardColorTest, SettersHoldEvenBeforeTheTableIsFilled) {
  // Replacing the display empties the table; a setter must fill it first,
  // or the filling would overwrite what was set.
  StandardColor::SetNearestColorFunction([](COLORREF c) { return c; });
  StandardColor::SetObsNumber(0x040506);
  StandardColor::SetVarName(0x070809);
  EXPECT_EQ(StandardColor::GetObsNumber(), 0x040506u);
  EXPECT_EQ(StandardColor::GetObsPrimary(), 0x040506u);  // the other name follows
  EXPECT_EQ(StandardColor::GetVarPrimary(), 0x070809u);
  EXPECT_EQ(StandardColor::GetObsName(), 0x00EBEBu) << "the others keep their defaults";
  // Setting a colour by meaning leaves the named colours alone.
  EXPECT_EQ(StandardColor::GetColorLightGray(), 0xC0C0C0u);
}

TEST(StandardColorHsv, RgbToHsv) {
  double const noHue = StandardColor::NoHue;
  struct Case {
    COLORREF color;
    double h, s, v;
  };
  Case const cases[] = {{0x0000FF, 0, 1, 1},
                        {0x00FF00, 120, 1, 1},
                        {0xFF0000, 240, 1, 1},
                        {0xFF00FF, 300, 1, 1},  // a hue below 0 wraps round
                        {0x000000, noHue, 0, 0},
                        {0x808080, noHue, 0, 128 / 255.0},
                        {0x0080FF, 128 / 255.0 * 60, 1, 1},  // orange: red full, green half
                        {0x4080C0, 30, 128 / 192.0, 192 / 255.0}};
  for (Case const & c : cases) {
    double h = 0, s = 0, v = 0;
    StandardColor::RGB2HSV(c.color, h, s, v);
    EXPECT_NEAR(h, c.h, 1e-9) << std::hex << c.color;
    EXPECT_NEAR(s, c.s, 1e-9) << std::hex << c.color;
    EXPECT_NEAR(v, c.v, 1e-9) << std::hex << c.color;
  }
}

TEST(StandardColorHsv, HsvToRgbCutsEachChannelDown) {
  double const nan = std::numeric_limits<double>::quiet_NaN();
  struct Case {
    double h, s, v;
    COLORREF color;
  };
  Case const cases[] = {
      {120, 1, 1, 0x00FF00},   {240, 1, 1, 0xFF0000},
      {360, 1, 1, 0x0000FF},                           // 360 is 0
      {30, 1, 1, 0x007FFF},                            // half of 255 cut to 127
      {90, 0.5, 1, 0x7FFFBF},                          // q = 0.75 gives 191
      {180, 1, 0.5, 0x7F7F00}, {270, 1, 1, 0xFF007F},  // blue to magenta: red half
      {300, 1, 1, 0xFF00FF},   {StandardColor::NoHue, 0, 0.5, 0x7F7F7F},  // a gray
      {45, 0, 0.5, 0x000000},  // no saturation with a hue
      {400, 1, 1, 0x000000},   {-30, 1, 1, 0x000000},
      {nan, 1, 1, 0x000000}};
  for (Case const & c : cases)
    EXPECT_EQ(StandardColor::HSV2RGB(c.h, c.s, c.v), c.color) << c.h << " " << c.s << " " << c.v;
}

TEST(StandardColorHsv, InterpolationRunsThroughHsvTheLongWay) {
  struct Case {
    COLORREF from, to;
    std::vector<COLORREF> ramp;
  };
  Case const cases[] = {// Red to blue passes green, not magenta: hue 0 to 240 in steps of 120.
                        {0x0000FF, 0xFF0000, {0x0000FF, 0x00FF00, 0xFF0000}},
                        {0x0000FF, 0xFF0000, {0x0000FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000}},
                        // Two grays: no hue on either side, the ramp stays gray.
                        {0x000000, 0xFFFFFF, {0x000000, 0x7F7F7F, 0xFFFFFF}},
                        // A gray takes the other end's hue: v (128/255 + 1) / 2 is 191.5 of
                        // 255, saturation 1/2 halves it for green and blue (95.75).
                        {0x808080, 0x0000FF, {0x808080, 0x5F5FBF, 0x0000FF}},
                        {0x123456, 0x654321, {0x123456, 0x654321}}};
  for (Case const & c : cases) {
    std::vector<COLORREF> out(c.ramp.size(), 0xDEADBE);
    StandardColor::InterpolateColors(c.from, c.to, out.data(), int(out.size()));
    EXPECT_EQ(out, c.ramp) << std::hex << c.from << " to " << c.to;
  }
  // A ramp of one is its last colour; empty and negative ones touch nothing.
  COLORREF one[2] = {0xAAAAAA, 0xBBBBBB};
  for (int count : {1, 0, -3}) StandardColor::InterpolateColors(0x112233, 0x445566, one, count);
  StandardColor::InterpolateColors(0x112233, 0x445566, nullptr, 5);
  EXPECT_EQ(one[0], 0x445566u);
  EXPECT_EQ(one[1], 0xBBBBBBu);
}

}  // namespace
