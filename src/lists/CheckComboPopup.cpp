#include "lists/CheckComboPopup.h"

#include "lists/CheckComboBox.h"

bool CheckComboPopup::Create(wxWindow * parent) {
  if (!VxComboPopup::Create(parent)) return false;
  // Bound handlers run before the list's own, which would close the list
  // on a click or Enter and make the row the selection.
  Bind(wxEVT_LEFT_DOWN, &CheckComboPopup::OnMouseDown, this);
  Bind(wxEVT_LEFT_DCLICK, &CheckComboPopup::OnMouseDown, this);
  Bind(wxEVT_LEFT_UP, [](wxMouseEvent &) {});  // consumed: the list stays open
  Bind(wxEVT_KEY_DOWN, &CheckComboPopup::OnKeyDown, this);
  Bind(wxEVT_CHAR, &CheckComboPopup::OnChar, this);
  return true;
}

void CheckComboPopup::ToggleHighlighted() {
  // The list's highlighted row, not the combo's selection, which stays none.
  int const row = wxVListBox::GetSelection();
  if (row != wxNOT_FOUND) Combo().ToggleItem(row, false);
}

CheckComboBox & CheckComboPopup::Combo() const { return *static_cast<CheckComboBox *>(m_combo); }

void CheckComboPopup::PaintComboControl(wxDC & dc, wxRect const & rect) {
  Combo().DrawFace(dc, rect);
}

void CheckComboPopup::SetStringValue(wxString const &) {}

wxString CheckComboPopup::GetStringValue() const { return Combo().GetValue(); }

void CheckComboPopup::OnComboKeyEvent(wxKeyEvent & event) { event.Skip(); }

void CheckComboPopup::OnComboCharEvent(wxKeyEvent & event) { event.Skip(); }

void CheckComboPopup::OnComboDoubleClick() {}

void CheckComboPopup::OnMouseDown(wxMouseEvent & event) {
  int const row = VirtualHitTest(event.GetY());
  // A click beside the rows (below the last one) changes nothing.
  if (row == wxNOT_FOUND || event.GetX() < 0 || event.GetX() >= GetClientSize().x) return;
  wxVListBox::SetSelection(row);  // highlighted only, not the combo's selection
  Combo().ToggleItem(row, true);
}

void CheckComboPopup::OnKeyDown(wxKeyEvent & event) {
  switch (event.GetKeyCode()) {
    case WXK_SPACE: ToggleHighlighted(); return;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
      Dismiss();  // closes without making the row the selection
      return;
    default: event.Skip();
  }
}

void CheckComboPopup::OnChar(wxKeyEvent & event) {
  if (event.GetKeyCode() == WXK_SPACE) {
    ToggleHighlighted();
    return;
  }
  event.Skip();
}
