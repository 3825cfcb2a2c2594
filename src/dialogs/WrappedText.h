#pragma once
// The question of the short answer-to-all dialogs: a static text that wraps
// at its control's width, with the dialog made taller when the wrapped text
// needs more lines than the template has room for.

#include <wx/string.h>

class VxDialog;

// Puts `text` into the static text `controlId` of `dialog`, wrapped at the
// control's width, and grows the dialog (at most to three quarters of the
// display's height) so that its anchored controls make room for all lines.
// Call it after anchoring. Does nothing when there is no static text.
void ShowWrappedText(VxDialog & dialog, int controlId, wxString const & text);
