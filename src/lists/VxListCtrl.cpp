#include "lists/VxListCtrl.h"

#include <algorithm>
#include <new>

#include <wx/dcbuffer.h>
#include <wx/imaglist.h>
#include <wx/settings.h>
#include <wx/utils.h>

#include "dialogs/LimitLineLength.h"
#include "frame/AppProfile.h"
#include "lists/CFlatHeaderCtrl.h"
#include "lists/CInPlaceEdit.h"
#include "lists/HtmlClipboardBlock.h"
#include "lists/ListClipboard.h"
#include "lists/ListColumnLayout.h"
#include "lists/ListColumnWidths.h"
#include "lists/ListSelectionChange.h"
#include "lists/ListSortOrder.h"
#include "platform/MessageBoxes.h"
#include "platform/SysColor.h"
#include "platform/SystemMetrics.h"
#include "platform/commctrl/CustomDraw.h"
#include "utl/Translation.h"
#include "utl/Utf.h"
#include "utl/VxString.h"

namespace {

char const kWidthsSection[] = "ListColumnWidths";

UINT StateImage(UINT state) { return (state & LVIS_STATEIMAGEMASK) >> 12; }
UINT StateImageBits(int image) { return static_cast<UINT>(image) << 12; }

wxColour ToColour(COLORREF color) {
  return wxColour(GetRValue(color), GetGValue(color), GetBValue(color));
}

// Appends a cell's text in UTF-8 for the comparison; code points that are
// no Unicode scalar values (unpaired surrogates) are left out. Reads the
// characters in place: a sort converts every row of a column.
void AppendSortText(wxString const & text, std::string & utf8) {
  utf8.reserve(utf8.size() + text.length());
  for (wxString::const_iterator c = text.begin(), end = text.end(); c != end; ++c) {
    auto const code = static_cast<char32_t>((*c).GetValue());
    if (code < 0x80)
      utf8.push_back(static_cast<char>(code));
    else if (code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF))
      vx3::AppendUtf8(code, utf8);
  }
}

}  // namespace

// The list's cells as its writers read them.
class VxListCtrl::Table : public ListTableSource {
public:
  explicit Table(VxListCtrl const & list) : mList(list) {}
  int ColumnCount() const override { return mList.GetColumnCount(); }
  wxString Heading(int column) const override { return mList.GetColumnText(column); }
  bool ShowsHeader() const override { return (mList.GetStyle() & LVS_NOCOLUMNHEADER) == 0; }
  wxString CellText(int row, int column) const override {
    return mList.GetClipboardItemText(row, column);
  }

private:
  VxListCtrl const & mList;
};

