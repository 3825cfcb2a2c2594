#pragma once
// The two roads by which the library shows a message box, both ending in
// wxMessageDialog and returning Windows ids (IDOK, IDYES...):
//
// - the framework road, AfxMessageBox: passes through the framework handler
//   that the application object installs (its DoMessageBox, which honours
//   the mute switch for information boxes); without one the box is shown
//   plainly, owned by the main window, with the application's name as
//   caption;
// - the plain road, MessageBoxW: shows exactly what it is given and is
//   never muted.
//
// A box with MB_HELP has a Help button: it calls the help handler with the
// box's help id and the box stays, as on Windows (here: is shown again).

#include <functional>

#include <wx/string.h>

#include "platform/WinUser.h"

class wxWindow;

// The plain road. A null or empty caption reads "Error", as on Windows.
int MessageBoxW(wxWindow * owner, wchar_t const * text, wchar_t const * caption, UINT type);

// The framework road with a text.
int AfxMessageBox(wxString const & text, UINT type = MB_OK, UINT helpId = 0);
// The framework road with string `stringId` of the resource chain; a help id
// of (UINT)-1 means the string's id.
int AfxMessageBox(UINT stringId, UINT type = MB_OK, UINT helpId = static_cast<UINT>(-1));

// Receives every framework box; returns its Windows id.
using FrameworkMessageBoxHandler =
    std::function<int(wxString const & text, UINT type, UINT helpId)>;
// Installs `handler` (empty: none) and returns the former one.
FrameworkMessageBoxHandler SetFrameworkMessageBoxHandler(FrameworkMessageBoxHandler handler);

// What the framework shows when no handler takes the box, and what a
// handler calls to show it after all: owned by the main window, captioned
// with the application's name; a box without icon gets the exclamation
// mark for OK and OK/Cancel and the question mark for Yes/No (/Cancel).
int ShowFrameworkMessageBox(wxString const & text, UINT type, UINT helpId);

// Called when Help is pressed in a box with MB_HELP.
using MessageBoxHelpHandler = std::function<void(UINT helpId)>;
MessageBoxHelpHandler SetMessageBoxHelpHandler(MessageBoxHelpHandler handler);
