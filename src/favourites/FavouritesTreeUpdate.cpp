// The upkeep pass the view runs at idle time. The toolkit asks for it at
// every idle moment, so the pass is one walk over the rows and asks each
// item no more than it must: only file rows look at the disk.

#include <wx/utils.h>

#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteTreeData.h"
#include "favourites/FavouritesTree.h"

void FavouritesTree::UpdateAllItems() {
  if (GetEditControl() != nullptr || IsDragging()) return;
  // Nothing changes while a button is down. Asking costs a round trip to
  // the display, which on a busy machine waits for the server, so it is
  // asked once, and only when the pass has something to change.
  enum class Buttons { kNotAsked, kUp, kDown } buttons = Buttons::kNotAsked;
  auto const mayChange = [&buttons] {
    if (buttons == Buttons::kNotAsked) {
      wxMouseState const mouse = wxGetMouseState();
      buttons = mouse.LeftIsDown() || mouse.RightIsDown() ? Buttons::kDown : Buttons::kUp;
    }
    return buttons == Buttons::kUp;
  };
  bool changed = false;
  HTREEITEM row = GetRootItem();
  while (row) {
    FavouriteTreeData const * const data = GetTreeData(row);
    if (data == nullptr) {
      // A placeholder stays while it is its folder's only child.
      HTREEITEM const next = GetNextItem(row);
      HTREEITEM const parent = GetParentItem(row);
      if (parent && (GetPrevSiblingItem(row) || GetNextSiblingItem(row))) {
        if (!mayChange()) break;
        DeleteItem(row);
        changed = true;
      }
      row = next;
      continue;
    }
    // The row's kind was settled when it was made: no class test per row.
    if (data->kind == FavouriteTreeData::Kind::kFolder) {
      auto const * const folder = static_cast<FavouriteFolderItem const *>(data->item);
      if (!folder->GetTreatAsItem() && !folder->GetEmptyFolderText().empty() &&
          !GetChildItem(row)) {
        if (!mayChange()) break;
        HTREEITEM const placeholder = InsertPlaceholder(row, folder->GetEmptyFolderText());
        Expand(row, TVE_EXPAND);
        changed = true;
        row = GetNextItem(placeholder);  // on behind the placeholder
        continue;
      }
    } else if (data->kind == FavouriteTreeData::Kind::kFile && !data->item->Enable()) {
      if (!mayChange()) break;
      // A file that has gone leaves the tree only; the manager is not told.
      HTREEITEM next = TVI_NULL;
      for (HTREEITEM up = row; !next && up; up = GetParentItem(up)) next = GetNextSiblingItem(up);
      DeleteItemData(row);
      DeleteItem(row);
      changed = true;
      row = next;
      continue;
    }
    row = GetNextItem(row);
  }
  // Nothing changed, nothing to paint: idle passes cost no repaint.
  if (changed) Invalidate();
}
