#include "lists/VxTreeCtrlEx.h"

#include <wx/utils.h>

#include <vector>

#include "lists/TreeListHost.h"
#include "platform/SysColor.h"
#include "platform/commctrl/MergeSortBy.h"
#include "utl/Exception.h"

namespace {

void RefuseSeparator(wchar_t const * text) {
  if (text != nullptr && ItemData::HoldsSeparator(text))
    throw Exception(ExceptionMessage::translate("A column text cannot hold the character \u00B6."));
}

bool IsRealItem(HTREEITEM item) {
  return item && item != TVI_ROOT && item != TVI_FIRST && item != TVI_LAST && item != TVI_SORT;
}

}  // namespace

VxTreeCtrlEx::VxTreeCtrlEx() = default;

VxTreeCtrlEx::VxTreeCtrlEx(wxWindow * parent, wxWindowID id, DWORD style, wxPoint const & pos,
                           wxSize const & size) {
  Create(parent, id, style, pos, size);
}

VxTreeCtrlEx::~VxTreeCtrlEx() {
  Unbind(VX_EVT_NOTIFY_REFLECT, &VxTreeCtrlEx::OnNotifyReflect, this);
  FreeAllRecords();
}

bool VxTreeCtrlEx::Create(wxWindow * parent, wxWindowID id, DWORD style, wxPoint const & pos,
                          wxSize const & size) {
  if (!VxTreeCtrl::Create(parent, id, style, pos, size)) return false;
  // Every way an item goes (a delete, a branch, the selection's delete)
  // tells of it: its record goes with it.
  Bind(VX_EVT_NOTIFY_REFLECT, &VxTreeCtrlEx::OnNotifyReflect, this);
  return true;
}

void VxTreeCtrlEx::OnNotifyReflect(NotifyEvent & event) {
  event.Skip();
  if (event.GetCode() != TVN_DELETEITEMW) return;
  auto * const info = event.GetNotification<NMTREEVIEWW>();
  delete reinterpret_cast<ItemData *>(
      info->itemOld.lParam);  // NOLINT(cppcoreguidelines-owning-memory)
  info->itemOld.lParam = 0;
  if (info->itemOld.hItem == mLastClickItem) mLastClickItem = TVI_NULL;
}

void VxTreeCtrlEx::FreeAllRecords() {
  for (HTREEITEM item = GetRootItem(); item; item = GetNextItem(item)) DeleteItemData(item);
}

// --- Header and frame --------------------------------------------------------

void VxTreeCtrlEx::SetHeaderCtrl(CNewHeaderCtrl * header) {
  mHeader = header;
  mColumnCount = header != nullptr ? header->GetItemCount() : 0;
  RecalcColumnsWidth();
}

void VxTreeCtrlEx::SetNormalImageList(std::unique_ptr<wxImageList> images) {
  bool const some = images != nullptr && images->GetImageCount() > 0;
  SetImageList(some ? images.get() : nullptr, TVSIL_NORMAL);
  mImages = std::move(images);
}

void VxTreeCtrlEx::SetHorizontalOffset(int offset) {
  mHorizontalOffset = offset;
  SetHorizontalOrigin(offset);
}

TreeListHost * VxTreeCtrlEx::GetHost() const { return dynamic_cast<TreeListHost *>(GetParent()); }

void VxTreeCtrlEx::ResetHostScrollBar() {
  if (TreeListHost * host = GetHost()) host->ResetScrollBar();
}

// --- Columns -------------------------------------------------------------------

int VxTreeCtrlEx::InsertColumn(int column, wchar_t const * text, int format, int width,
                               int /*subItem*/) {
  if (!mHeader) return -1;
  HDITEMW item;
  item.mask = HDI_TEXT | HDI_FORMAT;
  std::wstring label = text != nullptr ? text : L"";
  item.pszText = label.data();
  item.cchTextMax = static_cast<int>(label.size() + 1);
  item.fmt = (format == 1 ? HDF_RIGHT : format == 2 ? HDF_CENTER : HDF_LEFT) | HDF_OWNERDRAW;
  if (width != -1) {
    item.mask |= HDI_WIDTH;
    item.cxy = width;
  }
  ++mColumnCount;
  int const index = mHeader->InsertItem(column, &item);
  mColumnCount = mHeader->GetItemCount();
  RecalcColumnsWidth();
  Invalidate();
  return index;
}

