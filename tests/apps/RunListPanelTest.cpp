// The sample's run list: natural order, and the filter box narrowing the
// list as a person types into it (real key events through XTest).
#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/srchctrl.h>
#include <wx/uiaction.h>

#include "../../apps/sample/RunListPanel.h"
#include "harness/GuiTestUtilities.h"

namespace {

class RunListPanelTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "Runs", wxDefaultPosition, wxSize(400, 500));
    frame->CreateStatusBar();
    panel = new RunListPanel(frame);
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override { frame->Destroy(); }

  size_t IndexOf(std::string const & run) const {
    auto const & shown = panel->Shown();
    return static_cast<size_t>(std::find(shown.begin(), shown.end(), run) - shown.begin());
  }

  wxFrame * frame = nullptr;
  RunListPanel * panel = nullptr;
};

TEST_F(RunListPanelTest, RunsAreInNaturalOrder) {
  EXPECT_LT(IndexOf("Run 2"), IndexOf("Run 10"));
  EXPECT_LT(IndexOf("Run 10"), IndexOf("Run 100"));
  EXPECT_LT(IndexOf("pH buffer 4.01"), IndexOf("pH buffer 10.00"));
  EXPECT_LT(IndexOf("sample-a3"), IndexOf("Sample-A12"));
  EXPECT_EQ(panel->Shown().size(), 24u);
}

TEST_F(RunListPanelTest, TypingIntoTheFilterBoxNarrowsTheList) {
  wxSearchCtrl * search = nullptr;
  for (wxWindow * child : panel->GetChildren())
    if (auto * box = dynamic_cast<wxSearchCtrl *>(child)) search = box;
  ASSERT_NE(search, nullptr);
  search->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return search->HasFocus(); }));
  wxUIActionSimulator typist;
  typist.Text("qc high");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return panel->Shown().size() == 2; }))
      << panel->Shown().size();
  EXPECT_EQ(panel->Shown()[0], "QC high 2026-11-03");
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), "Showing 2 of 24 runs.");
}

TEST_F(RunListPanelTest, FilterLanguageReachesTheList) {
  panel->SetFilter("run -1");
  for (auto const & run : panel->Shown()) EXPECT_EQ(run.find('1'), std::string::npos) << run;
  EXPECT_EQ(panel->Shown().size(), 4u);  // Run 2, 3, 9, 20
  panel->SetFilter("blank*|*lprobe*");
  EXPECT_EQ(panel->Shown().size(), 3u);
  panel->SetFilter("");
  EXPECT_EQ(panel->Shown().size(), 24u);
}

}  // namespace
