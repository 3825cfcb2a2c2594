#pragma once
// The edit of PropertyInPlaceEditAndBrowse. Its keys go as in
// PropertyInPlaceEdit, to the property list (the frame's parent); losing
// the focus commits the frame.

#include <wx/textctrl.h>

class PropertyInPlaceEditAndBrowse;

class PropertyInPlaceEditAndBrowseEdit : public wxTextCtrl {
public:
  PropertyInPlaceEditAndBrowseEdit(PropertyInPlaceEditAndBrowse * frame, int id,
                                   wxString const & text, wxRect const & place);

  // Shows `text` with the caret at its end, as no change of the user's.
  void ShowText(wxString const & text);
  // Whether the user changed the text since it was last shown.
  bool IsChanged() const { return mChanged; }

private:
  void OnCharHook(wxKeyEvent & event);
  void OnText(wxCommandEvent & event);
  void OnKillFocus(wxFocusEvent & event);

  PropertyInPlaceEditAndBrowse * mFrame;
  bool mChanged = false;
};
