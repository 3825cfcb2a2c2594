#pragma once
// The question "Do you really want to stop?" of the break dialog. It is
// modeless towards the application: the operation goes on reporting while
// the user thinks. It is modal in the break dialog's window group only, so
// that the stop button cannot be pressed twice meanwhile.

#include <wx/dialog.h>

#include <functional>

class wxButton;
class wxStaticText;

class BreakConfirmWindow : public wxDialog {
public:
  // `onAnswer` gets true for Yes; it runs once the window is hidden.
  BreakConfirmWindow(wxWindow * breakDialog, std::function<void(bool)> onAnswer);
  ~BreakConfirmWindow() override;

  void Ask(wxString const & question, wxString const & caption);
  // Closes the window as if the user had chosen.
  void Answer(bool yes);

  wxButton & GetYesButton() const { return *mYes; }
  wxButton & GetNoButton() const { return *mNo; }
  wxString GetQuestion() const;

  bool ShouldPreventAppExit() const override { return false; }

private:
  std::function<void(bool)> mOnAnswer;
  wxStaticText * mQuestion = nullptr;
  wxButton * mYes = nullptr;
  wxButton * mNo = nullptr;
};
