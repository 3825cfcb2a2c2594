#pragma once
// The process's factory of favourites: rebuilds an item from its stored
// section by the section's "Type", from a table of prototypes registered by
// type key (the command, file and folder items register themselves while
// the library loads; FavouritePrototypes.cpp).

#include <map>

#include <wx/string.h>

#include "favourites/FavouriteItem.h"

class ConfigurationSection;

class FavouriteBuilder {
public:
  // The one instance, made on first use and destroyed at process exit.
  static FavouriteBuilder * Instance();

  // Stores prototype->Copy() under `type`, replacing (and deleting) what
  // was there.
  void Add(wxString const & type, FavouriteItem const * prototype);
  // A new item of the section's "Type" loaded from the section; the caller
  // owns it. Null, without a message, when "Type" is missing or names no
  // registered type (unknown, empty, "SeparatorItem").
  FavouriteItem * Load(ConfigurationSection * section) const;

private:
  FavouriteBuilder() = default;

  // Type keys compared case-sensitively.
  std::map<wxString, FavouriteItemHandle> mPrototypes;
};
