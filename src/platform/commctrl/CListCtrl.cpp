// CListCtrl: creation, styles, columns, rows, states and geometry. Input
// is in CListCtrlInput.cpp, painting in CListCtrlPaint.cpp.
#include "platform/commctrl/CListCtrl.h"

#include <wx/dcclient.h>
#include <wx/imaglist.h>
#include <wx/settings.h>

#include <algorithm>
#include <numeric>

#include "platform/SysColor.h"

wxIMPLEMENT_DYNAMIC_CLASS(CListCtrl, wxWindow);

// Notifications from the header child, in the static table so that a
// derived class's own table entry comes first.
#define LIST_EVT_CHILD_NOTIFY(func)         \
  wx__DECLARE_EVT1(VX_EVT_NOTIFY, wxID_ANY, \
                   wxEVENT_HANDLER_CAST(void (wxEvtHandler::*)(NotifyEvent &), func))

wxBEGIN_EVENT_TABLE(CListCtrl, wxWindow) EVT_PAINT(CListCtrl::OnPaint)
    EVT_ERASE_BACKGROUND(CListCtrl::OnEraseBackground) EVT_SIZE(CListCtrl::OnSize)
        EVT_LEFT_DOWN(CListCtrl::OnLButtonDown) EVT_LEFT_UP(CListCtrl::OnLButtonUp)
            EVT_LEFT_DCLICK(CListCtrl::OnLButtonDblClk) EVT_RIGHT_DOWN(CListCtrl::OnRButtonDown)
                EVT_RIGHT_UP(CListCtrl::OnRButtonUp) EVT_MOTION(CListCtrl::OnMouseMove)
                    EVT_MOUSEWHEEL(CListCtrl::OnMouseWheel) EVT_KEY_DOWN(CListCtrl::OnKeyDown)
                        EVT_CHAR(CListCtrl::OnChar) EVT_SET_FOCUS(CListCtrl::OnSetFocus)
                            EVT_KILL_FOCUS(CListCtrl::OnKillFocus)
                                EVT_SCROLLWIN(CListCtrl::OnScrollWin)
                                    LIST_EVT_CHILD_NOTIFY(CListCtrl::OnNotify) wxEND_EVENT_TABLE()

                                        namespace {
  constexpr UINT KeptStateBits = 0xFFFF;

}  // namespace

CListCtrl::CListCtrl() { Init(); }

CListCtrl::CListCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                     DWORD listStyle, long windowStyle) {
  Init();
  Create(parent, id, pos, size, listStyle, windowStyle);
}

void CListCtrl::Init() {
  mBkColor = GetSysColor(COLOR_WINDOW);
  mTextColor = GetSysColor(COLOR_WINDOWTEXT);
  mTextBkColor = GetSysColor(COLOR_WINDOW);
}

bool CListCtrl::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                       DWORD listStyle, long windowStyle) {
  mStyle = listStyle;
  if (!wxWindow::Create(parent, id, pos, size, windowStyle | wxVSCROLL | wxHSCROLL | wxWANTS_CHARS))
    return false;
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
  mHeader = new CHeaderCtrl(this, wxID_ANY);
  mHeader->Bind(wxEVT_SIZE, &CListCtrl::OnHeaderResized, this);
  UpdateRowHeight();
  LayoutHeader();
  UpdateScrollBars();
  return true;
}

CListCtrl::~CListCtrl() {
  if (HasCapture()) ReleaseMouse();
  if (mEdit != nullptr) {
    mEdit->Unbind(wxEVT_KILL_FOCUS, &CListCtrl::OnEditFocusLost, this);
    mEdit->Unbind(wxEVT_CHAR_HOOK, &CListCtrl::OnEditKey, this);
  }
}

// ---- styles ----

bool CListCtrl::ModifyStyle(DWORD remove, DWORD add) {
  DWORD const before = mStyle;
  mStyle = (mStyle & ~remove) | add;
  if (((before ^ mStyle) & LVS_OWNERDATA) != 0) {
    // Switching the kind of storage drops the rows.
    mRows.clear();
    mVirtualCount = 0;
    mVirtualSelected.Clear();
    mFocused = -1;
    mSelectionMark = -1;
    mTop = 0;
  }
  LayoutHeader();
  UpdateScrollBars();
  Refresh();
  return before != mStyle;
}

DWORD CListCtrl::SetExtendedStyle(DWORD exStyle) {
  DWORD const before = mExStyle;
  mExStyle = exStyle;
  if ((exStyle & LVS_EX_CHECKBOXES) != 0 && (before & LVS_EX_CHECKBOXES) == 0) {
    for (Row & row : mRows)
      if ((row.state & LVIS_STATEIMAGEMASK) == 0)
        row.state = static_cast<uint16_t>(row.state | INDEXTOSTATEIMAGEMASK(1));
  }
  if ((exStyle & LVS_EX_CHECKBOXES) == 0 && (before & LVS_EX_CHECKBOXES) != 0) {
    for (Row & row : mRows) row.state = static_cast<uint16_t>(row.state & ~LVIS_STATEIMAGEMASK);
  }
  if (((before ^ exStyle) & LVS_EX_HEADERDRAGDROP) != 0)
    mHeader->ModifyHeaderStyle((exStyle & LVS_EX_HEADERDRAGDROP) != 0 ? 0 : HDS_DRAGDROP,
                               (exStyle & LVS_EX_HEADERDRAGDROP) != 0 ? HDS_DRAGDROP : 0);
  UpdateRowHeight();
  UpdateScrollBars();
  Refresh();
  return before;
}

// ---- columns ----

