// Stopping a calculation with real input (XTest): under a modal dialog, whose
// grab must not reach the break dialog, the user clicks Stop and answers Yes
// while the calculation goes on reporting, and the next report returns
// false. Nothing waits for time: the calculation reports until the click has
// arrived, as a real one would.
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/dialog.h>

#include <wx/weakref.h>

#include <chrono>

#include "MainFrameTest.h"
#include "ReportUntil.h"
#include "XTestInput.h"
#include "harness/GuiTestUtilities.h"
#include "work/BreakConfirmWindow.h"
#include "work/BreakDialog.h"
#include "work/BreakSpinnerThread.h"
#include "work/Progress.h"
#include "work/ProgressPump.h"

namespace {

// What the user does while the calculation reports: Stop, then Yes. True
// when a report returned false after that, and every later one does too.
bool StopByClicking(Progress & progress) {
  BreakDialog * const dialog = BreakSpinnerThread::Host().GetDialog();
  if (dialog == nullptr) return false;
  dialog->OnShowDelayElapsed();  // the delay ran out
  if (!ReportUntil(progress, [&] { return IsClickable(dialog->GetStopButton()); })) return false;
  FakeClick(dialog->GetStopButton());
  auto asked = [&] {
    BreakConfirmWindow * const confirm = dialog->GetConfirmWindow();
    return confirm != nullptr && IsClickable(confirm->GetYesButton());
  };
  if (!ReportUntil(progress, asked)) return false;
  FakeClick(dialog->GetConfirmWindow()->GetYesButton());
  auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (progress.Set(50))
    if (std::chrono::steady_clock::now() > deadline) return false;
  return progress.IsBreakPressed() && !progress.Set(60) && !progress.NextSpin();
}

using BreakDialogInputTest = MainFrameTest;

TEST_F(BreakDialogInputTest, StopWorksUnderAModalDialog) {
  auto * options = new wxDialog(frame, wxID_ANY, "Options", wxDefaultPosition, wxSize(300, 150));
  bool stopped = false;
  options->CallAfter([&] {
    if (gui_test::WaitUntil([&] { return IsWherePlaced(*options); })) {
      Progress progress(options, L"Integrating", 0, 100, false, true, true, nullptr, nullptr,
                        nullptr, 500);
      stopped = StopByClicking(progress);
    }
    options->EndModal(wxID_OK);
  });
  options->ShowModal();
  options->Destroy();
  EXPECT_TRUE(stopped);
  // The clicks went to the break dialog; none is left to replay.
  EXPECT_EQ(progress_pump::HeldInputCount(), 0u);
}

TEST_F(BreakDialogInputTest, EscapeAsksAndTheEndOfTheCalculationAnswersNo) {
  wxWeakRef<BreakConfirmWindow> question;
  bool asked = false;
  {
    Progress progress(frame, L"Integrating", 0, 100, true, true, false, nullptr, nullptr, nullptr,
                      500);
    BreakDialog * const dialog = BreakSpinnerThread::Host().GetDialog();
    ASSERT_NE(dialog, nullptr);
    dialog->OnShowDelayElapsed();
    ASSERT_TRUE(ReportUntil(
        progress, [&] { return IsClickable(dialog->GetStopButton()) && dialog->IsActive(); }));
    FakeKey(XK_Escape);
    asked = ReportUntil(progress, [&] { return dialog->IsConfirmShown(); });
    question = dialog->GetConfirmWindow();
    EXPECT_TRUE(progress.NextSpin());  // the calculation goes on meanwhile
  }
  EXPECT_TRUE(asked);
  EXPECT_TRUE(!question || !question->IsShown());
  EXPECT_EQ(BreakSpinnerThread::Host().GetDialog(), nullptr);
  EXPECT_EQ(progress_pump::HeldInputCount(), 0u);
}

}  // namespace
