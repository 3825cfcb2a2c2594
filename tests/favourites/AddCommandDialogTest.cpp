// The add-command dialog over a test application's menu resource and its
// main window's tool bars: which rows and commands it offers, its heading,
// adding into the favourites tree, sub-menus, and how a row is drawn.
#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>

#include <vector>

#include "favourites/AddCommandToFavouritesDlg.h"
#include "favourites/CommandsListBox.h"
#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"
#include "harness/GuiTestUtilities.h"
#include "platform/SysColor.h"

namespace {

class Manager : public FavouritesManager {
public:
  bool OnAddToFavourites(FavouriteItem *, int & id) override {
    id = 1;
    return true;
  }
};

std::vector<wxString> MenuRows(AddCommandToFavouritesDlg const & dialog) {
  std::vector<wxString> rows;
  for (unsigned i = 0; i < dialog.GetMenusList().GetCount(); ++i)
    rows.push_back(dialog.GetMenusList().GetString(i));
  return rows;
}

std::vector<wxString> CommandRows(AddCommandToFavouritesDlg const & dialog) {
  CommandsListBox const & list = dialog.GetCommandsList();
  std::vector<wxString> rows;
  rows.reserve(static_cast<size_t>(list.GetRowCount()));
  for (int i = 0; i < list.GetRowCount(); ++i) rows.push_back(list.GetRow(i)->text);
  return rows;
}

class AddCommandDialogTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "application", wxPoint(30, 30), wxSize(500, 400));
    wxTheApp->SetTopWindow(frame);
    wxBitmap const image(16, 16);
    wxToolBar * own = frame->CreateToolBar();
    own->AddTool(100, "Calculate", image);
    own->AddTool(999, "Nothing", image);  // no string: not offered
    own->Realize();
    auto * drawing = new wxToolBar(frame, wxID_ANY);
    drawing->SetLabel("Drawing");
    drawing->AddTool(999, "Nothing", image);  // a bar without any command is left out
    drawing->Realize();
    tree = new FavouritesTree(frame, 16258);
    tree->SetFavouritesManager(&manager);
    unsigned int const ids[] = {800, 900};  // 900: a menu that does not exist
    tree->EnableCommandItems(ids, 2);
    frame->Show();
    gui_test::Flush();
    dialog = ShowAddCommandDialog(*tree);
    ASSERT_NE(dialog, nullptr);
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  void SelectCommand(wxString const & text) {
    std::vector<wxString> const rows = CommandRows(*dialog);
    auto const at = std::find(rows.begin(), rows.end(), text);
    ASSERT_NE(at, rows.end()) << text;
    dialog->GetCommandsList().SetSelection(static_cast<int>(at - rows.begin()));
    dialog->OnCommandsSelection();
  }
  bool AddEnabled() const {
    return dialog->FindWindow(AddCommandToFavouritesDlg::kAddButton)->IsEnabled();
  }

  Manager manager;
  wxFrame * frame = nullptr;
  FavouritesTree * tree = nullptr;
  AddCommandToFavouritesDlg * dialog = nullptr;
};

TEST_F(AddCommandDialogTest, OffersTheMenusAndTheToolBarsThatHaveCommands) {
  EXPECT_EQ(MenuRows(*dialog), (std::vector<wxString>{"File", "Tools", "Application Toolbar"}));
  EXPECT_EQ(dialog->GetMenusList().GetSelection(), 0);
  // Recent files, the placeholder sub-menu and the separator are left out;
  // the short-cut is cut off.
  EXPECT_EQ(CommandRows(*dialog), (std::vector<wxString>{"New", "Calculate"}));
  CommandsListBox const & list = dialog->GetCommandsList();
  EXPECT_FALSE(list.GetRow(0)->icon.IsOk());
  EXPECT_TRUE(list.GetRow(1)->icon.IsOk()) << "the tool bar resource's image";
  EXPECT_EQ(list.GetRow(0)->commandId, 57600U);
  EXPECT_FALSE(AddEnabled());

  dialog->GetMenusList().SetSelection(2);
  dialog->OnMenusSelection();
  EXPECT_EQ(CommandRows(*dialog), std::vector<wxString>{"Calculate"}) << "the short text";
}

