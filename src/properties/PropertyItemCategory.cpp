#include "properties/PropertyItemCategory.h"

PropertyItemCategory::PropertyItemCategory(wchar_t const * name, unsigned id,
                                           wchar_t const * description)
    : PropertyItem(name, id, description) {}

PropertyItemCategory::PropertyItemCategory(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItem(nameId, id, descriptionId) {}

PropertyItemCategory::PropertyItemCategory(PropertyItemCategory const & other)
    : PropertyItem(other), mChildrenVisible(other.mChildrenVisible) {
  mItems.reserve(other.mItems.size());
  for (PropertyItem const * item : other.mItems) mItems.push_back(item->Clone());
}

PropertyItemCategory & PropertyItemCategory::operator=(PropertyItemCategory const & other) {
  if (this == &other) return *this;
  PropertyItemCategory copy(other);
  PropertyItem::operator=(other);
  mItems.swap(copy.mItems);
  mChildrenVisible = other.mChildrenVisible;
  return *this;
}

PropertyItemCategory::~PropertyItemCategory() {
  for (PropertyItem * item : mItems) delete item;
}

PropertyItem * PropertyItemCategory::AddPropertyItem(PropertyItem * item) {
  if (item != nullptr) mItems.push_back(item);
  return item;
}
