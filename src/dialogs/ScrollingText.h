#pragma once
// The scrollable read-only text of the message dialogs (long questions,
// long fatal errors). It keeps the line ends the family's texts have always
// had there, "\r\n", and a little room between the text and its frame.

#include <wx/string.h>

class wxWindow;

// `text` with each "\n" that has no "\r" before it written as "\r\n" (an
// existing "\r\n" stays as it is); null gives an empty text.
wxString WithCrLfLineEnds(wchar_t const * text);

// Puts `text` into `control` when it is a text control; anything else is
// left alone.
void ShowScrollingText(wxWindow * control, wxString const & text);
