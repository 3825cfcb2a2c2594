#include "properties/PropertyInPlaceComboBoxButton.h"

#include <algorithm>

#include <wx/dcbuffer.h>

#include "platform/SysColor.h"
#include "properties/PropertyInPlaceComboBox.h"

PropertyInPlaceComboBoxButton::PropertyInPlaceComboBoxButton(PropertyInPlaceComboBox * combo,
                                                             int id)
    : wxWindow(combo, id, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE), mCombo(combo) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, &PropertyInPlaceComboBoxButton::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent &) { mCombo->OnBnClicked(); });
  Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent &) { mCombo->OnBnClicked(); });
}

void PropertyInPlaceComboBoxButton::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  bool const pressed = mCombo->IsDropped();
  wxSize const size = GetClientSize();
  dc.SetBackground(wxBrush(GetSysColour(pressed ? COLOR_BTNSHADOW : COLOR_BTNFACE)));
  dc.Clear();
  // Flat: one frame line of the shadow colour, no bevel.
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNSHADOW)));
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.DrawRectangle(0, 0, size.x, size.y);
  // The arrow, a pixel lower and to the right while pressed.
  int const shift = pressed ? 1 : 0;
  int const half = std::max(2, std::min(size.x, size.y) / 4);
  int const cx = size.x / 2 + shift;
  int const cy = size.y / 2 + shift;
  wxPoint const arrow[] = {
      {cx - half, cy - half / 2}, {cx + half, cy - half / 2}, {cx, cy + half / 2 + 1}};
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(GetSysColour(COLOR_BTNTEXT)));
  dc.DrawPolygon(3, arrow);
}
