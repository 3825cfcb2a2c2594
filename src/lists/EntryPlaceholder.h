#pragma once
// A grey hint in the edit field of a combo box while the field is empty,
// focused or not. GTK's own placeholder disappears when the field takes the
// focus, and the filter popup's field has the focus from the start, so the
// hint is painted after the field has drawn itself.
//
// An empty `text` takes the hint away again; a second hint replaces the
// first.

class wxComboBox;
class wxString;

void ShowPlaceholderWhileEmpty(wxComboBox & combo, wxString const & text);
