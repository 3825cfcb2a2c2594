// The date-time picker on a real display, driven by real key presses and
// clicks (XTest through wxUIActionSimulator): fields stepped and typed into,
// the range, the spin button, the DTM_ messages and the change notification.
#include <gtest/gtest.h>

#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/uiaction.h>

#include <string>
#include <vector>

#include "harness/GuiTestUtilities.h"
#include "platform/WindowMessage.h"
#include "platform/commctrl/DateTimeCtrl.h"

namespace {

SYSTEMTIME At(int year, int month, int day, int hour, int minute, int second) {
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(year);
  time.wMonth = static_cast<WORD>(month);
  time.wDay = static_cast<WORD>(day);
  time.wHour = static_cast<WORD>(hour);
  time.wMinute = static_cast<WORD>(minute);
  time.wSecond = static_cast<WORD>(second);
  return time;
}

class DateTimeCtrlTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "picker", wxDefaultPosition, wxSize(320, 120));
    parent = new wxPanel(frame);
    picker = new CDateTimeCtrl(parent, 4711, DTS_TIMEFORMAT | DTS_UPDOWN, wxPoint(10, 10));
    picker->SetFormat(L"yyyy-MM-dd HH:mm:ss");
    picker->SetInitialSize();  // as wide as the new format needs
    SYSTEMTIME const start = At(2024, 2, 10, 10, 5, 0);
    picker->SetTime(&start);
    // Every change the parent hears of, as the picker showed it then.
    parent->Bind(VX_EVT_NOTIFY, [this](NotifyEvent & event) {
      if (event.GetCode() != DTN_DATETIMECHANGE) return;
      told.push_back(picker->GetLabel().ToStdString());
      auto * change = event.GetNotification<NMDATETIMECHANGE>();
      EXPECT_EQ(change->dwFlags, GDT_VALID);
      EXPECT_EQ(change->nmhdr.hwndFrom, picker);
      SYSTEMTIME now{};
      picker->GetTime(&now);
      EXPECT_EQ(CompareSystemTime(change->st, now), 0);
    });
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    // Clicks go where the window manager has put the frame.
    ASSERT_TRUE(gui_test::WaitUntilPlaced(*frame));
    picker->SetFocus();
    ASSERT_TRUE(gui_test::WaitUntilFocused(*picker));
  }
  void TearDown() override { frame->Destroy(); }

  // Presses keys and waits until the picker shows `expected`.
  ::testing::AssertionResult Press(std::vector<int> const & keys, std::string const & expected) {
    wxUIActionSimulator input;
    for (int key : keys) input.Char(key);
    if (gui_test::WaitUntil([&] { return picker->GetLabel() == expected; }, 3000))
      return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "shows " << picker->GetLabel() << ", not " << expected;
  }

  wxFrame * frame = nullptr;
  wxPanel * parent = nullptr;
  CDateTimeCtrl * picker = nullptr;
  std::vector<std::string> told;
};

TEST_F(DateTimeCtrlTest, UpAndDownWrapTheSelectedFieldWithoutCarrying) {
  // The focus selects the first field; Right moves to the seconds.
  ASSERT_TRUE(Press({WXK_RIGHT, WXK_RIGHT, WXK_RIGHT, WXK_RIGHT, WXK_RIGHT, WXK_DOWN},
                    "2024-02-10 10:05:59"));
  ASSERT_TRUE(Press({WXK_UP}, "2024-02-10 10:05:00"));
  ASSERT_TRUE(Press({WXK_LEFT, WXK_UP}, "2024-02-10 10:06:00"));
  ASSERT_TRUE(Press({WXK_HOME, WXK_DOWN}, "2023-02-10 10:06:00"));
  ASSERT_TRUE(Press({WXK_END, WXK_RIGHT, WXK_DOWN}, "2023-02-10 10:06:59"));
  EXPECT_EQ(told, (std::vector<std::string>{"2024-02-10 10:05:59", "2024-02-10 10:05:00",
                                            "2024-02-10 10:06:00", "2023-02-10 10:06:00",
                                            "2023-02-10 10:06:59"}));
}

