// The tree's items: where inserts go, the walks, stale handles, deletion
// order, sorting, and chains far deeper than any stack.

#include <gtest/gtest.h>
#include <wx/dcmemory.h>

#include <cwchar>

#include "TreeCtrlTestSupport.h"

namespace {

using Texts = std::vector<wxString>;

TEST_F(TreeFixture, InsertPlacesFollowTheirCodes) {
  HTREEITEM const root = tree->InsertItem("root");
  HTREEITEM const m = tree->InsertItem("m", root);
  tree->InsertItem("z", root, TVI_LAST);
  tree->InsertItem("a", root, TVI_FIRST);
  tree->InsertItem("n", root, m);         // after a given sibling
  tree->InsertItem("B", root, TVI_SORT);  // case-blind place among sorted ones
  tree->InsertItem("b", root, TVI_SORT);  // equal texts: after the present one
  HTREEITEM const other = tree->InsertItem("other");
  tree->InsertItem("y", root, tree->InsertItem("child of other", other));  // not a sibling: last
  EXPECT_EQ(Children(root), (Texts{"a", "B", "b", "m", "n", "z", "y"}));
  EXPECT_EQ(Children(TVI_ROOT), (Texts{"root", "other"}));
  EXPECT_EQ(tree->GetCount(), 10u);
}

TEST_F(TreeFixture, WalksByCode) {
  HTREEITEM const a = tree->InsertItem("a");
  HTREEITEM const a1 = tree->InsertItem("a1", a);
  HTREEITEM const a11 = tree->InsertItem("a11", a1);
  HTREEITEM const a2 = tree->InsertItem("a2", a);
  HTREEITEM const b = tree->InsertItem("b");

  struct Step {
    HTREEITEM from;
    UINT code;
    HTREEITEM expected;
  };
  // Collapsed: the visible walk sees the roots only.
  for (Step const & step :
       std::vector<Step>{{a, TVGN_NEXT, b},
                         {b, TVGN_PREVIOUS, a},
                         {a1, TVGN_PARENT, a},
                         {a, TVGN_PARENT, {}},
                         {a, TVGN_CHILD, a1},
                         {{}, TVGN_ROOT, a},
                         {a, TVGN_NEXTVISIBLE, b},
                         {b, TVGN_PREVIOUSVISIBLE, a},
                         {a1, TVGN_NEXTVISIBLE, {}},  // hidden rows have no neighbours
                         {{}, TVGN_LASTVISIBLE, b}})
    EXPECT_EQ(tree->GetNextItem(step.from, step.code), step.expected)
        << tree->GetItemText(step.from) << " code " << step.code;

  tree->Expand(a, TVE_EXPAND);
  tree->Expand(a1, TVE_EXPAND);
  std::vector<HTREEITEM> shown;
  for (HTREEITEM item = tree->GetRootItem(); item; item = tree->GetNextVisibleItem(item))
    shown.push_back(item);
  EXPECT_EQ(shown, (std::vector<HTREEITEM>{a, a1, a11, a2, b}));
  std::vector<HTREEITEM> back;
  for (HTREEITEM item = tree->GetLastVisibleItem(); item; item = tree->GetPrevVisibleItem(item))
    back.push_back(item);
  EXPECT_EQ(back, (std::vector<HTREEITEM>{b, a2, a11, a1, a}));
}

TEST_F(TreeFixture, ADeletedItemsHandleActsAsNullEvenWhenItsSlotIsReused) {
  HTREEITEM const keep = tree->InsertItem("keep");
  HTREEITEM const gone = tree->InsertItem("gone", keep);
  tree->SetItemData(gone, 0x1122334455667788ULL);  // 64-bit data
  EXPECT_EQ(tree->GetItemData(gone), 0x1122334455667788ULL);
  ASSERT_TRUE(tree->DeleteItem(gone));
  HTREEITEM const reused = tree->InsertItem("new", keep);
  EXPECT_EQ(reused.slot, gone.slot);  // the store reuses the slot...
  EXPECT_NE(reused, gone);            // ...under a new generation

  EXPECT_FALSE(tree->IsValidItem(gone));
  EXPECT_EQ(tree->GetItemText(gone), "");
  EXPECT_EQ(tree->GetItemData(gone), 0u);
  EXPECT_FALSE(tree->SetItemText(gone, "x"));
  EXPECT_FALSE(tree->SetItemState(gone, TVIS_BOLD, TVIS_BOLD));
  EXPECT_FALSE(tree->DeleteItem(gone));
  EXPECT_FALSE(tree->Expand(gone, TVE_EXPAND));
  EXPECT_FALSE(tree->EnsureVisible(gone));
  EXPECT_FALSE(tree->GetNextItem(gone, TVGN_PARENT));
  EXPECT_FALSE(tree->InsertItem("under stale", gone));
  RECT rect{};
  EXPECT_FALSE(tree->GetItemRect(gone, &rect, 0));
  EXPECT_EQ(tree->GetItemText(reused), "new");
  EXPECT_EQ(tree->GetCount(), 2u);
}

TEST_F(TreeFixture, DeletingABranchTellsEachItemChildrenFirstAndMovesTheCaretOut) {
  HTREEITEM const a = tree->InsertItem("a");
  HTREEITEM const a1 = tree->InsertItem("a1", a);
  HTREEITEM const a11 = tree->InsertItem("a11", a1);
  HTREEITEM const a2 = tree->InsertItem("a2", a);
  HTREEITEM const b = tree->InsertItem("b");
  tree->SelectItem(a11);
  notified.clear();
  ASSERT_TRUE(tree->DeleteItem(a));
  std::vector<HTREEITEM> deleted;
  for (auto const & seen : Of(TVN_DELETEITEM)) deleted.push_back(seen.oldItem);
  EXPECT_EQ(deleted, (std::vector<HTREEITEM>{a11, a1, a2, a}));
  EXPECT_EQ(tree->GetSelectedItem(), b);  // the next sibling of the deleted branch
  EXPECT_EQ(tree->GetCount(), 1u);
  EXPECT_EQ(tree->GetRootItem(), b);

  tree->DeleteAllItems();
  EXPECT_EQ(tree->GetCount(), 0u);
  EXPECT_FALSE(tree->GetSelectedItem());
  EXPECT_FALSE(tree->GetRootItem());
}

TEST_F(TreeFixture, StatesKeepTheirBitsAndTheCheckBoxIsStateImageTwo) {
  tree->ModifyStyle(0, TVS_CHECKBOXES);
  HTREEITEM const item = tree->InsertItem("item");
  EXPECT_EQ(tree->GetItemState(item, TVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(1));  // a new box
  EXPECT_FALSE(tree->GetCheck(item));
  tree->SetCheck(item, 1);
  EXPECT_TRUE(tree->GetCheck(item));
  tree->SetItemState(item, INDEXTOSTATEIMAGEMASK(5) | TVIS_BOLD, TVIS_STATEIMAGEMASK | TVIS_BOLD);
  EXPECT_EQ(tree->GetItemState(item, 0xFFFF), INDEXTOSTATEIMAGEMASK(5) | TVIS_BOLD);
  tree->SetItemState(item, 0, TVIS_BOLD);  // only the masked bits change
  EXPECT_EQ(tree->GetItemState(item, 0xFFFF), INDEXTOSTATEIMAGEMASK(5));

  // An explicit state image on insert wins over the new box.
  HTREEITEM const none = tree->InsertItem(TVIF_TEXT | TVIF_STATE, "none", 0, 0, 0,
                                          TVIS_STATEIMAGEMASK, 0, TVI_ROOT, TVI_LAST);
  EXPECT_EQ(tree->GetItemState(none, TVIS_STATEIMAGEMASK), 0u);

  wchar_t buffer[4];
  TVITEMW fields;
  fields.mask = TVIF_TEXT | TVIF_CHILDREN;
  fields.hItem = item;
  fields.pszText = buffer;
  fields.cchTextMax = 4;  // "item" does not fit: cut, terminated
  ASSERT_TRUE(tree->GetItem(&fields));
  EXPECT_EQ(std::wstring(buffer), L"ite");
  EXPECT_EQ(fields.cChildren, 0);
  fields.mask = TVIF_CHILDREN;
  fields.cChildren = 1;  // a button without children, to be filled on expanding
  tree->SetItem(&fields);
  EXPECT_TRUE(tree->ItemHasChildren(item));
}

int CompareData(LPARAM a, LPARAM b, LPARAM direction) {
  return static_cast<int>((a - b) * direction);
}

TEST_F(TreeFixture, SortingIsStableAndCallbacksSeeTheData) {
  for (auto const * text : {"b", "B", "a", "c", "A"}) tree->InsertItem(text);
  tree->SortChildren(TVI_ROOT);
  EXPECT_EQ(Children(TVI_ROOT), (Texts{"a", "A", "b", "B", "c"}));

  HTREEITEM const parent = tree->InsertItem("parent");
  int data = 0;
  for (auto const * text : {"one", "two", "three", "four"}) {
    HTREEITEM const child = tree->InsertItem(text, parent);
    tree->SetItemData(child, static_cast<DWORD_PTR>(data++ % 2));
  }
  TVSORTCB sort;
  sort.hParent = parent;
  sort.lpfnCompare = CompareData;
  sort.lParam = -1;  // descending
  ASSERT_TRUE(tree->SortChildrenCB(&sort));
  EXPECT_EQ(Children(parent), (Texts{"two", "four", "one", "three"}));
  // The links both ways agree after the sort.
  EXPECT_EQ(tree->GetPrevSiblingItem(tree->GetNextSiblingItem(tree->GetChildItem(parent))),
            tree->GetChildItem(parent));
}

TEST_F(TreeFixture, AChainOfAHundredThousandLevelsWalksShowsAndDeletesWithoutRecursion) {
  constexpr int levels = 100000;
  HTREEITEM const top = tree->InsertItem("level 0");
  HTREEITEM deepest = top;
  for (int level = 1; level < levels; ++level) deepest = tree->InsertItem("deep", deepest);
  int walked = 0;
  for (HTREEITEM item = top; item; item = tree->GetNextItem(item, TVGN_CHILD)) ++walked;
  EXPECT_EQ(walked, levels);

  // Showing the deepest item opens every level and scrolls to it.
  ASSERT_TRUE(tree->SelectItem(deepest));
  EXPECT_EQ(tree->GetLastVisibleItem(), deepest);
  RECT rect{};
  ASSERT_TRUE(tree->GetItemRect(deepest, &rect, 0));
  EXPECT_GE(rect.top, 0);
  EXPECT_LE(rect.bottom, tree->GetClientSize().GetHeight());
  tree->Update();  // a paint with the deepest row on screen
  tree->OnKeyDown(VK_MULTIPLY, 1, 0);
  tree->OnKeyDown(VK_HOME, 1, 0);
  EXPECT_EQ(tree->GetSelectedItem(), top);

  ASSERT_TRUE(tree->DeleteItem(top));
  EXPECT_EQ(tree->GetCount(), 0u);
  EXPECT_FALSE(tree->IsValidItem(deepest));
}

}  // namespace

namespace {

TEST_F(TreeFixture, CallbackFieldsAreAskedOfTheParentUntilItKeepsThem) {
  std::map<HTREEITEM, wxString> names;
  int asked = 0;
  parent->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    if (event.GetCode() != TVN_GETDISPINFO) {
      event.Skip();
      return;
    }
    ++asked;
    auto * info = event.GetNotification<NMTVDISPINFOW>();
    if ((info->item.mask & TVIF_TEXT) != 0) {
      wxString const name = names[info->item.hItem];
      wcsncpy(info->item.pszText, name.wc_str(), static_cast<size_t>(info->item.cchTextMax));
      if (name == "keep me") info->item.mask |= TVIF_DI_SETITEM;
    }
    if ((info->item.mask & TVIF_CHILDREN) != 0) info->item.cChildren = 1;
  });
  TVINSERTSTRUCTW insert;
  insert.item.mask = TVIF_TEXT | TVIF_CHILDREN;
  insert.item.pszText = LPSTR_TEXTCALLBACKW;
  insert.item.cChildren = I_CHILDRENCALLBACK;
  HTREEITEM const asking = tree->InsertItem(&insert);
  HTREEITEM const kept = tree->InsertItem(&insert);
  names[asking] = "zulu";
  names[kept] = "keep me";

