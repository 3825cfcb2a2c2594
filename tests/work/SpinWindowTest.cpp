// The status bar's barber pole: its pace under a fast-reporting operation,
// turning by itself at every other tick, the hue going round, and stripes
// of both colours on screen.
#include <gtest/gtest.h>
#include <wx/panel.h>
#include <wx/settings.h>

#include <cstdint>
#include <vector>

#include "MainFrameTest.h"
#include "controls/WindowSnapshot.h"
#include "harness/GuiTestUtilities.h"
#include "work/SpinWindow.h"

namespace {

class SpinWindowTest : public MainFrameTest {
protected:
  void Populate() override {
    pole = new SpinWindow(new wxPanel(frame));
    pole->SetSize(10, 10, 100, 16);
    pole->SetClock([this] { return now; });
  }

  SpinWindow * pole = nullptr;
  std::uint32_t now = 0xFFFFFFC0u;  // wraps during the tests
};

TEST_F(SpinWindowTest, StepsOnlyOnceMoreThan100MillisecondsHavePassed) {
  std::vector<int> steps;
  for (int i = 0; i < 12; ++i) {
    now += 100;
    pole->Step();  // exactly 100 ms after the last step: the pole stands
    EXPECT_EQ(pole->GetStep(), steps.empty() ? 0 : steps.back()) << i;
    now += 1;
    pole->Step();
    pole->Step();  // a second report at once: no step
    steps.push_back(pole->GetStep());
  }
  EXPECT_EQ(steps, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1, 2}));
}

TEST_F(SpinWindowTest, TurningByItselfStepsAtEveryOtherTick) {
  pole->SetSelfTurning(true);
  std::vector<int> steps;
  for (int tick = 0; tick < 6; ++tick) {
    now += 51;  // a tick of the 50 ms timer never comes early
    pole->OnTick();
    steps.push_back(pole->GetStep());
  }
  EXPECT_EQ(steps, (std::vector<int>{0, 0, 1, 1, 2, 2}));
  EXPECT_EQ(pole->GetHue(), 6);
  pole->SetSelfTurning(false);
  now += 100;
  pole->OnTick();
  EXPECT_EQ(pole->GetStep(), 2);  // the hue goes on, the pole stands
  EXPECT_EQ(pole->GetHue(), 7);
  for (int tick = 0; tick < SpinWindow::kHues - 7; ++tick) pole->OnTick();
  EXPECT_EQ(pole->GetHue(), 0);
}

TEST_F(SpinWindowTest, PaintsStripesOfBothColours) {
  pole->Refresh();
  gui_test::Flush();
  wxImage const image = CaptureWindowImage(*pole);
  ASSERT_TRUE(image.IsOk());
  wxColour const stripe = SpinWindow::StripeColour(pole->GetHue());
  wxColour const face = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
  auto near = [](wxColour const & a, unsigned char r, unsigned char g, unsigned char b) {
    return std::abs(a.Red() - r) < 8 && std::abs(a.Green() - g) < 8 && std::abs(a.Blue() - b) < 8;
  };
  int stripes = 0, faces = 0, others = 0;
  for (int x = 0; x < image.GetWidth(); ++x) {
    int const y = image.GetHeight() / 2;
    unsigned char const r = image.GetRed(x, y), g = image.GetGreen(x, y), b = image.GetBlue(x, y);
    if (near(stripe, r, g, b))
      ++stripes;
    else if (near(face, r, g, b))
      ++faces;
    else
      ++others;
  }
  // Half and half along a line, but for the smoothed edges of the stripes.
  EXPECT_NEAR(stripes, faces, 8);
  EXPECT_LT(others, image.GetWidth() / 3);
}

}  // namespace
