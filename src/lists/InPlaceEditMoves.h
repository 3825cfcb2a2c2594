#pragma once
// Where the cell editor goes on a key: Tab through the cells, Page Up and
// Down, Ctrl+Home and Ctrl+End, the arrows up and down.

#include <optional>

struct ListCell {
  int row;
  int column;
  bool operator==(ListCell const & other) const {
    return row == other.row && column == other.column;
  }
};

enum class EditMoveKey { Tab, PageUp, PageDown, Home, End, Up, Down, Other };

// The cell to edit next from `from` in a table of `rows` x `columns` with
// `perPage` rows on a page; nothing when the key is left to the edit
// itself (Home and End without Ctrl, Up on the first row, Down on the last,
// any other key). Tab at either end of the table reopens the same cell.
std::optional<ListCell> NextEditCell(EditMoveKey key, bool shift, bool control, ListCell from,
                                     int rows, int columns, int perPage);
