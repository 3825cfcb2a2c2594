#pragma once
// A row holding a colour (COLORREF, 0x00BBGGRR): a swatch and its red, green
// and blue bytes, chosen in the colour dialog. A top byte, which a COLORREF
// does not use, is ignored in what is shown.

#include "platform/WinGdi.h"
#include "properties/PropertyItem.h"

class PropertyItemColorPopup : public PropertyItem {
public:
  PropertyItemColorPopup(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemColorPopup(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemColorPopup)

  // The swatch from left + 1 to left + 31 (one pixel in from top and
  // bottom) with a flat frame, and the text from left + 37.
  void DrawValue(wxDC & dc, RECT rect) override;
  // The editor starts 33 pixels further right, so the swatch stays seen.
  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;
  using PropertyItem::SetData;
  void SetData(wxWindow * control) override;

  void SetData(COLORREF color) { mColor = color; }
  void GetData(COLORREF & color) const { color = mColor; }

  // Where the swatch lies in a value cell.
  static RECT SwatchRect(RECT cell);

private:
  COLORREF mColor = 0;
};
