#include "favourites/FavouritesTree.h"

#include <wx/settings.h>
#include <wx/textctrl.h>
#include <wx/utils.h>
#include <wx/window.h>

#include "favourites/AddCommandToFavouritesDlg.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/KeptLabelLayouts.h"
#include "platform/ResourceMenus.h"
#include "platform/SystemMetrics.h"

namespace {

constexpr int kIconSide = 16;
// Room around the small icon in a row.
constexpr int kRowPadding = 5;

}  // namespace

FavouritesTree::FavouritesTree() = default;

FavouritesTree::FavouritesTree(wxWindow * parent, wxWindowID id, DWORD style) {
  Create(parent, id, style);
}

FavouritesTree::~FavouritesTree() {
  if (mManager != nullptr) {
    mManager->OnDestroy();
    // Either may go first: a top-level window's children die at idle time.
    if (mManager->GetFavouritesTree() == this) mManager->SetFavouritesTree(nullptr);
  }
  for (HTREEITEM row = GetRootItem(); row; row = GetNextItem(row)) DeleteItemData(row);
  SetImageList(nullptr, TVSIL_NORMAL);
}

bool FavouritesTree::Create(wxWindow * parent, wxWindowID id, DWORD style) {
  if (!VxTreeCtrl::Create(parent, id, style)) return false;
  Init();
  return true;
}

void FavouritesTree::Init() {
  mFileFactory = &FavouritesUtilities::CreateFileFavourite;
  mImages = std::make_unique<wxImageList>(kIconSide, kIconSide, true, 4);
  SetImageList(mImages.get(), TVSIL_NORMAL);
  SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
  mLabelLayouts = std::make_unique<KeptLabelLayouts>();
  mLabelHeight = GetCharHeight();
  // GTK names no small-icon size (0): the icons of the rows are 16 high.
  int const smallIcon = GetSystemMetrics(SM_CYSMICON);
  SetItemHeight(static_cast<short>((smallIcon > 0 ? smallIcon : kIconSide) + kRowPadding));
  LoadResourceAccelerators(kAcceleratorTable, mAccelerators);
  Bind(VX_EVT_NOTIFY_REFLECT, &FavouritesTree::OnNotify, this);
  Bind(wxEVT_CONTEXT_MENU, &FavouritesTree::OnContextMenuEvent, this);
  Bind(wxEVT_MENU, [this](wxCommandEvent & event) {
    if (!HandleCommand(event.GetId())) event.Skip();
  });
  Bind(wxEVT_UPDATE_UI, [this](wxUpdateUIEvent & event) {
    if (!UpdateCommand(event)) event.Skip();
  });
}

void FavouritesTree::SetFavouritesManager(FavouritesManager * manager) {
  mManager = manager;
  if (mManager == nullptr) return;
  mManager->SetFavouritesTree(this);
  mManager->OnInitialUpdate();
}

void FavouritesTree::EnableCommandItems(unsigned int const * ids, unsigned int count) {
  mCommandItems.assign(ids, ids + count);
}

FavouriteTreeData * FavouritesTree::GetTreeData(HTREEITEM row) const {
  // A stale or null handle has no data: 0.
  return reinterpret_cast<FavouriteTreeData *>(GetItemData(row));
}

FavouriteItem * FavouritesTree::GetFavouriteItem(HTREEITEM row) const {
  FavouriteTreeData const * const data = GetTreeData(row);
  return data != nullptr ? data->item : nullptr;
}

bool FavouritesTree::IsEnabled(HTREEITEM row) const {
  FavouriteItem * const item = GetFavouriteItem(row);
  return item != nullptr && item->Enable();
}

bool FavouritesTree::IsFolderNode(HTREEITEM row) const {
  return dynamic_cast<FavouriteFolderItem *>(GetFavouriteItem(row)) != nullptr;
}

bool FavouritesTree::IsTrueFolderNode(HTREEITEM row) const {
  auto const * const folder = dynamic_cast<FavouriteFolderItem *>(GetFavouriteItem(row));
  return folder != nullptr && !folder->GetTreatAsItem();
}

int FavouritesTree::AddIconToImageList(wxIcon const & icon) {
  if (!icon.IsOk()) return -1;
  for (size_t i = 0; i < mIcons.size(); ++i)
    if (mIcons[i].IsSameAs(icon)) return static_cast<int>(i);
  mIcons.push_back(icon);
  mImages->Add(icon);
  return static_cast<int>(mIcons.size() - 1);
}

