#include "favourites/FavouriteItem.h"

#include <string>

#include "utl/ConfigurationSection.h"

FavouriteItem::~FavouriteItem() = default;

void FavouriteItem::Save(ConfigurationSection * section) const {
  section->WriteKey("Name", mName.wc_str());
  section->WriteKey("Type", GetType().wc_str());
}

void FavouriteItem::Load(ConfigurationSection const * section) {
  std::wstring text;
  if (section->ReadKey("Name", text)) mName = text;
  text.clear();
  if (section->ReadKey("Type", text)) mStoredType = text;
}

bool FavouriteItem::IsGlobal() const { return false; }

bool FavouriteItem::IsDraggable() const { return true; }

bool FavouriteItem::Enable() { return true; }

wxWindow * FavouriteItem::Open() { return nullptr; }

wxString FavouriteItem::GetToolTipText() const { return mName; }

FavouriteItemHandle::FavouriteItemHandle(FavouriteItem const & item) : mItem(item.Copy()) {}

FavouriteItemHandle::FavouriteItemHandle(FavouriteItemHandle const & other)
    : FavouriteItem(other), mItem(other.mItem) {
  // Handing over from a const source is what the handle is for.
  other.mItem = nullptr;  // NOLINT(cert-oop58-cpp)
}

FavouriteItemHandle & FavouriteItemHandle::operator=(FavouriteItemHandle const & other) {
  if (this == &other) return *this;
  FavouriteItem::operator=(other);
  delete mItem;
  mItem = other.mItem;
  other.mItem = nullptr;  // NOLINT(cert-oop58-cpp): the hand-over, as above
  return *this;
}

FavouriteItemHandle & FavouriteItemHandle::operator=(FavouriteItem const & item) {
  if (this == &item) return *this;
  FavouriteItem * const copy = item.Copy();
  delete mItem;
  mItem = copy;
  return *this;
}

FavouriteItemHandle::~FavouriteItemHandle() { delete mItem; }

FavouriteItem * FavouriteItemHandle::Copy() const {
  return mItem != nullptr ? mItem->Copy() : nullptr;
}

wxString FavouriteItemHandle::GetType() const {
  return mItem != nullptr ? mItem->GetType() : wxString();
}
