// The sample's property editors, opened from its menu command: a click on
// a value lays that row's editor over it, and a value handed back, also by
// an editor that goes when another row is clicked, shows in the log line.
#include <gtest/gtest.h>

#include <wx/panel.h>
#include <wx/textctrl.h>

#include "MainFrame.h"
#include "PropertyEditorsDialog.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "properties/PropertyInPlaceComboBox.h"
#include "properties/PropertyInPlaceEdit.h"
#include "properties/PropertyItemNumber.h"
// Last: Xlib's macros clash with names in the headers above.
#include "../platform/commctrl/ListInput.h"

namespace {

wxPoint Middle(RECT const & cell) {
  return wxPoint((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2);
}

TEST(PropertyEditorsDialog, AClickedValueIsEditedAndItsCommitLogged) {
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  int rows = 0;
  bool numberEditor = false;
  bool comboEditor = false;
  wxString log;
  int replicates = 0;
  ModalDialogScript script;
  script.Act([&](wxDialog & shown) {
    auto & dialog = dynamic_cast<PropertyEditorsDialog &>(shown);
    ASSERT_TRUE(gui_test::WaitUntilPlaced(dialog));
    rows = dialog.GetRowCount();
    wxPanel & grid = *dialog.GetGrid();
    list_input::ClickAt(grid, Middle(dialog.ValueCell(2)));  // "Replicates"
    ASSERT_TRUE(gui_test::WaitUntil([&] { return dialog.GetEditor() != nullptr; }));
    auto * edit = dynamic_cast<PropertyInPlaceEdit *>(dialog.GetEditor());
    numberEditor = edit != nullptr;
    ASSERT_NE(edit, nullptr);
    // Typed: the caret stands at the end of "3".
    ASSERT_TRUE(gui_test::WaitUntilFocused(*edit));
    list_input::Key(XK_BackSpace);
    list_input::Key(XK_7);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->GetValue() == L"7"; }));
    list_input::ClickAt(grid, Middle(dialog.ValueCell(5)));  // "Save automatically"
    ASSERT_TRUE(gui_test::WaitUntil(
        [&] { return dynamic_cast<PropertyInPlaceComboBox *>(dialog.GetEditor()) != nullptr; }));
    comboEditor = true;
    log = dialog.GetLog();
    static_cast<PropertyItemNumber &>(dialog.GetItem(2)).GetData(replicates);
    gui_test::Snapshot(dialog, "property-editors");
    dialog.EndModal(wxID_OK);
  });
  wxCommandEvent command(wxEVT_MENU, kPropertyEditorsCommand);
  command.SetEventObject(frame);
  frame->ProcessWindowEvent(command);
  frame->Destroy();

  ASSERT_EQ(script.Shown().size(), 1U);
  EXPECT_EQ(rows, 13);
  EXPECT_TRUE(numberEditor);
  EXPECT_TRUE(comboEditor);
  EXPECT_EQ(replicates, 7);
  EXPECT_EQ(log, "Replicates: 7");
}

}  // namespace
