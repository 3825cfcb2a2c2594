// Moving rows: the four move commands, copies made by the base's drag and
// drop, and what may be dragged where.

#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"

HTREEITEM FavouritesTree::MoveItem(HTREEITEM item, HTREEITEM parent, HTREEITEM after) {
  if (!IsValidItem(item)) return TVI_NULL;
  SetRedraw(0);
  HTREEITEM moved = TVI_NULL;
  if (GetChildItem(item)) {
    bool const expanded = GetItemState(item, TVIS_EXPANDED) != 0;
    moved = CopyBranch(item, parent ? parent : TVI_ROOT, after);
    if (expanded) Expand(moved, TVE_EXPAND);
  } else {
    moved = CopyItem(item, parent ? parent : TVI_ROOT, after);
  }
  // The copies hold copies of the items: the source's records go with it.
  DeleteItemData(item);
  DeleteItem(item);
  ClearSelection();
  SetItemState(moved, TVIS_SELECTED, TVIS_SELECTED);
  Select(moved, TVGN_CARET);
  SetRedraw(1);
  return moved;
}

void FavouritesTree::OnFavouriteItemMoveUp() {
  HTREEITEM const row = GetFirstSelectedItem();
  HTREEITEM const previous = GetPrevSiblingItem(row);
  if (!previous) return;
  if (HTREEITEM const before = GetPrevSiblingItem(previous))
    MoveItem(row, GetParentItem(before), before);
  else
    MoveItem(row, GetParentItem(row), TVI_FIRST);
}

void FavouritesTree::OnFavouriteItemMoveDown() {
  HTREEITEM const row = GetFirstSelectedItem();
  if (!row) return;
  if (HTREEITEM const next = GetNextSiblingItem(row)) {
    MoveItem(row, GetParentItem(next), next);
  } else if (HTREEITEM const parent = GetParentItem(row)) {
    // The last child moves out, behind its parent.
    MoveItem(row, GetParentItem(parent), parent);
  }
}

void FavouritesTree::OnFavouriteItemMoveLeft() {
  HTREEITEM const row = GetFirstSelectedItem();
  HTREEITEM const parent = GetParentItem(row);
  if (parent) MoveItem(row, GetParentItem(parent), parent);
}

void FavouritesTree::OnFavouriteItemMoveRight() {
  HTREEITEM const row = GetFirstSelectedItem();
  HTREEITEM const previous = GetPrevSiblingItem(row);
  if (IsTrueFolderNode(previous)) MoveItem(row, previous, TVI_LAST);
}

void FavouritesTree::OnItemCopied(HTREEITEM source, HTREEITEM copy) {
  FavouriteTreeData const * const old = GetTreeData(source);
  if (old == nullptr || old->item == nullptr) {
    SetItemData(copy, 0);
    return;
  }
  int id = old->collectionID;
  if (FavouriteTreeData const * const parent = GetTreeData(GetParentItem(copy)))
    id = parent->collectionID;
  SetItemData(copy, reinterpret_cast<DWORD_PTR>(new FavouriteTreeData(old->item->Copy(), id)));
  if (id != old->collectionID) NotifyChanged(id);
  NotifyChanged(old->collectionID);
}

bool FavouritesTree::IsDropSource(HTREEITEM row) {
  return GetSelectedItemCount() < 2 && GetTreeData(row) != nullptr;
}

HTREEITEM FavouritesTree::GetDropTarget(HTREEITEM target, bool & asChild) {
  HTREEITEM const dragged = GetDragItem();
  FavouriteTreeData const * const source = GetTreeData(dragged);
  if (!target || source == nullptr || source->item == nullptr || !source->item->IsDraggable())
    return TVI_NULL;
  FavouriteTreeData const * targetData = GetTreeData(target);
  if (targetData == nullptr) targetData = GetTreeData(GetParentItem(target));
  if (targetData == nullptr) return TVI_NULL;

  bool global = source->item->IsGlobal();
  if (dynamic_cast<FavouriteFolderItem const *>(source->item) != nullptr) {
    global = true;
    HTREEITEM end = TVI_NULL;
    for (HTREEITEM up = dragged; !end && up; up = GetParentItem(up)) end = GetNextSiblingItem(up);
    for (HTREEITEM row = GetChildItem(dragged); row && row != end; row = GetNextItem(row)) {
      FavouriteItem const * const inside = GetFavouriteItem(row);
      if (inside != nullptr && !inside->IsDraggable()) return TVI_NULL;
    }
  }
  if (!global && targetData->collectionID != source->collectionID) return TVI_NULL;
  if (target == dragged || target == GetParentItem(dragged)) return TVI_NULL;
  for (HTREEITEM up = GetParentItem(target); up; up = GetParentItem(up))
    if (up == dragged) return TVI_NULL;
  asChild =
      IsFolderNode(target) && (GetItemState(target, TVIS_EXPANDED) != 0 || !GetChildItem(target));
  return target;
}
