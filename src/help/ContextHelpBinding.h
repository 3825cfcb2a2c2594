#pragma once
// Pop-up help for the controls of a dialog: F1 on a control, or a click of
// the title bar's context-help button and then on a control, becomes a
// HELPINFO request to VxHtmlHelp::DisplayContextHelp, which shows the
// control's text from the pop-up file `popupTopic` of the help file.

#include <string>

class wxWindow;

// Binds the dialog's wxEVT_HELP and F1. The dialog's controls carry their
// context help identifiers (VxSetWindowContextHelpId).
void VxBindContextHelp(wxWindow & dialog, std::wstring popupTopic);
