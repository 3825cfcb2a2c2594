// The tree's node store against a plain model of nested lists: thousands of
// random inserts, moves and deletes must leave every link (parent, first and
// last child, both siblings) agreeing with the model, and a freed slot's old
// handle must stop matching. Runs without a display (and under the
// sanitizers).

#include "platform/commctrl/TreeNodeStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

namespace {

// The model: children of each slot in order (0 is the root).
using Model = std::map<uint32_t, std::vector<uint32_t>>;

void ExpectAgrees(TreeNodeStore const & store, Model const & model) {
  size_t total = 0;
  for (auto const & [parent, children] : model) {
    std::vector<uint32_t> linked;
    uint32_t previous = 0;
    for (uint32_t child = store[parent].firstChild; child != 0; child = store[child].next) {
      EXPECT_EQ(store[child].parent, parent);
      EXPECT_EQ(store[child].prev, previous);
      previous = child;
      linked.push_back(child);
      ASSERT_LE(linked.size(), children.size() + 1) << "a cycle under " << parent;
    }
    EXPECT_EQ(store[parent].lastChild, previous);
    EXPECT_EQ(linked, children) << "children of " << parent;
    if (parent != 0) ++total;
  }
  EXPECT_EQ(store.Count(), total);
}

// Every slot in the branch of `slot`, children before parents.
void Branch(Model const & model, uint32_t slot, std::vector<uint32_t> & out) {
  std::vector<std::pair<uint32_t, size_t>> stack{{slot, 0}};
  while (!stack.empty()) {
    auto & [at, next] = stack.back();
    auto const & children = model.at(at);
    if (next < children.size()) {
      uint32_t const child = children[next++];
      stack.emplace_back(child, 0);
    } else {
      out.push_back(at);
      stack.pop_back();
    }
  }
}

TEST(TreeNodeStore, RandomEditsKeepEveryLinkAndRetireFreedHandles) {
  TreeNodeStore store;
  Model model{{0, {}}};
  std::vector<uint32_t> live;
  std::vector<HTREEITEM> retired;
  std::mt19937 random(20261124);
  auto pick = [&](std::vector<uint32_t> const & from) {
    return from[std::uniform_int_distribution<size_t>(0, from.size() - 1)(random)];
  };
  for (int step = 0; step < 6000; ++step) {
    int const action = std::uniform_int_distribution<int>(0, 9)(random);
    if (action < 6 || live.empty()) {  // insert somewhere
      uint32_t const parent = live.empty() || action == 0 ? 0 : pick(live);
      auto & siblings = model[parent];
      size_t const place = std::uniform_int_distribution<size_t>(0, siblings.size())(random);
      uint32_t const after = place == 0 ? 0 : siblings[place - 1];
      uint32_t const slot = store.Insert(parent, after);
      siblings.insert(siblings.begin() + static_cast<long>(place), slot);
      model[slot] = {};
      live.push_back(slot);
    } else if (action < 8) {  // move a node (with its branch) to the front of the root
      uint32_t const slot = pick(live);
      auto & from = model[store[slot].parent];
      from.erase(std::find(from.begin(), from.end(), slot));
      store.Unlink(slot);
      store.Link(slot, 0, 0);
      model[0].insert(model[0].begin(), slot);
    } else {  // delete a branch, leaves first
      uint32_t const slot = pick(live);
      std::vector<uint32_t> branch;
      Branch(model, slot, branch);
      auto & from = model[store[slot].parent];
      from.erase(std::find(from.begin(), from.end(), slot));
      for (uint32_t const gone : branch) {
        retired.push_back(store.Handle(gone));
        store.Unlink(gone);
        store.Free(gone);
        model.erase(gone);
        live.erase(std::find(live.begin(), live.end(), gone));
      }
    }
    if (step % 500 == 0) ExpectAgrees(store, model);
  }
  ExpectAgrees(store, model);
  for (HTREEITEM const handle : retired) EXPECT_EQ(store.Slot(handle), 0u);
  for (uint32_t const slot : live) EXPECT_EQ(store.Slot(store.Handle(slot)), slot);
}

TEST(TreeNodeStore, VisibleWalksFollowExpansionOnly) {
  TreeNodeStore store;
  uint32_t const a = store.Insert(0, 0);
  uint32_t const a1 = store.Insert(a, 0);
  uint32_t const a1x = store.Insert(a1, 0);
  uint32_t const b = store.Insert(0, a);
  EXPECT_EQ(store.NextVisible(a), b);
  EXPECT_EQ(store.NextInOrder(a), a1);
  EXPECT_EQ(store.NextInOrder(a1x), b);
  EXPECT_FALSE(store.IsShown(a1));
  store[a].state |= TVIS_EXPANDED;
  store[a1].state |= TVIS_EXPANDED;
  EXPECT_EQ(store.NextVisible(a), a1);
  EXPECT_EQ(store.PrevVisible(b), a1x);
  EXPECT_EQ(store.LastVisibleOf(a), a1x);
  EXPECT_EQ(store.Depth(a1x), 2);
  EXPECT_TRUE(store.IsAncestor(a, a1x));
  EXPECT_FALSE(store.IsAncestor(a1x, a));
  EXPECT_EQ(store.NextSkippingChildren(a1x, a1), 0u);  // not out of a1's branch
}

}  // namespace
