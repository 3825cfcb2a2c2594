// The event pump of a calculation with real input (XTest on the display's
// own connection, so that nothing but the pump reads the events): windows
// repaint, while clicks, timer ticks and queued wx events wait for the end
// of the calculation and then arrive once each, in order.
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/panel.h>
#include <wx/timer.h>

#include <string>
#include <vector>

#include "MainFrameTest.h"
#include "ReportUntil.h"
#include "XTestInput.h"
#include "harness/GuiTestUtilities.h"
#include "work/Progress.h"
#include "work/ProgressPump.h"
#include "work/VxStatusBar.h"

namespace {

class ProgressPumpTest : public MainFrameTest {
protected:
  void Populate() override {
    frame->SetStatusBar(new VxStatusBar(frame));
    auto * panel = new wxPanel(frame);
    first = new wxButton(panel, wxID_ANY, "First", wxPoint(20, 20), wxSize(120, 40));
    second = new wxButton(panel, wxID_ANY, "Second", wxPoint(200, 20), wxSize(120, 40));
    canvas = new wxWindow(panel, wxID_ANY, wxPoint(20, 100), wxSize(200, 100));
    first->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { delivered.push_back("First"); });
    second->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { delivered.push_back("Second"); });
    canvas->Bind(wxEVT_PAINT, [this](wxPaintEvent & event) {
      ++paints;
      event.Skip();
    });
  }

  wxButton * first = nullptr;
  wxButton * second = nullptr;
  wxWindow * canvas = nullptr;
  std::vector<std::string> delivered;
  int paints = 0;
};

TEST_F(ProgressPumpTest, WindowsRepaintWhileTheCalculationReports) {
  Progress progress(nullptr, L"Calculating", 0, 100, false, false, true);
  for (int round = 0; round < 3; ++round) {
    int const before = paints;
    canvas->Refresh();
    EXPECT_TRUE(ReportUntil(
        progress, [&] { return paints > before; }, 0))
        << round;
  }
  int const before = paints;
  canvas->SetSize(wxSize(240, 110));
  EXPECT_TRUE(ReportUntil(
      progress, [&] { return paints > before; }, 0));
}

TEST_F(ProgressPumpTest, ClicksWaitForTheEndAndArriveOnceInOrder) {
  {
    Progress progress(nullptr, L"Calculating", 0, 100, false, false, true);
    FakeClick(*first);
    FakeClick(*second);
    EXPECT_TRUE(ReportUntil(progress, [] { return progress_pump::HeldInputCount() >= 4; }));
    EXPECT_TRUE(delivered.empty());
  }
  EXPECT_EQ(progress_pump::HeldInputCount(), 0u);
  EXPECT_TRUE(gui_test::WaitUntil([&] { return delivered.size() >= 2; }));
  gui_test::Flush();
  gui_test::Flush();
  EXPECT_EQ(delivered, (std::vector<std::string>{"First", "Second"}));
}

TEST_F(ProgressPumpTest, TimersAndQueuedEventsWaitForTheEnd) {
  int ticks = 0;
  bool calledAfter = false;
  wxTimer timer(frame);
  frame->Bind(
      wxEVT_TIMER, [&](wxTimerEvent &) { ++ticks; }, timer.GetId());
  {
    Progress progress(nullptr, L"Calculating", 0, 100, false, false, true);
    timer.Start(1);
    frame->CallAfter([&] { calledAfter = true; });
    EXPECT_TRUE(ReportUntil(progress, [] { return progress_pump::HeldTimerCount() >= 1; }));
    EXPECT_EQ(ticks, 0);
    EXPECT_FALSE(calledAfter);
    EXPECT_EQ(progress_pump::HeldTimerCount(), 1u);  // one tick a timer, however many passed
  }
  EXPECT_TRUE(gui_test::WaitUntil([&] { return ticks >= 1 && calledAfter; }));
  timer.Stop();
}

TEST_F(ProgressPumpTest, CalculationInAModalDialogHoldsItsInputToo) {
  auto * dialog = new wxDialog(frame, wxID_ANY, "Options", wxDefaultPosition, wxSize(300, 150));
  auto * apply = new wxButton(dialog, wxID_ANY, "Apply", wxPoint(20, 20), wxSize(120, 40));
  int applied = 0, appliedDuring = -1;
  bool held = false, deliveredAfter = false;
  apply->Bind(wxEVT_BUTTON, [&](wxCommandEvent &) { ++applied; });
  dialog->CallAfter([&] {
    if (gui_test::WaitUntil([&] { return IsWherePlaced(*dialog) && IsClickable(*apply); })) {
      {
        Progress progress(nullptr, L"Calculating", 0, 100, false, false, true);
        FakeClick(*apply);
        held = ReportUntil(progress, [] { return progress_pump::HeldInputCount() >= 2; });
        appliedDuring = applied;
      }
      deliveredAfter = gui_test::WaitUntil([&] { return applied >= 1; });
      gui_test::Flush();
    }
    dialog->EndModal(wxID_OK);
  });
  dialog->ShowModal();
  dialog->Destroy();
  EXPECT_TRUE(held);
  EXPECT_EQ(appliedDuring, 0);
  EXPECT_TRUE(deliveredAfter);
  EXPECT_EQ(applied, 1);
}

}  // namespace
