#include "properties/PropertyItem.h"

#include <vector>

#include <wx/dc.h>
#include <wx/font.h>

#include "platform/ResourceModule.h"
#include "platform/UnmeasuredText.h"

namespace {

wxString TextOrEmpty(wchar_t const * text) { return text != nullptr ? wxString(text) : wxString(); }

// The character height of the dc's font, measured once a font: measuring
// lays text out, and a list paints every row's value in one or two fonts.
// A font is known by its shared data, not by wxFont's ==, which for two
// fonts of different data measures both on a screen device.
int CharHeightOf(wxDC & dc) {
  struct Measured {
    wxFont font;  // holds the data, so that no other font can take its address
    int height;
  };
  static std::vector<Measured> measured;
  wxFont const & font = dc.GetFont();
  for (Measured const & known : measured)
    if (known.font.IsSameAs(font)) return known.height;
  int const height = dc.GetCharHeight();
  if (measured.size() >= 8) measured.erase(measured.begin());  // fonts come and go rarely
  measured.push_back({font, height});
  return height;
}

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
  int const cellLeft = rect.left;
  rect.left += 3;
  rect.right -= 3;
  if (text.empty() || rect.right <= rect.left || rect.bottom <= rect.top) return;
  int const height = CharHeightOf(dc);
  int const y = rect.top + (rect.bottom - rect.top - height) / 2;
  // A caller that clips to the value column already (the list, once for
  // all its rows) spares a clip a row; a line fits its row's height.
  wxRect clipped;
  bool const columnClipped = dc.GetClippingBox(clipped) && clipped.x >= cellLeft &&
                             clipped.x + clipped.width <= rect.right &&
                             height <= rect.bottom - rect.top;
  if (columnClipped) {
    DrawTextUnmeasured(dc, SingleLine(text), rect.left, y);
    return;
  }
  wxDCClipper const clip(
      dc, wxRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top));
  DrawTextUnmeasured(dc, SingleLine(text), rect.left, y);
}

wxString PropertyItem::SingleLine(wxString const & text) {
  wxString line = text;
  for (auto it = line.begin(); it != line.end(); ++it)
    if (*it < 0x20 || *it == 0x7F) *it = L' ';
  return line;
}
