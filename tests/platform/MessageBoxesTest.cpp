// The two message-box roads: every MB_* type becomes the right wx buttons,
// icon and default button, and every answer comes back as the Windows id.
// The framework road passes through the installed handler; the plain road
// never does.
#include <gtest/gtest.h>

#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <vector>

#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/MessageBoxes.h"
#include "utl/VxSystemInfo.h"

namespace {

// Records what each message box looked like. Registered after the script,
// so wx asks it first; it answers nothing itself.
class MessageBoxInspector : public wxModalDialogHook {
public:
  struct Seen {
    long style;
    wxString caption, yes, no, ok, cancel;
    bool customLabels;
    wxWindow * parent;
  };
  MessageBoxInspector() { Register(); }
  ~MessageBoxInspector() override { Unregister(); }
  std::vector<Seen> seen;

protected:
  int Enter(wxDialog * dialog) override {
    if (auto * box = dynamic_cast<wxMessageDialog *>(dialog))
      seen.push_back(Seen{box->GetMessageDialogStyle(), box->GetTitle(), box->GetYesLabel(),
                          box->GetNoLabel(), box->GetOKLabel(), box->GetCancelLabel(),
                          box->HasCustomLabels(), box->GetParent()});
    return wxID_NONE;
  }
  void Exit(wxDialog *) override {}
};

// wxGTK keeps labels with GTK's mnemonic "_"; compare in wx's "&" form.
wxString WxMnemonics(wxString label) {
  label.Replace("_", "&");
  return label;
}

constexpr long kButtons = wxOK | wxCANCEL | wxYES_NO | wxHELP;
constexpr long kIcons =
    wxICON_ERROR | wxICON_QUESTION | wxICON_WARNING | wxICON_INFORMATION | wxICON_NONE;
constexpr long kDefaults = wxNO_DEFAULT | wxCANCEL_DEFAULT;

class MessageBoxes : public testing::Test {
protected:
  void TearDown() override {
    SetFrameworkMessageBoxHandler({});
    SetMessageBoxHelpHandler({});
  }
};

TEST_F(MessageBoxes, EveryTypeShowsItsButtonsIconDefaultAndMapsEveryAnswer) {
  struct Case {
    UINT type;
    long buttons, icon, defaultButton;
    char const * labels;                       // custom yes|no|ok|cancel labels, "" where wx's own
    std::vector<std::pair<int, int>> answers;  // wx id, Windows id
  };
  long const yesNoCancel = wxYES_NO | wxCANCEL;
  std::vector<Case> const cases = {
      {MB_OK, wxOK, wxICON_NONE, 0, "|||", {{wxID_OK, IDOK}, {wxID_CANCEL, IDOK}}},
      {MB_OKCANCEL | MB_ICONHAND | MB_DEFBUTTON2,
       wxOK | wxCANCEL,
       wxICON_ERROR,
       wxCANCEL_DEFAULT,
       "|||",
       {{wxID_OK, IDOK}, {wxID_CANCEL, IDCANCEL}}},
      {MB_ABORTRETRYIGNORE | MB_ICONEXCLAMATION,
       yesNoCancel,
       wxICON_WARNING,
       wxCANCEL_DEFAULT,
       "&Retry|&Ignore||&Abort",
       {{wxID_CANCEL, IDABORT}, {wxID_YES, IDRETRY}, {wxID_NO, IDIGNORE}}},
      {MB_ABORTRETRYIGNORE | MB_DEFBUTTON3,
       yesNoCancel,
       wxICON_NONE,
       wxNO_DEFAULT,
       "&Retry|&Ignore||&Abort",
       {{wxID_NO, IDIGNORE}}},
      {MB_YESNOCANCEL | MB_ICONQUESTION | MB_DEFBUTTON3,
       yesNoCancel,
       wxICON_QUESTION,
       wxCANCEL_DEFAULT,
       "|||",
       {{wxID_YES, IDYES}, {wxID_NO, IDNO}, {wxID_CANCEL, IDCANCEL}}},
      {MB_YESNO | MB_ICONASTERISK | MB_DEFBUTTON2,
       wxYES_NO,
       wxICON_INFORMATION,
       wxNO_DEFAULT,
       "|||",
       {{wxID_YES, IDYES}, {wxID_NO, IDNO}, {wxID_CANCEL, IDNO}}},
      // A default beyond the kind's buttons leaves the first one.
      {MB_YESNO | MB_DEFBUTTON4, wxYES_NO, wxICON_NONE, 0, "|||", {{wxID_YES, IDYES}}},
      {MB_RETRYCANCEL | MB_ICONWARNING,
       wxOK | wxCANCEL,
       wxICON_WARNING,
       0,
       "||&Retry|",
       {{wxID_OK, IDRETRY}, {wxID_CANCEL, IDCANCEL}}},
      {MB_CANCELTRYCONTINUE,
       yesNoCancel,
       wxICON_NONE,
       wxCANCEL_DEFAULT,
       "&Try Again|&Continue||",
       {{wxID_CANCEL, IDCANCEL}, {wxID_YES, IDTRYAGAIN}, {wxID_NO, IDCONTINUE}}},
      // Help is the last button and cannot be the default.
      {MB_OKCANCEL | MB_HELP | MB_DEFBUTTON3,
       wxOK | wxCANCEL | wxHELP,
       wxICON_NONE,
       0,
       "|||",
       {{wxID_CANCEL, IDCANCEL}}},
      // Kinds that Windows refuses are shown as OK.
      {9 | MB_ICONQUESTION, wxOK, wxICON_QUESTION, 0, "|||", {{wxID_OK, IDOK}}},
  };
  for (Case const & c : cases) {
    for (auto const & [wxId, windowsId] : c.answers) {
      SCOPED_TRACE(testing::Message()
                   << "type 0x" << std::hex << c.type << ", answer " << std::dec << wxId);
      ModalDialogScript script;
      script.Answer(wxId);
      MessageBoxInspector inspector;
      EXPECT_EQ(MessageBoxW(nullptr, L"Go on?", L"Caption", c.type), windowsId);
      ASSERT_EQ(inspector.seen.size(), 1u);
      MessageBoxInspector::Seen const & seen = inspector.seen[0];
      EXPECT_EQ(seen.style & kButtons, c.buttons);
      EXPECT_EQ(seen.style & kIcons, c.icon);
      EXPECT_EQ(seen.style & kDefaults, c.defaultButton);
      EXPECT_EQ(seen.caption, "Caption");
      EXPECT_EQ(seen.customLabels, std::string(c.labels) != "|||");
      wxString const shown =
          seen.customLabels
              ? WxMnemonics(seen.yes + "|" + seen.no + "|" + seen.ok + "|" + seen.cancel)
              : wxString("|||");
      // Compare only the labels the case names.
      wxArrayString const want = wxSplit(c.labels, '|', 0);
      wxArrayString const got = wxSplit(shown, '|', 0);
      for (size_t at = 0; at < want.size(); ++at) {
        if (!want[at].empty()) {
          EXPECT_EQ(got[at], want[at]);
        }
      }
    }
  }
}

TEST_F(MessageBoxes, HelpKeepsTheBoxUpAndCallsTheHelpHandler) {
  std::vector<UINT> helped;
  SetMessageBoxHelpHandler([&](UINT id) { helped.push_back(id); });
  ModalDialogScript script;
  script.Answer(wxID_HELP).Answer(wxID_HELP).Answer(wxID_YES);
  EXPECT_EQ(AfxMessageBox("Delete?", MB_YESNO | MB_HELP, 4711), IDYES);
  EXPECT_EQ(script.Shown().size(), 3u);
  EXPECT_EQ(helped, (std::vector<UINT>{4711, 4711}));
}

TEST_F(MessageBoxes, WithoutHandlerTheFrameworkBoxHasTheApplicationNameAndAnIcon) {
  VxSystemInfo::SetApplication("Quantifier", "2.1");
  struct Case {
    UINT type;
    long icon;
  };
  Case const cases[] = {{MB_OKCANCEL, wxICON_WARNING},
                        {MB_YESNOCANCEL, wxICON_QUESTION},
                        {MB_RETRYCANCEL, wxICON_NONE},
                        {MB_OK | MB_ICONHAND, wxICON_ERROR}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.type);
    ModalDialogScript script;
    script.Answer(wxID_OK);
    MessageBoxInspector inspector;
    AfxMessageBox("Saved.", c.type);
    ASSERT_EQ(inspector.seen.size(), 1u);
    EXPECT_EQ(inspector.seen[0].caption, "Quantifier");
    EXPECT_EQ(inspector.seen[0].style & kIcons, c.icon);
  }
  VxSystemInfo::SetApplication("TALVOutlwin", "0");
}

