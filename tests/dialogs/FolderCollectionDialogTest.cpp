// The folder list editor on real windows: its rows and the empty last row,
// the buttons and when they may be pressed, browsing into a row, and the
// list OK hands back or refuses.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <wx/listctrl.h>

#include "dialogs/FolderCollectionDialog.h"
#include "dialogs/FolderDialogTestSupport.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"

using namespace folder_test;
using Dialog = FolderCollectionDialog;

namespace {

std::vector<std::string> Rows(wxDialog & d) {
  std::vector<std::string> rows;
  for (wxString const & row : dynamic_cast<Dialog &>(d).GetRows())
    rows.push_back(row.utf8_string());
  return rows;
}

wxListCtrl & List(wxDialog & d) {
  return *dynamic_cast<wxListCtrl *>(d.FindWindow(Dialog::kListId));
}

void Select(wxDialog & d, long row) {
  List(d).SetItemState(row, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
}

// Which of browse, delete, up and down may be pressed now.
std::string Enabled(wxDialog & d) {
  d.UpdateWindowUI(wxUPDATE_UI_RECURSE);
  std::string enabled;
  for (int id : {Dialog::kBrowseId, Dialog::kDeleteId, Dialog::kUpId, Dialog::kDownId})
    enabled += d.FindWindow(id)->IsEnabled() ? '1' : '0';
  return enabled;
}

TEST(FolderCollectionDialog, TheRowsAreTheListsFoldersAndAnEmptyRowForANewOne) {
  std::string const a = TempFolder("collection/a");
  std::string const b = TempFolder("collection/b b");
  wxString const folders = wxString::FromUTF8(" " + a + " ;;" + b + ";");
  Dialog dialog(folders.wc_str(), L"Search folders", L"Folders searched for data:");
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    Snapshot(d, "folder-collection.png");
    EXPECT_EQ(Rows(d), (std::vector<std::string>{a, b, ""}));
    EXPECT_EQ(d.GetTitle(), "Search folders");
    EXPECT_EQ(d.FindWindow(Dialog::kPromptId)->GetLabel(), "Folders searched for data:");
    Click(d, IDOK);
  });
  EXPECT_EQ(dialog.DoModal(), IDOK);
  // Each folder ended by ";", the empty row adding nothing.
  EXPECT_EQ(dialog.GetFolders().utf8_string(), a + ";" + b + ";");
}

TEST(FolderCollectionDialog, ButtonsMoveRowsButNothingPastTheEmptyRow) {
  std::string const a = TempFolder("collection/move/a");
  std::string const b = TempFolder("collection/move/b");
  std::string const c = TempFolder("collection/move/c");
  wxString const folders = wxString::FromUTF8(a + ";" + b + ";" + c + ";");
  Dialog dialog(folders.wc_str(), L"Folders", L"");
  // press 0: none; enabledBefore: browse, delete, up, down.
  struct Step {
    long select;
    int press;
    char const * enabledBefore;
    std::vector<std::string> rows;
    long selectedAfter;
  };
  std::vector<Step> const steps = {
      {0, Dialog::kDownId, "1101", {b, a, c, ""}, 1},
      {2, Dialog::kUpId, "1110", {b, c, a, ""}, 1},   // the last folder may not go down
      {3, 0, "1000", {b, c, a, ""}, 3},               // the empty row stays where it is
      {0, Dialog::kDeleteId, "1101", {c, a, ""}, 0},  // the row now at that index is selected
      {1, Dialog::kDeleteId, "1110", {c, ""}, 1},
  };
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    for (Step const & step : steps) {
      SCOPED_TRACE(step.select);
      Select(d, step.select);
      EXPECT_EQ(Enabled(d), step.enabledBefore);
      if (step.press != 0) Click(d, step.press);
      EXPECT_EQ(Rows(d), step.rows);
      EXPECT_EQ(List(d).GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED),
                step.selectedAfter);
    }
    Click(d, IDCANCEL);
  });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(dialog.GetFolders(), folders);  // Cancel keeps the list given
}

TEST(FolderCollectionDialog, EditsAndBrowsingKeepExactlyOneEmptyRowLast) {
  std::string const a = TempFolder("collection/edit/a");
  std::string const chosen = TempFolder("collection/edit/chosen");
  wxString const folders = wxString::FromUTF8(a + ";");
  Dialog dialog(folders.wc_str(), L"Folders", L"");
  FakeFolderChooser chooser({chosen, ""});
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    for (long row : {1, 0}) {  // into the empty row: a new one follows; then cancelled
      Select(d, row);
      Click(d, Dialog::kBrowseId);
      EXPECT_EQ(Rows(d), (std::vector<std::string>{a, chosen, ""}));
    }
    // The user clears the first row: it goes when the edit ends.
    List(d).EditLabel(0)->SetValue("");
    List(d).EndEditLabel(false);
    gui_test::WaitUntil([&] { return Rows(d).size() == 2; });
    EXPECT_EQ(Rows(d), (std::vector<std::string>{chosen, ""}));
    Click(d, IDOK);
  });
  EXPECT_EQ(dialog.DoModal(), IDOK);
  ASSERT_EQ(chooser.requests.size(), 2u);
  EXPECT_EQ(chooser.requests[0].title, "Folders");
  EXPECT_EQ(chooser.requests[1].initialFolder.utf8_string(), a);  // opens on the row's text
  EXPECT_EQ(dialog.GetFolders().utf8_string(), chosen + ";");
}

TEST(FolderCollectionDialog, OkRefusesFoldersThatAreNotThereOrCannotBeListed) {
  std::string const a = TempFolder("collection/ok/a");
  std::string const semicolon = TempFolder("collection/ok/x;y");
  struct Case {
    char const * name;
    std::string row;
    char const * says;
  };
  Case const cases[] = {
      {"missing", a + "/missing", "does not exist"},
      {"vanished", TempFolder("collection/ok/vanished"), "does not exist"},
      {"with ';'", semicolon, "cannot be kept in this list"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    Dialog dialog(wxString::FromUTF8(a + ";").wc_str(), L"Folders", L"");
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      List(d).SetItemText(1, wxString::FromUTF8(c.row));
      std::remove(TempFolder("collection/ok/vanished").c_str());
      Click(d, IDOK);
      EXPECT_TRUE(d.IsModal());
      Click(d, IDCANCEL);
    });
    script.Answer(wxID_OK);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    ASSERT_EQ(script.Shown().size(), 2u);
    EXPECT_NE(script.Shown()[1].message.Find(c.says), wxNOT_FOUND);
    EXPECT_EQ(dialog.GetFolders().utf8_string(), a + ";");
  }
}

}  // namespace
