#include "properties/PropertyItemColorPopup.h"

#include <wx/dc.h>

#include "platform/SysColor.h"
#include "properties/EditorCaret.h"
#include "properties/PropertyInPlaceBrowseForColor.h"

namespace {

// The editor leaves this much of the cell to the swatch.
constexpr int kSwatchRoom = 33;

}  // namespace

PropertyItemColorPopup::PropertyItemColorPopup(wchar_t const * name, unsigned id,
                                               wchar_t const * description)
    : PropertyItem(name, id, description) {}

PropertyItemColorPopup::PropertyItemColorPopup(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItem(nameId, id, descriptionId) {}

RECT PropertyItemColorPopup::SwatchRect(RECT cell) {
  return RECT{cell.left + 1, cell.top + 1, cell.left + 31, cell.bottom - 1};
}

void PropertyItemColorPopup::DrawValue(wxDC & dc, RECT rect) {
  RECT const swatch = SwatchRect(rect);
  if (swatch.bottom > swatch.top) {
    wxRect const area(swatch.left, swatch.top, swatch.right - swatch.left,
                      swatch.bottom - swatch.top);
    // A COLORREF's top byte is no part of the colour.
    wxColour const color(GetRValue(mColor), GetGValue(mColor), GetBValue(mColor));
    wxDCPenChanger const pen(dc, wxPen(GetSysColour(COLOR_BTNFACE)));
    wxDCBrushChanger const brush(dc, wxBrush(color));
    dc.DrawRectangle(area);
  }
  dc.SetTextBackground(GetSysColour(COLOR_WINDOW));
  DrawValueText(dc, RECT{swatch.right + 3, rect.top, rect.right, rect.bottom},
                PropertyInPlaceBrowseForColor::FormatEditString(mColor));
}

wxWindow * PropertyItemColorPopup::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  // The swatch stays in sight beside the editor; the list paints it anew.
  RECT const swatch = SwatchRect(rect);
  parent->RefreshRect(
      wxRect(swatch.left, swatch.top, swatch.right - swatch.left, swatch.bottom - swatch.top),
      false);
  rect.left += kSwatchRoom;
  auto * editor = PropertyInPlaceBrowseForColor::CreateInPlaceControl(parent, rect);
  editor->SetData(mColor);
  ReadyForTyping(editor->FindWindow(PropertyInPlaceEditAndBrowse::kEditId));
  return editor;
}

void PropertyItemColorPopup::SetData(wxWindow * control) {
  auto const * editor = dynamic_cast<PropertyInPlaceBrowseForColor *>(control);
  if (editor == nullptr) return;
  editor->GetData(mColor);
  // The swatch left of the editor shows the new colour.
  if (wxWindow * parent = control->GetParent()) {
    wxRect const at = control->GetRect();
    parent->RefreshRect(wxRect(at.x - kSwatchRoom, at.y, kSwatchRoom, at.height), false);
  }
}
