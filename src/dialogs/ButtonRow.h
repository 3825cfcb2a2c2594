#pragma once
// Dialogs that hide some of their buttons, or label them with texts of
// their callers, keep the row a person sees without holes and on screen.

#include <initializer_list>

class VxDialog;
class wxWindow;

// Places the shown buttons among `ids` (in their order, left to right) side
// by side so that the last one ends where the rightmost of all of them ended,
// keeping the spacing of the template's first two buttons. Missing ids are
// passed over. Returns the left edge of the row (which may lie left of the
// dialog when the labels are long).
int PackButtonRowRight(wxWindow & dialog, std::initializer_list<int> ids);

// Widens `dialog` when a row that starts at `rowLeft` would come closer than
// `margin` to its left edge; the anchored controls follow (call it after
// anchoring them).
void WidenForButtonRow(VxDialog & dialog, int rowLeft, int margin);
