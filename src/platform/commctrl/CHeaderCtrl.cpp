#include "platform/commctrl/CHeaderCtrl.h"

#include <wx/dcbuffer.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include <algorithm>
#include <cstdlib>

#include "platform/SysColor.h"
#include "platform/SystemMetrics.h"

wxIMPLEMENT_DYNAMIC_CLASS(CHeaderCtrl, wxWindow);

wxBEGIN_EVENT_TABLE(CHeaderCtrl, wxWindow) EVT_PAINT(CHeaderCtrl::OnPaint)
    EVT_LEFT_DOWN(CHeaderCtrl::OnLeftDown) EVT_LEFT_UP(CHeaderCtrl::OnLeftUp)
        EVT_LEFT_DCLICK(CHeaderCtrl::OnLeftDClick) EVT_RIGHT_UP(CHeaderCtrl::OnRightUp)
            EVT_MOTION(CHeaderCtrl::OnMotion) EVT_MOUSE_CAPTURE_LOST(CHeaderCtrl::OnCaptureLost)
                wxEND_EVENT_TABLE()

                    CHeaderCtrl::CHeaderCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos,
                                             wxSize const & size, DWORD headerStyle) {
  Create(parent, id, pos, size, headerStyle);
}

bool CHeaderCtrl::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                         DWORD headerStyle) {
  mStyle = headerStyle;
  if (!wxWindow::Create(parent, id, pos, size, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE))
    return false;
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
  return true;
}

CHeaderCtrl::~CHeaderCtrl() {
  if (HasCapture()) ReleaseMouse();
}

void CHeaderCtrl::ModifyHeaderStyle(DWORD remove, DWORD add) {
  DWORD const style = (mStyle & ~remove) | add;
  if (style == mStyle) return;
  mStyle = style;
  Refresh();
}

int CHeaderCtrl::GetIdealHeight() const {
  wxClientDC dc(const_cast<CHeaderCtrl *>(this));
  dc.SetFont(GetFont());
  return dc.GetCharHeight() + 10;
}

