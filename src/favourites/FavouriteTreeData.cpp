#include "favourites/FavouriteTreeData.h"

#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"

namespace {

FavouriteTreeData::Kind KindOf(FavouriteItem const * item) {
  if (dynamic_cast<FavouriteFolderItem const *>(item) != nullptr)
    return FavouriteTreeData::Kind::kFolder;
  if (dynamic_cast<FavouriteFileItem const *>(item) != nullptr)
    return FavouriteTreeData::Kind::kFile;
  return FavouriteTreeData::Kind::kOther;
}

}  // namespace

FavouriteTreeData::FavouriteTreeData(FavouriteItem * owned, int collection)
    : item(owned), collectionID(collection), kind(KindOf(owned)) {}
