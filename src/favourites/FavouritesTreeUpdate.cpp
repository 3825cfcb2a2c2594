// The upkeep pass the view runs at idle time. The toolkit asks for it at
// every idle moment, so the pass is one walk over the rows and asks each
// item no more than it must: only file rows look at the disk.

#include <wx/utils.h>

#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouritesTree.h"

void FavouritesTree::UpdateAllItems() {
  if (wxGetMouseState().LeftIsDown() || wxGetMouseState().RightIsDown()) return;
  if (GetEditControl() != nullptr || IsDragging()) return;
  bool changed = false;
  HTREEITEM row = GetRootItem();
  while (row) {
    FavouriteTreeData const * const data = GetTreeData(row);
    if (data == nullptr) {
      // A placeholder stays while it is its folder's only child.
      HTREEITEM const next = GetNextItem(row);
      HTREEITEM const parent = GetParentItem(row);
      if (parent && (GetPrevSiblingItem(row) || GetNextSiblingItem(row))) {
        DeleteItem(row);
        changed = true;
      }
      row = next;
      continue;
    }
    if (auto * const file = dynamic_cast<FavouriteFileItem *>(data->item)) {
      if (!file->Enable()) {
        // A file that has gone leaves the tree only; the manager is not told.
        HTREEITEM next = TVI_NULL;
        for (HTREEITEM up = row; !next && up; up = GetParentItem(up)) next = GetNextSiblingItem(up);
        DeleteItemData(row);
        DeleteItem(row);
        changed = true;
        row = next;
        continue;
      }
    } else if (auto const * const folder = dynamic_cast<FavouriteFolderItem const *>(data->item)) {
      if (!folder->GetTreatAsItem() && !folder->GetEmptyFolderText().empty() &&
          !GetChildItem(row)) {
        HTREEITEM const placeholder = InsertPlaceholder(row, folder->GetEmptyFolderText());
        Expand(row, TVE_EXPAND);
        changed = true;
        row = GetNextItem(placeholder);  // on behind the placeholder
        continue;
      }
    }
    row = GetNextItem(row);
  }
  // Nothing changed, nothing to paint: idle passes cost no repaint.
  if (changed) Invalidate();
}
