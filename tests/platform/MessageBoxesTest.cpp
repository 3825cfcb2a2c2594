// The two message-box roads: every MB_* type becomes the right wx buttons,
// icon and default button, and every answer comes back as the Windows id.
// The framework road passes through the installed handler; the plain road
// never does.
#include <gtest/gtest.h>

#include <gtk/gtk.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <vector>

#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/MessageBoxes.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

// Records what each message box looked like. Registered after the script,
// so wx asks it first; it answers nothing itself.
class MessageBoxInspector : public wxModalDialogHook {
public:
  struct Seen {
    long style;
    wxString caption, message, yes, no, ok, cancel;
    bool customLabels;
    wxWindow * parent;
  };
  MessageBoxInspector() { Register(); }
  ~MessageBoxInspector() override { Unregister(); }
  std::vector<Seen> seen;

protected:
  int Enter(wxDialog * dialog) override {
    if (auto * box = dynamic_cast<wxMessageDialog *>(dialog))
      seen.push_back(Seen{box->GetMessageDialogStyle(), box->GetTitle(), box->GetMessage(),
                          box->GetYesLabel(), box->GetNoLabel(), box->GetOKLabel(),
                          box->GetCancelLabel(), box->HasCustomLabels(), box->GetParent()});
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
constexpr long kIcons = wxICON_ERROR | wxICON_QUESTION | wxICON_WARNING | wxICON_INFORMATION |
                        wxICON_NONE;
constexpr long kDefaults = wxNO_DEFAULT | wxCANCEL_DEFAULT;

class MessageBoxes : public testing::Test {
protected:
  void TearDown() override {
    SetFrameworkMessageBoxHandler({});
    SetMessageBoxHelpHandler({});
    std::locale::global(std::locale::classic());
  }
};

TEST_F(MessageBoxes, EveryTypeShowsItsButtonsIconDefaultAndMapsEveryAnswer) {
  struct Answer {
    int wxId;
    int windowsId;
  };
  struct Case {
    UINT type;
    long buttons, icon, defaultButton;
    char const * yes;  // custom labels; null: wx's own
    char const * no;
    char const * ok;
    char const * cancel;
    std::vector<Answer> answers;
  };
  std::vector<Case> const cases = {
      {MB_OK, wxOK, wxICON_NONE, 0, nullptr, nullptr, nullptr, nullptr,
       {{wxID_OK, IDOK}, {wxID_CANCEL, IDOK}}},
      {MB_OKCANCEL | MB_ICONHAND | MB_DEFBUTTON2, wxOK | wxCANCEL, wxICON_ERROR, wxCANCEL_DEFAULT,
       nullptr, nullptr, nullptr, nullptr, {{wxID_OK, IDOK}, {wxID_CANCEL, IDCANCEL}}},
      {MB_ABORTRETRYIGNORE | MB_ICONEXCLAMATION, wxYES_NO | wxCANCEL, wxICON_WARNING,
       wxCANCEL_DEFAULT, "&Retry", "&Ignore", nullptr, "&Abort",
       {{wxID_CANCEL, IDABORT}, {wxID_YES, IDRETRY}, {wxID_NO, IDIGNORE}}},
      {MB_ABORTRETRYIGNORE | MB_DEFBUTTON2, wxYES_NO | wxCANCEL, wxICON_NONE, 0, "&Retry",
       "&Ignore", nullptr, "&Abort", {{wxID_YES, IDRETRY}}},
      {MB_ABORTRETRYIGNORE | MB_DEFBUTTON3, wxYES_NO | wxCANCEL, wxICON_NONE, wxNO_DEFAULT,
       "&Retry", "&Ignore", nullptr, "&Abort", {{wxID_NO, IDIGNORE}}},
      {MB_YESNOCANCEL | MB_ICONQUESTION | MB_DEFBUTTON3, wxYES_NO | wxCANCEL, wxICON_QUESTION,
       wxCANCEL_DEFAULT, nullptr, nullptr, nullptr, nullptr,
       {{wxID_YES, IDYES}, {wxID_NO, IDNO}, {wxID_CANCEL, IDCANCEL}}},
      {MB_YESNO | MB_ICONASTERISK | MB_DEFBUTTON2, wxYES_NO, wxICON_INFORMATION, wxNO_DEFAULT,
       nullptr, nullptr, nullptr, nullptr,
       {{wxID_YES, IDYES}, {wxID_NO, IDNO}, {wxID_CANCEL, IDNO}}},
      // A default beyond the kind's buttons leaves the first one.
      {MB_YESNO | MB_DEFBUTTON4, wxYES_NO, wxICON_NONE, 0, nullptr, nullptr, nullptr, nullptr,
       {{wxID_YES, IDYES}}},
      {MB_RETRYCANCEL | MB_ICONWARNING, wxOK | wxCANCEL, wxICON_WARNING, 0, nullptr, nullptr,
       "&Retry", nullptr, {{wxID_OK, IDRETRY}, {wxID_CANCEL, IDCANCEL}}},
      {MB_CANCELTRYCONTINUE, wxYES_NO | wxCANCEL, wxICON_NONE, wxCANCEL_DEFAULT, "&Try Again",
       "&Continue", nullptr, nullptr,
       {{wxID_CANCEL, IDCANCEL}, {wxID_YES, IDTRYAGAIN}, {wxID_NO, IDCONTINUE}}},
      {MB_CANCELTRYCONTINUE | MB_DEFBUTTON3 | MB_ICONERROR, wxYES_NO | wxCANCEL, wxICON_ERROR,
       wxNO_DEFAULT, "&Try Again", "&Continue", nullptr, nullptr, {{wxID_NO, IDCONTINUE}}},
      // Help is the last button and cannot be the default.
      {MB_OKCANCEL | MB_HELP | MB_DEFBUTTON3, wxOK | wxCANCEL | wxHELP, wxICON_NONE, 0, nullptr,
       nullptr, nullptr, nullptr, {{wxID_CANCEL, IDCANCEL}}},
      // Kinds that Windows refuses are shown as OK.
      {9 | MB_ICONQUESTION, wxOK, wxICON_QUESTION, 0, nullptr, nullptr, nullptr, nullptr,
       {{wxID_OK, IDOK}}},
  };
  for (Case const & c : cases) {
    for (Answer const & answer : c.answers) {
      SCOPED_TRACE(testing::Message() << "type 0x" << std::hex << c.type << ", answer "
                                      << std::dec << answer.wxId);
      ModalDialogScript script;
      script.Answer(answer.wxId);
      MessageBoxInspector inspector;
      EXPECT_EQ(MessageBoxW(nullptr, L"Go on?", L"Caption", c.type), answer.windowsId);
      ASSERT_EQ(inspector.seen.size(), 1u);
      MessageBoxInspector::Seen const & seen = inspector.seen[0];
      EXPECT_EQ(seen.style & kButtons, c.buttons);
      EXPECT_EQ(seen.style & kIcons, c.icon);
      EXPECT_EQ(seen.style & kDefaults, c.defaultButton);
      EXPECT_EQ(seen.caption, "Caption");
      EXPECT_EQ(seen.message, "Go on?");
      bool const custom = c.yes || c.no || c.ok || c.cancel;
      EXPECT_EQ(seen.customLabels, custom);
      if (c.yes) EXPECT_EQ(WxMnemonics(seen.yes), c.yes);
      if (c.no) EXPECT_EQ(WxMnemonics(seen.no), c.no);
      if (c.ok) EXPECT_EQ(WxMnemonics(seen.ok), c.ok);
      if (c.cancel) EXPECT_EQ(WxMnemonics(seen.cancel), c.cancel);
    }
  }
}

TEST_F(MessageBoxes, BorrowedButtonsAreTranslatedWhenShown) {
  vx3::TranslationSetup setup;
  setup.domains = {"talvo-test"};
  setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
  setup.localeName = "de_DE.UTF-8";
  vx3::InstallTranslation(setup);
  ModalDialogScript script;
  script.Answer(wxID_OK);
  MessageBoxInspector inspector;
  EXPECT_EQ(MessageBoxW(nullptr, L"Again?", L"Copy", MB_RETRYCANCEL), IDRETRY);
  ASSERT_EQ(inspector.seen.size(), 1u);
  EXPECT_EQ(WxMnemonics(inspector.seen[0].ok), "&Wiederholen");
}

// The native GTK box really carries the borrowed labels and the default.
TEST_F(MessageBoxes, TheNativeBoxShowsBorrowedLabelsAndDefaultButton) {
  ModalDialogScript script;
  wxString cancelLabel, yesLabel, noLabel;
  bool cancelIsDefault = false;
  script.Act([&](wxDialog & dialog) {
    GtkDialog * native = GTK_DIALOG(dialog.GetHandle());
    auto label = [native](int response) {
      GtkWidget * button = gtk_dialog_get_widget_for_response(native, response);
      return button != nullptr ? wxString::FromUTF8(gtk_button_get_label(GTK_BUTTON(button)))
                               : wxString("(none)");
    };
    cancelLabel = label(GTK_RESPONSE_CANCEL);
    yesLabel = label(GTK_RESPONSE_YES);
    noLabel = label(GTK_RESPONSE_NO);
    GtkWidget * cancel = gtk_dialog_get_widget_for_response(native, GTK_RESPONSE_CANCEL);
    cancelIsDefault = cancel != nullptr && gtk_widget_has_default(cancel);
    gtk_dialog_response(native, GTK_RESPONSE_NO);
  });
  EXPECT_EQ(MessageBoxW(nullptr, L"The disk is not ready.", L"Copy", MB_ABORTRETRYIGNORE),
            IDIGNORE);
  // GTK writes mnemonics with "_".
  EXPECT_EQ(cancelLabel, "_Abort");
  EXPECT_EQ(yesLabel, "_Retry");
  EXPECT_EQ(noLabel, "_Ignore");
  EXPECT_TRUE(cancelIsDefault);
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
  Case const cases[] = {{MB_OK, wxICON_WARNING},          {MB_OKCANCEL, wxICON_WARNING},
                        {MB_YESNO, wxICON_QUESTION},      {MB_YESNOCANCEL, wxICON_QUESTION},
                        {MB_RETRYCANCEL, wxICON_NONE},    {MB_OK | MB_ICONHAND, wxICON_ERROR}};
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

// The application object's handler, as VxApp installs it: information boxes
// are muted, questions are not.
TEST_F(MessageBoxes, TheFrameworkRoadGoesThroughTheHandlerThePlainRoadNever) {
  bool mute = true;
  std::vector<UINT> handled;
  SetFrameworkMessageBoxHandler([&](wxString const & text, UINT type, UINT helpId) {
    handled.push_back(type);
    if (mute && (type & MB_TYPEMASK) == 0) return IDOK;
    return ShowFrameworkMessageBox(text, type, helpId);
  });
  ModalDialogScript script;
  EXPECT_EQ(AfxMessageBox("Done.", MB_OK | MB_ICONINFORMATION), IDOK);
  EXPECT_TRUE(script.Shown().empty());

  script.Answer(wxID_NO);
  EXPECT_EQ(AfxMessageBox("Really?", MB_YESNO), IDNO);
  script.Answer(wxID_OK);
  EXPECT_EQ(MessageBoxW(nullptr, L"Done.", L"Plain", MB_OK), IDOK);
  ASSERT_EQ(script.Shown().size(), 2u);
  EXPECT_EQ(script.Shown()[1].title, "Plain");
  EXPECT_EQ(handled, (std::vector<UINT>{MB_OK | MB_ICONINFORMATION, MB_YESNO}));

  SetFrameworkMessageBoxHandler({});
  script.Answer(wxID_OK);
  EXPECT_EQ(AfxMessageBox("Done.", MB_OK), IDOK);
  EXPECT_EQ(script.Shown().size(), 3u);
}

TEST_F(MessageBoxes, AStringIdIsShownAsItsTextAndServesAsHelpId) {
  std::vector<std::pair<wxString, UINT>> handled;
  SetFrameworkMessageBoxHandler([&](wxString const & text, UINT, UINT helpId) {
    handled.emplace_back(text, helpId);
    return IDCANCEL;
  });
  EXPECT_EQ(AfxMessageBox(13195, MB_OKCANCEL), IDCANCEL);
  AfxMessageBox(13195, MB_OK, 77);
  ASSERT_EQ(handled.size(), 2u);
  EXPECT_EQ(handled[0].first, "&About %1%...");
  EXPECT_EQ(handled[0].second, 13195u);
  EXPECT_EQ(handled[1].second, 77u);
}

TEST_F(MessageBoxes, ThePlainRoadWithoutCaptionSaysError) {
  ModalDialogScript script;
  script.Answer(wxID_OK).Answer(wxID_OK);
  MessageBoxInspector inspector;
  auto * owner = new wxFrame(nullptr, wxID_ANY, "Owner");
  ASSERT_TRUE(gui_test::ShowAndWait(*owner));  // wx parents dialogs on shown windows only
  MessageBoxW(owner, L"Broken.", nullptr, MB_OK);
  MessageBoxW(nullptr, L"Broken.", L"", MB_OK);
  ASSERT_EQ(inspector.seen.size(), 2u);
  EXPECT_EQ(inspector.seen[0].caption, "Error");
  EXPECT_EQ(inspector.seen[0].parent, owner);
  EXPECT_EQ(inspector.seen[1].caption, "Error");
  owner->Destroy();
}

}  // namespace
