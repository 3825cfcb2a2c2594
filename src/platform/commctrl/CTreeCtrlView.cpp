// CTreeCtrl's window: rows and their geometry, scrolling, painting with the
// custom-draw stages, and the default handling of mouse and keys (selection,
// buttons, type-ahead, label editing, drag detection).

#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/evtloop.h>
#include <wx/graphics.h>
#include <wx/renderer.h>
#include <wx/settings.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "platform/SysColor.h"
#include "platform/SystemMetrics.h"
#include "platform/UnmeasuredText.h"
#include "platform/commctrl/CTreeCtrl.h"
#include "platform/commctrl/CTreeCtrlImpl.h"

namespace {

wxColour ToColour(COLORREF color) { return {GetRValue(color), GetGValue(color), GetBValue(color)}; }

constexpr int TextPadding = 2;  // between the label's rectangle and its text
constexpr int TypeAheadMilliseconds = 1000;

// Where the parts of one row lie, in client x.
struct RowLayout {
  int depth = 0;
  int buttonLeft = 0;  // the button and line column of the item itself
  int stateLeft = 0;
  int stateWidth = 0;
  int iconLeft = 0;
  int iconWidth = 0;
  int textLeft = 0;
  int textWidth = 0;  // the label's rectangle, padding included
};

}  // namespace

// ---- creating ----

bool CTreeCtrl::Create(wxWindow * parent, wxWindowID id, DWORD style, wxPoint const & pos,
                       wxSize const & size) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  if (!wxWindow::Create(parent, id, pos, size,
                        wxWANTS_CHARS | wxVSCROLL | wxHSCROLL | wxBORDER_THEME, "CTreeCtrl"))
    return false;
  mStyle = style;
  SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
  mImpl->fontHeight = GetCharHeight();

  Bind(wxEVT_PAINT, [this](wxPaintEvent &) { PaintKept(); });
  Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent &) {});
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent & event) {
    mImpl->coloursKnown = false;
    Invalidate();
    event.Skip();
  });
  Bind(wxEVT_SIZE, [this](wxSizeEvent & event) {
    mImpl->scrollbarsDirty = true;
    Refresh(false);
    event.Skip();
  });
  auto mouseFlags = [](wxMouseEvent const & event) {
    UINT flags = 0;
    if (event.LeftIsDown()) flags |= MK_LBUTTON;
    if (event.RightIsDown()) flags |= MK_RBUTTON;
    if (event.MiddleIsDown()) flags |= MK_MBUTTON;
    if (event.ShiftDown()) flags |= MK_SHIFT;
    if (event.ControlDown()) flags |= MK_CONTROL;
    return flags;
  };
  auto at = [](wxMouseEvent const & event) { return POINT{event.GetX(), event.GetY()}; };
  Bind(wxEVT_LEFT_DOWN,
       [=](wxMouseEvent & event) { OnLButtonDown(mouseFlags(event) | MK_LBUTTON, at(event)); });
  Bind(wxEVT_LEFT_UP,
       [=](wxMouseEvent & event) { OnLButtonUp(mouseFlags(event) & ~MK_LBUTTON, at(event)); });
  Bind(wxEVT_LEFT_DCLICK,
       [=](wxMouseEvent & event) { OnLButtonDblClk(mouseFlags(event), at(event)); });
  Bind(wxEVT_RIGHT_DOWN,
       [=](wxMouseEvent & event) { OnRButtonDown(mouseFlags(event) | MK_RBUTTON, at(event)); });
  Bind(wxEVT_RIGHT_UP,
       [=](wxMouseEvent & event) { OnRButtonUp(mouseFlags(event) & ~MK_RBUTTON, at(event)); });
  Bind(wxEVT_MOTION, [=](wxMouseEvent & event) { OnMouseMove(mouseFlags(event), at(event)); });
  Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent & event) {
    int const lines =
        event.GetWheelRotation() / std::max(1, event.GetWheelDelta()) * event.GetLinesPerAction();
    for (int i = 0; i < std::abs(lines); ++i) OnVScroll(lines > 0 ? SB_LINEUP : SB_LINEDOWN, 0);
  });
  Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent & event) {
    UINT const key = VirtualKeyFromWx(event.GetKeyCode());
    if (key == VK_TAB || key == 0) {
      event.Skip();
      return;
    }
    OnKeyDown(key, 1, 0);
    // Letters and the number-pad signs go on to become characters.
    if (key != VK_ADD && key != VK_SUBTRACT && key != VK_MULTIPLY) event.Skip();
  });
  Bind(wxEVT_KEY_UP, [this](wxKeyEvent & event) {
    OnKeyUp(VirtualKeyFromWx(event.GetKeyCode()), 1, 0);
    event.Skip();
  });
  Bind(wxEVT_CHAR, [this](wxKeyEvent & event) {
    wxChar const character = event.GetUnicodeKey();
    if (character != WXK_NONE && character >= 32) OnChar(static_cast<UINT>(character), 1, 0);
  });
  Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent & event) {
    OnSetFocus();
    event.Skip();
  });
  Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent & event) {
    OnKillFocus();
    event.Skip();
  });
  Bind(wxEVT_TIMER,
       [this](wxTimerEvent & event) { OnTimer(static_cast<UINT_PTR>(event.GetId())); });
  auto scroll = [this](wxScrollWinEvent & event, UINT code) {
    if (event.GetOrientation() == wxVERTICAL)
      OnVScroll(code, static_cast<UINT>(event.GetPosition()));
    else
      OnHScroll(code, static_cast<UINT>(event.GetPosition()));
  };
  Bind(wxEVT_SCROLLWIN_TOP, [=](wxScrollWinEvent & event) { scroll(event, SB_TOP); });
  Bind(wxEVT_SCROLLWIN_BOTTOM, [=](wxScrollWinEvent & event) { scroll(event, SB_BOTTOM); });
  Bind(wxEVT_SCROLLWIN_LINEUP, [=](wxScrollWinEvent & event) { scroll(event, SB_LINEUP); });
  Bind(wxEVT_SCROLLWIN_LINEDOWN, [=](wxScrollWinEvent & event) { scroll(event, SB_LINEDOWN); });
  Bind(wxEVT_SCROLLWIN_PAGEUP, [=](wxScrollWinEvent & event) { scroll(event, SB_PAGEUP); });
  Bind(wxEVT_SCROLLWIN_PAGEDOWN, [=](wxScrollWinEvent & event) { scroll(event, SB_PAGEDOWN); });
  Bind(wxEVT_SCROLLWIN_THUMBTRACK, [=](wxScrollWinEvent & event) { scroll(event, SB_THUMBTRACK); });
  Bind(wxEVT_SCROLLWIN_THUMBRELEASE,
       [=](wxScrollWinEvent & event) { scroll(event, SB_THUMBPOSITION); });
  return true;
}

