#include "harness/ModalDialogScript.h"

#include <gtest/gtest.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>

// Last: GTK's headers define macros that wx's use as names.
#include <gtk/gtk.h>

namespace {

// Set on a GTK box once it has its answer: a second response would
// replace it.
constexpr char kAnswered[] = "talvo-test-answered";

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

// The message box's own dialog while GTK's loop runs it, else null.
GtkDialog * RunningGtkBox(wxDialog & dialog) {
  if (dynamic_cast<wxMessageDialog *>(&dialog) == nullptr) return nullptr;
  GtkWidget * const widget = dialog.GetHandle();
  if (widget == nullptr || !GTK_IS_DIALOG(widget)) return nullptr;
  return GTK_DIALOG(widget);
}

gint GtkResponse(int id) {
  switch (id) {
    case wxID_OK: return GTK_RESPONSE_OK;
    case wxID_CANCEL: return GTK_RESPONSE_CANCEL;
    case wxID_YES: return GTK_RESPONSE_YES;
    case wxID_NO: return GTK_RESPONSE_NO;
    case wxID_HELP: return GTK_RESPONSE_HELP;
    default: return GTK_RESPONSE_NONE;
  }
}

void MarkAnswered(GtkDialog * box) { g_object_set_data(G_OBJECT(box), kAnswered, box); }

bool Answered(GtkDialog * box) { return g_object_get_data(G_OBJECT(box), kAnswered) != nullptr; }

// Closes the box as its close box would: ShowModal returns wxID_CANCEL.
void CloseBox(wxDialog & dialog, GtkDialog * box) {
  dialog.SetReturnCode(wxID_CANCEL);
  MarkAnswered(box);
  gtk_dialog_response(box, GTK_RESPONSE_DELETE_EVENT);
}

}  // namespace

void ModalDialogScript::End(wxDialog & dialog, int id) {
  if (dialog.IsModal()) {
    dialog.EndModal(id);
    return;
  }
  GtkDialog * const box = RunningGtkBox(dialog);
  if (box == nullptr) {
    ADD_FAILURE() << "\"" << dialog.GetTitle().utf8_string() << "\" is not running modally";
    return;
  }
  gint const response = GtkResponse(id);
  GtkWidget * const button =
      response == GTK_RESPONSE_NONE ? nullptr : gtk_dialog_get_widget_for_response(box, response);
  if (button == nullptr) {
    ADD_FAILURE() << "the message box has no button for " << id;
    CloseBox(dialog, box);
    return;
  }
  // ShowModal returns the answer without keeping it; the record reads it here.
  dialog.SetReturnCode(id);
  MarkAnswered(box);
  gtk_button_clicked(GTK_BUTTON(button));
}

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
  // instead of hanging in the modal loop. Only End ends a message box, so
  // one still up after its action is an error, and cancelled.
  dialog->CallAfter([dialog, action = std::move(step.action)] {
    bool const failedBefore = ::testing::Test::HasFatalFailure();
    action(*dialog);
    if (GtkDialog * const box = RunningGtkBox(*dialog)) {
      if (Answered(box)) return;
      ADD_FAILURE() << "the action left the message box \"" << dialog->GetTitle().utf8_string()
                    << "\" up: ModalDialogScript::End answers it";
      CloseBox(*dialog, box);
    } else if (!failedBefore && ::testing::Test::HasFatalFailure() && dialog->IsModal()) {
      dialog->EndModal(wxID_CANCEL);
    }
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
