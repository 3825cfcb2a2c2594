#pragma once
// Answers the modal dialogs a test provokes, in order, and records what each
// one showed. Built on wxModalDialogHook, so it sees every dialog shown with
// ShowModal, native message boxes included.
//
//   ModalDialogScript script;
//   script.Answer(wxID_YES);                       // returned without showing
//   script.Act([](wxDialog & d) { ...; d.EndModal(wxID_OK); });  // shown first
//   RunCodeThatAsks();
//   EXPECT_EQ(script.Shown()[0].message, "Overwrite?");
//
// A dialog for which no step is left fails the test and is cancelled, so a
// test never hangs on an unexpected question. Steps left over when the
// script ends fail the test too.

#include <deque>
#include <functional>
#include <utility>
#include <vector>

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/string.h>

class ModalDialogScript : public wxModalDialogHook {
public:
  struct ShownDialog {
    wxString className;  // wx class name, e.g. "wxMessageDialog"
    wxString title;
    wxString message;  // message text (message boxes) or the static texts
    int result = 0;    // what ShowModal returned
  };

  ModalDialogScript();
  ~ModalDialogScript() override;

  // The next dialog returns `id` from ShowModal without being shown.
  ModalDialogScript & Answer(int id);
  // The next dialog is shown; once it is on screen `action` runs and must end
  // it (EndModal, a click...).
  ModalDialogScript & Act(std::function<void(wxDialog &)> action);

  std::vector<ShownDialog> const & Shown() const { return mShown; }
  size_t Pending() const { return mSteps.size(); }

protected:
  int Enter(wxDialog * dialog) override;
  void Exit(wxDialog * dialog) override;

private:
  struct Step {
    int answer = wxID_NONE;
    std::function<void(wxDialog &)> action;
  };

  std::deque<Step> mSteps;
  std::vector<ShownDialog> mShown;
  // Dialogs shown by an Act step, with the index of their record.
  std::vector<std::pair<wxDialog *, size_t>> mOpen;
};
