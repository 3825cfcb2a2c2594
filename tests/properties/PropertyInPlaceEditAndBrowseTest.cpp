// The edit-and-browse editors with real input and the choosers answered by
// the test: what each chooser is asked, what comes back into the data and
// the edit, that a typed change is taken before browsing, and that the
// colour's text cannot be typed over.
#include <gtest/gtest.h>

#include <X11/keysym.h>
#include <wx/button.h>

#include "EditorHost.h"
#include "dialogs/ColourChooser.h"
#include "dialogs/NativeChoosers.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"
#include "platform/commctrl/ListInput.h"
#include "properties/PropertyInPlaceBrowseForColor.h"
#include "properties/PropertyInPlaceBrowseForFile.h"
#include "properties/PropertyInPlaceBrowseForFolderCollection.h"
#include "properties/PropertyInPlaceEditAndBrowseEdit.h"
#include "work/XTestInput.h"

namespace {

RECT const kCell{100, 20, 300, 40};

class PropertyInPlaceEditAndBrowseTest : public testing::Test {
protected:
  void SetUp() override {
    host = new EditorHost;
    ASSERT_TRUE(gui_test::ShowAndWait(*host));
    ASSERT_TRUE(gui_test::WaitUntilPlaced(*host));
    host->Raise();
  }
  void TearDown() override {
    SetFolderChooserFunction({});
    SetFileChooserFunction({});
    SetColourChooserFunction({});
    host->Destroy();
    gui_test::Flush();
  }

  void FocusEdit(PropertyInPlaceEditAndBrowse & editor) {
    editor.GetEdit()->SetFocus();
    ASSERT_TRUE(gui_test::WaitUntil(
        [&] { return editor.GetEdit()->HasFocus() && !editor.GetEdit()->HasSelection(); }));
  }

  void ClickBrowse(PropertyInPlaceEditAndBrowse & editor) {
    ASSERT_TRUE(gui_test::WaitUntil([&] { return IsReady(editor); }));
    wxRect const button = editor.GetButtonRect();
    list_input::ClickAt(editor, button.GetPosition() + button.GetSize() / 2);
  }

  EditorHost * host = nullptr;
};

TEST_F(PropertyInPlaceEditAndBrowseTest, FolderStartsAtTheCutPathAndTakesTheAnswer) {
  wxString const longPath = "/" + wxString('a', 299);
  std::vector<FolderChooserRequest> asked;
  FolderChooserAnswer answer{true, "/srv/data/run 7"};
  SetFolderChooserFunction([&](FolderChooserRequest const & request) {
    asked.push_back(request);
    return answer;
  });
  auto * editor = PropertyInPlaceBrowseForFolder::CreateInPlaceControl(host->owner, kCell);
  editor->SetData(longPath);
  ClickBrowse(*editor);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return asked.size() == 1; }));
  gui_test::Flush();
  EXPECT_EQ(asked[0].title, "Select Folder");
  EXPECT_EQ(asked[0].initialFolder, longPath.Left(259));
  EXPECT_EQ(editor->GetData(), "/srv/data/run 7");
  EXPECT_EQ(editor->GetEdit()->GetValue(), "/srv/data/run 7");
  EXPECT_EQ(host->owner->DataChanges(), 1);

  answer = FolderChooserAnswer{};  // cancelled: nothing changes, nothing is told
  editor->Browse();
  EXPECT_EQ(editor->GetData(), "/srv/data/run 7");
  EXPECT_EQ(host->owner->DataChanges(), 1);
}

TEST_F(PropertyInPlaceEditAndBrowseTest, ATypedChangeIsTakenBeforeBrowsingAndByItsKeys) {
  std::vector<wxString> startedAt;
  SetFolderChooserFunction([&](FolderChooserRequest const & request) {
    startedAt.push_back(request.initialFolder);
    return FolderChooserAnswer{};
  });
  auto * editor = PropertyInPlaceBrowseForFolder::CreateInPlaceControl(host->owner, kCell);
  editor->SetData("/tmp");  // as the items do: the caret at the end
  std::vector<wxString> taken;
  host->owner->onDataChanged = [&] { taken.push_back(editor->GetData()); };
  FocusEdit(*editor);
  FakeKey(XK_slash);
  FakeKey(XK_x);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return editor->GetEdit()->GetValue() == "/tmp/x"; }));
  ClickBrowse(*editor);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return startedAt.size() == 1; }));
  EXPECT_EQ(startedAt[0], "/tmp/x") << "the chooser starts at what was typed";
  EXPECT_EQ(taken, std::vector<wxString>{"/tmp/x"});

  FocusEdit(*editor);
  FakeKey(XK_y);
  FakeKey(XK_Return);
  ASSERT_TRUE(gui_test::WaitUntilFocused(*host->owner));
  gui_test::Flush();
  EXPECT_EQ(taken, (std::vector<wxString>{"/tmp/x", "/tmp/xy"}));
  EXPECT_TRUE(host->buttons.empty()) << "Return pressed the default button";
}

