#pragma once
// A list row whose entries the application supplies. They are made on the
// first draw (or the first editor) through InitPropertyItemList, which an
// application's subclass overrides to fill the vector it is handed for the
// given identifier; by default it takes the vector as the entries.
//
// SetSelectedData selects an entry by its exact text. A text that is not
// among the entries selects one past the end, which draws as an empty cell:
// the value is kept as "none of these" rather than turned into the first.

#include <vector>

#include "properties/PropertyItemList.h"

class PropertyItemCustomList : public PropertyItemList {
public:
  PropertyItemCustomList(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemCustomList(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemCustomList)

  void DrawValue(wxDC & dc, RECT rect) override;
  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;

  std::uint64_t GetNumItems() override { return mItems.size(); }
  wxString GetItemData(std::uint64_t index) override;
  // Fills `items` for `id`; here: takes `items` as the entries.
  virtual void InitPropertyItemList(std::vector<wxString> & items, unsigned id);

  using PropertyItemList::SetData;
  // Asks InitPropertyItemList(entries, 0), then selects `index`.
  void SetData(int index) override;
  void SetSelectedData(wxString const & text);

private:
  // The first draw or editor makes the entries once.
  void MakeListOnce();

  std::vector<wxString> mItems;
  bool mListMade = false;
};