VxListCtrl::VxListCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                       DWORD listStyle, long windowStyle)
    : CListCtrl(parent, id, pos, size, listStyle | LVS_SHOWSELALWAYS, windowStyle),
      mRowColors{GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW),
                 GetSysColor(COLOR_WINDOW)},
      mDisabledRowColors{GetSysColor(COLOR_GRAYTEXT), GetSysColor(COLOR_BTNFACE),
                         GetSysColor(COLOR_BTNFACE)},
      mEmptyTextFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT)),
      mDragTimer(this, kDragTimerId) {
  SetExtendedStyle(GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
  Bind(
      wxEVT_TIMER, [this](wxTimerEvent &) { OnDragTimer(); }, kDragTimerId);
  Bind(VX_EVT_NOTIFY_REFLECT, &VxListCtrl::OnReflectedNotify, this);
}

VxListCtrl::~VxListCtrl() {
  mDragTimer.Stop();
  if (mCellEdit != nullptr) mCellEdit->Detach();
  if (!mSaveName.empty()) WriteColumnWidths();
}

// ---- selection ----

int VxListCtrl::GetSelIndex() const { return GetNextItem(-1, LVNI_SELECTED); }

int VxListCtrl::SetSelIndex(int item) {
  return SetItemState(item, LVIS_SELECTED, LVIS_SELECTED) ? item : -1;
}

void VxListCtrl::GetSelIndexes(std::vector<int> & rows) const {
  rows.clear();
  for (int item = GetNextItem(-1, LVNI_SELECTED); item != -1;
       item = GetNextItem(item, LVNI_SELECTED))
    rows.push_back(item);
}

int VxListCtrl::GetSelIndexes(int * buffer, int max) const {
  int stored = 0;
  for (int item = GetNextItem(-1, LVNI_SELECTED); item != -1;
       item = GetNextItem(item, LVNI_SELECTED)) {
    buffer[stored++] = item;
    if (stored > max) break;
  }
  return stored;
}

void VxListCtrl::SetSelIndexes(std::vector<int> const & rows) {
  if (!IsSingleSelection()) {
    SetItemState(-1, 0, LVIS_SELECTED);
    for (int row : rows) SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
  } else if (!rows.empty()) {
    SetItemState(rows.front(), LVIS_SELECTED, LVIS_SELECTED);
  }
}

void VxListCtrl::SelectAllItems(bool select) {
  if (!IsSingleSelection()) SetItemState(-1, select ? LVIS_SELECTED : 0, LVIS_SELECTED);
}

void VxListCtrl::ComplementSelection() {
  if (IsSingleSelection()) return;
  SetRedraw(false);
  int const count = GetItemCount();
  for (int item = 0; item < count; ++item) {
    bool const selected = GetItemState(item, LVIS_SELECTED) != 0;
    SetItemState(item, selected ? 0 : LVIS_SELECTED, LVIS_SELECTED);
  }
  SetRedraw(true);
}

void VxListCtrl::SetSelection(int first, int last, int const * extra, int extraCount) {
  std::vector<int> selected;
  GetSelIndexes(selected);
  std::vector<int> const extras = extra != nullptr && extraCount > 0
                                      ? std::vector<int>(extra, extra + extraCount)
                                      : std::vector<int>();
  for (auto const & change : SelectionChanges(GetItemCount(), selected, first, last, extras)) {
    if (change.select)
      SetItemState(change.row, LVIS_SELECTED, LVIS_SELECTED);
    else
      SetItemState(change.row, 0, LVIS_SELECTED | LVIS_FOCUSED);
  }
}

void VxListCtrl::SelectWithWildcards(wchar_t const * pattern, int column, bool flag) {
  if (pattern == nullptr) return;
  std::string const utf8Pattern = wxString(pattern).utf8_string();
  std::vector<int> matches;
  int const count = GetItemCount();
  for (int item = 0; item < count; ++item) {
    std::string const text = GetItemText(item, column).utf8_string();
    if (VxString::WildCardCompare(utf8Pattern.c_str(), text.c_str(), flag)) matches.push_back(item);
  }
  if (!IsSingleSelection()) SetItemState(-1, 0, LVIS_SELECTED);
  if (IsSingleSelection()) {
    if (!matches.empty()) SetItemState(matches.front(), LVIS_SELECTED, LVIS_SELECTED);
    return;
  }
  for (int item : matches) SetItemState(item, LVIS_SELECTED, LVIS_SELECTED);
}

void VxListCtrl::GetSelItemData(std::vector<uint64_t> & data) const {
  data.clear();
  for (int item = GetNextItem(-1, LVNI_SELECTED); item != -1;
       item = GetNextItem(item, LVNI_SELECTED))
    data.push_back(GetItemData(item));
}

void VxListCtrl::DeleteSelectedItems() {
  std::vector<int> rows;
  GetSelIndexes(rows);
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) DeleteItem(*row);
}

void VxListCtrl::RedrawSelectedItems() {
  for (int item = GetNextItem(-1, LVNI_SELECTED); item != -1;
       item = GetNextItem(item, LVNI_SELECTED))
    RedrawItems(item, item);
}

void VxListCtrl::SetTopIndex(int item) {
  if ((GetStyle() & LVS_TYPEMASK) != LVS_REPORT) return;
  Scroll(wxSize(0, (item - GetTopIndex()) * GetItemHeight()));
}

// ---- check boxes ----

void VxListCtrl::GetCheckedIndexes(std::vector<int> & rows) const {
  rows.clear();
  int const count = GetItemCount();
  for (int item = 0; item < count; ++item)
    if (StateImage(GetItemState(item, LVIS_STATEIMAGEMASK)) != 1) rows.push_back(item);
}

void VxListCtrl::SetCheckedIndexes(std::vector<int> const & rows, bool check) {
  if (!HasCheckBoxes()) return;
  for (int row : rows) SetItemState(row, StateImageBits(check ? 2 : 1), LVIS_STATEIMAGEMASK);
}

void VxListCtrl::CheckAllItems(bool check) {
  int const count = GetItemCount();
  for (int item = 0; item < count; ++item)
    SetItemState(item, StateImageBits(check ? 2 : 1), LVIS_STATEIMAGEMASK);
}

int VxListCtrl::GetCheckedItemCount() const {
  if (!HasCheckBoxes()) return -1;
  int sum = 0;
  int const count = GetItemCount();
  for (int item = 0; item < count; ++item)
    sum += static_cast<int>(StateImage(GetItemState(item, LVIS_STATEIMAGEMASK))) - 1;
  return sum;
}

int VxListCtrl::GetCheckedItemData(uint64_t * buffer, int max) const {
  if (!HasCheckBoxes()) return -1;
  int stored = 0;
  int const count = GetItemCount();
  for (int item = 0; item < count; ++item) {
    if (StateImage(GetItemState(item, LVIS_STATEIMAGEMASK)) == 1) continue;
    buffer[stored++] = GetItemData(item);
    if (stored > max) break;
  }
  return stored;
}

