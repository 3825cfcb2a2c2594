#pragma once
// GTK's entry selects its whole text when it takes the focus from the
// keyboard or a program; an in-place edit keeps its caret where it was put
// (at the end of the text, by the items) instead, as the property list
// expects.

class wxTextCtrl;

void KeepCaretOnFocus(wxTextCtrl & edit);
