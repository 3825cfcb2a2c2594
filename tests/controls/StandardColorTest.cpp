// The colour table with its candidates, and the HSV arithmetic, against
// values worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "controls/StandardColor.h"

namespace {

// The nearest of a fixed palette, as an indexed display answers.
StandardColor::NearestColorFunction PaletteOf(std::vector<COLORREF> palette) {
  return [palette](COLORREF wanted) {
    auto distance = [wanted](COLORREF c) {
      int const r = GetRValue(c) - GetRValue(wanted), g = GetGValue(c) - GetGValue(wanted),
                b = GetBValue(c) - GetBValue(wanted);
      return r * r + g * g + b * b;
    };
    COLORREF best = palette.front();
    for (COLORREF c : palette)
      if (distance(c) < distance(best)) best = c;
    return best;
  };
}

// The twenty static colours of a 256-colour palette display.
std::vector<COLORREF> const StaticColours = {
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000,
    0xC0C0C0, 0xC0DCC0, 0xF0CAA6, 0xF0FBFF, 0xA4A0A0, 0x808080, 0x0000FF,
    0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};

class StandardColorTest : public testing::Test {
protected:
  void TearDown() override { StandardColor::SetNearestColorFunction(nullptr); }
};

TEST_F(StandardColorTest, ATrueColourDisplayTakesTheFirstCandidates) {
  StandardColor::SetNearestColorFunction([](COLORREF c) { return c; });
  struct Case { int def; COLORREF value; };
  Case const cases[] = {
      {StandardColor::Blue, 0xFF8080},       {StandardColor::Red, 0x8080FF},
      {StandardColor::Green, 0x80FF80},      {StandardColor::Yellow, 0x80FFFF},
      {StandardColor::Gray, 0x808080},       {StandardColor::LightGray, 0xC0C0C0},
      {StandardColor::White, 0xFFFFFF},      {StandardColor::Black, 0x000000},
      {StandardColor::Cyan, 0xFFFF00},       {StandardColor::Magenta, 0xFF00FF},
      {StandardColor::DarkYellow, 0x008080}, {StandardColor::Navy, 0x800000},
      {StandardColor::Purple, 0x800080},     {StandardColor::Wine, 0x000080},
      {StandardColor::Olive, 0x008000},      {StandardColor::DarkCyan, 0x808000},
      {StandardColor::Royal, 0xA00000},      {StandardColor::Orange, 0x0080FF},
      {StandardColor::Violet, 0xFF0080},     {StandardColor::Pink, 0x8000FF},
      {StandardColor::SoftPink, 0xB7BBFF},   {StandardColor::LightYellow, 0x80FFFF},
      {StandardColor::LightCyan, 0xFFFF80},  {StandardColor::LightMagenta, 0xFF80FF},
      {-1, 0xFFFFFF},                        {24, 0xFFFFFF},
      {1000, 0xFFFFFF}};
  for (Case const & c : cases) EXPECT_EQ(StandardColor::GetColor(c.def), c.value) << c.def;

  EXPECT_EQ(StandardColor::GetColorBlue(), 0xFF8080u);
  EXPECT_EQ(StandardColor::GetColorSoftPink(), 0xB7BBFFu);
  EXPECT_EQ(StandardColor::GetColorLightMagenta(), 0xFF80FFu);
}

TEST_F(StandardColorTest, APaletteDisplayTakesTheFirstCandidateItShowsExactly) {
  StandardColor::SetNearestColorFunction(PaletteOf(StaticColours));
  EXPECT_EQ(StandardColor::GetColorBlue(), 0xF0CAA6u);  // third candidate
  EXPECT_EQ(StandardColor::GetColorGreen(), 0xC0DCC0u);  // second
  EXPECT_EQ(StandardColor::GetColorRed(), 0x0000FFu);
  EXPECT_EQ(StandardColor::GetColorYellow(), 0x00FFFFu);
  EXPECT_EQ(StandardColor::GetColorLightGray(), 0xC0C0C0u);
  // On paper the light colours come back.
  EXPECT_EQ(StandardColor::GetPrintColor(0xF0CAA6), 0xFF8080u);
  EXPECT_EQ(StandardColor::GetPrintColor(0xC0DCC0), 0x80FF80u);
  EXPECT_EQ(StandardColor::GetPrintColor(0x0000FF), 0x8080FFu);
  EXPECT_EQ(StandardColor::GetPrintColor(0x00FFFF), 0x80FFFFu);
  EXPECT_EQ(StandardColor::GetPrintColor(0x123456), 0x123456u);
  EXPECT_EQ(StandardColor::GetPrintColor(0xFF8080), 0xFF8080u);
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

TEST_F(StandardColorTest, ColoursByMeaningAndTheirOtherNames) {
  StandardColor::SetNearestColorFunction([](COLORREF c) { return c; });
  struct Case { COLORREF (*getter)(); COLORREF value; char const * name; };
  Case const cases[] = {
      {StandardColor::GetComment, 0xC0C0C0, "Comment"},
      {StandardColor::GetData, 0xFFFFFF, "Data"},
      {StandardColor::GetMisVal, 0xBFBFFF, "MisVal"},
      {StandardColor::GetObsName, 0x00EBEB, "ObsName"},
      {StandardColor::GetObsNumber, 0x00C0C0, "ObsNumber"},
      {StandardColor::GetVarName, 0x3CAA1E, "VarName"},
      {StandardColor::GetVarNumber, 0x46E61E, "VarNumber"},
      {StandardColor::GetText, 0xFFFF00, "Text"},
      {StandardColor::GetQualitative, 0xE9E9AC, "Qualitative"},
      {StandardColor::GetYQualitative, 0xCBC77E, "YQualitative"},
      {StandardColor::GetPredictionCaption, 0xFFA26F, "PredictionCaption"},
      {StandardColor::GetPrediction, 0xFFE1A0, "Prediction"},
      {StandardColor::GetYVar, 0x3599C8, "YVar"},
      {StandardColor::GetYVarData, 0xB3D9EB, "YVarData"},
      {StandardColor::GetTime, 0xB3D9EB, "Time"},
      {StandardColor::GetDateTime, 0x69B4D8, "DateTime"},
      {StandardColor::GetMaturity, 0xB2C8EC, "Maturity"},
      {StandardColor::GetInitialCondition, 0xDBDBE5, "InitialCondition"},
      {StandardColor::GetBatchID, 0x43DEFF, "BatchID"},
      {StandardColor::GetPhaseID, 0xA3F8F8, "PhaseID"},
      {StandardColor::GetTalvoText, 0xE6E6E6, "TalvoText"},
      {StandardColor::GetMarking, 0x0080FF, "Marking"},
      {StandardColor::GetObsPrimary, 0x00C0C0, "ObsPrimary"},
      {StandardColor::GetObsSecondary, 0x00EBEB, "ObsSecondary"},
      {StandardColor::GetVarPrimary, 0x3CAA1E, "VarPrimary"},
      {StandardColor::GetVarSecondary, 0x46E61E, "VarSecondary"}};
  for (Case const & c : cases) EXPECT_EQ(c.getter(), c.value) << c.name;
}

TEST_F(StandardColorTest, SettersHoldEvenBeforeTheTableIsFilled) {
  // Replacing the display empties the table; a setter must fill it first,
  // or the filling would overwrite what was set.
  StandardColor::SetNearestColorFunction([](COLORREF c) { return c; });
  StandardColor::SetText(0x010203);
  StandardColor::SetObsNumber(0x040506);
  StandardColor::SetVarName(0x070809);
  EXPECT_EQ(StandardColor::GetText(), 0x010203u);
  EXPECT_EQ(StandardColor::GetObsNumber(), 0x040506u);
  EXPECT_EQ(StandardColor::GetObsPrimary(), 0x040506u);  // the other name follows
  EXPECT_EQ(StandardColor::GetVarPrimary(), 0x070809u);
  struct Case { void (*setter)(COLORREF); COLORREF (*getter)(); };
  Case const cases[] = {{StandardColor::SetComment, StandardColor::GetComment},
                        {StandardColor::SetData, StandardColor::GetData},
                        {StandardColor::SetMisVal, StandardColor::GetMisVal},
                        {StandardColor::SetObsName, StandardColor::GetObsName},
                        {StandardColor::SetVarNumber, StandardColor::GetVarNumber}};
  COLORREF value = 0x100000;
  for (Case const & c : cases) {
    c.setter(++value);
    EXPECT_EQ(c.getter(), value);
  }
  // Setting a colour by meaning leaves the named colours alone.
  EXPECT_EQ(StandardColor::GetColorLightGray(), 0xC0C0C0u);
}

TEST(StandardColorHsv, RgbToHsv) {
  double const noHue = StandardColor::NoHue;
  struct Case { COLORREF color; double h, s, v; };
  Case const cases[] = {
      {0x0000FF, 0, 1, 1},         {0x00FF00, 120, 1, 1},     {0xFF0000, 240, 1, 1},
      {0x00FFFF, 60, 1, 1},        {0xFF00FF, 300, 1, 1},     {0xFFFF00, 180, 1, 1},
      {0x000000, noHue, 0, 0},     {0xFFFFFF, noHue, 0, 1},   {0x808080, noHue, 0, 128 / 255.0},
      {0x0080FF, 128 / 255.0 * 60, 1, 1},  // orange: red full, green half
      {0x4080C0, 30, 128 / 192.0, 192 / 255.0},
      {0xFF8080, 240, 1 - 128 / 255.0, 1}};
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
  struct Case { double h, s, v; COLORREF color; };
  Case const cases[] = {
      {0, 1, 1, 0x0000FF},   {120, 1, 1, 0x00FF00},  {240, 1, 1, 0xFF0000},
      {360, 1, 1, 0x0000FF},                         // 360 is 0
      {30, 1, 1, 0x007FFF},                          // half of 255 cut to 127
      {90, 0.5, 1, 0x7FFFBF},                        // q = 0.75 gives 191
      {300, 1, 1, 0xFF00FF},  {180, 1, 0.5, 0x7F7F00},
      {StandardColor::NoHue, 0, 0.5, 0x7F7F7F},      // a gray
      {StandardColor::NoHue, 0, 1, 0xFFFFFF},
      {45, 0, 0.5, 0x000000},                        // no saturation with a hue
      {400, 1, 1, 0x000000},  {-30, 1, 1, 0x000000}, {nan, 1, 1, 0x000000}};
  for (Case const & c : cases)
    EXPECT_EQ(StandardColor::HSV2RGB(c.h, c.s, c.v), c.color) << c.h << " " << c.s << " " << c.v;
}

TEST(StandardColorHsv, InterpolationRunsThroughHsvTheLongWay) {
  struct Case { COLORREF from, to; std::vector<COLORREF> ramp; };
  Case const cases[] = {
      // Red to blue passes green, not magenta: hue 0 to 240 in steps of 120.
      {0x0000FF, 0xFF0000, {0x0000FF, 0x00FF00, 0xFF0000}},
      {0x0000FF, 0xFF0000, {0x0000FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000}},
      // Two grays: no hue on either side, the ramp stays gray.
      {0x000000, 0xFFFFFF, {0x000000, 0x7F7F7F, 0xFFFFFF}},
      {0xFFFFFF, 0xFFFFFF, {0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}},
      // A gray takes the other end's hue: v (128/255 + 1) / 2 is 191.5 of
      // 255, saturation 1/2 halves it for green and blue (95.75).
      {0x808080, 0x0000FF, {0x808080, 0x5F5FBF, 0x0000FF}},
      {0x123456, 0x654321, {0x123456, 0x654321}}};
  for (Case const & c : cases) {
    std::vector<COLORREF> out(c.ramp.size(), 0xDEADBE);
    StandardColor::InterpolateColors(c.from, c.to, out.data(), int(out.size()));
    EXPECT_EQ(out, c.ramp) << std::hex << c.from << " to " << c.to;
  }
}

TEST(StandardColorHsv, DegenerateRampsTouchOnlyWhatTheyHave) {
  COLORREF one[2] = {0xAAAAAA, 0xBBBBBB};
  StandardColor::InterpolateColors(0x112233, 0x445566, one, 1);
  EXPECT_EQ(one[0], 0x445566u);  // the last entry is the first
  EXPECT_EQ(one[1], 0xBBBBBBu);
  StandardColor::InterpolateColors(0x112233, 0x445566, one, 0);
  StandardColor::InterpolateColors(0x112233, 0x445566, one, -3);
  StandardColor::InterpolateColors(0x112233, 0x445566, nullptr, 5);
  EXPECT_EQ(one[0], 0x445566u);
}

}  // namespace
