// VxTreeListCtrl: fitting the header, the tree and the sideways bar to the
// frame, sideways scrolling, and the columns following the frame's width.
#include <wx/scrolbar.h>

#include "lists/TreeListGeometry.h"
#include "lists/VxTreeListCtrl.h"
#include "platform/SystemMetrics.h"

namespace {

// The tree shows its own vertical bar.
bool HasVerticalBar(wxWindow const & tree) {
  return tree.GetScrollRange(wxVERTICAL) > tree.GetScrollThumb(wxVERTICAL);
}

}  // namespace

int VxTreeListCtrl::ScrollPosition() const { return -mTree->GetHorizontalOffset(); }

int VxTreeListCtrl::ScrollLimit() const {
  if (mScrollBar == nullptr || !mScrollBar->IsEnabled()) return 0;
  return SidewaysScrollLimit(mScrollBar->GetRange(), mScrollBar->GetPageSize());
}

int VxTreeListCtrl::HeaderWidth() const {
  return std::max(StretchWidth(mTree->GetColumnsWidth(), mTree->GetClientSize().x),
                  GetClientSize().x);
}

void VxTreeListCtrl::MoveHeader(int offset) {
  // GTK draws a child moved to a negative x where it was: the header window
  // keeps its place and its headings move by the header's scroll offset.
  wxRect const place(0, 0, HeaderWidth(), mHeaderHeight);
  if (mHeader->GetRect() != place) mHeader->SetSize(place);
  mHeader->SetScrollOffset(-offset);
}

int VxTreeListCtrl::GetHeaderOffset() const {
  return mHeader != nullptr ? -mHeader->GetScrollOffset() : 0;
}

void VxTreeListCtrl::FitChildren() {
  if (mHeader == nullptr) return;
  wxSize const client = GetClientSize();
  int const barHeight = mScrollBar->GetSize().y;
  mHeader->SetSize(0, 0, std::max(client.x, mHeader->GetSize().x), mHeaderHeight);
  mTree->SetSize(0, mHeaderHeight, client.x, std::max(client.y - mHeaderHeight - barHeight, 0));
  mScrollBar->SetSize(0, client.y - barHeight, client.x, barHeight);
  mScrollBar->Show();
  mTree->ResetVertScrollBar();
}

void VxTreeListCtrl::OnSize(int cx, int /*cy*/) {
  if (mHeader == nullptr) return;
  FitChildren();
  SetSideOffset(mScrollBar->IsEnabled() ? mScrollBar->GetThumbPosition() : 0);
  MoveHeader(mTree->GetHorizontalOffset());
  ResetScrollBar();

  std::vector<int> widths(static_cast<size_t>(std::max(mTree->GetColumnCount(), 0)));
  for (size_t column = 0; column < widths.size(); ++column)
    widths[column] = mTree->GetColumnWidth(static_cast<int>(column));
  if (!AutoSizeColumns(mAutoSizeWidth, cx, GetSystemMetrics(SM_CXVSCROLL), widths)) return;
  bool const redraw = mRedraw;
  mTree->SetRedraw(0);
  for (size_t column = 0; column < widths.size(); ++column) {
    if (widths[column] != mTree->GetColumnWidth(static_cast<int>(column)))
      mTree->SetColumnWidth(static_cast<int>(column), widths[column]);
  }
  mTree->RecalcColumnsWidth();
  mTree->SetRedraw(1);
  mRedraw = redraw;
  ResetScrollBar();
}

void VxTreeListCtrl::ResetScrollBar() {
  if (!mRedraw || mHeader == nullptr) return;
  wxSize const client = GetClientSize();
  int const barHeight = mScrollBar->GetSize().y;
  int const columns = mTree->GetColumnsWidth();
  int const treeClient = mTree->GetClientSize().x;
  if (columns <= treeClient) {
    mScrollBar->Disable();
    mScrollBar->Hide();
    int const height = std::max(client.y - mHeaderHeight, 0);
    if (mTree->GetSize() != wxSize(client.x, height))
      mTree->SetSize(0, mHeaderHeight, client.x, height);
    mScrollBar->SetScrollbar(0, 0, 0, 0);
    mTree->SetHorizontalOffset(0);
    mTree->Refresh();
    MoveHeader(0);
    return;
  }
  mScrollBar->Enable();
  mScrollBar->Show();
  int const height = std::max(client.y - mHeaderHeight - barHeight, 0);
  if (mTree->GetSize().y != height) mTree->SetSize(0, mHeaderHeight, client.x, height);
  int const vertical = HasVerticalBar(*mTree) ? GetSystemMetrics(SM_CXVSCROLL) : 0;
  mScrollBar->SetSize(0, client.y - barHeight, std::max(client.x - vertical, 0), barHeight);
  int const page = mTree->GetClientSize().x;
  // The header's offset is the scroll position; a position beyond the new
  // limit comes back to it.
  int const position = std::min(-GetHeaderOffset(), std::max(columns - page, 0));
  mScrollBar->SetScrollbar(position, page, columns, page);
  if (-position != mTree->GetHorizontalOffset()) {
    mTree->SetHorizontalOffset(-position);
    mTree->Refresh();
  }
  MoveHeader(-position);
}

void VxTreeListCtrl::SetSideOffset(int position) {
  int const offset = -position;
  // The tree repaints what the step uncovered.
  if (offset != mTree->GetHorizontalOffset()) mTree->SetHorizontalOffset(offset);
}

void VxTreeListCtrl::OnHScroll(UINT code, int thumbPosition) {
  if (mHeader == nullptr || mScrollBar == nullptr) return;
  int const target = SidewaysScrollTarget(code, ScrollPosition(), thumbPosition, ScrollLimit(),
                                          mTree->GetClientSize().x);
  int const position = std::max(target, 0);
  mScrollBar->SetThumbPosition(position);
  SetSideOffset(position);
  MoveHeader(-position);
}

void VxTreeListCtrl::OnScrollEvent(wxScrollEvent & event) {
  wxEventType const type = event.GetEventType();
  UINT code = SB_ENDSCROLL;
  if (type == wxEVT_SCROLL_LINEUP) code = SB_LINELEFT;
  if (type == wxEVT_SCROLL_LINEDOWN) code = SB_LINERIGHT;
  if (type == wxEVT_SCROLL_PAGEUP) code = SB_PAGELEFT;
  if (type == wxEVT_SCROLL_PAGEDOWN) code = SB_PAGERIGHT;
  if (type == wxEVT_SCROLL_THUMBTRACK) code = SB_THUMBTRACK;
  if (type == wxEVT_SCROLL_THUMBRELEASE) code = SB_THUMBPOSITION;
  if (type == wxEVT_SCROLL_TOP) code = SB_LEFT;
  if (type == wxEVT_SCROLL_BOTTOM) code = SB_RIGHT;
  OnHScroll(code, event.GetPosition());
}
