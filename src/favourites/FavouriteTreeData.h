#pragma once
// The record behind each row of the favourites tree that holds an item: the
// item, which the row owns, and the collection the row belongs to. Rows
// without a record are the placeholders of empty folders.

class FavouriteItem;

struct FavouriteTreeData {
  // What the item is, settled once when the row is made: the idle pass
  // walks every row at each idle moment, and saving every row, and would
  // otherwise ask each item its class.
  enum class Kind { kOther, kFolder, kFile, kSeparator };

  FavouriteTreeData(FavouriteItem * owned, int collection);

  FavouriteItem * item;
  int collectionID;
  Kind kind;
};
