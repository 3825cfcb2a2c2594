#pragma once
// Answers the modal dialogs a test provokes, in order, and records what each
// one showed. Built on wxModalDialogHook, so it sees every dialog shown with
// ShowModal, native message boxes included.
//
//   ModalDialogScript script;
//   script.Answer(wxID_YES);                       // returned without showing
//   script.Act([](wxDialog & d) { ...; ModalDialogScript::End(d, wxID_OK); });  // shown first
//   RunCodeThatAsks();
//   EXPECT_EQ(script.Shown()[0].message, "Overwrite?");
//
// A dialog for which no step is left fails the test and is cancelled, so a
// test never hangs on an unexpected question. Steps left over when the
// script ends fail the test too, and so does an action that fails: its
// dialog is then cancelled.
//
// wxGTK's wxMessageDialog is GTK's own box: its ShowModal runs GTK's loop,
// not wx's, so wxDialog::EndModal refuses it ("called twice or ShowModal
// wasn't called") and the box stays up. End ends both kinds; a message box
// still up when its action returns fails the test and is closed.

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
  // it (End, a click...).
  ModalDialogScript & Act(std::function<void(wxDialog &)> action);

  // Ends the running `dialog` with `id`: a wx dialog through EndModal, a
  // message box by clicking its button for `id` (wxID_OK, wxID_CANCEL,
  // wxID_YES, wxID_NO or wxID_HELP). A box without that button fails the
  // test and is closed as by its close box.
  static void End(wxDialog & dialog, int id);

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
