// The grid time picker and the span picker: the grid arithmetic, and what a
// person's key presses (real ones, through XTest) turn into.
#include <gtest/gtest.h>

#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/uiaction.h>

#include <string>
#include <vector>

#include "datetime/RestrictedTimeCtrl.h"
#include "datetime/TimeSpanCtrl.h"
#include "harness/GuiTestUtilities.h"
#include "platform/AtlException.h"

namespace {

class GridProbe : public RestrictedTimeCtrl {
public:
  using RestrictedTimeCtrl::GetNearestTimeDownwards;
  using RestrictedTimeCtrl::GetNearestTimeUpwards;
  using RestrictedTimeCtrl::GetRestrictedTime;
};

TEST(RestrictedTimeGrid, MovesToTheGridInTheDirectionOfTheChange) {
  struct Case {
    __time64_t resolution, offset, last, time;
    __time64_t upwards, downwards, restricted;
  };
  __time64_t const high = (__time64_t{1} << 32) + 601;  // low 32 bits: 601
  Case const cases[] = {
      {300, 0, 600, 601, 900, 600, 900},
      {300, 0, 600, 599, 600, 300, 300},
      {300, 0, 600, 600, 600, 600, 600},
      {300, 0, 600, 899, 900, 600, 900},
      {300, 60, 900, 600, 660, 360, 360},  // before last: down
      {300, 60, 300, 600, 660, 360, 660},  // after last: up
      {15, 0, 30, 44, 45, 30, 45},
      // The distance is taken on the low 32 bits of the time.
      {300, 0, high - 1, high, high + 299, high - 1, high + 299},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message()
                 << c.resolution << "/" << c.offset << ": " << c.last << " -> " << c.time);
    GridProbe grid;
    grid.SetTimeResolution(c.resolution, c.offset);
    EXPECT_EQ(grid.GetNearestTimeUpwards(c.time), c.upwards);
    EXPECT_EQ(grid.GetNearestTimeDownwards(c.time), c.downwards);
    EXPECT_EQ(grid.GetRestrictedTime(c.last, c.time), c.restricted);
  }
  GridProbe grid;
  grid.SetTimeResolution(CTimeSpan(0, 0, 5, 0), CTimeSpan(0));
  EXPECT_EQ(grid.GetTimeResolution(), 300);
  grid.SetTimeResolution(0, 0);  // no grid of zero steps: no division by zero
  EXPECT_EQ(grid.GetTimeResolution(), 1);
  EXPECT_EQ(grid.GetNearestTimeUpwards(601), 601);
}

class TimeCtrlsTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "time", wxDefaultPosition, wxSize(320, 140));
    panel = new wxPanel(frame);
  }
  void TearDown() override { frame->Destroy(); }

  void ShowWithFocusOn(wxWindow & control) {
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    control.SetFocus();
    ASSERT_TRUE(gui_test::WaitUntilFocused(control));
  }

  ::testing::AssertionResult Press(CDateTimeCtrl & control, std::vector<int> const & keys,
                                   std::string const & expected) {
    wxUIActionSimulator input;
    for (int key : keys) input.Char(key);
    if (gui_test::WaitUntil([&] { return control.GetLabel() == expected; }, 3000))
      return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "shows " << control.GetLabel() << ", not " << expected;
  }

  wxFrame * frame = nullptr;
  wxPanel * panel = nullptr;
};

