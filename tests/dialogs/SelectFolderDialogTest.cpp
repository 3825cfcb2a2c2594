// The folder picker on real windows: what Select takes, refuses and asks,
// what the tree puts into the edit, and that nothing is created on the
// user's behalf.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <wx/choice.h>
#include <wx/dirctrl.h>
#include <wx/treectrl.h>

#include "dialogs/CSelectFolderDialog.h"
#include "dialogs/FileSystemNames.h"
#include "dialogs/FolderDialogTestSupport.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"
#include "utl/Paths.h"

using namespace folder_test;

namespace {

constexpr int kEdit = CSelectFolderDialog::kFolderEditId;

struct Picked {
  int result = 0;
  wxString selected;
};

// Runs a picker starting at `start`, types `typed` and presses Select;
// the message boxes that follow get `answers`, then the dialog is cancelled
// if `cancelAfterwards`.
Picked TypeAndSelect(std::string const & start, std::string const & typed,
                     ModalDialogScript & script, std::vector<int> const & answers = {},
                     bool cancelAfterwards = false) {
  CSelectFolderDialog dialog(0, wxString::FromUTF8(start).wc_str());
  script.Act([&](wxDialog & d) {
    Type(d, kEdit, typed);
    Click(d, IDOK);
    if (cancelAfterwards) {
      EXPECT_TRUE(d.IsModal());  // still open after the boxes
      Click(d, IDCANCEL);
    }
  });
  for (int answer : answers) script.Answer(answer);
  int const result = dialog.DoModal();
  return {result, dialog.GetSelectedPath()};
}

TEST(SelectFolderDialog, SelectTakesAnExistingFolderWithATrailingSeparator) {
  std::string const runs = TempFolder("picker/runs");
  // Typed, with a separator, relative to the tree's folder, with white
  // space around, and empty: the tree's folder.
  for (std::string const & typed :
       {runs, runs + "/", std::string("runs"), "  " + runs + " ", std::string()}) {
    SCOPED_TRACE(typed);
    ModalDialogScript script;
    Picked const picked = TypeAndSelect(typed.empty() ? runs : VxGetDirectory(runs), typed, script);
    EXPECT_EQ(picked.result, IDOK);
    EXPECT_EQ(picked.selected.utf8_string(), runs + "/");
  }
}

// Refused by default (below).
TEST(SelectFolderDialog, ADoubledSeparatorIsTakenAsTypedWhenAllowed) {
  std::string const runs = TempFolder("picker/double");
  std::string const typed = VxGetDirectory(runs) + "//double";
  EXPECT_FALSE(CSelectFolderDialog::SetAllowDoubleSlash(true));
  ModalDialogScript script;
  Picked const picked = TypeAndSelect(runs, typed, script);
  EXPECT_EQ(picked.result, IDOK);
  EXPECT_EQ(picked.selected.utf8_string(), typed + "/");  // as typed: Linux reads "//" as "/"
  EXPECT_TRUE(CSelectFolderDialog::SetAllowDoubleSlash(false));
}

TEST(SelectFolderDialog, AMissingFolderIsAskedForAndNeverCreatedHere) {
  std::string const base = TempFolder("picker/missing");
  std::string const missing = base + "/new\nline";  // a line feed is a legal name
  {
    SCOPED_TRACE("No takes the path as typed");
    ModalDialogScript script;
    Picked const picked = TypeAndSelect(base, missing, script, {wxID_NO});
    EXPECT_EQ(picked.result, IDOK);
    EXPECT_EQ(picked.selected.utf8_string(), missing + "/");
    ASSERT_EQ(script.Shown().size(), 2u);
    EXPECT_EQ(script.Shown()[1].message,
              wxString::FromUTF8(base + "/new\\nline\n\n"
                                        "This path does not exist. Do you want to create it?"));
  }
  {
    SCOPED_TRACE("Yes leaves the dialog open with the failure box");
    ModalDialogScript script;
    Picked const picked = TypeAndSelect(base, missing, script, {wxID_YES, wxID_OK}, true);
    EXPECT_EQ(picked.result, IDCANCEL);
    ASSERT_EQ(script.Shown().size(), 3u);
    EXPECT_EQ(script.Shown()[2].message,
              wxString::FromUTF8("Could not create folder:\n" + base + "/new\\nline"));
  }
  EXPECT_EQ(VxFileExist(missing), VxNothing);
}

TEST(SelectFolderDialog, PathsThatCannotBeFoldersAreRefusedWithTheReason) {
  std::string const base = TempFolder("picker/refused");
  std::string const file = base + "/notes.txt";
  FILE * out = std::fopen(file.c_str(), "w");
  ASSERT_NE(out, nullptr);
  std::fclose(out);
  std::string tooLong = base;
  while (tooLong.size() < 4000) tooLong += "/" + std::string(300, 'x');
  struct Case {
    std::string typed;
    char const * says;
  };
  Case const cases[] = {{base + "//refused", "Invalid Folder"},
                        {file, "is a file, not a folder"},
                        {file + "/sub", "Not a directory"},
                        {tooLong, "File name too long"}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.says);
    ModalDialogScript script;
    Picked const picked = TypeAndSelect(base, c.typed, script, {wxID_OK}, true);
    EXPECT_EQ(picked.result, IDCANCEL);
    ASSERT_EQ(script.Shown().size(), 2u);
    EXPECT_NE(script.Shown()[1].message.Find(c.says), wxNOT_FOUND)
        << script.Shown()[1].message.utf8_string();
  }
  EXPECT_EQ(VxFileExist(base + "/" + std::string(300, 'x')), VxNothing);
}

