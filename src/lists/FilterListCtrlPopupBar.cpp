#include "lists/FilterListCtrlPopupBar.h"

#include <wx/dcbuffer.h>
#include <wx/display.h>
#include <wx/evtloop.h>
#include <wx/utils.h>

#include <boost/format.hpp>

#include <algorithm>
#include <exception>

#include "lists/EntryPlaceholder.h"
#include "lists/FilterListItems.h"
#include "lists/PopupPointerGrab.h"
#include "platform/SysColor.h"
#include "platform/SystemMetrics.h"
#include "platform/commctrl/CListCtrl.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

namespace {

FilterListCtrlPopupBar * gOpen = nullptr;

// Which edges a drag moves.
constexpr int kLeft = 1, kTop = 2, kRight = 4, kBottom = 8;

}  // namespace

FilterListCtrlPopupBar::FilterListCtrlPopupBar(wxWindow * parent, FilterListItems const * items,
                                               uint64_t selected)
    : wxPopupTransientWindow(parent, wxBORDER_NONE),
      mItems(items),
      mInitialSelection(selected),
      mSettings(LoadPopupFilterListSettings()),
      mFilterTimer(this, kFilterTimerId) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  // Never larger than the display it opens on.
  wxRect const screen = wxDisplay(0U).GetClientArea();
  wxSize const size(
      std::min(mSettings.width, std::max(screen.width, PopupFilterListSettings::kMinWidth)),
      std::min(mSettings.height, std::max(screen.height, PopupFilterListSettings::kMinHeight)));

  mCombo = new wxComboBox(this, kComboId, wxString(), wxPoint(kFrame, kFrame),
                          wxSize(size.x - 2 * kFrame, -1));
  ShowPlaceholderWhileEmpty(*mCombo, vx3::Tr("Type filter here"));
  for (std::string const & filter : mSettings.filters) mCombo->Append(wxString::FromUTF8(filter));

  mList =
      new CListCtrl(this, kListId, wxDefaultPosition, wxDefaultSize,
                    LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_ALIGNLEFT | LVS_OWNERDATA);
  mList->InsertColumn(0, vx3::Tr("Filter list item", "Item"), LVCFMT_LEFT,
                      size.x - 2 * kFrame - GetSystemMetrics(SM_CXVSCROLL));
  mList->SetExtendedStyle(mList->GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_TRACKSELECT);
  SetSize(size);
  Layout(size);

  mCombo->Bind(wxEVT_TEXT, &FilterListCtrlPopupBar::OnTextChanged, this);
  mCombo->Bind(wxEVT_COMBOBOX, &FilterListCtrlPopupBar::OnFilterChosen, this);
  Bind(
      wxEVT_TIMER, [this](wxTimerEvent &) { OnFilterTimer(); }, kFilterTimerId);
  Bind(VX_EVT_NOTIFY, &FilterListCtrlPopupBar::OnListNotify, this);
  Bind(wxEVT_CHAR_HOOK, &FilterListCtrlPopupBar::OnCharHook, this);
  for (wxWindow * window : {static_cast<wxWindow *>(this), static_cast<wxWindow *>(mCombo)})
    window->Bind(wxEVT_MOUSEWHEEL, &FilterListCtrlPopupBar::OnWheel, this);
  Bind(wxEVT_PAINT, &FilterListCtrlPopupBar::OnPaint, this);
  Bind(wxEVT_SIZE, &FilterListCtrlPopupBar::OnSize, this);
  Bind(wxEVT_MOTION, &FilterListCtrlPopupBar::OnMouseMove, this);
  Bind(wxEVT_LEFT_DOWN, &FilterListCtrlPopupBar::OnMouseDown, this);
  Bind(wxEVT_LEFT_UP, &FilterListCtrlPopupBar::OnMouseUp, this);

  ApplyFilter(std::string());
}

FilterListCtrlPopupBar::~FilterListCtrlPopupBar() {
  if (gOpen == this) gOpen = nullptr;
}

FilterListCtrlPopupBar * FilterListCtrlPopupBar::GetOpen() { return gOpen; }

uint64_t FilterListCtrlPopupBar::Track(wxPoint screenPoint) {
  Position(screenPoint, wxSize(0, 0));
  gOpen = this;
  Popup(mCombo);
  mCombo->SetFocus();
  if (!mEnded) {
    wxGUIEventLoop loop;
    mLoop = &loop;
    loop.Run();
    mLoop = nullptr;
  }
  gOpen = nullptr;
  mFilterTimer.Stop();
  return mResult;
}