// The check state of `item` negated onto every selected row; false when
// the list has no check boxes.
bool VxListCtrl::ToggleChecksOfSelection(int item) {
  if (!HasCheckBoxes() || item < 0) return false;
  bool const checked = StateImage(GetItemState(item, LVIS_STATEIMAGEMASK)) == 2;
  std::vector<int> rows;
  GetSelIndexes(rows);
  for (int row : rows) SetItemState(row, StateImageBits(checked ? 1 : 2), LVIS_STATEIMAGEMASK);
  return true;
}

// ---- columns and rows ----

void VxListCtrl::SetColumns(float const * percents, std::wstring const * names, int count) {
  while (GetColumnCount() > 0) DeleteColumn(0);
  std::vector<int> const widths = PercentColumnWidths(
      GetClientSize().x, GetSystemMetrics(SM_CXVSCROLL), percents, names != nullptr ? count : 0);
  for (size_t column = 0; column < widths.size(); ++column)
    InsertColumn(static_cast<int>(column), wxString(names[column]), LVCFMT_LEFT, widths[column]);
}

int VxListCtrl::AddColumn(wchar_t const * name, int width, int format) {
  int const count = GetColumnCount();
  if (width == -1) width = count > 0 ? GetColumnWidth(count - 1) : 0;
  return InsertColumn(count, wxString(name != nullptr ? name : L""), format, width);
}

int VxListCtrl::GetColumnCount() const { return GetHeaderCtrl()->GetItemCount(); }

wxString VxListCtrl::GetColumnText(int column) const {
  return GetHeaderCtrl()->GetItemText(column);
}

std::vector<int> VxListCtrl::ColumnWidths() const {
  std::vector<int> widths;
  int const count = GetColumnCount();
  widths.reserve(static_cast<size_t>(std::max(count, 0)));
  for (int column = 0; column < count; ++column) widths.push_back(GetColumnWidth(column));
  return widths;
}

void VxListCtrl::AutoSizeColumn(int column, int minWidth, int maxWidth) {
  SetRedraw(false);
  int const count = GetColumnCount();
  for (int c = column < 0 ? 0 : column; c < (column < 0 ? count : std::min(column + 1, count));
       ++c) {
    SetColumnWidth(c, LVSCW_AUTOSIZE);
    int const cells = GetColumnWidth(c);
    SetColumnWidth(c, LVSCW_AUTOSIZE_USEHEADER);
    int const heading = GetColumnWidth(c);
    SetColumnWidth(c, std::min(std::max(std::max(cells, heading), minWidth), maxWidth));
  }
  SetRedraw(true);
}

void VxListCtrl::EnableColumnAutoSize(bool enable, int threshold) {
  if (!enable) {
    mAutoSizeWidth = -1;
    mAutoSizeThreshold = 0;
    return;
  }
  mAutoSizeWidth = GetClientSize().x;
  mAutoSizeThreshold = std::max(threshold, 1);
}

void VxListCtrl::OnSize(wxSizeEvent & event) {
  CListCtrl::OnSize(event);
  int const width = GetClientSize().x;
  int const change = width - mAutoSizeWidth;
  if (width < 1 || mAutoSizeWidth < 0 || mAutoSizeThreshold == 0 || change == 0) return;
  std::vector<int> const widths = ColumnWidths();
  if (widths.size() > 1 && std::abs(change) < mAutoSizeThreshold) return;
  mAutoSizeWidth = width;
  if (!ColumnsMayGrow(widths, change, width, GetSystemMetrics(SM_CXVSCROLL))) return;
  SetRedraw(false);
  std::vector<int> const spread = SpreadWidthChange(widths, change);
  for (size_t column = 0; column < spread.size(); ++column)
    if (spread[column] != widths[column]) SetColumnWidth(static_cast<int>(column), spread[column]);
  SetRedraw(true);
  Refresh();
  Update();
}

void VxListCtrl::EnableSaveRestore(wchar_t const * name) {
  mSaveName = name != nullptr ? name : L"";
  int const columns = GetColumnCount();
  if (mSaveName.empty() || columns == 0) return;
  std::string const stored = AppProfile::GetProfileString(kWidthsSection, mSaveName.utf8_str(), "");
  auto const widths = ParseColumnWidths(stored, columns);
  for (size_t column = 0; column < widths.size(); ++column)
    if (widths[column]) SetColumnWidth(static_cast<int>(column), *widths[column]);
}

void VxListCtrl::WriteColumnWidths() {
  AppProfile::WriteProfileString(kWidthsSection, mSaveName.utf8_str(),
                                 ComposeColumnWidths(ColumnWidths()).c_str());
}