void CTreeCtrl::Invalidate(BOOL /*erase*/) {
  mImpl->scrollbarsDirty = true;
  if (mImpl->redrawOff != 0 || mImpl->refreshPending || GetHandle() == nullptr) return;
  mImpl->refreshPending = true;
  Refresh(false);
}

void CTreeCtrl::SetRedraw(BOOL redraw) {
  mImpl->redrawOff = redraw != 0 ? 0 : 1;
  if (redraw != 0) Invalidate();
}

void CTreeCtrl::SetTimer(UINT_PTR id, UINT milliseconds) {
  auto & timer = mImpl->timers[id];
  if (!timer) timer = std::make_unique<wxTimer>(this, static_cast<int>(id));
  timer->Start(static_cast<int>(milliseconds));
}

void CTreeCtrl::KillTimer(UINT_PTR id) {
  auto const found = mImpl->timers.find(id);
  if (found != mImpl->timers.end()) found->second->Stop();
}

// ---- rows ----

namespace {

int ShownRowCount(TreeNodeStore const & nodes) {
  int rows = 0;
  for (uint32_t slot = nodes[0].firstChild; slot != 0; slot = nodes.NextVisible(slot)) ++rows;
  return rows;
}

}  // namespace

short CTreeCtrl::GetItemHeight() const {
  if (mImpl->itemHeightSet > 0) return mImpl->itemHeightSet;
  int height = mImpl->fontHeight + 3;
  int width = 0;
  int imageHeight = 0;
  if (mImpl->normalImages != nullptr && mImpl->normalImages->GetSize(0, width, imageHeight))
    height = std::max(height, imageHeight + 1);
  if (mImpl->stateImages != nullptr && mImpl->stateImages->GetSize(0, width, imageHeight))
    height = std::max(height, imageHeight + 1);
  if ((mStyle & TVS_CHECKBOXES) != 0) height = std::max(height, 17);
  if ((mStyle & TVS_NONEVENHEIGHT) == 0) height += height % 2;
  return static_cast<short>(height);
}

short CTreeCtrl::SetItemHeight(short height) {
  short const old = GetItemHeight();
  if (height > 0 && (mStyle & TVS_NONEVENHEIGHT) == 0)
    height = static_cast<short>(height + height % 2);
  mImpl->itemHeightSet = height > 0 ? height : -1;
  Invalidate();
  return old;
}

void CTreeCtrl::SetIndent(UINT indent) {
  mIndent = std::max<UINT>(indent, 8);
  Invalidate();
}

UINT CTreeCtrl::GetVisibleCount() const {
  return static_cast<UINT>(
      std::max(0, GetClientSize().GetHeight() / std::max<int>(1, GetItemHeight())));
}

// The slot shown at `row` (0 is the first root), or 0 past the end.
static uint32_t SlotAtRow(CTreeCtrl::Impl const & impl, int row) {
  TreeNodeStore const & nodes = impl.nodes;
  uint32_t slot = nodes[0].firstChild;
  int at = 0;
  if (impl.topVersion == impl.layoutVersion && impl.topVersionRow >= 0 &&
      impl.topVersionRow <= row) {
    slot = impl.topSlot;
    at = impl.topVersionRow;
  }
  while (slot != 0 && at < row) {
    slot = nodes.NextVisible(slot);
    ++at;
  }
  return slot;
}

