#include "properties/PropertyInPlaceComboBoxListBox.h"

#include <algorithm>

#include <gtk/gtk.h>
#include <wx/dcbuffer.h>
#include <wx/weakref.h>

#include "platform/SysColor.h"
#include "platform/SystemMetrics.h"
#include "platform/WindowMessage.h"
#include "properties/PropertyInPlaceComboBox.h"
#include "properties/PropertyInPlaceLayout.h"
#include "properties/PropertyInPlaceMessages.h"

namespace {

constexpr int kBorder = 1;

// wx's own capture took the keys from the dialog under GTK as well; this
// takes the pointer alone, every event reported to the list's own window.
bool GrabPointer(wxWindow & window) {
  GdkWindow * const gdkWindow = window.GTKGetDrawingWindow();
  if (gdkWindow == nullptr) return false;
  GdkSeat * const seat = gdk_display_get_default_seat(gdk_window_get_display(gdkWindow));
  return gdk_seat_grab(seat, gdkWindow, GDK_SEAT_CAPABILITY_ALL_POINTING, FALSE, nullptr, nullptr,
                       nullptr, nullptr) == GDK_GRAB_SUCCESS;
}

void UngrabPointer(wxWindow & window) {
  GdkWindow * const gdkWindow = window.GTKGetDrawingWindow();
  if (gdkWindow == nullptr) return;
  gdk_seat_ungrab(gdk_display_get_default_seat(gdk_window_get_display(gdkWindow)));
}

}  // namespace

PropertyInPlaceComboBoxListBox::PropertyInPlaceComboBoxListBox(PropertyInPlaceComboBox * combo,
                                                               int id)
    : wxPopupWindow(combo, wxBORDER_NONE), mCombo(combo) {
  SetId(id);
  // A popup is a top-level window: it inherits no font of its own.
  if (combo->GetFont() != GetFont()) SetFont(combo->GetFont());
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  mItemHeight = combo->GetItemHeight();
  Bind(wxEVT_PAINT, &PropertyInPlaceComboBoxListBox::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, &PropertyInPlaceComboBoxListBox::OnLeftDown, this);
  Bind(wxEVT_LEFT_DCLICK, &PropertyInPlaceComboBoxListBox::OnLeftDown, this);
  Bind(wxEVT_LEFT_UP, &PropertyInPlaceComboBoxListBox::OnLeftUp, this);
  Bind(wxEVT_MOTION, &PropertyInPlaceComboBoxListBox::OnMotion, this);
  Bind(wxEVT_MOUSEWHEEL, &PropertyInPlaceComboBoxListBox::OnWheel, this);
}

PropertyInPlaceComboBoxListBox::~PropertyInPlaceComboBoxListBox() { ReleaseMouse(); }

int PropertyInPlaceComboBoxListBox::GetCount() const { return mCombo->GetCount(); }

wxString PropertyInPlaceComboBoxListBox::GetString(int index) const {
  return mCombo->GetString(index);
}

unsigned long PropertyInPlaceComboBoxListBox::GetItemData(int index) const {
  return mCombo->GetItemData(index);
}

void PropertyInPlaceComboBoxListBox::Reset() {
  mSelection = -1;
  mTop = 0;
  if (IsShown()) Refresh(false);
}

void PropertyInPlaceComboBoxListBox::SetSelection(int index) {
  mSelection = index >= 0 && index < GetCount() ? index : -1;
  if (mSelection >= 0) {
    int const rows = VisibleRows();
    if (mSelection < mTop) ScrollTo(mSelection);
    if (rows > 0 && mSelection >= mTop + rows) ScrollTo(mSelection - rows + 1);
  }
  if (IsShown()) Refresh(false);
}

void PropertyInPlaceComboBoxListBox::Drop(wxRect const & screenRect) {
  SetSize(screenRect);
  SetSelection(mSelection);
  Show();
  Raise();
  mDropped = true;
  mHoldsPointer = GrabPointer(*this);
}

void PropertyInPlaceComboBoxListBox::CloseUp() {
  mDropped = false;
  ReleaseMouse();
  Hide();
}

void PropertyInPlaceComboBoxListBox::ReleaseMouse() {
  if (!mHoldsPointer) return;
  mHoldsPointer = false;
  UngrabPointer(*this);
}

bool PropertyInPlaceComboBoxListBox::HandleKey(int keyCode) {
  int const last = GetCount() - 1;
  int const page = std::max(1, VisibleRows() - 1);
  int const current = mSelection;
  switch (keyCode) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER: Tell(kInPlaceListChoose); return true;
    case WXK_TAB:
    case WXK_ESCAPE: Tell(kInPlaceListHide); return true;
    case WXK_UP:
    case WXK_NUMPAD_UP: SetSelection(std::max(0, current - 1)); return true;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN: SetSelection(std::min(last, current + 1)); return true;
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP: SetSelection(std::max(0, current - page)); return true;
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN:
      SetSelection(std::min(last, std::max(0, current) + page));
      return true;
    case WXK_HOME:
    case WXK_NUMPAD_HOME: SetSelection(0); return true;
    case WXK_END:
    case WXK_NUMPAD_END: SetSelection(last); return true;
    default: return false;
  }
}

