#pragma once
// The model of a property grid: the categories, each owning its items, in
// the order the list shows them. An application derives its manager from
// this class; it is told of every value the user commits (OnDataChanged) and
// moves values between the items and its own objects (LoadProperties,
// StoreProperties, which it provides and calls itself). The manager
// outlives the PropertyListCtrl that shows it.

#include <memory>
#include <vector>

class PropertyItem;
class PropertyItemCategory;
class PropertyListCtrl;

class PropertyItemManager {
public:
  PropertyItemManager();
  PropertyItemManager(PropertyItemManager const &) = delete;
  PropertyItemManager & operator=(PropertyItemManager const &) = delete;
  virtual ~PropertyItemManager();

  // `item`, shown in row `index` of `list`, has taken a new value. Nothing
  // here.
  virtual void OnDataChanged(PropertyItem * item, PropertyListCtrl * list, int index);
  // Fills the items from the application's objects.
  virtual void LoadProperties() = 0;
  // Puts the items' values back into the application's objects.
  virtual void StoreProperties() = 0;

  // Makes a category (texts, or string resources), appends it and returns
  // it; the manager owns it.
  PropertyItemCategory * AddPropertyCategory(wchar_t const * name, wchar_t const * description,
                                             bool childrenVisible);
  PropertyItemCategory * AddPropertyCategory(unsigned nameId, unsigned descriptionId,
                                             bool childrenVisible);
  // Category `index`, or null outside the list.
  PropertyItemCategory * GetPropertyCategory(int index) const;
  int GetNumCategories() const { return static_cast<int>(mCategories.size()); }

  // Shows the categories in `list`: its editor and rows go, then each
  // category is inserted, followed by its items when they are visible. The
  // rows point at the items; nothing is copied.
  void InitControl(PropertyListCtrl * list);

private:
  std::vector<std::unique_ptr<PropertyItemCategory>> mCategories;
};
