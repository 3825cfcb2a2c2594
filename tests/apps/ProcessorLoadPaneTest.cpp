// The sample's processor-load pane on scripted samples: the load it shows,
// and the flag when the monitor reported a load that stayed high, cleared
// once the load falls below the limit. The main window carries the pane in
// its status bar.
#include <gtest/gtest.h>

#include <chrono>

#include <wx/frame.h>

#include "MainFrame.h"
#include "ProcessorLoadPane.h"
#include "harness/GuiTestUtilities.h"
#include "service/ScriptedProcessorTimes.h"
#include "work/VxStatusBar.h"

namespace {

// A pane over a script that has run out, so that its last value is final.
struct ScriptedPane {
  explicit ScriptedPane(wxWindow * parent, std::vector<std::optional<int>> loads) {
    auto source = std::make_unique<ScriptedProcessorTimes>(std::move(loads));
    auto finished = source->Finished();
    pane = new ProcessorLoadPane(parent, std::make_unique<ProcessorMonitor>(
                                             std::move(source), std::chrono::milliseconds(0)));
    ready = finished.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
    pane->ShowLoad();
  }
  ProcessorLoadPane * pane = nullptr;
  bool ready = false;
};

TEST(ProcessorLoadPane, ShowsTheLoadAndFlagsALoadThatStayedHigh) {
  wxFrame frame(nullptr, wxID_ANY, "pane");
  struct Case {
    std::vector<std::optional<int>> loads;
    char const * label;
    bool red;
  };
  Case const cases[] = {
      {{}, "CPU: --", false},
      {{40}, "CPU: 40%", false},
      {{95, 95, 95, 95}, "CPU: 95%", false},  // one sample short of the hit limit
      {{95, 95, 95, 95, 100}, "CPU: 100% (high load)", true},
      {{95, 95, 95, 95, 95, 89}, "CPU: 89%", false},  // flagged, then fell below
  };
  for (auto const & c : cases) {
    ScriptedPane scripted(&frame, c.loads);
    ASSERT_TRUE(scripted.ready);
    EXPECT_EQ(scripted.pane->GetLabel(), c.label);
    EXPECT_EQ(scripted.pane->GetForegroundColour() == *wxRED, c.red) << c.label;
    scripted.pane->Destroy();
  }
}

TEST(ProcessorLoadPane, SitsInTheMainWindowsStatusBar) {
  auto * frame = new MainFrame;
  auto * bar = dynamic_cast<VxStatusBar *>(frame->GetStatusBar());
  ASSERT_NE(bar, nullptr);
  EXPECT_TRUE(bar->IsPaneVisible(ProcessorLoadPane::kPaneId));
  EXPECT_NE(bar->CommandToIndex(ProcessorLoadPane::kPaneId), -1);
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