int VxListCtrl::AddItem(wchar_t const * text, uint64_t data) {
  int const row = InsertItem(GetItemCount(), wxString(text != nullptr ? text : L""));
  if (row >= 0) SetItemData(row, static_cast<DWORD_PTR>(data));
  return row;
}

bool VxListCtrl::CopyRow(int from, int to) {
  if (from == to || from < 0 || to < 0 || from >= GetItemCount()) return false;
  int const row = InsertItem(to, GetItemText(from, 0));
  if (row < 0) return false;
  if (row <= from) ++from;
  int const columns = GetColumnCount();
  for (int column = 1; column < columns; ++column)
    SetItemText(row, column, GetItemText(from, column));
  if (HasCheckBoxes())
    SetItemState(row, GetItemState(from, LVIS_STATEIMAGEMASK), LVIS_STATEIMAGEMASK);
  return true;
}

bool VxListCtrl::MoveRow(int from, int to) {
  if (!CopyRow(from, to)) return false;
  return DeleteItem(from <= to ? from : from + 1);
}

void VxListCtrl::SetColorItem(int index, wchar_t const * text, COLORREF colour) {
  if (GetImageList(LVSIL_SMALL) == nullptr) {
    mColorImages = std::make_unique<wxImageList>(16, 16, false);
    SetImageList(mColorImages.get(), LVSIL_SMALL);
  }
  wxImageList * images = GetImageList(LVSIL_SMALL);
  wxImage swatch(16, 16);
  swatch.SetRGB(wxRect(0, 0, 16, 16), GetRValue(colour), GetGValue(colour), GetBValue(colour));
  int image = index;
  if (index >= 0 && index < images->GetImageCount())
    images->Replace(index, wxBitmap(swatch));
  else
    image = images->Add(wxBitmap(swatch));
  if (text != nullptr) InsertItem(index, wxString(text), image);
  Refresh();
}

wchar_t const * VxListCtrl::AddPool(wchar_t const * text) {
  wxString & slot = mPool[static_cast<size_t>(mPoolNext)];
  mPoolNext = (mPoolNext + 1) % static_cast<int>(mPool.size());
  slot = text != nullptr ? text : L"";
  return slot.wc_str();
}

wchar_t const * VxListCtrl::AddPool(char const * text) {
  return AddPool(text != nullptr ? wxString::FromUTF8(text).wc_str() : nullptr);
}

void VxListCtrl::SetRowColors(COLORREF text, COLORREF textBackground, COLORREF background) {
  mRowColors = {text, textBackground, background == CLR_NONE ? textBackground : background};
  ApplyColors(IsEnabled());
}

void VxListCtrl::SetDisabledRowColors(COLORREF text, COLORREF textBackground, COLORREF background) {
  mDisabledRowColors = {text, textBackground, textBackground == CLR_NONE ? CLR_NONE : background};
  ApplyColors(IsEnabled());
}

void VxListCtrl::ApplyColors(bool enabled) {
  auto const & colors = enabled || !mDisabledColorsEnabled ? mRowColors : mDisabledRowColors;
  SetBkColor(colors[2]);
  SetTextColor(colors[0]);
  SetTextBkColor(colors[1]);
  Refresh();
}

bool VxListCtrl::Enable(bool enable) {
  bool const changed = CListCtrl::Enable(enable);
  ApplyColors(enable);
  return changed;
}

void VxListCtrl::SetEmptyCtrlText(wxString const & text) {
  mEmptyText = text;
  Refresh();
}

// ---- sorting ----

bool VxListCtrl::SortItems(int column, int ascending, int low, int high) {
  int const count = GetItemCount();
  if (column < 0 || column >= GetColumnCount()) return false;
  if (high == -1) high = count - 1;
  if (low < 0 || high >= count || high <= low) return false;
  std::vector<std::string> texts;
  int const length = high - low + 1;
  texts.reserve(static_cast<size_t>(length));
  // Rows and their texts lie scattered in memory once rows have been moved:
  // a row's cells are fetched well ahead, and a text's characters a few
  // rows ahead once its cell is at hand, so that the waits overlap.
  constexpr int kCellsAhead = 16;
  constexpr int kTextAhead = 8;
  for (int item = low; item <= high; ++item) {
    if (item + kCellsAhead <= high) PrefetchRow(item + kCellsAhead);
    if (item + kTextAhead <= high)
      if (wxString const * soon = FindStoredText(item + kTextAhead, column))
        __builtin_prefetch(soon->wx_str());
    std::string & text = texts.emplace_back();
    if (wxString const * stored = FindStoredText(item, column))
      AppendSortText(*stored, text);
    else
      AppendSortText(GetItemText(item, column), text);
  }
  std::vector<int> const origin = QuickSortTexts(texts, ascending != 0, 0, -1);
  std::vector<int> order(static_cast<size_t>(count));
  for (int item = 0; item < count; ++item) order[static_cast<size_t>(item)] = item;
  for (size_t k = 0; k < origin.size(); ++k) order[static_cast<size_t>(low) + k] = low + origin[k];
  return ReorderItems(order);
}