  EXPECT_EQ(tree->GetItemText(asking), "zulu");
  names[asking] = "alpha";  // asked again, so a change shows
  EXPECT_EQ(tree->GetItemText(asking), "alpha");
  EXPECT_EQ(tree->GetItemText(kept), "keep me");
  int const before = asked;
  EXPECT_EQ(tree->GetItemText(kept), "keep me");  // kept: not asked again
  EXPECT_EQ(asked, before);

  // Sorting and type-ahead go by the shown text.
  tree->SortChildren(TVI_ROOT);
  EXPECT_EQ(tree->GetRootItem(), asking);
  tree->OnChar('k', 1, 0);
  EXPECT_EQ(tree->GetSelectedItem(), kept);

  // The label's rectangle is as wide as the asked text; painting asks too.
  RECT narrow{};
  tree->GetItemRect(asking, &narrow, 1);
  names[asking] = "a much longer name than before";
  RECT wide{};
  tree->GetItemRect(asking, &wide, 1);
  EXPECT_GT(wide.right - wide.left, narrow.right - narrow.left);
  EXPECT_TRUE(tree->ItemHasChildren(asking));
  asked = 0;
  wxBitmap bitmap(tree->GetClientSize());
  wxMemoryDC dc(bitmap);
  tree->PaintTo(dc, wxRect(tree->GetClientSize()));
  EXPECT_GT(asked, 0);
  tree->Destroy();  // the handler above sees this test's locals: no later paint may reach it
}

}  // namespace

