// The context menu of the favourites tree, and export and import of a
// collection as an XML file.

#include <memory>

#include <wx/menu.h>
#include <wx/utils.h>

#include "controls/VxMenu.h"
#include "dialogs/CFileDialog.h"
#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"
#include "platform/MessageBoxes.h"
#include "platform/ResourceMenus.h"
#include "platform/WinUser.h"
#include "utl/Exception.h"
#include "utl/Translation.h"

namespace {

// Context-menu-up while the menu is tracked, whatever escapes.
struct MenuUp {
  explicit MenuUp(bool & flag) : mFlag(flag) { mFlag = true; }
  MenuUp(MenuUp const &) = delete;
  MenuUp & operator=(MenuUp const &) = delete;
  ~MenuUp() { mFlag = false; }
  bool & mFlag;
};

}  // namespace

void FavouritesTree::OnContextMenuEvent(wxContextMenuEvent & event) {
  ShowContextMenu(event.GetPosition());
}

void FavouritesTree::ShowContextMenu(wxPoint screenPoint) {
  SetFocus();
  wxPoint client;
  if (screenPoint == wxDefaultPosition) {
    // The keyboard: where the pointer was last seen over the tree.
    client = wxPoint(mLastMouse.x, mLastMouse.y);
    if (HTREEITEM const caret = GetSelectedItem()) {
      RECT rect{};
      if (GetItemRect(caret, &rect, 1)) client = wxPoint(rect.left, rect.bottom);
    }
  } else {
    client = ScreenToClient(screenPoint);
  }
  HTREEITEM const first = GetFirstSelectedItem();
  if (!first && !HitTest(POINT{client.x, client.y})) return;

  std::unique_ptr<wxMenu> const menu =
      LoadResourcePopupMenu(wxGetKeyState(WXK_CONTROL) ? kContextMenuWithCtrl : kContextMenu);
  if (!menu) return;
  int folders = 0;
  int others = 0;
  for (HTREEITEM row = first; row; row = GetNextSelectedItem(row))
    ++(IsFolderNode(row) ? folders : others);
  if (wxMenuItem * const open = menu->FindItem(kOpen)) {
    if (others >= 2 && folders == 0)
      open->SetItemLabel(vx3::Tr("&Open selected items"));
    else if (others == 0 && folders >= 1)
      open->SetItemLabel(vx3::Tr("&Open all items in folder"));
  }
  if (folders == 1) menu->Insert(1, kFolderAsItem, vx3::Tr("&Treat folder as item"));
  if (mManager != nullptr) mManager->OnShowPopupMenu(menu.get(), GetFavouriteItem(first));

  MenuUp const up(mContextMenuUp);
  wxPoint const screen = ClientToScreen(client);
  // Commands reach the window a menu is tracked on and travel up from there:
  // tracked on the tree, they reach the tree first and then its parent.
  VxMenu::TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON, screen.x, screen.y, this, nullptr);
}

void FavouritesTree::OnFavouritesExport() {
  if (mManager == nullptr) return;
  CFileDialog dialog(0, L"xml", L"Favorites", OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                     L"XML Files (*.xml)|*.xml|", this);
  if (dialog.DoModal() != IDOK) return;
  try {
    mManager->SaveFavourites(dialog.GetPathName(), GetDefaultCollectionID(GetRootItem()));
  } catch (Exception const & e) {
    AfxMessageBox(wxString::FromUTF8(e.Why()), MB_ICONEXCLAMATION);
  }
}

void FavouritesTree::OnFavouritesImport() {
  if (mManager == nullptr) return;
  CFileDialog dialog(1, L"xml", nullptr, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                     L"XML Files (*.xml)|*.xml|", this);
  if (dialog.DoModal() != IDOK) return;
  mManager->LoadFavourites(dialog.GetPathName(), GetDefaultCollectionID(GetRootItem()));
}
