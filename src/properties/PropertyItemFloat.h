#pragma once
// A row holding a float, shown with "%g" and the decimal point whatever the
// locale. The value -99 stands for "missing" and shows as an empty cell and
// an empty edit. Text that is no number (NaN and infinity included) leaves
// the value as it was.

#include "properties/PropertyItem.h"

class PropertyInPlaceEdit;

class PropertyItemFloat : public PropertyItem {
public:
  PropertyItemFloat(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemFloat(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemFloat)

  void DrawValue(wxDC & dc, RECT rect) override;
  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;
  using PropertyItem::SetData;
  void SetData(wxWindow * control) override;

  void SetData(float value) { mValue = value; }
  void GetData(float & value) const { value = mValue; }
  // The value as the cell and the edit show it ("" for -99).
  wxString FormatValue() const;

  // The edit's check as it loses the focus (`context` is the item): text
  // that is no number is replaced by the present value.
  static void ValidateFunc(PropertyInPlaceEdit * edit, void * context);

private:
  float mValue = 0.0F;
};
