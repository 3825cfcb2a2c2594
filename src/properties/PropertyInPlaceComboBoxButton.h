#pragma once
// The drop button of PropertyInPlaceComboBox (id 1): a flat down arrow,
// drawn pressed while the list is open; a press opens or closes the list.
// It takes no focus.

#include <wx/window.h>

class PropertyInPlaceComboBox;

class PropertyInPlaceComboBoxButton : public wxWindow {
public:
  PropertyInPlaceComboBoxButton(PropertyInPlaceComboBox * combo, int id);

  bool AcceptsFocus() const override { return false; }
  bool AcceptsFocusFromKeyboard() const override { return false; }

private:
  void OnPaint(wxPaintEvent & event);

  PropertyInPlaceComboBox * mCombo;
};
