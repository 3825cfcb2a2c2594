// The sample's Properties window: it follows the run list's selection, the
// comment page both kinds of run share is kept as it is across the switch,
// and OK puts the comment into the list.
#include <gtest/gtest.h>

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/textctrl.h>

#include "../../apps/sample/PropertiesCommand.h"
#include "../../apps/sample/RunList.h"
#include "../../apps/sample/RunListPanel.h"
#include "../../apps/sample/SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"
#include "platform/commctrl/ListViewDefs.h"
#include "properties/VxModelessPropertySheet.h"
#include "properties/VxPropertyPage.h"

namespace {

int RowOf(RunList & list, wxString const & run) {
  for (int row = 0; row < list.GetItemCount(); ++row)
    if (list.GetItemText(row, RunList::kNameColumn) == run) return row;
  return -1;
}

TEST(SampleProperties, TheWindowFollowsTheSelectionAndKeepsTheSharedPage) {
  auto * frame = new wxFrame(nullptr, wxID_ANY, "Runs", wxDefaultPosition, wxSize(500, 500));
  frame->CreateStatusBar();
  auto * panel = new RunListPanel(frame);
  wxMenu menu;
  AddPropertiesCommand(menu, *frame, panel->List());
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  RunList & list = panel->List();
  int const retired = RowOf(list, "Blank 007");
  int const inUse = RowOf(list, "Calibration 1");
  ASSERT_GE(retired, 0);
  ASSERT_GE(inUse, 0);
  list.SetItemState(retired, LVIS_SELECTED, LVIS_SELECTED);

  wxCommandEvent command(wxEVT_MENU, kPropertiesCommand);
  frame->ProcessWindowEvent(command);
  VxModelessPropertySheet * sheet = VxModelessPropertySheet::Instance();
  ASSERT_TRUE(sheet->IsShown());
  ASSERT_EQ(sheet->GetPageCount(), 2);
  EXPECT_EQ(sheet->GetPage(0)->GetTemplateID(), 7160u) << "Comment first for a retired run";
  EXPECT_EQ(sheet->GetPage(1)->GetTemplateID(), 7170u);
  VxPropertyPage * comment = sheet->GetPage(0);
  wxWindow * commentWindow = comment->GetSafeHwnd();
  ASSERT_NE(comment->GetDlgItem(7161), nullptr) << "the active page is built";

  list.SetItemState(retired, 0, LVIS_SELECTED);
  list.SetItemState(inUse, LVIS_SELECTED, LVIS_SELECTED);
  // The kept page keeps its tab; the run's own page comes beside it.
  ASSERT_TRUE(gui_test::WaitUntil(
      [&] { return sheet->GetPageCount() == 2 && sheet->GetPage(1)->GetTemplateID() == 7150u; }));
  EXPECT_EQ(sheet->GetPageIndex(comment), 0);
  EXPECT_EQ(comment->GetSafeHwnd(), commentWindow) << "the shared page is not rebuilt";
  EXPECT_EQ(sheet->GetActivePage(), comment) << "and stays shown";

  // GTK lays the text view out before it takes text.
  auto * edit = static_cast<wxTextCtrl *>(comment->GetDlgItem(7161));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->IsShownOnScreen(); }));
  gui_test::Flush();
  edit->SetValue("checked twice");
  EXPECT_TRUE(comment->IsChanged());
  sheet->OnOK();
  EXPECT_FALSE(sheet->IsShown());
  EXPECT_EQ(list.GetItemText(inUse, RunList::kCommentColumn), "checked twice");
  EXPECT_EQ(sheet->GetPageCount(), 0) << "the pages go back with the window closed";

  frame->Destroy();
  gui_test::Flush();
  VxModelessPropertySheet::Release();
}

}  // namespace
