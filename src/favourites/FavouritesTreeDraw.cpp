// The colours of the rows by state (custom draw), and the separator between
// collections drawn as an etched line.

#include <wx/dc.h>

#include "favourites/FavouriteItem.h"
#include "favourites/FavouritesTree.h"
#include "favourites/SeparatorItem.h"
#include "platform/SysColor.h"

namespace {

constexpr DWORD kSubItemPrePaint = 0x30001;
constexpr DWORD kSubItemPostPaint = 0x30002;
constexpr LRESULT kSubItemAnswer = 48;
constexpr int kSeparatorHeight = 3;

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
  return CDRF_DODEFAULT;
}