TEST_F(DateTimeCtrlTest, DigitsFillAFieldClampedAndMoveToTheNext) {
  // Day: "3" could still become 30 or 31, "35" is clamped to the last day of
  // February; the field is full and the hours come next.
  ASSERT_TRUE(Press({WXK_RIGHT, WXK_RIGHT, '3', '5'}, "2024-02-29 10:05:00"));
  ASSERT_TRUE(Press({'2', '9'}, "2024-02-29 23:05:00"));
  // The minutes take "7" alone (70 and up are no minutes); on to the seconds.
  ASSERT_TRUE(Press({'7', '4'}, "2024-02-29 23:07:04"));
  ASSERT_TRUE(Press({'5'}, "2024-02-29 23:07:45"));
  // The year takes four digits; 42 is clamped to the first year there is,
  // which has no 29 February.
  ASSERT_TRUE(Press({WXK_HOME, '0', '0', '4', '2'}, "1601-02-28 23:07:45"));
  ASSERT_TRUE(Press({'1', '3'}, "1601-12-28 23:07:45"));
  // Letters are no digits.
  wxUIActionSimulator().Char('x');
  gui_test::Flush();
  EXPECT_EQ(picker->GetLabel(), "1601-12-28 23:07:45");
}

TEST_F(DateTimeCtrlTest, TheRangeClampsUserAndCallsAndANullLimitIsNone) {
  SYSTEMTIME const low = At(2024, 2, 10, 10, 0, 0);
  ASSERT_TRUE(picker->SetRange(&low, nullptr));
  SYSTEMTIME limits[2]{};
  EXPECT_EQ(picker->GetRange(&limits[0], &limits[1]), GDTR_MIN);
  EXPECT_EQ(CompareSystemTime(limits[0], low), 0);

  // The hour down would leave the range: the lower limit instead.
  ASSERT_TRUE(Press({WXK_RIGHT, WXK_RIGHT, WXK_RIGHT, WXK_DOWN}, "2024-02-10 10:00:00"));
  told.clear();
  ASSERT_TRUE(Press({WXK_DOWN}, "2024-02-10 10:00:00"));
  gui_test::Flush();
  EXPECT_TRUE(told.empty()) << "nothing changed, nothing told";
  ASSERT_TRUE(Press({WXK_UP, WXK_UP}, "2024-02-10 12:00:00"));  // no upper limit

  SYSTEMTIME const early = At(2020, 1, 1, 0, 0, 0);
  EXPECT_TRUE(picker->SetTime(&early));
  EXPECT_EQ(picker->GetLabel(), "2024-02-10 10:00:00");
  SYSTEMTIME const invalid = At(2024, 2, 30, 0, 0, 0);
  EXPECT_FALSE(picker->SetTime(&invalid));
  EXPECT_FALSE(picker->SetTime(static_cast<SYSTEMTIME const *>(nullptr)));

  SYSTEMTIME const high = At(2024, 2, 10, 9, 0, 0);
  ASSERT_TRUE(picker->SetRange(nullptr, &high));
  EXPECT_EQ(picker->GetLabel(), "2024-02-10 09:00:00");  // into the new range
  EXPECT_EQ(picker->GetRange(&limits[0], &limits[1]), GDTR_MAX);

  ASSERT_TRUE(picker->SetRange(static_cast<SYSTEMTIME const *>(nullptr), nullptr));
  EXPECT_EQ(picker->GetRange(&limits[0], &limits[1]), 0u);
  ASSERT_TRUE(Press({WXK_UP}, "2024-02-10 10:00:00"));

  CTime const ctLow(2024, 2, 10, 11, 0, 0);
  ASSERT_TRUE(picker->SetRange(&ctLow, nullptr));
  CTime readLow;
  CTime readHigh(12345);
  EXPECT_EQ(picker->GetRange(&readLow, &readHigh), GDTR_MIN);
  EXPECT_EQ(readLow, ctLow);
  EXPECT_EQ(picker->GetLabel(), "2024-02-10 11:00:00");
}

TEST_F(DateTimeCtrlTest, TheControlHearsOfAChangeFirstAndCanKeepItFromTheParent) {
  std::vector<std::string> order;
  bool keep = false;
  picker->Bind(VX_EVT_NOTIFY_REFLECT, [&](NotifyEvent & event) {
    order.emplace_back("control");
    if (!keep) event.Skip();
  });
  parent->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    order.emplace_back("parent");
    event.Skip();
  });
  ASSERT_TRUE(Press({WXK_UP}, "2025-02-10 10:05:00"));
  EXPECT_EQ(order, (std::vector<std::string>{"control", "parent"}));
  keep = true;
  order.clear();
  ASSERT_TRUE(Press({WXK_UP}, "2026-02-10 10:05:00"));
  EXPECT_EQ(order, (std::vector<std::string>{"control"}));

  // Calls change the time without a word.
  told.clear();
  SYSTEMTIME const later = At(2030, 1, 1, 0, 0, 0);
  picker->SetTime(&later);
  gui_test::Flush();
  EXPECT_TRUE(told.empty());
}

