#pragma once
// A purely visual row between two collections in the favourites tree.
// Separators are never stored or copied: Save and Load do nothing, Copy is
// null, and the type is not registered with FavouriteBuilder.

#include "favourites/FavouriteItem.h"

class SeparatorItem : public FavouriteItem {
public:
  SeparatorItem() = default;

  void Save(ConfigurationSection * section) const override;
  void Load(ConfigurationSection const * section) override;
  FavouriteItem * Copy() const override;
  wxString GetType() const override;
  bool IsGlobal() const override;
  bool IsDraggable() const override;

  static constexpr char const * kType = "SeparatorItem";
};
