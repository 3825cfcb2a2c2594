// Progress with a main frame of its own: the gauge and spinner panes of the
// family's status bar, one active object at a time, and the dialog road
// through a recording break dialog.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <string>
#include <thread>

#include "FakeBreakDialog.h"
#include "MainFrameTest.h"
#include "harness/GuiTestUtilities.h"
#include "work/BreakSpinnerThread.h"
#include "work/Progress.h"
#include "work/ProgressPump.h"
#include "work/StatusGauge.h"
#include "work/VxStatusBar.h"

namespace {

using Message = ProgressBreakDialog::Message;

class ProgressStatusBarTest : public MainFrameTest {
protected:
  void Populate() override {
    bar = new VxStatusBar(frame);
    frame->SetStatusBar(bar);
  }
  void TearDown() override {
    Progress::SetBreakDialog(&BreakSpinnerThread::Host());
    Progress::SetShowProgressDialog(true);
    MainFrameTest::TearDown();
  }

  // Where the gauge stands in thousandths, as stored; the bar follows from
  // its timer.
  int GaugePosition() const {
    StatusGauge const * gauge = Progress::GetStatusGauge();
    return gauge != nullptr ? int(std::lround(gauge->GetFraction() * 1000)) : -1;
  }
  wxString MessageText() const { return bar->GetStatusText(bar->CommandToIndex(0)); }

