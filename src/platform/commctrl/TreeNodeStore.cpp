#include "platform/commctrl/TreeNodeStore.h"

TreeNodeStore::TreeNodeStore() {
  mNodes.resize(1);
  mNodes[0].alive = true;
  mNodes[0].state = TVIS_EXPANDED;  // the roots are always shown
}

uint32_t TreeNodeStore::Insert(uint32_t parent, uint32_t after) {
  uint32_t slot = 0;
  if (!mFree.empty()) {
    slot = mFree.back();
    mFree.pop_back();
  } else {
    slot = static_cast<uint32_t>(mNodes.size());
    mNodes.emplace_back();
  }
  TreeNode & node = mNodes[slot];
  node.alive = true;
  ++mCount;
  Link(slot, parent, after);
  return slot;
}

void TreeNodeStore::Link(uint32_t slot, uint32_t parent, uint32_t after) {
  TreeNode & node = mNodes[slot];
  TreeNode & up = mNodes[parent];
  node.parent = parent;
  node.prev = after;
  node.next = after == 0 ? up.firstChild : mNodes[after].next;
  if (node.prev != 0)
    mNodes[node.prev].next = slot;
  else
    up.firstChild = slot;
  if (node.next != 0)
    mNodes[node.next].prev = slot;
  else
    up.lastChild = slot;
}

void TreeNodeStore::Unlink(uint32_t slot) {
  TreeNode & node = mNodes[slot];
  TreeNode & up = mNodes[node.parent];
  if (node.prev != 0)
    mNodes[node.prev].next = node.next;
  else
    up.firstChild = node.next;
  if (node.next != 0)
    mNodes[node.next].prev = node.prev;
  else
    up.lastChild = node.prev;
  node.parent = node.next = node.prev = 0;
}

void TreeNodeStore::Free(uint32_t slot) {
  TreeNode & node = mNodes[slot];
  uint32_t const generation = node.generation + 1;
  node = TreeNode();
  node.generation = generation == 0 ? 1 : generation;
  mFree.push_back(slot);
  --mCount;
}

void TreeNodeStore::Clear() {
  mNodes.resize(1);
  mNodes[0].firstChild = mNodes[0].lastChild = 0;
  mFree.clear();
  mCount = 0;
}

uint32_t TreeNodeStore::PrevVisible(uint32_t slot) const {
  TreeNode const & node = mNodes[slot];
  if (node.prev != 0) return LastVisibleOf(node.prev);
  return node.parent;
}

uint32_t TreeNodeStore::LastVisibleOf(uint32_t slot) const {
  while (IsExpanded(slot) && mNodes[slot].lastChild != 0) slot = mNodes[slot].lastChild;
  return slot;
}

bool TreeNodeStore::IsShown(uint32_t slot) const {
  for (uint32_t up = mNodes[slot].parent; up != 0; up = mNodes[up].parent)
    if (!IsExpanded(up)) return false;
  return true;
}

int TreeNodeStore::Depth(uint32_t slot) const {
  int depth = 0;
  for (uint32_t up = mNodes[slot].parent; up != 0; up = mNodes[up].parent) ++depth;
  return depth;
}

bool TreeNodeStore::IsAncestor(uint32_t ancestor, uint32_t slot) const {
  for (uint32_t up = mNodes[slot].parent; up != 0; up = mNodes[up].parent)
    if (up == ancestor) return true;
  return false;
}

void TreeNodeStore::ForgetTextWidths() {
  for (TreeNode & node : mNodes) node.textWidth = -1;
}