void VxListCtrl::OnHeaderClick(int column) {
  CHeaderCtrl * header = GetHeaderCtrl();
  auto setSortFlags = [header](int item, int flags) {
    HDITEMW description;
    description.mask = HDI_FORMAT;
    if (!header->GetItem(item, &description)) return;
    description.fmt = (description.fmt & ~(HDF_SORTUP | HDF_SORTDOWN)) | flags;
    header->SetItem(item, &description);
  };
  if (mSortColumn >= 0 && mFlatHeader == nullptr) setSortFlags(mSortColumn, 0);
  mSortAscending = column == mSortColumn ? !mSortAscending : 1;
  mSortColumn = column;
  if ((GetStyle() & LVS_OWNERDATA) == 0) SortItems(column, mSortAscending, 0, -1);
  if (mFlatHeader != nullptr)
    mFlatHeader->SetSortImage(column, mSortAscending);
  else
    setSortFlags(column, mSortAscending != 0 ? HDF_SORTUP : HDF_SORTDOWN);
}

void VxListCtrl::OnNotify(NotifyEvent & event) {
  auto * header = event.GetNotification<NMHEADERW>();
  switch (event.GetCode()) {
    case HDN_ENDTRACKW:
    case HDN_ITEMCHANGINGW:
    case HDN_ITEMCHANGINGA:
      if (header->pitem != nullptr && (header->pitem->mask & HDI_WIDTH) != 0 &&
          header->pitem->cxy >= 0 && header->pitem->cxy < mMinimumColumnSize)
        header->pitem->cxy = mMinimumColumnSize;
      break;
    case HDN_BEGINTRACKW:
    case HDN_BEGINTRACKA:
    case HDN_DIVIDERDBLCLICKW:
    case HDN_DIVIDERDBLCLICKA:
      if (mColumnSizingDisabled) {
        event.SetResult(1);
        return;
      }
      break;
    case HDN_ITEMCLICKW:
    case HDN_ITEMCLICKA:
      if (header->iButton == 0) OnHeaderClick(header->iItem);
      break;
    default: break;
  }
  CListCtrl::OnNotify(event);
}

// ---- output ----

wxString VxListCtrl::GetClipboardItemText(int row, int column) const {
  return GetItemText(row, column);
}

wxString VxListCtrl::ToStringImpl(Formatter const & formatter) const {
  return FormatListText(Table(*this), formatter);
}

wxString VxListCtrl::ToHtmlImpl(Formatter const & formatter) const {
  return FormatListHtml(Table(*this), formatter);
}

wxString VxListCtrl::ToString(wchar_t const * title) const {
  return ToStringImpl(AllItemsFormatter(title != nullptr ? title : L"", GetItemCount()));
}

wxString VxListCtrl::ToString(std::vector<int> const & rows) const {
  return ToStringImpl(SelectedItemsFormatter(rows));
}

wxString VxListCtrl::ToHTML(wchar_t const * title) const {
  return ToHtmlImpl(AllItemsFormatter(title != nullptr ? title : L"", GetItemCount()));
}

wxString VxListCtrl::ToHTML(std::vector<int> const & rows) const {
  return ToHtmlImpl(SelectedItemsFormatter(rows));
}

void VxListCtrl::AddToClipboard(wchar_t const * title) {
  AddToClipboardImpl(AllItemsFormatter(title != nullptr ? title : L"", GetItemCount()));
}

void VxListCtrl::AddToClipboard(std::vector<int> const & rows) {
  AddToClipboardImpl(SelectedItemsFormatter(rows));
}

void VxListCtrl::CopySelection() {
  std::vector<int> rows;
  GetSelIndexes(rows);
  AddToClipboard(rows);
}

void VxListCtrl::AddToClipboardImpl(Formatter const & formatter) {
  try {
    wxBusyCursor const busy;
    wxString const text = ToStringImpl(formatter);
    std::string const html = ToHtmlImpl(formatter).utf8_string();
    PutTextAndHtmlOnClipboard(text, MakeHTMLClipStringFromText(html.c_str()));
  } catch (std::bad_alloc const &) {
    AfxMessageBox(vx3::Tr("The selection is too large."), MB_ICONERROR);
  } catch (std::exception const & failure) {
    // A cell text of a subclass failed: the clipboard keeps what it had.
    AfxMessageBox(wxString::FromUTF8(failure.what()), MB_ICONERROR);
  }
}

