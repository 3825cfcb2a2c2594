// CTreeCtrl's default handling of the mouse and the keyboard: clicks on
// buttons, check boxes and labels, the drag detection loop, keys and
// type-ahead, and label editing.

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "platform/SystemMetrics.h"
#include "platform/commctrl/CTreeCtrl.h"
#include "platform/commctrl/CTreeCtrlImpl.h"

namespace {

constexpr int TypeAheadMilliseconds = 1000;
constexpr int EditLabelMilliseconds = 500;

NMTREEVIEWW DescribeForNotify(TreeNodeStore const & nodes, uint32_t slot) {
  NMTREEVIEWW notification;
  notification.itemNew.mask = TVIF_HANDLE | TVIF_STATE | TVIF_PARAM;
  notification.itemNew.hItem = nodes.Handle(slot);
  notification.itemNew.state = nodes[slot].state;
  notification.itemNew.stateMask = 0xFFFF;
  notification.itemNew.lParam = nodes[slot].data;
  return notification;
}

// Scoped: what the selection and expand notifications say caused them.
class UserAction {
public:
  UserAction(CTreeCtrl::Impl & impl, UINT action) : mImpl(impl) {
    mImpl.selectAction = action;
    mImpl.userExpand = true;
  }
  ~UserAction() {
    mImpl.selectAction = TVC_UNKNOWN;
    mImpl.userExpand = false;
  }
  UserAction(UserAction const &) = delete;
  UserAction & operator=(UserAction const &) = delete;

private:
  CTreeCtrl::Impl & mImpl;
};

}  // namespace

// The next state image of a click or Space on a check box: on through the
// state image list, back to 1 after its last image; 1 and 2 without a list.
static UINT NextStateImage(CTreeCtrl::Impl const & impl, UINT current) {
  int const images = impl.stateImages != nullptr ? impl.stateImages->GetImageCount() : 3;
  UINT const next = current + 1;
  return static_cast<int>(next) < images ? next : 1;
}

static void ToggleCheck(CTreeCtrl & tree, CTreeCtrl::Impl const & impl, HTREEITEM item) {
  UINT const current = STATEIMAGEMASKTOINDEX(tree.GetItemState(item, TVIS_STATEIMAGEMASK));
  if (current == 0) return;
  tree.SetItemState(item, INDEXTOSTATEIMAGEMASK(NextStateImage(impl, current)),
                    TVIS_STATEIMAGEMASK);
}

void CTreeCtrl::OnLButtonDown(UINT /*flags*/, POINT point) {
  if (mEdit != nullptr) EndEditLabelNow(0);
  SetFocus();
  UINT hit = 0;
  HTREEITEM const item = HitTest(point, &hit);
  NMHDR click;
  if (!item) {
    SendNotify(this, NM_CLICK, click);
    return;
  }
  if ((hit & TVHT_ONITEMBUTTON) != 0) {
    UserAction const user(*mImpl, TVC_BYMOUSE);
    Expand(item, TVE_TOGGLE);
    return;
  }
  if ((hit & TVHT_ONITEMSTATEICON) != 0 && (mStyle & TVS_CHECKBOXES) != 0) {
    if (SendNotify(this, NM_CLICK, click) == 0 && IsValidItem(item))
      ToggleCheck(*this, *mImpl, item);
    return;
  }
  bool const onRow =
      (hit & TVHT_ONITEM) != 0 ||
      ((mStyle & TVS_FULLROWSELECT) != 0 && (hit & (TVHT_ONITEMRIGHT | TVHT_ONITEMINDENT)) != 0);
  if (!onRow) {
    SendNotify(this, NM_CLICK, click);
    return;
  }
  uint32_t const slot = mImpl->nodes.Slot(item);
  bool const onCaretLabel = slot == mImpl->caret && (hit & TVHT_ONITEMLABEL) != 0;
  if ((mStyle & TVS_DISABLEDRAGDROP) == 0 && DragDetect(point)) {
    if (!IsValidItem(item)) return;
    NMTREEVIEWW drag = DescribeForNotify(mImpl->nodes, slot);
    drag.ptDrag = point;
    SendNotify(this, TVN_BEGINDRAGW, drag.hdr);
    return;
  }
  // The click is told before the selection moves.
  if (SendNotify(this, NM_CLICK, click) != 0 || !IsValidItem(item)) return;
  {
    UserAction const user(*mImpl, TVC_BYMOUSE);
    Select(item, TVGN_CARET);
  }
  if (onCaretLabel && (mStyle & TVS_EDITLABELS) != 0) {
    mImpl->editPending = slot;
    SetTimer(EditLabelTimer, EditLabelMilliseconds);
  }
}

