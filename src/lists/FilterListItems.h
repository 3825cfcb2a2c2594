#pragma once
// What the filter popup picks from: a caller's numbered texts. The caller
// implements it over its own data; the popup asks for the count once and
// for each text once a filtering, and for the texts of the rows on screen.

#include <cstdint>
#include <string>

class FilterListItems {
public:
  FilterListItems() = default;
  FilterListItems(FilterListItems const &) = default;
  FilterListItems & operator=(FilterListItems const &) = default;
  virtual ~FilterListItems() = default;

  virtual uint64_t GetCount() const = 0;
  // The UTF-8 text of item `index` (below GetCount()).
  virtual std::string GetText(uint64_t index) const = 0;
};