int CListCtrl::InsertColumn(int column, LVCOLUMNW const * description) {
  if (description == nullptr || column < 0) return -1;
  column = std::min(column, static_cast<int>(mColumns.size()));
  Column fresh;
  if ((description->mask & LVCF_FMT) != 0) fresh.format = description->fmt;
  if ((description->mask & LVCF_WIDTH) != 0) fresh.width = std::max(0, description->cx);
  fresh.subItem = (description->mask & LVCF_SUBITEM) != 0 ? description->iSubItem : column;
  if ((description->mask & LVCF_IMAGE) != 0) fresh.image = description->iImage;
  // Sub-items keep their numbers: the rows' texts are indexed by sub-item,
  // so a column inserted before others shifts the later texts along.
  for (Column & existing : mColumns)
    if (existing.subItem >= fresh.subItem) ++existing.subItem;
  for (Row & row : mRows)
    if (static_cast<size_t>(fresh.subItem) < row.texts.size())
      row.texts.insert(row.texts.begin() + fresh.subItem, wxString());
  mColumns.insert(mColumns.begin() + column, fresh);

  HDITEMW item;
  item.mask = HDI_WIDTH | HDI_FORMAT;
  item.cxy = fresh.width;
  item.fmt = HDF_STRING | (fresh.format & LVCFMT_JUSTIFYMASK);
  if ((description->mask & LVCF_TEXT) != 0) {
    item.mask |= HDI_TEXT;
    item.pszText = description->pszText;
  }
  if ((description->mask & LVCF_ORDER) != 0) {
    item.mask |= HDI_ORDER;
    item.iOrder = description->iOrder;
  }
  mHeader->InsertItem(column, &item);
  UpdateScrollBars();
  Refresh();
  return column;
}

int CListCtrl::InsertColumn(int column, wxString const & heading, int format, int width,
                            int subItem) {
  std::wstring text = heading.ToStdWstring();
  LVCOLUMNW description;
  description.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH;
  description.pszText = text.data();
  description.fmt = format;
  description.cx = width < 0 ? GetStringWidth(heading) + 12 : width;
  if (subItem >= 0) {
    description.mask |= LVCF_SUBITEM;
    description.iSubItem = subItem;
  }
  return InsertColumn(column, &description);
}

bool CListCtrl::DeleteColumn(int column) {
  if (column < 0 || column >= static_cast<int>(mColumns.size())) return false;
  int const subItem = mColumns[static_cast<size_t>(column)].subItem;
  mColumns.erase(mColumns.begin() + column);
  for (Column & existing : mColumns)
    if (existing.subItem > subItem) --existing.subItem;
  for (Row & row : mRows)
    if (static_cast<size_t>(subItem) < row.texts.size())
      row.texts.erase(row.texts.begin() + subItem);
  mHeader->DeleteItem(column);
  UpdateScrollBars();
  Refresh();
  return true;
}

bool CListCtrl::GetColumn(int column, LVCOLUMNW * description) const {
  if (description == nullptr || column < 0 || column >= static_cast<int>(mColumns.size()))
    return false;
  Column const & source = mColumns[static_cast<size_t>(column)];
  if ((description->mask & LVCF_FMT) != 0) description->fmt = source.format;
  if ((description->mask & LVCF_WIDTH) != 0) description->cx = mHeader->GetItemWidth(column);
  if ((description->mask & LVCF_SUBITEM) != 0) description->iSubItem = source.subItem;
  if ((description->mask & LVCF_IMAGE) != 0) description->iImage = source.image;
  if ((description->mask & (LVCF_TEXT | LVCF_ORDER)) != 0) {
    HDITEMW item;
    item.mask = ((description->mask & LVCF_TEXT) != 0 ? HDI_TEXT : 0) |
                ((description->mask & LVCF_ORDER) != 0 ? HDI_ORDER : 0);
    item.pszText = description->pszText;
    item.cchTextMax = description->cchTextMax;
    mHeader->GetItem(column, &item);
    description->iOrder = item.iOrder;
  }
  return true;
}

bool CListCtrl::SetColumn(int column, LVCOLUMNW const * description) {
  if (description == nullptr || column < 0 || column >= static_cast<int>(mColumns.size()))
    return false;
  Column & target = mColumns[static_cast<size_t>(column)];
  HDITEMW item;
  if ((description->mask & LVCF_FMT) != 0) {
    target.format = description->fmt;
    item.mask |= HDI_FORMAT;
    item.fmt = (mHeader->GetItemFormat(column) & ~HDF_JUSTIFYMASK) |
               (description->fmt & LVCFMT_JUSTIFYMASK);
  }
  if ((description->mask & LVCF_IMAGE) != 0) target.image = description->iImage;
  if ((description->mask & LVCF_WIDTH) != 0) {
    item.mask |= HDI_WIDTH;
    item.cxy = std::max(0, description->cx);
  }
  if ((description->mask & LVCF_TEXT) != 0) {
    item.mask |= HDI_TEXT;
    item.pszText = description->pszText;
  }
  if ((description->mask & LVCF_ORDER) != 0) {
    item.mask |= HDI_ORDER;
    item.iOrder = description->iOrder;
  }
  if (item.mask != 0) mHeader->SetItem(column, &item);
  Refresh();
  return true;
}

int CListCtrl::GetColumnWidth(int column) const { return mHeader->GetItemWidth(column); }

bool CListCtrl::SetColumnWidth(int column, int width) {
  if (column < 0 || column >= static_cast<int>(mColumns.size())) return false;
  if (width == LVSCW_AUTOSIZE)
    width = AutoWidth(column, false);
  else if (width == LVSCW_AUTOSIZE_USEHEADER)
    width = AutoWidth(column, true);
  HDITEMW item;
  item.mask = HDI_WIDTH;
  item.cxy = std::max(0, width);
  return mHeader->SetItem(column, &item);
}

int CListCtrl::AutoWidth(int column, bool useHeader) const {
  int const subItem = mColumns[static_cast<size_t>(column)].subItem;
  int widest = 0;
  // Owner-data lists measure the visible rows only: asking the owner for a
  // million texts would freeze the user's click.
  int first = 0, last = GetItemCount();
  if (IsOwnerData()) {
    first = mTop;
    last = std::min(GetItemCount(), mTop + GetCountPerPage() + 1);
  }
  wxClientDC dc(const_cast<CListCtrl *>(this));
  dc.SetFont(GetFont());
  for (int item = first; item < last; ++item)
    widest = std::max(widest, dc.GetTextExtent(DisplayText(item, subItem)).x);
  widest += 12;
  if (subItem == 0) {
    if (mSmallImages != nullptr) widest += mSmallImages->GetSize().x + 2;
    if (mStateImages != nullptr || (mExStyle & LVS_EX_CHECKBOXES) != 0) widest += mRowHeight;
  }
  if (useHeader) {
    widest = std::max(widest, dc.GetTextExtent(mHeader->GetItemText(column)).x + 16);
    // The last column by display order fills the rest of the client.
    std::vector<int> const order = mHeader->GetOrder();
    if (!order.empty() && order.back() == column) {
      int const others = ColumnsWidth() - mHeader->GetItemWidth(column);
      widest = std::max(widest, GetClientSize().x - others);
    }
  }
  return widest;
}

