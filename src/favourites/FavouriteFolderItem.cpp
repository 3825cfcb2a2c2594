#include "favourites/FavouriteFolderItem.h"

#include <string>

#include "favourites/FavouriteBuilder.h"
#include "utl/ConfigurationSection.h"

FavouriteFolderItem::FavouriteFolderItem(wchar_t const * name, wchar_t const * emptyFolderText) {
  SetName(name);
  SetEmptyFolderText(emptyFolderText);
}

FavouriteFolderItem::FavouriteFolderItem() { FavouriteBuilder::Instance()->Add(kType, this); }

void FavouriteFolderItem::Save(ConfigurationSection * section) const {
  FavouriteItem::Save(section);
  section->WriteBool("TreatAsItem", mTreatAsItem);
  section->WriteKey("EmptyFolderText", mEmptyFolderText.wc_str());
  section->WriteKey("DefaultItemType", mDefaultItemType.wc_str());
}

void FavouriteFolderItem::Load(ConfigurationSection const * section) {
  FavouriteItem::Load(section);
  section->ReadBool("TreatAsItem", mTreatAsItem);
  std::wstring text;
  if (section->ReadKey("EmptyFolderText", text)) mEmptyFolderText = text;
  text.clear();
  if (section->ReadKey("DefaultItemType", text)) mDefaultItemType = text;
}

FavouriteItem * FavouriteFolderItem::Copy() const { return new FavouriteFolderItem(*this); }

wxString FavouriteFolderItem::GetType() const {
  // Asked for every row drawn or loaded: converted once.
  static wxString const type = wxString::FromAscii(kType);
  return type;
}

bool FavouriteFolderItem::IsGlobal() const { return true; }
