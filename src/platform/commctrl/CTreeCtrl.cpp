// CTreeCtrl's items: inserting, deleting, fields, walks, selection,
// expansion and sorting. Painting and input are in CTreeCtrlView.cpp.

#include "platform/commctrl/CTreeCtrl.h"

#include <wx/textctrl.h>

#include <algorithm>
#include <cwchar>
#include <map>

#include "platform/commctrl/CTreeCtrlImpl.h"
#include "platform/commctrl/MergeSortBy.h"

namespace {

// TVITEM of a node for a notification: handle, state, data.
TVITEMW DescribeItem(TreeNodeStore const & nodes, uint32_t slot) {
  TVITEMW item;
  if (slot == 0) return item;
  item.mask = TVIF_HANDLE | TVIF_STATE | TVIF_PARAM;
  item.hItem = nodes.Handle(slot);
  item.state = nodes[slot].state;
  item.stateMask = 0xFFFF;
  item.lParam = nodes[slot].data;
  return item;
}

// Asks the parent for the fields of `mask`; keeps them with TVIF_DI_SETITEM.
TVITEMW AskDisplayInfo(CTreeCtrl & tree, TreeNodeStore & nodes, uint32_t slot, UINT mask,
                       std::vector<wchar_t> & buffer) {
  buffer.assign(1024, L'\0');
  NMTVDISPINFOW info;
  info.item.mask = mask;
  info.item.hItem = nodes.Handle(slot);
  info.item.state = nodes[slot].state;
  info.item.stateMask = 0xFFFF;
  info.item.lParam = nodes[slot].data;
  info.item.pszText = buffer.data();
  info.item.cchTextMax = static_cast<int>(buffer.size());
  SendNotify(&tree, TVN_GETDISPINFOW, info.hdr);
  if (nodes.Slot(info.item.hItem) == 0) return info.item;
  if ((info.item.mask & TVIF_DI_SETITEM) != 0) {
    TreeNode & node = nodes[slot];
    if ((mask & TVIF_TEXT) != 0 && info.item.pszText != nullptr) {
      node.text = info.item.pszText;
      node.textCallback = false;
      node.textWidth = -1;
    }
    if ((mask & TVIF_IMAGE) != 0) node.image = info.item.iImage;
    if ((mask & TVIF_SELECTEDIMAGE) != 0) node.selectedImage = info.item.iSelectedImage;
    if ((mask & TVIF_CHILDREN) != 0)
      node.children = static_cast<int8_t>(info.item.cChildren != 0 ? 1 : 0);
  }
  return info.item;
}

}  // namespace

wxString ShownText(CTreeCtrl & tree, CTreeCtrl::Impl & impl, uint32_t slot) {
  if (!impl.nodes[slot].textCallback) return impl.nodes[slot].text;
  std::vector<wchar_t> buffer;
  TVITEMW const answer = AskDisplayInfo(tree, impl.nodes, slot, TVIF_TEXT, buffer);
  if (answer.pszText == nullptr || answer.pszText == LPSTR_TEXTCALLBACKW) return {};
  // The parent may point at its own text or fill the buffer.
  if (answer.pszText == buffer.data())
    return wxString(buffer.data(), wcsnlen(buffer.data(), buffer.size()));
  return wxString(answer.pszText);
}

int ShownImage(CTreeCtrl & tree, CTreeCtrl::Impl & impl, uint32_t slot, bool selected) {
  TreeNode const & node = impl.nodes[slot];
  int const image = selected ? node.selectedImage : node.image;
  if (image != I_IMAGECALLBACK) return image;
  std::vector<wchar_t> buffer;
  UINT const field = selected ? TVIF_SELECTEDIMAGE : TVIF_IMAGE;
  TVITEMW const answer = AskDisplayInfo(tree, impl.nodes, slot, field, buffer);
  return selected ? answer.iSelectedImage : answer.iImage;
}

