#include "lists/InPlaceEditMoves.h"

#include <algorithm>

std::optional<ListCell> NextEditCell(EditMoveKey key, bool shift, bool control, ListCell from,
                                     int rows, int columns, int perPage) {
  ListCell cell = from;
  switch (key) {
    case EditMoveKey::Tab:
      if (!shift) {
        if (cell.column + 1 < columns) {
          ++cell.column;
        } else if (cell.row + 1 < rows) {
          ++cell.row;
          cell.column = 0;
        }
      } else if (cell.column > 0) {
        --cell.column;
      } else if (cell.row > 0) {
        --cell.row;
        cell.column = columns - 1;
      }
      return cell;
    case EditMoveKey::PageUp: cell.row = std::max(cell.row - perPage + 1, 0); return cell;
    case EditMoveKey::PageDown:
      cell.row = cell.row - 1 + perPage < rows ? cell.row - 1 + perPage : rows - 1;
      return cell;
    case EditMoveKey::Home:
      if (!control) return std::nullopt;
      cell.row = 0;
      return cell;
    case EditMoveKey::End:
      if (!control) return std::nullopt;
      cell.row = rows - 1;
      return cell;
    case EditMoveKey::Up:
      if (cell.row < 1) return std::nullopt;
      --cell.row;
      return cell;
    case EditMoveKey::Down:
      if (cell.row >= rows - 1) return std::nullopt;
      ++cell.row;
      return cell;
    case EditMoveKey::Other: break;
  }
  return std::nullopt;
}
