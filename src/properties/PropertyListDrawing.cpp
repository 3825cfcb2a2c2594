// How a property list paints: its rows (gutter, expander, grid, name,
// value) and its details pane.
#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/region.h>

#include "dialogs/LimitLineLength.h"
#include "platform/SysColor.h"
#include "platform/UnmeasuredText.h"
#include "properties/PropertyItem.h"
#include "properties/PropertyItemCategory.h"
#include "properties/PropertyListCtrl.h"
#include "properties/PropertyRowMeasure.h"
#include "utl/Translation.h"

using namespace PropertyListGeometry;

namespace {

wxColour GridColour() {
  return {static_cast<unsigned char>(kGridColour & 0xFF),
          static_cast<unsigned char>((kGridColour >> 8) & 0xFF),
          static_cast<unsigned char>((kGridColour >> 16) & 0xFF)};
}

// GTK gives no border metrics (SM_CXBORDER is -1 there); the pane's frame
// is one pixel.
constexpr int kBorder = 1;

// Draws the lines of `text` (at "\n") from `top`, one every `lineHeight`
// pixels, leaving out those outside `clip`: a name of thousands of lines
// costs only the lines in view.
void DrawLines(wxDC & dc, wxString const & text, int left, int top, int lineHeight,
               wxRect const & clip) {
  if (text.find(L'\n') == wxString::npos) {
    if (top + lineHeight > clip.y && top < clip.GetBottom() + 1)
      DrawTextUnmeasured(dc, text, left, top);
    return;
  }
  int const clipBottom = clip.y + clip.height;
  size_t start = 0;
  int y = top;
  while (start <= text.length() && y < clipBottom) {
    size_t end = text.find(L'\n', start);
    if (end == wxString::npos) end = text.length();
    if (y + lineHeight > clip.y) DrawTextUnmeasured(dc, text.substr(start, end - start), left, y);
    start = end + 1;
    y += lineHeight;
  }
}

// Fills `boxes` with `brush` in one request to the display. Only fills: a
// stroke, even of a straight one-pixel line, reaches the display as
// trapezoids, which it rasterises into a mask as large as their bounds (for
// the grid, the whole list); pixel-aligned boxes are plain rectangles.
void FillBoxes(wxDC & dc, std::vector<wxRect> const & boxes, wxBrush const & brush) {
  if (boxes.empty()) return;
  // Set through the device, which hands them on to its graphics context and
  // so stays in step with it. Without a pen: a one-pixel pen shifts every
  // fill by half a pixel, and the boxes would be trapezoids again.
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(brush);
  wxGraphicsContext * const gc = dc.GetGraphicsContext();
  if (gc == nullptr) {
    for (wxRect const & box : boxes) dc.DrawRectangle(box);
    return;
  }
  wxGraphicsPath path = gc->CreatePath();
  for (wxRect const & box : boxes) path.AddRectangle(box.x, box.y, box.width, box.height);
  // Boxes that overlap (a row's line across the gutter's) stay filled.
  gc->FillPath(path, wxWINDING_RULE);
}

}  // namespace

PropertyListCtrl::PaintTools PropertyListCtrl::MakePaintTools() {
  return {wxBrush(GridColour()),
          wxBrush(GetSysColour(COLOR_WINDOW)),
          wxBrush(GetSysColour(COLOR_HIGHLIGHT)),
          wxBrush(GetSysColour(COLOR_BTNFACE)),
          wxBrush(GetSysColour(COLOR_INACTIVEBORDER)),
          GetSysColour(COLOR_WINDOWTEXT),
          GetSysColour(COLOR_HIGHLIGHTTEXT),
          GetSysColour(COLOR_BTNFACE)};
}

void PropertyListCtrl::OnPaintRows(wxPaintEvent &) {
  wxPaintDC dc(this);
  wxSize const size = GetClientSize();
  dc.SetBackground(mTools.window);
  dc.Clear();
  if (mRows.empty() || GetItemCount() == 0) return;
  wxRegion const & update = GetUpdateRegion();
  mGridLines.clear();
  std::vector<PaintedRow> rows;
  int y = 0;
  for (size_t row = GetVisibleRowsBegin(); row < GetVisibleRowsEnd() && y < size.y; ++row) {
    wxRect const rect(0, y, size.x, OnGetRowHeight(row));
    if (update.Contains(rect) != wxOutRegion && row < mRows.size()) rows.push_back({row, rect});
    y += rect.height;
  }
  PaintRows(dc, rows);
  // The gutter's line and the right edge run over the whole rows' area.
  AddLine(kGutterWidth, 0, kGutterWidth, size.y);
  AddLine(size.x - 1, 0, size.x - 1, size.y);
  FillBoxes(dc, mGridLines, mTools.grid);
}

void PropertyListCtrl::AddLine(int x1, int y1, int x2, int y2) const {
  if (y1 == y2) {
    mGridLines.emplace_back(std::min(x1, x2), y1, std::abs(x2 - x1), 1);
  } else {
    mGridLines.emplace_back(x1, std::min(y1, y2), 1, std::abs(y2 - y1));
  }
}

