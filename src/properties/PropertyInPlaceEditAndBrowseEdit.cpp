#include "properties/PropertyInPlaceEditAndBrowseEdit.h"

#include <wx/weakref.h>

#include "properties/PropertyInPlaceEditAndBrowse.h"
#include "properties/PropertyInPlaceEntry.h"
#include "properties/PropertyInPlaceKeys.h"

PropertyInPlaceEditAndBrowseEdit::PropertyInPlaceEditAndBrowseEdit(
    PropertyInPlaceEditAndBrowse * frame, int id, wxString const & text, wxRect const & place)
    : wxTextCtrl(frame, id, text, place.GetPosition(), place.GetSize(),
                 wxBORDER_NONE),  // Tab and Return: the char hook takes them
      mFrame(frame) {
  KeepCaretOnFocus(*this);
  Bind(wxEVT_CHAR_HOOK, &PropertyInPlaceEditAndBrowseEdit::OnCharHook, this);
  Bind(wxEVT_TEXT, &PropertyInPlaceEditAndBrowseEdit::OnText, this);
  Bind(wxEVT_KILL_FOCUS, &PropertyInPlaceEditAndBrowseEdit::OnKillFocus, this);
}

void PropertyInPlaceEditAndBrowseEdit::ShowText(wxString const & text) {
  ChangeValue(text);
  SetInsertionPointEnd();
  mChanged = false;
}

void PropertyInPlaceEditAndBrowseEdit::OnCharHook(wxKeyEvent & event) {
  InPlaceKeyAction const action = InPlaceKeyActionFor(event.GetKeyCode());
  wxWindow * const list = mFrame->GetParent();
  if (action == InPlaceKeyAction::None || list == nullptr) {
    event.Skip();
    return;
  }
  wxWeakRef<wxWindow> const listAlive(list);
  mFrame->Commit();
  if (listAlive) HandKeyToList(*list, event, action);
}

void PropertyInPlaceEditAndBrowseEdit::OnText(wxCommandEvent & event) {
  mChanged = true;
  event.Skip();
}

void PropertyInPlaceEditAndBrowseEdit::OnKillFocus(wxFocusEvent & event) {
  event.Skip();
  mFrame->Commit();
}