void VxTreeCtrlEx::ClearColumns() {
  if (mHeader)
    while (mHeader->GetItemCount() > 0) mHeader->DeleteItem(0);
  mColumnCount = 0;
  RecalcColumnsWidth();
  Invalidate();
}

int VxTreeCtrlEx::GetColumnWidth(int column) const {
  if (!mHeader || column < 0 || column >= mHeader->GetItemCount()) return 0;
  return mHeader->GetItemWidth(column);
}

bool VxTreeCtrlEx::SetColumnWidth(int column, int width) {
  if (!mHeader || column < 0 || column >= mHeader->GetItemCount()) return false;
  HDITEMW item;
  item.mask = HDI_WIDTH;
  item.cxy = width;
  bool const done = mHeader->SetItem(column, &item);
  RecalcColumnsWidth();
  Invalidate();
  return done;
}

void VxTreeCtrlEx::RecalcColumnsWidth() {
  mColumnsWidth = 0;
  if (!mHeader) return;
  for (int column = 0; column < mHeader->GetItemCount(); ++column)
    mColumnsWidth += mHeader->GetItemWidth(column);
}

int VxTreeCtrlEx::GetColumnAlign(int column) const {
  if (!mHeader || column < 0 || column >= mHeader->GetItemCount()) return 0;
  int const format = mHeader->GetItemFormat(column) & HDF_JUSTIFYMASK;
  return format == HDF_RIGHT ? 1 : format == HDF_CENTER ? 2 : 0;
}

// --- Items ---------------------------------------------------------------------

HTREEITEM VxTreeCtrlEx::InsertRecord(wchar_t const * text, TVINSERTSTRUCTW insert) {
  RefuseSeparator(text);
  HTREEITEM const parent = insert.hParent;
  if (!parent) insert.hParent = TVI_ROOT;
  if (IsRealItem(parent) && !IsValidItem(parent)) return TVI_NULL;
  auto record = std::make_unique<ItemData>();
  record->colour = GetSysColor(COLOR_WINDOWTEXT);
  if (text != nullptr) record->SetColumnText(0, text);
  static wchar_t empty[1] = {0};
  insert.item.mask |= TVIF_TEXT | TVIF_PARAM;
  insert.item.pszText = empty;
  insert.item.lParam = reinterpret_cast<LPARAM>(record.get());
  HTREEITEM const item = CTreeCtrl::InsertItem(&insert);
  if (!item) return TVI_NULL;
  record.release();  // NOLINT(bugprone-unused-return-value): the tree owns it now
  if (ItemData * const above = GetItemRecord(parent)) above->hasChildren = 1;
  ResetHostScrollBar();
  return item;
}

HTREEITEM VxTreeCtrlEx::InsertItem(wchar_t const * text, int image, int selectedImage,
                                   HTREEITEM parent, HTREEITEM after) {
  TVINSERTSTRUCTW insert;
  insert.hParent = parent;
  insert.hInsertAfter = after;
  insert.item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  insert.item.iImage = image;
  insert.item.iSelectedImage = selectedImage;
  return InsertRecord(text, insert);
}

HTREEITEM VxTreeCtrlEx::InsertItem(wchar_t const * text, HTREEITEM parent, HTREEITEM after) {
  TVINSERTSTRUCTW insert;
  insert.hParent = parent;
  insert.hInsertAfter = after;
  return InsertRecord(text, insert);
}

HTREEITEM VxTreeCtrlEx::InsertItem(UINT mask, wchar_t const * text, int image, int selectedImage,
                                   UINT state, UINT stateMask, int64_t userData, HTREEITEM parent,
                                   HTREEITEM after) {
  TVINSERTSTRUCTW insert;
  insert.hParent = parent;
  insert.hInsertAfter = after;
  insert.item.mask = mask & ~(TVIF_TEXT | TVIF_PARAM);
  insert.item.iImage = image;
  insert.item.iSelectedImage = selectedImage;
  insert.item.state = state;
  insert.item.stateMask = stateMask;
  HTREEITEM const item = InsertRecord(text, insert);
  if (ItemData * const record = GetItemRecord(item))
    record->userData = static_cast<uint64_t>(userData);
  return item;
}