// The row of a shown slot, or -1.
static int RowOfSlot(CTreeCtrl::Impl const & impl, uint32_t target) {
  TreeNodeStore const & nodes = impl.nodes;
  if (target == 0 || !nodes.IsShown(target)) return -1;
  uint32_t slot = nodes[0].firstChild;
  int row = 0;
  // Most questions are about rows on the page: walk from the top first.
  if (impl.topVersion == impl.layoutVersion && impl.topVersionRow >= 0) {
    uint32_t near = impl.topSlot;
    int nearRow = impl.topVersionRow;
    for (int step = 0; near != 0 && step < 256; ++step, ++nearRow, near = nodes.NextVisible(near))
      if (near == target) return nearRow;
  }
  for (; slot != 0; slot = nodes.NextVisible(slot), ++row)
    if (slot == target) return row;
  return -1;
}

static int RowCount(CTreeCtrl::Impl const & impl) {
  if (impl.rowCountVersion != impl.layoutVersion) {
    impl.rowCount = ShownRowCount(impl.nodes);
    impl.rowCountVersion = impl.layoutVersion;
  }
  return impl.rowCount;
}

// Keeps the top row in range and remembers its slot. After a change of the
// shown rows the item that was on top stays there if it is still shown.
static void SettleTop(CTreeCtrl::Impl & impl, int pageRows) {
  if (impl.topVersion != impl.layoutVersion) {
    uint32_t const anchor = impl.nodes.Slot(impl.topItem);
    if (anchor != 0 && impl.nodes.IsShown(anchor)) impl.topRow = RowOfSlot(impl, anchor);
  }
  int const rows = RowCount(impl);
  impl.topRow = std::max(0, std::min(impl.topRow, rows - std::max(1, pageRows)));
  if (impl.topVersion != impl.layoutVersion || impl.topVersionRow != impl.topRow) {
    impl.topSlot = SlotAtRow(impl, impl.topRow);
    impl.topItem = impl.nodes.Handle(impl.topSlot);
    impl.topVersionRow = impl.topRow;
    impl.topVersion = impl.layoutVersion;
  }
}

HTREEITEM CTreeCtrl::GetFirstVisibleItem() const {
  auto & impl = const_cast<Impl &>(*mImpl);
  SettleTop(impl, static_cast<int>(GetVisibleCount()));
  return impl.nodes.Handle(impl.topSlot);
}

void CTreeCtrl::SetHorizontalOrigin(int x) {
  if (mImpl->originX == x) return;
  mImpl->originX = x;
  // The kept pixels stay good: the next paint moves them.
  mImpl->sidewaysStep = true;
  Invalidate();
  mImpl->sidewaysStep = false;
}

int CTreeCtrl::GetHorizontalOrigin() const { return mImpl->originX; }

int CTreeCtrl::GetScrollPos(int bar) const {
  if (bar == SB_HORZ) return mImpl->scrollX;
  SettleTop(const_cast<Impl &>(*mImpl), static_cast<int>(GetVisibleCount()));
  return mImpl->topRow;
}

// The parts of a row; `font` measures the label in another font than the
// control's (a custom-draw font), otherwise the kept width serves.
static RowLayout LayOut(CTreeCtrl const & tree, CTreeCtrl::Impl & impl, uint32_t slot, int depth,
                        wxFont const * font) {
  if (!(impl.measuredFont == tree.GetFont())) {
    impl.nodes.ForgetTextWidths();
    impl.measuredFont = tree.GetFont();
  }
  TreeNode & node = impl.nodes[slot];
  DWORD const style = tree.GetStyle();
  int const indent = static_cast<int>(tree.GetIndent());
  bool const rootColumn =
      (style & TVS_LINESATROOT) != 0 && (style & (TVS_HASLINES | TVS_HASBUTTONS)) != 0;
  RowLayout row;
  row.depth = depth;
  int const level = depth + (rootColumn ? 1 : 0);
  row.buttonLeft = (level - 1) * indent - impl.scrollX + impl.originX;
  int x = level * indent - impl.scrollX + impl.originX;
  row.stateLeft = x;
  // The box column is there for every row once the tree has boxes, so that
  // labels stay in line whether an item shows its box or not.
  if (impl.stateImages != nullptr || (style & TVS_CHECKBOXES) != 0) {
    int width = 16;
    int height = 16;
    if (impl.stateImages != nullptr) impl.stateImages->GetSize(0, width, height);
    row.stateWidth = width;
    x += width;
  }
  row.iconLeft = x;
  if (impl.normalImages != nullptr) {
    int width = 0;
    int height = 0;
    impl.normalImages->GetSize(0, width, height);
    row.iconWidth = width + 1;
    x += row.iconWidth;
  }
  row.textLeft = x;
  int textWidth = 0;
  if (font != nullptr || node.textCallback) {
    wxString const text = ShownText(const_cast<CTreeCtrl &>(tree), impl, slot);
    wxFont const bold =
        font == nullptr && (node.state & TVIS_BOLD) != 0 ? tree.GetFont().Bold() : wxFont();
    tree.GetTextExtent(text, &textWidth, nullptr, nullptr, nullptr,
                       font != nullptr ? font
                       : bold.IsOk()   ? &bold
                                       : nullptr);
  } else {
    if (node.textWidth < 0) {
      wxFont const bold = (node.state & TVIS_BOLD) != 0 ? tree.GetFont().Bold() : wxFont();
      tree.GetTextExtent(node.text, &node.textWidth, nullptr, nullptr, nullptr,
                         bold.IsOk() ? &bold : nullptr);
    }
    textWidth = node.textWidth;
  }
  row.textWidth = textWidth + 2 * TextPadding;
  // The horizontal range grows with every row laid out (painted, hit or
  // measured); it never walks the whole tree for it.
  impl.widestRow =
      std::max(impl.widestRow, row.textLeft + row.textWidth + impl.scrollX - impl.originX);
  return row;
}