// ---- cells ----

int VxListCtrl::HitTestEx(wxPoint const & point, int * column) const {
  if (column != nullptr) *column = 0;
  if ((GetStyle() & LVS_TYPEMASK) != LVS_REPORT) return HitTest(point);
  int const count = GetItemCount();
  int const last = std::min(GetTopIndex() + GetCountPerPage(), count - 1);
  std::vector<int> const widths = ColumnWidths();
  for (int item = GetTopIndex(); item <= last; ++item) {
    RECT bounds{};
    if (!GetItemRect(item, &bounds, LVIR_BOUNDS)) continue;
    if (point.y < bounds.top || point.y >= bounds.bottom) continue;
    int const hit = ColumnAtX(widths, bounds.left, point.x);
    if (hit < 0) continue;
    if (column != nullptr) *column = hit;
    return item;
  }
  return -1;
}

bool VxListCtrl::AcceptEdit(wxString &, int, int) { return mAcceptEdit; }

void VxListCtrl::EnableEditSubItems(bool editSubItems, bool acceptEdit) {
  mEditSubItems = editSubItems;
  mAcceptEdit = acceptEdit;
}

void VxListCtrl::EnableShortCuts(bool shortcuts, bool deleteKey) {
  mShortCuts = shortcuts;
  mDeleteKey = deleteKey;
}

CInPlaceEdit * VxListCtrl::EditSubLabel(int row, int column) {
  if (!EnsureVisible(row, true)) return nullptr;
  if (column < 0 || column >= GetColumnCount() || GetColumnWidth(column) < 5) return nullptr;
  wxString const text = GetItemText(row, column);
  int offset = 0;
  for (int c = 0; c < column; ++c) offset += GetColumnWidth(c);
  RECT bounds{};
  GetItemRect(row, &bounds, LVIR_BOUNDS);
  wxSize const client = GetClientSize();
  int const x = bounds.left + offset;
  if (x < 0 || x > client.x) {
    Scroll(wxSize(x, 0));
    bounds.left -= x;
  }
  int const left = bounds.left + 4 + offset;
  int right = std::min(client.x, left - 3 + GetColumnWidth(column));
  LVCOLUMNW description;
  description.mask = LVCF_FMT;
  GetColumn(column, &description);
  long align = wxTE_LEFT;
  if ((description.fmt & LVCFMT_JUSTIFYMASK) == LVCFMT_RIGHT) {
    align = wxTE_RIGHT;
    right -= 6;
  } else if ((description.fmt & LVCFMT_JUSTIFYMASK) == LVCFMT_CENTER) {
    align = wxTE_CENTRE;
  }
  SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
  TakeFocus();
  wxRect const rect(left, bounds.top, std::max(right - left, 1), bounds.bottom - bounds.top);
  mCellEdit = new CInPlaceEdit(this, row, column, text, rect, align);
  return mCellEdit;
}

void VxListCtrl::CommitCellEdit() {
  if (mCellEdit != nullptr) mCellEdit->Commit();
}

// GTK reports focus changes later, when a new cell edit may already run: a
// running edit is committed here, when the list asks for the focus, not
// when the focus arrives.
void VxListCtrl::TakeFocus() {
  CommitCellEdit();
  if (!HasFocus()) SetFocus();
}

void VxListCtrl::EndCellEdit(CInPlaceEdit & edit, wxString text, bool cancelled) {
  if (mCellEdit == &edit) mCellEdit = nullptr;
  int const row = edit.GetRow();
  int const column = edit.GetColumn();
  if (!cancelled && AcceptEdit(text, column, row)) {
    SetItemText(row, column, text);
  } else {
    // The list's parent decides, as with the platform's own label editing.
    std::wstring buffer = text.ToStdWstring();
    NMLVDISPINFOW info;
    info.hdr.hwndFrom = this;
    info.hdr.idFrom = static_cast<UINT_PTR>(kInPlaceEditId);
    info.hdr.code = LVN_ENDLABELEDITW;
    info.item.mask = LVIF_TEXT;
    info.item.iItem = row;
    info.item.iSubItem = column;
    info.item.pszText = cancelled ? nullptr : buffer.data();
    info.item.cchTextMax = static_cast<int>(buffer.size());
    LRESULT result = 0;
    if (wxWindow * parent = GetParent()) {
      NotifyEvent notified(VX_EVT_NOTIFY, &info.hdr);
      notified.SetEventObject(this);
      notified.SetId(GetId());
      parent->GetEventHandler()->ProcessEvent(notified);
      result = notified.GetResult();
    }
    if (result == 1) SetItemText(row, column, text);
  }
  ModifyStyle(0, LVS_SHOWSELALWAYS);
  SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
}