TEST_F(TimeCtrlsTest, RestrictedTimeSnapsEachStepOfThePersonToTheGrid) {
  auto * picker = new RestrictedTimeCtrl(panel, wxID_ANY, DTS_TIMEFORMAT, wxPoint(10, 10));
  picker->SetFormat(L"HH:mm:ss");
  picker->SetTimeResolution(300, 0);  // five minutes
  CTime const start(2024, 5, 1, 10, 5, 0);
  picker->SetTime(start);
  std::vector<std::string> parentSaw;
  panel->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    if (event.GetCode() == DTN_DATETIMECHANGE)
      parentSaw.push_back(picker->GetLabel().ToStdString());
  });
  ShowWithFocusOn(*picker);

  // Seconds up: the next grid point. Seconds down from 00 wraps to 59 in the
  // picker, which is a step down: the grid point below.
  ASSERT_TRUE(Press(*picker, {WXK_RIGHT, WXK_RIGHT, WXK_UP}, "10:10:00"));
  ASSERT_TRUE(Press(*picker, {WXK_DOWN}, "10:05:00"));
  ASSERT_TRUE(Press(*picker, {WXK_LEFT, WXK_DOWN}, "10:00:00"));
  ASSERT_TRUE(Press(*picker, {WXK_LEFT, WXK_UP}, "11:00:00"));
  // The parent hears of each change once the control has snapped it.
  EXPECT_EQ(parentSaw, (std::vector<std::string>{"10:10:00", "10:05:00", "10:00:00", "11:00:00"}));
  __time64_t shown = 0;
  ASSERT_EQ(picker->GetTime(shown), GDT_VALID);
  EXPECT_EQ(shown, start.GetTime() + 55 * 60);

  // A call is taken as it is; the next step of the person snaps again.
  picker->SetTime(CTime(2024, 5, 1, 10, 7, 13));
  EXPECT_EQ(picker->GetLabel(), "10:07:13");
  ASSERT_TRUE(Press(*picker, {WXK_RIGHT, WXK_RIGHT, WXK_UP}, "10:10:00"));
  picker->SetTime(CTime(2024, 5, 1, 10, 7, 13));
  ASSERT_TRUE(Press(*picker, {WXK_DOWN}, "10:05:00"));
}

TEST_F(TimeCtrlsTest, RestrictedTimeRangeForwardsAndResets) {
  auto * picker = new RestrictedTimeCtrl(panel, wxID_ANY, DTS_TIMEFORMAT, wxPoint(10, 10));
  __time64_t const low = CTime(2024, 5, 1, 9, 0, 0).GetTime();
  __time64_t const high = CTime(2024, 5, 1, 17, 0, 0).GetTime();
  ASSERT_TRUE(picker->SetRange(&low, &high));
  __time64_t readLow = 0;
  __time64_t readHigh = 0;
  EXPECT_EQ(picker->GetRange(&readLow, &readHigh), GDTR_MIN | GDTR_MAX);
  EXPECT_EQ(readLow, low);
  EXPECT_EQ(readHigh, high);
  picker->SetTime(CTime(2024, 5, 1, 20, 0, 0));
  __time64_t shown = 0;
  picker->GetTime(shown);
  EXPECT_EQ(shown, high);  // clamped
  ASSERT_TRUE(picker->ResetRange());
  EXPECT_EQ(picker->GetRange(&readLow, &readHigh), 0u);
  SYSTEMTIME fields{};
  CTime(2024, 5, 1, 20, 0, 0).GetAsSystemTime(fields);
  EXPECT_TRUE(picker->SetTime(&fields));
  picker->GetTime(shown);
  EXPECT_EQ(shown, CTime(2024, 5, 1, 20, 0, 0).GetTime());
  EXPECT_TRUE(picker->SetTime(COleDateTime(2024, 5, 2, 6, 30, 0)));
  COleDateTime read;
  ASSERT_TRUE(picker->GetTime(read));
  EXPECT_EQ(read.GetDay(), 2);
  EXPECT_EQ(read.GetMinute(), 30);
}