void FilterListCtrlPopupBar::End(uint64_t result) {
  if (mEnded) return;
  mEnded = true;
  mResult = result;
  mItems = nullptr;  // the caller's items may go once tracking returns
  if (gOpen == this) gOpen = nullptr;
  mFilterTimer.Stop();
  if (IsShown()) Dismiss();
  if (mLoop != nullptr && mLoop->IsRunning()) mLoop->Exit();
}

void FilterListCtrlPopupBar::Cancel() { End(kNoFilterItem); }

void FilterListCtrlPopupBar::OnDismiss() { End(kNoFilterItem); }  // a click outside

void FilterListCtrlPopupBar::Layout(wxSize size) {
  if (size.x <= 0 || mCombo == nullptr || mList == nullptr) return;
  int const inner = size.x - 2 * kFrame;
  mCombo->SetSize(kFrame, kFrame, inner, -1);
  int const top = kFrame + mCombo->GetSize().y;
  mList->SetSize(kFrame, top, inner, std::max(size.y - kFrame - top, 0));
  mList->SetColumnWidth(0, inner - GetSystemMetrics(SM_CXVSCROLL));
  mSettings.width = size.x;
  mSettings.height = size.y;
}

void FilterListCtrlPopupBar::OnSize(wxSizeEvent & event) {
  Layout(event.GetSize());
  Refresh(false);
  event.Skip();
}

void FilterListCtrlPopupBar::ApplyFilter(std::string const & filter) {
  wxBusyCursor const wait;
  mLastFilter = filter;
  mFiltered = true;
  // The caller's items of the selected rows, unless there are too many.
  std::vector<uint64_t> carried;
  if (mList->GetSelectedCount() <= kMaxCarriedSelection) {
    for (int row = mList->GetNextItem(-1, LVNI_SELECTED); row >= 0;
         row = mList->GetNextItem(row, LVNI_SELECTED))
      if (static_cast<size_t>(row) < mVisible.size())
        carried.push_back(mVisible[static_cast<size_t>(row)]);
  }
  FilteredRows rows = FilterItems(mItems, filter, mInitialSelection, carried);
  mInitialSelection = kNoFilterItem;  // counts for the first filtering only
  mVisible = std::move(rows.visible);

  mList->SetItemCountEx(static_cast<int>(mVisible.size()), 0);
  mList->SetItemState(-1, 0, LVIS_SELECTED);
  if (!rows.selected.empty()) {
    for (int row : rows.selected) mList->SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
    mList->SetItemState(rows.selected.front(), LVIS_FOCUSED, LVIS_FOCUSED);
    mList->EnsureVisible(rows.selected.front(), false);
  } else if (!mVisible.empty()) {
    mList->SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    mList->EnsureVisible(0, false);
  }
  RetitleColumn(mVisible.size(), rows.total);
}

void FilterListCtrlPopupBar::RetitleColumn(size_t visible, uint64_t total) {
  std::string const pattern = vx3::Tr("%1% of %2% items visible").utf8_string();
  std::wstring title;
  try {
    title = vx3::Utf8ToWide((boost::format(pattern) % visible % total).str());
  } catch (std::exception const &) {  // a translation with a broken pattern
    title = vx3::Utf8ToWide((boost::format("%1% of %2% items visible") % visible % total).str());
  }
  LVCOLUMNW column;
  column.mask = LVCF_TEXT;
  column.pszText = title.data();
  mList->SetColumn(0, &column);
}

void FilterListCtrlPopupBar::OnTextChanged(wxCommandEvent &) {
  mFilterTimer.StartOnce(kFilterDelayMs);  // filter once typing pauses
}

void FilterListCtrlPopupBar::OnFilterTimer() {
  mFilterTimer.Stop();
  std::string const filter = mCombo->GetValue().utf8_string();
  if (mFiltered && filter == mLastFilter) return;  // e.g. a remembered filter just applied
  ApplyFilter(filter);
}

void FilterListCtrlPopupBar::OnFilterChosen(wxCommandEvent & event) {
  int const index = event.GetSelection();
  ApplyFilter(index == wxNOT_FOUND ? std::string()
                                   : mCombo->GetString(static_cast<unsigned>(index)).utf8_string());
}

bool FilterListCtrlPopupBar::ChooseRow(int row) {
  if (mEnded || row < 0 || static_cast<size_t>(row) >= mVisible.size()) return false;
  mSettings.Remember(mCombo->GetValue().utf8_string());
  SavePopupFilterListSettings(mSettings);
  End(mVisible[static_cast<size_t>(row)]);
  return true;
}