void CTreeCtrl::OnLButtonUp(UINT /*flags*/, POINT /*point*/) {
  if (HasCapture()) ReleaseMouse();
}

void CTreeCtrl::OnLButtonDblClk(UINT flags, POINT point) {
  KillTimer(EditLabelTimer);
  mImpl->editPending = 0;
  UINT hit = 0;
  HTREEITEM const item = HitTest(point, &hit);
  if (item && (hit & TVHT_ONITEMBUTTON) != 0) {
    OnLButtonDown(flags, point);
    return;
  }
  NMHDR header;
  if (SendNotify(this, NM_DBLCLK, header) != 0 || !item || !IsValidItem(item)) return;
  if ((hit & TVHT_ONITEM) != 0) {
    UserAction const user(*mImpl, TVC_BYMOUSE);
    Expand(item, TVE_TOGGLE);
  }
}

void CTreeCtrl::OnRButtonDown(UINT /*flags*/, POINT point) {
  if (mEdit != nullptr) EndEditLabelNow(0);
  SetFocus();
  NMHDR header;
  if (SendNotify(this, NM_RCLICK, header) != 0) return;
  wxContextMenuEvent menu(wxEVT_CONTEXT_MENU, GetId(), ClientToScreen(wxPoint(point.x, point.y)));
  menu.SetEventObject(this);
  GetEventHandler()->ProcessEvent(menu);
}

void CTreeCtrl::OnRButtonUp(UINT /*flags*/, POINT /*point*/) {}

void CTreeCtrl::OnMouseMove(UINT /*flags*/, POINT /*point*/) {}

bool CTreeCtrl::DragDetect(POINT point) {
  // Only a real press can become a drag: a handler called without one (a
  // test, a synthesised click) sees a click.
  if (!wxGetMouseState().LeftIsDown()) return false;
  int const cx = std::max(1, GetSystemMetrics(SM_CXDRAG) / 2);
  int const cy = std::max(1, GetSystemMetrics(SM_CYDRAG) / 2);
  bool const captured = !HasCapture();
  if (captured) CaptureMouse();
  bool drag = false;
  auto const give_up = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  for (;;) {
    wxMouseState const state = wxGetMouseState();
    if (!state.LeftIsDown() || wxGetKeyState(WXK_ESCAPE)) break;
    wxPoint const at = ScreenToClient(state.GetPosition());
    if (std::abs(at.x - point.x) > cx || std::abs(at.y - point.y) > cy) {
      drag = true;
      break;
    }
    if (std::chrono::steady_clock::now() > give_up) break;
    // Paints and the like go on meanwhile; input waits and comes after.
    if (wxEventLoopBase * const loop = wxEventLoopBase::GetActive())
      loop->YieldFor(wxEVT_CATEGORY_UI);
    wxMilliSleep(5);
  }
  if (captured && HasCapture()) ReleaseMouse();
  return drag;
}

// ---- keys ----