HTREEITEM CTreeCtrl::HitTest(POINT point, UINT * flags) const {
  TVHITTESTINFO info;
  info.pt = point;
  HTREEITEM const item = HitTest(&info);
  if (flags != nullptr) *flags = info.flags;
  return item;
}

HTREEITEM CTreeCtrl::HitTest(TVHITTESTINFO * info) const {
  if (info == nullptr) return {};
  info->hItem = {};
  wxSize const client = GetClientSize();
  POINT const pt = info->pt;
  UINT flags = 0;
  if (pt.y < 0) flags |= TVHT_ABOVE;
  if (pt.y >= client.GetHeight()) flags |= TVHT_BELOW;
  if (pt.x < 0) flags |= TVHT_TOLEFT;
  if (pt.x >= client.GetWidth()) flags |= TVHT_TORIGHT;
  if (flags != 0) {
    info->flags = flags;
    return {};
  }
  auto & impl = const_cast<Impl &>(*mImpl);
  int const height = GetItemHeight();
  SettleTop(impl, static_cast<int>(GetVisibleCount()));
  uint32_t const slot = SlotAtRow(impl, impl.topRow + pt.y / height);
  if (slot == 0) {
    info->flags = TVHT_NOWHERE;
    return {};
  }
  RowLayout const row = LayOut(*this, impl, slot, impl.nodes.Depth(slot), nullptr);
  bool const buttonColumn = row.depth > 0 || ((mStyle & TVS_LINESATROOT) != 0 &&
                                              (mStyle & (TVS_HASLINES | TVS_HASBUTTONS)) != 0);
  if (pt.x < row.stateLeft)
    flags = buttonColumn && pt.x >= row.buttonLeft && (mStyle & TVS_HASBUTTONS) != 0 &&
                    ItemHasChildren(impl.nodes.Handle(slot))
                ? TVHT_ONITEMBUTTON
                : TVHT_ONITEMINDENT;
  else if (pt.x < row.stateLeft + row.stateWidth)
    flags = TVHT_ONITEMSTATEICON;
  else if (pt.x < row.iconLeft + row.iconWidth)
    flags = TVHT_ONITEMICON;
  else if (pt.x < row.textLeft + row.textWidth)
    flags = TVHT_ONITEMLABEL;
  else
    flags = TVHT_ONITEMRIGHT;
  info->flags = flags;
  info->hItem = impl.nodes.Handle(slot);
  return info->hItem;
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM item, RECT * rect, BOOL textOnly) const {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0 || rect == nullptr) return 0;
  auto & impl = const_cast<Impl &>(*mImpl);
  SettleTop(impl, static_cast<int>(GetVisibleCount()));
  int const row = RowOfSlot(impl, slot);
  if (row < 0) return 0;
  int const height = GetItemHeight();
  rect->top = (row - impl.topRow) * height;
  rect->bottom = rect->top + height;
  if (textOnly != 0) {
    RowLayout const layout = LayOut(*this, impl, slot, impl.nodes.Depth(slot), nullptr);
    rect->left = layout.textLeft;
    rect->right = layout.textLeft + layout.textWidth;
  } else {
    rect->left = 0;
    rect->right = GetClientSize().GetWidth();
  }
  return 1;
}

// ---- scrolling ----

static void UpdateScrollbars(CTreeCtrl & tree, CTreeCtrl::Impl & impl) {
  if (!impl.scrollbarsDirty) return;
  impl.scrollbarsDirty = false;
  int const page = static_cast<int>(tree.GetVisibleCount());
  SettleTop(impl, page);
  int const rows = RowCount(impl);
  if ((tree.GetStyle() & TVS_NOSCROLL) != 0) return;
  tree.SetScrollbar(wxVERTICAL, impl.topRow, page, rows);
  int const width = tree.GetClientSize().GetWidth();
  if ((tree.GetStyle() & TVS_NOHSCROLL) != 0) return;
  impl.scrollX = std::max(0, std::min(impl.scrollX, impl.widestRow - width));
  tree.SetScrollbar(wxHORIZONTAL, impl.scrollX, width, impl.widestRow);
}

