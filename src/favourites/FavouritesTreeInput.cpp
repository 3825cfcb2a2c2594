// The tree's notifications and the mouse: one click opens a favourite, a
// click on a folder toggles it, the row the pointer rests on becomes the
// caret, and labels are edited only when the code asks.

#include <wx/event.h>
#include <wx/utils.h>

#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"

void FavouritesTree::OnNotify(NotifyEvent & event) {
  switch (event.GetCode()) {
    case NM_CUSTOMDRAW:
      event.SetResult(OnCustomDraw(*event.GetNotification<NMTVCUSTOMDRAW>()));
      return;
    case NM_CLICK: event.SetResult(OnClick()); return;
    case NM_RCLICK: {
      wxContextMenuEvent menu(wxEVT_CONTEXT_MENU, GetId(), wxGetMousePosition());
      menu.SetEventObject(this);
      GetEventHandler()->ProcessEvent(menu);
      event.SetResult(1);
      return;
    }
    case TVN_ITEMEXPANDINGW:
      event.SetResult(OnItemExpanding(*event.GetNotification<NMTREEVIEWW>()));
      return;
    case TVN_BEGINLABELEDITW: event.SetResult(OnBeginLabelEdit()); return;
    case TVN_ENDLABELEDITW:
      event.SetResult(OnEndLabelEdit(*event.GetNotification<NMTVDISPINFOW>()));
      return;
    case TVN_DELETEITEMW: {
      // A row the base deletes itself (the source of a drag) frees its record.
      auto * const data = reinterpret_cast<FavouriteTreeData *>(
          event.GetNotification<NMTREEVIEWW>()->itemOld.lParam);
      if (data != nullptr) {
        delete data->item;
        delete data;
      }
      event.Skip();
      return;
    }
    default: event.Skip();
  }
}

LRESULT FavouritesTree::OnClick() {
  if (wxGetKeyState(WXK_CONTROL)) return 0;
  wxPoint const mouse = ScreenToClient(wxGetMousePosition());
  UINT flags = 0;
  HTREEITEM const row = HitTest(POINT{mouse.x, mouse.y}, &flags);
  if (!row) return 0;
  if (GetTreeData(row) == nullptr) return 1;
  if (IsTrueFolderNode(row)) {
    if ((flags & TVHT_ONITEMBUTTON) != 0) return 0;
    Expand(row, TVE_TOGGLE);
    int normal = -1;
    int expanded = -1;
    GetItemImage(GetFavouriteItem(row), normal, expanded);
    int const shown = GetItemState(row, TVIS_EXPANDED) != 0 ? expanded : normal;
    SetItemImage(row, shown, shown);
  } else {
    if ((flags & TVHT_ONITEMLABEL) == 0) return 0;
    if (IsEnabled(row)) {
      // Posted: the click finishes before the favourite opens.
      auto * const open = new wxCommandEvent(wxEVT_MENU, kOpen);
      open->SetEventObject(this);
      wxQueueEvent(GetEventHandler(), open);
    }
  }
  SetItemState(row, TVIS_SELECTED, TVIS_SELECTED);
  return 1;
}

LRESULT FavouritesTree::OnItemExpanding(NMTREEVIEWW const & info) {
  HTREEITEM const row = info.itemNew.hItem;
  if (!GetChildItem(row) || !IsFolderNode(row)) return 0;
  if (!IsTrueFolderNode(row)) return 1;  // a folder treated as an item stays shut
  int normal = -1;
  int expanded = -1;
  GetItemImage(GetFavouriteItem(row), normal, expanded);
  bool const opening = (info.action & TVE_EXPAND) != 0 && GetItemState(row, TVIS_EXPANDED) == 0;
  int const shown = opening ? expanded : normal;
  SetItemImage(row, shown, shown);
  return 0;
}

LRESULT FavouritesTree::OnBeginLabelEdit() { return mAllowLabelEdit ? 0 : 1; }

LRESULT FavouritesTree::OnEndLabelEdit(NMTVDISPINFOW const & info) {
  if (info.item.pszText == nullptr) return 0;
  wxString text(info.item.pszText);
  text.Trim(true).Trim(false);
  FavouriteTreeData const * const data = GetTreeData(info.item.hItem);
  // Blanks keep the old name.
  if (text.empty() || data == nullptr || data->item == nullptr) return 0;
  data->item->SetName(text.wc_str());
  SetItemText(info.item.hItem, text);
  NotifyChanged(data->collectionID);
  return 0;
}

void FavouritesTree::OnMouseMove(UINT flags, POINT point) {
  if (GetEditControl() != nullptr) return;
  mHoverSelect = !wxGetKeyState(WXK_CONTROL);
  mLastMouse = point;
  if (!mContextMenuUp && mHoverSelect && GetSelectedItemCount() > 1) ClearSelection();
  VxTreeCtrl::OnMouseMove(flags, point);
}

void FavouritesTree::OnTimer(UINT_PTR id) {
  if (id == kHoverTimer && GetEditControl() == nullptr && !IsDragging() && mHoverSelect &&
      !mContextMenuUp) {
    wxPoint const mouse = ScreenToClient(wxGetMousePosition());
    UINT flags = 0;
    HTREEITEM const row = HitTest(mLastMouse, &flags);
    if (mouse.x == mLastMouse.x && mouse.y == mLastMouse.y && row &&
        (flags & TVHT_ONITEMLABEL) != 0)
      Select(row, TVGN_CARET);
  }
  VxTreeCtrl::OnTimer(id);
}