TEST_F(AddCommandDialogTest, TheHeadingNamesTheCommandAndAddingPutsItIntoTheTree) {
  EXPECT_EQ(dialog->GetSelectedCommandText(), "");
  SelectCommand("Calculate");
  EXPECT_EQ(dialog->GetSelectedCommandText(), "Selected command: Calculate the selected runs");
  EXPECT_TRUE(AddEnabled());
  EXPECT_FALSE(dialog->GetAdded());
  dialog->OnAdd();
  EXPECT_TRUE(dialog->GetAdded());
  HTREEITEM const row = tree->GetSelectedItem();
  auto const * item = dynamic_cast<FavouriteCommandItem const *>(tree->GetFavouriteItem(row));
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->GetCommandID(), 100);
  EXPECT_EQ(item->GetName(), "Calculate");

  dialog->GetCommandsList().SetSelection(wxNOT_FOUND);
  dialog->OnCommandsSelection();
  EXPECT_EQ(dialog->GetSelectedCommandText(), "Selected command:");
  EXPECT_FALSE(dialog->GetAdded()) << "a new selection clears it";
}

TEST_F(AddCommandDialogTest, ASubMenuCannotBeAddedButOpensOnADoubleClick) {
  dialog->GetMenusList().SetSelection(1);
  dialog->OnMenusSelection();
  EXPECT_EQ(CommandRows(*dialog), (std::vector<wxString>{"Report", "Export"}));
  SelectCommand("Export");
  EXPECT_EQ(dialog->GetSelectedCommandText(), "Submenu:  double-click to view the submenu items.");
  EXPECT_FALSE(AddEnabled());
  dialog->OnAdd();
  EXPECT_FALSE(dialog->GetAdded());
  dialog->OnCommandsDoubleClick();
  EXPECT_EQ(CommandRows(*dialog), (std::vector<wxString>{"As Text", "As HTML"}));
  SelectCommand("As HTML");  // no string: the row's text stands in
  EXPECT_EQ(dialog->GetSelectedCommandText(), "Selected command: As HTML");
  dialog->OnCommandsDoubleClick();  // a command: added
  EXPECT_TRUE(dialog->GetAdded());

  // Asking again raises the same dialog.
  EXPECT_EQ(ShowAddCommandDialog(*tree), dialog);
}

TEST_F(AddCommandDialogTest, ARowIsDrawnWithItsHighlightFocusTextAndSubMenuArrow) {
  dialog->GetMenusList().SetSelection(1);
  dialog->OnMenusSelection();
  CommandsListBox & list = dialog->GetCommandsList();
  list.SetSelection(1);  // "Export", a sub-menu
  wxBitmap bitmap(200, 24);
  wxMemoryDC dc(bitmap);
  wxRect const rect(0, 0, 200, 24);
  list.OnDrawBackground(dc, rect, 1);
  list.OnDrawItem(dc, rect, 1);
  dc.SelectObject(wxNullBitmap);
  wxImage const image = bitmap.ConvertToImage();
  auto colour = [&image](int x, int y) {
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
  };
  wxColour const window = GetSysColour(COLOR_WINDOW);
  wxColour const highlight = GetSysColour(COLOR_HIGHLIGHT);
  EXPECT_EQ(colour(22, 12), window) << "the icon column stays unhighlighted";
  EXPECT_EQ(colour(23, 1), highlight);
  // The arrow: five lines, the first from y 6 to 15, the last from 10 to 11.
  int const x = 200 - 11;
  EXPECT_EQ(colour(x, 5), highlight);
  EXPECT_NE(colour(x, 6), highlight);
  EXPECT_NE(colour(x, 15), highlight);
  EXPECT_EQ(colour(x, 16), highlight);
  EXPECT_NE(colour(x + 4, 10), highlight);
  EXPECT_NE(colour(x + 4, 11), highlight);
  EXPECT_EQ(colour(x + 4, 12), highlight);
  EXPECT_EQ(colour(x + 5, 10), highlight);
}

}  // namespace
