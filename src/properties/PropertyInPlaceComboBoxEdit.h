#pragma once
// The painted edit of PropertyInPlaceComboBox (id 2): shows the chosen text
// on the window colour, takes no typing and shows no caret; a press opens
// or closes the drop list. While the list is open the keys it gets (it
// holds the focus) go to the list.

#include <wx/window.h>

class PropertyInPlaceComboBox;

class PropertyInPlaceComboBoxEdit : public wxWindow {
public:
  PropertyInPlaceComboBoxEdit(PropertyInPlaceComboBox * combo, int id);

  void SetText(wxString const & text);
  wxString const & GetText() const { return mText; }

private:
  void OnPaint(wxPaintEvent & event);
  void OnLeftDown(wxMouseEvent & event);
  void OnCharHook(wxKeyEvent & event);

  PropertyInPlaceComboBox * mCombo;
  wxString mText;
};