bool ShowsButton(CTreeCtrl & tree, CTreeCtrl::Impl & impl, uint32_t slot) {
  TreeNode const & node = impl.nodes[slot];
  if (node.children == -2) return node.firstChild != 0;
  if (node.children != I_CHILDRENCALLBACK) return node.children != 0;
  std::vector<wchar_t> buffer;
  return AskDisplayInfo(tree, impl.nodes, slot, TVIF_CHILDREN, buffer).cChildren != 0;
}

CTreeCtrl::CTreeCtrl() : mImpl(std::make_unique<Impl>()) {}

CTreeCtrl::CTreeCtrl(wxWindow * parent, wxWindowID id, DWORD style, wxPoint const & pos,
                     wxSize const & size)
    : mImpl(std::make_unique<Impl>()) {
  Create(parent, id, style, pos, size);
}

CTreeCtrl::~CTreeCtrl() {
  for (auto & timer : mImpl->timers) timer.second->Stop();
}

void CTreeCtrl::ModifyStyle(DWORD remove, DWORD add) {
  DWORD const style = (mStyle & ~remove) | add;
  if (style == mStyle) return;
  mStyle = style;
  ++mImpl->layoutVersion;
  Invalidate();
}

// ---- inserting and deleting ----

HTREEITEM CTreeCtrl::InsertItem(TVINSERTSTRUCTW const * insert) {
  if (insert == nullptr || mImpl->deleting) return {};
  TreeNodeStore & nodes = mImpl->nodes;
  uint32_t parent = 0;
  if (insert->hParent != TVI_ROOT && insert->hParent) {
    parent = nodes.Slot(insert->hParent);
    if (parent == 0) return {};
  }
  HTREEITEM const place = insert->hInsertAfter;
  uint32_t after = nodes[parent].lastChild;
  if (place == TVI_FIRST) {
    after = 0;
  } else if (place == TVI_SORT) {
    // After the last child whose text sorts before or equal to the new one.
    wxString const text = (insert->item.mask & TVIF_TEXT) != 0 && insert->item.pszText != nullptr &&
                                  insert->item.pszText != LPSTR_TEXTCALLBACKW
                              ? wxString(insert->item.pszText)
                              : wxString();
    after = 0;
    for (uint32_t child = nodes[parent].firstChild; child != 0; child = nodes[child].next) {
      if (nodes[child].text.CmpNoCase(text) > 0) break;
      after = child;
    }
  } else if (place != TVI_LAST && place) {
    after = nodes.Slot(place);
    if (after == 0 || nodes[after].parent != parent) after = nodes[parent].lastChild;
  }

  uint32_t const slot = nodes.Insert(parent, after);
  ++mImpl->structureVersion;
  TreeNode & node = nodes[slot];
  TVITEMW const & item = insert->item;
  if ((item.mask & TVIF_TEXT) != 0 && item.pszText == LPSTR_TEXTCALLBACKW)
    node.textCallback = true;
  else if ((item.mask & TVIF_TEXT) != 0 && item.pszText != nullptr)
    node.text = item.pszText;
  if ((item.mask & TVIF_IMAGE) != 0) node.image = item.iImage;
  if ((item.mask & TVIF_SELECTEDIMAGE) != 0) node.selectedImage = item.iSelectedImage;
  if ((item.mask & TVIF_PARAM) != 0) node.data = item.lParam;
  if ((item.mask & TVIF_CHILDREN) != 0)
    node.children = static_cast<int8_t>(std::clamp(item.cChildren, -1, 1));
  if ((item.mask & TVIF_STATE) != 0) {
    UINT const settable = item.stateMask & ~(TVIS_SELECTED | TVIS_DROPHILITED);
    node.state = item.state & settable;
  }
  // A tree with check boxes gives every new item an unchecked box.
  if ((mStyle & TVS_CHECKBOXES) != 0 && (node.state & TVIS_STATEIMAGEMASK) == 0 &&
      ((item.mask & TVIF_STATE) == 0 || (item.stateMask & TVIS_STATEIMAGEMASK) == 0))
    node.state |= INDEXTOSTATEIMAGEMASK(1);

  if (parent == 0 || nodes.IsShown(parent)) {
    // Only a change among the shown rows moves the layout.
    if (parent == 0 || nodes.IsExpanded(parent)) ++mImpl->layoutVersion;
    Invalidate();
  }
  return nodes.Handle(slot);
}