void PropertyListCtrl::OnDrawItem(wxDC & dc, wxRect const & rect, size_t n) const {
  if (n < mRows.size()) PaintRows(dc, {{n, rect}});
}

// Every change of pen, brush, font, colour or clip is a request to the
// display, and a font or colour change a new text layout: the rows are
// painted in passes, one a kind of mark, each with its tools set once.
void PropertyListCtrl::PaintRows(wxDC & dc, std::vector<PaintedRow> const & rows) const {
  if (rows.empty()) return;
  PaintExpanders(dc, rows);
  for (PaintedRow const & row : rows) {
    int const bottom = row.rect.y + row.rect.height;
    AddLine(kGutterWidth, bottom - 1, row.rect.x + row.rect.width, bottom - 1);
    int const divider = DividerX(row.rect, SpanOf(*mRows[row.index]));
    AddLine(divider, row.rect.y, divider, bottom - 1);
  }
  bool anySelected = false;
  for (PaintedRow const & row : rows) {
    if (!IsSelected(row.index)) continue;
    if (!anySelected) {  // the rest lies on the window colour already
      dc.SetPen(*wxTRANSPARENT_PEN);
      dc.SetBrush(mTools.highlight);
      anySelected = true;
    }
    dc.DrawRectangle(NameRect(row.rect, SpanOf(*mRows[row.index])));
  }
  for (bool const bold : {false, true}) {
    for (bool const selected : {false, true}) {
      if (selected && !anySelected) continue;
      PaintNames(dc, rows, bold, selected);
    }
  }
  PaintValues(dc, rows);
}

void PropertyListCtrl::PaintExpanders(wxDC & dc, std::vector<PaintedRow> const & rows) const {
  // Each box is a white inside under a black frame and bars, all one-pixel
  // boxes (crisp, where a line's ends would blend): two fills for all boxes.
  std::vector<wxRect> insides;
  std::vector<wxRect> marks;
  for (PaintedRow const & row : rows) {
    auto const * category = dynamic_cast<PropertyItemCategory const *>(mRows[row.index]);
    if (category == nullptr) continue;
    wxRect const box = ExpanderRect(row.rect);
    insides.emplace_back(box.x + 1, box.y + 1, box.width - 2, box.height - 2);
    marks.emplace_back(box.x, box.y, box.width, 1);
    marks.emplace_back(box.x, box.GetBottom(), box.width, 1);
    marks.emplace_back(box.x, box.y + 1, 1, box.height - 2);
    marks.emplace_back(box.GetRight(), box.y + 1, 1, box.height - 2);
    int const cx = box.x + kExpanderSize / 2;
    int const cy = box.y + kExpanderSize / 2;
    marks.emplace_back(cx - 2, cy, 5, 1);
    if (!category->GetChildrenVisible()) marks.emplace_back(cx, cy - 2, 1, 5);
  }
  FillBoxes(dc, insides, *wxWHITE_BRUSH);
  FillBoxes(dc, marks, *wxBLACK_BRUSH);
}

void PropertyListCtrl::PaintNames(wxDC & dc, std::vector<PaintedRow> const & rows, bool bold,
                                  bool selected) const {
  int const lineHeight = mMeasure->LineHeight(bold);
  struct Name {
    wxString const * text;
    wxRect cell;
    int top;
    bool fits;
  };
  std::vector<Name> names;
  for (PaintedRow const & row : rows) {
    PropertyItem const & item = *mRows[row.index];
    bool const category = dynamic_cast<PropertyItemCategory const *>(&item) != nullptr;
    if (category != bold || IsSelected(row.index) != selected) continue;
    wxRect const name = NameRect(row.rect, SpanOf(item));
    wxString const & showName = item.GetShowName();
    // Centred as a block; a block taller than the cell starts at its top.
    auto const textHeight =
        static_cast<long long>(PropertyRowMeasure::CountLines(showName)) * lineHeight;
    int const top = name.y + static_cast<int>(std::max(0LL, (name.height - textHeight) / 2));
    wxRect const cell(name.x + kTextInset, name.y, std::max(0, name.width - 2 * kTextInset),
                      name.height);
    if (!cell.IsEmpty()) names.push_back({&showName, cell, top, textHeight <= name.height});
  }
  if (names.empty()) return;
  dc.SetFont(mMeasure->GetFont(bold));
  dc.SetTextForeground(selected ? mTools.highlightText : mTools.text);
  // Names that fit their cells' height share a column's clip: one rectangle
  // for all cells of the same left and width (a clip of many rectangles
  // costs the display a mask). A name taller than its cell would spill
  // into the next row's: it gets its own clip.
  std::vector<bool> drawn(names.size(), false);
  for (size_t first = 0; first < names.size(); ++first) {
    if (drawn[first]) continue;
    wxRect const & cell = names[first].cell;
    if (!names[first].fits) {
      wxDCClipper clip(dc, cell);
      DrawLines(dc, *names[first].text, cell.x, names[first].top, lineHeight, cell);
      drawn[first] = true;
      continue;
    }
    wxRect column = cell;
    for (size_t i = first + 1; i < names.size(); ++i)
      if (names[i].fits && names[i].cell.x == cell.x && names[i].cell.width == cell.width)
        column.Union(names[i].cell);
    wxDCClipper clip(dc, column);
    for (size_t i = first; i < names.size(); ++i) {
      Name const & name = names[i];
      if (drawn[i] || !name.fits || name.cell.x != cell.x || name.cell.width != cell.width)
        continue;
      DrawLines(dc, *name.text, name.cell.x, name.top, lineHeight, name.cell);
      drawn[i] = true;
    }
  }
}

