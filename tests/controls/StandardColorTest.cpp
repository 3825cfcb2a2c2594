// The colour table with its candidates, and the HSV arithmetic, against
// values worked out by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
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

// A display that shows exactly the colours of `shown` and answers any other
// with a near one that is in no table.
COLORREF Near(COLORREF c) { return c ^ 0x010101; }
StandardColor::NearestColorFunction Showing(std::vector<COLORREF> shown) {
  return [shown = std::move(shown)](COLORREF wanted) {
    return std::find(shown.begin(), shown.end(), wanted) != shown.end() ? wanted : Near(wanted);
  };
}

class StandardColorTest : public testing::Test {
protected:
  void TearDown() override { StandardColor::SetNearestColorFunction(nullptr); }
};

using Getter = COLORREF (*)();

// The light colours and their candidates, in the order they are tried.
struct Candidates {
  int def;
  Getter getter;
  std::vector<COLORREF> list;
};
std::vector<Candidates> const LightColours = {
    {StandardColor::Blue,
     &StandardColor::GetColorBlue,
     {0xFF8080, 0xF0C8A4, 0xF0CAA6, 0xFF0000, 0x808080}},
    {StandardColor::Red, &StandardColor::GetColorRed, {0x8080FF, 0x0000FF, 0x808080}},
    {StandardColor::Green,
     &StandardColor::GetColorGreen,
     {0x80FF80, 0xC0DCC0, 0x808000, 0x00FF00, 0x808080}},
    {StandardColor::Yellow, &StandardColor::GetColorYellow, {0x80FFFF, 0x00FFFF, 0x808080}},
};

TEST_F(StandardColorTest, EveryNamedColourOnATrueColourDisplay) {
  StandardColor::SetNearestColorFunction([](COLORREF c) { return c; });
  struct Case {
    int def;
    Getter getter;
    COLORREF value;
  };
  Case const cases[] = {
      {StandardColor::Blue, &StandardColor::GetColorBlue, 0xFF8080},
      {StandardColor::Red, &StandardColor::GetColorRed, 0x8080FF},
      {StandardColor::Green, &StandardColor::GetColorGreen, 0x80FF80},
      {StandardColor::Yellow, &StandardColor::GetColorYellow, 0x80FFFF},
      {StandardColor::Gray, &StandardColor::GetColorGray, 0x808080},
      {StandardColor::LightGray, &StandardColor::GetColorLightGray, 0xC0C0C0},
      {StandardColor::White, &StandardColor::GetColorWhite, 0xFFFFFF},
      {StandardColor::Black, &StandardColor::GetColorBlack, 0x000000},
      {StandardColor::Cyan, &StandardColor::GetColorCyan, 0xFFFF00},
      {StandardColor::Magenta, &StandardColor::GetColorMagenta, 0xFF00FF},
      {StandardColor::DarkYellow, &StandardColor::GetColorDarkYellow, 0x008080},
      {StandardColor::Navy, &StandardColor::GetColorNavy, 0x800000},
      {StandardColor::Purple, &StandardColor::GetColorPurple, 0x800080},
      {StandardColor::Wine, &StandardColor::GetColorWine, 0x000080},
      {StandardColor::Olive, &StandardColor::GetColorOlive, 0x008000},
      {StandardColor::DarkCyan, &StandardColor::GetColorDarkCyan, 0x808000},
      {StandardColor::Royal, &StandardColor::GetColorRoyal, 0xA00000},
      {StandardColor::Orange, &StandardColor::GetColorOrange, 0x0080FF},
      {StandardColor::Violet, &StandardColor::GetColorViolet, 0xFF0080},
      {StandardColor::Pink, &StandardColor::GetColorPink, 0x8000FF},
      {StandardColor::SoftPink, &StandardColor::GetColorSoftPink, 0xB7BBFF},
      {StandardColor::LightYellow, &StandardColor::GetColorLightYellow, 0x80FFFF},
      {StandardColor::LightCyan, &StandardColor::GetColorLightCyan, 0xFFFF80},
      {StandardColor::LightMagenta, &StandardColor::GetColorLightMagenta, 0xFF80FF},
  };
  ASSERT_EQ(std::size(cases), size_t(StandardColor::ColorDefCount));
  for (size_t i = 0; i < std::size(cases); ++i) {
    Case const & c = cases[i];
    EXPECT_EQ(c.def, int(i)) << "numbers follow the table's rows";
    EXPECT_EQ(StandardColor::GetColor(c.def), c.value) << c.def;
    EXPECT_EQ(c.getter(), c.value) << c.def;
  }
  for (int outside : {-1, 24, 1000}) EXPECT_EQ(StandardColor::GetColor(outside), 0xFFFFFFu);
}