HTREEITEM CTreeCtrl::InsertItem(UINT mask, wxString const & text, int image, int selectedImage,
                                UINT state, UINT stateMask, LPARAM data, HTREEITEM parent,
                                HTREEITEM insertAfter) {
  // The text goes straight into the node (no round trip through a wide
  // buffer), except where the sorted place needs it first.
  bool const direct = (mask & TVIF_TEXT) != 0 && insertAfter != TVI_SORT;
  std::wstring wide = direct ? std::wstring() : text.ToStdWstring();
  TVINSERTSTRUCTW insert;
  insert.hParent = parent;
  insert.hInsertAfter = insertAfter;
  insert.item.mask = direct ? mask & ~TVIF_TEXT : mask;
  insert.item.pszText = wide.data();
  insert.item.iImage = image;
  insert.item.iSelectedImage = selectedImage;
  insert.item.state = state;
  insert.item.stateMask = stateMask;
  insert.item.lParam = data;
  HTREEITEM const item = InsertItem(&insert);
  if (direct && item) mImpl->nodes[item.slot].text = text;
  return item;
}

HTREEITEM CTreeCtrl::InsertItem(wxString const & text, HTREEITEM parent, HTREEITEM insertAfter) {
  return InsertItem(TVIF_TEXT, text, 0, 0, 0, 0, 0, parent, insertAfter);
}

HTREEITEM CTreeCtrl::InsertItem(wxString const & text, int image, int selectedImage,
                                HTREEITEM parent, HTREEITEM insertAfter) {
  return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE, text, image, selectedImage, 0, 0,
                    0, parent, insertAfter);
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM item) {
  TreeNodeStore & nodes = mImpl->nodes;
  if (mImpl->deleting) return 0;
  uint32_t top = 0;
  if (item == TVI_ROOT || !item) {
    if (item != TVI_ROOT) return 0;
  } else {
    top = nodes.Slot(item);
    if (top == 0) return 0;
  }
  if (mEdit != nullptr && mImpl->editSlot != 0 &&
      (top == 0 || mImpl->editSlot == top || nodes.IsAncestor(top, mImpl->editSlot)))
    EndEditLabelNow(1);

  // The caret leaves the branch first, as the user would see it: to the next
  // sibling, else the previous, else the parent.
  uint32_t const caret = mImpl->caret;
  if (caret != 0 && (top == 0 || caret == top || nodes.IsAncestor(top, caret))) {
    uint32_t successor = 0;
    if (top != 0) {
      successor = nodes[top].next != 0 ? nodes[top].next : nodes[top].prev;
      if (successor == 0) successor = nodes[top].parent;
    }
    if (successor != 0) {
      Select(nodes.Handle(successor), TVGN_CARET);
    } else {
      nodes[caret].state &= ~TVIS_SELECTED;
      mImpl->caret = 0;
    }
    if (mImpl->caret != 0 && (mImpl->caret == top || nodes.IsAncestor(top, mImpl->caret))) {
      nodes[mImpl->caret].state &= ~TVIS_SELECTED;
      mImpl->caret = 0;
    }
  }

  struct Deleting {
    bool & flag;
    explicit Deleting(bool & deleting) : flag(deleting) { flag = true; }
    ~Deleting() { flag = false; }
    Deleting(Deleting const &) = delete;
    Deleting & operator=(Deleting const &) = delete;
  } const deleting(mImpl->deleting);
  ++mImpl->structureVersion;
  // Post-order, children before their parent, without recursion: go down to
  // a leaf, delete it, go on with its next sibling or its parent.
  uint32_t slot = top == 0 ? nodes[0].firstChild : top;
  uint32_t const stop = top;
  while (slot != 0) {
    while (nodes[slot].firstChild != 0) slot = nodes[slot].firstChild;
    uint32_t const next = nodes[slot].next;
    uint32_t const parent = nodes[slot].parent;
    NMTREEVIEWW notification;
    notification.itemOld = DescribeItem(nodes, slot);
    SendNotify(this, TVN_DELETEITEMW, notification.hdr);
    if (mImpl->dropHilite == slot) mImpl->dropHilite = 0;
    if (mImpl->insertMark == slot) mImpl->insertMark = 0;
    if (mImpl->caret == slot) mImpl->caret = 0;
    nodes.Unlink(slot);
    nodes.Free(slot);
    if (slot == stop) break;
    // After the last child its parent has become a leaf: it is next.
    slot = next != 0 ? next : parent;
  }
  ++mImpl->layoutVersion;
  Invalidate();
  return 1;
}