TEST(SelectFolderDialog, TheTreeFillsTheEditAndAVanishedFolderSaysSo) {
  std::string const base = TempFolder("picker/tree");
  std::string const kept = TempFolder("picker/tree/kept");
  std::string const gone = TempFolder("picker/tree/gone");
  TempFolder("picker/tree/gone/inner");
  CSelectFolderDialog dialog(0, wxString::FromUTF8(base).wc_str());
  dialog.SetTitle("Pick the data folder");
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    Snapshot(d, "select-folder.png");
    EXPECT_EQ(d.GetTitle(), "Pick the data folder");
    EXPECT_EQ(d.FindWindow(IDOK)->GetLabel(), "Select");
    auto * tree = dynamic_cast<wxGenericDirCtrl *>(d.FindWindow(CSelectFolderDialog::kTreeId));
    ASSERT_NE(tree, nullptr);
    auto * edit = dynamic_cast<wxTextCtrl *>(d.FindWindow(kEdit));
    EXPECT_EQ(edit->GetValue().utf8_string(), base);
    wxTreeItemId const baseItem = tree->GetTreeCtrl()->GetSelection();
    tree->SelectPath(wxString::FromUTF8(kept));
    EXPECT_EQ(edit->GetValue().utf8_string(), kept);
    // The folder is listed, then deleted before the user opens it.
    bool exact = false;
    wxTreeItemId const item = tree->FindChild(baseItem, wxString::FromUTF8(gone), exact);
    ASSERT_TRUE(item.IsOk());
    std::remove((gone + "/inner").c_str());
    std::remove(gone.c_str());
    tree->GetTreeCtrl()->Expand(item);
    EXPECT_FALSE(tree->GetTreeCtrl()->IsExpanded(item));
    Click(d, IDOK);
  });
  script.Answer(wxID_OK);
  EXPECT_EQ(dialog.DoModal(), IDOK);
  ASSERT_EQ(script.Shown().size(), 2u);
  EXPECT_NE(script.Shown()[1].message.Find("is no longer there"), wxNOT_FOUND);
  EXPECT_EQ(dialog.GetSelectedPath().utf8_string(), kept + "/");
}

TEST(SelectFolderDialog, FileTypesShowOnlyWithFilesAndAFilter) {
  std::string const base = TempFolder("picker/types");
  struct Case {
    int showFiles;
    wchar_t const * filter;
    bool typesShown;
  };
  Case const cases[] = {{0, L"Data (*.dat)|*.dat||", false},
                        {1, nullptr, false},
                        {1, L"Data (*.dat)|*.dat|All files (*.*)|*.*||", true}};
  int heightWithout = 0;
  for (Case const & c : cases) {
    SCOPED_TRACE(c.showFiles);
    CSelectFolderDialog dialog(c.showFiles, wxString::FromUTF8(base).wc_str(), 0, c.filter);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      if (c.typesShown) Snapshot(d, "select-folder-types.png");
      auto * types = dynamic_cast<wxChoice *>(d.FindWindow(CSelectFolderDialog::kTypeChoiceId));
      EXPECT_EQ(types->IsShown(), c.typesShown);
      int const height = d.GetClientSize().y;
      if (c.typesShown) {
        EXPECT_EQ(types->GetCount(), 2u);
        EXPECT_GT(height, heightWithout);  // room was made, nothing overlaps
      }
      heightWithout = height;
      Click(d, IDCANCEL);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  }
}

TEST(SelectFolderDialog, AFolderWhoseNameIsNoUtf8IsChosenFromTheTreeByItsOwnBytes) {
  std::string const base = TempFolder("picker/bytes");
  std::string const odd = TempFolder("picker/bytes/odd\xFF\xFEname");
  CSelectFolderDialog dialog(0, wxString::FromUTF8(base).wc_str());
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    auto * tree = dynamic_cast<wxGenericDirCtrl *>(d.FindWindow(CSelectFolderDialog::kTreeId));
    wxTreeCtrl * items = tree->GetTreeCtrl();
    wxTreeItemId const baseItem = items->GetSelection();
    items->Expand(baseItem);
    wxTreeItemIdValue cookie;
    wxTreeItemId const child = items->GetFirstChild(baseItem, cookie);
    ASSERT_TRUE(child.IsOk());
    items->SelectItem(child);
    Click(d, IDOK);
  });
  EXPECT_EQ(dialog.DoModal(), IDOK);  // no question: the folder is there
  EXPECT_EQ(ToFileSystemPath(dialog.GetSelectedPath()), odd + "/");
}

}  // namespace