// ---- mouse ----

void VxListCtrl::OnLButtonDown(wxMouseEvent & event) {
  TakeFocus();
  mControlAtPress = event.ControlDown();
  int column = 0;
  int const row = HitTestEx(event.GetPosition(), &column);
  if (row >= 0) mDragAnchor = row;

  if (mEditSubItems && IsSingleSelection()) {
    if (row < 0) return;
    if (GetItemState(row, LVIS_SELECTED) != 0 && column >= 0) {
      EditSubLabel(row, column);
    } else {
      SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
      SetSelectionMark(row);
    }
    return;
  }
  if (HasCheckBoxes() && GetSelectedCount() >= 2) {
    UINT flags = 0;
    int const hit = HitTest(event.GetPosition(), &flags);
    if (hit >= 0 && flags == LVHT_ONITEMSTATEICON && GetItemState(hit, LVIS_SELECTED) != 0) {
      ToggleChecksOfSelection(hit);
      return;
    }
  }
  CListCtrl::OnLButtonDown(event);
}

void VxListCtrl::OnLButtonDblClk(wxMouseEvent & event) {
  if (HasCheckBoxes() && GetSelectedCount() >= 2) {
    UINT flags = 0;
    int const hit = HitTest(event.GetPosition(), &flags);
    if (hit >= 0 && flags == LVHT_ONITEMSTATEICON && GetItemState(hit, LVIS_SELECTED) != 0) {
      ToggleChecksOfSelection(hit);
      return;
    }
  }
  if (mEditSubItems) {
    int column = 0;
    int const row = HitTestEx(event.GetPosition(), &column);
    if (row >= 0 && column >= 0 && GetItemState(row, LVIS_SELECTED) != 0) {
      EditSubLabel(row, column);
      return;
    }
  }
  CListCtrl::OnLButtonDblClk(event);
}

void VxListCtrl::OnLButtonUp(wxMouseEvent & event) {
  // A running drag ends at the timer's next look at the button; the click
  // handling of the release would replace the dragged range by one row.
  if (mDragRunning) return;
  CListCtrl::OnLButtonUp(event);
}

void VxListCtrl::OnMouseMove(wxMouseEvent & event) {
  if (mDragAllowed && (GetStyle() & LVS_TYPEMASK) == LVS_REPORT && event.LeftIsDown() &&
      HasFocus()) {
    if (mDragRunning) return;
    if (!HasCapture()) CaptureMouse();
    mSavedSelection.reset();
    mDragRunning = true;
    if (mControlAtPress) {
      mSavedSelection = std::make_unique<std::vector<int>>();
      GetSelIndexes(*mSavedSelection);
    }
    mDragTimer.Start(50);
    return;
  }
  CListCtrl::OnMouseMove(event);
}

bool VxListCtrl::IsPrimaryButtonDown() const { return wxGetMouseState().LeftIsDown(); }

void VxListCtrl::StopDrag() {
  mDragTimer.Stop();
  mDragRunning = false;
}

