// The sample's work off the main thread, as a person meets it: the waiting
// dialog with its barber pole and Cancel, which ends the run early; a
// failure of the work told on the main thread; a result computed on a
// thread of its own that reaches the status bar through a posted message.
#include <gtest/gtest.h>

#include <wx/statusbr.h>

#include "BackgroundCommands.h"
#include "BatchCommand.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "controls/IndeterminateProgressCtrl.h"
#include "dialogs/ProgressDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WindowMessage.h"

namespace {

class BackgroundCommandsTest : public testing::Test {
protected:
  void SetUp() override {
    InstallStandardUserComm();
    frame = new MainFrame;
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  void Fire(int id) {
    wxCommandEvent command(wxEVT_MENU, id);
    frame->ProcessWindowEvent(command);
  }
  wxString Status() const { return frame->GetStatusBar()->GetStatusText(); }

  MainFrame * frame = nullptr;
};

TEST_F(BackgroundCommandsTest, CancelEndsTheRunEarlyAndLeftAloneItFinishes) {
  struct Case {
    bool cancel;
    BackgroundPlan plan;
    wxString said;  // how the outcome begins
  } const cases[] = {
      // Cancelled at once: it ends after the slice under way, not 20 s later.
      {true, {1000, std::chrono::milliseconds(20)}, "Background run cancelled after "},
      {false, {3, std::chrono::milliseconds(1)}, "Background run finished: 3 slices."},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.said.utf8_string());
    bool pole = false;
    bool cancelShown = false;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      auto & dialog = dynamic_cast<ProgressDialog &>(d);
      pole = dialog.GetBar() != nullptr && dialog.GetBar()->IsShown();
      wxWindow * cancel = dialog.GetDlgItem(ProgressDialog::kCancelButton);
      cancelShown = cancel != nullptr && cancel->IsShown();
      gui_test::Snapshot(d, "sample-background-run");
      if (c.cancel) gui_test::Click(d, ProgressDialog::kCancelButton);
    });
    wxString const outcome = RunInBackground(frame, c.plan);
    EXPECT_TRUE(outcome.StartsWith(c.said)) << outcome;
    EXPECT_EQ(outcome.EndsWith(" of 1000 slices."), c.cancel) << outcome;
    EXPECT_TRUE(pole);
    EXPECT_TRUE(cancelShown);
    EXPECT_EQ(script.Shown().size(), 1U);
  }
}

TEST_F(BackgroundCommandsTest, TheWorksFailureIsToldOnTheMainThread) {
  ModalDialogScript script;
  script.Act([](wxDialog & d) { EXPECT_NE(dynamic_cast<ProgressDialog *>(&d), nullptr); });
  script.Answer(wxID_OK);
  Fire(kFailingBackgroundRunCommand);
  ASSERT_EQ(script.Shown().size(), 2U);
  EXPECT_EQ(script.Shown()[1].message, "The reference run R-017 is missing.");
  EXPECT_EQ(Status(), "Background run failed.");
}

TEST_F(BackgroundCommandsTest, TheResultArrivesByMessageWhileTheWindowStaysUsable) {
  int messages = 0;
  frame->Bind(VX_EVT_WINDOW_MESSAGE, [&messages](WindowMessageEvent & event) {
    if (event.GetMessage() == kBackgroundResultMessage) ++messages;
    event.Skip();
  });
  Fire(kBackgroundResultCommand);
  EXPECT_EQ(Status(), "Computing in the background...") << "the command returned at once";
  // Started again at once: the first run is stopped, and only the second
  // one's message arrives.
  Fire(kBackgroundResultCommand);
  ASSERT_TRUE(
      gui_test::WaitUntil([this] { return Status() != "Computing in the background..."; }, 20000));
  // The sum of 1/k^2, which tends to pi^2/6.
  EXPECT_EQ(Status(), "Background result: 1.64493");
  gui_test::Flush();
  EXPECT_EQ(messages, 1);
}

}  // namespace