void CTreeCtrl::OnVScroll(UINT code, UINT position) {
  int const page = std::max(1, static_cast<int>(GetVisibleCount()));
  SettleTop(*mImpl, page);
  int top = mImpl->topRow;
  switch (code) {
    case SB_LINEUP: --top; break;
    case SB_LINEDOWN: ++top; break;
    case SB_PAGEUP: top -= page; break;
    case SB_PAGEDOWN: top += page; break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: top = static_cast<int>(position); break;
    case SB_TOP: top = 0; break;
    case SB_BOTTOM: top = RowCount(*mImpl); break;
    default: return;
  }
  mImpl->topRow = top;
  SettleTop(*mImpl, page);
  mImpl->scrollbarsDirty = true;
  UpdateScrollbars(*this, *mImpl);
  Refresh(false);
}

void CTreeCtrl::OnHScroll(UINT code, UINT position) {
  int const width = GetClientSize().GetWidth();
  int x = mImpl->scrollX;
  switch (code) {
    case SB_LINEUP: x -= static_cast<int>(mIndent); break;
    case SB_LINEDOWN: x += static_cast<int>(mIndent); break;
    case SB_PAGEUP: x -= width; break;
    case SB_PAGEDOWN: x += width; break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: x = static_cast<int>(position); break;
    case SB_TOP: x = 0; break;
    case SB_BOTTOM: x = mImpl->widestRow; break;
    default: return;
  }
  mImpl->scrollX = std::max(0, std::min(x, mImpl->widestRow - width));
  mImpl->scrollbarsDirty = true;
  UpdateScrollbars(*this, *mImpl);
  Refresh(false);
}

BOOL CTreeCtrl::EnsureVisible(HTREEITEM item) {
  TreeNodeStore & nodes = mImpl->nodes;
  uint32_t const slot = nodes.Slot(item);
  if (slot == 0) return 0;
  // Open the closed ancestors from the top down.
  std::vector<uint32_t> closed;
  for (uint32_t up = nodes[slot].parent; up != 0; up = nodes[up].parent)
    if (!nodes.IsExpanded(up)) closed.push_back(up);
  for (auto it = closed.rbegin(); it != closed.rend(); ++it) Expand(nodes.Handle(*it), TVE_EXPAND);
  if (nodes.Slot(item) == 0 || !nodes.IsShown(slot)) return 0;
  int const page = std::max(1, static_cast<int>(GetVisibleCount()));
  SettleTop(*mImpl, page);
  int const row = RowOfSlot(*mImpl, slot);
  if (row < mImpl->topRow)
    mImpl->topRow = row;
  else if (row >= mImpl->topRow + page)
    mImpl->topRow = row - page + 1;
  SettleTop(*mImpl, page);
  Invalidate();
  return 1;
}

BOOL CTreeCtrl::SelectSetFirstVisible(HTREEITEM item) {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0 || EnsureVisible(item) == 0) return 0;
  mImpl->topRow = RowOfSlot(*mImpl, slot);
  SettleTop(*mImpl, static_cast<int>(GetVisibleCount()));
  Invalidate();
  return 1;
}

// ---- images and colours ----

wxImageList * CTreeCtrl::GetImageList(int which) const {
  return which == TVSIL_STATE    ? mImpl->stateImages
         : which == TVSIL_NORMAL ? mImpl->normalImages
                                 : nullptr;
}

wxImageList * CTreeCtrl::SetImageList(wxImageList * images, int which) {
  wxImageList *& slot = which == TVSIL_STATE ? mImpl->stateImages : mImpl->normalImages;
  if (which != TVSIL_STATE && which != TVSIL_NORMAL) return nullptr;
  wxImageList * const old = slot;
  slot = images;
  Invalidate();
  return old;
}

COLORREF CTreeCtrl::SetBkColor(COLORREF color) {
  std::swap(mBkColor, color);
  Invalidate();
  return color;
}

COLORREF CTreeCtrl::SetTextColor(COLORREF color) {
  std::swap(mTextColor, color);
  Invalidate();
  return color;
}

COLORREF CTreeCtrl::SetLineColor(COLORREF color) {
  std::swap(mLineColor, color);
  Invalidate();
  return color;
}

COLORREF CTreeCtrl::SetInsertMarkColor(COLORREF color) {
  std::swap(mInsertMarkColor, color);
  Invalidate();
  return color;
}

BOOL CTreeCtrl::SetInsertMark(HTREEITEM item, BOOL after) {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (item && slot == 0) return 0;
  mImpl->insertMark = slot;
  mImpl->insertMarkAfter = after != 0;
  Invalidate();
  return 1;
}

HTREEITEM CTreeCtrl::GetInsertMark(BOOL * after) const {
  if (after != nullptr) *after = mImpl->insertMarkAfter ? 1 : 0;
  return mImpl->nodes.Handle(mImpl->insertMark);
}