bool CListCtrl::ReplaceHeaderCtrl(CHeaderCtrl * header) {
  if (header == nullptr || header == mHeader || header->GetParent() != this) return false;
  if (mEdit != nullptr) CommitEdit(false);
  while (header->GetItemCount() > 0) header->DeleteItem(0);
  std::vector<int> const order = mHeader->GetOrder();
  for (int index = 0; index < mHeader->GetItemCount(); ++index) {
    std::wstring text = mHeader->GetItemText(index).ToStdWstring();
    HDITEMW item;
    item.mask = HDI_WIDTH | HDI_FORMAT | HDI_TEXT | HDI_LPARAM | HDI_BITMAP | HDI_IMAGE;
    mHeader->GetItem(index, &item);
    item.pszText = text.data();
    header->InsertItem(index, &item);
  }
  header->SetOrderArray(static_cast<int>(order.size()), order.data());
  if ((mExStyle & LVS_EX_HEADERDRAGDROP) != 0) header->ModifyHeaderStyle(0, HDS_DRAGDROP);
  header->Bind(wxEVT_SIZE, &CListCtrl::OnHeaderResized, this);
  mHeader->Unbind(wxEVT_SIZE, &CListCtrl::OnHeaderResized, this);
  mHeader->Destroy();
  mHeader = header;
  LayoutHeader();
  UpdateScrollBars();
  Refresh();
  return true;
}

bool CListCtrl::GetColumnOrderArray(int * order, int count) const {
  return mHeader->GetOrderArray(order, count);
}

bool CListCtrl::SetColumnOrderArray(int count, int const * order) {
  bool const done = mHeader->SetOrderArray(count, order);
  Refresh();
  return done;
}

int CListCtrl::ColumnsWidth() const {
  int total = 0;
  for (int column = 0; column < mHeader->GetItemCount(); ++column)
    total += mHeader->GetItemWidth(column);
  return total;
}

int CListCtrl::ColumnLeft(int column) const {
  int x = 0;
  for (int const at : mHeader->GetOrder()) {
    if (at == column) return x;
    x += mHeader->GetItemWidth(at);
  }
  return x;
}

// ---- rows ----

int CListCtrl::GetItemCount() const {
  return IsOwnerData() ? mVirtualCount : static_cast<int>(mRows.size());
}

int CListCtrl::InsertItem(LVITEMW const * item) {
  if (item == nullptr || IsOwnerData() || item->iSubItem != 0) return -1;
  if (mRows.size() >= static_cast<size_t>(INT32_MAX)) return -1;
  int const index = std::clamp(item->iItem, 0, static_cast<int>(mRows.size()));
  Row row;
  if ((item->mask & LVIF_TEXT) != 0) {
    if (item->pszText == LPSTR_TEXTCALLBACKW)
      row.textCallback = true;
    else if (item->pszText != nullptr)
      row.texts.emplace_back(item->pszText);
  }
  if ((item->mask & LVIF_IMAGE) != 0) row.image = item->iImage;
  if ((item->mask & LVIF_PARAM) != 0) row.data = item->lParam;
  if ((item->mask & LVIF_INDENT) != 0) row.indent = item->iIndent;
  UINT state = 0;
  if ((item->mask & LVIF_STATE) != 0) state = item->state & item->stateMask & KeptStateBits;
  if ((mExStyle & LVS_EX_CHECKBOXES) != 0 && (state & LVIS_STATEIMAGEMASK) == 0)
    state |= INDEXTOSTATEIMAGEMASK(1);
  // The focus is one row: a new focused row takes it from the old one.
  if ((state & LVIS_FOCUSED) != 0 && mFocused >= 0) {
    int const old = mFocused >= index ? mFocused + 1 : mFocused;
    mRows.insert(mRows.begin() + index, std::move(row));
    mRows[static_cast<size_t>(old)].state &= static_cast<uint16_t>(~LVIS_FOCUSED);
  } else {
    mRows.insert(mRows.begin() + index, std::move(row));
  }
  mRows[static_cast<size_t>(index)].state = static_cast<uint16_t>(state);
  if (mFocused >= index) ++mFocused;
  if (mSelectionMark >= index) ++mSelectionMark;
  if ((state & LVIS_FOCUSED) != 0) mFocused = index;
  NotifyListView(LVN_INSERTITEM, index, 0, 0, 0, 0);
  UpdateScrollBars();
  // Only a row inside the page (or above it, which shifts the page) repaints.
  if (mRedraw && index < mTop + GetCountPerPage() + 1) Refresh();
  return index;
}

int CListCtrl::InsertItem(int index, wxString const & text, int image) {
  std::wstring copy = text.ToStdWstring();
  LVITEMW item;
  item.mask = LVIF_TEXT | (image >= 0 ? LVIF_IMAGE : 0U);
  item.iItem = index;
  item.pszText = copy.data();
  item.iImage = image;
  return InsertItem(&item);
}

bool CListCtrl::DeleteItem(int item) {
  if (!IsValid(item)) return false;
  if (mEdit != nullptr && mEditItem == item) CommitEdit(true);
  NotifyListView(LVN_DELETEITEM, item, 0, 0, 0, 0);
  if (!IsValid(item)) return false;  // the handler took it away
  if (IsOwnerData()) {
    // An owner-data list loses the last row; selections above shift down.
    mVirtualSelected.RemoveRowAndShift(item);
    --mVirtualCount;
  } else {
    mRows.erase(mRows.begin() + item);
  }
  if (mFocused == item)
    mFocused = -1;
  else if (mFocused > item)
    --mFocused;
  if (mSelectionMark == item)
    mSelectionMark = -1;
  else if (mSelectionMark > item)
    --mSelectionMark;
  if (mTop > 0 && mTop >= GetItemCount()) mTop = std::max(0, GetItemCount() - 1);
  UpdateScrollBars();
  if (mRedraw) Refresh();
  return true;
}

bool CListCtrl::DeleteAllItems() {
  if (mEdit != nullptr) CommitEdit(true);
  if (GetItemCount() > 0) {
    bool const quiet = NotifyListView(LVN_DELETEALLITEMS, -1, 0, 0, 0, 0) != 0;
    if (!quiet && !IsOwnerData())
      for (int item = 0; item < static_cast<int>(mRows.size()); ++item)
        NotifyListView(LVN_DELETEITEM, item, 0, 0, 0, 0);
  }
  mRows.clear();
  mVirtualCount = 0;
  mVirtualSelected.Clear();
  mFocused = -1;
  mSelectionMark = -1;
  mHot = -1;
  mTop = 0;
  UpdateScrollBars();
  Refresh();
  return true;
}

