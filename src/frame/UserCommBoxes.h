#pragma once
// What the user-communication channels (StandardUserComm and its kin) show:
// their message box, and the choice between a message box and a scrolling
// dialog by the number of lines of a text.

#include <string>

#include <wx/string.h>

#include "platform/WinUser.h"

class wxWindow;

namespace user_comm {

// A question of more lines than this is asked in YesNoDialog.
constexpr int kMaxQuestionLines = 30;
// An information or fatal error of fewer lines than this is a message box,
// a longer one FatalErrorDialog.
constexpr int kScrollingMessageLines = 20;

// The number of "\n" in `text`, plus one.
int CountLines(std::string const & text);

// The owner of the channels' dialogs: the dialog running modally above the
// main window, else the main window; null without either.
wxWindow * DialogParent();

// The channels' message box (the plain road, never muted). A type that names
// no icon gets the exclamation mark when its buttons are OK, OK/Cancel,
// Yes/No/Cancel or Yes/No; an empty caption is the application's name.
// Returns the Windows id of the answer.
int ShowMessageBox(wxString const & text, wxString const & caption, UINT type);

// A fatal error (MB_ICONHAND) or, with `informationOnly`, an information
// (MB_ICONINFORMATION): a message box below kScrollingMessageLines lines,
// FatalErrorDialog from there on. The caller hides the progress.
void ShowFatalOrInformation(std::string const & text, std::string const & caption,
                            bool informationOnly);

}  // namespace user_comm
