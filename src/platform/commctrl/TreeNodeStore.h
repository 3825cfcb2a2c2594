#pragma once
// The node model of CTreeCtrl: a store of slots, each linked to its parent,
// first and last child and next and previous sibling by slot number. Slot 0
// is the invisible root whose children are the tree's root items. A freed
// slot's generation moves on, so an item handle of the deleted node stops
// matching. Every walk here is a loop.

#include <wx/string.h>

#include <cstdint>
#include <vector>

#include "platform/commctrl/TreeViewTypes.h"

struct TreeNode {
  uint32_t parent = 0;
  uint32_t firstChild = 0;
  uint32_t lastChild = 0;
  uint32_t next = 0;
  uint32_t prev = 0;
  uint32_t generation = 1;
  bool alive = false;
  // TVIF_CHILDREN: -2 follows the real children, else 0, 1 or I_CHILDRENCALLBACK.
  int8_t children = -2;
  bool textCallback = false;  // LPSTR_TEXTCALLBACKW
  UINT state = 0;
  int image = 0;
  int selectedImage = 0;
  LPARAM data = 0;
  // The label's width in the control's font, -1 until measured; cleared
  // when the text, boldness or font changes (measuring is what painting
  // spends most on).
  int textWidth = -1;
  wxString text;
};

class TreeNodeStore {
public:
  TreeNodeStore();

  // The slot of a handle, or 0 when it names no live node.
  uint32_t Slot(HTREEITEM item) const {
    if (item.slot == 0 || item.slot >= mNodes.size()) return 0;
    TreeNode const & node = mNodes[item.slot];
    return node.alive && node.generation == item.generation ? item.slot : 0;
  }
  HTREEITEM Handle(uint32_t slot) const {
    return slot == 0 ? HTREEITEM{} : HTREEITEM{slot, mNodes[slot].generation};
  }
  TreeNode & operator[](uint32_t slot) { return mNodes[slot]; }
  TreeNode const & operator[](uint32_t slot) const { return mNodes[slot]; }
  uint32_t Count() const { return mCount; }

  // A new node linked under `parent` (0: the root) after `after` (a child
  // slot of parent, 0 for the first place); returns its slot.
  uint32_t Insert(uint32_t parent, uint32_t after);
  // Unlinks the node from its parent and siblings (its branch stays on it).
  void Unlink(uint32_t slot);
  // Links an unlinked node under `parent` after `after` (0: first).
  void Link(uint32_t slot, uint32_t parent, uint32_t after);
  // Frees one node that has no children left; its handles go stale.
  void Free(uint32_t slot);
  void Clear();
  void ForgetTextWidths();

  // Walking in display order over every node, expanded or not: first child,
  // else next sibling, else the nearest ancestor's next sibling.
  uint32_t NextInOrder(uint32_t slot) const {
    TreeNode const & node = mNodes[slot];
    if (node.firstChild != 0) return node.firstChild;
    return NextSkippingChildren(slot, 0);
  }
  // The next node after the branch of `slot`, not leaving `stop`'s branch.
  uint32_t NextSkippingChildren(uint32_t slot, uint32_t stop) const {
    while (slot != 0 && slot != stop) {
      if (mNodes[slot].next != 0) return mNodes[slot].next;
      slot = mNodes[slot].parent;
    }
    return 0;
  }
  bool IsExpanded(uint32_t slot) const { return (mNodes[slot].state & TVIS_EXPANDED) != 0; }
  // Display order over the shown rows only (children of expanded nodes).
  uint32_t NextVisible(uint32_t slot) const {
    TreeNode const & node = mNodes[slot];
    if (node.firstChild != 0 && IsExpanded(slot)) return node.firstChild;
    return NextSkippingChildren(slot, 0);
  }
  uint32_t PrevVisible(uint32_t slot) const;
  // The last shown row of the node's branch.
  uint32_t LastVisibleOf(uint32_t slot) const;
  // True when every ancestor is expanded.
  bool IsShown(uint32_t slot) const;
  int Depth(uint32_t slot) const;
  bool IsAncestor(uint32_t ancestor, uint32_t slot) const;

private:
  std::vector<TreeNode> mNodes;
  std::vector<uint32_t> mFree;
  uint32_t mCount = 0;
};