HTREEITEM VxTreeCtrlEx::InsertItem(int index, wchar_t const * text, HTREEITEM parent) {
  HTREEITEM after = TVI_LAST;
  if (index != 0) {
    after = GetTreeItem(index);
    if (!after) after = TVI_LAST;
  }
  return InsertItem(text, parent, after);
}

ItemData * VxTreeCtrlEx::GetItemRecord(HTREEITEM item) const {
  if (!IsRealItem(item) || !IsValidItem(item)) return nullptr;
  return reinterpret_cast<ItemData *>(CTreeCtrl::GetItemData(item));
}

wxString VxTreeCtrlEx::GetItemText(HTREEITEM item, int column) const {
  ItemData const * const record = GetItemRecord(item);
  if (record == nullptr) return {};
  std::wstring_view const text = record->ColumnView(column);
  return {text.data(), text.size()};
}

wxString VxTreeCtrlEx::GetItemText(int rootIndex, int column) const {
  return GetItemText(GetTreeItem(rootIndex), column);
}

BOOL VxTreeCtrlEx::SetItemText(HTREEITEM item, int column, wchar_t const * text) {
  RefuseSeparator(text);
  ItemData * const record = GetItemRecord(item);
  if (record == nullptr || column < 0) return 0;
  record->SetColumnText(column, text != nullptr ? text : L"");
  Invalidate();
  return 1;
}

uint64_t VxTreeCtrlEx::GetItemData(HTREEITEM item) const {
  ItemData const * const record = GetItemRecord(item);
  return record != nullptr ? record->userData : 0;
}

BOOL VxTreeCtrlEx::SetItemData(HTREEITEM item, uint64_t data) {
  ItemData * const record = GetItemRecord(item);
  if (record == nullptr) return 0;
  record->userData = data;
  return 1;
}

HTREEITEM VxTreeCtrlEx::GetTreeItem(int rootIndex) const {
  if (rootIndex < 0) return TVI_NULL;
  HTREEITEM item = GetRootItem();
  for (int k = 0; item && k < rootIndex; ++k) item = GetNextSiblingItem(item);
  return item;
}

int VxTreeCtrlEx::GetListItem(HTREEITEM item) const {
  int index = 0;
  for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root), ++index)
    if (root == item) return index;
  return index;
}

int VxTreeCtrlEx::GetItemCount() const { return static_cast<int>(GetCount()); }

bool VxTreeCtrlEx::SetItemColor(HTREEITEM item, COLORREF color, bool invalidate) {
  ItemData * const record = GetItemRecord(item);
  if (record == nullptr) return false;
  record->colour = color;
  if (invalidate) Invalidate();
  return true;
}

bool VxTreeCtrlEx::SetItemBold(HTREEITEM item, bool bold, bool invalidate) {
  ItemData * const record = GetItemRecord(item);
  if (record == nullptr) return false;
  record->bold = bold;
  if (invalidate) Invalidate();
  return true;
}

bool VxTreeCtrlEx::SetItemGroup(HTREEITEM item, bool group, bool invalidate) {
  ItemData * const record = GetItemRecord(item);
  if (record == nullptr) return false;
  record->group = group;
  Expand(item, TVE_EXPAND);
  if (invalidate) Invalidate();
  return true;
}

bool VxTreeCtrlEx::IsBold(HTREEITEM item) const {
  ItemData const * const record = GetItemRecord(item);
  return record != nullptr && record->bold;
}

bool VxTreeCtrlEx::IsGroup(HTREEITEM item) const {
  ItemData const * const record = GetItemRecord(item);
  return record != nullptr && record->group;
}

bool VxTreeCtrlEx::SetItemPriority(HTREEITEM item, int priority) {
  ItemData * const record = GetItemRecord(item);
  if (record == nullptr) return false;
  record->priority = priority;
  return true;
}

int VxTreeCtrlEx::GetItemPriority(HTREEITEM item) const {
  ItemData const * const record = GetItemRecord(item);
  return record != nullptr ? record->priority : -1;
}

