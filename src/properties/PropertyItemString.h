#pragma once
// A row holding a line of text, edited in a plain edit.

#include "properties/PropertyItem.h"

class PropertyItemString : public PropertyItem {
public:
  PropertyItemString(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemString(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemString)

  void DrawValue(wxDC & dc, RECT rect) override;
  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;
  using PropertyItem::SetData;
  // The edit's text, as it stands.
  void SetData(wxWindow * control) override;

  void SetData(wxString const & text) { mText = text; }
  void GetData(wxString & text) const { text = mText; }

private:
  wxString mText;
};
