#pragma once
// How a Windows message-box type (MB_* bits) is shown with wxMessageDialog:
// its wx style, the buttons relabelled where wx has no such button, and the
// Windows id that each wx answer stands for.
//
// wx offers OK, Cancel, Yes, No and Help. The kinds it lacks borrow them:
//   Abort/Retry/Ignore        -> Cancel "Abort", Yes "Retry", No "Ignore"
//   Retry/Cancel              -> OK "Retry", Cancel
//   Cancel/Try Again/Continue -> Cancel, Yes "Try Again", No "Continue"
// Escape and the close box answer Cancel, so they abort an Abort/Retry/
// Ignore box; a Yes/No box closed that way answers No, an OK box OK.
// An unknown button kind (7-15) is shown as OK, as Windows refuses it.

#include <wx/string.h>

#include "platform/WinUser.h"

struct MessageBoxType {
  long style = 0;  // wxOK, wxYES_NO, wxCANCEL, wxHELP, wxICON_*, wx*_DEFAULT
  // Labels for the borrowed buttons; empty keeps wx's stock label.
  wxString yesLabel, noLabel, okLabel, cancelLabel;
  // Windows ids that wxID_OK, wxID_CANCEL, wxID_YES and wxID_NO stand for.
  int okResult = IDOK;
  int cancelResult = IDCANCEL;
  int yesResult = IDYES;
  int noResult = IDNO;

  // The Windows id for what wxMessageDialog::ShowModal returned; IDHELP for
  // wxID_HELP, and the kind's cancelling answer for anything unexpected.
  int WindowsResult(int wxId) const;
};

// The wx form of `type`. The icon bits map MB_ICONHAND to wxICON_ERROR,
// MB_ICONQUESTION to wxICON_QUESTION, MB_ICONEXCLAMATION to wxICON_WARNING,
// MB_ICONASTERISK to wxICON_INFORMATION and anything else to wxICON_NONE
// (wx would otherwise choose an icon itself). A default button beyond the
// kind's buttons, or on Help, leaves the first button the default.
MessageBoxType MapMessageBoxType(UINT type);
