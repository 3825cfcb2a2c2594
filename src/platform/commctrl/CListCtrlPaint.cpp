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
  std::vector<int> const order = mHeader->GetOrder();
  int const columnCount = std::max(static_cast<int>(order.size()), 1);
  for (int position = 0; position < columnCount; ++position) {
    int const column = order.empty() ? 0 : order[static_cast<size_t>(position)];
    int const left = rowRect.x + ColumnLeft(column);
    int const width = order.empty() ? rowRect.width : mHeader->GetItemWidth(column);
    if (left + width <= 0 || left >= GetClientSize().x || width <= 0) continue;
    wxRect const cell(left, rowRect.y, width, rowRect.height);
    COLORREF cellText = text, cellBack = back;
    if ((itemAnswer & CDRF_NOTIFYSUBITEMDRAW) != 0) {
      draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT | CDDS_SUBITEM;
      draw.nmcd.rc = FromRect(cell);
      draw.iSubItem = column;
      draw.clrText = text;
      draw.clrTextBk = back;
      LRESULT const sub = SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
      if ((sub & CDRF_SKIPDEFAULT) != 0) continue;
      if (!selected) {
        cellText = draw.clrText;
        cellBack = draw.clrTextBk;
      }
    }
    bool const highlighted = selected && (fullRow || column == 0);
    PaintCell(dc, item, column, cell, highlighted ? text : cellText, highlighted ? back : cellBack,
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

void CListCtrl::PaintCell(wxDC & dc, int item, int column, wxRect const & cell, COLORREF text,
                          COLORREF back, bool selected) {
  int const subItem = mColumns[static_cast<size_t>(column)].subItem;
  wxRect label = cell;
  if (subItem == 0) {
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
  wxString const content = DisplayText(item, subItem);
  if (back != CLR_NONE && (selected || back != mBkColor)) {
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(ToColour(back)));
    dc.DrawRectangle(label);
  }
  if (content.empty()) return;
  dc.SetTextForeground(ToColour(text));
  wxRect const textRect(label.x + TextMargin, label.y, label.width - 2 * TextMargin, label.height);
  if (textRect.width <= 0) return;
  int align = wxALIGN_CENTER_VERTICAL;
  switch (mColumns[static_cast<size_t>(column)].format & LVCFMT_JUSTIFYMASK) {
    case LVCFMT_RIGHT: align |= wxALIGN_RIGHT; break;
    case LVCFMT_CENTER: align |= wxALIGN_CENTER_HORIZONTAL; break;
    default: align |= wxALIGN_LEFT; break;
  }
  wxDCClipper clipper(dc, textRect);
  wxString shown = content;
  // A cell too narrow for its text ends in an ellipsis, as the platform does.
  if (dc.GetTextExtent(shown).x > textRect.width)
    shown = wxControl::Ellipsize(shown, dc, wxELLIPSIZE_END, textRect.width);
  dc.DrawLabel(shown, textRect, align);
}
