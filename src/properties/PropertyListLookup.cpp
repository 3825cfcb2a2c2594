#include "properties/PropertyListLookup.h"

#include <unicode/uchar.h>

#include "properties/PropertyItem.h"
#include "properties/PropertyListCtrl.h"

namespace {

bool StartsWith(PropertyItem const * item, UChar32 folded) {
  if (item == nullptr || item->GetName().empty()) return false;
  auto const first = static_cast<UChar32>(item->GetName()[0]);
  return u_foldCase(first, U_FOLD_CASE_DEFAULT) == folded;
}

}  // namespace

int FindPropertyRowByLetter(std::vector<PropertyItem *> const & rows, int selected, wchar_t key) {
  int const count = static_cast<int>(rows.size());
  int start = selected + 1;
  if (start < 0 || start >= count) start = 0;
  UChar32 const folded = u_foldCase(static_cast<UChar32>(key), U_FOLD_CASE_DEFAULT);
  for (int row = start; row < count; ++row)
    if (StartsWith(rows[static_cast<size_t>(row)], folded)) return row;
  for (int row = 0; row < start; ++row)
    if (StartsWith(rows[static_cast<size_t>(row)], folded)) return row;
  return -1;
}

bool PropertyListCtrl::LookupPropertyItem(wchar_t key) {
  int const row = FindPropertyRowByLetter(mRows, GetSelection(), key);
  if (row < 0) return false;
  SetCurSel(row);
  return true;
}
