#include "lists/VxTreeListCtrl.h"

#include <wx/dcmemory.h>
#include <wx/scrolbar.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include "lists/TreeListGeometry.h"
#include "lists/TreeListXmlHandler.h"
#include "platform/SystemMetrics.h"
#include "platform/commctrl/NotifyEvent.h"
#include "utl/VxString.h"

VxTreeListCtrl::VxTreeListCtrl() : mTree(new VxTreeCtrlEx) {
  RegisterWindowClass();
  mTree->SetUserHasCopiedDataCallBack([this] { OnUserCopiedData(); });
}

VxTreeListCtrl::~VxTreeListCtrl() {
  mTree->SetUserHasCopiedDataCallBack({});
  // Before Initialize the tree has no window, and no parent to delete it.
  if (mTree->GetParent() == nullptr) delete mTree;
}

bool VxTreeListCtrl::RegisterWindowClass() {
  if (IsTreeListWindowClassRegistered()) return true;
  return RegisterTreeListWindowClass();
}

bool VxTreeListCtrl::SubclassDlgItem(UINT id, wxWindow * parent) {
  if (parent == nullptr || GetHandle() != nullptr) return false;
  wxWindow * const placeholder = parent->FindWindow(static_cast<long>(id));
  if (placeholder == nullptr || placeholder == this) return false;
  wxRect const rect = placeholder->GetRect();
  if (!wxWindow::Create(parent, static_cast<wxWindowID>(id), rect.GetPosition(), rect.GetSize(),
                        wxBORDER_NONE | wxWANTS_CHARS, kTreeListWindowClass))
    return false;
  // The frame takes the placeholder's place in the tab order and in a sizer.
  MoveAfterInTabOrder(placeholder);
  if (wxSizer * const sizer = placeholder->GetContainingSizer())
    sizer->Replace(placeholder, this, true);
  placeholder->Destroy();
  return Initialize();
}

bool VxTreeListCtrl::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos,
                            wxSize const & size) {
  if (parent == nullptr || GetHandle() != nullptr) return false;
  if (!wxWindow::Create(parent, id, pos, size, wxBORDER_NONE | wxWANTS_CHARS, kTreeListWindowClass))
    return false;
  return Initialize();
}

bool VxTreeListCtrl::Initialize() {
  SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
  wxSize const size = GetClientSize();
  mHeader = new CNewHeaderCtrl(this, kHeaderId, wxPoint(0, 0), wxSize(size.x, 1), HDS_BUTTONS);

  // The parent's font, for the header and the rows alike.
  wxFont const font = GetParent()->GetFont();
  SetFont(font);
  mHeader->SetFont(font);
  {
    wxBitmap scratch(1, 1);
    wxMemoryDC dc(scratch);
    dc.SetFont(font);
    mHeaderHeight = dc.GetTextExtent("A").y + 4;
  }
  mHeader->SetSize(0, 0, size.x, mHeaderHeight);
  mHeader->SetSortActive(mSortType != NoSort ? 1 : 0);

  int const barHeight = GetSystemMetrics(SM_CYHSCROLL);
  int const treeBottom = std::max(size.y - barHeight - 4, mHeaderHeight);
  mTree->Create(this, kTreeId, mTreeStyle & 0xFFFF, wxPoint(0, mHeaderHeight),
                wxSize(std::max(size.x - 5, 1), std::max(treeBottom - mHeaderHeight, 1)));
  mTree->SetFont(font);
  mTree->SetHeaderCtrl(mHeader);

  mScrollBar = new wxScrollBar(
      this, kScrollBarId, wxPoint(0, treeBottom),
      wxSize(std::max(size.x - GetSystemMetrics(SM_CXVSCROLL), 1), barHeight), wxSB_HORIZONTAL);
  mScrollBar->SetScrollbar(0, mTree->GetClientSize().x, 0, mTree->GetClientSize().x);
  mScrollBar->Disable();

  Bind(VX_EVT_NOTIFY, &VxTreeListCtrl::OnNotify, this);
  Bind(wxEVT_SCROLL_LINEUP, &VxTreeListCtrl::OnScrollEvent, this, kScrollBarId);
  Bind(wxEVT_SCROLL_LINEDOWN, &VxTreeListCtrl::OnScrollEvent, this, kScrollBarId);
  Bind(wxEVT_SCROLL_PAGEUP, &VxTreeListCtrl::OnScrollEvent, this, kScrollBarId);
  Bind(wxEVT_SCROLL_PAGEDOWN, &VxTreeListCtrl::OnScrollEvent, this, kScrollBarId);
  Bind(wxEVT_SCROLL_THUMBTRACK, &VxTreeListCtrl::OnScrollEvent, this, kScrollBarId);
  Bind(wxEVT_SCROLL_THUMBRELEASE, &VxTreeListCtrl::OnScrollEvent, this, kScrollBarId);
  Bind(wxEVT_SCROLL_TOP, &VxTreeListCtrl::OnScrollEvent, this, kScrollBarId);
  Bind(wxEVT_SCROLL_BOTTOM, &VxTreeListCtrl::OnScrollEvent, this, kScrollBarId);
  Bind(wxEVT_SIZE, [this](wxSizeEvent & event) {
    event.Skip();
    OnSize(GetClientSize().x, GetClientSize().y);
  });
  Bind(wxEVT_MOVE, [this](wxMoveEvent & event) {
    event.Skip();
    FitChildren();
  });
  Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent &) { mTree->SetFocus(); });
  Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent &) {
    // The parent hears of it without place or keys.
    if (wxWindow * const parent = GetParent()) {
      wxMouseEvent twice(wxEVT_LEFT_DCLICK);
      twice.SetEventObject(this);
      twice.SetId(GetId());
      parent->GetEventHandler()->ProcessEvent(twice);
    }
  });

  if (mSortType != NoSort) {
    SortTree(0, mSortAscending != 0, mTree->GetRootItem());
    mSortColumn = 0;
    mHeader->SetSortColumn(0);
    mHeader->SetAscending(mSortAscending);
    mHeader->Refresh();
  }
  OnSize(size.x, size.y);
  return true;
}