void FilterListCtrlPopupBar::OnListNotify(NotifyEvent & event) {
  if (event.GetHeader()->hwndFrom != mList) {
    event.Skip();
    return;
  }
  switch (event.GetCode()) {
    case LVN_GETDISPINFOW: {
      LVITEMW & item = event.GetNotification<NMLVDISPINFOW>()->item;
      if ((item.mask & LVIF_TEXT) == 0) return;
      mDisplayText.clear();
      if (item.iItem >= 0 && static_cast<size_t>(item.iItem) < mVisible.size() &&
          mItems != nullptr) {
        try {
          mDisplayText =
              vx3::Utf8ToWide(mItems->GetText(mVisible[static_cast<size_t>(item.iItem)]));
        } catch (std::exception const &) {  // shown empty
        }
      }
      item.pszText = mDisplayText.data();
      return;
    }
    case NM_CLICK: ChooseRow(event.GetNotification<NMITEMACTIVATE>()->iItem); return;
    default: event.Skip();
  }
}

void FilterListCtrlPopupBar::OnCharHook(wxKeyEvent & event) {
  switch (event.GetKeyCode()) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER: ChooseRow(mList->GetNextItem(-1, LVNI_SELECTED)); return;
    case WXK_ESCAPE: Cancel(); return;
    case WXK_TAB:
      if (wxWindow::FindFocus() == mList)
        mCombo->SetFocus();
      else
        mList->SetFocus();
      return;
    default: event.Skip();
  }
}

void FilterListCtrlPopupBar::OnWheel(wxMouseEvent & event) {
  // Wherever the pointer is, the wheel scrolls the list.
  wxMouseEvent forwarded(event);
  forwarded.SetEventObject(mList);
  mList->GetEventHandler()->ProcessEvent(forwarded);
}

void FilterListCtrlPopupBar::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  wxSize const size = GetClientSize();
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNSHADOW)));
  dc.SetBrush(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.DrawRectangle(0, 0, size.x, size.y);  // the frame, the rest in the window colour
}

int FilterListCtrlPopupBar::EdgesAt(wxPoint point) const {
  wxSize const size = GetClientSize();
  int const grip = kFrame + 4;  // corners are easier to catch than edges
  int edges = 0;
  if (point.x < kFrame) edges |= kLeft;
  if (point.x >= size.x - kFrame) edges |= kRight;
  if (point.y < kFrame) edges |= kTop;
  if (point.y >= size.y - kFrame) edges |= kBottom;
  if (edges & (kLeft | kRight)) {
    if (point.y < grip) edges |= kTop;
    if (point.y >= size.y - grip) edges |= kBottom;
  }
  if (edges & (kTop | kBottom)) {
    if (point.x < grip) edges |= kLeft;
    if (point.x >= size.x - grip) edges |= kRight;
  }
  return edges;
}

void FilterListCtrlPopupBar::OnMouseMove(wxMouseEvent & event) {
  if (mDragEdges == 0) {
    int const edges = EdgesAt(event.GetPosition());
    wxStockCursor cursor = wxCURSOR_ARROW;
    if (edges == (kLeft | kTop) || edges == (kRight | kBottom))
      cursor = wxCURSOR_SIZENWSE;
    else if (edges == (kRight | kTop) || edges == (kLeft | kBottom))
      cursor = wxCURSOR_SIZENESW;
    else if (edges & (kLeft | kRight))
      cursor = wxCURSOR_SIZEWE;
    else if (edges & (kTop | kBottom))
      cursor = wxCURSOR_SIZENS;
    SetCursor(wxCursor(cursor));
    return;
  }
  wxPoint const delta = ClientToScreen(event.GetPosition()) - mDragStart;
  wxRect rect = mDragRect;
  int const minWidth = PopupFilterListSettings::kMinWidth;
  int const minHeight = PopupFilterListSettings::kMinHeight;
  if (mDragEdges & kRight) rect.width = std::max(mDragRect.width + delta.x, minWidth);
  if (mDragEdges & kBottom) rect.height = std::max(mDragRect.height + delta.y, minHeight);
  if (mDragEdges & kLeft) {
    rect.width = std::max(mDragRect.width - delta.x, minWidth);
    rect.x = mDragRect.GetRight() + 1 - rect.width;  // the right edge stays
  }
  if (mDragEdges & kTop) {
    rect.height = std::max(mDragRect.height - delta.y, minHeight);
    rect.y = mDragRect.GetBottom() + 1 - rect.height;
  }
  SetSize(rect);
}

void FilterListCtrlPopupBar::OnMouseDown(wxMouseEvent & event) {
  mDragEdges = EdgesAt(event.GetPosition());
  if (mDragEdges == 0) return;
  mDragStart = ClientToScreen(event.GetPosition());
  mDragRect = GetScreenRect();
  if (!HoldPointerInClientArea(*this)) mDragEdges = 0;  // the motion would go elsewhere
}

void FilterListCtrlPopupBar::OnMouseUp(wxMouseEvent &) {
  if (mDragEdges == 0) return;
  mDragEdges = 0;
  ReturnPointerToPopup(*this);
}
