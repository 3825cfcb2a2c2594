// The sample's instrument list, opened from its menu command: checks count
// the instruments in use, a click on a heading sorts and a second click
// turns the order round, with the arrow on that heading only.
#include <gtest/gtest.h>

#include "CalibrationListDialog.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
// Last: Xlib's macros clash with names in the headers above.
#include "../platform/commctrl/ListInput.h"

namespace {

TEST(CalibrationListDialog, TheMenuCommandShowsTheListThatChecksCountsAndHeadingsSort) {
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  std::vector<wxString> ascending, descending;
  wxString summaryAfterUncheck;
  int arrowOnRuns = 0, arrowOnName = -1;
  ModalDialogScript script;
  script.Act([&](wxDialog & shown) {
    auto & dialog = dynamic_cast<CalibrationListDialog &>(shown);
    // Clicks go to screen points: the window manager must have put the
    // dialog where it stays before the first one.
    ASSERT_TRUE(gui_test::WaitUntilPlaced(dialog));
    EXPECT_EQ(dialog.GetSummary(), "6 of 8 instruments in use");
    CListCtrl & list = dialog.GetList();
    int const row = list.GetNextItem(-1, LVNI_ALL);
    ASSERT_TRUE(list.GetCheck(row));
    list.SetCheck(row, false);
    summaryAfterUncheck = dialog.GetSummary();

    CHeaderCtrl & header = *list.GetHeaderCtrl();
    RECT runs{};
    header.GetItemRect(3, &runs);
    wxPoint const heading((runs.left + runs.right) / 2, (runs.top + runs.bottom) / 2);
    list_input::ClickAt(header, heading);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return dialog.ShownNames()[0] == "pH meter 7"; }));
    ascending = dialog.ShownNames();
    // Away and back, so that the two clicks are not one double click.
    list_input::MoveTo(header, wxPoint(10, heading.y));
    list_input::Press(3, true);
    list_input::Press(3, false);
    list_input::ClickAt(header, heading);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return dialog.ShownNames()[0] == "Balance A3"; }));
    descending = dialog.ShownNames();
    gui_test::Snapshot(dialog, "calibration-list");
    arrowOnRuns = header.GetItemFormat(3) & (HDF_SORTUP | HDF_SORTDOWN);
    arrowOnName = header.GetItemFormat(0) & (HDF_SORTUP | HDF_SORTDOWN);
    dialog.EndModal(wxID_OK);
  });
  wxCommandEvent command(wxEVT_MENU, kCalibrationListCommand);
  command.SetEventObject(frame);
  frame->ProcessWindowEvent(command);
  frame->Destroy();

  ASSERT_EQ(script.Shown().size(), 1u);
  EXPECT_EQ(summaryAfterUncheck, "5 of 8 instruments in use");
  ASSERT_EQ(ascending.size(), 8u);
  EXPECT_EQ(ascending.back(), "Balance A3");
  std::vector<wxString> reversed(ascending.rbegin(), ascending.rend());
  EXPECT_EQ(descending, reversed);
  EXPECT_EQ(arrowOnRuns, HDF_SORTDOWN);
  EXPECT_EQ(arrowOnName, 0);
}

}  // namespace