void FavouritesTree::GetItemImage(FavouriteItem const * item, int & normal, int & expanded) {
  normal = -1;
  expanded = -1;
  if (mManager == nullptr) return;
  wxIcon normalIcon;
  wxIcon expandedIcon;
  mManager->GetIcon(item, normalIcon, expandedIcon);
  normal = AddIconToImageList(normalIcon);
  // Most rows show one icon either way: no second search of the list.
  expanded = normalIcon.IsOk() && expandedIcon.IsSameAs(normalIcon)
                 ? normal
                 : AddIconToImageList(expandedIcon);
}

int FavouritesTree::GetItemStyle(HTREEITEM row) const {
  int style = 0;
  if (GetItemState(row, TVIS_BOLD) != 0) style |= 1;
  if (GetItemState(row, TVIS_EXPANDED) != 0) style |= 2;
  return style;
}

void FavouritesTree::SetItemStyle(HTREEITEM row, int style) {
  SetItemBold(row, style & 1);
  if ((style & 2) != 0) Expand(row, TVE_EXPAND);
}

int FavouritesTree::GetDefaultCollectionID(HTREEITEM row) const {
  if (!row) row = GetLastItem(TVI_NULL);
  if (!row) return -1;
  FavouriteTreeData const * data = GetTreeData(row);
  if (data == nullptr) data = GetTreeData(GetParentItem(row));
  return data != nullptr ? data->collectionID : -1;
}

void FavouritesTree::NotifyChanged(int id) const {
  if (mManager != nullptr) mManager->OnFavouritesChanged(id);
}

int FavouritesTree::SelectedRowCount() const { return GetSelectedItemCount(); }

HTREEITEM FavouritesTree::InsertRow(FavouriteItem * item, int id, HTREEITEM parent,
                                    HTREEITEM after) {
  int normal = -1;
  int expanded = -1;
  GetItemImage(item, normal, expanded);
  HTREEITEM const row = InsertItem(item->GetName(), normal, expanded, parent ? parent : TVI_ROOT,
                                   after ? after : TVI_LAST);
  SetItemData(row, reinterpret_cast<DWORD_PTR>(new FavouriteTreeData(item, id)));
  return row;
}

HTREEITEM FavouritesTree::InsertPlaceholder(HTREEITEM folder, wxString const & text) {
  int normal = -1;
  int expanded = -1;
  GetItemImage(nullptr, normal, expanded);
  return InsertItem(text, normal, expanded, folder, TVI_LAST);
}

// --- Deleting ------------------------------------------------------------------

void FavouritesTree::DeleteItemData(HTREEITEM row) {
  if (!IsValidItem(row)) return;
  if (GetChildItem(row)) DeleteChildItemData(row);
  FavouriteTreeData * const data = GetTreeData(row);
  if (data == nullptr) return;
  delete data->item;
  data->item = nullptr;
  delete data;
  SetItemData(row, 0);
}

void FavouritesTree::DeleteChildItemData(HTREEITEM row) {
  // A loop over the branch rather than recursion: deep trees are fine.
  HTREEITEM const end = GetNextSiblingItem(row);
  HTREEITEM parentEnd = end;
  for (HTREEITEM up = row; !parentEnd && up; up = GetParentItem(up))
    parentEnd = GetNextSiblingItem(up);
  for (HTREEITEM at = GetChildItem(row); at && at != parentEnd; at = GetNextItem(at)) {
    FavouriteTreeData * const data = GetTreeData(at);
    if (data == nullptr) continue;
    delete data->item;
    delete data;
    SetItemData(at, 0);
  }
}

bool FavouritesTree::CanDeleteItem(HTREEITEM row) { return GetFavouriteItem(row) != nullptr; }

void FavouritesTree::DeleteTree() {
  SetRedraw(0);
  for (HTREEITEM row = GetRootItem(); row; row = GetNextSiblingItem(row)) DeleteItemData(row);
  DeleteAllItems();
  SetRedraw(1);
}

void FavouritesTree::DeleteFavouriteNode(int id) {
  SetRedraw(0);
  HTREEITEM row = GetRootItem();
  while (row) {
    HTREEITEM const next = GetNextSiblingItem(row);
    FavouriteTreeData const * const data = GetTreeData(row);
    if (data != nullptr && data->collectionID == id) {
      DeleteItemData(row);
      DeleteItem(row);
    }
    row = next;
  }
  SetRedraw(1);
}

