#include "harness/ModalDialogScript.h"

#include <gtest/gtest.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>

namespace {

void CollectStaticTexts(wxWindow & window, wxString & out) {
  for (wxWindow * child : window.GetChildren()) {
    if (auto * text = dynamic_cast<wxStaticText *>(child)) {
      if (!out.empty()) out += "\n";
      out += text->GetLabel();
    }
    CollectStaticTexts(*child, out);
  }
}

wxString DialogMessage(wxDialog & dialog) {
  if (auto * box = dynamic_cast<wxMessageDialogBase *>(&dialog)) {
    wxString text = box->GetMessage();
    if (!box->GetExtendedMessage().empty()) text += "\n" + box->GetExtendedMessage();
    return text;
  }
  wxString text;
  CollectStaticTexts(dialog, text);
  return text;
}

}  // namespace

ModalDialogScript::ModalDialogScript() { Register(); }

ModalDialogScript::~ModalDialogScript() {
  Unregister();
  EXPECT_TRUE(mSteps.empty()) << mSteps.size() << " scripted dialog(s) were never shown";
}

ModalDialogScript & ModalDialogScript::Answer(int id) {
  mSteps.push_back(Step{id, {}});
  return *this;
}

ModalDialogScript & ModalDialogScript::Act(std::function<void(wxDialog &)> action) {
  mSteps.push_back(Step{wxID_NONE, std::move(action)});
  return *this;
}

int ModalDialogScript::Enter(wxDialog * dialog) {
  ShownDialog shown;
  if (dialog->GetClassInfo() != nullptr) shown.className = dialog->GetClassInfo()->GetClassName();
  shown.title = dialog->GetTitle();
  shown.message = DialogMessage(*dialog);

  if (mSteps.empty()) {
    ADD_FAILURE() << "unexpected modal dialog \"" << shown.title.utf8_str().data()
                  << "\": " << shown.message.utf8_str().data();
    shown.result = wxID_CANCEL;
    mShown.push_back(shown);
    return wxID_CANCEL;
  }
  Step step = std::move(mSteps.front());
  mSteps.pop_front();
  if (!step.action) {
    shown.result = step.answer;
    mShown.push_back(shown);
    return step.answer;
  }
  mShown.push_back(shown);
  mOpen.emplace_back(dialog, mShown.size() - 1);
  // Runs from the dialog's own modal loop, once it is on screen.
  // An ASSERT that fails in the action returns before the action could end
  // the dialog: the dialog is then cancelled, so the test fails and goes on
  // instead of hanging in the modal loop.
  dialog->CallAfter([dialog, action = std::move(step.action)] {
    bool const failedBefore = ::testing::Test::HasFatalFailure();
    action(*dialog);
    if (!failedBefore && ::testing::Test::HasFatalFailure() && dialog->IsModal())
      dialog->EndModal(wxID_CANCEL);
  });
  return wxID_NONE;
}

void ModalDialogScript::Exit(wxDialog * dialog) {
  for (auto it = mOpen.begin(); it != mOpen.end(); ++it) {
    if (it->first != dialog) continue;
    mShown[it->second].result = dialog->GetReturnCode();
    mOpen.erase(it);
    return;
  }
}