void VxTreeListCtrl::EnableSort(bool enable) {
  mSortType = enable ? SortRoots : NoSort;
  if (mHeader != nullptr) mHeader->SetSortActive(enable ? 1 : 0);
}

// --- Columns -----------------------------------------------------------------

int VxTreeListCtrl::InsertColumn(int column, wchar_t const * text, int format, int width,
                                 int subItem) {
  return mTree->InsertColumn(column, text, format, width, subItem);
}

void VxTreeListCtrl::ClearColumns() { mTree->ClearColumns(); }

bool VxTreeListCtrl::SetColumnHeaderText(int column, wchar_t const * text) {
  if (mHeader == nullptr || column < 0 || column >= mHeader->GetItemCount()) return false;
  std::wstring buffer = text != nullptr ? text : L"";
  HDITEMW item{};
  item.mask = HDI_TEXT;
  item.pszText = buffer.data();
  item.cchTextMax = static_cast<int>(buffer.size());
  return mHeader->SetItem(column, &item);
}

void VxTreeListCtrl::EnableColumnAutoSize(bool enable) {
  mAutoSizeWidth = enable ? GetClientSize().x : -1;
}

// --- Items -------------------------------------------------------------------

HTREEITEM VxTreeListCtrl::InsertItem(wchar_t const * text, int image, int selectedImage,
                                     HTREEITEM parent, HTREEITEM after) {
  return mTree->InsertItem(text, image, selectedImage, parent, after);
}

HTREEITEM VxTreeListCtrl::InsertItem(wchar_t const * text, HTREEITEM parent, HTREEITEM after) {
  return mTree->InsertItem(text, parent, after);
}

HTREEITEM VxTreeListCtrl::InsertItem(UINT mask, wchar_t const * text, int image, int selectedImage,
                                     UINT state, UINT stateMask, int64_t userData, HTREEITEM parent,
                                     HTREEITEM after) {
  return mTree->InsertItem(mask, text, image, selectedImage, state, stateMask, userData, parent,
                           after);
}

HTREEITEM VxTreeListCtrl::InsertItem(int index, wchar_t const * text, HTREEITEM parent) {
  return mTree->InsertItem(index, text, parent);
}

