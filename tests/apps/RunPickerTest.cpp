// Tools > Pick a run on the sample's real main frame: the popup offers the
// million runs by name, the run picked shows in the status bar, and the
// next pick starts on it; closing without a pick says so.
#include <gtest/gtest.h>

#include <wx/menu.h>
#include <wx/statusbr.h>

#include <functional>
#include <vector>

#include "MainFrame.h"
#include "RunPicker.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "lists/FilterListCtrlPopupBar.h"
#include "platform/commctrl/CListCtrl.h"

namespace {

TEST(RunPickerTest, RunNamesCarryNumberLineAndInstrument) {
  struct Case {
    uint64_t index;
    char const * name;
  };
  SampleRunNames const runs;
  for (Case const & c :
       {Case{0, "Run 000001, line 1, Balance"}, Case{41, "Run 000042, line 2, Reference balance"},
        Case{999999, "Run 1000000, line 4, Chromatograph"}})
    EXPECT_EQ(runs.GetText(c.index), c.name);
}

class RunPickerFrameTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new MainFrame;
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  // Fires the command; `script` runs on the open popup, which is cancelled
  // should the script leave it open.
  void Pick(std::function<void(FilterListCtrlPopupBar &)> const & script) {
    frame->CallAfter([script] {
      FilterListCtrlPopupBar * bar = nullptr;
      bool const open =
          gui_test::WaitUntil([&] { return (bar = FilterListCtrlPopupBar::GetOpen()) != nullptr; });
      EXPECT_TRUE(open);
      if (!open) return;
      script(*bar);
      if (FilterListCtrlPopupBar::GetOpen() == bar) bar->Cancel();
    });
    wxCommandEvent command(wxEVT_MENU, kPickRunCommand);
    command.SetEventObject(frame);
    frame->ProcessWindowEvent(command);
  }

  wxString Status() const { return frame->GetStatusBar()->GetStatusText(); }

  MainFrame * frame = nullptr;
};

TEST_F(RunPickerFrameTest, ThePickShowsInTheStatusBarAndTheNextPickStartsOnIt) {
  Pick([](FilterListCtrlPopupBar & bar) {
    bar.ApplyFilter("000042");
    ASSERT_EQ(bar.GetVisibleItems(), std::vector<uint64_t>{41});
    EXPECT_TRUE(bar.ChooseRow(0));
  });
  EXPECT_EQ(Status(), "Run picked: Run 000042, line 2, Reference balance");

  uint64_t shownFirst = 0;
  Pick([&shownFirst](FilterListCtrlPopupBar & bar) {
    int const row = bar.GetList().GetNextItem(-1, LVNI_SELECTED);
    ASSERT_GE(row, 0);
    shownFirst = bar.GetVisibleItems()[static_cast<size_t>(row)];
    bar.Cancel();
  });
  EXPECT_EQ(shownFirst, 41U) << "the last run picked is selected at first";
  EXPECT_EQ(Status(), "No run picked.");
}

}  // namespace