void CListCtrl::SetItemCount(int count) {
  if (IsOwnerData()) {
    SetItemCountEx(count, 0);
  } else if (count > 0) {
    mRows.reserve(static_cast<size_t>(count));
  }
}

bool CListCtrl::SetItemCountEx(int count, DWORD flags) {
  if (!IsOwnerData()) {
    SetItemCount(count);
    return true;
  }
  count = std::max(0, count);
  mVirtualCount = count;
  mVirtualSelected.Truncate(count);
  if (mFocused >= count) mFocused = -1;
  if (mSelectionMark >= count) mSelectionMark = -1;
  mHot = -1;
  if ((flags & LVSICF_NOSCROLL) == 0 || mTop >= count)
    mTop = std::clamp(mTop, 0, std::max(0, count - GetCountPerPage()));
  UpdateScrollBars();
  Refresh();
  return true;
}

bool CListCtrl::GetItem(LVITEMW * item) const {
  if (item == nullptr || !IsValid(item->iItem)) return false;
  if ((item->mask & LVIF_TEXT) != 0 && item->pszText != nullptr && item->cchTextMax > 0) {
    std::wstring const text = DisplayText(item->iItem, item->iSubItem).ToStdWstring();
    size_t const n = std::min(text.size(), static_cast<size_t>(item->cchTextMax - 1));
    std::copy_n(text.data(), n, item->pszText);
    item->pszText[n] = L'\0';
  }
  if ((item->mask & LVIF_STATE) != 0) item->state = StateOf(item->iItem) & item->stateMask;
  if ((item->mask & LVIF_IMAGE) != 0) item->iImage = DisplayImage(item->iItem);
  if (!IsOwnerData()) {
    Row const & row = mRows[static_cast<size_t>(item->iItem)];
    if ((item->mask & LVIF_PARAM) != 0) item->lParam = row.data;
    if ((item->mask & LVIF_INDENT) != 0) item->iIndent = row.indent;
  } else if ((item->mask & LVIF_PARAM) != 0) {
    item->lParam = 0;
  }
  return true;
}

bool CListCtrl::SetItem(LVITEMW const * item) {
  if (item == nullptr || !IsValid(item->iItem)) return false;
  if ((item->mask & LVIF_STATE) != 0) ChangeState(item->iItem, item->state, item->stateMask);
  if (IsOwnerData()) return true;  // the owner keeps everything else
  Row & row = mRows[static_cast<size_t>(item->iItem)];
  if ((item->mask & LVIF_TEXT) != 0) {
    if (item->iSubItem == 0 && item->pszText == LPSTR_TEXTCALLBACKW) {
      row.textCallback = true;
    } else if (item->iSubItem >= 0) {
      if (item->iSubItem == 0) row.textCallback = false;
      auto const sub = static_cast<size_t>(item->iSubItem);
      if (row.texts.size() <= sub) row.texts.resize(sub + 1);
      row.texts[sub] = item->pszText != nullptr && item->pszText != LPSTR_TEXTCALLBACKW
                           ? wxString(item->pszText)
                           : wxString();
    }
  }
  if (item->iSubItem == 0) {
    if ((item->mask & LVIF_IMAGE) != 0) row.image = item->iImage;
    if ((item->mask & LVIF_PARAM) != 0) row.data = item->lParam;
    if ((item->mask & LVIF_INDENT) != 0) row.indent = item->iIndent;
  }
  RedrawItems(item->iItem, item->iItem);
  return true;
}

wxString CListCtrl::GetItemText(int item, int subItem) const {
  return IsValid(item) && subItem >= 0 ? DisplayText(item, subItem) : wxString();
}

wxString const * CListCtrl::FindStoredText(int item, int subItem) const {
  if (!IsValid(item) || subItem < 0 || IsOwnerData()) return nullptr;
  Row const & row = mRows[static_cast<size_t>(item)];
  if (subItem == 0 && row.textCallback) return nullptr;
  static wxString const empty;
  auto const sub = static_cast<size_t>(subItem);
  return sub < row.texts.size() ? &row.texts[sub] : &empty;
}

void CListCtrl::PrefetchRow(int item) const {
  if (IsValid(item) && !IsOwnerData())
    __builtin_prefetch(mRows[static_cast<size_t>(item)].texts.data());
}

bool CListCtrl::SetItemText(int item, int subItem, wxString const & text) {
  if (!IsValid(item) || subItem < 0 || IsOwnerData()) return false;
  Row & row = mRows[static_cast<size_t>(item)];
  auto const sub = static_cast<size_t>(subItem);
  if (row.texts.size() <= sub) row.texts.resize(sub + 1);
  row.texts[sub] = text;
  if (subItem == 0) row.textCallback = false;
  RedrawItems(item, item);
  return true;
}

DWORD_PTR CListCtrl::GetItemData(int item) const {
  if (!IsValid(item) || IsOwnerData()) return 0;
  return static_cast<DWORD_PTR>(mRows[static_cast<size_t>(item)].data);
}

bool CListCtrl::SetItemData(int item, DWORD_PTR data) {
  if (!IsValid(item) || IsOwnerData()) return false;
  mRows[static_cast<size_t>(item)].data = static_cast<LPARAM>(data);
  return true;
}

wxString CListCtrl::DisplayText(int item, int subItem) const {
  if (!IsOwnerData()) {
    Row const & row = mRows[static_cast<size_t>(item)];
    if (!(subItem == 0 && row.textCallback)) {
      auto const sub = static_cast<size_t>(subItem);
      return sub < row.texts.size() ? row.texts[sub] : wxString();
    }
  }
  // The owner gives the text: LVN_GETDISPINFO with a buffer it may fill or
  // replace by its own pointer.
  wchar_t buffer[260] = {};
  NMLVDISPINFOW info;
  info.item.mask = LVIF_TEXT;
  info.item.iItem = item;
  info.item.iSubItem = subItem;
  info.item.pszText = buffer;
  info.item.cchTextMax = 260;
  SendNotify(const_cast<CListCtrl *>(this), LVN_GETDISPINFOW, info.hdr);
  if (info.item.pszText == nullptr || info.item.pszText == LPSTR_TEXTCALLBACKW) return wxString();
  return wxString(info.item.pszText);
}

