#include "properties/PropertyItem.h"

#include <wx/dc.h>

#include "platform/ResourceModule.h"
#include "platform/UnmeasuredText.h"

namespace {

wxString TextOrEmpty(wchar_t const * text) { return text != nullptr ? wxString(text) : wxString(); }

}  // namespace

PropertyItem::PropertyItem(wchar_t const * name, unsigned id, wchar_t const * description)
    : mName(TextOrEmpty(name)), mShowName(mName), mId(id), mDescription(TextOrEmpty(description)) {}

PropertyItem::PropertyItem(unsigned nameId, unsigned id, unsigned descriptionId)
    : mName(LoadResourceString(nameId)),
      mShowName(mName),
      mId(id),
      mDescription(LoadResourceString(descriptionId)) {}

void PropertyItem::DrawValue(wxDC & /*dc*/, RECT /*rect*/) {}

wxWindow * PropertyItem::CreateInPlaceControl(wxWindow * /*parent*/, RECT /*rect*/) {
  return nullptr;
}

void PropertyItem::SetData(wxWindow * /*control*/) {}

PropertyItem * PropertyItem::Clone() const { return new PropertyItem(*this); }

void PropertyItem::DrawValueText(wxDC & dc, RECT rect, wxString const & text) {
  rect.left += 3;
  rect.right -= 3;
  if (text.empty() || rect.right <= rect.left || rect.bottom <= rect.top) return;
  wxDCClipper const clip(
      dc, wxRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top));
  int const y = rect.top + (rect.bottom - rect.top - dc.GetCharHeight()) / 2;
  DrawTextUnmeasured(dc, SingleLine(text), rect.left, y);
}

wxString PropertyItem::SingleLine(wxString const & text) {
  wxString line = text;
  for (auto it = line.begin(); it != line.end(); ++it)
    if (*it < 0x20 || *it == 0x7F) *it = L' ';
  return line;
}