HTREEITEM VxTreeCtrlEx::FindParentItem(wxString const & text, int column, HTREEITEM start,
                                       int64_t data) const {
  HTREEITEM item = start ? start : GetRootItem();
  if (!GetItemRecord(item)) return TVI_NULL;
  std::wstring const & wanted = text.ToStdWstring();
  for (; item; item = GetNextSiblingItem(item)) {
    ItemData const * const record = GetItemRecord(item);
    if (record == nullptr || record->ColumnView(column) != wanted) continue;
    if (data == 0 || record->userData == static_cast<uint64_t>(data)) return item;
  }
  return TVI_NULL;
}

HTREEITEM VxTreeCtrlEx::CopyItem(HTREEITEM item, HTREEITEM parent, HTREEITEM after) {
  ItemData const * const record = GetItemRecord(item);
  if (record == nullptr || GetChildItem(item) || record->hasChildren != 0) return TVI_NULL;
  if (IsRealItem(parent) && !GetItemRecord(parent)) return TVI_NULL;
  int image = -1;
  int selectedImage = -1;
  GetItemImage(item, image, selectedImage);
  TVINSERTSTRUCTW insert;
  insert.hParent = parent ? parent : TVI_ROOT;
  insert.hInsertAfter = after;
  insert.item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_TEXT | TVIF_PARAM;
  insert.item.iImage = image;
  insert.item.iSelectedImage = selectedImage;
  auto copy = std::make_unique<ItemData>(*record);
  static wchar_t empty[1] = {0};
  insert.item.pszText = empty;
  insert.item.lParam = reinterpret_cast<LPARAM>(copy.get());
  HTREEITEM const made = CTreeCtrl::InsertItem(&insert);
  if (!made) return TVI_NULL;
  copy.release();  // NOLINT(bugprone-unused-return-value): the tree owns it now
  if (ItemData * const above = GetItemRecord(parent)) above->hasChildren = 1;
  ResetHostScrollBar();
  return made;
}

HTREEITEM VxTreeCtrlEx::MoveItem(HTREEITEM item, HTREEITEM parent, HTREEITEM after) {
  ItemData const * const record = GetItemRecord(item);
  if (record == nullptr || GetChildItem(item) || record->hasChildren != 0 || parent == item)
    return TVI_NULL;
  if (IsRealItem(parent) && !GetItemRecord(parent)) return TVI_NULL;
  if (after == item) {
    HTREEITEM const previous = GetPrevSiblingItem(item);
    after = previous ? previous : TVI_FIRST;
  }
  ItemData const kept = *record;
  int image = -1;
  int selectedImage = -1;
  GetItemImage(item, image, selectedImage);
  DeleteItem(item);
  HTREEITEM const made = InsertItem(L"", image, selectedImage, parent, after);
  if (ItemData * const moved = GetItemRecord(made)) *moved = kept;
  return made;
}

void VxTreeCtrlEx::DeleteItemData(HTREEITEM item) {
  ItemData * const record = GetItemRecord(item);
  if (record == nullptr) return;
  CTreeCtrl::SetItemData(item, 0);
  delete record;  // NOLINT(cppcoreguidelines-owning-memory)
}

void VxTreeCtrlEx::OnItemCopied(HTREEITEM source, HTREEITEM copy) {
  ItemData const * const record = GetItemRecord(source);
  auto clone = record != nullptr ? std::make_unique<ItemData>(*record) : nullptr;
  CTreeCtrl::SetItemData(copy, reinterpret_cast<LPARAM>(clone.release()));
  UpdateHasChildren(GetParentItem(copy));
}

void VxTreeCtrlEx::DeleteSelectedItems(bool ask) {
  std::vector<HTREEITEM> parents;
  for (HTREEITEM item = GetFirstSelectedItem(); item; item = GetNextSelectedItem(item))
    if (HTREEITEM const parent = GetParentItem(item)) parents.push_back(parent);
  VxTreeCtrl::DeleteSelectedItems(ask);
  for (HTREEITEM const parent : parents) UpdateHasChildren(parent);
  ResetHostScrollBar();
}

void VxTreeCtrlEx::UpdateHasChildren(HTREEITEM parent) {
  if (ItemData * const record = GetItemRecord(parent))
    record->hasChildren = GetChildItem(parent) ? 1 : 0;
}