int CListCtrl::DisplayImage(int item) const {
  if (!IsOwnerData()) {
    int const image = mRows[static_cast<size_t>(item)].image;
    if (image != I_IMAGECALLBACK) return image;
  } else if (mSmallImages == nullptr) {
    return -1;
  }
  NMLVDISPINFOW info;
  info.item.mask = LVIF_IMAGE;
  info.item.iItem = item;
  info.item.iImage = -1;
  SendNotify(const_cast<CListCtrl *>(this), LVN_GETDISPINFOW, info.hdr);
  return info.item.iImage;
}

UINT CListCtrl::DisplayStateImage(int item) const {
  if (!IsOwnerData()) return STATEIMAGEMASKTOINDEX(mRows[static_cast<size_t>(item)].state);
  if ((mExStyle & LVS_EX_CHECKBOXES) == 0 && mStateImages == nullptr) return 0;
  // The owner of the data keeps the check states too.
  NMLVDISPINFOW info;
  info.item.mask = LVIF_STATE;
  info.item.iItem = item;
  info.item.stateMask = LVIS_STATEIMAGEMASK;
  SendNotify(const_cast<CListCtrl *>(this), LVN_GETDISPINFOW, info.hdr);
  return STATEIMAGEMASKTOINDEX(info.item.state);
}

// ---- states ----

UINT CListCtrl::StateOf(int item) const {
  if (!IsOwnerData()) return mRows[static_cast<size_t>(item)].state;
  UINT state = 0;
  if (mVirtualSelected.Contains(item)) state |= LVIS_SELECTED;
  if (item == mFocused) state |= LVIS_FOCUSED;
  return state | INDEXTOSTATEIMAGEMASK(DisplayStateImage(item));
}

void CListCtrl::StoreState(int item, UINT state) {
  if (IsOwnerData()) {
    if ((state & LVIS_SELECTED) != 0)
      mVirtualSelected.Add(item, item);
    else
      mVirtualSelected.Remove(item, item);
  } else {
    mRows[static_cast<size_t>(item)].state = static_cast<uint16_t>(state & KeptStateBits);
  }
  if ((state & LVIS_FOCUSED) != 0)
    mFocused = item;
  else if (mFocused == item)
    mFocused = -1;
}

LRESULT CListCtrl::NotifyListView(UINT code, int item, int subItem, UINT newState, UINT oldState,
                                  UINT changed) {
  NMLISTVIEW info;
  info.iItem = item;
  info.iSubItem = subItem;
  info.uNewState = newState;
  info.uOldState = oldState;
  info.uChanged = changed;
  if (IsValid(item) && !IsOwnerData()) info.lParam = mRows[static_cast<size_t>(item)].data;
  return SendNotify(this, code, info.hdr);
}

bool CListCtrl::ChangeState(int item, UINT state, UINT mask) {
  UINT const old = StateOf(item);
  UINT const wanted = (old & ~mask) | (state & mask);
  if (wanted == old) return false;
  if (NotifyListView(LVN_ITEMCHANGING, item, 0, wanted, old, LVIF_STATE) != 0) return false;
  if (!IsValid(item)) return false;
  // A single-selection list has one selected row at most.
  if ((mStyle & LVS_SINGLESEL) != 0 && (wanted & ~old & LVIS_SELECTED) != 0) {
    for (int other = GetNextItem(-1, LVNI_SELECTED); other >= 0;
         other = GetNextItem(other, LVNI_SELECTED))
      if (other != item) ChangeState(other, 0, LVIS_SELECTED);
  }
  // Only one row has the focus.
  if ((wanted & LVIS_FOCUSED) != 0 && mFocused >= 0 && mFocused != item) {
    int const previous = mFocused;
    ChangeState(previous, 0, LVIS_FOCUSED);
  }
  if (IsOwnerData() && ((wanted ^ old) & LVIS_STATEIMAGEMASK) != 0) {
    // The owner keeps check states: it learns of them from LVN_ITEMCHANGED.
  }
  StoreState(item, wanted);
  NotifyListView(LVN_ITEMCHANGED, item, 0, wanted, old, LVIF_STATE);
  RedrawItems(item, item);
  return true;
}

bool CListCtrl::SetItemState(int item, UINT state, UINT mask) {
  if (item == -1) {
    int const count = GetItemCount();
    if (IsOwnerData() && (mask & ~(LVIS_SELECTED | LVIS_FOCUSED)) == 0 &&
        (mask & LVIS_SELECTED) != 0) {
      // One notification for all rows, as the platform sends it.
      UINT const newState = state & mask;
      if (NotifyListView(LVN_ITEMCHANGING, -1, 0, newState, 0, LVIF_STATE) != 0) return false;
      mVirtualSelected.Clear();
      if ((newState & LVIS_SELECTED) != 0) mVirtualSelected.Add(0, count - 1);
      if ((mask & LVIS_FOCUSED) != 0 && (newState & LVIS_FOCUSED) == 0) mFocused = -1;
      NotifyListView(LVN_ITEMCHANGED, -1, 0, newState, 0, LVIF_STATE);
      Refresh();
      return true;
    }
    bool const redraw = mRedraw;
    mRedraw = false;
    for (int i = 0; i < count && i < GetItemCount(); ++i) ChangeState(i, state, mask);
    mRedraw = redraw;
    Refresh();
    return true;
  }
  if (!IsValid(item)) return false;
  ChangeState(item, state, mask);
  return true;
}

UINT CListCtrl::GetItemState(int item, UINT mask) const {
  return IsValid(item) ? StateOf(item) & mask : 0;
}

