// The sample's calculation as a person stops it: the break dialog comes up
// with the sample's paintings, Stop and Yes end the calculation at the next
// report, and the status bar says where it stopped (or that it finished).
// The dialog's timers and buttons are driven by the test, never waited for.
#include <gtest/gtest.h>

#include <cstdlib>

#include <wx/stattext.h>
#include <wx/statusbr.h>

#include "MainFrame.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "work/BreakConfirmWindow.h"
#include "work/BreakDialog.h"
#include "work/Progress.h"

namespace {

class SampleCalculationTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new MainFrame;
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  void RunCalculation() {
    wxCommandEvent command(wxEVT_MENU, kRunCalculationCommand);
    frame->ProcessWindowEvent(command);
  }
  wxString Status() const { return frame->GetStatusBar()->GetStatusText(); }

  MainFrame * frame = nullptr;
};

// The user presses Stop in the break dialog and answers Yes.
void StopThroughTheBreakDialog(BreakDialog & dialog) {
  dialog.AskToStop();
  ASSERT_NE(dialog.GetConfirmWindow(), nullptr);
  dialog.GetConfirmWindow()->Answer(true);
}

TEST_F(SampleCalculationTest, TheStatusBarSaysWhereTheCalculationStoppedOrThatItFinished) {
  struct Case {
    int runs;
    int stopInRun;         // 0: never
    bool afterLastReport;  // stopped once the run has made its last report
    char const * status;
  };
  Case const cases[] = {
      {120, 37, false, "Calculation stopped at run 37 of 120."},
      {5, 1, false, "Calculation stopped at run 1 of 5."},
      {5, 5, true, "Calculation stopped at run 5 of 5."},
      {5, 0, false, "Calculation finished: 5 runs."},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.status);
    int lastRun = 0;
    frame->SetCalculationPlan({c.runs, [&](Progress & progress, int run) {
                                 lastRun = run;
                                 progress.SetRange(0, 10);
                                 if (!progress.Set(5)) return false;
                                 if (run == c.stopInRun) {
                                   auto * dialog =
                                       dynamic_cast<BreakDialog *>(Progress::GetBreakWindow());
                                   if (dialog == nullptr) {
                                     ADD_FAILURE() << "the calculation has no break dialog";
                                     return false;
                                   }
                                   StopThroughTheBreakDialog(*dialog);
                                   if (c.afterLastReport) return true;
                                 }
                                 return progress.Set(10);
                               }});
    RunCalculation();
    EXPECT_TRUE(Status().StartsWith(wxString(c.status) + "  Time: ")) << Status();
    EXPECT_EQ(lastRun, c.stopInRun != 0 ? c.stopInRun : c.runs);  // nothing ran after Stop
    EXPECT_FALSE(Progress::IsProgressActive());
  }
}

TEST_F(SampleCalculationTest, TheBreakDialogShowsTheSamplesPaintings) {
  BreakDialogFace face = BreakDialogFace::kPlain;
  wxString artist;
  frame->SetCalculationPlan({1, [&](Progress & progress, int) {
                               // Shows the dialog now, as its delay would.
                               auto * dialog =
                                   dynamic_cast<BreakDialog *>(Progress::GetBreakWindow());
                               if (dialog == nullptr) return false;
                               face = dialog->GetFace();
                               gui_test::Snapshot(*dialog, "sample-break-dialog.png");
                               artist = dialog->GetArtistText().GetLabel();
                               return progress.Set(1);
                             }});
  RunCalculation();
  // SampleArt.vart lies beside the executables (the build paints it).
  EXPECT_EQ(face, BreakDialogFace::kArt);
  EXPECT_FALSE(artist.empty());
}

}  // namespace
