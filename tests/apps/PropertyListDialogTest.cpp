// The sample's run settings in the property list, opened from its menu
// command: a typed title commits as the editor hands the focus back, Tab,
// Escape and Return leave the dialog up, and the long names wrap.
#include <gtest/gtest.h>

#include "MainFrame.h"
#include "PropertyListDialog.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "properties/PropertyItem.h"
#include "properties/PropertyListCtrl.h"
// Last: Xlib's macros clash with names in the headers above.
#include "../platform/commctrl/ListInput.h"
#include "work/XTestInput.h"

namespace {

TEST(PropertyListDialog, ATypedTitleCommitsAndTheKeysLeaveTheDialogUp) {
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  wxString status;
  bool stayed = false;
  int wrappedLines = 0;
  ModalDialogScript script;
  script.Act([&](wxDialog & shown) {
    auto & dialog = dynamic_cast<PropertyListDialog &>(shown);
    ASSERT_TRUE(gui_test::WaitUntilPlaced(dialog));
    PropertyListCtrl & list = dialog.GetList();
    ASSERT_EQ(list.GetPropertyItem(1)->GetName(), L"Title");
    // Placed is not yet on top: a click too soon reaches the main window.
    ASSERT_TRUE(gui_test::WaitUntil([&] { return IsClickable(list); }));
    wxRect const row = list.GetItemRect(1);
    list_input::ClickAt(list, wxPoint(row.x + row.width * 3 / 4, row.y + row.height / 2));
    ASSERT_TRUE(gui_test::WaitUntil([&] {
      wxWindow * focus = wxWindow::FindFocus();
      return focus != nullptr && focus->GetParent() == &list;
    }));
    list_input::Key(XK_x);
    for (KeySym key : {XK_Tab, XK_Escape, XK_Return}) list_input::Key(key);
    gui_test::WaitUntil([&] { return dialog.GetStatus() == L"Committed: Title"; });
    status = dialog.GetStatus();
    gui_test::Flush();
    stayed = dialog.IsShown();
    wxString const & offset = list.GetPropertyItem(3)->GetShowName();  // a long name
    wrappedLines = static_cast<int>(offset.Freq(L'\n')) + 1;
    gui_test::Snapshot(dialog, "property-list");
    dialog.EndModal(wxID_OK);
  });
  wxCommandEvent command(wxEVT_MENU, kPropertyListCommand);
  command.SetEventObject(frame);
  frame->ProcessWindowEvent(command);
  EXPECT_EQ(status, L"Committed: Title");
  EXPECT_TRUE(stayed);
  EXPECT_GT(wrappedLines, 1);
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
