#include "favourites/FavouriteBuilder.h"

#include <string>

#include "utl/ConfigurationSection.h"

FavouriteBuilder * FavouriteBuilder::Instance() {
  static FavouriteBuilder instance;
  return &instance;
}

void FavouriteBuilder::Add(wxString const & type, FavouriteItem const * prototype) {
  if (prototype == nullptr) return;
  mPrototypes[type] = *prototype;
}

FavouriteItem * FavouriteBuilder::Load(ConfigurationSection * section) const {
  std::wstring type;
  if (section == nullptr || !section->ReadKey("Type", type)) return nullptr;
  auto const found = mPrototypes.find(wxString(type));
  if (found == mPrototypes.end()) return nullptr;
  FavouriteItem * const item = found->second.Copy();
  if (item != nullptr) item->Load(section);
  return item;
}