wxImageList * CTreeCtrl::CreateDragImage(HTREEITEM item) {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0) return nullptr;
  RowLayout const row = LayOut(*this, *mImpl, slot, 0, nullptr);
  int const height = GetItemHeight();
  int const width = std::max(1, row.iconWidth + row.textWidth);
  wxBitmap bitmap(width, height);
  {
    wxMemoryDC dc(bitmap);
    dc.SetBackground(wxBrush(GetSysColour(COLOR_WINDOW)));
    dc.Clear();
    dc.SetFont(GetFont());
    dc.SetTextForeground(GetSysColour(COLOR_WINDOWTEXT));
    TreeNode const & node = mImpl->nodes[slot];
    if (mImpl->normalImages != nullptr && node.image >= 0 &&
        node.image < mImpl->normalImages->GetImageCount())
      mImpl->normalImages->Draw(node.image, dc, 0, 0, wxIMAGELIST_DRAW_TRANSPARENT);
    dc.DrawText(ShownText(*this, *mImpl, slot), row.iconWidth + TextPadding,
                (height - mImpl->fontHeight) / 2);
  }
  auto * images = new wxImageList(width, height, false, 1);
  images->Add(bitmap);
  return images;
}

// ---- painting ----

void CTreeCtrl::OnPaint(wxDC & dc, wxRect const & clip) { PaintTo(dc, clip); }

void CTreeCtrl::Refresh(bool eraseBackground, wxRect const * rect) {
  // Whatever asks for a repaint has changed what the kept pixels show;
  // only a sideways step keeps them (they move as a whole).
  if (!mImpl->sidewaysStep) mImpl->keptValid = false;
  wxWindow::Refresh(eraseBackground, rect);
}

void CTreeCtrl::PaintKept() {
  Impl & impl = *mImpl;
  impl.refreshPending = false;
  wxPaintDC screen(this);
  wxSize const client = GetClientSize();
  if (client.x <= 0 || client.y <= 0) return;
  wxRect clip = GetUpdateClientRect();
  if (clip.IsEmpty()) clip = wxRect(client);
  if (!impl.kept.IsOk() || impl.kept.GetSize() != client) {
    impl.kept.Create(client);
    impl.keptValid = false;
  }
  // What must be drawn anew: all of it when the kept pixels are stale, the
  // strip a sideways step uncovered, else what the system asks for (the
  // kept pixels already hold the rest).
  wxRect fresh = impl.keptValid ? clip : wxRect(client);
  int const dx = impl.originX - impl.keptOriginX;
  int const width = client.x - std::abs(dx);
  bool const move = impl.keptValid && dx != 0 && width > 0;
  if (impl.keptValid && dx != 0)
    fresh = !move    ? wxRect(client)
            : dx > 0 ? wxRect(0, 0, dx, client.y)
                     : wxRect(width, 0, -dx, client.y);
  if (move) {
    // Moved onto the spare, which then takes the place of the kept: one copy.
    if (!impl.spare.IsOk() || impl.spare.GetSize() != client) impl.spare.Create(client);
    wxMemoryDC spare(impl.spare);
    wxMemoryDC kept(impl.kept);
    spare.Blit(dx > 0 ? dx : 0, 0, width, client.y, &kept, dx > 0 ? 0 : -dx, 0);
    kept.SelectObject(wxNullBitmap);
    spare.SelectObject(wxNullBitmap);
    std::swap(impl.kept, impl.spare);
  }
  {
    wxMemoryDC memory(impl.kept);
    memory.SetFont(GetFont());
    wxDCClipper const clipper(memory, fresh);
    OnPaint(memory, fresh);
  }
  impl.keptOriginX = impl.originX;
  impl.keptValid = true;
  screen.DrawBitmap(impl.kept, 0, 0);
}

