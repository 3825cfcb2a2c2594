#include "properties/PropertyInPlaceBrowseForColor.h"

#include "dialogs/ColourChooser.h"
#include "properties/PropertyInPlaceEditAndBrowseEdit.h"
#include "utl/Translation.h"

PropertyInPlaceBrowseForColor::PropertyInPlaceBrowseForColor(wxWindow * parent, RECT const & rect,
                                                             COLORREF colour)
    : PropertyInPlaceEditAndBrowse(parent, rect, FormatEditString(colour)), mColour(colour) {
  GetEdit()->SetEditable(false);
}

PropertyInPlaceBrowseForColor * PropertyInPlaceBrowseForColor::CreateInPlaceControl(
    wxWindow * parent, RECT rect) {
  return new PropertyInPlaceBrowseForColor(parent, rect);
}

void PropertyInPlaceBrowseForColor::SetData(COLORREF colour) {
  mColour = colour;
  PropertyInPlaceEditAndBrowse::SetData(FormatEditString(colour));
}

wxString PropertyInPlaceBrowseForColor::FormatEditString(COLORREF colour) {
  // Replaced one by one, so that a translation missing a number loses only it.
  wxString text = vx3::Tr("R: %1% G: %2% B: %3%");
  text.Replace("%1%", wxString::Format("%d", int(GetRValue(colour))));
  text.Replace("%2%", wxString::Format("%d", int(GetGValue(colour))));
  text.Replace("%3%", wxString::Format("%d", int(GetBValue(colour))));
  return text;
}

bool PropertyInPlaceBrowseForColor::OnBrowse() {
  ColourChooserRequest request;
  request.parent = this;
  request.colour = mColour;
  ColourChooserAnswer const answer = RunColourChooser(request);
  if (!answer.accepted) return false;
  mColour = answer.colour & 0xFFFFFFu;
  StoreData(FormatEditString(mColour));
  return true;
}
