// Favourites files from anywhere: a file the section refuses builds nothing;
// every row of a file it reads is either no item or an item that saves and
// rebuilds as the same type.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "favourites/FavouriteBuilder.h"
#include "utl/Exception.h"
#include "utl/XercesXMLSection.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  std::unique_ptr<XercesXMLSection> file;
  try {
    file.reset(XercesXMLSection::CreateXMLSectionFromString(input.c_str()));
  } catch (Exception const &) {
    return 0;
  }
  std::unique_ptr<ConfigurationSection> const root(file->CopyAndChangeSubSection("Favourites"));
  if (!root) return 0;
  std::unique_ptr<std::vector<boost::shared_ptr<ConfigurationSection>>> const rows(
      root->GetAllSubSections("FavouriteItem"));
  for (auto const & row : *rows) {
    std::unique_ptr<FavouriteItem> const item(FavouriteBuilder::Instance()->Load(row.get()));
    if (!item) continue;
    XercesXMLSection saved;
    std::unique_ptr<ConfigurationSection> const target(saved.CreateSubSection("FavouriteItem", 1));
    item->Save(target.get());
    std::unique_ptr<FavouriteItem> const again(FavouriteBuilder::Instance()->Load(target.get()));
    if (!again || again->GetType() != item->GetType()) __builtin_trap();
  }
  return 0;
}
