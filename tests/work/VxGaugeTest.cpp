// What VxGauge paints, read back pixel by pixel: the bar, its stripe, the
// tinted rest, the caption's two colours and the breathing over the frames;
// and VxXTPGauge on the toolkit's progress bar.
#include <gtest/gtest.h>

#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/panel.h>

#include "MainFrameTest.h"
#include "controls/WindowSnapshot.h"
#include "harness/GuiTestUtilities.h"
#include "work/VxGauge.h"
#include "work/VxXTPGauge.h"

namespace {

wxColour const Face(240, 240, 240);
// Face under the rest, tinted by the bar at rest (0, 128, 230) at 16/255:
// (240*239 + 0*16)/255 = 225, (240*239 + 128*16)/255 = 233.5, (.. + 230*16) = 239.9.
wxColour const RestTint(225, 233, 239);
wxColour const BarAtRest(0x00, 0x80, 0xE6);
wxColour const StripeAtRest(0xFF, 0xCC, 0x00);

wxColour PixelOf(wxImage const & image, int x, int y) {
  return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
}

wxImage Paint(wxSize size, float low, float high, float value, wxString const & caption = "",
              float pulse = 0) {
  wxBitmap bitmap(size, 24);
  {
    wxMemoryDC dc(bitmap);
    dc.SetBackground(*wxGREEN_BRUSH);  // any pixel left unpainted shows green
    dc.Clear();
    VxGauge::FrameState state;
    state.low = low;
    state.high = high;
    state.value = value;
    state.caption = caption;
    state.font = wxFont(wxFontInfo(8).Family(wxFONTFAMILY_SWISS).Bold());
    state.face = Face;
    VxGauge::PaintFrame(dc, size, state, pulse);
  }
  return bitmap.ConvertToImage();
}

// Columns of row `y` that show the bar colour.
int BarColumns(wxImage const & image, int y) {
  int count = 0;
  for (int x = 0; x < image.GetWidth(); ++x) count += PixelOf(image, x, y) == BarAtRest;
  return count;
}

TEST(VxGaugeFrame, BarStripeAndRest) {
  // 300 x 20 at half: the bar ends at 150; stripe rows 8..11 (s1 = 20*3/5,
  // s0 = 12*2/3).
  wxImage const image = Paint(wxSize(300, 20), 0, 100, 50);
  for (int y = 0; y < 20; ++y) {
    wxColour const expected = y >= 8 && y < 12 ? StripeAtRest : BarAtRest;
    EXPECT_EQ(PixelOf(image, 0, y), expected) << y;
    EXPECT_EQ(PixelOf(image, 149, y), expected) << y;
    EXPECT_EQ(PixelOf(image, 150, y), RestTint) << y;
    EXPECT_EQ(PixelOf(image, 299, y), RestTint) << y;
  }
  // A taller gauge: s1 = 18, s0 = 12.
  wxImage const tall = Paint(wxSize(100, 30), 0, 100, 100);
  EXPECT_EQ(PixelOf(tall, 50, 11), BarAtRest);
  EXPECT_EQ(PixelOf(tall, 50, 12), StripeAtRest);
  EXPECT_EQ(PixelOf(tall, 50, 17), StripeAtRest);
  EXPECT_EQ(PixelOf(tall, 50, 18), BarAtRest);
}

TEST(VxGaugeFrame, FillEndForValuesInsideAndOutsideTheRange) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  struct Case {
    float low, high, value;
    int columns;
  };
  Case const cases[] = {{0, 100, 25, 50},    {0, 100, 150, 200}, {0, 100, -10, 0},
                        {10, 20, 12.5f, 50}, {0, 3, 1, 66},  // 200/3 cut down
                        {0, 100, nan, 0},    {5, 5, 5, 0},       {5, 5, 6, 200}};
  for (Case const & c : cases)
    EXPECT_EQ(BarColumns(Paint(wxSize(200, 20), c.low, c.high, c.value), 2), c.columns)
        << c.low << ".." << c.high << " at " << c.value;
}

TEST(VxGaugeFrame, CaptionIsWhiteOverTheBarAndBlackOverTheRest) {
  wxImage const plain = Paint(wxSize(300, 20), 0, 100, 50);
  wxImage const image = Paint(wxSize(300, 20), 0, 100, 50, "Breaking...");
  // Away from the stripe the bar has no red, so white text shows as red;
  // black text is the only thing darker than the rest.
  int whiteOnBar = 0, darkOnBar = 0, darkOnRest = 0, brighterThanRest = 0, changedAtEdges = 0;
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 300; ++x) {
      wxColour const p = PixelOf(image, x, y);
      bool const dark = p.Red() < 90 && p.Green() < 90 && p.Blue() < 90;
      if (x < 20 || x >= 280) changedAtEdges += p != PixelOf(plain, x, y);  // centred
      if (x >= 150) {
        darkOnRest += dark;
        brighterThanRest += p.Red() > RestTint.Red() || p.Green() > RestTint.Green();
      } else if (y < 8 || y >= 12) {
        whiteOnBar += p.Red() > 200;
        darkOnBar += dark;
      }
    }
  }
  EXPECT_GT(whiteOnBar, 10);
  EXPECT_EQ(darkOnBar, 0);
  EXPECT_GT(darkOnRest, 10);
  EXPECT_EQ(brighterThanRest, 0);
  EXPECT_EQ(changedAtEdges, 0);
}

