#include "properties/PropertyInPlaceEntry.h"

#include <wx/textctrl.h>

void KeepCaretOnFocus(wxTextCtrl & edit) {
  edit.Bind(wxEVT_SET_FOCUS, [&edit](wxFocusEvent & event) {
    event.Skip();
    // The entry selects its text after this event; undo that once it has.
    long const caret = edit.GetInsertionPoint();
    bool const selectedBefore = edit.HasSelection();
    edit.CallAfter([&edit, caret, selectedBefore] {
      long from = 0, to = 0;
      edit.GetSelection(&from, &to);
      bool const all = from == 0 && to == edit.GetLastPosition() && to > 0;
      if (all && !selectedBefore) edit.SetSelection(caret, caret);
    });
  });
}
