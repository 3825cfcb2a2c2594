// The column tree's rows: painted over the tree's lines, buttons and icons,
// one cell a column, and the fitting of tree, header and sideways bar to
// the frame.
#include <wx/dc.h>
#include <wx/scrolbar.h>

#include <algorithm>

#include "lists/TreeListHost.h"
#include "lists/VxTreeCtrlEx.h"
#include "platform/SysColor.h"
#include "platform/UnmeasuredText.h"

namespace {

// Characters a cell can show at most for each pixel of its room: a longer
// text is cut before it is measured, so that a megabyte cell costs no more
// than a short one.
constexpr int kCharactersPerPixel = 4;
// Text sizes kept for repaints, per font, before the store starts anew.
constexpr std::size_t kKeptExtents = 20000;

// One line: line ends and tabs would break the row.
wxString OneLine(wxString text) {
  for (auto it = text.begin(); it != text.end(); ++it)
    if (*it == L'\r' || *it == L'\n' || *it == L'\t') *it = L' ';
  return text;
}

}  // namespace

void VxTreeCtrlEx::DrawItemText(wxDC & dc, wxString const & text, RECT rect, int width, int align) {
  DrawCellText(dc, text, rect, width, align, nullptr);
}

void VxTreeCtrlEx::DrawCellText(wxDC & dc, wxString const & text, RECT rect, int width, int align,
                                TextExtents * kept) {
  if (text.empty()) return;
  int left = rect.left;
  int right = rect.left + width - 6;
  if (align == 0)
    left += 7;
  else if (align != 2)
    right += 1;
  if (right <= left) return;
  int const room = right - left;
  std::size_t const most = static_cast<std::size_t>(room) * kCharactersPerPixel + 1;
  wxString shown = OneLine(text.length() > most ? text.Left(most) : text);
  wxCoord textWidth = 0;
  wxCoord textHeight = 0;
  // A page repaints the same texts again and again: their sizes are kept,
  // which halves the text layouts of a repaint.
  auto const found = kept != nullptr ? kept->find(shown.ToStdWstring()) : TextExtents::iterator();
  if (kept != nullptr && found != kept->end()) {
    textWidth = found->second.first;
    textHeight = found->second.second;
  } else {
    dc.GetTextExtent(shown, &textWidth, &textHeight);
    if (kept != nullptr) {
      if (kept->size() >= kKeptExtents) kept->clear();
      kept->emplace(shown.ToStdWstring(), std::make_pair(textWidth, textHeight));
    }
  }
  if (textWidth > room) {
    wxString const dots(L"...");
    wxCoord const dotsWidth = dc.GetTextExtent(dots).x;
    wxArrayInt widths;
    dc.GetPartialTextExtents(shown, widths);
    std::size_t keep = 0;
    while (keep < widths.size() && widths[keep] + dotsWidth <= room) ++keep;
    shown = shown.Left(keep) + (dotsWidth <= room ? dots : wxString());
    textWidth = dc.GetTextExtent(shown).x;
  }
  int x = left;
  if (align == 2)
    x = left + (room - textWidth) / 2;
  else if (align != 0)
    x = right - textWidth;
  int const y = rect.top + (rect.bottom - rect.top - textHeight) / 2;
  DrawTextUnmeasured(dc, shown, x, y);
}

bool VxTreeCtrlEx::PaintsOwnLabel(HTREEITEM /*item*/) const { return true; }

void VxTreeCtrlEx::OnPaint(wxDC & dc, wxRect const & clip) {
  mPaintWidths.clear();
  for (int column = 0; column < mColumnCount; ++column)
    mPaintWidths.push_back(GetColumnWidth(column));
  if (!(mPaintFont == GetFont())) {
    mPaintFont = GetFont();
    mPaintBoldFont = mPaintFont.Bold();
    mKeptExtents[0].clear();
    mKeptExtents[1].clear();
  }
  mPaintWindowText = GetSysColor(COLOR_WINDOWTEXT);
  mPaintClip = clip;
  // The plain tree paints lines, buttons and icons (its labels are empty;
  // the family tree's own label texts and picture have no place here), then
  // PaintRow the cells of each row over them.
  PaintTo(dc, clip);
}