TEST_F(DateTimeCtrlTest, TheSpinButtonStepsTheSelectedField) {
  ASSERT_TRUE(Press({WXK_RIGHT, WXK_RIGHT, WXK_RIGHT, WXK_RIGHT}, "2024-02-10 10:05:00"));
  wxSize const size = picker->GetClientSize();
  wxUIActionSimulator mouse;
  // Upper half, then lower half of the button at the right edge.
  mouse.MouseMove(picker->ClientToScreen(wxPoint(size.x - 8, size.y / 4)));
  mouse.MouseClick();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return picker->GetLabel() == "2024-02-10 10:06:00"; }))
      << picker->GetLabel();
  mouse.MouseMove(picker->ClientToScreen(wxPoint(size.x - 8, size.y * 3 / 4)));
  mouse.MouseClick();
  mouse.MouseClick();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return picker->GetLabel() == "2024-02-10 10:04:00"; }))
      << picker->GetLabel();
  gui_test::Snapshot(*frame, "datetime-picker");
}

TEST_F(DateTimeCtrlTest, AClickSelectsTheFieldUnderIt) {
  // The last field (seconds) lies left of the spin button.
  wxSize const size = picker->GetClientSize();
  wxClientDC dc(picker);
  dc.SetFont(picker->GetFont());
  int const secondsX = 4 + dc.GetTextExtent("2024-02-10 10:05:").x + 3;
  bool clicked = false;
  picker->Bind(wxEVT_LEFT_DOWN, [&](wxMouseEvent & event) {
    clicked = true;
    event.Skip();
  });
  wxUIActionSimulator mouse;
  mouse.MouseMove(picker->ClientToScreen(wxPoint(secondsX, size.y / 2)));
  mouse.MouseClick();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return clicked; }));
  ASSERT_TRUE(Press({WXK_UP}, "2024-02-10 10:05:01"));
}

TEST_F(DateTimeCtrlTest, TheMessagesOfThePlatformDoWhatTheCallsDo) {
  EXPECT_EQ(
      SendWindowMessage(picker, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"HH 'h' mm 'min'")),
      TRUE);
  EXPECT_EQ(picker->GetLabel(), "10 h 05 min");
  SYSTEMTIME const set = At(2024, 6, 1, 8, 30, 0);
  EXPECT_EQ(SendWindowMessage(picker, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&set)),
            TRUE);
  SYSTEMTIME read{};
  EXPECT_EQ(SendWindowMessage(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&read)),
            static_cast<std::intptr_t>(GDT_VALID));
  EXPECT_EQ(CompareSystemTime(read, set), 0);
  EXPECT_EQ(read.wDayOfWeek, 6);  // the weekday is filled in
  EXPECT_EQ(SendWindowMessage(picker, DTM_SETSYSTEMTIME, GDT_NONE, 0), FALSE);

  SYSTEMTIME range[2] = {At(2024, 6, 1, 9, 0, 0), At(2024, 6, 1, 17, 0, 0)};
  EXPECT_EQ(
      SendWindowMessage(picker, DTM_SETRANGE, GDTR_MIN | GDTR_MAX, reinterpret_cast<LPARAM>(range)),
      TRUE);
  EXPECT_EQ(picker->GetLabel(), "09 h 00 min");
  SYSTEMTIME readRange[2]{};
  EXPECT_EQ(SendWindowMessage(picker, DTM_GETRANGE, 0, reinterpret_cast<LPARAM>(readRange)),
            static_cast<std::intptr_t>(GDTR_MIN | GDTR_MAX));
  EXPECT_EQ(CompareSystemTime(readRange[1], range[1]), 0);
  // A null format is the style's again.
  SendWindowMessage(picker, DTM_SETFORMATW, 0, 0);
  EXPECT_NE(picker->GetLabel(), "09 h 00 min");
  EXPECT_NE(picker->GetLabel().Find("09"), wxNOT_FOUND);
}

}  // namespace