void PropertyInPlaceComboBoxListBox::Tell(unsigned message) {
  ReleaseMouse();
  std::uintptr_t const index = static_cast<std::uintptr_t>(static_cast<std::intptr_t>(mSelection));
  SendWindowMessage(mCombo, message, message == kInPlaceListChoose ? index : 0,
                    static_cast<std::intptr_t>(GetItemData(mSelection)));
}

int PropertyInPlaceComboBoxListBox::VisibleRows() const {
  return std::max(0, (GetClientSize().y - 2 * kBorder) / mItemHeight);
}

int PropertyInPlaceComboBoxListBox::RowAt(int y) const {
  int const row = mTop + (y - kBorder) / mItemHeight;
  return std::clamp(row, 0, GetCount() - 1);
}

bool PropertyInPlaceComboBoxListBox::HasScrollStrip() const { return GetCount() > VisibleRows(); }

int PropertyInPlaceComboBoxListBox::StripLeft() const {
  int const width = GetClientSize().x - kBorder;
  return HasScrollStrip() ? width - GetSystemMetrics(SM_CXVSCROLL) : width;
}

void PropertyInPlaceComboBoxListBox::ScrollTo(int top) {
  int const newTop = std::clamp(top, 0, std::max(0, GetCount() - VisibleRows()));
  if (newTop == mTop) return;
  mTop = newTop;
  if (IsShown()) Refresh(false);
}

void PropertyInPlaceComboBoxListBox::ScrollToStrip(int y) {
  int const track = std::max(1, GetClientSize().y - 2 * kBorder);
  ScrollTo((y - kBorder) * GetCount() / track - VisibleRows() / 2);
}

void PropertyInPlaceComboBoxListBox::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  wxSize const size = GetClientSize();
  dc.SetBackground(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.Clear();
  dc.SetFont(GetFont());
  int const right = StripLeft();
  int const rows = VisibleRows();
  int const inset = PropertyInPlaceLayout::kInset;
  for (int row = 0; row < rows && mTop + row < GetCount(); ++row) {
    int const index = mTop + row;
    wxRect const cell(kBorder, kBorder + row * mItemHeight, right - kBorder, mItemHeight);
    bool const selected = index == mSelection;
    if (selected) {
      dc.SetPen(*wxTRANSPARENT_PEN);
      dc.SetBrush(wxBrush(GetSysColour(COLOR_HIGHLIGHT)));
      dc.DrawRectangle(cell);
    }
    dc.SetTextForeground(GetSysColour(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    wxRect const text(cell.x + inset, cell.y, cell.width - 2 * inset, cell.height);
    dc.SetClippingRegion(text);
    dc.DrawLabel(GetString(index), text, wxALIGN_LEFT | wxALIGN_CENTER_VERTICAL);
    dc.DestroyClippingRegion();
  }
  if (HasScrollStrip()) {
    int const trackTop = kBorder;
    int const track = size.y - 2 * kBorder;
    wxRect const strip(right, trackTop, size.x - kBorder - right, track);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(GetSysColour(COLOR_BTNFACE)));
    dc.DrawRectangle(strip);
    int const count = std::max(1, GetCount());
    int const thumbHeight = std::max(8, track * rows / count);
    int const thumbTop = trackTop + (track - thumbHeight) * mTop / std::max(1, count - rows);
    dc.SetBrush(wxBrush(GetSysColour(COLOR_BTNSHADOW)));
    dc.DrawRectangle(strip.x + 2, thumbTop, strip.width - 4, thumbHeight);
  }
  dc.SetPen(wxPen(GetSysColour(COLOR_WINDOWFRAME)));
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.DrawRectangle(0, 0, size.x, size.y);
}

void PropertyInPlaceComboBoxListBox::OnLeftDown(wxMouseEvent & event) {
  wxPoint const at = event.GetPosition();
  if (!GetClientRect().Contains(at)) {
    // A press outside confirms the highlighted entry; it does not cancel.
    Tell(kInPlaceListChoose);
    return;
  }
  mInStrip = HasScrollStrip() && at.x >= StripLeft();
  if (mInStrip) {
    ScrollToStrip(at.y);
  } else if (GetCount() > 0) {
    SetSelection(RowAt(at.y));
  }
}

void PropertyInPlaceComboBoxListBox::OnLeftUp(wxMouseEvent & event) {
  bool const wasInStrip = std::exchange(mInStrip, false);
  if (wasInStrip || !GetClientRect().Contains(event.GetPosition())) return;
  Tell(kInPlaceListChoose);
}

void PropertyInPlaceComboBoxListBox::OnMotion(wxMouseEvent & event) {
  if (!event.LeftIsDown()) return;
  wxPoint const at = event.GetPosition();
  if (mInStrip) {
    ScrollToStrip(at.y);
    return;
  }
  if (!GetClientRect().Contains(at) || GetCount() == 0) return;
  SetSelection(RowAt(at.y));
}

void PropertyInPlaceComboBoxListBox::OnWheel(wxMouseEvent & event) {
  int const delta = std::max(1, event.GetWheelDelta());
  ScrollTo(mTop - event.GetWheelRotation() / delta * event.GetLinesPerAction());
}
