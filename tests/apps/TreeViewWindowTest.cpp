// The sample's Tools › Tree view command, walked from the real main frame's
// menu: the window opens once, shows the projects, and its status bar
// follows what the tree tells (selection, refused empty names, checks).
#include <gtest/gtest.h>

#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include "BatchCommand.h"
#include "MainFrame.h"
#include "TreeViewWindow.h"
#include "harness/GuiTestUtilities.h"
#include "platform/commctrl/CTreeCtrl.h"

namespace {

CTreeCtrl * TreeIn(wxWindow & window) {
  for (wxWindow * child : window.GetChildren())
    if (auto * tree = dynamic_cast<CTreeCtrl *>(child)) return tree;
  return nullptr;
}

class TreeViewWindowTest : public testing::Test {
protected:
  void SetUp() override {
    InstallStandardUserComm();
    frame = new MainFrame;
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }
  // The window the menu's Tree view command opened.
  wxFrame * RunCommand() {
    wxMenu * tools =
        frame->GetMenuBar()->GetMenu(static_cast<size_t>(frame->GetMenuBar()->FindMenu("Tools")));
    int const id = tools->FindItem("Tree view");
    EXPECT_NE(id, wxNOT_FOUND);
    wxCommandEvent command(wxEVT_MENU, id);
    frame->ProcessWindowEvent(command);
    return dynamic_cast<wxFrame *>(frame->FindWindowByName("SampleTreeView", frame));
  }
  MainFrame * frame = nullptr;
};

TEST_F(TreeViewWindowTest, TheCommandOpensOneWindowWhoseStatusFollowsTheTree) {
  wxFrame * const window = RunCommand();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(RunCommand(), window);  // raised again, not a second one
  CTreeCtrl * const tree = TreeIn(*window);
  ASSERT_NE(tree, nullptr);
  EXPECT_EQ(tree->GetCount(), 14u);
  EXPECT_EQ(tree->GetItemText(tree->GetRootItem()), "Calibration 2026");

  HTREEITEM const study = tree->GetNextSiblingItem(tree->GetRootItem());
  HTREEITEM const week4 = tree->GetNextSiblingItem(tree->GetChildItem(study));
  tree->SelectItem(week4);
  EXPECT_EQ(window->GetStatusBar()->GetStatusText(), "Selected: Week 4");
  EXPECT_TRUE(tree->GetItemState(study, TVIS_EXPANDED));

  // An empty name is refused, another is taken.
  for (auto const & [typed, expected] : std::vector<std::pair<wxString, wxString>>{
           {"   ", "Week 4"}, {"Week 4 (repeat)", "Week 4 (repeat)"}}) {
    wxTextCtrl * const edit = tree->EditLabel(week4);
    ASSERT_NE(edit, nullptr);
    edit->ChangeValue(typed);
    tree->EndEditLabelNow(0);
    EXPECT_EQ(tree->GetItemText(week4), expected);
  }

  // A checked run is counted once the key is handled.
  wxKeyEvent space(wxEVT_KEY_DOWN);
  space.m_keyCode = WXK_SPACE;
  tree->GetEventHandler()->ProcessEvent(space);
  gui_test::Flush();
  EXPECT_TRUE(tree->GetCheck(week4));
  EXPECT_EQ(window->GetStatusBar()->GetStatusText(), "Runs checked: 1");
  if (gui_test::ShowAndWait(*frame) && gui_test::ShowAndWait(*window))
    gui_test::Snapshot(*window, "sample-tree-view");
}

}  // namespace
