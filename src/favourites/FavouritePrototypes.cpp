// The prototypes of the stored favourite types: statics of the library, made
// while it loads, in this order. Each registers a copy of itself with
// FavouriteBuilder from its default constructor. SeparatorItem has none: a
// stored separator row is not rebuilt.

#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"

namespace {

struct CommandPrototype : FavouriteCommandItem {
  CommandPrototype() : FavouriteCommandItem() {}
};
struct FilePrototype : FavouriteFileItem {
  FilePrototype() : FavouriteFileItem() {}
};
struct FolderPrototype : FavouriteFolderItem {
  FolderPrototype() : FavouriteFolderItem() {}
};

CommandPrototype const gCommandPrototype;
FilePrototype const gFilePrototype;
FolderPrototype const gFolderPrototype;

}  // namespace
