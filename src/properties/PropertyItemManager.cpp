#include "properties/PropertyItemManager.h"

#include "properties/PropertyItemCategory.h"

PropertyItemManager::PropertyItemManager() = default;

PropertyItemManager::~PropertyItemManager() = default;

void PropertyItemManager::OnDataChanged(PropertyItem * /*item*/, PropertyListCtrl * /*list*/,
                                        int /*index*/) {}

PropertyItemCategory * PropertyItemManager::AddPropertyCategory(wchar_t const * name,
                                                                wchar_t const * description,
                                                                bool childrenVisible) {
  auto category = std::make_unique<PropertyItemCategory>(name, 0, description);
  category->SetChildrenVisible(childrenVisible);
  mCategories.push_back(std::move(category));
  return mCategories.back().get();
}

PropertyItemCategory * PropertyItemManager::AddPropertyCategory(unsigned nameId,
                                                                unsigned descriptionId,
                                                                bool childrenVisible) {
  auto category = std::make_unique<PropertyItemCategory>(nameId, 0, descriptionId);
  category->SetChildrenVisible(childrenVisible);
  mCategories.push_back(std::move(category));
  return mCategories.back().get();
}

PropertyItemCategory * PropertyItemManager::GetPropertyCategory(int index) const {
  if (index < 0 || static_cast<size_t>(index) >= mCategories.size()) return nullptr;
  return mCategories[static_cast<size_t>(index)].get();
}