void PropertyListCtrl::PaintValues(wxDC & dc, std::vector<PaintedRow> const & rows) const {
  dc.SetFont(mMeasure->GetFont(false));
  dc.SetTextForeground(mTools.text);
  // One clip for the value column (its text stops short of the right edge
  // by the inset), which the items' text drawing relies on instead of a clip
  // a row.
  wxRect const first = ValueRect(rows.front().rect);
  int const top = rows.front().rect.y;
  int const bottom = rows.back().rect.y + rows.back().rect.height;
  wxRect const column(first.x, top, std::max(0, first.width - kTextInset), bottom - top);
  PaintedRow const * selected = nullptr;
  if (!column.IsEmpty()) {
    wxDCClipper clip(dc, column);
    for (PaintedRow const & row : rows) {
      if (IsSelected(row.index)) {
        selected = &row;
        continue;
      }
      wxRect const value = ValueRect(row.rect);
      mRows[row.index]->DrawValue(
          dc, RECT{value.x, value.y, value.x + value.width, value.y + value.height});
    }
  }
  // A selected row's value is its editor. What the editor leaves of the cell
  // (a colour's swatch) is drawn here: on GTK a paint outside the paint
  // handler does not last.
  if (selected == nullptr || mInPlaceControl == nullptr || !mInPlaceControl->IsShown()) return;
  wxRect const value = ValueRect(selected->rect);
  int const uncovered = mInPlaceControl->GetPosition().x - value.x;
  if (uncovered <= 0) return;
  wxDCClipper clip(dc, wxRect(value.x, value.y, std::min(uncovered, value.width), value.height));
  mRows[selected->index]->DrawValue(
      dc, RECT{value.x, value.y, value.x + value.width, value.y + value.height});
}

void PropertyListCtrl::DrawDetails(wxDC & dc, wxRect const & pane) const {
  if (!mShowDetails) return;
  wxRect inner = pane;
  inner.Deflate(kBorder + 3, 2);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(mTools.window);
  dc.DrawRectangle(pane);  // holds the outer frame's own fill too
  // The frame as boxes, not a stroke (see FillBoxes).
  FillBoxes(dc, {inner}, mTools.border);
  FillBoxes(dc, {wxRect(inner).Deflate(1)}, mTools.face);

  PropertyItem const * item = GetPropertyItem(GetSelection());
  wxString name = item != nullptr ? item->GetName() : wxString();
  wxString description = item != nullptr ? item->GetDescription() : wxString();
  if (name.empty()) name = vx3::Tr("No selection");
  if (description.empty()) description = vx3::Tr("No description available.");

  wxRect text = inner;
  text.Deflate(2 * kBorder, kBorder);
  if (text.width <= 0 || text.height <= 0) return;
  wxDCClipper clip(dc, text);
  dc.SetTextForeground(mTools.text);
  dc.SetTextBackground(mTools.faceColour);
  dc.SetFont(mMeasure->GetFont(true));
  // The name stays on its first line; breaks in it are not the pane's.
  wxString const firstLine = name.BeforeFirst(L'\n');
  DrawTextUnmeasured(dc, firstLine, text.x, text.y);
  text.y += mMeasure->LineHeight(true) + 2;
  dc.SetFont(mMeasure->GetFont(false));
  int const lineHeight = mMeasure->LineHeight(false);
  // Only what the pane can show is wrapped, and only when the text or the
  // width changed: a description of a megabyte costs no more than a few
  // lines, and a repaint nothing.
  if (description != mWrappedFor || text.width != mWrappedWidth) {
    size_t const room = static_cast<size_t>(std::max(1, text.width)) *
                        static_cast<size_t>(std::max(1, text.height / std::max(1, lineHeight) + 1));
    std::wstring const shown =
        description.Left(std::min<size_t>(description.length(), room)).ToStdWstring();
    mWrapped = wxString(LimitLineLength::ByPixels(shown, dc, static_cast<size_t>(text.width)));
    mWrappedFor = description;
    mWrappedWidth = text.width;
  }
  DrawLines(dc, mWrapped, text.x, text.y, lineHeight, text);
}
