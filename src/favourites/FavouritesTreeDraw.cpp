// The colours of the rows by state (custom draw), and the separator between
// collections drawn as an etched line.

#include <wx/dc.h>

#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesTree.h"
#include "favourites/KeptLabelLayouts.h"
#include "favourites/SeparatorItem.h"
#include "platform/SysColor.h"
#include "platform/UnmeasuredText.h"

namespace {

constexpr DWORD kSubItemPrePaint = 0x30001;
constexpr DWORD kSubItemPostPaint = 0x30002;
constexpr LRESULT kSubItemAnswer = 48;
constexpr int kSeparatorHeight = 3;
// Between a label's rectangle and its text, as the base tree draws it.
constexpr int kLabelPadding = 2;

// The theme's colours, read once a paint rather than once a row.
struct RowColours {
  COLORREF window, windowText, hotLight, grayText, highlight, highlightText, inactiveCaption,
      inactiveCaptionText;
};

RowColours const & Colours(bool refresh) {
  static RowColours colours{};
  if (refresh)
    colours = {GetSysColor(COLOR_WINDOW),          GetSysColor(COLOR_WINDOWTEXT),
               GetSysColor(COLOR_HOTLIGHT),        GetSysColor(COLOR_GRAYTEXT),
               GetSysColor(COLOR_HIGHLIGHT),       GetSysColor(COLOR_HIGHLIGHTTEXT),
               GetSysColor(COLOR_INACTIVECAPTION), GetSysColor(COLOR_INACTIVECAPTIONTEXT)};
  return colours;
}

// The etched line: a shadow line over a highlight line.
void DrawEtchedLine(wxDC & dc, RECT const & rect) {
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNSHADOW)));
  dc.DrawLine(rect.left, rect.top, rect.right, rect.top);
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNHIGHLIGHT)));
  dc.DrawLine(rect.left, rect.top + 1, rect.right, rect.top + 1);
}

}  // namespace

LRESULT FavouritesTree::OnCustomDraw(NMTVCUSTOMDRAW & draw) {
  DWORD const stage = draw.nmcd.dwDrawStage;
  if (stage == CDDS_PREPAINT) {
    Colours(true);
    mOwnLabels.clear();
    mNextOwnLabel = 0;
    return CDRF_NOTIFYITEMDRAW;
  }
  if (stage == kSubItemPrePaint) return kSubItemAnswer;
  if (stage == kSubItemPostPaint) return CDRF_SKIPDEFAULT;
  if (stage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;

  RowColours const & colours = Colours(false);
  HTREEITEM const row = HandleFromItemSpec(draw.nmcd.dwItemSpec);
  FavouriteItem * const item = GetFavouriteItem(row);
  if (dynamic_cast<SeparatorItem const *>(item) != nullptr) {
    RECT line = draw.nmcd.rc;
    line.top = (line.top + line.bottom) / 2 - 1;
    line.bottom = line.top + kSeparatorHeight;
    if (draw.nmcd.hdc != nullptr) DrawEtchedLine(*draw.nmcd.hdc, line);
    draw.clrTextBk = colours.window;
    draw.clrText = colours.window;
    return CDRF_SKIPDEFAULT;
  }
  bool const selected = GetItemState(row, TVIS_SELECTED) != 0 && GetEditControl() == nullptr;
  bool const enabled = item != nullptr && item->Enable();
  bool const hot = (draw.nmcd.uItemState & CDIS_HOT) != 0;
  if (selected) {
    draw.clrText = enabled ? colours.highlightText : colours.inactiveCaptionText;
    draw.clrTextBk = enabled ? colours.highlight : colours.inactiveCaption;
  } else if (hot) {
    draw.clrText = item != nullptr && !enabled ? colours.grayText : colours.hotLight;
  } else {
    draw.clrText = item != nullptr && !enabled ? colours.grayText : colours.windowText;
    draw.clrTextBk = colours.window;
  }
  // Rows the base dresses in a font or colour of their own keep its way.
  if (draw.nmcd.hdc != nullptr && mLabelLayouts != nullptr && !HasDisplayInfo(row) &&
      KeptLabelLayouts::CanDraw(*draw.nmcd.hdc, LabelFont(row)))
    mOwnLabels.push_back({row, static_cast<COLORREF>(draw.clrText)});
  return CDRF_DODEFAULT;
}

wxFont FavouritesTree::LabelFont(HTREEITEM row) {
  wxFont font = GetFont();
  if (GetItemState(row, TVIS_BOLD) == 0) return font;
  // Made once for the tree's font, as the base makes it once a paint.
  if (!mBoldFont.IsOk() || !mBoldFontOf.IsSameAs(font)) {
    mBoldFontOf = font;
    mBoldFont = font.Bold();
  }
  return mBoldFont;
}

bool FavouritesTree::PaintsOwnLabel(HTREEITEM item) const {
  if (HasDisplayInfo(item)) return VxTreeCtrl::PaintsOwnLabel(item);
  // Asked right after the row's own custom draw.
  return !mOwnLabels.empty() && mOwnLabels.back().row == item;
}

void FavouritesTree::PaintRow(wxDC & dc, HTREEITEM item, RECT const & label) {
  // The rows come in the order they were painted, ours among them.
  if (mNextOwnLabel >= mOwnLabels.size() || mOwnLabels[mNextOwnLabel].row != item) return;
  COLORREF const colour = mOwnLabels[mNextOwnLabel++].colour;
  wxColour const text(GetRValue(colour), GetGValue(colour), GetBValue(colour));
  wxFont const font = LabelFont(item);
  // Where the base would have drawn it: inside the label's padding,
  // centred on the font's height.
  int const x = label.left + kLabelPadding;
  int const y = label.top + (label.bottom - label.top - mLabelHeight) / 2;
  if (mLabelLayouts->Draw(dc, GetItemText(item), font, text, x, y)) return;
  dc.SetFont(font);
  dc.SetTextForeground(text);
  DrawTextUnmeasured(dc, GetItemText(item), x, y);
}
