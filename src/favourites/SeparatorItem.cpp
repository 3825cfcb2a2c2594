#include "favourites/SeparatorItem.h"

void SeparatorItem::Save(ConfigurationSection * /*section*/) const {}

void SeparatorItem::Load(ConfigurationSection const * /*section*/) {}

FavouriteItem * SeparatorItem::Copy() const { return nullptr; }

wxString SeparatorItem::GetType() const { return kType; }

bool SeparatorItem::IsGlobal() const { return true; }

bool SeparatorItem::IsDraggable() const { return false; }
