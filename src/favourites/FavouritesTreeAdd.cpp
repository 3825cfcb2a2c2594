// Where a new favourite lands, new folders and deleting rows.

#include <algorithm>
#include <set>

#include <boost/format.hpp>

#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"

HTREEITEM FavouritesTree::GetDefaultParent(wchar_t const * type, int id) const {
  HTREEITEM firstRow = TVI_NULL;
  HTREEITEM firstFolder = TVI_NULL;
  wxString const wanted(type != nullptr ? type : L"");
  for (HTREEITEM row = GetRootItem(); row; row = GetNextItem(row)) {
    FavouriteTreeData const * const data = GetTreeData(row);
    if (data == nullptr || data->collectionID != id) continue;
    if (!firstRow) firstRow = row;
    auto const * const folder = dynamic_cast<FavouriteFolderItem const *>(data->item);
    if (folder == nullptr) continue;
    if (folder->GetDefaultItemType() == wanted) return row;
    if (!firstFolder) firstFolder = row;
  }
  if (firstFolder) return firstFolder;
  return firstRow ? GetParentItem(firstRow) : TVI_NULL;
}

void FavouritesTree::AddToFavourites(FavouriteItem * item) {
  if (item == nullptr) return;
  HTREEITEM selected = GetFirstSelectedItem();
  int const collection = GetDefaultCollectionID(selected);
  int wanted = collection;
  if (mManager != nullptr && !mManager->OnAddToFavourites(item, wanted)) return;
  wxString const type = item->GetType();
  if (!selected) selected = GetDefaultParent(type.wc_str(), wanted);

  HTREEITEM parent = TVI_NULL;
  HTREEITEM after = TVI_LAST;
  int id = collection;
  if (wanted != collection) {
    parent = GetDefaultParent(type.wc_str(), wanted);
    id = wanted;
  } else if (IsTrueFolderNode(selected)) {
    bool const collapsed = GetChildItem(selected) && GetItemState(selected, TVIS_EXPANDED) == 0;
    parent = collapsed ? GetParentItem(selected) : selected;
    after = collapsed ? selected : TVI_LAST;
  } else if (selected) {
    parent = GetParentItem(selected);
    after = selected;
  }

  // One row for one file under one parent: the old row is selected.
  if (auto const * const file = dynamic_cast<FavouriteFileItem const *>(item)) {
    HTREEITEM end = TVI_NULL;
    for (HTREEITEM up = parent; !end && up; up = GetParentItem(up)) end = GetNextSiblingItem(up);
    for (HTREEITEM row = parent ? GetChildItem(parent) : GetRootItem(); row && row != end;
         row = GetNextItem(row)) {
      auto const * const other = dynamic_cast<FavouriteFileItem const *>(GetFavouriteItem(row));
      if (other == nullptr || other->GetFileName().CmpNoCase(file->GetFileName()) != 0) continue;
      ClearSelection();
      SetItemState(row, TVIS_SELECTED, TVIS_SELECTED);
      Select(row, TVGN_CARET);
      // The tree took the item over: the refused one is freed here.
      delete item;
      return;
    }
  }

  ClearSelection();
  HTREEITEM const row = InsertRow(item, id, parent, after);
  SetItemState(row, TVIS_SELECTED, TVIS_SELECTED);
  Select(row, TVGN_CARET);
  EnsureVisible(row);
  if (dynamic_cast<FavouriteFolderItem const *>(item) != nullptr) EditRow(row);
  NotifyChanged(id);
}

void FavouritesTree::OnFavouritesNewfolder() {
  wxString name = vx3::Tr("New Folder");
  // FindItem matches parts of labels in any case, so a lone "New Folder (2)"
  // moves the count on past it too.
  for (int number = 2; FindItem(name.wc_str(), false, true, false, GetRootItem()); ++number)
    name = wxString::FromUTF8(
        (boost::format(vx3::Tr("New Folder (%1%)").utf8_string()) % number).str());
  AddToFavourites(new FavouriteFolderItem(name.wc_str(), nullptr));
}

void FavouritesTree::OnFavouritesDelete() { DeleteSelectedItems(true); }

void FavouritesTree::DeleteSelectedItems(bool ask) {
  std::set<int> collections;  // ascending, without duplicates
  for (HTREEITEM row = GetFirstSelectedItem(); row; row = GetNextSelectedItem(row)) {
    if (FavouriteTreeData const * const data = GetTreeData(row))
      collections.insert(data->collectionID);
    if (CanDeleteItem(row)) continue;
    Invalidate();
    AfxMessageBox(wxString::FromUTF8(
                      (boost::format(vx3::Tr("The item '%1%' cannot be deleted.").utf8_string()) %
                       GetItemText(row).utf8_string())
                          .str()),
                  MB_OK | MB_ICONEXCLAMATION);
    SetItemState(row, 0, TVIS_SELECTED | 1U);
    SetFocus();
    Invalidate();
    break;
  }
  VxTreeCtrl::DeleteSelectedItems(ask);
  for (int const id : collections) NotifyChanged(id);
}
