#include "properties/PropertyInPlaceComboBoxEdit.h"

#include <wx/dcbuffer.h>
#include <wx/weakref.h>

#include "platform/SysColor.h"
#include "properties/PropertyInPlaceComboBox.h"
#include "properties/PropertyInPlaceComboBoxListBox.h"
#include "properties/PropertyInPlaceKeys.h"
#include "properties/PropertyInPlaceLayout.h"

PropertyInPlaceComboBoxEdit::PropertyInPlaceComboBoxEdit(PropertyInPlaceComboBox * combo, int id)
    : wxWindow(combo, id, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS),
      mCombo(combo) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, &PropertyInPlaceComboBoxEdit::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, &PropertyInPlaceComboBoxEdit::OnLeftDown, this);
  Bind(wxEVT_CHAR_HOOK, &PropertyInPlaceComboBoxEdit::OnCharHook, this);
  // Typing, the context menu and a double click do nothing here.
  Bind(wxEVT_CHAR, [](wxKeyEvent &) {});
  Bind(wxEVT_LEFT_DCLICK, [](wxMouseEvent &) {});
  Bind(wxEVT_CONTEXT_MENU, [](wxContextMenuEvent &) {});
}

void PropertyInPlaceComboBoxEdit::SetText(wxString const & text) {
  if (text == mText) return;
  mText = text;
  Refresh(false);
}

void PropertyInPlaceComboBoxEdit::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.Clear();
  dc.SetFont(GetFont());
  dc.SetTextForeground(GetSysColour(COLOR_WINDOWTEXT));
  wxSize const size = GetClientSize();
  int const inset = PropertyInPlaceLayout::kInset;
  wxRect const text(inset, 0, size.x - 2 * inset, size.y);
  dc.SetClippingRegion(text);
  dc.DrawLabel(mText, text, wxALIGN_LEFT | wxALIGN_CENTER_VERTICAL);
}

void PropertyInPlaceComboBoxEdit::OnLeftDown(wxMouseEvent &) { mCombo->OnBnClicked(); }

void PropertyInPlaceComboBoxEdit::OnCharHook(wxKeyEvent & event) {
  if (mCombo->IsDropped()) {
    // The list holds the mouse, the edit the keys: a popup gets none.
    if (!mCombo->GetList()->HandleKey(event.GetKeyCode())) event.Skip();
    return;
  }
  int const key = event.GetKeyCode();
  if (key == WXK_F4 || (event.AltDown() && (key == WXK_DOWN || key == WXK_UP))) {
    mCombo->OnBnClicked();
    return;
  }
  InPlaceKeyAction const action = InPlaceKeyActionFor(key);
  wxWindow * const list = mCombo->GetParent();
  if (action == InPlaceKeyAction::None || list == nullptr) {
    event.Skip();
    return;
  }
  HandKeyToList(*list, event, action);
}