namespace {

TEST_F(TreeFixture, HandlersThatChangeTheTreeUnderItsOwnWalksBreakNothing) {
  HTREEITEM const doomed = tree->InsertItem("doomed");
  HTREEITEM const child = tree->InsertItem("child", doomed);
  HTREEITEM const neighbour = tree->InsertItem("neighbour");
  tree->InsertItem("kept child", neighbour);
  tree->Expand(neighbour, TVE_EXPAND);
  // Told of a deletion, the owner tries to delete and insert more: refused
  // while the delete walks its branch.
  bool refused = false;
  parent->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    event.Skip();
    if (event.GetCode() != TVN_DELETEITEM) return;
    refused = !tree->DeleteItem(neighbour) && !tree->InsertItem("late", neighbour) &&
              !tree->DeleteAllItems();
    // Its children cannot go now either (nor may this hang).
    tree->Expand(neighbour, TVE_COLLAPSE | TVE_COLLAPSERESET);
  });
  ASSERT_TRUE(tree->DeleteItem(doomed));
  EXPECT_TRUE(refused);
  EXPECT_FALSE(tree->IsValidItem(child));
  EXPECT_TRUE(tree->IsValidItem(neighbour));
  EXPECT_EQ(tree->GetCount(), 2u);  // the neighbour and its child
  tree->DeleteItem(tree->GetChildItem(neighbour));

  // A custom-draw owner that deletes the row being drawn and inserts many
  // more (the node store grows and moves) ends that paint; the next one
  // shows the new rows.
  for (int i = 0; i < 5; ++i) tree->InsertItem(wxString::Format("row %d", i));
  int changes = 0;
  customDraw = [&](NMTVCUSTOMDRAW & draw) -> LRESULT {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (changes++ == 0) {
      tree->DeleteItem(HandleFromItemSpec(draw.nmcd.dwItemSpec));
      for (int i = 0; i < 5000; ++i) tree->InsertItem("added");
    }
    return CDRF_DODEFAULT;
  };
  wxBitmap bitmap(tree->GetClientSize());
  wxMemoryDC dc(bitmap);
  tree->PaintTo(dc, wxRect(tree->GetClientSize()));
  EXPECT_EQ(changes, 1);  // no row after the change was drawn from old links
  tree->PaintTo(dc, wxRect(tree->GetClientSize()));
  EXPECT_GT(changes, 2);
  EXPECT_EQ(tree->GetCount(), 5005u);
  customDraw = nullptr;
  tree->Destroy();  // the handler above sees this test's locals
}

}  // namespace