// --- Opening -------------------------------------------------------------------

void FavouritesTree::AppendOpenable(HTREEITEM folder, std::vector<FavouriteItem *> & items) const {
  HTREEITEM end = TVI_NULL;
  for (HTREEITEM up = folder; !end && up; up = GetParentItem(up)) end = GetNextSiblingItem(up);
  for (HTREEITEM at = GetChildItem(folder); at && at != end; at = GetNextItem(at)) {
    FavouriteItem const * const item = GetFavouriteItem(at);
    if (item == nullptr || IsFolderNode(at)) continue;
    if (FavouriteItem * const copy = item->Copy()) items.push_back(copy);
  }
}

void FavouritesTree::OpenSelectedFavourites() {
  std::vector<FavouriteItem *> items;
  HTREEITEM row = GetFirstSelectedItem();
  while (row) {
    FavouriteItem const * const item = GetFavouriteItem(row);
    if (item != nullptr && IsFolderNode(row)) {
      AppendOpenable(row, items);
      // On from the folder's next sibling: its rows are in already.
      HTREEITEM after = TVI_NULL;
      for (HTREEITEM up = row; !after && up; up = GetParentItem(up)) after = GetNextSiblingItem(up);
      row = !after || GetItemState(after, TVIS_SELECTED) != 0 ? after : GetNextSelectedItem(after);
      continue;
    }
    if (item != nullptr)
      if (FavouriteItem * const copy = item->Copy()) items.push_back(copy);
    row = GetNextSelectedItem(row);
  }
  if (items.empty() || mManager == nullptr) {
    for (FavouriteItem * const item : items) delete item;
    return;
  }
  bool const hadFocus = HasFocus();
  mManager->Open(&items);
  if (hadFocus && !HasFocus() && IsShownOnScreen()) SetFocus();
}

void FavouritesTree::OnLButtonDblClk(UINT flags, POINT point) {
  HTREEITEM const first = GetFirstSelectedItem();
  bool open = false;
  if (GetFavouriteItem(first) != nullptr && IsEnabled(first))
    for (HTREEITEM row = first; row && !open; row = GetNextSelectedItem(row))
      open = !IsTrueFolderNode(row);
  VxTreeCtrl::OnLButtonDblClk(flags, point);
  if (open) OpenSelectedFavourites();
}

// --- Commands ------------------------------------------------------------------

bool FavouritesTree::HandleCommand(int id) {
  switch (id) {
    case kAddCommand: return ShowAddCommandDialog(*this) != nullptr;
    case kFolderAsItem: OnFavouritesFolderAsItem(); return true;
    case kNewFolder: OnFavouritesNewfolder(); return true;
    case kOpen: OnFavouritesOpen(); return true;
    case kRename: OnFavouritesRename(); return true;
    case kBold: OnFavouriteItemBold(); return true;
    case kMoveDown: OnFavouriteItemMoveDown(); return true;
    case kMoveLeft: OnFavouriteItemMoveLeft(); return true;
    case kMoveRight: OnFavouriteItemMoveRight(); return true;
    case kMoveUp: OnFavouriteItemMoveUp(); return true;
    case kExport: OnFavouritesExport(); return true;
    case kImport: OnFavouritesImport(); return true;
    case kDelete: OnFavouritesDelete(); return true;
    default: return false;
  }
}

bool FavouritesTree::UpdateCommand(wxUpdateUIEvent & event) const {
  int const rows = SelectedRowCount();
  HTREEITEM const first = GetFirstSelectedItem();
  bool const one = rows == 1 && first;
  switch (event.GetId()) {
    case kAddCommand: event.Enable(!mCommandItems.empty()); return true;
    case kDelete:
    case kOpen: event.Enable(rows > 0); return true;
    case kNewFolder:
    case kExport:
    case kImport: event.Enable(true); return true;
    case kRename: event.Enable(rows == 1); return true;
    case kFolderAsItem: {
      event.Enable(one && IsFolderNode(first));
      auto const * const folder = dynamic_cast<FavouriteFolderItem *>(GetFavouriteItem(first));
      event.Check(folder != nullptr && folder->GetTreatAsItem());
      return true;
    }
    case kBold:
      event.Enable(rows > 0);
      event.Check(first && GetItemState(first, TVIS_BOLD) != 0);
      return true;
    case kMoveDown: event.Enable(one && GetNextItem(first)); return true;
    case kMoveLeft: event.Enable(one && GetParentItem(first)); return true;
    case kMoveRight: event.Enable(one && IsTrueFolderNode(GetPrevSiblingItem(first))); return true;
    case kMoveUp: event.Enable(one && GetPrevSiblingItem(first)); return true;
    default: return false;
  }
}

