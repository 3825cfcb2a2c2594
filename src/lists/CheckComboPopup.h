#pragma once
// The drop-down of CheckComboBox: it stays open while the user checks rows,
// toggles the row under a click and the highlighted row on Space, never
// takes a row as the combo's selection, and lets Enter close it.

#include "lists/VxComboPopup.h"

class CheckComboBox;

class CheckComboPopup : public VxComboPopup {
public:
  bool Create(wxWindow * parent) override;

  void PaintComboControl(wxDC & dc, wxRect const & rect) override;
  void SetStringValue(wxString const & value) override;
  wxString GetStringValue() const override;
  // The closed combo neither moves a selection by keys nor by double click.
  void OnComboKeyEvent(wxKeyEvent & event) override;
  void OnComboCharEvent(wxKeyEvent & event) override;
  void OnComboDoubleClick() override;

private:
  CheckComboBox & Combo() const;
  void OnMouseDown(wxMouseEvent & event);
  void OnKeyDown(wxKeyEvent & event);
  void OnChar(wxKeyEvent & event);
  void ToggleHighlighted();
};