void CHeaderCtrl::Read(int index, HDITEMW & item) const {
  Item const & source = mItems[static_cast<size_t>(index)];
  if ((item.mask & HDI_WIDTH) != 0) item.cxy = source.width;
  if ((item.mask & HDI_FORMAT) != 0) item.fmt = source.format;
  if ((item.mask & HDI_LPARAM) != 0) item.lParam = source.lParam;
  if ((item.mask & HDI_IMAGE) != 0) item.iImage = source.image;
  if ((item.mask & HDI_BITMAP) != 0) item.hbm = source.bitmap.IsOk() ? &source.bitmap : nullptr;
  if ((item.mask & HDI_ORDER) != 0) {
    auto const at = std::find(mOrder.begin(), mOrder.end(), index);
    item.iOrder = static_cast<int>(at - mOrder.begin());
  }
  if ((item.mask & HDI_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0) {
    std::wstring const text = source.text.ToStdWstring();
    size_t const n = std::min(text.size(), static_cast<size_t>(item.cchTextMax - 1));
    std::copy_n(text.data(), n, item.pszText);
    item.pszText[n] = L'\0';
  }
}

void CHeaderCtrl::Write(Item & target, HDITEMW const & source) {
  if ((source.mask & HDI_WIDTH) != 0) target.width = std::max(0, source.cxy);
  if ((source.mask & HDI_FORMAT) != 0) target.format = source.fmt;
  if ((source.mask & HDI_LPARAM) != 0) target.lParam = source.lParam;
  if ((source.mask & HDI_IMAGE) != 0) target.image = source.iImage;
  if ((source.mask & HDI_BITMAP) != 0)
    target.bitmap = source.hbm != nullptr ? *source.hbm : wxBitmap();
  if ((source.mask & HDI_TEXT) != 0)
    target.text = source.pszText != nullptr ? wxString(source.pszText) : wxString();
}

int CHeaderCtrl::InsertItem(int index, HDITEMW const * item) {
  if (item == nullptr || index < 0) return -1;
  index = std::min(index, GetItemCount());
  Item fresh;
  Write(fresh, *item);
  mItems.insert(mItems.begin() + index, fresh);
  for (int & entry : mOrder)
    if (entry >= index) ++entry;
  int position = index;
  if ((item->mask & HDI_ORDER) != 0 && item->iOrder >= 0)
    position = std::min(item->iOrder, static_cast<int>(mOrder.size()));
  position = std::min(position, static_cast<int>(mOrder.size()));
  mOrder.insert(mOrder.begin() + position, index);
  Refresh();
  return index;
}

bool CHeaderCtrl::DeleteItem(int index) {
  if (index < 0 || index >= GetItemCount()) return false;
  if (mTracking >= 0) EndTracking(false);
  mPressed = -1;
  mItems.erase(mItems.begin() + index);
  mOrder.erase(std::find(mOrder.begin(), mOrder.end(), index));
  for (int & entry : mOrder)
    if (entry > index) --entry;
  Refresh();
  return true;
}

bool CHeaderCtrl::GetItem(int index, HDITEMW * item) const {
  if (item == nullptr || index < 0 || index >= GetItemCount()) return false;
  Read(index, *item);
  return true;
}

bool CHeaderCtrl::SetItem(int index, HDITEMW const * item) {
  if (item == nullptr || index < 0 || index >= GetItemCount()) return false;
  HDITEMW change = *item;
  if (Notify(HDN_ITEMCHANGINGW, index, &change) != 0) return false;
  if (index >= GetItemCount()) return false;  // the handler deleted it
  Write(mItems[static_cast<size_t>(index)], change);
  if ((change.mask & HDI_ORDER) != 0 && change.iOrder >= 0) {
    mOrder.erase(std::find(mOrder.begin(), mOrder.end(), index));
    int const position = std::min(change.iOrder, static_cast<int>(mOrder.size()));
    mOrder.insert(mOrder.begin() + position, index);
  }
  Notify(HDN_ITEMCHANGEDW, index, &change);
  Refresh();
  return true;
}

wxString CHeaderCtrl::GetItemText(int index) const {
  return index >= 0 && index < GetItemCount() ? mItems[static_cast<size_t>(index)].text
                                              : wxString();
}

int CHeaderCtrl::GetItemWidth(int index) const {
  return index >= 0 && index < GetItemCount() ? mItems[static_cast<size_t>(index)].width : 0;
}

int CHeaderCtrl::GetItemFormat(int index) const {
  return index >= 0 && index < GetItemCount() ? mItems[static_cast<size_t>(index)].format : 0;
}

bool CHeaderCtrl::GetOrderArray(int * order, int count) const {
  if (order == nullptr || count != GetItemCount()) return false;
  std::copy(mOrder.begin(), mOrder.end(), order);
  return true;
}

bool CHeaderCtrl::SetOrderArray(int count, int const * order) {
  if (order == nullptr || count != GetItemCount()) return false;
  std::vector<int> wanted(order, order + count);
  std::vector<int> sorted = wanted;
  std::sort(sorted.begin(), sorted.end());
  for (int i = 0; i < count; ++i)
    if (sorted[static_cast<size_t>(i)] != i) return false;  // not a permutation
  mOrder = wanted;
  Refresh();
  return true;
}

int CHeaderCtrl::OrderToIndex(int order) const {
  return order >= 0 && order < GetItemCount() ? mOrder[static_cast<size_t>(order)] : order;
}

bool CHeaderCtrl::GetItemRect(int index, RECT * rect) const {
  if (rect == nullptr || index < 0 || index >= GetItemCount()) return false;
  int x = -mScrollOffset;
  for (int const at : mOrder) {
    int const width = mItems[static_cast<size_t>(at)].width;
    if (at == index) {
      *rect = RECT{x, 0, x + width, GetClientSize().y};
      return true;
    }
    x += width;
  }
  return false;
}

int CHeaderCtrl::DividerAt(int x) const {
  // The last divider within reach wins, so a column dragged to zero width
  // can be pulled out again.
  int found = -1;
  int edge = -mScrollOffset;
  for (int const at : mOrder) {
    edge += mItems[static_cast<size_t>(at)].width;
    if (x >= edge - DividerGrip && x <= edge + DividerGrip) found = at;
    if (edge - DividerGrip > x) break;
  }
  return found;
}

int CHeaderCtrl::HitTest(HDHITTESTINFO * info) const {
  if (info == nullptr) return -1;
  info->flags = 0;
  info->iItem = -1;
  wxSize const size = GetClientSize();
  if (info->pt.y < 0) info->flags |= HHT_ABOVE;
  if (info->pt.y >= size.y) info->flags |= HHT_BELOW;
  if (info->pt.x < 0) info->flags |= HHT_TOLEFT;
  if (info->pt.x >= size.x) info->flags |= HHT_TORIGHT;
  if (info->flags != 0) return -1;
  int const divider = DividerAt(info->pt.x);
  if (divider >= 0) {
    info->flags = HHT_ONDIVIDER;
    info->iItem = divider;
    return divider;
  }
  for (int i = 0; i < GetItemCount(); ++i) {
    RECT rect{};
    GetItemRect(i, &rect);
    if (info->pt.x >= rect.left && info->pt.x < rect.right) {
      info->flags = HHT_ONHEADER;
      info->iItem = i;
      return i;
    }
  }
  info->flags = HHT_NOWHERE;
  return -1;
}

void CHeaderCtrl::SetScrollOffset(int offset) {
  if (offset == mScrollOffset) return;
  mScrollOffset = offset;
  Refresh();
}

LRESULT CHeaderCtrl::Notify(UINT code, int index, HDITEMW * item, int button) {
  NMHEADERW header;
  header.iItem = index;
  header.iButton = button;
  header.pitem = item;
  return SendNotify(this, code, header.hdr);
}

void CHeaderCtrl::DrawItem(wxDC &, int, RECT const &, UINT) {}

void CHeaderCtrl::DrawDefaultItem(wxDC & dc, int index, RECT const & rect, bool pressed) {
  Item const & item = mItems[static_cast<size_t>(index)];
  wxRect const box(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
  if (box.width <= 0) return;
  wxHeaderButtonParams params;
  params.m_labelText = item.text;
  params.m_labelFont = GetFont();
  params.m_labelColour = GetSysColour(COLOR_BTNTEXT);
  switch (item.format & HDF_JUSTIFYMASK) {
    case HDF_RIGHT: params.m_labelAlignment = wxALIGN_RIGHT; break;
    case HDF_CENTER: params.m_labelAlignment = wxALIGN_CENTER; break;
    default: params.m_labelAlignment = wxALIGN_LEFT; break;
  }
  if ((item.format & HDF_BITMAP) != 0 && item.bitmap.IsOk()) params.m_labelBitmap = item.bitmap;
  wxHeaderSortIconType sort = wxHDR_SORT_ICON_NONE;
  if ((item.format & HDF_SORTUP) != 0) sort = wxHDR_SORT_ICON_UP;
  if ((item.format & HDF_SORTDOWN) != 0) sort = wxHDR_SORT_ICON_DOWN;
  wxRendererNative::Get().DrawHeaderButton(this, dc, box, pressed ? int(wxCONTROL_PRESSED) : 0,
                                           sort, &params);
}

void CHeaderCtrl::PaintHeader(wxDC & dc) {
  wxSize const size = GetClientSize();
  dc.SetBackground(wxBrush(GetSysColour(COLOR_BTNFACE)));
  dc.Clear();
  dc.SetFont(GetFont());
  int right = -mScrollOffset;
  for (int const index : mOrder) {
    RECT rect{};
    GetItemRect(index, &rect);
    right = rect.right;
    if (rect.right <= 0 || rect.left >= size.x) continue;
    bool const pressed = index == mPressed && mPressedInside;
    if ((mItems[static_cast<size_t>(index)].format & HDF_OWNERDRAW) != 0) {
      wxDCClipper clip(dc, wxRect(rect.left, rect.top, rect.right - rect.left, rect.bottom));
      DrawItem(dc, index, rect, pressed ? ODS_SELECTED : 0);
    } else {
      DrawDefaultItem(dc, index, rect, pressed);
    }
  }
  if (mDragging >= 0) {
    // Where the dragged heading would land.
    int x = -mScrollOffset;
    for (int position = 0; position < mDropPosition && position < GetItemCount(); ++position)
      x += mItems[static_cast<size_t>(mOrder[static_cast<size_t>(position)])].width;
    dc.SetPen(wxPen(GetSysColour(COLOR_HIGHLIGHT), 2));
    dc.DrawLine(x, 0, x, size.y);
  }
  if (right < size.x) {
    // The empty part right of the last heading, drawn as a heading without text.
    wxRendererNative::Get().DrawHeaderButton(this, dc, wxRect(right, 0, size.x - right, size.y));
  }
}

void CHeaderCtrl::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  PaintHeader(dc);
}

void CHeaderCtrl::OnLeftDown(wxMouseEvent & event) {
  int const divider = DividerAt(event.GetX());
  if (divider >= 0) {
    HDITEMW item;
    item.mask = HDI_WIDTH;
    item.cxy = mItems[static_cast<size_t>(divider)].width;
    if (Notify(HDN_BEGINTRACKW, divider, &item) != 0) return;  // refused
    mTracking = divider;
    mTrackStartX = event.GetX();
    mTrackStartWidth = mItems[static_cast<size_t>(divider)].width;
    if (!HasCapture()) CaptureMouse();
    return;
  }
  HDHITTESTINFO hit;
  hit.pt = POINT{event.GetX(), event.GetY()};
  HitTest(&hit);
  if (hit.iItem < 0 || (mStyle & HDS_BUTTONS) == 0) return;
  mPressed = hit.iItem;
  mPressedInside = true;
  mPressX = event.GetX();
  if (!HasCapture()) CaptureMouse();
  Refresh();
}

void CHeaderCtrl::OnMotion(wxMouseEvent & event) {
  if (mTracking >= 0) {
    HDITEMW item;
    item.mask = HDI_WIDTH;
    item.cxy = std::max(0, mTrackStartWidth + event.GetX() - mTrackStartX);
    if (Notify(HDN_TRACKW, mTracking, &item) != 0) {
      EndTracking(true);
      return;
    }
    if ((mStyle & HDS_FULLDRAG) != 0) SetItem(mTracking, &item);
    return;
  }
  if (mDragging >= 0) {
    mDropPosition = DropPositionAt(event.GetX());
    Refresh();
    return;
  }
  if (mPressed >= 0 && (mStyle & HDS_DRAGDROP) != 0 &&
      std::abs(event.GetX() - mPressX) > std::max(GetSystemMetrics(SM_CXDRAG), 2)) {
    // The heading leaves its place: a drag to another position, unless refused.
    if (Notify(HDN_BEGINDRAG, mPressed, nullptr) == 0) {
      mDragging = mPressed;
      mPressed = -1;
      mPressedInside = false;
      mDropPosition = DropPositionAt(event.GetX());
      Refresh();
      return;
    }
  }
  if (mPressed >= 0) {
    RECT rect{};
    GetItemRect(mPressed, &rect);
    bool const inside = event.GetX() >= rect.left && event.GetX() < rect.right &&
                        event.GetY() >= 0 && event.GetY() < GetClientSize().y;
    if (inside != mPressedInside) {
      mPressedInside = inside;
      Refresh();
    }
    return;
  }
  SetCursor(DividerAt(event.GetX()) >= 0 ? wxCursor(wxCURSOR_SIZEWE) : wxCursor(wxNullCursor));
}

void CHeaderCtrl::EndTracking(bool notify) {
  int const index = mTracking;
  mTracking = -1;
  if (HasCapture()) ReleaseMouse();
  if (!notify || index < 0 || index >= GetItemCount()) return;
  HDITEMW item;
  item.mask = HDI_WIDTH;
  item.cxy = mItems[static_cast<size_t>(index)].width;
  int const before = item.cxy;
  Notify(HDN_ENDTRACKW, index, &item);
  // The handler may change the final width (a floor, a ceiling).
  if (index < GetItemCount() && item.cxy != before) SetItem(index, &item);
}

void CHeaderCtrl::OnLeftUp(wxMouseEvent & event) {
  if (mTracking >= 0) {
    if ((mStyle & HDS_FULLDRAG) == 0) {
      HDITEMW item;
      item.mask = HDI_WIDTH;
      item.cxy = std::max(0, mTrackStartWidth + event.GetX() - mTrackStartX);
      SetItem(mTracking, &item);
    }
    EndTracking(true);
    return;
  }
  if (mDragging >= 0) {
    int const dragged = mDragging;
    mDragging = -1;
    if (HasCapture()) ReleaseMouse();
    HDITEMW item;
    item.mask = HDI_ORDER;
    item.iOrder = DropPositionAt(event.GetX());
    int const from =
        static_cast<int>(std::find(mOrder.begin(), mOrder.end(), dragged) - mOrder.begin());
    // Dropped behind itself: the place it left does not count.
    if (item.iOrder > from) --item.iOrder;
    if (Notify(HDN_ENDDRAG, dragged, &item) == 0 && item.iOrder != from) SetItem(dragged, &item);
    Refresh();
    return;
  }
  if (mPressed < 0) return;
  int const pressed = mPressed;
  bool const inside = mPressedInside;
  mPressed = -1;
  mPressedInside = false;
  if (HasCapture()) ReleaseMouse();
  Refresh();
  if (inside) Notify(HDN_ITEMCLICKW, pressed, nullptr, 0);
}

void CHeaderCtrl::OnLeftDClick(wxMouseEvent & event) {
  int const divider = DividerAt(event.GetX());
  if (divider >= 0) {
    Notify(HDN_DIVIDERDBLCLICKW, divider, nullptr, 0);
    return;
  }
  HDHITTESTINFO hit;
  hit.pt = POINT{event.GetX(), event.GetY()};
  if (HitTest(&hit) >= 0) Notify(HDN_ITEMDBLCLICKW, hit.iItem, nullptr, 0);
}

void CHeaderCtrl::OnRightUp(wxMouseEvent & event) {
  NMHDR header;
  SendNotify(this, NM_RCLICK, header);
  event.Skip();
}

void CHeaderCtrl::OnCaptureLost(wxMouseCaptureLostEvent &) {
  if (mTracking >= 0) {
    int const index = mTracking;
    mTracking = -1;
    HDITEMW item;
    item.mask = HDI_WIDTH;
    item.cxy = mItems[static_cast<size_t>(index)].width;
    Notify(HDN_ENDTRACKW, index, &item);
  }
  mPressed = -1;
  mPressedInside = false;
  mDragging = -1;
  Refresh();
}

int CHeaderCtrl::DropPositionAt(int x) const {
  // The position before the first heading whose middle lies right of x.
  int left = -mScrollOffset;
  int position = 0;
  for (int const at : mOrder) {
    int const width = mItems[static_cast<size_t>(at)].width;
    if (x < left + width / 2) return position;
    left += width;
    ++position;
  }
  return position;
}
