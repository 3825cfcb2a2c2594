#pragma once
// A row whose value is one entry of a list, chosen in a drop-down combo. The
// value is the selected index; the entries come from GetNumItems and
// GetItemData, which the list classes provide. An index with no entry (past
// the end, or negative) draws as an empty cell.

#include <cstdint>

#include "properties/PropertyItem.h"

class PropertyInPlaceComboBox;

class PropertyItemList : public PropertyItem {
public:
  PropertyItemList(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemList(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemList)

  void DrawValue(wxDC & dc, RECT rect) override;
  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;
  using PropertyItem::SetData;
  // The combo's selection.
  void SetData(wxWindow * control) override;

  // The number of entries; 0 here.
  virtual std::uint64_t GetNumItems();
  // Entry `index`; empty here and for an index not below GetNumItems.
  virtual wxString GetItemData(std::uint64_t index);

  virtual void SetData(int index) { mSelected = index; }
  void GetData(int & index) const { index = mSelected; }

protected:
  // Fills `combo` with every entry, in order.
  void SetItemListData(PropertyInPlaceComboBox * combo);
  // The entry of the selected index ("" for none).
  wxString SelectedText();

  int mSelected = 0;
};