  VxStatusBar * bar = nullptr;
};

TEST_F(ProgressStatusBarTest, GaugeShowsTheWholeTaskAtEveryLevel) {
  {
    Progress progress(nullptr, L"Fitting curves", 0, 100, false, false, true);
    ASSERT_EQ(Progress::GetActiveProgress(), &progress);
    EXPECT_EQ(MessageText(), "Fitting curves");
    progress.PushSubRange(20, 60);
    progress.Set(0.5f);
    EXPECT_EQ(GaugePosition(), 400);
    // The bar moves from the gauge's timer, which ticks while the progress
    // pumps.
    StatusGauge * gauge = Progress::GetStatusGauge();
    auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (gauge->GetValue() != 400 && std::chrono::steady_clock::now() < deadline)
      progress.Set(0.5f);
    EXPECT_EQ(gauge->GetValue(), 400);
    progress.Set(2);  // above the level's scale: shown and stored as its end
    EXPECT_EQ(progress.GetValue(), 1);
    EXPECT_EQ(GaugePosition(), 600);
    progress.Set(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(progress.GetValue(), 0);
    EXPECT_EQ(GaugePosition(), 200);
    progress.PopSubRange();
    progress.SetInfoStr(L"Writing the report");
    EXPECT_EQ(MessageText(), "Writing the report");
    progress.SetRange(5, 5);  // an empty scale shows nothing, breaks nothing
    EXPECT_TRUE(progress.Set(5));
    EXPECT_EQ(GaugePosition(), 0);
  }
  EXPECT_FALSE(Progress::IsProgressActive());
  EXPECT_EQ(GaugePosition(), 0);
  EXPECT_EQ(MessageText(), "Ready");
}

TEST_F(ProgressStatusBarTest, OnlyTheFirstObjectIsActive) {
  auto active = std::make_unique<Progress>(nullptr, L"Outer", 0, 10, false, false, true);
  active->Set(5);
  Progress silent(nullptr, L"Inner", 0, 10, false, false, true);
  EXPECT_EQ(Progress::GetActiveProgress(), active.get());
  silent.Set(9);
  EXPECT_EQ(GaugePosition(), 500);
  EXPECT_EQ(MessageText(), "Outer");
  active.reset();
  silent.Set(9);
  EXPECT_FALSE(Progress::IsProgressActive());  // the silent one does not take over
  EXPECT_EQ(GaugePosition(), 0);
}

TEST_F(ProgressStatusBarTest, DialogProgressTalksToTheBreakDialogOnly) {
  FakeBreakDialog dialog;
  dialog.window = frame;
  Progress::SetBreakDialog(&dialog);
  {
    Progress progress(nullptr, L"Integrating", 0, 10, false, true, true, nullptr, nullptr, nullptr,
                      750);
    // The dialog reads the title from the progress it is given at the start.
    ASSERT_EQ(dialog.messages.size(), 3u);
    EXPECT_EQ(dialog.messages[0].message, Message::kStart);
    EXPECT_EQ(dialog.messages[0].wParam, 750u);
    EXPECT_EQ(dialog.progress, &progress);
    EXPECT_EQ(dialog.messages[1].message, Message::kSetRange);  // the level's own scale
    EXPECT_EQ(dialog.messages[1].second, 10);
    dialog.messages.clear();

    progress.Set(12);
    progress.PushSubRange(2, 4);  // the gauge range of the new level: -1..4
    progress.NextSpin();
    progress.SpinDone();
    progress.SetInfoStr(L"Summing");
    EXPECT_EQ(dialog.messages.back().text, "Summing");
    Progress::Hide();
    EXPECT_EQ(Progress::GetBreakWindow(), frame);
    using V = std::vector<unsigned int>;
    EXPECT_EQ(dialog.Kinds(), (V{Message::kSetValue, Message::kSetRange, Message::kSetValue,
                                 Message::kSetValue, Message::kNextSpin, Message::kSpinDone,
                                 Message::kSetTitle, Message::kShow, Message::kShow}));
    EXPECT_EQ(dialog.messages[0].first, 10);  // clamped
    EXPECT_FLOAT_EQ(dialog.messages[1].first, -1);
    EXPECT_FLOAT_EQ(dialog.messages[1].second, 4);
    EXPECT_EQ(dialog.messages[7].wParam, 0u);
    EXPECT_EQ(dialog.messages[8].wParam, 1u);
    EXPECT_EQ(GaugePosition(), 0);  // the status bar shows nothing of it

    dialog.progress->PressBreak();  // the user confirmed a stop
    EXPECT_FALSE(progress.Set(1));

    dialog.alive = false;  // the window is gone: nothing more is sent
    dialog.messages.clear();
    progress.Set(2);
    Progress::Show();
    EXPECT_EQ(Progress::GetBreakWindow(), nullptr);
    EXPECT_TRUE(dialog.messages.empty());
    dialog.alive = true;
  }
  EXPECT_EQ(dialog.Kinds().back(), Message::kStop);
  EXPECT_EQ(dialog.progress, nullptr);

  // Without the dialog everything goes to the status bar.
  dialog.messages.clear();
  Progress::SetShowProgressDialog(false);
  Progress progress(nullptr, L"Sorting", 0, 4, false, true, true);
  progress.Set(1);
  EXPECT_TRUE(dialog.messages.empty());
  EXPECT_EQ(GaugePosition(), 250);
}

TEST_F(ProgressStatusBarTest, AnObjectOfAWorkerThreadIsNeverActive) {
  bool activeInWorker = true;
  float value = 0;
  std::thread worker([&] {
    Progress progress(nullptr, L"Worker", 0, 10, true, false, true);
    progress.PushSubRange(0, 5);
    progress.Set(1);
    progress.PopSubRange();
    Progress::MessageLoop();  // returns at once off the GUI thread
    activeInWorker = Progress::IsProgressActive();
    value = progress.GetValue();
  });
  worker.join();
  EXPECT_FALSE(activeInWorker);
  EXPECT_EQ(value, 5);
  EXPECT_EQ(bar->CommandToIndex(Progress::kSpinnerPane), -1);
  EXPECT_EQ(MessageText(), "");
}

std::string gAssertion;

TEST_F(ProgressStatusBarTest, ThePumpRefusesOtherThreads) {
  Progress progress(nullptr, L"Outer", 0, 10, false, false, true);
  gAssertion.clear();
  wxAssertHandler_t const former =
      wxSetAssertHandler([](wxString const &, int, wxString const &, wxString const &,
                            wxString const & message) { gAssertion = message.ToStdString(); });
  std::thread worker([] { progress_pump::Pump(); });
  worker.join();
  wxSetAssertHandler(former);
  EXPECT_NE(gAssertion.find("GUI thread"), std::string::npos) << gAssertion;
  EXPECT_FALSE(progress_pump::IsPumping());
}

}  // namespace