int CListCtrl::GetNextItem(int start, UINT flags) const {
  int const count = GetItemCount();
  UINT const wanted = flags & (LVNI_SELECTED | LVNI_FOCUSED | LVNI_CUT | LVNI_DROPHILITED);
  auto const matches = [&](int item) {
    UINT const state = StateOf(item);
    if ((wanted & LVNI_SELECTED) != 0 && (state & LVIS_SELECTED) == 0) return false;
    if ((wanted & LVNI_FOCUSED) != 0 && (state & LVIS_FOCUSED) == 0) return false;
    if ((wanted & LVNI_CUT) != 0 && (state & LVIS_CUT) == 0) return false;
    if ((wanted & LVNI_DROPHILITED) != 0 && (state & LVIS_DROPHILITED) == 0) return false;
    return true;
  };
  if ((flags & LVNI_ABOVE) != 0) {
    for (int item = std::min(start, count) - 1; item >= 0; --item)
      if (matches(item)) return item;
    return -1;
  }
  if (wanted == LVNI_FOCUSED) return mFocused > start ? mFocused : -1;
  if (IsOwnerData() && (wanted & LVNI_SELECTED) != 0) {
    for (int at = mVirtualSelected.NextAfter(start); at >= 0; at = mVirtualSelected.NextAfter(at))
      if (matches(at)) return at;
    return -1;
  }
  for (int item = std::max(start + 1, 0); item < count; ++item)
    if (matches(item)) return item;
  return -1;
}

UINT CListCtrl::GetSelectedCount() const {
  if (IsOwnerData()) return static_cast<UINT>(mVirtualSelected.Count());
  return static_cast<UINT>(std::count_if(mRows.begin(), mRows.end(), [](Row const & row) {
    return (row.state & LVIS_SELECTED) != 0;
  }));
}

int CListCtrl::SetSelectionMark(int item) {
  int const before = mSelectionMark;
  mSelectionMark = item;
  return before;
}

bool CListCtrl::GetCheck(int item) const {
  return IsValid(item) && STATEIMAGEMASKTOINDEX(StateOf(item)) == 2;
}

bool CListCtrl::SetCheck(int item, bool checked) {
  if (!IsValid(item)) return false;
  ChangeState(item, INDEXTOSTATEIMAGEMASK(checked ? 2 : 1), LVIS_STATEIMAGEMASK);
  return true;
}

int CListCtrl::FindItem(LVFINDINFOW const * find, int start) const {
  if (find == nullptr) return -1;
  int const count = GetItemCount();
  if (count == 0) return -1;
  if (IsOwnerData()) {
    NMLVFINDITEMW info;
    info.iStart = start + 1;
    info.lvfi = *find;
    return static_cast<int>(SendNotify(const_cast<CListCtrl *>(this), LVN_ODFINDITEMW, info.hdr));
  }
  wxString const wanted = find->psz != nullptr ? wxString(find->psz).Lower() : wxString();
  auto const matches = [&](int item) {
    if ((find->flags & LVFI_PARAM) != 0)
      return mRows[static_cast<size_t>(item)].data == find->lParam;
    wxString const text = DisplayText(item, 0).Lower();
    if ((find->flags & LVFI_PARTIAL) != 0) return text.StartsWith(wanted);
    return text == wanted;
  };
  int const first = std::clamp(start + 1, 0, count);
  for (int item = first; item < count; ++item)
    if (matches(item)) return item;
  if ((find->flags & LVFI_WRAP) != 0)
    for (int item = 0; item < first; ++item)
      if (matches(item)) return item;
  return -1;
}

bool CListCtrl::SortItems(PFNLVCOMPARE compare, DWORD_PTR data) {
  if (compare == nullptr || IsOwnerData()) return false;
  std::stable_sort(mRows.begin(), mRows.end(), [&](Row const & a, Row const & b) {
    return compare(a.data, b.data, static_cast<LPARAM>(data)) < 0;
  });
  mFocused = -1;
  for (int i = 0; i < static_cast<int>(mRows.size()); ++i)
    if ((mRows[static_cast<size_t>(i)].state & LVIS_FOCUSED) != 0) mFocused = i;
  Refresh();
  return true;
}

bool CListCtrl::SortItemsEx(PFNLVCOMPARE compare, DWORD_PTR data) {
  if (compare == nullptr || IsOwnerData()) return false;
  std::vector<int> order(mRows.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](int a, int b) { return compare(a, b, static_cast<LPARAM>(data)) < 0; });
  std::vector<Row> sorted;
  sorted.reserve(mRows.size());
  for (int const at : order) sorted.push_back(std::move(mRows[static_cast<size_t>(at)]));
  mRows.swap(sorted);
  mFocused = -1;
  for (int i = 0; i < static_cast<int>(mRows.size()); ++i)
    if ((mRows[static_cast<size_t>(i)].state & LVIS_FOCUSED) != 0) mFocused = i;
  Refresh();
  return true;
}

bool CListCtrl::ReorderItems(std::vector<int> const & order) {
  if (IsOwnerData() || order.size() != mRows.size()) return false;
  std::vector<bool> seen(mRows.size(), false);
  for (int const at : order) {
    if (at < 0 || at >= static_cast<int>(mRows.size()) || seen[static_cast<size_t>(at)])
      return false;
    seen[static_cast<size_t>(at)] = true;
  }
  std::vector<Row> reordered;
  reordered.reserve(mRows.size());
  // The rows are taken in a scattered order: each is fetched a few steps
  // before it is moved so that the waits overlap.
  constexpr size_t kAhead = 8;
  for (size_t k = 0; k < order.size(); ++k) {
    if (k + kAhead < order.size())
      __builtin_prefetch(&mRows[static_cast<size_t>(order[k + kAhead])]);
    reordered.push_back(std::move(mRows[static_cast<size_t>(order[k])]));
  }
  mRows.swap(reordered);
  mFocused = -1;
  for (int i = 0; i < static_cast<int>(mRows.size()); ++i)
    if ((mRows[static_cast<size_t>(i)].state & LVIS_FOCUSED) != 0) mFocused = i;
  Refresh();
  return true;
}

// ---- colours and images ----

bool CListCtrl::SetBkColor(COLORREF color) {
  mBkColor = color;
  Refresh();
  return true;
}

bool CListCtrl::SetTextColor(COLORREF color) {
  mTextColor = color;
  Refresh();
  return true;
}

bool CListCtrl::SetTextBkColor(COLORREF color) {
  mTextBkColor = color;
  Refresh();
  return true;
}

wxImageList * CListCtrl::SetImageList(wxImageList * images, int which) {
  wxImageList * before = GetImageList(which);
  if (which == LVSIL_SMALL || which == LVSIL_NORMAL)
    mSmallImages = images;
  else if (which == LVSIL_STATE)
    mStateImages = images;
  UpdateRowHeight();
  UpdateScrollBars();
  Refresh();
  return before;
}

wxImageList * CListCtrl::GetImageList(int which) const {
  if (which == LVSIL_SMALL || which == LVSIL_NORMAL) return mSmallImages;
  if (which == LVSIL_STATE) return mStateImages;
  return nullptr;
}