// GTK's entry holds at most 65,535 characters: a longer path shown in it is
// cut, and must not come back cut when the user did not edit it.
TEST_F(PropertyInPlaceEditAndBrowseTest, PathsComeBackExactWhenNotEdited) {
  wxString const paths[] = {"/srv/run\n7/data", "/srv/" + wxString('x', 70000) + "/end",
                            "/srv/tab\there/\u00e9t\u00e9"};
  for (wxString const & path : paths) {
    host->owner->messages.clear();
    auto * editor = PropertyInPlaceBrowseForFolder::CreateInPlaceControl(host->owner, kCell);
    editor->SetData(path);
    FocusEdit(*editor);
    FakeKey(XK_Tab);
    ASSERT_TRUE(gui_test::WaitUntilFocused(*host->owner));
    EXPECT_FALSE(editor->Commit());
    EXPECT_TRUE(editor->GetData() == path) << "the path changed on its way through the edit";
    EXPECT_EQ(host->owner->DataChanges(), 0);
    editor->Destroy();
  }
}

TEST_F(PropertyInPlaceEditAndBrowseTest, FileAsksToSelectWithoutAnOverwriteQuestion) {
  std::vector<FileChooserRequest> asked;
  SetFileChooserFunction([&](FileChooserRequest const & request) {
    asked.push_back(request);
    FileChooserAnswer answer;
    answer.accepted = true;
    answer.paths = {"/srv/out/existing.csv"};
    return answer;
  });
  auto * editor = new PropertyInPlaceBrowseForFile(host->owner, kCell, "/srv/out/old.csv");
  editor->Browse();
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_FALSE(asked[0].open) << "a save chooser: the file need not exist";
  EXPECT_FALSE(asked[0].overwritePrompt);
  EXPECT_EQ(asked[0].title, "Select File");
  EXPECT_EQ(asked[0].acceptLabel, "Select");
  EXPECT_EQ(asked[0].initialFolder, "/srv/out");
  EXPECT_EQ(asked[0].fileName, "old.csv");
  EXPECT_EQ(editor->GetData(), "/srv/out/existing.csv");
  EXPECT_EQ(host->owner->DataChanges(), 1);
}

TEST_F(PropertyInPlaceEditAndBrowseTest, FolderCollectionOpensItsDialogWithTheGivenTitle) {
  ModalDialogScript script;
  script.Act([](wxDialog & dialog) { dialog.EndModal(IDOK); });
  auto * editor = PropertyInPlaceBrowseForFolderCollection::CreateInPlaceControl(
      host->owner, kCell, "Search folders", "Folders searched in order:");
  editor->SetData("/a;/b;");
  editor->Browse();
  ASSERT_EQ(script.Shown().size(), 1U);
  EXPECT_EQ(script.Shown()[0].title, "Search folders");
  EXPECT_EQ(editor->GetData(), "/a;/b;");
  EXPECT_EQ(host->owner->DataChanges(), 1);
}

TEST_F(PropertyInPlaceEditAndBrowseTest, ColourIsChosenNotTyped) {
  std::vector<COLORREF> asked;
  SetColourChooserFunction([&](ColourChooserRequest const & request) {
    asked.push_back(request.colour);
    return ColourChooserAnswer{true, RGB(10, 20, 30)};
  });
  auto * editor = new PropertyInPlaceBrowseForColor(host->owner, kCell, RGB(200, 100, 50));
  EXPECT_EQ(editor->GetEdit()->GetValue(), "R: 200 G: 100 B: 50");
  FocusEdit(*editor);
  gui_test::Snapshot(*host, "property-colour-editor");
  FakeKey(XK_End);
  FakeKey(XK_7);
  FakeKey(XK_BackSpace);
  FakeKey(XK_Tab);
  ASSERT_TRUE(gui_test::WaitUntilFocused(*host->owner));
  EXPECT_EQ(editor->GetEdit()->GetValue(), "R: 200 G: 100 B: 50");
  EXPECT_EQ(host->owner->DataChanges(), 0);

  ClickBrowse(*editor);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return host->owner->DataChanges() == 1; }));
  EXPECT_EQ(asked, std::vector<COLORREF>{RGB(200, 100, 50)});
  COLORREF chosen = 0;
  editor->GetData(chosen);
  EXPECT_EQ(chosen, RGB(10, 20, 30));
  EXPECT_EQ(editor->GetEdit()->GetValue(), "R: 10 G: 20 B: 30");
}

}  // namespace