BOOL VxTreeListCtrl::DeleteItem(HTREEITEM item) { return mTree->DeleteItem(item); }
BOOL VxTreeListCtrl::DeleteItem(int rootIndex) { return mTree->DeleteItem(rootIndex); }
BOOL VxTreeListCtrl::DeleteAllItems() { return mTree->DeleteAllItems(); }
BOOL VxTreeListCtrl::Expand(HTREEITEM item, UINT code) { return mTree->Expand(item, code); }

wxString VxTreeListCtrl::GetItemText(HTREEITEM item, int column) const {
  return mTree->GetItemText(item, column);
}

wxString VxTreeListCtrl::GetItemText(int rootIndex, int column) const {
  return mTree->GetItemText(rootIndex, column);
}

BOOL VxTreeListCtrl::SetItemText(HTREEITEM item, int column, wchar_t const * text) {
  return mTree->SetItemText(item, column, text);
}

BOOL VxTreeListCtrl::SetItemFloat(HTREEITEM item, int column, float value, wchar_t const * text) {
  wxString const formatted = VxString::ToString(static_cast<double>(value), L"%g", text);
  return SetItemText(item, column, formatted.wc_str());
}

bool VxTreeListCtrl::SetItemBold(HTREEITEM item, bool bold, bool invalidate) {
  return mTree->SetItemBold(item, bold, invalidate);
}

bool VxTreeListCtrl::SetItemColor(HTREEITEM item, COLORREF color, bool invalidate) {
  return mTree->SetItemColor(item, color, invalidate);
}

bool VxTreeListCtrl::SetItemGroup(HTREEITEM item, bool group, bool invalidate) {
  return mTree->SetItemGroup(item, group, invalidate);
}

UINT VxTreeListCtrl::GetItemState(HTREEITEM item, UINT mask) const {
  return mTree->IsValidItem(item) ? mTree->GetItemState(item, mask) : 0;
}

BOOL VxTreeListCtrl::SetItemState(HTREEITEM item, UINT state, UINT mask) {
  return mTree->IsValidItem(item) ? mTree->SetItemState(item, state, mask) : 0;
}

BOOL VxTreeListCtrl::ItemHasChildren(HTREEITEM item) const {
  return mTree->IsValidItem(item) ? mTree->ItemHasChildren(item) : 0;
}

int VxTreeListCtrl::GetItem(HTREEITEM item) const { return mTree->GetListItem(item); }
HTREEITEM VxTreeListCtrl::GetItem(int rootIndex) const { return mTree->GetTreeItem(rootIndex); }
int VxTreeListCtrl::GetItemCount() const { return mTree->GetItemCount(); }
HTREEITEM VxTreeListCtrl::GetRootItem() const { return mTree->GetRootItem(); }

HTREEITEM VxTreeListCtrl::GetChildItem(HTREEITEM item) const {
  return mTree->IsValidItem(item) || item == TVI_ROOT ? mTree->GetChildItem(item) : TVI_NULL;
}

HTREEITEM VxTreeListCtrl::GetParentItem(HTREEITEM item) const {
  return mTree->IsValidItem(item) ? mTree->GetParentItem(item) : TVI_NULL;
}

HTREEITEM VxTreeListCtrl::GetNextSiblingItem(HTREEITEM item) const {
  return mTree->IsValidItem(item) ? mTree->GetNextSiblingItem(item) : TVI_NULL;
}

HTREEITEM VxTreeListCtrl::GetPrevSiblingItem(HTREEITEM item) const {
  return mTree->IsValidItem(item) ? mTree->GetPrevSiblingItem(item) : TVI_NULL;
}

// --- Selection ---------------------------------------------------------------

void VxTreeListCtrl::ClearSelection() { mTree->ClearSelection(); }
void VxTreeListCtrl::EnableMultiSelect(bool enable) { mTree->EnableMultiSelect(enable); }

void VxTreeListCtrl::SetSelectionState(VxTreeCtrl::SelectionState state) {
  mTree->SetSelectionState(state);
}

VxTreeCtrl::SelectionState VxTreeListCtrl::GetSelectionState() const {
  return mTree->GetSelectionState();
}

HTREEITEM VxTreeListCtrl::GetFirstSelectedItem() const { return mTree->GetFirstSelectedItem(); }

