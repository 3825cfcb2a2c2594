#include "favourites/FavouriteItemClass.h"

#include <typeinfo>
#include <utility>

#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteItem.h"
#include "favourites/SeparatorItem.h"

FavouriteItemClass::FavouriteItemClass(FavouriteItem const * item) : mItem(item) {
  if (item == nullptr) return;
  // The commonest first: a file holds mostly commands and documents.
  static std::pair<std::type_info const *, Exact> const library[] = {
      {&typeid(FavouriteCommandItem), Exact::kCommand},
      {&typeid(FavouriteFileItem), Exact::kFile},
      {&typeid(FavouriteFolderItem), Exact::kFolder},
      {&typeid(SeparatorItem), Exact::kSeparator},
      {&typeid(FavouriteItemHandle), Exact::kHandle}};
  std::type_info const & type = typeid(*item);
  // A class has one type_info in the process, so its address tells it at
  // once; comparing names (a string compare for each class that differs)
  // is left for a copy of one, which a second copy of the library would
  // make.
  for (auto const & [known, exact] : library) {
    if (&type == known) {
      mExact = exact;
      return;
    }
  }
  for (auto const & [known, exact] : library) {
    if (type == *known) {
      mExact = exact;
      return;
    }
  }
}
