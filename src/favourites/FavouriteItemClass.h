#pragma once
// Which of the library's item classes an item is, told cheaply. Loading a
// file classes every row for its record and again for its icons; a
// dynamic_cast searches the class tree and, where it fails, costs as much
// as reading a key. An item of exactly one of the library's classes (nearly
// every row) is known by one look at its type_info; any other class, an
// application's own, is still searched, so it is classed as a dynamic_cast
// would class it.

#include <type_traits>

class FavouriteItem;
class FavouriteCommandItem;
class FavouriteFileItem;
class FavouriteFolderItem;
class FavouriteItemHandle;
class SeparatorItem;

class FavouriteItemClass {
public:
  explicit FavouriteItemClass(FavouriteItem const * item);

  // The item as a T, null when it is none. T is one of the library's item
  // classes.
  template <class T>
  T const * As() const {
    if (mExact == Exact::kNone) return dynamic_cast<T const *>(mItem);
    return mExact == ExactOf<T>() ? static_cast<T const *>(mItem) : nullptr;
  }
  // The item is of one of those classes itself, not of a class derived
  // from one: its GetType is then that class's own.
  bool IsLibraryClass() const { return mExact != Exact::kNone; }

private:
  enum class Exact { kNone, kCommand, kFile, kFolder, kSeparator, kHandle };
  template <class T>
  static constexpr Exact ExactOf() {
    if constexpr (std::is_same_v<T, FavouriteCommandItem>)
      return Exact::kCommand;
    else if constexpr (std::is_same_v<T, FavouriteFileItem>)
      return Exact::kFile;
    else if constexpr (std::is_same_v<T, FavouriteFolderItem>)
      return Exact::kFolder;
    else if constexpr (std::is_same_v<T, SeparatorItem>)
      return Exact::kSeparator;
    else if constexpr (std::is_same_v<T, FavouriteItemHandle>)
      return Exact::kHandle;
    else
      static_assert(!std::is_same_v<T, T>, "not one of the library's item classes");
  }

  FavouriteItem const * mItem;
  Exact mExact = Exact::kNone;
};
