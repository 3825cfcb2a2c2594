#pragma once
// What a drag selection changes: the rows whose selected state differs
// from the wanted one, so that only those are touched.

#include <vector>

struct RowSelectionChange {
  int row;
  bool select;
  bool operator==(RowSelectionChange const & other) const {
    return row == other.row && select == other.select;
  }
};

// The changes that make the selection of a list of `count` rows equal the
// closed range first..last (either order) united with `extra`, which is
// read with one cursor and so must be ascending. `selected` lists the rows
// selected now, in any order.
std::vector<RowSelectionChange> SelectionChanges(int count, std::vector<int> const & selected,
                                                 int first, int last,
                                                 std::vector<int> const & extra);
