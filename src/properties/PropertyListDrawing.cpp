// How a property list paints: its rows (gutter, expander, grid, name,
// value) and its details pane.
#include <algorithm>
#include <string>

#include <wx/dcclient.h>
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

wchar_t const kMeasuringText[] = L"DummyText";

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

}  // namespace

void PropertyListCtrl::OnPaintRows(wxPaintEvent &) {
  wxPaintDC dc(this);
  wxSize const size = GetClientSize();
  dc.SetBackground(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.Clear();
  if (mRows.empty() || GetItemCount() == 0) return;
  dc.SetFont(GetFont());
  wxRegion const & update = GetUpdateRegion();
  int y = 0;
  for (size_t row = GetVisibleRowsBegin(); row < GetVisibleRowsEnd() && y < size.y; ++row) {
    wxRect const rect(0, y, size.x, OnGetRowHeight(row));
    if (update.Contains(rect) != wxOutRegion) OnDrawItem(dc, rect, row);
    y += rect.height;
  }
  // The gutter's line and the right edge run over the whole rows' area.
  dc.SetPen(wxPen(GridColour()));
  dc.DrawLine(kGutterWidth, 0, kGutterWidth, size.y);
  dc.DrawLine(size.x - 1, 0, size.x - 1, size.y);
}

void PropertyListCtrl::OnDrawItem(wxDC & dc, wxRect const & rect, size_t n) const {
  if (n >= mRows.size()) return;
  PropertyItem & item = *mRows[n];
  auto const * category = dynamic_cast<PropertyItemCategory const *>(&item);
  NameSpan const span = SpanOf(item);
  bool const selected = IsSelected(n);
  int const bottom = rect.y + rect.height;

  if (category != nullptr) {
    wxRect const box = ExpanderRect(rect);
    dc.SetPen(*wxBLACK_PEN);
    dc.SetBrush(*wxWHITE_BRUSH);
    dc.DrawRectangle(box);
    int const cx = box.x + kExpanderSize / 2;
    int const cy = box.y + kExpanderSize / 2;
    dc.DrawLine(cx - 2, cy, cx + 3, cy);
    if (!category->GetChildrenVisible()) dc.DrawLine(cx, cy - 2, cx, cy + 3);
  }

  dc.SetPen(wxPen(GridColour()));
  dc.DrawLine(kGutterWidth, bottom - 1, rect.x + rect.width, bottom - 1);
  int const divider = DividerX(rect, span);
  dc.DrawLine(divider, rect.y, divider, bottom - 1);

  wxRect const name = NameRect(rect, span);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(GetSysColour(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW)));
  dc.DrawRectangle(name);
  dc.SetTextForeground(GetSysColour(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  bool const bold = category != nullptr;
  dc.SetFont(mMeasure->GetFont(bold));
  int const lineHeight = mMeasure->LineHeight(bold);
  wxString const & showName = item.GetShowName();
  auto const lines = PropertyRowMeasure::CountLines(showName);
  // Centred as a block; a block taller than the cell starts at its top.
  auto const textHeight = static_cast<long long>(lines) * lineHeight;
  int const top = name.y + static_cast<int>(std::max(0LL, (name.height - textHeight) / 2));
  wxRect const text(name.x + kTextInset, name.y, std::max(0, name.width - 2 * kTextInset),
                    name.height);
  {
    wxDCClipper clip(dc, text);
    DrawLines(dc, showName, text.x, top, lineHeight, text);
  }
  dc.SetFont(GetFont());
  dc.SetTextForeground(GetSysColour(COLOR_WINDOWTEXT));

  wxRect const value = ValueRect(rect);
  RECT const cell{value.x, value.y, value.x + value.width, value.y + value.height};
  if (!selected) {
    item.DrawValue(dc, cell);
    return;
  }
  // A selected row's value is its editor. What the editor leaves of the cell
  // (a colour's swatch) is drawn here: on GTK a paint outside the paint
  // handler does not last.
  if (mInPlaceControl == nullptr || !mInPlaceControl->IsShown()) return;
  int const uncovered = mInPlaceControl->GetPosition().x - value.x;
  if (uncovered <= 0) return;
  wxDCClipper clip(dc, wxRect(value.x, value.y, std::min(uncovered, value.width), value.height));
  item.DrawValue(dc, cell);
}

void PropertyListCtrl::DrawDetails(wxDC & dc, wxRect const & pane) const {
  if (!mShowDetails) return;
  wxRect const outer(pane.x + kBorder, pane.y, pane.width - kBorder, pane.height);
  wxRect inner = pane;
  inner.Deflate(kBorder + 3, 2);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.DrawRectangle(pane);
  dc.DrawRectangle(outer);
  dc.SetBrush(wxBrush(GetSysColour(COLOR_BTNFACE)));
  dc.SetPen(wxPen(GetSysColour(COLOR_INACTIVEBORDER)));
  dc.DrawRectangle(inner);

  PropertyItem const * item = GetPropertyItem(GetSelection());
  wxString name = item != nullptr ? item->GetName() : wxString();
  wxString description = item != nullptr ? item->GetDescription() : wxString();
  if (name.empty()) name = vx3::Tr("No selection");
  if (description.empty()) description = vx3::Tr("No description available.");

  wxRect text = inner;
  text.Deflate(2 * kBorder, kBorder);
  if (text.width <= 0 || text.height <= 0) return;
  wxDCClipper clip(dc, text);
  dc.SetTextForeground(GetSysColour(COLOR_WINDOWTEXT));
  dc.SetTextBackground(GetSysColour(COLOR_BTNFACE));
  dc.SetFont(mMeasure->GetFont(true));
  // The name stays on its first line; breaks in it are not the pane's.
  wxString const firstLine = name.BeforeFirst(L'\n');
  DrawTextUnmeasured(dc, firstLine, text.x, text.y);
  text.y += dc.GetTextExtent(kMeasuringText).y + 2;
  dc.SetFont(mMeasure->GetFont(false));
  int const lineHeight = mMeasure->LineHeight(false);
  // Only what the pane can show is wrapped: a description of a megabyte
  // costs no more than a few lines.
  size_t const room = static_cast<size_t>(std::max(1, text.width)) *
                      static_cast<size_t>(std::max(1, text.height / std::max(1, lineHeight) + 1));
  std::wstring shown =
      description.Left(std::min<size_t>(description.length(), room)).ToStdWstring();
  shown = LimitLineLength::ByPixels(shown, dc, static_cast<size_t>(text.width));
  DrawLines(dc, wxString(shown), text.x, text.y, lineHeight, text);
}