void CTreeCtrl::OnKeyDown(UINT virtualKey, UINT /*repeatCount*/, UINT /*flags*/) {
  NMTVKEYDOWN key;
  key.wVKey = static_cast<WORD>(virtualKey);
  SendNotify(this, TVN_KEYDOWN, key.hdr);

  // With Ctrl the moving keys scroll and leave the caret where it is.
  if (GetKeyState(VK_CONTROL) < 0) {
    switch (virtualKey) {
      case VK_UP: OnVScroll(SB_LINEUP, 0); return;
      case VK_DOWN: OnVScroll(SB_LINEDOWN, 0); return;
      case VK_PRIOR: OnVScroll(SB_PAGEUP, 0); return;
      case VK_NEXT: OnVScroll(SB_PAGEDOWN, 0); return;
      case VK_HOME: OnVScroll(SB_TOP, 0); return;
      case VK_END: OnVScroll(SB_BOTTOM, 0); return;
      case VK_LEFT: OnHScroll(SB_LINEUP, 0); return;
      case VK_RIGHT: OnHScroll(SB_LINEDOWN, 0); return;
      default: break;
    }
  }

  TreeNodeStore & nodes = mImpl->nodes;
  uint32_t const caret = mImpl->caret;
  uint32_t target = 0;
  int const page = std::max(1, static_cast<int>(GetVisibleCount()) - 1);
  UserAction const user(*mImpl, TVC_BYKEYBOARD);
  if (caret == 0) {
    // Any move first lands on the first shown row.
    if (virtualKey == VK_UP || virtualKey == VK_DOWN || virtualKey == VK_HOME ||
        virtualKey == VK_END || virtualKey == VK_PRIOR || virtualKey == VK_NEXT)
      Select(GetFirstVisibleItem(), TVGN_CARET);
    return;
  }
  HTREEITEM const current = nodes.Handle(caret);
  switch (virtualKey) {
    case VK_UP: target = nodes.PrevVisible(caret); break;
    case VK_DOWN: target = nodes.NextVisible(caret); break;
    case VK_HOME: target = nodes[0].firstChild; break;
    case VK_END: target = nodes.LastVisibleOf(nodes[0].lastChild); break;
    case VK_PRIOR:
      target = caret;
      for (int i = 0; i < page && nodes.PrevVisible(target) != 0; ++i)
        target = nodes.PrevVisible(target);
      break;
    case VK_NEXT:
      target = caret;
      for (int i = 0; i < page && nodes.NextVisible(target) != 0; ++i)
        target = nodes.NextVisible(target);
      break;
    case VK_LEFT:
      if (nodes.IsExpanded(caret) && ItemHasChildren(current))
        Expand(current, TVE_COLLAPSE);
      else
        target = nodes[caret].parent;
      break;
    case VK_RIGHT:
      if (ItemHasChildren(current) && !nodes.IsExpanded(caret))
        Expand(current, TVE_EXPAND);
      else if (nodes.IsExpanded(caret))
        target = nodes[caret].firstChild;
      break;
    case VK_BACK: target = nodes[caret].parent; break;
    case VK_ADD: Expand(current, TVE_EXPAND); break;
    case VK_SUBTRACT: Expand(current, TVE_COLLAPSE); break;
    case VK_MULTIPLY: {
      // The whole branch, top down, as a loop.
      uint32_t slot = caret;
      while (slot != 0) {
        if (nodes[slot].firstChild != 0 && !nodes.IsExpanded(slot))
          Expand(nodes.Handle(slot), TVE_EXPAND);
        slot = nodes[slot].firstChild != 0 ? nodes[slot].firstChild
                                           : nodes.NextSkippingChildren(slot, caret);
      }
      break;
    }
    case VK_F2:
      if ((mStyle & TVS_EDITLABELS) != 0) EditLabel(current);
      break;
    case VK_SPACE:
      if ((mStyle & TVS_CHECKBOXES) != 0) ToggleCheck(*this, *mImpl, current);
      break;
    case VK_RETURN: {
      NMHDR header;
      SendNotify(this, NM_RETURN, header);
      break;
    }
    default: break;
  }
  if (target != 0 && target != caret) Select(nodes.Handle(target), TVGN_CARET);
}

void CTreeCtrl::OnKeyUp(UINT /*virtualKey*/, UINT /*repeatCount*/, UINT /*flags*/) {}

void CTreeCtrl::OnChar(UINT character, UINT /*repeatCount*/, UINT /*flags*/) {
  if (character < 32 || (character == ' ' && (mStyle & TVS_CHECKBOXES) != 0)) return;
  if (character == '+' || character == '-' || character == '*') {
    if (mImpl->typeAhead.empty()) return;  // the keys themselves expand and collapse
  }
  Impl & impl = *mImpl;
  TreeNodeStore & nodes = impl.nodes;
  impl.typeAhead += wxUniChar(character);
  SetTimer(TypeAheadTimer, TypeAheadMilliseconds);
  // One letter typed again moves on to the next item with it; a longer
  // prefix is looked for from the caret itself.
  wxString prefix = impl.typeAhead;
  bool const repeated = prefix.find_first_not_of(prefix[0]) == wxString::npos;
  if (repeated) prefix = prefix.Left(1);
  uint32_t const first = nodes[0].firstChild;
  if (first == 0) return;
  uint32_t const start = impl.caret != 0 && nodes.IsShown(impl.caret) ? impl.caret : first;
  uint32_t slot = repeated || impl.caret == 0 ? nodes.NextVisible(start) : start;
  if (slot == 0) slot = first;
  for (uint32_t steps = 0; steps <= nodes.Count(); ++steps) {
    if (ShownText(*this, impl, slot).Left(prefix.length()).CmpNoCase(prefix) == 0) {
      UserAction const user(impl, TVC_BYKEYBOARD);
      Select(nodes.Handle(slot), TVGN_CARET);
      return;
    }
    slot = nodes.NextVisible(slot);
    if (slot == 0) slot = first;
    if (slot == start && steps > 0 && !repeated) break;
  }
}

