#include "lists/ListSelectionChange.h"

#include <algorithm>
#include <set>

std::vector<RowSelectionChange> SelectionChanges(int count, std::vector<int> const & selected,
                                                 int first, int last,
                                                 std::vector<int> const & extra) {
  if (first > last) std::swap(first, last);
  std::set<int> const now(selected.begin(), selected.end());
  std::vector<RowSelectionChange> changes;
  size_t cursor = 0;
  for (int row = 0; row < count; ++row) {
    bool wanted = first <= row && row <= last;
    while (cursor < extra.size() && extra[cursor] < row) ++cursor;
    if (cursor < extra.size() && extra[cursor] == row) wanted = true;
    if (wanted != (now.count(row) != 0)) changes.push_back({row, wanted});
  }
  return changes;
}
