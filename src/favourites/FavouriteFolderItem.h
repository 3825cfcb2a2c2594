#pragma once
// A folder of further favourites in the tree.

#include "favourites/FavouriteItem.h"

class FavouriteFolderItem : public FavouriteItem {
public:
  FavouriteFolderItem(wchar_t const * name, wchar_t const * emptyFolderText);

  // The base keys, then "TreatAsItem", "EmptyFolderText", "DefaultItemType".
  void Save(ConfigurationSection * section) const override;
  void Load(ConfigurationSection const * section) override;
  FavouriteItem * Copy() const override;
  wxString GetType() const override;
  bool IsGlobal() const override;

  // The folder behaves as one item.
  bool GetTreatAsItem() const { return mTreatAsItem; }
  void SetTreatAsItem(bool treatAsItem) { mTreatAsItem = treatAsItem; }
  // The placeholder row's text while the folder has no children.
  wxString const & GetEmptyFolderText() const { return mEmptyFolderText; }
  void SetEmptyFolderText(wchar_t const * text) { mEmptyFolderText = text != nullptr ? text : L""; }
  // The type key of the items that by default land here.
  wxString const & GetDefaultItemType() const { return mDefaultItemType; }
  void SetDefaultItemType(wchar_t const * type) { mDefaultItemType = type != nullptr ? type : L""; }

  static constexpr char const * kType = "FavouritesFolder";

protected:
  // The prototype registered with FavouriteBuilder.
  FavouriteFolderItem();

private:
  bool mTreatAsItem = false;
  wxString mEmptyFolderText;
  wxString mDefaultItemType;
};
