#include "favourites/CommandsListBox.h"

#include <wx/dc.h>
#include <wx/renderer.h>

#include <algorithm>

#include "platform/SysColor.h"
#include "platform/SystemMetrics.h"

namespace {

constexpr int kIconColumn = 22;  // the icon's square at the left
constexpr int kHighlightFrom = 23;
constexpr int kTextFrom = 28;
constexpr int kTextRightGap = 22;
constexpr int kArrowIn = 11;  // the sub-menu arrow, from the right edge

}  // namespace

CommandsListBox::CommandsListBox(wxWindow * parent, wxWindowID id, wxPoint const & pos,
                                 wxSize const & size)
    : wxVListBox(parent, id, pos, size, wxBORDER_SUNKEN) {
  SetBackgroundColour(GetSysColour(COLOR_WINDOW));
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent & event) {
    mRowHeight = 0;
    event.Skip();
  });
}

bool CommandsListBox::SetFont(wxFont const & font) {
  mRowHeight = 0;
  return wxVListBox::SetFont(font);
}

void CommandsListBox::ResetContent() { SetRows({}); }

void CommandsListBox::AddRow(CommandRow row) {
  mRows.push_back(std::move(row));
  SetItemCount(mRows.size());
}

void CommandsListBox::SetRows(std::vector<CommandRow> rows) {
  mRows = std::move(rows);
  SetItemCount(mRows.size());
  SetSelection(wxNOT_FOUND);
  Refresh();
}

CommandsListBox::CommandRow const * CommandsListBox::GetRow(int index) const {
  return index >= 0 && index < GetRowCount() ? &mRows[static_cast<size_t>(index)] : nullptr;
}

wxCoord CommandsListBox::OnMeasureItem(size_t) const {
  // Room for a small icon with its raised edge, or a line of text. Every
  // row has it; the list asks for rows in thousands, so it is kept.
  if (mRowHeight == 0)
    mRowHeight = std::max(GetSystemMetrics(SM_CYSMICON) + 4, GetCharHeight() + 4);
  return mRowHeight;
}

void CommandsListBox::OnDrawBackground(wxDC & dc, wxRect const & rect, size_t) const {
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.DrawRectangle(rect);
}

void CommandsListBox::OnDrawItem(wxDC & dc, wxRect const & rect, size_t n) const {
  CommandRow const & row = mRows[n];
  bool const selected = IsSelected(n);
  if (selected) {
    wxRect highlight = rect;
    highlight.x += kHighlightFrom;
    highlight.width -= kHighlightFrom;
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(GetSysColour(COLOR_HIGHLIGHT)));
    dc.DrawRectangle(highlight);
    if (HasFocus()) {
      highlight.Deflate(2);
      wxRendererNative::Get().DrawFocusRect(const_cast<CommandsListBox *>(this), dc, highlight);
    }
  }
  dc.SetTextForeground(GetSysColour(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  dc.SetFont(GetFont());
  int const textWidth = rect.width - kTextFrom - kTextRightGap;
  if (textWidth > 0) {
    wxString const shown = wxControl::Ellipsize(row.text, dc, wxELLIPSIZE_END, textWidth);
    wxRect const textRect(rect.x + kTextFrom, rect.y, textWidth, rect.height);
    dc.DrawLabel(shown, textRect, wxALIGN_LEFT | wxALIGN_CENTER_VERTICAL);
  }
  if (row.commandId == 0) {
    // The sub-menu arrow: five vertical lines narrowing to a point, filled
    // as one-pixel columns (a pen's round caps would spill past their ends).
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(dc.GetTextForeground()));
    int const x = rect.GetRight() + 1 - kArrowIn;
    for (int i = 0; i < 5; ++i) dc.DrawRectangle(x + i, rect.y + 6 + i, 1, 10 - 2 * i);
  } else if (row.icon.IsOk()) {
    int const cx = GetSystemMetrics(SM_CXSMICON);
    int const cy = GetSystemMetrics(SM_CYSMICON);
    wxRect const cell(rect.x, rect.y, kIconColumn, rect.height);
    if (selected) {
      // A raised edge: highlight at the top and left, shadow at the bottom and right.
      dc.SetPen(wxPen(GetSysColour(COLOR_3DHILIGHT)));
      dc.DrawLine(cell.GetLeft(), cell.GetBottom(), cell.GetLeft(), cell.GetTop());
      dc.DrawLine(cell.GetLeft(), cell.GetTop(), cell.GetRight(), cell.GetTop());
      dc.SetPen(wxPen(GetSysColour(COLOR_BTNSHADOW)));
      dc.DrawLine(cell.GetRight(), cell.GetTop(), cell.GetRight(), cell.GetBottom());
      dc.DrawLine(cell.GetRight(), cell.GetBottom(), cell.GetLeft() - 1, cell.GetBottom());
    }
    dc.DrawIcon(row.icon, cell.x + (cell.width - cx) / 2, cell.y + (cell.height - cy) / 2);
  }
}