TEST_F(MessageBoxes, TheFrameworkRoadGoesThroughTheHandlerThePlainRoadNever) {
  std::vector<UINT> handled;
  SetFrameworkMessageBoxHandler([&](wxString const & text, UINT type, UINT helpId) {
    handled.push_back(type);
    return ShowFrameworkMessageBox(text, type, helpId);
  });
  ModalDialogScript script;
  script.Answer(wxID_NO);
  EXPECT_EQ(AfxMessageBox("Really?", MB_YESNO), IDNO);
  // The plain road, without a caption, says Error and keeps its owner.
  script.Answer(wxID_OK);
  MessageBoxInspector inspector;
  auto * owner = new wxFrame(nullptr, wxID_ANY, "Owner");
  ASSERT_TRUE(gui_test::ShowAndWait(*owner));  // wx parents dialogs on shown windows only
  EXPECT_EQ(MessageBoxW(owner, L"Broken.", nullptr, MB_OK), IDOK);
  owner->Destroy();
  ASSERT_EQ(script.Shown().size(), 2u);
  EXPECT_EQ(handled, (std::vector<UINT>{MB_YESNO}));
  ASSERT_EQ(inspector.seen.size(), 1u);
  EXPECT_EQ(inspector.seen[0].caption, "Error");
  EXPECT_EQ(inspector.seen[0].parent, owner);
}

TEST_F(MessageBoxes, AStringIdIsShownAsItsTextAndServesAsHelpId) {
  std::vector<std::pair<wxString, UINT>> handled;
  SetFrameworkMessageBoxHandler([&](wxString const & text, UINT, UINT helpId) {
    handled.emplace_back(text, helpId);
    return IDCANCEL;
  });
  EXPECT_EQ(AfxMessageBox(13195, MB_OKCANCEL), IDCANCEL);
  AfxMessageBox(13195, MB_OK, 77);
  EXPECT_EQ(handled, (std::vector<std::pair<wxString, UINT>>{{"&About %1%...", 13195},
                                                             {"&About %1%...", 77}}));
}

}  // namespace
