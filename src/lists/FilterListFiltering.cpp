#include "lists/FilterListFiltering.h"

#include <exception>

#include "lists/FilterListItems.h"
#include "utl/FilterMatcher.h"

namespace {

uint64_t CountOf(FilterListItems const * items) {
  if (items == nullptr) return 0;
  try {
    return items->GetCount();
  } catch (std::exception const &) {
    return 0;  // a caller that cannot count shows nothing
  }
}

bool Passes(FilterListItems const & items, FilterMatcher const & matcher, uint64_t index) {
  try {
    return matcher.MatchString(items.GetText(index));
  } catch (std::exception const &) {
    return false;  // one unreadable item must not cost the others
  }
}

}  // namespace

FilteredRows FilterItems(FilterListItems const * items, std::string const & filter,
                         uint64_t initial, std::vector<uint64_t> const & carried) {
  FilteredRows rows;
  rows.total = CountOf(items);
  if (rows.total == 0) return rows;
  FilterMatcher const matcher(filter);
  auto next = carried.begin();  // carried and passing items both ascend
  for (uint64_t i = 0; i < rows.total && rows.visible.size() < kMaxFilterRows; ++i) {
    if (i != initial && !Passes(*items, matcher, i)) continue;
    while (next != carried.end() && *next < i) ++next;
    if (i == initial || (next != carried.end() && *next == i))
      rows.selected.push_back(static_cast<int>(rows.visible.size()));
    rows.visible.push_back(i);
  }
  return rows;
}
