// CListCtrl input: clicks, keys, type-ahead, the focus and label editing,
// with the notifications the platform's list sends for each.
#include <wx/settings.h>

#include <algorithm>

#include "platform/SystemMetrics.h"
#include "platform/commctrl/CListCtrl.h"

namespace {

UINT KeyFlags(wxMouseState const & state) {
  return (state.ControlDown() ? LVKF_CONTROL : 0U) | (state.ShiftDown() ? LVKF_SHIFT : 0U) |
         (state.AltDown() ? LVKF_ALT : 0U);
}

}  // namespace

LRESULT CListCtrl::NotifyItemActivate(UINT code, int item, int subItem, wxPoint const & point) {
  NMITEMACTIVATE info;
  info.iItem = item;
  info.iSubItem = subItem;
  info.ptAction = POINT{point.x, point.y};
  info.uKeyFlags = KeyFlags(wxGetMouseState());
  if (IsValid(item) && !IsOwnerData()) info.lParam = mRows[static_cast<size_t>(item)].data;
  return SendNotify(this, code, info.hdr);
}

// ---- selection helpers ----

bool CListCtrl::SelectOnly(int item) {
  // Clear the others first so that the notifications tell of the old rows
  // before the new one, as the platform orders them.
  if (IsOwnerData()) {
    bool const alone = mVirtualSelected.Count() == 1 && mVirtualSelected.Contains(item);
    if (!alone && !mVirtualSelected.Empty()) {
      if (NotifyListView(LVN_ITEMCHANGING, -1, 0, 0, LVIS_SELECTED, LVIF_STATE) != 0) return false;
      mVirtualSelected.Clear();
      NotifyListView(LVN_ITEMCHANGED, -1, 0, 0, LVIS_SELECTED, LVIF_STATE);
    }
  } else {
    for (int other = GetNextItem(-1, LVNI_SELECTED); other >= 0;
         other = GetNextItem(other, LVNI_SELECTED))
      if (other != item) ChangeState(other, 0, LVIS_SELECTED);
  }
  if (IsValid(item)) ChangeState(item, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  Refresh();
  return true;
}

void CListCtrl::SelectRange(int first, int last) {
  if (first > last) std::swap(first, last);
  if (IsOwnerData()) {
    SelectionRanges range;
    range.Add(first, last);
    if (range != mVirtualSelected) {
      NMLVODSTATECHANGE change;
      change.iFrom = first;
      change.iTo = last;
      change.uNewState = LVIS_SELECTED;
      mVirtualSelected = range;
      SendNotify(this, LVN_ODSTATECHANGED, change.hdr);
    }
    Refresh();
    return;
  }
  for (int other = GetNextItem(-1, LVNI_SELECTED); other >= 0;
       other = GetNextItem(other, LVNI_SELECTED))
    if (other < first || other > last) ChangeState(other, 0, LVIS_SELECTED);
  for (int item = first; item <= last; ++item) ChangeState(item, LVIS_SELECTED, LVIS_SELECTED);
  Refresh();
}

void CListCtrl::MoveFocus(int item, bool extend, bool focusOnly) {
  if (!IsValid(item)) return;
  bool const single = (mStyle & LVS_SINGLESEL) != 0;
  if (focusOnly && !single) {
    ChangeState(item, LVIS_FOCUSED, LVIS_FOCUSED);
  } else if (extend && !single && IsValid(mSelectionMark)) {
    SelectRange(mSelectionMark, item);
    ChangeState(item, LVIS_FOCUSED, LVIS_FOCUSED);
  } else {
    SelectOnly(item);
    mSelectionMark = item;
  }
  EnsureVisible(item, false);
}

void CListCtrl::ToggleCheck(int item) {
  if (!IsValid(item)) return;
  UINT const image = STATEIMAGEMASKTOINDEX(StateOf(item));
  ChangeState(item, INDEXTOSTATEIMAGEMASK(image == 2 ? 1 : 2), LVIS_STATEIMAGEMASK);
}

// ---- mouse ----

void CListCtrl::OnLButtonDown(wxMouseEvent & event) {
  if (mEdit != nullptr) CommitEdit(false);
  if (!HasFocus()) SetFocus();
  LVHITTESTINFO hit;
  hit.pt = POINT{event.GetX(), event.GetY()};
  SubItemHitTest(&hit);
  int const row = HitTest(event.GetPosition());
  mPressPoint = event.GetPosition();
  mPressedItem = row;
  mDragSent = false;
  mClickPending = true;
  bool const single = (mStyle & LVS_SINGLESEL) != 0;
  if (row >= 0 && hit.flags == LVHT_ONITEMSTATEICON &&
      ((mExStyle & LVS_EX_CHECKBOXES) != 0 || mStateImages != nullptr)) {
    // The check box toggles; the selection stays as it is.
    ToggleCheck(row);
    if (!HasCapture()) CaptureMouse();
    return;
  }
  if (row < 0) {
    if (!single && !event.ControlDown() && !event.ShiftDown()) SelectOnly(-1);
  } else if (event.ShiftDown() && !single) {
    if (!IsValid(mSelectionMark)) mSelectionMark = row;
    if (event.ControlDown()) {
      for (int item = std::min(mSelectionMark, row); item <= std::max(mSelectionMark, row); ++item)
        ChangeState(item, LVIS_SELECTED, LVIS_SELECTED);
    } else {
      SelectRange(mSelectionMark, row);
    }
    ChangeState(row, LVIS_FOCUSED, LVIS_FOCUSED);
  } else if (event.ControlDown() && !single) {
    bool const selected = (StateOf(row) & LVIS_SELECTED) != 0;
    ChangeState(row, (selected ? 0 : LVIS_SELECTED) | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    mSelectionMark = row;
  } else if ((StateOf(row) & LVIS_SELECTED) == 0 || single) {
    SelectOnly(row);
    mSelectionMark = row;
  } else {
    // A press on a selected row keeps the selection for a drag; the button
    // going up without a drag selects the row alone.
    ChangeState(row, LVIS_FOCUSED, LVIS_FOCUSED);
    mSelectionMark = row;
  }
  if (!HasCapture()) CaptureMouse();
}

void CListCtrl::OnMouseMove(wxMouseEvent & event) {
  if ((mExStyle & LVS_EX_TRACKSELECT) != 0 && !event.ButtonIsDown(wxMOUSE_BTN_ANY)) {
    int const row = HitTest(event.GetPosition());
    if (row != mHot && row >= 0) {
      NMLISTVIEW hot;
      hot.iItem = row;
      hot.ptAction = POINT{event.GetX(), event.GetY()};
      if (SendNotify(this, LVN_HOTTRACK, hot.hdr) == 0) {
        mHot = row;
        SelectOnly(row);
        mSelectionMark = row;
      }
    } else if (row < 0) {
      mHot = -1;
    }
  }
  if (!event.LeftIsDown() || !mClickPending || mDragSent) {
    event.Skip();
    return;
  }
  wxPoint const moved = event.GetPosition() - mPressPoint;
  int const reachX = std::max(GetSystemMetrics(SM_CXDRAG), 2);
  int const reachY = std::max(GetSystemMetrics(SM_CYDRAG), 2);
  if (std::abs(moved.x) < reachX && std::abs(moved.y) < reachY) return;
  mDragSent = true;
  mClickPending = false;
  if (mPressedItem >= 0) {
    NMLISTVIEW info;
    info.iItem = mPressedItem;
    info.ptAction = POINT{mPressPoint.x, mPressPoint.y};
    if (!IsOwnerData()) info.lParam = mRows[static_cast<size_t>(mPressedItem)].data;
    SendNotify(this, LVN_BEGINDRAG, info.hdr);
  } else if ((mStyle & LVS_SINGLESEL) == 0) {
    NMHDR header;
    SendNotify(this, LVN_MARQUEEBEGIN, header);
  }
}

void CListCtrl::OnLButtonUp(wxMouseEvent & event) {
  if (HasCapture()) ReleaseMouse();
  if (!mClickPending) return;
  mClickPending = false;
  int const row = HitTest(event.GetPosition());
  if (row >= 0 && row == mPressedItem && !event.ControlDown() && !event.ShiftDown() &&
      GetSelectedCount() > 1 && (StateOf(row) & LVIS_SELECTED) != 0) {
    LVHITTESTINFO hit;
    hit.pt = POINT{event.GetX(), event.GetY()};
    SubItemHitTest(&hit);
    if (hit.flags != LVHT_ONITEMSTATEICON) SelectOnly(row);
  }
  LVHITTESTINFO hit;
  hit.pt = POINT{event.GetX(), event.GetY()};
  SubItemHitTest(&hit);
  NotifyItemActivate(NM_CLICK, hit.iItem, hit.iItem >= 0 ? hit.iSubItem : 0, event.GetPosition());
  if ((mExStyle & LVS_EX_ONECLICKACTIVATE) != 0 && hit.iItem >= 0)
    NotifyItemActivate(LVN_ITEMACTIVATE, hit.iItem, hit.iSubItem, event.GetPosition());
}

void CListCtrl::OnLButtonDblClk(wxMouseEvent & event) {
  LVHITTESTINFO hit;
  hit.pt = POINT{event.GetX(), event.GetY()};
  SubItemHitTest(&hit);
  if (hit.iItem >= 0 && hit.flags == LVHT_ONITEMSTATEICON &&
      ((mExStyle & LVS_EX_CHECKBOXES) != 0 || mStateImages != nullptr)) {
    ToggleCheck(hit.iItem);  // the second press of a double click toggles again
  }
  NotifyItemActivate(NM_DBLCLK, hit.iItem, hit.iItem >= 0 ? hit.iSubItem : 0, event.GetPosition());
  if (hit.iItem >= 0 && (mExStyle & LVS_EX_ONECLICKACTIVATE) == 0)
    NotifyItemActivate(LVN_ITEMACTIVATE, hit.iItem, hit.iSubItem, event.GetPosition());
}

void CListCtrl::OnRButtonDown(wxMouseEvent & event) {
  if (mEdit != nullptr) CommitEdit(false);
  if (!HasFocus()) SetFocus();
  int const row = HitTest(event.GetPosition());
  if (row >= 0) {
    if ((StateOf(row) & LVIS_SELECTED) == 0) {
      SelectOnly(row);
      mSelectionMark = row;
    } else {
      ChangeState(row, LVIS_FOCUSED, LVIS_FOCUSED);
    }
  } else if ((mStyle & LVS_SINGLESEL) == 0 && !event.ControlDown()) {
    SelectOnly(-1);
  }
}

void CListCtrl::OnRButtonUp(wxMouseEvent & event) {
  LVHITTESTINFO hit;
  hit.pt = POINT{event.GetX(), event.GetY()};
  SubItemHitTest(&hit);
  if (NotifyItemActivate(NM_RCLICK, hit.iItem, hit.iItem >= 0 ? hit.iSubItem : 0,
                         event.GetPosition()) == 0)
    event.Skip();  // unanswered: the context menu event may follow
}

void CListCtrl::OnMouseWheel(wxMouseEvent & event) {
  if (mEdit != nullptr) CommitEdit(false);
  int const lines = event.GetLinesPerAction() > 0 ? event.GetLinesPerAction() : 3;
  int const steps = event.GetWheelRotation() / std::max(event.GetWheelDelta(), 1);
  if (event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL) {
    Scroll(wxSize(steps * 16 * lines, 0));
  } else {
    Scroll(wxSize(0, -steps * lines * mRowHeight));
  }
}

// ---- keyboard ----

void CListCtrl::OnKeyDown(wxKeyEvent & event) {
  auto const vk = static_cast<WORD>(VirtualKeyFromWx(event.GetKeyCode()));
  NMLVKEYDOWN info;
  info.wVKey = vk;
  SendNotify(this, LVN_KEYDOWN, info.hdr);

  int const count = GetItemCount();
  int const focus = IsValid(mFocused) ? mFocused : -1;
  int const page = std::max(GetCountPerPage(), 1);
  bool const shift = event.ShiftDown();
  bool const ctrl = event.ControlDown();
  int target = -1;
  switch (vk) {
    case VK_UP: target = focus < 0 ? 0 : std::max(focus - 1, 0); break;
    case VK_DOWN: target = focus < 0 ? 0 : std::min(focus + 1, count - 1); break;
    case VK_HOME: target = 0; break;
    case VK_END: target = count - 1; break;
    case VK_PRIOR:
      // First to the top of the page, then a page up.
      target = focus < 0 ? 0 : (focus != mTop ? mTop : std::max(focus - page + 1, 0));
      break;
    case VK_NEXT: {
      int const bottom = std::min(mTop + page - 1, count - 1);
      target = focus < 0 ? 0 : (focus != bottom ? bottom : std::min(focus + page - 1, count - 1));
      break;
    }
    case VK_LEFT: Scroll(wxSize(-16, 0)); return;
    case VK_RIGHT: Scroll(wxSize(16, 0)); return;
    case VK_SPACE: {
      if (focus < 0) {
        if (count > 0) MoveFocus(0, false, false);
        return;
      }
      if (ctrl && (mStyle & LVS_SINGLESEL) == 0) {
        bool const selected = (StateOf(focus) & LVIS_SELECTED) != 0;
        ChangeState(focus, selected ? 0 : LVIS_SELECTED, LVIS_SELECTED);
        mSelectionMark = focus;
      } else if (shift && (mStyle & LVS_SINGLESEL) == 0) {
        MoveFocus(focus, true, false);
      } else {
        if ((mExStyle & LVS_EX_CHECKBOXES) != 0) ToggleCheck(focus);
        ChangeState(focus, LVIS_SELECTED, LVIS_SELECTED);
        mSelectionMark = focus;
      }
      return;
    }
    case VK_RETURN:
      if (focus >= 0) {
        NMHDR header;
        SendNotify(this, NM_RETURN, header);
        NotifyItemActivate(LVN_ITEMACTIVATE, focus, 0, wxPoint(0, 0));
      }
      return;
    case VK_F2:
      if ((mStyle & LVS_EDITLABELS) != 0 && focus >= 0) EditLabel(focus);
      return;
    default: event.Skip(); return;  // characters go on to type-ahead
  }
  if (count == 0 || target < 0) return;
  MoveFocus(target, shift, ctrl && !shift);
}

void CListCtrl::OnChar(wxKeyEvent & event) {
  wxChar const character = event.GetUnicodeKey();
  if (character == WXK_NONE || character < 32 || event.ControlDown() || event.AltDown()) {
    event.Skip();
    return;
  }
  if (character == ' ' && mSearch.empty()) return;  // Space was handled as a key
  TypeAhead(character, event.GetTimestamp());
}

void CListCtrl::TypeAhead(wxChar character, long timestamp) {
  int const count = GetItemCount();
  if (count == 0) return;
  if (mSearch.empty() || timestamp - mSearchTime > TypeAheadPause || timestamp < mSearchTime)
    mSearch.clear();
  mSearchTime = timestamp;
  wxString const lowered = wxString(character).Lower();
  // The same character typed again steps through the rows it begins; a
  // longer text keeps the focused row while it still matches.
  bool const repeated = !mSearch.empty() && mSearch.find_first_not_of(lowered) == wxString::npos;
  mSearch += lowered;
  wxString const wanted = repeated ? lowered : mSearch;
  int const focus = IsValid(mFocused) ? mFocused : -1;
  int start = focus;
  if (mSearch.length() > 1 && !repeated) start = focus - 1;  // the focused row may still match
  std::wstring const & text = wanted.ToStdWstring();
  LVFINDINFOW find;
  find.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
  find.psz = text.c_str();
  int const found = FindItem(&find, start);
  if (IsValid(found)) MoveFocus(found, false, false);
}

void CListCtrl::OnSetFocus(wxFocusEvent & event) {
  mHasFocus = true;
  NMHDR header;
  SendNotify(this, NM_SETFOCUS, header);
  Refresh();
  event.Skip();
}

void CListCtrl::OnKillFocus(wxFocusEvent & event) {
  mHasFocus = false;
  NMHDR header;
  SendNotify(this, NM_KILLFOCUS, header);
  Refresh();
  event.Skip();
}

// ---- header notifications ----

void CListCtrl::OnNotify(NotifyEvent & event) {
  NMHDR * const header = event.GetHeader();
  if (mHeader == nullptr || header->hwndFrom != mHeader) {
    event.Skip();
    return;
  }
  UINT const code = header->code;
  auto * const info = event.GetNotification<NMHEADERW>();
  // The list's parent hears of the header's notifications as they came.
  LRESULT result = 0;
  if (wxWindow * const parent = GetParent()) {
    NotifyEvent passed(VX_EVT_NOTIFY, header);
    passed.SetEventObject(mHeader);
    passed.SetId(mHeader->GetId());
    parent->GetEventHandler()->ProcessEvent(passed);
    result = passed.GetResult();
  }
  switch (code) {
    case HDN_ITEMCLICKW:
      if ((mStyle & LVS_NOSORTHEADER) == 0 && info->iButton == 0) {
        NMLISTVIEW click;
        click.iItem = -1;
        click.iSubItem = info->iItem;
        SendNotify(this, LVN_COLUMNCLICK, click.hdr);
      }
      break;
    case HDN_DIVIDERDBLCLICKW:
      if (result == 0) SetColumnWidth(info->iItem, LVSCW_AUTOSIZE);
      break;
    case HDN_ITEMCHANGEDW:
      if (info->pitem != nullptr && (info->pitem->mask & (HDI_WIDTH | HDI_ORDER)) != 0) {
        if (mEdit != nullptr) CommitEdit(false);
        UpdateScrollBars();
        Refresh();
      }
      break;
    default: break;
  }
  event.SetResult(result);
}

// ---- label editing ----

wxTextCtrl * CListCtrl::EditLabel(int item) {
  if (mEdit != nullptr) CommitEdit(false);
  if (!IsValid(item) || mColumns.empty()) return nullptr;
  EnsureVisible(item, false);
  NMLVDISPINFOW info;
  info.item.mask = LVIF_TEXT;
  info.item.iItem = item;
  std::wstring text = DisplayText(item, 0).ToStdWstring();
  info.item.pszText = text.data();
  info.item.cchTextMax = static_cast<int>(text.size()) + 1;
  if (!IsOwnerData()) info.item.lParam = mRows[static_cast<size_t>(item)].data;
  if (SendNotify(this, LVN_BEGINLABELEDITW, info.hdr) != 0) return nullptr;
  if (!IsValid(item)) return nullptr;
  RECT label{};
  GetItemRect(item, &label, LVIR_LABEL);
  mEditItem = item;
  mEdit = new wxTextCtrl(this, wxID_ANY, DisplayText(item, 0), wxPoint(label.left, label.top),
                         wxSize(std::max<int>(label.right - label.left, 40), mRowHeight + 4),
                         wxTE_PROCESS_ENTER | wxBORDER_SIMPLE);
  mEdit->Bind(wxEVT_CHAR_HOOK, &CListCtrl::OnEditKey, this);
  mEdit->Bind(wxEVT_KILL_FOCUS, &CListCtrl::OnEditFocusLost, this);
  mEdit->SelectAll();
  mEdit->SetFocus();
  return mEdit;
}

bool CListCtrl::CancelEditLabel() {
  if (mEdit == nullptr) return false;
  CommitEdit(true);
  return true;
}

void CListCtrl::OnEditKey(wxKeyEvent & event) {
  if (event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER) {
    CommitEdit(false);
    SetFocus();
  } else if (event.GetKeyCode() == WXK_ESCAPE) {
    CommitEdit(true);
    SetFocus();
  } else {
    event.Skip();
  }
}

void CListCtrl::OnEditFocusLost(wxFocusEvent & event) {
  event.Skip();
  CommitEdit(false);
}

void CListCtrl::CommitEdit(bool cancelled) {
  if (mEdit == nullptr || mEnding) return;
  mEnding = true;
  wxTextCtrl * const edit = mEdit;
  int const item = mEditItem;
  std::wstring text = edit->GetValue().ToStdWstring();
  mEdit = nullptr;
  mEditItem = -1;
  edit->Unbind(wxEVT_KILL_FOCUS, &CListCtrl::OnEditFocusLost, this);
  edit->Unbind(wxEVT_CHAR_HOOK, &CListCtrl::OnEditKey, this);
  if (IsValid(item)) {
    NMLVDISPINFOW info;
    info.item.mask = LVIF_TEXT;
    info.item.iItem = item;
    info.item.pszText = cancelled ? nullptr : text.data();
    info.item.cchTextMax = static_cast<int>(text.size()) + 1;
    if (!IsOwnerData()) info.item.lParam = mRows[static_cast<size_t>(item)].data;
    LRESULT const keep = SendNotify(this, LVN_ENDLABELEDITW, info.hdr);
    if (!cancelled && keep != 0 && IsValid(item)) SetItemText(item, 0, wxString(text));
  }
  edit->Hide();
  edit->Destroy();
  mEnding = false;
}
