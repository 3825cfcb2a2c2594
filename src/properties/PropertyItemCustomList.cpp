#include "properties/PropertyItemCustomList.h"

#include <algorithm>

PropertyItemCustomList::PropertyItemCustomList(wchar_t const * name, unsigned id,
                                               wchar_t const * description)
    : PropertyItemList(name, id, description) {}

PropertyItemCustomList::PropertyItemCustomList(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItemList(nameId, id, descriptionId) {}

void PropertyItemCustomList::InitPropertyItemList(std::vector<wxString> & items, unsigned /*id*/) {
  if (&items != &mItems) mItems = items;
}

wxString PropertyItemCustomList::GetItemData(std::uint64_t index) {
  return index < mItems.size() ? mItems[index] : wxString();
}

void PropertyItemCustomList::MakeListOnce() {
  if (mListMade) return;
  InitPropertyItemList(mItems, GetPropertyID());
  mListMade = true;
}

void PropertyItemCustomList::DrawValue(wxDC & dc, RECT rect) {
  MakeListOnce();
  PropertyItemList::DrawValue(dc, rect);
}

wxWindow * PropertyItemCustomList::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  MakeListOnce();
  return PropertyItemList::CreateInPlaceControl(parent, rect);
}

void PropertyItemCustomList::SetData(int index) {
  InitPropertyItemList(mItems, 0);
  mSelected = index;
}

void PropertyItemCustomList::SetSelectedData(wxString const & text) {
  auto const found = std::find(mItems.begin(), mItems.end(), text);
  if (found == mItems.end()) {
    // Kept as "none of these": one past the end, drawn empty.
    mSelected = static_cast<int>(mItems.size());
    return;
  }
  auto const position = static_cast<int>(found - mItems.begin());
  InitPropertyItemList(mItems, 0);
  mSelected = position;
}