void FavouritesTree::OnFavouritesOpen() { OpenSelectedFavourites(); }

void FavouritesTree::OnFavouriteItemBold() {
  HTREEITEM const first = GetFirstSelectedItem();
  int const bold = first && GetItemState(first, TVIS_BOLD) != 0 ? 0 : 1;
  for (HTREEITEM row = first; row; row = GetNextSelectedItem(row)) SetItemBold(row, bold);
}

void FavouritesTree::OnFavouritesFolderAsItem() {
  for (HTREEITEM row = GetFirstSelectedItem(); row; row = GetNextSelectedItem(row)) {
    auto * const folder = dynamic_cast<FavouriteFolderItem *>(GetFavouriteItem(row));
    if (folder == nullptr) continue;
    folder->SetTreatAsItem(!folder->GetTreatAsItem());
    Expand(row, folder->GetTreatAsItem() ? TVE_COLLAPSE : TVE_EXPAND);
    int normal = -1;
    int expanded = -1;
    GetItemImage(folder, normal, expanded);
    int const shown =
        GetItemState(row, TVIS_EXPANDED) != 0 && GetChildItem(row) ? expanded : normal;
    SetItemImage(row, shown, shown);
    NotifyChanged(GetTreeData(row)->collectionID);
  }
}

void FavouritesTree::EditRow(HTREEITEM row) {
  mAllowLabelEdit = true;
  wxTextCtrl * const edit = EditLabel(row);
  mAllowLabelEdit = false;
  if (edit != nullptr) edit->SetMaxLength(kMaxLabelLength);
}

void FavouritesTree::OnFavouritesRename() {
  HTREEITEM const row = GetFirstSelectedItem();
  if ((GetStyle() & TVS_EDITLABELS) != 0 && row) EditRow(row);
}

void FavouritesTree::OnKeyDown(UINT virtualKey, UINT repeatCount, UINT flags) {
  int modifiers = 0;
  if (wxGetKeyState(WXK_CONTROL)) modifiers |= wxACCEL_CTRL;
  if (wxGetKeyState(WXK_SHIFT)) modifiers |= wxACCEL_SHIFT;
  if (wxGetKeyState(WXK_ALT)) modifiers |= wxACCEL_ALT;
  int keyCode = static_cast<int>(virtualKey);
  switch (virtualKey) {
    case VK_DELETE: keyCode = WXK_DELETE; break;
    case VK_F2: keyCode = WXK_F2; break;
    case VK_RETURN: keyCode = WXK_RETURN; break;
    case VK_INSERT: keyCode = WXK_INSERT; break;
    case VK_UP: keyCode = WXK_UP; break;
    case VK_DOWN: keyCode = WXK_DOWN; break;
    case VK_LEFT: keyCode = WXK_LEFT; break;
    case VK_RIGHT: keyCode = WXK_RIGHT; break;
    default: break;
  }
  if (GetEditControl() == nullptr)
    if (unsigned int const command = FindAccelerator(mAccelerators, modifiers, keyCode))
      if (HandleCommand(static_cast<int>(command))) return;
  VxTreeCtrl::OnKeyDown(virtualKey, repeatCount, flags);
}

namespace FavouritesUtilities {

FavouritesTree * CreateFavouritesTree(wxWindow * parent, FavouritesManager * manager,
                                      unsigned int id) {
  auto * const tree = new FavouritesTree(parent, static_cast<wxWindowID>(id));
  tree->EnableMultiSelect(true);
  tree->EnableDelete(true);
  tree->DragAcceptFiles(true);
  if (manager != nullptr) tree->SetFavouritesManager(manager);
  return tree;
}

FavouriteItem * CreateFileFavourite(wchar_t const * path) {
  wxString const full(path != nullptr ? path : L"");
  wxString name = full.AfterLast('/');
  return new FavouriteFileItem(name.wc_str(), full.wc_str());
}

}  // namespace FavouritesUtilities
