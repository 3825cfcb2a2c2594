#include "favourites/SeparatorItem.h"

void SeparatorItem::Save(ConfigurationSection * /*section*/) const {}

void SeparatorItem::Load(ConfigurationSection const * /*section*/) {}

FavouriteItem * SeparatorItem::Copy() const { return nullptr; }

wxString SeparatorItem::GetType() const {
  // Asked for every row drawn or loaded: converted once.
  static wxString const type = wxString::FromAscii(kType);
  return type;
}

bool SeparatorItem::IsGlobal() const { return true; }

bool SeparatorItem::IsDraggable() const { return false; }