BOOL CTreeCtrl::DeleteAllItems() {
  if (DeleteItem(TVI_ROOT) == 0) return 0;  // refused inside a delete
  mImpl->nodes.Clear();
  mImpl->topRow = 0;
  mImpl->scrollX = 0;
  mImpl->widestRow = 0;
  return 1;
}

// ---- item fields ----

bool CTreeCtrl::IsValidItem(HTREEITEM item) const { return mImpl->nodes.Slot(item) != 0; }

BOOL CTreeCtrl::GetItem(TVITEMW * item) const {
  if (item == nullptr) return 0;
  uint32_t const slot = mImpl->nodes.Slot(item->hItem);
  if (slot == 0) return 0;
  TreeNode const & node = mImpl->nodes[slot];
  if ((item->mask & TVIF_TEXT) != 0 && item->pszText != nullptr && item->cchTextMax > 0) {
    std::wstring const text =
        ShownText(const_cast<CTreeCtrl &>(*this), *mImpl, slot).ToStdWstring();
    size_t const length = std::min(text.size(), static_cast<size_t>(item->cchTextMax - 1));
    std::wmemcpy(item->pszText, text.data(), length);
    item->pszText[length] = L'\0';
  }
  if ((item->mask & TVIF_IMAGE) != 0) item->iImage = node.image;
  if ((item->mask & TVIF_SELECTEDIMAGE) != 0) item->iSelectedImage = node.selectedImage;
  if ((item->mask & TVIF_PARAM) != 0) item->lParam = node.data;
  if ((item->mask & TVIF_STATE) != 0) item->state = node.state & item->stateMask;
  if ((item->mask & TVIF_CHILDREN) != 0)
    item->cChildren = node.children == -2 ? (node.firstChild != 0 ? 1 : 0) : node.children;
  return 1;
}

BOOL CTreeCtrl::SetItem(TVITEMW const * item) {
  if (item == nullptr) return 0;
  uint32_t const slot = mImpl->nodes.Slot(item->hItem);
  if (slot == 0) return 0;
  TreeNode & node = mImpl->nodes[slot];
  if ((item->mask & TVIF_TEXT) != 0) node.textCallback = item->pszText == LPSTR_TEXTCALLBACKW;
  node.text = item->pszText != nullptr && !node.textCallback ? wxString(item->pszText) : wxString();
  if ((item->mask & TVIF_IMAGE) != 0) node.image = item->iImage;
  if ((item->mask & TVIF_SELECTEDIMAGE) != 0) node.selectedImage = item->iSelectedImage;
  if ((item->mask & TVIF_PARAM) != 0) node.data = item->lParam;
  if ((item->mask & TVIF_CHILDREN) != 0)
    node.children = static_cast<int8_t>(std::clamp(item->cChildren, -1, 1));
  if ((item->mask & TVIF_STATE) != 0) SetItemState(item->hItem, item->state, item->stateMask);
  Invalidate();
  return 1;
}

wxString CTreeCtrl::GetItemText(HTREEITEM item) const {
  uint32_t const slot = mImpl->nodes.Slot(item);
  return slot == 0 ? wxString() : ShownText(const_cast<CTreeCtrl &>(*this), *mImpl, slot);
}