BOOL VxTreeCtrlEx::DeleteItem(HTREEITEM item) {
  if (!GetItemRecord(item) && !(IsRealItem(item) && IsValidItem(item))) return 0;
  HTREEITEM const parent = GetParentItem(item);
  // The records of the branch go with the notifications of the delete.
  BOOL const done = CTreeCtrl::DeleteItem(item);
  UpdateHasChildren(parent);
  ResetHostScrollBar();
  return done;
}

BOOL VxTreeCtrlEx::DeleteItem(int rootIndex) { return DeleteItem(GetTreeItem(rootIndex)); }

int VxTreeCtrlEx::DeleteSubItems(HTREEITEM item) {
  if (!IsRealItem(item) || !IsValidItem(item)) return 1;
  int failed = 0;
  while (HTREEITEM const child = GetChildItem(item))
    if (DeleteItem(child) == 0) {
      failed = 1;
      break;
    }
  return failed;
}

BOOL VxTreeCtrlEx::DeleteAllItems() {
  wxBusyCursor const wait;
  SetRedraw(0);
  MemDeleteAllItems(GetRootItem());
  BOOL const done = CTreeCtrl::DeleteAllItems();
  SetRedraw(1);
  Invalidate();
  mLastClickItem = TVI_NULL;
  ResetHostScrollBar();
  return done;
}

void VxTreeCtrlEx::MemDeleteAllItems(HTREEITEM item) {
  if (!GetItemRecord(item)) return;
  std::vector<HTREEITEM> branch;
  while (item) {
    HTREEITEM const next = GetNextSiblingItem(item);
    branch.assign(1, item);
    while (!branch.empty()) {
      HTREEITEM const at = branch.back();
      branch.pop_back();
      for (HTREEITEM child = GetChildItem(at); child; child = GetNextSiblingItem(child))
        branch.push_back(child);
      DeleteItemData(at);
    }
    CTreeCtrl::DeleteItem(item);
    item = next;
  }
}

BOOL VxTreeCtrlEx::Expand(HTREEITEM item, UINT code) {
  BOOL const done = CTreeCtrl::Expand(item, code);
  ResetHostScrollBar();
  return done;
}

BOOL VxTreeCtrlEx::SortItems(int column, bool ascending, HTREEITEM parent) {
  if (!parent) parent = TVI_ROOT;
  if (parent != TVI_ROOT && !IsValidItem(parent)) return 0;
  TreeSortInfo info;
  info.column = column;
  info.ascending = ascending;
  info.groupsFirst = mGroupsFirst;
  // The order of CompareFunc, with what it reads of each record taken once
  // instead of at every comparison.
  std::vector<HTREEITEM> children;
  std::vector<TreeSortKey> keys;
  for (HTREEITEM child = GetChildItem(parent); child; child = GetNextSiblingItem(child)) {
    ItemData const * const record = GetItemRecord(child);
    children.push_back(child);
    keys.push_back(record != nullptr ? MakeSortKey(*record, column) : TreeSortKey{});
  }
  std::vector<uint32_t> order(children.size());
  for (std::size_t k = 0; k < order.size(); ++k) order[k] = static_cast<uint32_t>(k);
  MergeSortBy(order, [&keys, &info](uint32_t a, uint32_t b) {
    return CompareSortKeys(keys[a], keys[b], info);
  });
  std::vector<HTREEITEM> sorted;
  sorted.reserve(order.size());
  for (uint32_t const k : order) sorted.push_back(children[k]);
  return SetChildOrder(parent, sorted);
}

int VxTreeCtrlEx::CompareFunc(LPARAM item1, LPARAM item2, LPARAM info) {
  auto const * const a = reinterpret_cast<ItemData const *>(item1);
  auto const * const b = reinterpret_cast<ItemData const *>(item2);
  if (a == nullptr || b == nullptr) return (a == nullptr ? 0 : 1) - (b == nullptr ? 0 : 1);
  TreeSortInfo const fallback;
  auto const * const sort = reinterpret_cast<TreeSortInfo const *>(info);
  return CompareItemData(*a, *b, sort != nullptr ? *sort : fallback);
}
