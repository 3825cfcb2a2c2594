// The sample's edit pieces on its real main frame: Tools > Edits (the hint,
// the numeric box, selecting runs while typing in each way of matching,
// the timed filter), Tools > Notes (formatting, saving and opening RTF,
// files that cannot be read or written) and Help > Release notes (the
// rich text resource, read-only).
#include <gtest/gtest.h>

#include <wx/choice.h>
#include <wx/ffile.h>
#include <wx/filename.h>
#include <wx/stattext.h>
#include <wx/tglbtn.h>

#include <functional>
#include <string>
#include <vector>

#include "EditsDialog.h"
#include "MainFrame.h"
#include "NotesDialog.h"
#include "ReleaseNotesDialog.h"
#include "SampleCommands.h"
#include "controls/VxEdit.h"
#include "controls/VxFindAndSelectEdit.h"
#include "controls/VxRichEdit.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/commctrl/CListCtrl.h"

namespace {

class SampleEditsTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new MainFrame;
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  // Runs the menu command; `act` sees the dialog it opens, which then ends.
  template <typename Dialog>
  bool Open(int command, std::function<void(Dialog &)> const & act) {
    bool seen = false;
    ModalDialogScript script;
    script.Act([&](wxDialog & dialog) {
      auto * const mine = dynamic_cast<Dialog *>(&dialog);
      if (mine != nullptr) {
        seen = true;
        act(*mine);
      }
      dialog.EndModal(wxID_OK);
    });
    wxCommandEvent event(wxEVT_MENU, command);
    event.SetEventObject(frame);
    frame->ProcessWindowEvent(event);
    return seen;
  }

  MainFrame * frame = nullptr;
};

std::vector<int> Selected(CListCtrl const & list) {
  std::vector<int> rows;
  for (int i = list.GetNextItem(-1, LVNI_SELECTED); i >= 0; i = list.GetNextItem(i, LVNI_SELECTED))
    rows.push_back(i);
  return rows;
}

void Choose(wxChoice & choice, int index) {
  choice.SetSelection(index);
  wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
  event.SetEventObject(&choice);
  event.SetInt(index);
  choice.GetEventHandler()->ProcessEvent(event);
}

void Toggle(wxToggleButton & button, bool on) {
  button.SetValue(on);
  wxCommandEvent event(wxEVT_TOGGLEBUTTON, button.GetId());
  event.SetEventObject(&button);
  event.SetInt(on ? 1 : 0);
  button.GetEventHandler()->ProcessEvent(event);
}

TEST_F(SampleEditsTest, EditsSelectRunsAsTypedAndFilterWhenSettled) {
  ASSERT_TRUE(Open<EditsDialog>(kEditsCommand, [](EditsDialog & dialog) {
    EXPECT_TRUE(dialog.GetSearch().GetValue().empty()) << "the hint reads as empty";
    EXPECT_EQ(dialog.GetSearch().GetLastPosition(), long(wxString("Search runs").length()));
    EXPECT_TRUE(dialog.GetKeep().AcceptsCharacter('7'));
    EXPECT_FALSE(dialog.GetKeep().AcceptsCharacter('x'));
    EXPECT_FALSE(dialog.GetKeep().AcceptsCharacter('-')) << "a count is never negative";

    VxFindAndSelectEdit & find = dialog.GetFind();
    EXPECT_EQ(find.GetListCtrl(), &dialog.GetRuns());
    find.ChangeValue("sample");
    find.EditTriggered(L"sample");
    EXPECT_EQ(Selected(dialog.GetRuns()), (std::vector<int>{2, 3, 6, 8}));
    find.ChangeValue("s*1");
    find.EditTriggered(L"s*1");
    EXPECT_EQ(Selected(dialog.GetRuns()), (std::vector<int>{1, 2})) << "a star: wildcards";

    Choose(dialog.GetHow(), VxFindAndSelectEdit::FindContains);
    EXPECT_EQ(find.GetHowToFind(), VxFindAndSelectEdit::FindContains);
    EXPECT_TRUE(Selected(dialog.GetRuns()).empty()) << "the choice searches again at once";
    Choose(dialog.GetHow(), VxFindAndSelectEdit::FindEquals);
    find.ChangeValue("BLANK 02");
    find.EditTriggered(L"BLANK 02");
    EXPECT_EQ(Selected(dialog.GetRuns()), (std::vector<int>{7}));

    dialog.GetFilter().EditTriggered(L"blank");
    EXPECT_EQ(dialog.GetFilterResult().GetLabel(), "2 runs match");
    dialog.GetFilter().SetText(L"control");
    EXPECT_EQ(dialog.GetFilterResult().GetLabel(), "2 runs match") << "program text waits";
    dialog.GetFilter().EditTriggered(L"0");
    EXPECT_EQ(dialog.GetFilterResult().GetLabel(), "10 runs match");
  }));
}