BOOL CTreeCtrl::SetItemText(HTREEITEM item, wxString const & text) {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0) return 0;
  mImpl->nodes[slot].text = text;
  mImpl->nodes[slot].textCallback = false;
  mImpl->nodes[slot].textWidth = -1;
  Invalidate();
  return 1;
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM item, int & image, int & selectedImage) const {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0) return 0;
  image = mImpl->nodes[slot].image;
  selectedImage = mImpl->nodes[slot].selectedImage;
  return 1;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM item, int image, int selectedImage) {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0) return 0;
  mImpl->nodes[slot].image = image;
  mImpl->nodes[slot].selectedImage = selectedImage;
  Invalidate();
  return 1;
}

UINT CTreeCtrl::GetItemState(HTREEITEM item, UINT stateMask) const {
  uint32_t const slot = mImpl->nodes.Slot(item);
  return slot == 0 ? 0 : mImpl->nodes[slot].state & stateMask;
}

BOOL CTreeCtrl::SetItemState(HTREEITEM item, UINT state, UINT stateMask) {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0) return 0;
  TreeNode & node = mImpl->nodes[slot];
  UINT const old = node.state;
  node.state = (old & ~stateMask) | (state & stateMask);
  if (((old ^ node.state) & TVIS_EXPANDED) != 0) ++mImpl->layoutVersion;
  if (((old ^ node.state) & TVIS_BOLD) != 0) node.textWidth = -1;
  if (((old ^ node.state) & TVIS_DROPHILITED) != 0) {
    if ((node.state & TVIS_DROPHILITED) != 0) {
      if (mImpl->dropHilite != 0 && mImpl->dropHilite != slot)
        mImpl->nodes[mImpl->dropHilite].state &= ~TVIS_DROPHILITED;
      mImpl->dropHilite = slot;
    } else if (mImpl->dropHilite == slot) {
      mImpl->dropHilite = 0;
    }
  }
  if (old != node.state) Invalidate();
  return 1;
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM item) const {
  uint32_t const slot = mImpl->nodes.Slot(item);
  return slot == 0 ? 0 : static_cast<DWORD_PTR>(mImpl->nodes[slot].data);
}

BOOL CTreeCtrl::SetItemData(HTREEITEM item, DWORD_PTR data) {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0) return 0;
  mImpl->nodes[slot].data = static_cast<LPARAM>(data);
  return 1;
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM item) const {
  uint32_t const slot = mImpl->nodes.Slot(item);
  if (slot == 0) return 0;
  TreeNode const & node = mImpl->nodes[slot];
  return node.children == -2 ? node.firstChild != 0 : node.children != 0;
}

BOOL CTreeCtrl::GetCheck(HTREEITEM item) const {
  return STATEIMAGEMASKTOINDEX(GetItemState(item, TVIS_STATEIMAGEMASK)) == 2;
}

BOOL CTreeCtrl::SetCheck(HTREEITEM item, BOOL check) {
  return SetItemState(item, INDEXTOSTATEIMAGEMASK(check != 0 ? 2 : 1), TVIS_STATEIMAGEMASK);
}

// ---- walking ----

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM item, UINT code) const {
  TreeNodeStore const & nodes = mImpl->nodes;
  switch (code) {
    case TVGN_ROOT: return nodes.Handle(nodes[0].firstChild);
    case TVGN_CARET: return nodes.Handle(mImpl->caret);
    case TVGN_DROPHILITE: return nodes.Handle(mImpl->dropHilite);
    case TVGN_FIRSTVISIBLE: return GetFirstVisibleItem();
    case TVGN_LASTVISIBLE:
      return nodes.Handle(nodes[0].lastChild == 0 ? 0 : nodes.LastVisibleOf(nodes[0].lastChild));
    case TVGN_CHILD:
      if (item == TVI_ROOT || !item) return nodes.Handle(nodes[0].firstChild);
      break;
    default: break;
  }
  uint32_t const slot = nodes.Slot(item);
  if (slot == 0) return {};
  switch (code) {
    case TVGN_NEXT: return nodes.Handle(nodes[slot].next);
    case TVGN_PREVIOUS: return nodes.Handle(nodes[slot].prev);
    case TVGN_PARENT: return nodes.Handle(nodes[slot].parent);
    case TVGN_CHILD: return nodes.Handle(nodes[slot].firstChild);
    case TVGN_NEXTVISIBLE:
      return nodes.IsShown(slot) ? nodes.Handle(nodes.NextVisible(slot)) : HTREEITEM{};
    case TVGN_PREVIOUSVISIBLE:
      return nodes.IsShown(slot) ? nodes.Handle(nodes.PrevVisible(slot)) : HTREEITEM{};
    default: return {};
  }
}

