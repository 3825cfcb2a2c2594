// The sample's run list: natural order, and the filter box narrowing the
// list as a person types into it (real key events through XTest).
#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/srchctrl.h>
#include <wx/uiaction.h>

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/menu.h>
#include <wx/statusbr.h>

#include "../../apps/sample/MainFrame.h"
#include "../../apps/sample/RunList.h"
#include "../../apps/sample/RunListPanel.h"
#include "../../apps/sample/SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "lists/CInPlaceEdit.h"

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
  ASSERT_TRUE(gui_test::WaitUntilFocused(*search));
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

TEST_F(RunListPanelTest, TheListShowsRetiredRunsStruckOutAndAnEmptyFilterSaysSo) {
  RunList & list = panel->List();
  ASSERT_EQ(list.GetItemCount(), 24);
  for (int row = 0; row < list.GetItemCount(); ++row) {
    std::string const run = list.GetItemText(row, RunList::kNameColumn).utf8_string();
    EXPECT_EQ(list.IsItemDisabled(row), run.rfind("Blank", 0) == 0 || run.rfind("QC low", 0) == 0)
        << run;
  }
  panel->SetFilter("nothing-matches-this");
  EXPECT_EQ(list.GetItemCount(), 0);
  EXPECT_EQ(list.GetEmptyCtrlText(), "No run matches the filter.");
}

TEST_F(RunListPanelTest, ChecksAndCommentsSurviveTheFilterAndOnlyTheCommentIsEdited) {
  RunList & list = panel->List();
  panel->SetFilter("run");
  ASSERT_GT(list.GetItemCount(), 2);
  list.SetCheck(1, true);
  wxString const checked = list.GetItemText(1, RunList::kNameColumn);
  EXPECT_EQ(list.EditSubLabel(0, RunList::kNameColumn), nullptr);
  CInPlaceEdit * edit = list.EditSubLabel(0, RunList::kCommentColumn);
  ASSERT_NE(edit, nullptr);
  edit->ChangeValue("  repeat it  ");
  edit->Commit();
  wxString const commented = list.GetItemText(0, RunList::kNameColumn);
  EXPECT_EQ(list.GetItemText(0, RunList::kCommentColumn), "repeat it");
  panel->SetFilter("");
  for (int row = 0; row < list.GetItemCount(); ++row) {
    wxString const run = list.GetItemText(row, RunList::kNameColumn);
    EXPECT_EQ(list.GetCheck(row), run == checked) << run;
    EXPECT_EQ(list.GetItemText(row, RunList::kCommentColumn), run == commented ? "repeat it" : "")
        << run;
  }
}

// The menu command puts the checked runs on the clipboard as rows of cells.
TEST(SampleCopyRuns, MenuCommandCopiesTheCheckedRuns) {
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  RunList * list = nullptr;
  std::function<void(wxWindow *)> find = [&](wxWindow * window) {
    if (auto * runs = dynamic_cast<RunList *>(window)) list = runs;
    for (wxWindow * child : window->GetChildren()) find(child);
  };
  find(frame);
  ASSERT_NE(list, nullptr);
  list->SetCheck(0, true);
  list->SetCheck(2, true);
  wxString const first = list->GetItemText(0, RunList::kNameColumn);
  wxMenuBar * bar = frame->GetMenuBar();
  ASSERT_NE(bar->FindItem(kCopyRunsCommand), nullptr);
  wxCommandEvent command(wxEVT_MENU, kCopyRunsCommand);
  frame->ProcessWindowEvent(command);
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), "2 runs copied to the clipboard.");
  wxTextDataObject text;
  {
    wxClipboardLocker const locker;
    ASSERT_TRUE(wxTheClipboard->GetData(text));
  }
  EXPECT_TRUE(text.GetText().StartsWith(first + "\t")) << text.GetText();
  EXPECT_EQ(text.GetText().Freq('\n'), 2u) << text.GetText();
  frame->Destroy();
}

}  // namespace