class VxGaugeWindow : public MainFrameTest {
protected:
  void Populate() override {
    // On a panel: a frame's only child would be stretched over its client area.
    panel = new wxPanel(frame);
    gauge = new VxGauge(panel, 4711, wxPoint(10, 10), wxSize(300, 20));
  }
  void SetUp() override {
    MainFrameTest::SetUp();
    if (HasFatalFailure()) return;
    // The gauge's own timer may have ticked while the frame came up; a tick
    // while hidden starts the breath afresh. From here on no test handles
    // events between its own ticks, so the timer cannot tick in between.
    gauge->Hide();
    gauge->OnFrameTimer();
    gauge->Show();
    ASSERT_EQ(gauge->GetPulseFrame(), 0);
  }

  wxColour BarPixel() { return PixelOf(gauge->GetFrameBitmap().ConvertToImage(), 1, 1); }

  wxPanel * panel = nullptr;
  VxGauge * gauge = nullptr;
};

TEST_F(VxGaugeWindow, ARangeGivenBackwardsIsPutInOrderAndTheCaptionIsCut) {
  gauge->SetRange(10, 0);
  EXPECT_EQ(gauge->GetLow(), 0);
  EXPECT_EQ(gauge->GetHigh(), 10);
  gauge->SetCaption(wxString('x', 500));
  EXPECT_EQ(gauge->GetCaption().length(), VxGauge::CaptionCapacity);
}

TEST_F(VxGaugeWindow, EachTickPaintsTheNextFrameOfTheBreathAndHidingRestartsIt) {
  gauge->SetRange(0, 100);
  gauge->SetValue(100);
  // After n ticks the last frame painted is frame n - 1; 181 is frame 0 again.
  int done = 0;
  for (int ticks : {1, 75, 76, 91, 180, 181}) {
    for (; done < ticks; ++done) gauge->OnFrameTimer();
    EXPECT_EQ(BarPixel(), VxGauge::BarColour(VxGauge::Pulse((ticks - 1) % 180))) << ticks;
  }
  EXPECT_EQ(gauge->GetPulseFrame(), 1);
  for (int i = 0; i < 89; ++i) gauge->OnFrameTimer();
  ASSERT_EQ(gauge->GetPulseFrame(), 90);
  gauge->Hide();
  gauge->OnFrameTimer();
  EXPECT_EQ(gauge->GetPulseFrame(), 0);
}

TEST_F(VxGaugeWindow, TheWindowShowsTheFrame) {
  gauge->SetValue(50);
  gauge->OnFrameTimer();
  // The gauge draws on its frame's surface; read it there.
  ASSERT_EQ(gauge->GetClientSize(), wxSize(300, 20));
  wxPoint const at = panel->GetPosition() + gauge->GetPosition();
  auto shows = [&](int x, int y) {
    wxImage const image = CaptureWindowImage(*frame);
    return image.IsOk() && PixelOf(image, at.x + x, at.y + y) == BarAtRest;
  };
  EXPECT_TRUE(gui_test::WaitUntil([&] { return shows(1, 1) && shows(148, 1); }));
  EXPECT_FALSE(shows(152, 1));
}

TEST_F(VxGaugeWindow, ANewCaptionIsCentredAnew) {
  // Over a full bar the caption is the only white; its columns must centre
  // on the middle, for each caption in turn (the extent is measured once per
  // caption, not once per gauge).
  gauge->SetValue(100);
  for (char const * caption : {"Breaking...", "Hi", "A much longer caption for the gauge"}) {
    gauge->SetCaption(caption);
    gauge->OnFrameTimer();
    wxImage const image = gauge->GetFrameBitmap().ConvertToImage();
    int first = image.GetWidth(), last = -1;
    for (int y = 0; y < image.GetHeight(); ++y)
      for (int x = 0; x < image.GetWidth(); ++x)
        if (image.GetRed(x, y) > 200 && image.GetBlue(x, y) > 200) {
          first = std::min(first, x);
          last = std::max(last, x);
        }
    ASSERT_GE(last, first) << caption;
    EXPECT_NEAR(first + last, 300, 6) << caption;
  }
}

class CountingXtpGauge : public VxXTPGauge {
public:
  using VxXTPGauge::VxXTPGauge;
  void SetValue(int position) override {
    positions.push_back(position);
    wxGauge::SetValue(position);
  }
  std::vector<int> positions;
};

TEST(VxXTPGauge, TheBarMovesOnlyWhenTheWholePercentChanges) {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "XTP gauge");
  auto * gauge = new CountingXtpGauge(frame, wxID_ANY);
  VxGaugeBase & base = *gauge;
  base.SetRange(0, 200);
  EXPECT_EQ(gauge->GetRange(), 100);
  for (float value : {0.f, 1.f, 20.f, 20.5f, 21.9f, 22.f, 500.f, 300.f, -4.f}) base.SetValue(value);
  EXPECT_EQ(gauge->positions, (std::vector<int>{10, 11, 100, 0}));
  base.SetValue(101);
  EXPECT_EQ(gauge->GetValue(), 50);
  frame->Destroy();
}

}  // namespace
