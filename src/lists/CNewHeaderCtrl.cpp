#include "lists/CNewHeaderCtrl.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>

#include "lists/FlatHeaderBorder.h"
#include "lists/FlatHeaderGeometry.h"
#include "platform/SysColor.h"

namespace {

wxRect ToRect(RECT const & rect) {
  return wxRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

}  // namespace

CNewHeaderCtrl::CNewHeaderCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos,
                               wxSize const & size, DWORD headerStyle)
    : CHeaderCtrl(parent, id, pos, size, headerStyle) {}

void CNewHeaderCtrl::SetSortActive(int active) {
  mSortActive = active;
  Refresh(false);
}

void CNewHeaderCtrl::SetSortColumn(int column) {
  mSortColumn = column;
  Refresh(false);
}

void CNewHeaderCtrl::SetAscending(int ascending) {
  mAscending = ascending;
  Refresh(false);
}

void CNewHeaderCtrl::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(GetSysColour(COLOR_BTNFACE)));
  dc.Clear();
  PaintHeader(dc);
  DrawFlatHeaderBorder(dc, *this);
}

void CNewHeaderCtrl::DrawItem(wxDC & dc, int index, RECT const & rect, UINT state) {
  wxDCClipper const clip(dc, ToRect(rect));
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(GetSysColour(COLOR_BTNFACE)));
  dc.DrawRectangle(ToRect(rect));
  dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);

  // Without sorting a heading neither moves when pressed nor keeps room
  // for an arrow.
  bool const sorting = mSortActive != 0;
  bool const sortColumn = sorting && index == mSortColumn;
  RECT const text =
      HeadingTextRect(rect, mMargin, sorting && (state & ODS_SELECTED) != 0, sortColumn);
  if (text.left < text.right) {
    int const format = GetItemFormat(index);
    int align = wxALIGN_LEFT;
    if ((format & HDF_JUSTIFYMASK) == HDF_CENTER) align = wxALIGN_CENTER_HORIZONTAL;
    if ((format & HDF_JUSTIFYMASK) == HDF_RIGHT) align = wxALIGN_RIGHT;
    dc.SetFont(GetFont());
    dc.SetTextForeground(GetSysColour(COLOR_BTNTEXT));
    wxRect const box = ToRect(text);
    wxString const heading =
        wxControl::Ellipsize(GetItemText(index).Left(255), dc, wxELLIPSIZE_END, box.width);
    dc.DrawLabel(heading, box, align | wxALIGN_CENTER_VERTICAL);
  }
  if (sortColumn) {
    wxPen const highlight(GetSysColour(COLOR_3DHILIGHT));
    wxPen const shadow(GetSysColour(COLOR_3DSHADOW));
    // The list's descending figure stands for ascending here.
    for (auto const & stroke : SortArrowStrokes(rect, mMargin, mAscending == 0)) {
      dc.SetPen(stroke.highlight ? highlight : shadow);
      dc.DrawLine(stroke.from.x, stroke.from.y, stroke.to.x, stroke.to.y);
    }
  }
}