void CTreeCtrl::OnSetFocus() {
  NMHDR header;
  SendNotify(this, NM_SETFOCUS, header);
  Invalidate();
}

void CTreeCtrl::OnKillFocus() {
  NMHDR header;
  SendNotify(this, NM_KILLFOCUS, header);
  Invalidate();
}

void CTreeCtrl::OnTimer(UINT_PTR id) {
  KillTimer(id);
  if (id == TypeAheadTimer) {
    mImpl->typeAhead.clear();
  } else if (id == EditLabelTimer) {
    uint32_t const pending = mImpl->editPending;
    mImpl->editPending = 0;
    if (pending != 0 && pending == mImpl->caret) EditLabel(mImpl->nodes.Handle(pending));
  }
}

// ---- label editing ----

wxTextCtrl * CTreeCtrl::EditLabel(HTREEITEM item) {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0) return nullptr;
  if (mEdit != nullptr) EndEditLabelNow(0);
  if (!IsValidItem(item)) return nullptr;
  EnsureVisible(item);
  wxString const shown = ShownText(*this, *mImpl, slot);
  std::wstring text = shown.ToStdWstring();
  NMTVDISPINFOW begin;
  begin.item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_STATE | TVIF_PARAM;
  begin.item.hItem = item;
  begin.item.pszText = text.data();
  begin.item.cchTextMax = static_cast<int>(text.size()) + 1;
  begin.item.state = mImpl->nodes[slot].state;
  begin.item.lParam = mImpl->nodes[slot].data;
  if (SendNotify(this, TVN_BEGINLABELEDITW, begin.hdr) != 0 || !IsValidItem(item)) return nullptr;

  RECT rect{};
  GetItemRect(item, &rect, 1);
  int const width = std::max<int>(rect.right - rect.left + 40, 80);
  auto * edit =
      new wxTextCtrl(this, wxID_ANY, shown, wxPoint(rect.left, rect.top),
                     wxSize(std::min(width, std::max(80, GetClientSize().GetWidth() - rect.left)),
                            rect.bottom - rect.top + 2),
                     wxTE_PROCESS_ENTER | wxBORDER_SIMPLE);
  mEdit = edit;
  mImpl->editSlot = slot;
  edit->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent &) { EndEditLabelNow(0); });
  edit->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent & event) {
    if (event.GetKeyCode() == WXK_ESCAPE)
      EndEditLabelNow(1);
    else
      event.Skip();
  });
  edit->Bind(wxEVT_KILL_FOCUS, [this, edit](wxFocusEvent & event) {
    event.Skip();
    if (mEdit == edit)
      CallAfter([this, edit] {
        if (mEdit == edit) EndEditLabelNow(0);
      });
  });
  edit->SelectAll();
  edit->SetFocus();
  return edit;
}

BOOL CTreeCtrl::EndEditLabelNow(BOOL cancel) {
  wxTextCtrl * const edit = mEdit;
  if (edit == nullptr) return 0;
  mEdit = nullptr;  // a handler below may end it again
  uint32_t const slot = mImpl->editSlot;
  mImpl->editSlot = 0;
  std::wstring text = edit->GetValue().ToStdWstring();
  edit->Hide();
  if (wxTheApp != nullptr)
    wxTheApp->ScheduleForDestruction(edit);
  else
    edit->Destroy();
  if (slot == 0 || !mImpl->nodes[slot].alive) return 1;
  HTREEITEM const item = mImpl->nodes.Handle(slot);
  NMTVDISPINFOW end;
  end.item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_PARAM;
  end.item.hItem = item;
  end.item.pszText = cancel != 0 ? nullptr : text.data();
  end.item.cchTextMax = static_cast<int>(text.size()) + 1;
  end.item.lParam = mImpl->nodes[slot].data;
  LRESULT const accepted = SendNotify(this, TVN_ENDLABELEDITW, end.hdr);
  if (cancel == 0 && accepted != 0 && IsValidItem(item)) SetItemText(item, wxString(text));
  if (IsShownOnScreen()) SetFocus();
  Invalidate();
  return 1;
}
