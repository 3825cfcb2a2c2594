#include "properties/PropertyItemListBool.h"

#include "utl/Translation.h"

PropertyItemListBool::PropertyItemListBool(wchar_t const * name, unsigned id,
                                           wchar_t const * description, wxString const & off,
                                           wxString const & on)
    : PropertyItemList(name, id, description), mTexts{off, on} {}

PropertyItemListBool::PropertyItemListBool(unsigned nameId, unsigned id, unsigned descriptionId,
                                           wxString const & off, wxString const & on)
    : PropertyItemList(nameId, id, descriptionId), mTexts{off, on} {}

wxString PropertyItemListBool::GetItemData(std::uint64_t index) {
  return index < 2 ? mTexts[index] : wxString();
}

// Each constructor translates its texts itself, so that the catalog has them.
PropertyItemListYesNo::PropertyItemListYesNo(wchar_t const * name, unsigned id,
                                             wchar_t const * description)
    : PropertyItemListBool(name, id, description, vx3::Tr("No"), vx3::Tr("Yes")) {}

PropertyItemListYesNo::PropertyItemListYesNo(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItemListBool(nameId, id, descriptionId, vx3::Tr("No"), vx3::Tr("Yes")) {}

PropertyItemListEnabledDisabled::PropertyItemListEnabledDisabled(wchar_t const * name, unsigned id,
                                                                 wchar_t const * description)
    : PropertyItemListBool(name, id, description, vx3::Tr("Disabled"), vx3::Tr("Enabled")) {}

PropertyItemListEnabledDisabled::PropertyItemListEnabledDisabled(unsigned nameId, unsigned id,
                                                                 unsigned descriptionId)
    : PropertyItemListBool(nameId, id, descriptionId, vx3::Tr("Disabled"), vx3::Tr("Enabled")) {}

PropertyItemListTrueFalse::PropertyItemListTrueFalse(wchar_t const * name, unsigned id,
                                                     wchar_t const * description)
    : PropertyItemListBool(name, id, description, vx3::Tr("False"), vx3::Tr("True")) {}

PropertyItemListTrueFalse::PropertyItemListTrueFalse(unsigned nameId, unsigned id,
                                                     unsigned descriptionId)
    : PropertyItemListBool(nameId, id, descriptionId, vx3::Tr("False"), vx3::Tr("True")) {}