void VxListCtrl::OnDragTimer() {
  int const count = GetItemCount();
  if (count == 0) {
    StopDrag();
    return;
  }
  if (mRowsPerPage < 0) mRowsPerPage = GetClientSize().y / std::max(GetItemHeight(), 1);
  if (!IsPrimaryButtonDown()) {
    if (HasCapture()) ReleaseMouse();
    StopDrag();
    mSavedSelection.reset();
    return;
  }
  SetRedraw(false);
  wxPoint point = ScreenToClient(wxGetMousePosition());
  wxSize const client = GetClientSize();
  int const right = client.x + 1;
  int const bottom = client.y + 1;
  int distance = 0;
  int step = 0;
  int target = -1;
  if (point.y < 0) {
    distance = -point.y;
    step = -1;
    target = std::max(GetTopIndex() - 1, 0);
  } else if (point.y >= bottom) {
    distance = point.y - bottom;
    step = 1;
    target = std::min(GetTopIndex() + mRowsPerPage, count);
  }
  if (point.x > right) {
    distance = std::max(distance, point.x - right);
  } else if (point.x < 0) {
    // Left of the list the comparison is with a negative number and never
    // wins: the list always behaved so.
    distance = std::max(distance, point.x);
  }
  point.x = 1;
  int const hit = HitTest(point);
  if (hit >= 0) target = hit;
  if (step != 0) SetTopIndex(GetTopIndex() + step);
  if (target >= 0) {
    int const first = std::min(mDragAnchor, target);
    int const last = std::max(mDragAnchor, target);
    int column = 0;
    int focus = HitTestEx(point, &column);
    if (focus < 0) focus = target;
    if (!IsSingleSelection()) {
      std::vector<int> const saved = mSavedSelection ? *mSavedSelection : std::vector<int>();
      SetSelection(first, last, saved.data(), static_cast<int>(saved.size()));
      SetItemState(-1, 0, LVIS_FOCUSED);
      focus = std::min(focus, count - 1);
      SetItemState(focus, LVIS_FOCUSED, LVIS_FOCUSED);
      EnsureVisible(focus, true);
    } else {
      SetItemState(focus, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
  }
  if (distance > 0) mDragTimer.Start(distance > 3 * GetSystemMetrics(SM_CXVSCROLL) ? 25 : 50);
  SetRedraw(true);
}

void VxListCtrl::OnKillFocus(wxFocusEvent & event) {
  StopDrag();
  CListCtrl::OnKillFocus(event);
}

void VxListCtrl::OnMouseWheel(wxMouseEvent & event) {
  TakeFocus();
  CListCtrl::OnMouseWheel(event);
}

void VxListCtrl::OnScrollWin(wxScrollWinEvent & event) {
  TakeFocus();
  CListCtrl::OnScrollWin(event);
}

// ---- keys ----

void VxListCtrl::OnKeyDown(wxKeyEvent & event) {
  if (!mShortCuts && !mDeleteKey) {
    CListCtrl::OnKeyDown(event);
    return;
  }
  int const key = event.GetKeyCode();
  bool const control = event.ControlDown();
  bool const shift = event.ShiftDown();
  if ((key == WXK_DELETE || key == WXK_NUMPAD_DELETE) && mDeleteKey) {
    DeleteSelectedItems();
  } else if (key == WXK_SPACE && HasCheckBoxes() && GetSelectedCount() > 1) {
    ToggleChecksOfSelection(GetSelIndex());
  } else if (control && key == 'A' && !shift) {
    SelectAllItems(true);
  } else if (control && key == 'A') {
    ComplementSelection();
  } else if (control && key == 'I') {
    ComplementSelection();
  } else if (control && (key == 'C' || key == WXK_INSERT || key == WXK_NUMPAD_INSERT)) {
    if (shift)
      AddToClipboard(static_cast<wchar_t const *>(nullptr));
    else
      CopySelection();
  } else {
    CListCtrl::OnKeyDown(event);
  }
}

// ---- painting and notifications ----

void VxListCtrl::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  if (!IsRedrawOn()) return;
  wxRect clip = GetUpdateRegion().GetBox();
  if (clip.IsEmpty()) clip = wxRect(GetClientSize());
  PaintRows(dc, clip);
  if (GetItemCount() == 0 && !mEmptyText.empty()) PaintEmptyText(dc);
}

void VxListCtrl::PaintEmptyText(wxDC & dc) {
  wxRect rect(GetClientSize());
  int const top = GetHeaderHeight() + 10;
  rect.y += top;
  rect.height -= top;
  if (rect.height <= 0 || rect.width <= 0) return;
  COLORREF const back = GetBkColor() == CLR_NONE ? GetSysColor(COLOR_WINDOW) : GetBkColor();
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(ToColour(back)));
  dc.DrawRectangle(rect);
  dc.SetFont(mEmptyTextFont);
  dc.SetTextForeground(ToColour(mDisabledRowColors[0]));
  dc.SetTextBackground(ToColour(back));
  std::wstring const wrapped = LimitLineLength::ByPixels(
      mEmptyText.ToStdWstring(), dc, static_cast<size_t>(std::max(rect.width, 1)));
  dc.DrawLabel(wxString(wrapped), rect, wxALIGN_CENTER_HORIZONTAL | wxALIGN_TOP);
}

void VxListCtrl::OnReflectedNotify(NotifyEvent & event) {
  if (event.GetCode() == LVN_MARQUEEBEGIN) {
    event.SetResult(1);
    return;
  }
  if (event.GetCode() != NM_CUSTOMDRAW) {
    event.Skip();
    return;
  }
  auto * draw = event.GetNotification<NMLVCUSTOMDRAW>();
  if (draw->nmcd.dwDrawStage == CDDS_PREPAINT) {
    event.SetResult(CDRF_NOTIFYITEMDRAW);
  } else if (draw->nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
    draw->clrText = GetTextColor();
    draw->clrTextBk = GetTextBkColor();
    event.SetResult(CDRF_DODEFAULT);
  } else {
    event.SetResult(CDRF_DODEFAULT);
  }
}

bool VxListCtrl::SubclassHeader(bool bold) {
  auto * header = new CFlatHeaderCtrl;
  if (!header->Create(this, wxID_ANY) || !ReplaceHeaderCtrl(header)) {
    header->Destroy();
    return false;
  }
  mFlatHeader = header;
  header->InitializeHeader(bold);
  return true;
}
