// The sample's time grid dialog, opened from its menu item: the start on
// the five-minute grid, the interval in quarter minutes between 30 s and
// 2 h, both changed with real keys, and OK telling the series in the
// status bar.
#include <gtest/gtest.h>

#include <wx/statusbr.h>
#include <wx/uiaction.h>

#include "MainFrame.h"
#include "SampleCommands.h"
#include "TimeGridDialog.h"
#include "datetime/RestrictedTimeCtrl.h"
#include "datetime/TimeSpanCtrl.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"

namespace {

bool PressAndWait(wxWindow & control, std::vector<int> const & keys, wxString const & expected) {
  wxUIActionSimulator input;
  for (int key : keys) input.Char(key);
  return gui_test::WaitUntil([&] { return control.GetLabel() == expected; }, 3000);
}

TEST(SampleTimeGrid, TheMenuItemOpensTheGridAndOkTellsTheSeries) {
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  wxString summary;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    auto * dialog = dynamic_cast<TimeGridDialog *>(&d);
    ASSERT_NE(dialog, nullptr);
    TimeSpanCtrl & interval = dialog->Interval();
    RestrictedTimeCtrl & start = dialog->Start();
    EXPECT_EQ(start.GetTimeResolution(), 300);
    EXPECT_EQ(interval.GetTimeResolution(), 15);
    EXPECT_EQ(interval.GetMinTimeSpan(), 30);
    EXPECT_EQ(interval.GetMaxTimeSpan(), 7200);
    EXPECT_EQ(interval.GetLabel(), "00:15:00");
    __time64_t first = 0;
    ASSERT_EQ(start.GetTime(first), GDT_VALID);
    EXPECT_EQ(first % 300, 0);

    // The start's minutes up: one grid step of five minutes.
    start.SetFocus();
    ASSERT_TRUE(gui_test::WaitUntilFocused(start));
    wxUIActionSimulator().Char(WXK_RIGHT);
    gui_test::Flush();
    wxUIActionSimulator().Char(WXK_UP);
    ASSERT_TRUE(gui_test::WaitUntil([&] {
      __time64_t now = 0;
      return start.GetTime(now) == GDT_VALID && now == first + 300;
    }));

    // The interval: two hours at most, then a quarter minute below.
    interval.SetFocus();
    ASSERT_TRUE(gui_test::WaitUntilFocused(interval));
    EXPECT_TRUE(PressAndWait(interval, {WXK_UP, WXK_UP, WXK_UP}, "02:00:00"))
        << interval.GetLabel();
    EXPECT_TRUE(PressAndWait(interval, {WXK_RIGHT, WXK_RIGHT, WXK_DOWN}, "01:59:45"))
        << interval.GetLabel();
    summary = dialog->Summary();
    EXPECT_NE(summary.Find("01:59:45"), wxNOT_FOUND) << summary;
    EXPECT_NE(summary.Find(start.GetLabel()), wxNOT_FOUND) << summary;
    gui_test::Snapshot(d, "time-grid-dialog");
    d.EndModal(wxID_OK);
  });
  wxCommandEvent command(wxEVT_MENU, kTimeGridCommand);
  command.SetEventObject(frame);
  frame->ProcessWindowEvent(command);
  EXPECT_EQ(script.Shown().size(), 1u);
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), summary);
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