void CListCtrl::SetRedraw(bool redraw) {
  if (redraw == mRedraw) return;
  mRedraw = redraw;
  if (redraw) {
    UpdateScrollBars();
    Refresh();
  }
}

bool CListCtrl::RedrawItems(int first, int last) {
  if (!mRedraw || last < mTop || first > mTop + GetCountPerPage() + 1) return true;
  RECT a{}, b{};
  if (!GetItemRect(std::max(first, mTop), &a, LVIR_BOUNDS)) return false;
  int const lastShown = std::min(last, mTop + GetCountPerPage() + 1);
  if (!GetItemRect(std::max(lastShown, first), &b, LVIR_BOUNDS)) b = a;
  if (a.top >= GetClientSize().y || b.bottom <= GetHeaderHeight()) return true;
  RefreshRect(wxRect(0, a.top, GetClientSize().x, b.bottom - a.top), false);
  return true;
}

// ---- geometry ----

void CListCtrl::UpdateRowHeight() {
  wxClientDC dc(this);
  dc.SetFont(GetFont());
  int height = dc.GetCharHeight() + 4;
  if (mSmallImages != nullptr) height = std::max(height, mSmallImages->GetSize().y + 1);
  if (mStateImages != nullptr) height = std::max(height, mStateImages->GetSize().y + 1);
  if ((mExStyle & LVS_EX_CHECKBOXES) != 0 && mStateImages == nullptr) height = std::max(height, 17);
  mRowHeight = std::max(height, 1);
}

int CListCtrl::GetHeaderHeight() const {
  return mHeader != nullptr && mHeader->IsShown() ? mHeader->GetSize().y : 0;
}

void CListCtrl::LayoutHeader() {
  if (mHeader == nullptr) return;
  bool const show = (mStyle & LVS_NOCOLUMNHEADER) == 0 && (mStyle & LVS_TYPEMASK) == LVS_REPORT;
  mHeader->Show(show);
  // Headings that sort nothing are not buttons.
  mHeader->ModifyHeaderStyle((mStyle & LVS_NOSORTHEADER) != 0 ? HDS_BUTTONS : 0,
                             (mStyle & LVS_NOSORTHEADER) != 0 ? 0 : HDS_BUTTONS);
  int const height = show ? mHeader->GetIdealHeight() : 0;
  mHeader->SetSize(0, 0, std::max(GetClientSize().x, 1), std::max(height, 1));
  mHeader->SetScrollOffset(mScrollX);
}

void CListCtrl::OnHeaderResized(wxSizeEvent & event) {
  event.Skip();
  UpdateScrollBars();
}

int CListCtrl::GetCountPerPage() const {
  int const rows = (GetClientSize().y - GetHeaderHeight()) / std::max(mRowHeight, 1);
  return std::max(rows, 0);
}

void CListCtrl::UpdateScrollBars() {
  if (mHeader == nullptr) return;
  int const count = GetItemCount();
  int const page = std::max(GetCountPerPage(), 1);
  mTop = std::clamp(mTop, 0, std::max(0, count - page));
  mScrollX = std::clamp(mScrollX, 0, std::max(0, ColumnsWidth() - GetClientSize().x));
  mHeader->SetScrollOffset(mScrollX);
  // The toolkit's scroll bars are slow to change: they follow at idle time,
  // once for a whole burst of inserts.
  mScrollBarsStale = true;
}

void CListCtrl::OnInternalIdle() {
  wxWindow::OnInternalIdle();
  if (mScrollBarsStale && mRedraw) ApplyScrollBars();
}

void CListCtrl::ApplyScrollBars() {
  mScrollBarsStale = false;
  int const count = GetItemCount();
  int const page = std::max(GetCountPerPage(), 1);
  if ((mStyle & LVS_NOSCROLL) != 0) {
    SetScrollbar(wxVERTICAL, 0, 0, 0);
    SetScrollbar(wxHORIZONTAL, 0, 0, 0);
    return;
  }
  SetScrollbar(wxVERTICAL, mTop, page, count > page ? count : 0);
  int const width = ColumnsWidth();
  int const client = GetClientSize().x;
  SetScrollbar(wxHORIZONTAL, mScrollX, client, width > client ? width : 0);
}

bool CListCtrl::EnsureVisible(int item, bool partialOK) {
  if (!IsValid(item)) return false;
  int const page = std::max(GetCountPerPage(), 1);
  int top = mTop;
  if (item < top)
    top = item;
  else if (item >= top + page) {
    // A row partly shown below the last full one is enough when allowed.
    bool const partlyShown = partialOK && item == top + page &&
                             GetHeaderHeight() + page * mRowHeight < GetClientSize().y;
    if (!partlyShown) top = item - page + 1;
  }
  if (top != mTop) {
    mTop = top;
    UpdateScrollBars();
    Refresh();
  }
  return true;
}

bool CListCtrl::Scroll(wxSize delta) {
  int const rows = delta.y / std::max(mRowHeight, 1) +
                   (delta.y % std::max(mRowHeight, 1) != 0 ? (delta.y > 0 ? 1 : -1) : 0);
  int const top = mTop + rows;
  int const x = mScrollX + delta.x;
  int const oldTop = mTop, oldX = mScrollX;
  mTop = top;
  mScrollX = x;
  UpdateScrollBars();
  if (mTop != oldTop || mScrollX != oldX) Refresh();
  return true;
}

bool CListCtrl::GetItemRect(int item, RECT * rect, int code) const {
  if (rect == nullptr || !IsValid(item)) return false;
  int const top = GetHeaderHeight() + (item - mTop) * mRowHeight;
  int const left = -mScrollX;
  RECT bounds{left, top, left + ColumnsWidth(), top + mRowHeight};
  if (code == LVIR_BOUNDS) {
    *rect = bounds;
    return true;
  }
  // Column 0: [state image][image][label]
  int x = left + ColumnLeft(0);
  int const width0 = mHeader->GetItemCount() > 0 ? mHeader->GetItemWidth(0) : 0;
  int const end0 = x + width0;
  if (mStateImages != nullptr || (mExStyle & LVS_EX_CHECKBOXES) != 0)
    x += mStateImages != nullptr ? mStateImages->GetSize().x : mRowHeight;
  x = std::min(x, end0);
  int const iconWidth = mSmallImages != nullptr ? mSmallImages->GetSize().x : 0;
  RECT icon{x, top, std::min(x + iconWidth, end0), top + mRowHeight};
  RECT label{icon.right, top, std::max(icon.right, end0), top + mRowHeight};
  switch (code) {
    case LVIR_ICON: *rect = icon; return true;
    case LVIR_LABEL: *rect = label; return true;
    case LVIR_SELECTBOUNDS:
      *rect = (mExStyle & LVS_EX_FULLROWSELECT) != 0
                  ? RECT{icon.left, top, bounds.right, top + mRowHeight}
                  : RECT{icon.left, top, label.right, top + mRowHeight};
      return true;
    default: return false;
  }
}