TEST_F(TimeCtrlsTest, TimeSpanStepsByItsResolutionAndKnowsAWrapFromAStep) {
  auto * span = new TimeSpanCtrl(panel, wxID_ANY, wxPoint(10, 10));
  EXPECT_EQ(span->GetLabel(), "00:00:01");  // the format and the first span
  span->SetTimeResolution(60);
  span->SetTimeSpan(120);
  std::vector<__int64> parentSaw;
  panel->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    if (event.GetCode() == DTN_DATETIMECHANGE) parentSaw.push_back(span->GetTimeSpan());
  });
  ShowWithFocusOn(*span);

  // Seconds up: 121, to the next minute. Seconds down wraps 00 to 59 in the
  // picker: 179 read, and that is a step down to the minute below.
  ASSERT_TRUE(Press(*span, {WXK_RIGHT, WXK_RIGHT, WXK_UP}, "00:03:00"));
  ASSERT_TRUE(Press(*span, {WXK_DOWN}, "00:02:00"));
  ASSERT_TRUE(Press(*span, {WXK_DOWN}, "00:01:00"));
  // A plain step of the minutes down.
  ASSERT_TRUE(Press(*span, {WXK_LEFT, WXK_UP, WXK_UP, WXK_DOWN}, "00:02:00"));
  // Below the minimum the span stops at it.
  ASSERT_TRUE(Press(*span, {WXK_DOWN, WXK_DOWN}, "00:00:01"));
  EXPECT_EQ(span->GetTimeSpan(), 1);
  EXPECT_EQ(parentSaw, (std::vector<__int64>{180, 120, 60, 120, 180, 120, 60, 1}));
}

TEST_F(TimeCtrlsTest, TimeSpanInQuarterMinutesUpToTwoHoursClampsAndStepsDown) {
  auto * span = new TimeSpanCtrl(panel, wxID_ANY, wxPoint(10, 10));
  span->SetTimeResolution(15);
  span->SetMinTimeSpan(30);
  span->SetMaxTimeSpan(7200);
  span->SetTimeSpan(CTimeSpan(0, 1, 30, 0));
  EXPECT_EQ(span->GetLabel(), "01:30:00");
  ShowWithFocusOn(*span);
  // An hour up would pass the maximum.
  ASSERT_TRUE(Press(*span, {WXK_UP}, "02:00:00"));
  ASSERT_TRUE(Press(*span, {WXK_DOWN}, "01:00:00"));
  // Typed minutes; typed hours past the maximum are clamped to it.
  ASSERT_TRUE(Press(*span, {WXK_RIGHT, '7'}, "01:07:00"));
  ASSERT_TRUE(Press(*span, {WXK_LEFT, WXK_LEFT, '9'}, "02:00:00"));
  // Seconds down from 00 is one resolution down.
  ASSERT_TRUE(Press(*span, {WXK_RIGHT, WXK_RIGHT, WXK_DOWN}, "01:59:45"));
}

TEST(TimeSpanLimits, ClampAndRefuseWhatNoDayHolds) {
  TimeSpanCtrl span;  // no window is needed for the arithmetic
  span.SetMinTimeSpan(0);
  EXPECT_EQ(span.GetMinTimeSpan(), 1);
  span.SetMaxTimeSpan(90000);
  EXPECT_EQ(span.GetMaxTimeSpan(), 86399);
  span.SetTimeResolution(-5);
  EXPECT_EQ(span.GetTimeResolution(), 1);

  struct Case {
    __int64 set, kept;
  };
  for (Case const c : {Case{0, 1}, Case{-100, 1}, Case{86400, 86399}, Case{3661, 3661}}) {
    SCOPED_TRACE(c.set);
    span.SetTimeSpan(c.set);
    EXPECT_EQ(span.GetTimeSpan(), c.kept);
  }

  // A minimum above the longest span wins the clamp and is no time of day.
  span.SetTimeSpan(100);
  span.SetMinTimeSpan(90000);
  try {
    span.SetTimeSpan(5);
    ADD_FAILURE() << "25 hours were taken";
  } catch (CAtlException const & e) {
    EXPECT_EQ(static_cast<HRESULT>(e), E_FAIL);
  }
  EXPECT_EQ(span.GetTimeSpan(), 100);
}

}  // namespace
