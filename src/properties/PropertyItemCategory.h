#pragma once
// A category row: a heading that owns the items listed under it and
// remembers whether they are shown. Its identifier is 0. A copy holds copies
// of the items, so each category deletes only its own.

#include <vector>

#include "properties/PropertyItem.h"

class PropertyItemCategory : public PropertyItem {
public:
  using const_iterator = std::vector<PropertyItem *>::const_iterator;

  PropertyItemCategory(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemCategory(unsigned nameId, unsigned id, unsigned descriptionId);
  PropertyItemCategory(PropertyItemCategory const & other);
  PropertyItemCategory & operator=(PropertyItemCategory const & other);
  ~PropertyItemCategory() override;
  PROPERTY_ITEM_CLONE(PropertyItemCategory)

  // Appends `item` and takes it over (null is ignored). Returns it.
  PropertyItem * AddPropertyItem(PropertyItem * item);

  bool GetChildrenVisible() const { return mChildrenVisible; }
  void SetChildrenVisible(bool visible) { mChildrenVisible = visible; }
  int GetNumItems() const { return static_cast<int>(mItems.size()); }
  const_iterator begin() const { return mItems.begin(); }
  const_iterator end() const { return mItems.end(); }

private:
  std::vector<PropertyItem *> mItems;
  bool mChildrenVisible = true;
};
