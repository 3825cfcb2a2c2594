// The column tree's mouse and keys: a click anywhere in a row counts, and a
// double click expands only in the first column.
#include <wx/window.h>

#include "lists/VxTreeCtrlEx.h"

namespace {

// Where a press anywhere in the row counts as one on the item.
constexpr UINT kRowHits = TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON |
                          TVHT_ONITEMINDENT | TVHT_ONITEMRIGHT;

// A press in the row's indent or right of its label, moved onto the label:
// the tree's own handling then takes it as a press on the item.
POINT OntoLabel(CTreeCtrl const & tree, HTREEITEM item, UINT hit, POINT point) {
  if ((hit & (TVHT_ONITEMINDENT | TVHT_ONITEMRIGHT)) == 0) return point;
  RECT label{};
  if (tree.GetItemRect(item, &label, 1) == 0) return point;
  return POINT{label.left + 1, point.y};
}

}  // namespace

void VxTreeCtrlEx::ClearSelection() {
  if (!mKeepSelection) VxTreeCtrl::ClearSelection();
}

void VxTreeCtrlEx::OnSelectionChanged() {
  if (!mQuietSelection) VxTreeCtrl::OnSelectionChanged();
}

void VxTreeCtrlEx::OnLButtonDown(UINT flags, POINT point) {
  SetRedraw(0);
  UINT hit = 0;
  HTREEITEM const item = HitTest(point, &hit);
  mLastClickItem = item;
  bool const counts = item && (hit & kRowHits) != 0;
  POINT const press = counts ? OntoLabel(*this, item, hit, point) : point;
  SelectionState const mode = GetSelectionState();
  if (mode == SingleSelection) {
    VxTreeCtrl::OnLButtonDown(flags, press);
    if (counts && IsValidItem(item)) Select(item, TVGN_CARET);
  } else {
    bool const control = (flags & MK_CONTROL) != 0;
    bool const shift = (flags & MK_SHIFT) != 0;
    if (mode == MultipleSelection && control && item && GetSelectedItem() == item)
      Select(TVI_NULL, TVGN_CARET);
    mKeepSelection =
        mode == MultipleSelection && !control && !shift && (hit & TVHT_ONITEMBUTTON) != 0;
    mQuietSelection = true;
    VxTreeCtrl::OnLButtonDown(flags, press);
    mKeepSelection = false;
    mQuietSelection = false;
    if (wxWindow * parent = GetParent()) {
      NMTREEVIEWW changed;
      changed.hdr.hwndFrom = this;
      changed.hdr.idFrom = kTreeId;
      changed.hdr.code = TVN_SELCHANGEDW;
      changed.action = TVC_BYMOUSE;
      changed.itemNew.hItem = GetSelectedItem();
      changed.itemNew.mask = TVIF_HANDLE;
      NotifyEvent event(VX_EVT_NOTIFY, &changed.hdr);
      event.SetEventObject(this);
      event.SetId(kTreeId);
      parent->GetEventHandler()->ProcessEvent(event);
    }
  }
  SetRedraw(1);
  Invalidate();
}

void VxTreeCtrlEx::OnLButtonDblClk(UINT flags, POINT point) {
  UINT hit = 0;
  HTREEITEM const item = HitTest(point, &hit);
  if (item && (hit & TVHT_ONITEMBUTTON) != 0) {
    VxTreeCtrl::OnLButtonDblClk(flags, point);
    return;
  }
  if (item && (hit & TVHT_ONITEMSTATEICON) != 0 && (GetStyle() & TVS_CHECKBOXES) != 0) {
    SetCheck(item, ToggleCheck);
  } else {
    int const firstWidth = GetColumnWidth(0);
    if (mColumnCount == 0 || point.x - mHorizontalOffset < firstWidth) {
      POINT const press =
          item && (hit & kRowHits) != 0 ? OntoLabel(*this, item, hit, point) : point;
      VxTreeCtrl::OnLButtonDblClk(flags, press);
      ResetVertScrollBar();
    }
  }
  SetFocus();
  if (wxWindow * parent = GetParent()) {
    // The frame hears of the double click, without place or keys.
    wxMouseEvent twice(wxEVT_LEFT_DCLICK);
    twice.SetEventObject(this);
    twice.SetId(GetId());
    parent->GetEventHandler()->ProcessEvent(twice);
  }
}

void VxTreeCtrlEx::OnRButtonDown(UINT flags, POINT point) {
  mLastClickItem = TVI_NULL;
  VxTreeCtrl::OnRButtonDown(flags, point);
}

void VxTreeCtrlEx::OnKeyDown(UINT virtualKey, UINT repeatCount, UINT flags) {
  VxTreeCtrl::OnKeyDown(virtualKey, repeatCount, flags);
  ResetVertScrollBar();
}

void VxTreeCtrlEx::OnSetFocus() {
  mLastClickItem = TVI_NULL;
  VxTreeCtrl::OnSetFocus();
}