HTREEITEM CTreeCtrl::GetRootItem() const { return GetNextItem({}, TVGN_ROOT); }
HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM item) const { return GetNextItem(item, TVGN_CHILD); }
HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM item) const {
  return GetNextItem(item, TVGN_NEXT);
}
HTREEITEM CTreeCtrl::GetPrevSiblingItem(HTREEITEM item) const {
  return GetNextItem(item, TVGN_PREVIOUS);
}
HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PARENT); }
HTREEITEM CTreeCtrl::GetNextVisibleItem(HTREEITEM item) const {
  return GetNextItem(item, TVGN_NEXTVISIBLE);
}
HTREEITEM CTreeCtrl::GetPrevVisibleItem(HTREEITEM item) const {
  return GetNextItem(item, TVGN_PREVIOUSVISIBLE);
}
HTREEITEM CTreeCtrl::GetLastVisibleItem() const { return GetNextItem({}, TVGN_LASTVISIBLE); }
HTREEITEM CTreeCtrl::GetSelectedItem() const { return GetNextItem({}, TVGN_CARET); }
HTREEITEM CTreeCtrl::GetDropHilightItem() const { return GetNextItem({}, TVGN_DROPHILITE); }
UINT CTreeCtrl::GetCount() const { return mImpl->nodes.Count(); }

// ---- selecting ----

BOOL CTreeCtrl::Select(HTREEITEM item, UINT code) {
  TreeNodeStore & nodes = mImpl->nodes;
  uint32_t const slot = nodes.Slot(item);
  if (item && slot == 0) return 0;  // a stale handle; null clears the mark
  switch (code & ~TVSI_NOSINGLEEXPAND) {
    case TVGN_CARET: {
      uint32_t const old = mImpl->caret;
      if (old == slot) {
        if (slot != 0) nodes[slot].state |= TVIS_SELECTED;
        if (slot != 0) EnsureVisible(item);
        return 1;
      }
      NMTREEVIEWW changing;
      changing.action = mImpl->selectAction;
      changing.itemOld = DescribeItem(nodes, old);
      changing.itemNew = DescribeItem(nodes, slot);
      if (SendNotify(this, TVN_SELCHANGINGW, changing.hdr) != 0) return 0;
      // The handler may have deleted either item.
      if (old != 0 && nodes[old].alive) nodes[old].state &= ~TVIS_SELECTED;
      if (slot != 0 && nodes.Slot(item) == 0) return 0;
      mImpl->caret = slot;
      if (slot != 0) {
        nodes[slot].state |= TVIS_SELECTED;
        EnsureVisible(item);
      }
      NMTREEVIEWW changed;
      changed.action = mImpl->selectAction;
      changed.itemOld = DescribeItem(nodes, old != 0 && nodes[old].alive ? old : 0);
      changed.itemNew = DescribeItem(nodes, slot);
      SendNotify(this, TVN_SELCHANGEDW, changed.hdr);
      if ((mStyle & TVS_SINGLEEXPAND) != 0 && mImpl->selectAction != TVC_UNKNOWN &&
          (code & TVSI_NOSINGLEEXPAND) == 0)
        SingleExpand(old, slot);
      Invalidate();
      return 1;
    }
    case TVGN_DROPHILITE:
      if (mImpl->dropHilite != 0) nodes[mImpl->dropHilite].state &= ~TVIS_DROPHILITED;
      mImpl->dropHilite = slot;
      if (slot != 0) nodes[slot].state |= TVIS_DROPHILITED;
      Invalidate();
      return 1;
    case TVGN_FIRSTVISIBLE: return SelectSetFirstVisible(item);
    default: return 0;
  }
}