bool CListCtrl::GetSubItemRect(int item, int subItem, int code, RECT * rect) const {
  if (rect == nullptr || !IsValid(item) || subItem < 0 ||
      subItem >= static_cast<int>(mColumns.size()))
    return false;
  if (subItem == 0 && code != LVIR_BOUNDS) return GetItemRect(item, rect, code);
  int const top = GetHeaderHeight() + (item - mTop) * mRowHeight;
  int const left = -mScrollX + ColumnLeft(subItem);
  if (subItem == 0) {
    // The platform gives the whole row for sub-item 0's bounds.
    return GetItemRect(item, rect, LVIR_BOUNDS);
  }
  *rect = RECT{left, top, left + mHeader->GetItemWidth(subItem), top + mRowHeight};
  return true;
}

bool CListCtrl::GetViewRect(RECT * rect) const {
  if (rect == nullptr) return false;
  int64_t const height = static_cast<int64_t>(GetItemCount()) * mRowHeight;
  *rect = RECT{0, 0, ColumnsWidth(), static_cast<LONG>(std::min<int64_t>(height, INT32_MAX))};
  return true;
}

int CListCtrl::SubItemHitTest(LVHITTESTINFO * info) const {
  if (info == nullptr) return -1;
  info->flags = 0;
  info->iItem = -1;
  info->iSubItem = 0;
  wxSize const client = GetClientSize();
  int const x = info->pt.x, y = info->pt.y;
  if (y < 0) info->flags |= LVHT_ABOVE;
  if (y >= client.y) info->flags |= LVHT_BELOW;
  if (x < 0) info->flags |= LVHT_TOLEFT;
  if (x >= client.x) info->flags |= LVHT_TORIGHT;
  if (info->flags != 0) return -1;
  int const headerHeight = GetHeaderHeight();
  if (y < headerHeight) {
    info->flags = LVHT_NOWHERE;
    return -1;
  }
  int const row = (y - headerHeight) / std::max(mRowHeight, 1) + mTop;
  int const contentX = x + mScrollX;
  if (!IsValid(row) || contentX >= ColumnsWidth()) {
    info->flags = LVHT_NOWHERE;
    return -1;
  }
  int column = -1;
  for (int const at : mHeader->GetOrder()) {
    int const left = ColumnLeft(at);
    if (contentX >= left && contentX < left + mHeader->GetItemWidth(at)) column = at;
  }
  if (column < 0) {
    info->flags = LVHT_NOWHERE;
    return -1;
  }
  info->iSubItem = column;
  if (column == 0) {
    RECT icon{}, label{};
    GetItemRect(row, &icon, LVIR_ICON);
    GetItemRect(row, &label, LVIR_LABEL);
    bool const hasStateImage = DisplayStateImage(row) != 0 &&
                               (mStateImages != nullptr || (mExStyle & LVS_EX_CHECKBOXES) != 0);
    if (x < icon.left) {
      info->flags = hasStateImage ? LVHT_ONITEMSTATEICON : LVHT_ONITEMLABEL;
    } else if (x < icon.right) {
      info->flags = LVHT_ONITEMICON;
    } else {
      info->flags = LVHT_ONITEMLABEL;
    }
  } else {
    info->flags = LVHT_ONITEMLABEL;
  }
  info->iItem = row;
  return row;
}

int CListCtrl::HitTest(LVHITTESTINFO * info) const {
  if (info == nullptr) return -1;
  int const row = SubItemHitTest(info);
  // Without full-row selection a click beside column 0 misses the row.
  if (row >= 0 && info->iSubItem != 0 && (mExStyle & LVS_EX_FULLROWSELECT) == 0) {
    info->flags = LVHT_NOWHERE;
    info->iItem = -1;
    return -1;
  }
  info->iSubItem = 0;
  return row;
}

int CListCtrl::HitTest(wxPoint const & point, UINT * flags) const {
  LVHITTESTINFO info;
  info.pt = POINT{point.x, point.y};
  int const row = HitTest(&info);
  if (flags != nullptr) *flags = info.flags;
  return row;
}

int CListCtrl::GetStringWidth(wxString const & text) const {
  wxClientDC dc(const_cast<CListCtrl *>(this));
  dc.SetFont(GetFont());
  return dc.GetTextExtent(text).x;
}

void CListCtrl::OnSize(wxSizeEvent & event) {
  LayoutHeader();
  UpdateScrollBars();
  Refresh();
  event.Skip();
}

void CListCtrl::OnScrollWin(wxScrollWinEvent & event) {
  if (mEdit != nullptr) CommitEdit(false);
  bool const vertical = event.GetOrientation() == wxVERTICAL;
  int const page = vertical ? std::max(GetCountPerPage(), 1) : GetClientSize().x;
  int const line = vertical ? 1 : 16;
  int position = vertical ? mTop : mScrollX;
  wxEventType const type = event.GetEventType();
  if (type == wxEVT_SCROLLWIN_TOP)
    position = 0;
  else if (type == wxEVT_SCROLLWIN_BOTTOM)
    position = INT32_MAX / 2;
  else if (type == wxEVT_SCROLLWIN_LINEUP)
    position -= line;
  else if (type == wxEVT_SCROLLWIN_LINEDOWN)
    position += line;
  else if (type == wxEVT_SCROLLWIN_PAGEUP)
    position -= page;
  else if (type == wxEVT_SCROLLWIN_PAGEDOWN)
    position += page;
  else if (type == wxEVT_SCROLLWIN_THUMBTRACK || type == wxEVT_SCROLLWIN_THUMBRELEASE)
    position = event.GetPosition();
  if (vertical)
    mTop = position;
  else
    mScrollX = position;
  UpdateScrollBars();
  Refresh();
}
