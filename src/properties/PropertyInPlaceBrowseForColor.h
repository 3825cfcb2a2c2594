#pragma once
// The colour editor: a read-only edit showing "R: .. G: .. B: .." and "...",
// which asks for a colour through the replaceable colour chooser.

#include "platform/WinGdi.h"
#include "properties/PropertyInPlaceEditAndBrowse.h"

class PropertyInPlaceBrowseForColor : public PropertyInPlaceEditAndBrowse {
public:
  PropertyInPlaceBrowseForColor(wxWindow * parent, RECT const & rect, COLORREF colour = 0);
  // The parent owns the result.
  static PropertyInPlaceBrowseForColor * CreateInPlaceControl(wxWindow * parent, RECT rect);

  // The colour, and its text in the edit.
  void SetData(COLORREF colour);
  void GetData(COLORREF & colour) const { colour = mColour; }

  // "R: %1% G: %2% B: %3%" (translated) from the low, middle and high byte;
  // the top byte is ignored.
  static wxString FormatEditString(COLORREF colour);

protected:
  bool OnBrowse() override;

private:
  COLORREF mColour;
};
