#pragma once
// The two-entry lists of a switch: index 0 is off, and any other index reads
// as on. Their texts are translated when the item is made.
//
//   PropertyItemListYesNo            "No"       "Yes"
//   PropertyItemListEnabledDisabled  "Disabled" "Enabled"
//   PropertyItemListTrueFalse        "False"    "True"

#include "properties/PropertyItemList.h"

// What the three share: two texts and the switch accessors.
class PropertyItemListBool : public PropertyItemList {
public:
  PROPERTY_ITEM_CLONE(PropertyItemListBool)

  std::uint64_t GetNumItems() override { return 2; }
  wxString GetItemData(std::uint64_t index) override;

  using PropertyItemList::SetData;
  // Selects 1 for true, 0 for false.
  void SetData(bool on) { mSelected = on ? 1 : 0; }
  using PropertyItemList::GetData;
  void GetData(bool & on) const { on = mSelected != 0; }

protected:
  PropertyItemListBool(wchar_t const * name, unsigned id, wchar_t const * description,
                       wxString const & off, wxString const & on);
  PropertyItemListBool(unsigned nameId, unsigned id, unsigned descriptionId, wxString const & off,
                       wxString const & on);

private:
  wxString mTexts[2];
};

class PropertyItemListYesNo : public PropertyItemListBool {
public:
  PropertyItemListYesNo(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemListYesNo(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemListYesNo)

  using PropertyItemListBool::GetData;
  bool GetData() const { return mSelected != 0; }
};

class PropertyItemListEnabledDisabled : public PropertyItemListBool {
public:
  PropertyItemListEnabledDisabled(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemListEnabledDisabled(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemListEnabledDisabled)
};

class PropertyItemListTrueFalse : public PropertyItemListBool {
public:
  PropertyItemListTrueFalse(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemListTrueFalse(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemListTrueFalse)
};
