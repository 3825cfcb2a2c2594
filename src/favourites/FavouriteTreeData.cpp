#include "favourites/FavouriteTreeData.h"

#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteItemClass.h"
#include "favourites/SeparatorItem.h"

namespace {

FavouriteTreeData::Kind KindOf(FavouriteItem const * item) {
  FavouriteItemClass const itemClass(item);
  if (itemClass.As<FavouriteFolderItem>() != nullptr) return FavouriteTreeData::Kind::kFolder;
  if (itemClass.As<FavouriteFileItem>() != nullptr) return FavouriteTreeData::Kind::kFile;
  if (itemClass.As<SeparatorItem>() != nullptr) return FavouriteTreeData::Kind::kSeparator;
  return FavouriteTreeData::Kind::kOther;
}

}  // namespace

FavouriteTreeData::FavouriteTreeData(FavouriteItem * owned, int collection)
    : item(owned), collectionID(collection), kind(KindOf(owned)) {}
