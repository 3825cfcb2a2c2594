#pragma once
// GTK selects the whole text of an entry that takes the focus from the
// keyboard or a program; an in-place edit keeps its caret where it was put
// (at the end of the text) instead, as the property list expects.

class wxTextCtrl;

void KeepCaretOnFocus(wxTextCtrl & edit);
