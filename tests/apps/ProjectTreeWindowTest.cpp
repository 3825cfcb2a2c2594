// The sample's runs by project, opened from the real main frame's menu:
// checks kept tri-state up the projects, colours from the status words
// (also after a load), search, the text form saved and loaded through the
// file chooser (a damaged file keeps the tree), the volume field refusing
// what is not a volume with a tip, and the tip over the rows.
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>

#include <wx/filename.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include "MainFrame.h"
#include "ProjectTreeWindow.h"
#include "SampleCommands.h"
#include "dialogs/NativeChoosers.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "utl/AtomicFile.h"

namespace {

class ProjectTreeWindowTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new MainFrame;
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    wxCommandEvent command(wxEVT_MENU, kRunsByProjectCommand);
    command.SetEventObject(frame);
    frame->ProcessWindowEvent(command);
    for (wxWindow * child : frame->GetChildren()) {
      if (auto * found = dynamic_cast<ProjectTreeWindow *>(child)) window = found;
    }
    ASSERT_NE(window, nullptr) << "the menu command opens the window";
    ASSERT_TRUE(gui_test::ShowAndWait(*window));
    tree = &window->Tree();
  }
  void TearDown() override {
    SetFileChooserFunction(mFormerFiles);
    frame->Destroy();
    gui_test::Flush();
    if (!path.empty()) std::remove(path.c_str());
  }

  HTREEITEM Find(wchar_t const * text) {
    for (HTREEITEM at = tree->GetRootItem(); at; at = tree->GetNextItem(at)) {
      if (tree->GetItemText(at) == text) return at;
    }
    ADD_FAILURE() << "no item " << wxString(text);
    return {};
  }
  std::string TextForm() {
    std::ostringstream out;
    tree->Serialize(out);
    return out.str();
  }
  // The next file chooser answers `answer` (a path, or cancelled).
  void ChooseFile(wxString const & answer) {
    mFormerFiles = SetFileChooserFunction([answer](FileChooserRequest const &) {
      FileChooserAnswer chosen;
      chosen.accepted = !answer.empty();
      if (chosen.accepted) chosen.paths.push_back(answer);
      return chosen;
    });
  }
  void Command(int id) {
    wxCommandEvent command(wxEVT_MENU, id);
    command.SetEventObject(window);
    window->ProcessWindowEvent(command);
  }
  POINT Middle(HTREEITEM item) const {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(item, &rect, 1));
    return POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }

  MainFrame * frame = nullptr;
  ProjectTreeWindow * window = nullptr;
  VxTreeCtrl * tree = nullptr;
  std::string path;

private:
  FileChooserFunction mFormerFiles;
};

TEST_F(ProjectTreeWindowTest, ChecksColoursAndSelectionOfTheSampleProjects) {
  HTREEITEM const project = tree->GetRootItem();
  HTREEITEM const failed = Find(L"Run 3 pH 8.1 [failed]");
  HTREEITEM const passed = Find(L"Run 1 pH 7.0 [passed]");
  EXPECT_EQ(tree->GetItemColor(failed), RGB(0xC0, 0x20, 0x20));
  EXPECT_EQ(tree->GetItemColor(passed), RGB(0x10, 0x80, 0x30));
  EXPECT_EQ(tree->GetItemColor(project), VxTreeCtrl::kDefaultColor);
  EXPECT_TRUE(tree->GetItemBold(project));

  // A checked project checks its runs; one run unchecked leaves it partial.
  tree->SetCheck(project, VxTreeCtrl::Check);
  EXPECT_TRUE(tree->AllChildrenChecked(project, true));
  tree->SetCheck(failed, VxTreeCtrl::Uncheck);
  EXPECT_EQ(tree->GetCheckImage(project), UINT{VxTreeCtrl::SomeChildrenChecked});
  tree->SetCheck(failed, VxTreeCtrl::Check);
  EXPECT_EQ(tree->GetCheckImage(project), UINT{VxTreeCtrl::AllChildrenCheckedState});

  EXPECT_EQ(tree->GetSelectionState(), VxTreeCtrl::MultipleSelection);
  ASSERT_TRUE(tree->SelectItems(passed, failed));
  EXPECT_EQ(tree->GetSelectedItemCount(), 3);
  EXPECT_TRUE(tree->HasBkImage());
  gui_test::Snapshot(*window, "project-tree");
}