BOOL CTreeCtrl::SelectItem(HTREEITEM item) { return Select(item, TVGN_CARET); }

// TVS_SINGLEEXPAND: the item the user selects opens and the one left closes,
// unless it holds the new one; the parent may keep either as it is.
void CTreeCtrl::SingleExpand(uint32_t old, uint32_t now) {
  TreeNodeStore & nodes = mImpl->nodes;
  HTREEITEM const oldItem = old != 0 && nodes[old].alive ? nodes.Handle(old) : HTREEITEM{};
  HTREEITEM const newItem = nodes.Handle(now);
  NMTREEVIEWW single;
  single.action = mImpl->selectAction;
  single.itemOld = DescribeItem(nodes, nodes.Slot(oldItem));
  single.itemNew = DescribeItem(nodes, now);
  LRESULT const answer = SendNotify(this, TVN_SINGLEEXPAND, single.hdr);
  uint32_t const oldSlot = nodes.Slot(oldItem);
  uint32_t const newSlot = nodes.Slot(newItem);
  if ((answer & TVNRET_SKIPOLD) == 0 && oldSlot != 0 && oldSlot != newSlot &&
      !nodes.IsAncestor(oldSlot, newSlot))
    Expand(oldItem, TVE_COLLAPSE);
  if ((answer & TVNRET_SKIPNEW) == 0 && newSlot != 0) Expand(newItem, TVE_EXPAND);
}
BOOL CTreeCtrl::SelectDropTarget(HTREEITEM item) { return Select(item, TVGN_DROPHILITE); }

// ---- expanding ----

BOOL CTreeCtrl::Expand(HTREEITEM item, UINT code) {
  TreeNodeStore & nodes = mImpl->nodes;
  uint32_t const slot = nodes.Slot(item);
  if (slot == 0) return 0;
  TreeNode & node = nodes[slot];
  UINT action = code & (TVE_EXPAND | TVE_COLLAPSE);
  if (action == TVE_TOGGLE) action = (node.state & TVIS_EXPANDED) != 0 ? TVE_COLLAPSE : TVE_EXPAND;
  if (action != TVE_EXPAND && action != TVE_COLLAPSE) return 0;
  bool const expand = action == TVE_EXPAND;
  if (expand && !ItemHasChildren(item)) return 0;
  if (expand == ((node.state & TVIS_EXPANDED) != 0) && (code & TVE_COLLAPSERESET) == 0) return 0;

  // A call from code tells only until the item has been expanded once; the
  // user's clicks and keys always tell.
  bool const tell = mImpl->userExpand || (node.state & TVIS_EXPANDEDONCE) == 0;
  if (tell) {
    NMTREEVIEWW expanding;
    expanding.action = action;
    expanding.itemNew = DescribeItem(nodes, slot);
    if (SendNotify(this, TVN_ITEMEXPANDINGW, expanding.hdr) != 0) return 0;
    if (nodes.Slot(item) == 0) return 0;
  }
  TreeNode & target = nodes[slot];
  if (expand)
    target.state |= TVIS_EXPANDED | TVIS_EXPANDEDONCE;
  else
    target.state &= ~TVIS_EXPANDED;
  // The caret inside a collapsed branch moves up to the branch.
  if (!expand && mImpl->caret != 0 && nodes.IsAncestor(slot, mImpl->caret))
    Select(item, TVGN_CARET);
  if (!expand && (code & TVE_COLLAPSERESET) != 0) {
    // (A delete refused inside another delete's notification leaves them.)
    while (nodes[slot].firstChild != 0)
      if (DeleteItem(nodes.Handle(nodes[slot].firstChild)) == 0) break;
    nodes[slot].state &= ~TVIS_EXPANDEDONCE;
  }
  ++mImpl->layoutVersion;
  if (tell) {
    NMTREEVIEWW expanded;
    expanded.action = action;
    expanded.itemNew = DescribeItem(nodes, slot);
    SendNotify(this, TVN_ITEMEXPANDEDW, expanded.hdr);
  }
  Invalidate();
  return 1;
}

// ---- sorting ----