std::string FileText(wxString const & path) {
  wxFFile file(path, "rb");
  wxString text;
  if (!file.IsOpened() || !file.ReadAll(&text, wxConvISO8859_1)) return std::string();
  return text.ToStdString(wxConvISO8859_1);
}

TEST_F(SampleEditsTest, NotesFormatSaveAndOpenRichText) {
  wxString const folder = wxFileName::CreateTempFileName("notes");
  wxRemoveFile(folder);
  ASSERT_TRUE(wxFileName::Mkdir(folder));
  wxString const saved = folder + "/notes.rtf";
  wxString const damaged = folder + "/damaged.rtf";
  {
    wxFFile out(damaged, "wb");
    out.Write(wxString("{\\rtf1 kept text {\\b unclosed"));
  }

  ASSERT_TRUE(Open<NotesDialog>(kNotesCommand, [&](NotesDialog & notes) {
    VxRichEdit & pad = notes.GetPad();
    pad.WriteText("plain ");
    Toggle(notes.GetBold(), true);
    Toggle(notes.GetUnderline(), true);
    Choose(notes.GetColour(), 1);  // red
    Choose(notes.GetSize(), 3);    // 24 points
    Choose(notes.GetFace(), VxRichEdit::CourierNew);
    pad.WriteText(
        wxString::FromUTF8("Gr\xC3\xBC\xC3\x9F"
                           "e \xE2\x82\xAC"));

    ASSERT_TRUE(notes.SaveFile(saved));
    EXPECT_EQ(notes.GetStatus().GetLabel(), "Saved " + saved);
    std::string const rtf = FileText(saved);
    for (char const * part :
         {"\\b", "\\ul", "\\red192\\green0\\blue0", "Courier New", "\\fs48", "\\u8364?", "plain "})
      EXPECT_NE(rtf.find(part), std::string::npos) << part << " in " << rtf;

    pad.Clear();
    ASSERT_TRUE(notes.OpenFile(saved));
    EXPECT_EQ(pad.GetValue(), wxString::FromUTF8("plain Gr\xC3\xBC\xC3\x9F"
                                                 "e \xE2\x82\xAC"));
    RichTextDocument const document = pad.GetDocument();
    ASSERT_FALSE(document.paragraphs.empty());
    ASSERT_GE(document.paragraphs[0].size(), 2u);
    EXPECT_FALSE(document.paragraphs[0].front().format.bold);
    RichTextFormat const & formatted = document.paragraphs[0].back().format;
    EXPECT_TRUE(formatted.bold);
    EXPECT_TRUE(formatted.underline);
    EXPECT_EQ(formatted.halfPoints, 48);
    EXPECT_EQ(formatted.face, L"Courier New");

    EXPECT_FALSE(notes.OpenFile(damaged));
    EXPECT_EQ(notes.GetStatus().GetLabel(), "Could not read all of " + damaged);
    EXPECT_NE(pad.GetValue().Find("kept text"), wxNOT_FOUND) << "what could be read stays";
    EXPECT_FALSE(notes.OpenFile(folder + "/missing.rtf"));
    EXPECT_FALSE(notes.SaveFile(folder + "/no such folder/notes.rtf"));
    EXPECT_EQ(notes.GetStatus().GetLabel(),
              "Could not save " + folder + "/no such folder/notes.rtf");
  }));
  EXPECT_FALSE(FileText(saved).empty()) << "the failed save left the saved file alone";
  wxFileName::Rmdir(folder, wxPATH_RMDIR_RECURSIVE);
}

TEST_F(SampleEditsTest, ReleaseNotesShowTheRichTextResourceReadOnly) {
  ASSERT_TRUE(Open<ReleaseNotesDialog>(kReleaseNotesCommand, [](ReleaseNotesDialog & dialog) {
    VxRichEdit & notes = dialog.GetNotes();
    EXPECT_FALSE(notes.IsEditable());
    wxString const text = notes.GetValue();
    EXPECT_TRUE(text.StartsWith("Sample Analyst release notes")) << text;
    EXPECT_NE(text.Find(wxString::FromUTF8("\xE2\x82\xAC 12, \xCE\xBCg, caf\xC3\xA9")), wxNOT_FOUND)
        << "\\u and \\' characters of the resource";
    RichTextDocument const document = notes.GetDocument();
    ASSERT_FALSE(document.paragraphs.empty());
    ASSERT_FALSE(document.paragraphs[0].empty());
    EXPECT_TRUE(document.paragraphs[0][0].format.bold) << "the title is bold";
    EXPECT_EQ(document.paragraphs[0][0].format.halfPoints, 32);
  }));
}

}  // namespace