TEST_F(StandardColorTest, EachLightColourTakesTheFirstCandidateShownExactly) {
  for (Candidates const & c : LightColours) {
    for (size_t first = 0; first < c.list.size(); ++first) {
      // The display shows this candidate and those after it, none before.
      StandardColor::SetNearestColorFunction(
          Showing(std::vector<COLORREF>(c.list.begin() + first, c.list.end())));
      EXPECT_EQ(StandardColor::GetColor(c.def), c.list[first]) << c.def << " #" << first;
      EXPECT_EQ(c.getter(), c.list[first]) << c.def << " #" << first;
      // On paper the light colour comes back, whichever was shown (the gray
      // that ends every list is then every light colour: the first wins).
      if (c.list[first] != 0x808080) {
        EXPECT_EQ(StandardColor::GetPrintColor(c.list[first]), c.list[0]) << c.def << " #" << first;
      }
    }
    // None shown exactly: the answer for the last candidate stands.
    StandardColor::SetNearestColorFunction(Showing({}));
    EXPECT_EQ(c.getter(), Near(c.list.back())) << c.def;
  }
}

TEST_F(StandardColorTest, PlainColoursAreTheDisplaysNearestTheOthersFixed) {
  StandardColor::SetNearestColorFunction(Showing({}));
  struct Case {
    Getter getter;
    COLORREF value;
  };
  Case const cases[] = {
      {&StandardColor::GetColorGray, Near(0x808080)},
      {&StandardColor::GetColorLightGray, Near(0xC0C0C0)},
      {&StandardColor::GetColorWhite, Near(0xFFFFFF)},
      {&StandardColor::GetColorBlack, Near(0x000000)},
      {&StandardColor::GetComment, Near(0xC0C0C0)},  // light gray
      {&StandardColor::GetData, Near(0xFFFFFF)},     // white
      {&StandardColor::GetColorCyan, 0xFFFF00},      // not through the display
      {&StandardColor::GetColorLightMagenta, 0xFF80FF},
  };
  for (size_t i = 0; i < std::size(cases); ++i)
    EXPECT_EQ(cases[i].getter(), cases[i].value) << "row " << i;
  // A colour that is not one of the display's light colours (here all four
  // are the near gray) prints as it is.
  for (COLORREF other : {0x123456u, 0xFF8080u, 0x808080u})
    EXPECT_EQ(StandardColor::GetPrintColor(other), other) << std::hex << other;
}

TEST_F(StandardColorTest, EveryColourByMeaningAndItsOtherNames) {
  StandardColor::SetNearestColorFunction([](COLORREF c) { return c; });
  struct Case {
    char const * name;
    Getter getter;
    COLORREF value;
  };
  Case const cases[] = {
      {"Comment", &StandardColor::GetComment, 0xC0C0C0},
      {"Data", &StandardColor::GetData, 0xFFFFFF},
      {"MisVal", &StandardColor::GetMisVal, 0xBFBFFF},
      {"ObsName", &StandardColor::GetObsName, 0x00EBEB},
      {"ObsNumber", &StandardColor::GetObsNumber, 0x00C0C0},
      {"VarName", &StandardColor::GetVarName, 0x3CAA1E},
      {"VarNumber", &StandardColor::GetVarNumber, 0x46E61E},
      {"Text", &StandardColor::GetText, 0xFFFF00},
      {"Qualitative", &StandardColor::GetQualitative, 0xE9E9AC},
      {"YQualitative", &StandardColor::GetYQualitative, 0xCBC77E},
      {"PredictionCaption", &StandardColor::GetPredictionCaption, 0xFFA26F},
      {"Prediction", &StandardColor::GetPrediction, 0xFFE1A0},
      {"YVar", &StandardColor::GetYVar, 0x3599C8},
      {"YVarData", &StandardColor::GetYVarData, 0xB3D9EB},
      {"Time", &StandardColor::GetTime, 0xB3D9EB},
      {"DateTime", &StandardColor::GetDateTime, 0x69B4D8},
      {"Maturity", &StandardColor::GetMaturity, 0xB2C8EC},
      {"InitialCondition", &StandardColor::GetInitialCondition, 0xDBDBE5},
      {"BatchID", &StandardColor::GetBatchID, 0x43DEFF},
      {"PhaseID", &StandardColor::GetPhaseID, 0xA3F8F8},
      {"TalvoText", &StandardColor::GetTalvoText, 0xE6E6E6},
      {"Marking", &StandardColor::GetMarking, 0x0080FF},  // orange
      {"ObsPrimary", &StandardColor::GetObsPrimary, 0x00C0C0},
      {"ObsSecondary", &StandardColor::GetObsSecondary, 0x00EBEB},
      {"VarPrimary", &StandardColor::GetVarPrimary, 0x3CAA1E},
      {"VarSecondary", &StandardColor::GetVarSecondary, 0x46E61E},
  };
  for (Case const & c : cases) EXPECT_EQ(c.getter(), c.value) << c.name;
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
