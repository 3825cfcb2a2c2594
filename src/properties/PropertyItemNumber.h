#pragma once
// Rows holding a whole number. PropertyItemNumber's edit takes digits only;
// PropertyItemNegNumber's takes any text and snaps back to the present value
// when what was typed is no number.
//
// The typed text is read as the platform's text-to-int conversion read it
// (TakeBackNumber): digits up to the first other character, the result held
// at INT_MAX or INT_MIN when too large. Those two values therefore mean
// "too large": the tip "Value out of range" shows, the edit gets the old
// value back and the value stays.

#include "properties/PropertyItem.h"

class PropertyInPlaceEdit;

class PropertyItemNumber : public PropertyItem {
public:
  PropertyItemNumber(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemNumber(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemNumber)

  void DrawValue(wxDC & dc, RECT rect) override;
  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;
  using PropertyItem::SetData;
  void SetData(wxWindow * control) override;

  void SetData(int value) { mValue = value; }
  void GetData(int & value) const { value = mValue; }
  // The value as the cell and the edit show it.
  wxString FormatValue() const;

private:
  int mValue = 0;
};

class PropertyItemNegNumber : public PropertyItemNumber {
public:
  PropertyItemNegNumber(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemNegNumber(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemNegNumber)

  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;

  // The edit's check as it loses the focus (`context` is the item): text
  // that is no whole number is replaced by the present value.
  static void ValidateFunc(PropertyInPlaceEdit * edit, void * context);
};
