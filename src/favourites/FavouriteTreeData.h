#pragma once
// The record behind each row of the favourites tree that holds an item: the
// item, which the row owns, and the collection the row belongs to. Rows
// without a record are the placeholders of empty folders.

class FavouriteItem;

struct FavouriteTreeData {
  FavouriteTreeData(FavouriteItem * owned, int collection)
      : item(owned), collectionID(collection) {}

  FavouriteItem * item;
  int collectionID;
};
