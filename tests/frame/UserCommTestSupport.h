#pragma once
// What the tests of the user-communication channels share: a dialog script
// that writes down what each dialog showed as it came up, and a fixture with
// an active progress whose break dialog records what it is told.

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/msgdlg.h>
#include <wx/textctrl.h>

#include "dialogs/CustomMessageBoxDlg.h"
#include "dialogs/YesNoCancelAll.h"
#include "dialogs/YesNoDialog.h"
#include "frame/FatalErrorDialog.h"
#include "frame/InformUserSwitches.h"
#include "harness/ModalDialogScript.h"
#include "settings/RegistryBaseKeyName.h"
#include "settings/RegistrySection.h"
#include "utl/ExceptionMessage.h"
#include "utl/UserComm.h"
#include "utl/VxSystemInfo.h"
#include "work/FakeBreakDialog.h"
#include "work/Progress.h"

struct SeenDialog {
  std::string kind;  // "message box" or the dialog's class
  long style = 0;    // of a message box
  wxString title;
  wxString text;           // message, or the scrolling text control's value
  std::set<int> buttons;   // YesNoCancelAll: the buttons that stand
  int defaultButton = 0;   // id of the default item
  bool iconShown = false;  // FatalErrorDialog
  bool progressHidden = false;
  UserComm * channel = nullptr;
};

class RecordingDialogScript : public ModalDialogScript {
public:
  explicit RecordingDialogScript(FakeBreakDialog const & progressDialog)
      : mProgressDialog(progressDialog) {}

  std::vector<SeenDialog> const & Seen() const { return mSeen; }

protected:
  int Enter(wxDialog * dialog) override {
    SeenDialog seen;
    seen.title = dialog->GetTitle();
    seen.channel = UserComm::GetUserComm();
    auto const & sent = mProgressDialog.messages;
    seen.progressHidden = !sent.empty() && sent.back().message == ProgressBreakDialog::kShow &&
                          sent.back().wParam == 0;
    if (wxWindow * item = dialog->GetDefaultItem()) seen.defaultButton = item->GetId();
    if (auto * box = dynamic_cast<wxMessageDialog *>(dialog)) {
      seen.kind = "message box";
      seen.style = box->GetMessageDialogStyle();
      seen.text = box->GetMessage();
    } else if (dynamic_cast<YesNoDialog *>(dialog) != nullptr) {
      seen.kind = "YesNoDialog";
      seen.text = TextOf(*dialog, YesNoDialog::kTextId);
    } else if (dynamic_cast<YesNoCancelAll *>(dialog) != nullptr) {
      seen.kind = "YesNoCancelAll";
      seen.text = TextOf(*dialog, YesNoCancelAll::kTextId);
      for (int id : {13095, 13096, 13092, 13093, 2})
        if (dialog->FindWindow(id)->IsShown()) seen.buttons.insert(id);
    } else if (dynamic_cast<FatalErrorDialog *>(dialog) != nullptr) {
      seen.kind = "FatalErrorDialog";
      seen.text = TextOf(*dialog, FatalErrorDialog::kTextId);
      seen.iconShown = dialog->FindWindow(FatalErrorDialog::kIconId)->IsShown();
    } else if (auto * box = dynamic_cast<CustomMessageBoxDlg *>(dialog)) {
      seen.kind = "CustomMessageBoxDlg";
      seen.text = box->GetText();
    } else {
      seen.kind = "other";
    }
    mSeen.push_back(seen);
    return ModalDialogScript::Enter(dialog);
  }

private:
  static wxString TextOf(wxDialog & dialog, int id) {
    auto * control = wxDynamicCast(dialog.FindWindow(id), wxTextCtrl);
    return control != nullptr ? control->GetValue() : wxString();
  }

  FakeBreakDialog const & mProgressDialog;
  std::vector<SeenDialog> mSeen;
};

// A message whose text is `text` as it stands (no catalog lookup of it).
inline UserCommMessage Msg(std::string const & text) {
  return ExceptionMessage::translate("{1}") % text;
}

// A text of `lines` lines.
inline std::string Lines(int lines) {
  std::string text = "line 1";
  for (int i = 2; i <= lines; ++i) text += "\nline " + std::to_string(i);
  return text;
}

class UserCommTest : public testing::Test {
protected:
  static constexpr char kAppName[] = "Channel Test";

  void SetUp() override {
    VxSystemInfo::SetApplication(kAppName, "2.1.0.7");
    frame = new wxFrame(nullptr, wxID_ANY, "Main");
    wxTheApp->SetTopWindow(frame);
    Progress::SetBreakDialog(&progressDialog);
    progress = std::make_unique<Progress>(nullptr, L"Batch", 0.f, 10.f, false, true, false);
    progressDialog.messages.clear();
  }
  void TearDown() override {
    progress.reset();
    Progress::SetBreakDialog(nullptr);
    UserComm::SetUserComm(nullptr);
    wxTheApp->SetTopWindow(nullptr);
    frame->Destroy();
  }

  // The progress was told to show again after the last dialog.
  bool ProgressShownAgain() const {
    auto const & sent = progressDialog.messages;
    return !sent.empty() && sent.back().message == ProgressBreakDialog::kShow &&
           sent.back().wParam == 1;
  }
  bool ProgressTouched() const { return !progressDialog.messages.empty(); }

  // Writes `value` for message `id` into the store of switched-off messages.
  static void StoreSwitchValue(unsigned long id, int value) {
    std::string const key = GetRegistryBaseKeyName() + "\\" + InformUserSwitches::kKeyName;
    RegistrySection section(HKEY_CURRENT_USER, key.c_str(), KEY_ALL_ACCESS, true);
    section.WriteInt(std::to_string(id).c_str(), value);
  }

  wxFrame * frame = nullptr;
  FakeBreakDialog progressDialog;
  std::unique_ptr<Progress> progress;
};