HTREEITEM VxTreeListCtrl::GetNextSelectedItem(HTREEITEM item) const {
  return mTree->IsValidItem(item) ? mTree->GetNextSelectedItem(item) : TVI_NULL;
}

int VxTreeListCtrl::GetSelectedItemCount() const { return mTree->GetSelectedItemCount(); }

int VxTreeListCtrl::GetSelIndex() const {
  HTREEITEM const caret = mTree->GetSelectedItem();
  return caret ? mTree->GetListItem(caret) : -1;
}

// --- Drawing and sorting -----------------------------------------------------

void VxTreeListCtrl::SetRedraw(int redraw) {
  mRedraw = redraw != 0;
  mTree->SetRedraw(redraw);
  if (mRedraw) {
    mTree->RecalcColumnsWidth();
    ResetScrollBar();
    Refresh();
  }
}

void VxTreeListCtrl::SortTree(int column, bool ascending, HTREEITEM item) {
  // A loop with its own stack: a chain of many levels must not exhaust the
  // thread's stack.
  std::vector<HTREEITEM> runs;
  if (mTree->IsValidItem(item)) runs.push_back(item);
  while (!runs.empty()) {
    HTREEITEM sibling = runs.back();
    runs.pop_back();
    for (; sibling; sibling = mTree->GetNextSiblingItem(sibling)) {
      HTREEITEM const child = mTree->GetChildItem(sibling);
      if (!child) continue;
      mTree->SortItems(column, ascending, sibling);
      runs.push_back(mTree->GetChildItem(sibling));
    }
  }
}

// --- Notifications -----------------------------------------------------------

void VxTreeListCtrl::OnNotify(NotifyEvent & event) {
  if (event.GetHeader()->hwndFrom != mHeader || mHeader == nullptr) {
    ForwardNotify(event);
    return;
  }
  switch (event.GetCode()) {
    case HDN_DIVIDERDBLCLICKW:
    case HDN_DIVIDERDBLCLICKA: break;
    case HDN_ITEMCLICKW:
    case HDN_ITEMCLICKA: OnHeaderClick(event.GetNotification<NMHEADERW>()->iItem); break;
    case HDN_ITEMCHANGEDW:
    case HDN_ITEMCHANGEDA: OnColumnsChanged(); break;
    default: ForwardNotify(event); return;
  }
  event.Skip();
}

void VxTreeListCtrl::ForwardNotify(NotifyEvent & event) {
  wxWindow * const parent = GetParent();
  if (parent == nullptr) {
    event.Skip();
    return;
  }
  NotifyEvent forwarded(VX_EVT_NOTIFY, event.GetHeader());
  forwarded.SetEventObject(event.GetEventObject());
  forwarded.SetId(event.GetId());
  if (parent->GetEventHandler()->ProcessEvent(forwarded)) {
    event.SetResult(forwarded.GetResult());
  } else {
    event.Skip();
  }
}

void VxTreeListCtrl::OnHeaderClick(int column) {
  if (mSortType == NoSort || column < 0) return;
  mSortAscending = column == mSortColumn ? (mSortAscending != 0 ? 0 : 1) : 1;
  mSortColumn = column;
  mHeader->SetSortColumn(column);
  mHeader->SetAscending(mSortAscending);
  mHeader->Refresh();
  if (mSortType == SortRoots) {
    mTree->SortItems(column, mSortAscending != 0, TVI_NULL);
  } else {
    for (HTREEITEM root = mTree->GetRootItem(); root; root = mTree->GetNextSiblingItem(root))
      mTree->SortItems(column, mSortAscending != 0, root);
  }
  mTree->Refresh();
}

void VxTreeListCtrl::OnColumnsChanged() {
  int const oldWidth = mTree->GetColumnsWidth();
  mTree->RecalcColumnsWidth();
  ResetScrollBar();
  int const offset =
      OffsetAfterColumnChange(mTree->GetHorizontalOffset(), oldWidth, mTree->GetColumnsWidth(),
                              ScrollPosition(), ScrollLimit(), mTree->GetClientSize().x);
  if (offset != mTree->GetHorizontalOffset()) {
    mTree->SetHorizontalOffset(offset);
    MoveHeader(offset);
  }
  mTree->Refresh();
}