void CTreeCtrl::PaintTo(wxDC & dc, wxRect const & clip) {
  Impl & impl = *mImpl;
  TreeNodeStore const & nodes = impl.nodes;
  UpdateScrollbars(*this, impl);
  SettleTop(impl, static_cast<int>(GetVisibleCount()));
  wxSize const client = GetClientSize();
  if (!impl.coloursKnown) {
    impl.window = GetSysColour(COLOR_WINDOW);
    impl.windowText = GetSysColour(COLOR_WINDOWTEXT);
    impl.grayText = GetSysColour(COLOR_GRAYTEXT);
    impl.highlight = GetSysColour(COLOR_HIGHLIGHT);
    impl.highlightText = GetSysColour(COLOR_HIGHLIGHTTEXT);
    impl.buttonFace = GetSysColour(COLOR_BTNFACE);
    impl.coloursKnown = true;
  }
  wxColour const window = mBkColor == CLR_DEFAULT ? impl.window : ToColour(mBkColor);
  wxColour const text = mTextColor == CLR_DEFAULT ? impl.windowText : ToColour(mTextColor);
  wxColour const line = mLineColor == CLR_DEFAULT ? impl.grayText : ToColour(mLineColor);
  dc.SetFont(GetFont());
  dc.SetBrush(wxBrush(window));
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.DrawRectangle(clip);

  NMTVCUSTOMDRAW draw;
  draw.nmcd.dwDrawStage = CDDS_PREPAINT;
  draw.nmcd.hdc = &dc;
  draw.nmcd.rc = RECT{0, 0, client.GetWidth(), client.GetHeight()};
  uint64_t const structure = impl.structureVersion;
  LRESULT const whole = SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
  if ((whole & CDRF_SKIPDEFAULT) != 0) return;

  int const height = GetItemHeight();
  int const indent = static_cast<int>(mIndent);
  bool const focused = HasFocus() || (mEdit != nullptr && mEdit->HasFocus());
  int const firstRow = std::max(0, clip.GetTop() / height);
  int const lastRow = std::min(client.GetHeight(), clip.GetBottom() + 1) / height;
  uint32_t slot = SlotAtRow(impl, impl.topRow + firstRow);
  int depth = slot != 0 ? nodes.Depth(slot) : 0;
  wxRendererNative & renderer = wxRendererNative::Get();
  wxFont const controlFont = GetFont();
  wxFont boldFont;
  // Lines and buttons are collected and drawn after the rows: one stroke
  // for all lines is far cheaper than a stroke a line.
  std::vector<std::pair<wxPoint, wxPoint>> segments;
  std::vector<std::pair<wxRect, bool>> buttons;
  std::vector<std::pair<HTREEITEM, RECT>> painted;
  bool const fullRow = (mStyle & TVS_FULLROWSELECT) != 0;
  bool const lines = (mStyle & TVS_HASLINES) != 0 && !fullRow;
  bool const rootColumn =
      (mStyle & TVS_LINESATROOT) != 0 && (mStyle & (TVS_HASLINES | TVS_HASBUTTONS)) != 0;

  for (int row = firstRow; slot != 0 && row <= lastRow; ++row) {
    TreeNode const & node = nodes[slot];
    int const top = row * height;
    RowLayout const layout = LayOut(*this, impl, slot, depth, nullptr);
    bool const selected = (node.state & TVIS_SELECTED) != 0 && impl.dropHilite == 0;
    bool const hilited = (node.state & TVIS_DROPHILITED) != 0 || (selected && focused);
    bool const inactive = selected && !focused && (mStyle & TVS_SHOWSELALWAYS) != 0;

    draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
    draw.nmcd.rc = RECT{0, top, client.GetWidth(), top + height};
    draw.nmcd.dwItemSpec = ItemSpecFromHandle(nodes.Handle(slot));
    draw.nmcd.uItemState = (selected ? CDIS_SELECTED : 0) |
                           (slot == impl.caret && focused ? CDIS_FOCUS : 0) |
                           ((node.state & TVIS_DROPHILITED) != 0 ? CDIS_DROPHILITED : 0);
    draw.nmcd.lItemlParam = node.data;
    draw.clrText = (hilited ? impl.highlightText : text).GetRGB();
    draw.clrTextBk = (hilited ? impl.highlight : inactive ? impl.buttonFace : window).GetRGB();
    draw.iLevel = depth;
    LRESULT answer = CDRF_DODEFAULT;
    if ((whole & CDRF_NOTIFYITEMDRAW) != 0) {
      answer = SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
      if (impl.structureVersion != structure) break;
    }

    if ((answer & CDRF_SKIPDEFAULT) == 0) {
      int const middle = top + height / 2;
      // Lines: through each ancestor's column that has more siblings below,
      // then the item's own elbow.
      if (lines) {
        int const ownX = layout.buttonLeft + indent / 2;
        if (depth > 0 || rootColumn) {
          segments.emplace_back(wxPoint(ownX, middle), wxPoint(layout.stateLeft, middle));
          bool const firstOfRoots = node.parent == 0 && node.prev == 0;
          segments.emplace_back(wxPoint(ownX, firstOfRoots ? middle : top),
                                wxPoint(ownX, node.next != 0 ? top + height : middle + 1));
        }
        int x = ownX - indent;
        for (uint32_t up = node.parent; up != 0 && x >= -indent;
             up = nodes[up].parent, x -= indent) {
          if (x >= client.GetWidth()) continue;
          if (nodes[up].next != 0 && (nodes[up].parent != 0 || rootColumn))
            segments.emplace_back(wxPoint(x, top), wxPoint(x, top + height));
        }
      }
      if ((mStyle & TVS_HASBUTTONS) != 0 && (depth > 0 || rootColumn) &&
          ShowsButton(*this, impl, slot)) {
        int const size = std::min(indent, height) - 4;
        wxRect const box(layout.buttonLeft + (indent - size) / 2, top + (height - size) / 2, size,
                         size);
        buttons.emplace_back(box, (node.state & TVIS_EXPANDED) != 0);
      }
      UINT const stateImage = STATEIMAGEMASKTOINDEX(node.state);
      if (layout.stateWidth > 0) {
        if (impl.stateImages != nullptr) {
          if (static_cast<int>(stateImage) < impl.stateImages->GetImageCount())
            impl.stateImages->Draw(static_cast<int>(stateImage), dc, layout.stateLeft,
                                   top + (height - 16) / 2, wxIMAGELIST_DRAW_TRANSPARENT);
        } else if (stateImage == 1 || stateImage == 2) {
          wxRect const box(layout.stateLeft + 1, top + (height - 14) / 2, 14, 14);
          renderer.DrawCheckBox(this, dc, box, stateImage == 2 ? int(wxCONTROL_CHECKED) : 0);
        }
      }
      if (impl.normalImages != nullptr) {
        int const image = ShownImage(*this, impl, slot, (node.state & TVIS_SELECTED) != 0);
        int width = 0;
        int imageHeight = 0;
        impl.normalImages->GetSize(0, width, imageHeight);
        if (image >= 0 && image < impl.normalImages->GetImageCount())
          impl.normalImages->Draw(image, dc, layout.iconLeft, top + (height - imageHeight) / 2,
                                  wxIMAGELIST_DRAW_TRANSPARENT);
      }
      // A new font or colour costs a font object in the toolkit: set them
      // only when they change.
      bool const newFont = (answer & CDRF_NEWFONT) != 0;
      if (!newFont && (node.state & TVIS_BOLD) != 0) {
        if (!boldFont.IsOk()) boldFont = controlFont.Bold();
        dc.SetFont(boldFont);
      } else if (!newFont && !(dc.GetFont() == controlFont)) {
        dc.SetFont(controlFont);
      }
      wxColour const back = ToColour(static_cast<COLORREF>(draw.clrTextBk));
      wxRect const label(layout.textLeft, top, layout.textWidth, height);
      wxRect const fill =
          fullRow && (hilited || inactive) ? wxRect(0, top, client.GetWidth(), height) : label;
      if (back != window) {
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(back));
        dc.DrawRectangle(fill);
      }
      wxColour const fore = ToColour(static_cast<COLORREF>(draw.clrText));
      if (dc.GetTextForeground() != fore) dc.SetTextForeground(fore);
      wxString const shown = node.textCallback ? ShownText(*this, impl, slot) : node.text;
      int textHeight = impl.fontHeight;
      if (newFont) dc.GetTextExtent(shown, nullptr, &textHeight);
      if (!PaintsOwnLabel(nodes.Handle(slot)))
        DrawTextUnmeasured(dc, shown, layout.textLeft + TextPadding,
                           top + (height - textHeight) / 2);
      if (slot == impl.caret && focused) renderer.DrawFocusRect(this, dc, fill, 0);
      if (newFont || (node.state & TVIS_BOLD) != 0) dc.SetFont(controlFont);
      painted.emplace_back(
          nodes.Handle(slot),
          RECT{layout.textLeft, top, layout.textLeft + layout.textWidth, top + height});
    }
    if ((answer & CDRF_NOTIFYPOSTPAINT) != 0) {
      draw.nmcd.dwDrawStage = CDDS_ITEMPOSTPAINT;
      SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
      dc.SetFont(controlFont);
      if (impl.structureVersion != structure) break;
    }
    if (slot == impl.insertMark) {
      wxColour const mark = mInsertMarkColor == CLR_DEFAULT ? text : ToColour(mInsertMarkColor);
      int const y = impl.insertMarkAfter ? top + height - 1 : top;
      dc.SetPen(wxPen(mark, 2));
      dc.DrawLine(layout.textLeft, y, client.GetWidth(), y);
    }
    // The next shown row and its depth.
    if (node.firstChild != 0 && (node.state & TVIS_EXPANDED) != 0) {
      slot = node.firstChild;
      ++depth;
    } else {
      while (slot != 0 && nodes[slot].next == 0) {
        slot = nodes[slot].parent;
        --depth;
      }
      if (slot != 0) slot = nodes[slot].next;
    }
  }
  // Rows the owner changed during this paint are painted at the next one.
  if (impl.structureVersion != structure) Invalidate();
  if (!segments.empty()) {
    // Each line is a filled rectangle one pixel wide, all in one fill:
    // pixel-aligned boxes are the toolkit's fastest drawing, and they end
    // exactly where their row ends.
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(line));
    if (wxGraphicsContext * const gc = dc.GetGraphicsContext()) {
      wxGraphicsPath path = gc->CreatePath();
      for (auto const & segment : segments) {
        wxRect const box(segment.first, segment.second);
        bool const vertical = segment.first.x == segment.second.x;
        path.AddRectangle(box.x, box.y, vertical ? 1 : box.width - 1,
                          vertical ? box.height - 1 : 1);
      }
      gc->SetBrush(wxBrush(line));
      gc->FillPath(path);
    } else {
      for (auto const & segment : segments) {
        wxRect const box(segment.first, segment.second);
        bool const vertical = segment.first.x == segment.second.x;
        dc.DrawRectangle(box.x, box.y, vertical ? 1 : box.width - 1, vertical ? box.height - 1 : 1);
      }
    }
  }
  for (auto const & button : buttons)
    renderer.DrawTreeItemButton(this, dc, button.first,
                                button.second ? int(wxCONTROL_EXPANDED) : 0);
  for (auto const & row : painted) PaintRow(dc, row.first, row.second);
  if ((whole & CDRF_NOTIFYPOSTPAINT) != 0) {
    draw.nmcd.dwDrawStage = CDDS_POSTPAINT;
    draw.nmcd.rc = RECT{0, 0, client.GetWidth(), client.GetHeight()};
    SendNotify(this, NM_CUSTOMDRAW, draw.nmcd.hdr);
  }
}
