// CListCtrl painting: only the rows inside the clip are drawn, through a
// buffer, with the custom-draw stages the owner asked for.
#include <wx/dcbuffer.h>
#include <wx/imaglist.h>
#include <wx/renderer.h>

#include <algorithm>

#include "platform/SysColor.h"
#include "platform/commctrl/CListCtrl.h"

namespace {

wxColour ToColour(COLORREF color) {
  return wxColour(GetRValue(color), GetGValue(color), GetBValue(color));
}

wxRect ToRect(RECT const & rect) {
  return wxRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

RECT FromRect(wxRect const & rect) {
  return RECT{rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
}

constexpr int TextMargin = 6;

}  // namespace

void CListCtrl::OnEraseBackground(wxEraseEvent &) {}  // painted whole, never erased

void CListCtrl::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  if (!mRedraw) return;
  wxRect clip = GetUpdateRegion().GetBox();
  if (clip.IsEmpty()) clip = wxRect(GetClientSize());
  PaintRows(dc, clip);
}

void CListCtrl::PaintRows(wxDC & dc, wxRect const & clip) {
  wxSize const client = GetClientSize();
  int const headerHeight = GetHeaderHeight();
  wxColour const background =
      mBkColor == CLR_NONE ? GetSysColour(COLOR_WINDOW) : ToColour(mBkColor);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(background));
  dc.DrawRectangle(clip);
  dc.SetFont(GetFont());
  mCharHeight = dc.GetCharHeight();
  mWidestAscii = 0;
  for (char const * wide : {"W", "M", "@", "%"})
    mWidestAscii = std::max(mWidestAscii, dc.GetTextExtent(wide).x);
  mPlaces.clear();
  int x = -mScrollX;
  for (int const column : mHeader->GetOrder()) {
    Column const & description = mColumns[static_cast<size_t>(column)];
    int const width = mHeader->GetItemWidth(column);
    mPlaces.push_back(Place{column, description.subItem, x, width, description.format});
    x += width;
  }

  NMLVCUSTOMDRAW draw;
  draw.nmcd.dwDrawStage = CDDS_PREPAINT;
  draw.nmcd.hdc = &dc;
  draw.nmcd.rc = RECT{0, 0, client.x, client.y};
  LRESULT const prepaint = SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
  if ((prepaint & CDRF_SKIPDEFAULT) == 0) {
    int const first = std::max(mTop + (clip.y - headerHeight) / std::max(mRowHeight, 1), mTop);
    int const last = std::min(GetItemCount() - 1,
                              mTop + (clip.GetBottom() - headerHeight) / std::max(mRowHeight, 1));
    if (IsOwnerData() && first <= last) {
      NMLVCACHEHINT hint;
      hint.iFrom = first;
      hint.iTo = last;
      SendNotify(this, LVN_ODCACHEHINT, hint.hdr);
    }
    for (int item = first; item <= last; ++item) {
      RECT bounds{};
      GetItemRect(item, &bounds, LVIR_BOUNDS);
      wxRect row = ToRect(bounds);
      row.width = std::max(row.width, client.x + mScrollX);
      PaintRow(dc, item, row, prepaint);
    }
    if ((mExStyle & LVS_EX_GRIDLINES) != 0) {
      dc.SetPen(wxPen(GetSysColour(COLOR_3DLIGHT)));
      int const bottom = headerHeight + (GetItemCount() - mTop) * mRowHeight;
      for (int y = headerHeight + mRowHeight - 1; y < std::min(bottom, client.y); y += mRowHeight)
        dc.DrawLine(0, y, client.x, y);
      int x = -mScrollX;
      for (int const at : mHeader->GetOrder()) {
        x += mHeader->GetItemWidth(at);
        dc.DrawLine(x - 1, headerHeight, x - 1, std::min(bottom, client.y));
      }
    }
  }
  if ((prepaint & CDRF_NOTIFYPOSTPAINT) != 0) {
    draw.nmcd.dwDrawStage = CDDS_POSTPAINT;
    SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
  }
}

