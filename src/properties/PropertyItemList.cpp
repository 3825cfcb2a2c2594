#include "properties/PropertyItemList.h"

#include "properties/PropertyInPlaceComboBox.h"

PropertyItemList::PropertyItemList(wchar_t const * name, unsigned id, wchar_t const * description)
    : PropertyItem(name, id, description) {}

PropertyItemList::PropertyItemList(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItem(nameId, id, descriptionId) {}

std::uint64_t PropertyItemList::GetNumItems() { return 0; }

wxString PropertyItemList::GetItemData(std::uint64_t /*index*/) { return wxString(); }

wxString PropertyItemList::SelectedText() {
  // A negative index becomes a huge one, which has no entry either.
  return GetItemData(static_cast<std::uint64_t>(static_cast<std::int64_t>(mSelected)));
}

void PropertyItemList::DrawValue(wxDC & dc, RECT rect) { DrawValueText(dc, rect, SelectedText()); }

void PropertyItemList::SetItemListData(PropertyInPlaceComboBox * combo) {
  std::uint64_t const count = GetNumItems();
  for (std::uint64_t i = 0; i < count; ++i) combo->AddString(GetItemData(i).wc_str());
}

wxWindow * PropertyItemList::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  auto * combo = PropertyInPlaceComboBox::CreateInPlaceControl(parent, rect);
  SetItemListData(combo);
  combo->SetCurSel(mSelected, false);
  combo->ResetListBoxHeight();
  return combo;
}

void PropertyItemList::SetData(wxWindow * control) {
  auto const * combo = dynamic_cast<PropertyInPlaceComboBox *>(control);
  if (combo == nullptr) return;
  // No choice in the combo (the value had no entry and none was picked):
  // the value stays as it was.
  int const chosen = combo->GetCurSel();
  if (chosen >= 0) mSelected = chosen;
}