namespace {

// Links the children of `parent` in the order of `slots`, which holds each
// of them once.
void Relink(TreeNodeStore & nodes, uint32_t parent, std::vector<uint32_t> const & slots) {
  uint32_t prev = 0;
  for (uint32_t const child : slots) {
    nodes[child].prev = prev;
    if (prev != 0)
      nodes[prev].next = child;
    else
      nodes[parent].firstChild = child;
    prev = child;
  }
  if (prev != 0) {
    nodes[prev].next = 0;
    nodes[parent].lastChild = prev;
  }
}

// A child and what it is sorted by, side by side: the comparisons then
// read no node.
template <class Key>
struct SortEntry {
  Key key;
  uint32_t slot;
};

// Relinks the children of `parent` in the order of `compare` over their
// keys (stable). An application's comparison need not be consistent: the
// merge stays in its range whatever it answers.
template <class Key, class KeyOf, class Compare>
void SortSiblings(TreeNodeStore & nodes, uint32_t parent, KeyOf keyOf, Compare compare) {
  std::vector<SortEntry<Key>> order;
  for (uint32_t child = nodes[parent].firstChild; child != 0; child = nodes[child].next)
    order.push_back(SortEntry<Key>{keyOf(child), child});
  MergeSortBy(order, [&compare](SortEntry<Key> const & a, SortEntry<Key> const & b) {
    return compare(a.key, b.key);
  });
  std::vector<uint32_t> slots;
  slots.reserve(order.size());
  for (auto const & entry : order) slots.push_back(entry.slot);
  Relink(nodes, parent, slots);
}

}  // namespace

BOOL CTreeCtrl::SortChildren(HTREEITEM item) {
  TreeNodeStore & nodes = mImpl->nodes;
  uint32_t const parent = item == TVI_ROOT || !item ? 0 : nodes.Slot(item);
  if (parent == 0 && item != TVI_ROOT && item) return 0;
  // The shown texts, asked once each (callback items ask their parent).
  SortSiblings<wxString>(
      nodes, parent, [this](uint32_t child) { return ShownText(*this, *mImpl, child); },
      [](wxString const & a, wxString const & b) { return a.CmpNoCase(b); });
  ++mImpl->layoutVersion;
  Invalidate();
  return 1;
}

BOOL CTreeCtrl::SetChildOrder(HTREEITEM item, std::vector<HTREEITEM> const & order) {
  TreeNodeStore & nodes = mImpl->nodes;
  uint32_t const parent = item == TVI_ROOT || !item ? 0 : nodes.Slot(item);
  if (parent == 0 && item != TVI_ROOT) return 0;
  std::vector<uint32_t> slots;
  slots.reserve(order.size());
  for (HTREEITEM const child : order) {
    uint32_t const slot = nodes.Slot(child);
    if (slot == 0 || nodes[slot].parent != parent) return 0;
    slots.push_back(slot);
  }
  std::vector<uint32_t> sorted = slots;
  std::sort(sorted.begin(), sorted.end());
  std::size_t count = 0;
  for (uint32_t child = nodes[parent].firstChild; child != 0; child = nodes[child].next) ++count;
  if (count != slots.size() || std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end())
    return 0;
  Relink(nodes, parent, slots);
  ++mImpl->layoutVersion;
  Invalidate();
  return 1;
}

BOOL CTreeCtrl::SortChildrenCB(TVSORTCB const * sort) {
  if (sort == nullptr || sort->lpfnCompare == nullptr) return 0;
  TreeNodeStore & nodes = mImpl->nodes;
  uint32_t const parent =
      sort->hParent == TVI_ROOT || !sort->hParent ? 0 : nodes.Slot(sort->hParent);
  if (parent == 0 && sort->hParent != TVI_ROOT && sort->hParent) return 0;
  SortSiblings<LPARAM>(
      nodes, parent, [&nodes](uint32_t child) { return nodes[child].data; },
      [sort](LPARAM a, LPARAM b) { return sort->lpfnCompare(a, b, sort->lParam); });
  ++mImpl->layoutVersion;
  Invalidate();
  return 1;
}