void CListCtrl::PaintRow(wxDC & dc, int item, wxRect const & rowRect, LRESULT prepaint) {
  UINT const state = StateOf(item);
  bool const selected =
      (state & LVIS_SELECTED) != 0 && (mHasFocus || (mStyle & LVS_SHOWSELALWAYS) != 0);
  NMLVCUSTOMDRAW draw;
  draw.nmcd.hdc = &dc;
  draw.nmcd.rc = FromRect(rowRect);
  draw.nmcd.dwItemSpec = static_cast<DWORD_PTR>(item);
  draw.nmcd.uItemState = ((state & LVIS_SELECTED) != 0 ? CDIS_SELECTED : 0) |
                         ((state & LVIS_FOCUSED) != 0 && mHasFocus ? CDIS_FOCUS : 0);
  draw.nmcd.lItemlParam = IsOwnerData() ? 0 : mRows[static_cast<size_t>(item)].data;
  draw.clrText = mTextColor;
  draw.clrTextBk = mTextBkColor;
  LRESULT itemAnswer = CDRF_DODEFAULT;
  if ((prepaint & CDRF_NOTIFYITEMDRAW) != 0) {
    draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
    itemAnswer = SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
    if ((itemAnswer & CDRF_SKIPDEFAULT) != 0) return;
  }
  // Selection colours win over the owner's, as on the platform.
  COLORREF text = draw.clrText;
  COLORREF back = draw.clrTextBk;
  if (selected) {
    text = GetSysColor(mHasFocus ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
    back = GetSysColor(mHasFocus ? COLOR_HIGHLIGHT : COLOR_BTNFACE);
  }
  bool const fullRow = (mExStyle & LVS_EX_FULLROWSELECT) != 0;
  if (selected && fullRow) {
    RECT select{};
    GetItemRect(item, &select, LVIR_SELECTBOUNDS);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(ToColour(back)));
    dc.DrawRectangle(ToRect(select));
  }
  int const clientWidth = GetClientSize().x;
  for (Place const & place : mPlaces) {
    if (place.left + place.width <= 0 || place.left >= clientWidth || place.width <= 0) continue;
    wxRect const cell(place.left, rowRect.y, place.width, rowRect.height);
    COLORREF cellText = text, cellBack = back;
    if ((itemAnswer & CDRF_NOTIFYSUBITEMDRAW) != 0) {
      draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT | CDDS_SUBITEM;
      draw.nmcd.rc = FromRect(cell);
      draw.iSubItem = place.column;
      draw.clrText = text;
      draw.clrTextBk = back;
      LRESULT const sub = SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
      if ((sub & CDRF_SKIPDEFAULT) != 0) continue;
      if (!selected) {
        cellText = draw.clrText;
        cellBack = draw.clrTextBk;
      }
    }
    bool const highlighted = selected && (fullRow || place.subItem == 0);
    PaintCell(dc, item, place, cell, highlighted ? text : cellText, highlighted ? back : cellBack,
              highlighted);
  }
  if ((state & LVIS_FOCUSED) != 0 && mHasFocus) {
    RECT focus{};
    GetItemRect(item, &focus, fullRow ? LVIR_SELECTBOUNDS : LVIR_LABEL);
    wxRendererNative::Get().DrawFocusRect(this, dc, ToRect(focus), 0);
  }
  if ((itemAnswer & CDRF_NOTIFYPOSTPAINT) != 0) {
    draw.nmcd.dwDrawStage = CDDS_ITEMPOSTPAINT;
    draw.nmcd.rc = FromRect(rowRect);
    draw.iSubItem = 0;
    SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
  }
}

bool CListCtrl::FitsSurely(wxString const & text, int room) const {
  if (static_cast<int64_t>(text.length()) * mWidestAscii > room) return false;
  // Only ASCII letters are known to be no wider than the widest measured.
  return std::all_of(text.wc_str(), text.wc_str() + text.length(),
                     [](wchar_t c) { return c >= 32 && c < 127; });
}

wxString const & CListCtrl::TextForPaint(int item, int subItem) {
  if (!IsOwnerData()) {
    Row const & row = mRows[static_cast<size_t>(item)];
    auto const sub = static_cast<size_t>(subItem);
    if (!(subItem == 0 && row.textCallback) && sub < row.texts.size()) return row.texts[sub];
  }
  mPaintText = DisplayText(item, subItem);
  return mPaintText;
}

void CListCtrl::PaintCell(wxDC & dc, int item, Place const & place, wxRect const & cell,
                          COLORREF text, COLORREF back, bool selected) {
  wxRect label = cell;
  if (place.subItem == 0) {
    RECT labelRect{};
    GetItemRect(item, &labelRect, LVIR_LABEL);
    label = ToRect(labelRect);
    UINT const stateImage = DisplayStateImage(item);
    if (stateImage != 0) {
      RECT icon{};
      GetItemRect(item, &icon, LVIR_ICON);
      wxRect const box(cell.x, cell.y, icon.left - cell.x, cell.height);
      if (mStateImages != nullptr) {
        if (static_cast<int>(stateImage) < mStateImages->GetImageCount())
          mStateImages->Draw(static_cast<int>(stateImage), dc, box.x,
                             box.y + (box.height - mStateImages->GetSize().y) / 2,
                             wxIMAGELIST_DRAW_TRANSPARENT);
      } else if (box.width > 4) {
        int const side = std::min(box.width, box.height) - 4;
        wxRect const check(box.x + (box.width - side) / 2, box.y + (box.height - side) / 2, side,
                           side);
        wxRendererNative::Get().DrawCheckBox(this, dc, check,
                                             stateImage == 2 ? int(wxCONTROL_CHECKED) : 0);
      }
    }
    int const image = DisplayImage(item);
    if (mSmallImages != nullptr && image >= 0 && image < mSmallImages->GetImageCount()) {
      RECT icon{};
      GetItemRect(item, &icon, LVIR_ICON);
      mSmallImages->Draw(image, dc, icon.left,
                         icon.top + (mRowHeight - mSmallImages->GetSize().y) / 2,
                         wxIMAGELIST_DRAW_TRANSPARENT);
    }
  }
  if (back != CLR_NONE && (selected || back != mBkColor)) {
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(ToColour(back)));
    dc.DrawRectangle(label);
  }
  wxString const & content = TextForPaint(item, place.subItem);
  if (content.empty()) return;
  int const room = label.width - 2 * TextMargin;
  if (room <= 0) return;
  dc.SetTextForeground(ToColour(text));
  int const y = label.y + (label.height - mCharHeight) / 2;
  int const justify = place.format & LVCFMT_JUSTIFYMASK;
  if (justify == LVCFMT_LEFT && FitsSurely(content, room)) {
    // Left-aligned text that fits whatever its letters: no measuring.
    dc.DrawText(content, label.x + TextMargin, y);
    return;
  }
  int const width = dc.GetTextExtent(content).x;
  if (width > room) {
    // Too narrow: the text ends in an ellipsis, as the platform's does.
    wxString const shown = wxControl::Ellipsize(content, dc, wxELLIPSIZE_END, room);
    dc.DrawText(shown, label.x + TextMargin, y);
    return;
  }
  int x = label.x + TextMargin;
  switch (justify) {
    case LVCFMT_RIGHT: x = label.GetRight() + 1 - TextMargin - width; break;
    case LVCFMT_CENTER: x = label.x + (label.width - width) / 2; break;
    default: break;
  }
  dc.DrawText(content, x, y);
}
