#include "lists/CFlatHeaderCtrl.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include "lists/FlatHeaderBorder.h"
#include "lists/FlatHeaderGeometry.h"
#include "platform/SysColor.h"

namespace {

wxRect ToRect(RECT const & rect) {
  return wxRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

}  // namespace

void CFlatHeaderCtrl::InitializeHeader(bool bold) {
  mFont = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  if (bold) mFont.SetWeight(wxFONTWEIGHT_BOLD);
  SetFont(mFont);
  mBold = bold ? 1 : 0;
  ResizeWindow();
}

int CFlatHeaderCtrl::SetSortImage(int column, int ascending) {
  int const previous = mSortColumn;
  mSortColumn = column;
  mSortAscending = ascending;
  HDITEMW item;
  item.mask = HDI_FORMAT | HDI_BITMAP;
  if (!GetItem(column, &item)) return previous;
  if (item.hbm != nullptr && item.hbm->IsOk()) return previous;
  if ((item.fmt & HDF_OWNERDRAW) == 0) {
    HDITEMW format;
    format.mask = HDI_FORMAT;
    format.fmt = item.fmt | HDF_OWNERDRAW;
    SetItem(column, &format);
  }
  Refresh();
  return previous;
}

void CFlatHeaderCtrl::ResizeWindow() {
  wxWindow * parent = GetParent();
  if (parent == nullptr) return;
  int const width = parent->GetClientSize().x;
  int const height = GetSize().y;
  SetSize(width, height);
  RefreshRect(wxRect(0, GetPosition().y, width, height));
}

void CFlatHeaderCtrl::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(GetSysColour(COLOR_BTNFACE)));
  dc.Clear();
  PaintHeader(dc);
  DrawFlatBorder(dc);
}

void CFlatHeaderCtrl::DrawFlatBorder(wxDC & dc) { DrawFlatHeaderBorder(dc, *this); }

void CFlatHeaderCtrl::DrawItem(wxDC & dc, int index, RECT const & rect, UINT state) {
  wxDCClipper const clip(dc, ToRect(rect));
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(GetSysColour(COLOR_BTNFACE)));
  dc.DrawRectangle(ToRect(rect));
  dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);

  bool const sortColumn = index == mSortColumn;
  RECT const text = HeadingTextRect(rect, mMargin, (state & ODS_SELECTED) != 0, sortColumn);
  if (text.left < text.right) {
    int const format = GetItemFormat(index);
    int align = wxALIGN_LEFT;
    if ((format & HDF_JUSTIFYMASK) == HDF_CENTER) align = wxALIGN_CENTER_HORIZONTAL;
    if ((format & HDF_JUSTIFYMASK) == HDF_RIGHT) align = wxALIGN_RIGHT;
    wxFont font = mFont.IsOk() ? mFont : GetFont();
    if (mBold != 0) font.SetWeight(wxFONTWEIGHT_BOLD);
    dc.SetFont(font);
    dc.SetTextForeground(GetSysColour(COLOR_BTNTEXT));
    wxRect const box = ToRect(text);
    wxString const heading =
        wxControl::Ellipsize(GetItemText(index).Left(255), dc, wxELLIPSIZE_END, box.width);
    dc.DrawLabel(heading, box, align | wxALIGN_CENTER_VERTICAL);
  }
  if (sortColumn) {
    wxPen const highlight(GetSysColour(COLOR_3DHILIGHT));
    wxPen const shadow(GetSysColour(COLOR_3DSHADOW));
    for (auto const & stroke : SortArrowStrokes(rect, mMargin, mSortAscending != 0)) {
      dc.SetPen(stroke.highlight ? highlight : shadow);
      dc.DrawLine(stroke.from.x, stroke.from.y, stroke.to.x, stroke.to.y);
    }
  }
}