void VxTreeCtrlEx::PaintRow(wxDC & dc, HTREEITEM item, RECT const & label) {
  ItemData * const record = GetItemRecord(item);
  if (record == nullptr) return;
  HTREEITEM const parent = GetParentItem(item);
  ItemData const * const above = GetItemRecord(parent);
  // Group status spreads down as the rows are painted.
  if (above != nullptr && above->group) record->group = true;

  // Cells are placed in column coordinates, then moved by the offset.
  int const offset = mHorizontalOffset;
  int const firstWidth = mPaintWidths.empty() ? 0 : mPaintWidths.front();
  int rowLeft = label.left - offset;
  if (mColumnCount > 1) rowLeft = std::min(firstWidth, rowLeft);
  if (record->group && above != nullptr) {
    RECT parentLabel{};
    if (GetItemRect(parent, &parentLabel, 1) != 0) rowLeft = parentLabel.left - offset;
  }
  int const rowRight = mColumnsWidth;
  bool const selected = GetItemState(item, TVIS_SELECTED) != 0;
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(GetSysColour(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW)));
  if (rowRight > rowLeft)
    dc.DrawRectangle(rowLeft + offset, label.top, rowRight - rowLeft, label.bottom - label.top);

  COLORREF colour = record->colour;
  if (selected && colour == mPaintWindowText) colour = GetSysColor(COLOR_HIGHLIGHTTEXT);
  dc.SetTextForeground(wxColour(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF));
  dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
  dc.SetFont(record->bold ? mPaintBoldFont : mPaintFont);

  if (mPaintWidths.empty()) return;
  // Only the cells under the paint's clip: a sideways step paints a strip.
  int const clipLeft = mPaintClip.GetLeft();
  int const clipRight = mPaintClip.GetRight() + 1;
  if (firstWidth + offset > clipLeft && rowLeft - 2 + offset < clipRight) {
    std::wstring_view const first = record->ColumnView(0);
    RECT const cell0{rowLeft - 2 + offset, label.top, firstWidth + offset, label.bottom};
    DrawCellText(dc, wxString(first.data(), first.size()), cell0, firstWidth - rowLeft + 2,
                 record->group ? 1 : GetColumnAlign(0), &mKeptExtents[record->bold ? 1 : 0]);
  }
  int left = firstWidth;
  for (int column = 1; column < mColumnCount; ++column) {
    int const width = mPaintWidths[static_cast<std::size_t>(column)];
    if (left + offset >= clipRight) break;
    if (left + width + offset > clipLeft) {
      std::wstring_view const text = record->ColumnView(column);
      RECT const cell{left + offset, label.top, left + width + offset, label.bottom};
      DrawCellText(dc, wxString(text.data(), text.size()), cell, width, GetColumnAlign(column),
                   &mKeptExtents[record->bold ? 1 : 0]);
    }
    left += width;
  }
}

void VxTreeCtrlEx::ResetVertScrollBar() {
  TreeListHost * const host = GetHost();
  wxWindow * const frame = GetParent();
  if (host == nullptr || frame == nullptr) return;
  wxSize const frameClient = frame->GetClientSize();
  wxSize const headerSize = mHeader ? mHeader->GetSize() : wxSize();
  wxScrollBar * const bar = host->GetSideScrollBar();
  bool const barShown = bar != nullptr && bar->IsShown() && bar->GetRange() > 0;
  int const barHeight = bar != nullptr ? bar->GetSize().y : 0;

  // The tree below the header, above the sideways bar while it has a range.
  int const height = std::max(0, frameClient.y - headerSize.y - (barShown ? barHeight : 0));
  if (GetSize().y != height) SetSize(GetPosition().x, GetPosition().y, GetSize().x, height);

  // An overlay scroll bar takes no client width: the bar's width is what
  // the window has beyond its client area.
  int const verticalWidth = GetSize().x - GetClientSize().x;
  bool const vertical = GetScrollRange(wxVERTICAL) > GetScrollThumb(wxVERTICAL);
  int const clientWidth = GetClientSize().x;
  int headerWidth = frameClient.x - (vertical ? verticalWidth : 0);

  if (bar != nullptr) {
    int const limit = mColumnsWidth - clientWidth;
    if (limit >= 1) {
      int position = bar->GetThumbPosition();
      // A bar at its far end stays there when the vertical bar comes or goes.
      if (vertical != mHadVerticalBar && position == mSideLimit) position = limit;
      position = std::min(position, limit);
      bar->Enable(true);
      bar->Show(true);
      bar->SetScrollbar(position, clientWidth, mColumnsWidth, clientWidth);
      mSideLimit = limit;
    } else {
      bar->SetScrollbar(0, 0, 0, 0);
      bar->Enable(false);
      bar->Hide();
      mSideLimit = 0;
      SetHorizontalOffset(0);
      if (headerWidth > 0)
        headerWidth = std::max((mColumnsWidth / headerWidth + 1) * headerWidth, headerWidth);
    }
  }
  mHadVerticalBar = vertical;
  if (mHeader && headerWidth > 0 && headerSize.x != headerWidth)
    mHeader->SetSize(mHeader->GetPosition().x, mHeader->GetPosition().y, headerWidth, headerSize.y);
}