TEST_F(ProjectTreeWindowTest, FindSelectsWholeWordsInAnyCaseAndSaysWhenNothingIsThere) {
  struct Case {
    wxString text;
    wxString selects;  // empty: not found
  } const cases[] = {
      {"ACETONE", "Run 21 acetone [failed]"},
      {"blank", "Run 10 blank [passed]"},
      {"aceton", ""},  // a word's start is not the word
      {"nowhere", ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text.utf8_string());
    bool const found = window->FindNext(c.text);
    EXPECT_EQ(found, !c.selects.empty());
    if (found) {
      EXPECT_EQ(tree->GetItemText(tree->GetSelectedItem()), c.selects);
      EXPECT_EQ(tree->GetSelectedItemCount(), 1);
    } else {
      EXPECT_TRUE(window->GetStatusBar()->GetStatusText().Contains(c.text));
    }
  }
}

TEST_F(ProjectTreeWindowTest, TextFormSavesAndLoadsAndADamagedFileKeepsTheTree) {
  path = wxFileName::CreateTempFileName("projects").utf8_string();
  std::string const saved = TextForm();
  ChooseFile(wxString::FromUTF8(path));
  Command(kSaveTreeCommand);

  tree->DeleteItem(tree->GetRootItem());
  ASSERT_NE(TextForm(), saved);
  Command(kLoadTreeCommand);
  EXPECT_EQ(TextForm(), saved);
  EXPECT_EQ(tree->GetItemColor(Find(L"Run 21 acetone [failed]")), RGB(0xC0, 0x20, 0x20))
      << "loaded runs are coloured by their status too";

  vx3::WriteFileAtomically(path, "Project\r\n\tRun \xff\xfe [passed]\r\n");
  ModalDialogScript script;
  script.Answer(wxID_OK);
  EXPECT_FALSE(window->LoadFrom(wxString::FromUTF8(path)));
  ASSERT_EQ(script.Shown().size(), 1u) << "the failure is told";
  EXPECT_TRUE(script.Shown()[0].message.Contains("UTF-8")) << script.Shown()[0].message;
  EXPECT_EQ(TextForm(), saved);
}

TEST_F(ProjectTreeWindowTest, VolumeFieldRefusesWhatIsNotAVolumeWithATip) {
  HTREEITEM const run = Find(L"Run 2 pH 7.4 [passed]");
  HTREEITEM const other = Find(L"Run 4 pH 7.4 [running]");
  ASSERT_TRUE(tree->SelectItems(run, run));
  wxTextCtrl & field = window->VolumeField();
  wxString const shown = field.GetValue();
  EXPECT_EQ(shown, wxString::FromCDouble(tree->GetItemData(run) / 1000.0, 3));
  DWORD_PTR const untouched = tree->GetItemData(other);

  for (char const * bad : {"abc", "-1", "1e9", "nan", "12,5x"}) {
    SCOPED_TRACE(bad);
    field.ChangeValue(bad);
    EXPECT_FALSE(window->AcceptVolume());
    ASSERT_NE(SharedInfoTip(), nullptr);
    EXPECT_TRUE(SharedInfoTip()->IsShown());
    EXPECT_TRUE(SharedInfoTip()->GetShownText().find(L"not a volume") != std::wstring::npos);
    EXPECT_EQ(field.GetValue(), shown) << "the former value comes back";
    SharedInfoTip()->Pop();
  }
  field.ChangeValue("12.5");
  EXPECT_TRUE(window->AcceptVolume());
  EXPECT_EQ(tree->GetItemData(run), DWORD_PTR{12500});
  EXPECT_EQ(tree->GetItemData(other), untouched);
}

TEST_F(ProjectTreeWindowTest, TipOverARowNamesTheRunItsStatusAndVolume) {
  HTREEITEM const run = Find(L"Run 3 pH 8.1 [failed]");
  POINT const at = Middle(run);
  InfoTipWnd & tip = window->RowTip();
  wxMouseEvent move(wxEVT_MOTION);
  move.SetPosition(wxPoint(at.x, at.y));
  move.SetEventObject(tree);
  tree->ProcessWindowEvent(move);
  ASSERT_TRUE(tip.IsDelayRunning()) << "a plain move arms the tip";
  tip.OnDelayTimer();
  EXPECT_EQ(tip.GetShownTitle(), L"Run 3 pH 8.1 [failed]");
  EXPECT_NE(tip.GetShownText().find(L"failed"), std::wstring::npos);
  EXPECT_NE(tip.GetShownText().find(
                wxString::FromCDouble(tree->GetItemData(run) / 1000.0, 3).ToStdWstring()),
            std::wstring::npos);
  EXPECT_TRUE(window->RowTipText(POINT{at.x, 10000}).empty()) << "below the last row";
}

}  // namespace
