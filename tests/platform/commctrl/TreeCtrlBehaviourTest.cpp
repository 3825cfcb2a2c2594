// The tree's default handling: selection and expansion with their
// notifications and vetoes, keys, type-ahead, hit tests, check boxes and
// label editing.

#include <gtest/gtest.h>
#include <wx/textctrl.h>

#include "../../harness/GuiTestUtilities.h"
#include "TreeCtrlTestSupport.h"

namespace {

class TreeBehaviour : public TreeFixture {
protected:
  void SetUp() override {
    TreeFixture::SetUp();
    alpha = tree->InsertItem("alpha");
    alpha1 = tree->InsertItem("alpha one", alpha);
    alpha2 = tree->InsertItem("alpha two", alpha);
    bravo = tree->InsertItem("bravo");
    bravo1 = tree->InsertItem("bravo one", bravo);
    beta = tree->InsertItem("beta");
    charlie = tree->InsertItem("charlie");
  }
  HTREEITEM alpha, alpha1, alpha2, bravo, bravo1, beta, charlie;
};

TEST_F(TreeBehaviour, SelectionTellsBeforeAndAfterAndAVetoKeepsTheCaret) {
  tree->SelectItem(alpha);
  notified.clear();
  answers[TVN_SELCHANGING] = 1;
  EXPECT_FALSE(tree->SelectItem(bravo));
  EXPECT_EQ(tree->GetSelectedItem(), alpha);
  EXPECT_EQ(Codes(), (std::vector<UINT>{TVN_SELCHANGING}));

  answers.clear();
  notified.clear();
  EXPECT_TRUE(tree->SelectItem(bravo));
  ASSERT_EQ(Codes(), (std::vector<UINT>{TVN_SELCHANGING, TVN_SELCHANGED}));
  EXPECT_EQ(notified[1].oldItem, alpha);
  EXPECT_EQ(notified[1].newItem, bravo);
  EXPECT_EQ(notified[1].action, TVC_UNKNOWN);
  EXPECT_EQ(tree->GetItemState(alpha, TVIS_SELECTED), 0u);
  EXPECT_EQ(tree->GetItemState(bravo, TVIS_SELECTED), TVIS_SELECTED);

  // Selecting a hidden item opens its branch.
  tree->SelectItem(alpha2);
  EXPECT_TRUE(tree->GetItemState(alpha, TVIS_EXPANDED));
  // Collapsing the branch brings the caret up to it.
  tree->Expand(alpha, TVE_COLLAPSE);
  EXPECT_EQ(tree->GetSelectedItem(), alpha);
}

TEST_F(TreeBehaviour, SingleExpandOpensTheUsersChoiceAndClosesTheOneLeft) {
  tree->ModifyStyle(0, TVS_SINGLEEXPAND);
  tree->SelectItem(alpha);  // from code: nothing opens
  EXPECT_EQ(tree->GetItemState(alpha, TVIS_EXPANDED), 0u);
  tree->dragAnswer = 0;
  tree->OnLButtonDown(MK_LBUTTON, LabelPoint(alpha));  // already the caret: no change, no opening
  EXPECT_EQ(tree->GetItemState(alpha, TVIS_EXPANDED), 0u);
  tree->SelectItem({});
  tree->OnLButtonDown(MK_LBUTTON, LabelPoint(alpha));
  EXPECT_TRUE(tree->GetItemState(alpha, TVIS_EXPANDED));
  tree->OnKeyDown(VK_DOWN, 1, 0);  // into alpha: it stays open
  EXPECT_EQ(tree->GetSelectedItem(), alpha1);
  EXPECT_TRUE(tree->GetItemState(alpha, TVIS_EXPANDED));
  tree->SelectItem(alpha);
  notified.clear();
  tree->OnLButtonDown(MK_LBUTTON, LabelPoint(bravo));
  EXPECT_EQ(tree->GetItemState(alpha, TVIS_EXPANDED), 0u);
  EXPECT_TRUE(tree->GetItemState(bravo, TVIS_EXPANDED));
  ASSERT_EQ(Of(TVN_SINGLEEXPAND).size(), 1u);
  EXPECT_EQ(Of(TVN_SINGLEEXPAND)[0].oldItem, alpha);
  EXPECT_EQ(Of(TVN_SINGLEEXPAND)[0].newItem, bravo);

  // The parent keeps both as they are.
  answers[TVN_SINGLEEXPAND] = TVNRET_SKIPOLD | TVNRET_SKIPNEW;
  tree->Expand(alpha, TVE_EXPAND);
  tree->OnLButtonDown(MK_LBUTTON, LabelPoint(alpha));
  EXPECT_TRUE(tree->GetItemState(bravo, TVIS_EXPANDED));
  EXPECT_TRUE(tree->GetItemState(alpha, TVIS_EXPANDED));
}

TEST_F(TreeBehaviour, ExpandingTellsOnceFromCodeAlwaysFromTheUserAndCanBeRefused) {
  answers[TVN_ITEMEXPANDING] = 1;
  EXPECT_FALSE(tree->Expand(alpha, TVE_EXPAND));
  EXPECT_EQ(tree->GetItemState(alpha, TVIS_EXPANDED), 0u);
  answers.clear();

  notified.clear();
  EXPECT_TRUE(tree->Expand(alpha, TVE_EXPAND));
  EXPECT_TRUE(tree->Expand(alpha, TVE_COLLAPSE));
  EXPECT_TRUE(tree->Expand(alpha, TVE_TOGGLE));
  // Only the first expansion from code is told; then TVIS_EXPANDEDONCE holds.
  EXPECT_EQ(Codes(), (std::vector<UINT>{TVN_ITEMEXPANDING, TVN_ITEMEXPANDED}));
  EXPECT_EQ(notified[0].action, TVE_EXPAND);
  EXPECT_TRUE(tree->GetItemState(alpha, TVIS_EXPANDEDONCE));

  EXPECT_FALSE(tree->Expand(charlie, TVE_EXPAND));  // no children, no button

  tree->SelectItem(alpha);
  notified.clear();
  tree->OnKeyDown(VK_SUBTRACT, 1, 0);  // the user is always told
  ASSERT_EQ(Of(TVN_ITEMEXPANDED).size(), 1u);
  EXPECT_EQ(Of(TVN_ITEMEXPANDED)[0].action, TVE_COLLAPSE);

  // Collapse-reset drops the children and forgets the first expansion.
  tree->Expand(bravo, TVE_EXPAND);
  EXPECT_TRUE(tree->Expand(bravo, TVE_COLLAPSE | TVE_COLLAPSERESET));
  EXPECT_FALSE(tree->IsValidItem(bravo1));
  EXPECT_EQ(tree->GetItemState(bravo, TVIS_EXPANDEDONCE), 0u);
}

TEST_F(TreeBehaviour, KeysMoveTheCaretAndOpenAndCloseBranches) {
  struct Case {
    HTREEITEM start;
    bool alphaOpen;
    UINT key;
    HTREEITEM caret;
    bool alphaOpenAfter;
  };
  for (Case const & c : std::vector<Case>{
           {alpha, false, VK_DOWN, bravo, false},
           {alpha, true, VK_DOWN, alpha1, true},
           {bravo, true, VK_UP, alpha2, true},
           {alpha, false, VK_UP, alpha, false},    // nothing above the first row
           {alpha, false, VK_RIGHT, alpha, true},  // closed: opens
           {alpha, true, VK_RIGHT, alpha1, true},  // open: to the first child
           {alpha, true, VK_LEFT, alpha, false},   // open: closes
           {alpha2, true, VK_LEFT, alpha, true},   // a leaf: to its parent
           {alpha2, true, VK_BACK, alpha, true},
           {charlie, true, VK_HOME, alpha, true},
           {alpha, true, VK_END, charlie, true},
           {alpha, false, VK_ADD, alpha, true},
           {alpha, true, VK_SUBTRACT, alpha, false},
           {alpha, true, VK_NEXT, charlie, true},  // the page is longer than the tree
       }) {
    tree->Expand(alpha, c.alphaOpen ? TVE_EXPAND : TVE_COLLAPSE);
    tree->SelectItem(c.start);
    notified.clear();
    tree->OnKeyDown(c.key, 1, 0);
    EXPECT_EQ(tree->GetItemText(tree->GetSelectedItem()), tree->GetItemText(c.caret))
        << "key " << c.key << " from " << tree->GetItemText(c.start);
    EXPECT_EQ(tree->GetItemState(alpha, TVIS_EXPANDED) != 0, c.alphaOpenAfter) << "key " << c.key;
    ASSERT_FALSE(notified.empty());
    EXPECT_EQ(notified[0].code, TVN_KEYDOWN);
    for (auto const & seen : Of(TVN_SELCHANGED)) EXPECT_EQ(seen.action, TVC_BYKEYBOARD);
  }

  // "*" opens the whole branch below the caret.
  HTREEITEM const deep = tree->InsertItem("deep", bravo1);
  tree->SelectItem(bravo);
  tree->Expand(bravo, TVE_COLLAPSE);
  tree->OnKeyDown(VK_MULTIPLY, 1, 0);
  EXPECT_TRUE(tree->GetItemState(bravo, TVIS_EXPANDED));
  EXPECT_TRUE(tree->GetItemState(bravo1, TVIS_EXPANDED));
  EXPECT_TRUE(tree->GetNextVisibleItem(bravo1) == deep);
}

TEST_F(TreeBehaviour, TypeAheadFindsShownItemsByPrefixAndForgetsAfterItsTimer) {
  tree->SelectItem(alpha);
  auto type = [this](wchar_t const * text) {
    for (; *text != 0; ++text) tree->OnChar(static_cast<UINT>(*text), 1, 0);
  };
  type(L"b");
  EXPECT_EQ(tree->GetSelectedItem(), bravo);
  type(L"b");  // the same letter again: the next item with it
  EXPECT_EQ(tree->GetSelectedItem(), beta);
  type(L"b");  // round again
  EXPECT_EQ(tree->GetSelectedItem(), bravo);
  tree->OnTimer(CTreeCtrl::TypeAheadTimer);
  type(L"CH");  // a prefix, case-blind
  EXPECT_EQ(tree->GetSelectedItem(), charlie);
  tree->OnTimer(CTreeCtrl::TypeAheadTimer);
  type(L"alpha o");  // the hidden "alpha one" is not found: the caret stays on "alpha"
  EXPECT_EQ(tree->GetSelectedItem(), alpha);
  tree->OnTimer(CTreeCtrl::TypeAheadTimer);
  type(L"x");
  EXPECT_EQ(tree->GetSelectedItem(), alpha);
}

TEST_F(TreeBehaviour, HitTestsNameThePartsOfARowAndItsRectangles) {
  auto * images = new wxImageList(16, 16);
  images->Add(wxBitmap(16, 16));
  tree->SetImageList(images, TVSIL_NORMAL);
  tree->ModifyStyle(0, TVS_CHECKBOXES);
  tree->SetItemState(alpha, INDEXTOSTATEIMAGEMASK(1), TVIS_STATEIMAGEMASK);
  tree->Expand(alpha, TVE_EXPAND);
  int const height = tree->GetItemHeight();
  int const indent = static_cast<int>(tree->GetIndent());

  RECT label{};
  ASSERT_TRUE(tree->GetItemRect(alpha1, &label, 1));
  RECT row{};
  ASSERT_TRUE(tree->GetItemRect(alpha1, &row, 0));
  EXPECT_EQ(row.top, height);  // the second row
  EXPECT_EQ(row.left, 0);
  EXPECT_EQ(label.top, row.top);
  // A child sits one indent further than its parent.
  RECT parentLabel{};
  tree->GetItemRect(alpha, &parentLabel, 1);
  EXPECT_EQ(label.left - parentLabel.left, indent);

  int const y = height / 2;  // on alpha's row: button, box, icon, label
  struct Case {
    LONG x, y;
    UINT flags;
    HTREEITEM item;
  };
  for (Case const & c : std::vector<Case>{
           {indent / 2, y, TVHT_ONITEMBUTTON, alpha},
           {parentLabel.left - 16 - 17 + 8, y, TVHT_ONITEMSTATEICON, alpha},
           {parentLabel.left - 8, y, TVHT_ONITEMICON, alpha},
           {parentLabel.left + 3, y, TVHT_ONITEMLABEL, alpha},
           {parentLabel.right + 5, y, TVHT_ONITEMRIGHT, alpha},
           {indent / 2, row.top + 2, TVHT_ONITEMINDENT, alpha1},
           {indent + indent / 2, row.top + 2, TVHT_ONITEMINDENT, alpha1},  // a leaf has no button
           {5, height * 8, TVHT_NOWHERE, {}},
           {5, -3, TVHT_ABOVE, {}},
           {5, 10000, TVHT_BELOW, {}},
           {-2, 5, TVHT_TOLEFT, {}},
           {10000, 5, TVHT_TORIGHT, {}},
       }) {
    UINT flags = 0;
    EXPECT_EQ(tree->HitTest(POINT{c.x, c.y}, &flags), c.item) << c.x << "," << c.y;
    EXPECT_EQ(flags, c.flags) << c.x << "," << c.y;
  }
  tree->SetImageList(nullptr, TVSIL_NORMAL);
  delete images;

  // A set height is even, and -1 goes back to the font's.
  short const natural = tree->GetItemHeight();
  tree->SetItemHeight(31);
  EXPECT_EQ(tree->GetItemHeight(), 32);
  tree->SetItemHeight(-1);
  EXPECT_EQ(tree->GetItemHeight(), natural);
}

TEST_F(TreeBehaviour, ClicksSelectToggleButtonsAndBoxesAndTellTheClickFirst) {
  tree->ModifyStyle(0, TVS_CHECKBOXES);
  HTREEITEM const boxed = tree->InsertItem("boxed");
  tree->dragAnswer = 0;
  tree->SelectItem(alpha);
  notified.clear();
  tree->OnLButtonDown(MK_LBUTTON, LabelPoint(bravo));
  EXPECT_EQ(tree->GetSelectedItem(), bravo);
  ASSERT_GE(notified.size(), 2u);
  EXPECT_EQ(notified[0].code, NM_CLICK);  // told while the old item is still selected
  EXPECT_EQ(Of(TVN_SELCHANGED).at(0).action, TVC_BYMOUSE);

  // A parent that takes the click keeps the selection where it was.
  answers[NM_CLICK] = 1;
  tree->OnLButtonDown(MK_LBUTTON, LabelPoint(charlie));
  EXPECT_EQ(tree->GetSelectedItem(), bravo);
  answers.clear();

  // The button opens without selecting.
  RECT row{};
  tree->GetItemRect(alpha, &row, 0);
  tree->OnLButtonDown(MK_LBUTTON, POINT{static_cast<LONG>(tree->GetIndent() / 2), row.top + 3});
  EXPECT_TRUE(tree->GetItemState(alpha, TVIS_EXPANDED));
  EXPECT_EQ(tree->GetSelectedItem(), bravo);

  // The box toggles without selecting; Space toggles the caret's.
  RECT label{};
  tree->GetItemRect(boxed, &label, 1);
  POINT const box{label.left - 8, (label.top + label.bottom) / 2};
  UINT flags = 0;
  ASSERT_EQ(tree->HitTest(box, &flags), boxed);
  ASSERT_EQ(flags, TVHT_ONITEMSTATEICON);
  tree->OnLButtonDown(MK_LBUTTON, box);
  EXPECT_TRUE(tree->GetCheck(boxed));
  tree->OnLButtonDown(MK_LBUTTON, box);
  EXPECT_FALSE(tree->GetCheck(boxed));
  EXPECT_EQ(tree->GetSelectedItem(), bravo);
  tree->SetCheck(bravo, 0);
  tree->OnKeyDown(VK_SPACE, 1, 0);
  EXPECT_TRUE(tree->GetCheck(bravo));

  // A press that becomes a drag tells TVN_BEGINDRAG and selects nothing.
  notified.clear();
  tree->dragAnswer = 1;
  tree->OnLButtonDown(MK_LBUTTON, LabelPoint(charlie));
  EXPECT_EQ(Codes(), (std::vector<UINT>{TVN_BEGINDRAG}));
  EXPECT_EQ(notified[0].newItem, charlie);
  EXPECT_EQ(tree->GetSelectedItem(), bravo);

  // A double click opens and closes; a parent taking it stops that.
  tree->OnLButtonDblClk(MK_LBUTTON, LabelPoint(bravo));
  EXPECT_TRUE(tree->GetItemState(bravo, TVIS_EXPANDED));
  answers[NM_DBLCLK] = 1;
  tree->OnLButtonDblClk(MK_LBUTTON, LabelPoint(bravo));
  EXPECT_TRUE(tree->GetItemState(bravo, TVIS_EXPANDED));

  // Right of a label: nothing, unless the whole row selects.
  tree->dragAnswer = 0;
  RECT label2{};
  tree->GetItemRect(charlie, &label2, 1);
  POINT const right{label2.right + 20, (label2.top + label2.bottom) / 2};
  tree->OnLButtonDown(MK_LBUTTON, right);
  EXPECT_EQ(tree->GetSelectedItem(), bravo);
  tree->ModifyStyle(TVS_HASLINES, TVS_FULLROWSELECT);
  tree->OnLButtonDown(MK_LBUTTON, right);
  EXPECT_EQ(tree->GetSelectedItem(), charlie);

  // A right click tells NM_RCLICK; untaken, it becomes a context menu event.
  int menus = 0;
  tree->Bind(wxEVT_CONTEXT_MENU, [&menus](wxContextMenuEvent &) { ++menus; });
  answers.clear();
  notified.clear();
  tree->OnRButtonDown(MK_RBUTTON, LabelPoint(alpha));
  EXPECT_EQ(Codes(), (std::vector<UINT>{NM_RCLICK}));
  EXPECT_EQ(menus, 1);
  answers[NM_RCLICK] = 1;
  tree->OnRButtonDown(MK_RBUTTON, LabelPoint(alpha));
  EXPECT_EQ(menus, 1);
}

TEST_F(TreeBehaviour, LabelEditingAsksBeforeAndTheAnswerAfterDecides) {
  tree->ModifyStyle(0, TVS_EDITLABELS);
  answers[TVN_BEGINLABELEDIT] = 1;
  EXPECT_EQ(tree->EditLabel(bravo), nullptr);
  answers.clear();

  struct Case {
    char const * typed;
    bool cancel;
    LRESULT answer;
    char const * expected;
  };
  for (Case const & c : std::vector<Case>{{"accepted", false, 1, "accepted"},
                                          {"refused", false, 0, "accepted"},
                                          {"cancelled", true, 1, "accepted"}}) {
    wxTextCtrl * const edit = tree->EditLabel(bravo);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(tree->GetEditControl(), edit);
    edit->ChangeValue(c.typed);
    answers[TVN_ENDLABELEDIT] = c.answer;
    notified.clear();
    EXPECT_TRUE(tree->EndEditLabelNow(c.cancel ? 1 : 0));
    EXPECT_EQ(tree->GetEditControl(), nullptr);
    auto const ends = Of(TVN_ENDLABELEDIT);
    ASSERT_EQ(ends.size(), 1u);
    EXPECT_EQ(ends[0].textNull, c.cancel);
    if (!c.cancel) {
      EXPECT_EQ(ends[0].text, std::wstring(wxString(c.typed).wc_str()));
    }
    EXPECT_EQ(tree->GetItemText(bravo), c.expected) << c.typed;
  }

  // Escape in the edit cancels, Enter takes the text.
  answers[TVN_ENDLABELEDIT] = 1;
  for (int const key : {WXK_ESCAPE, WXK_RETURN}) {
    wxTextCtrl * const edit = tree->EditLabel(bravo);
    ASSERT_NE(edit, nullptr);
    edit->ChangeValue("typed");
    notified.clear();
    if (key == WXK_ESCAPE) {
      wxKeyEvent press(wxEVT_KEY_DOWN);
      press.m_keyCode = key;
      edit->GetEventHandler()->ProcessEvent(press);
    } else {
      wxCommandEvent enter(wxEVT_TEXT_ENTER, edit->GetId());
      enter.SetEventObject(edit);
      edit->GetEventHandler()->ProcessEvent(enter);
    }
    EXPECT_EQ(tree->GetEditControl(), nullptr);
    ASSERT_EQ(Of(TVN_ENDLABELEDIT).size(), 1u);
    EXPECT_EQ(Of(TVN_ENDLABELEDIT)[0].textNull, key == WXK_ESCAPE);
  }
  EXPECT_EQ(tree->GetItemText(bravo), "typed");

  // A second click on the caret's label edits it once the timer fires.
  tree->dragAnswer = 0;
  tree->SelectItem(charlie);
  tree->OnLButtonDown(MK_LBUTTON, LabelPoint(charlie));
  EXPECT_EQ(tree->GetEditControl(), nullptr);
  tree->OnTimer(CTreeCtrl::EditLabelTimer);
  ASSERT_NE(tree->GetEditControl(), nullptr);

  // Deleting the item under edit ends the edit first.
  tree->DeleteItem(charlie);
  EXPECT_EQ(tree->GetEditControl(), nullptr);
}

}  // namespace

namespace {

TEST_F(TreeFixture, ScrollingKeepsRowsHitTestsAndTheCaretInStep) {
  std::vector<HTREEITEM> rows;
  rows.reserve(200);
  for (int i = 0; i < 200; ++i) rows.push_back(tree->InsertItem(wxString::Format("row %03d", i)));
  int const page = static_cast<int>(tree->GetVisibleCount());
  int const height = tree->GetItemHeight();
  ASSERT_GT(page, 3);

  struct Case {
    UINT code;
    UINT position;
    int top;  // the first shown row after the scroll
  };
  for (Case const & c :
       std::vector<Case>{{SB_LINEDOWN, 0, 1},
                         {SB_PAGEDOWN, 0, 1 + page},
                         {SB_LINEUP, 0, page},
                         {SB_THUMBPOSITION, 150, 150},
                         {SB_BOTTOM, 0, 200 - page},
                         {SB_LINEDOWN, 0, 200 - page},  // no further than the last page
                         {SB_TOP, 0, 0},
                         {SB_LINEUP, 0, 0}}) {
    tree->OnVScroll(c.code, c.position);
    EXPECT_EQ(tree->GetScrollPos(SB_VERT), c.top) << "code " << c.code;
    EXPECT_EQ(tree->GetFirstVisibleItem(), rows[static_cast<size_t>(c.top)]) << "code " << c.code;
    // The third row on screen is where the hit test and the rectangle say.
    HTREEITEM const third = rows[static_cast<size_t>(c.top) + 2];
    EXPECT_EQ(tree->HitTest(POINT{40, 2 * height + 1}), third) << "code " << c.code;
    RECT rect{};
    ASSERT_TRUE(tree->GetItemRect(third, &rect, 0));
    EXPECT_EQ(rect.top, 2 * height);
  }

  // Keys scroll the caret into view, both ways.
  tree->SelectItem(rows[0]);
  tree->OnKeyDown(VK_END, 1, 0);
  EXPECT_EQ(tree->GetSelectedItem(), rows.back());
  EXPECT_EQ(tree->GetScrollPos(SB_VERT), 200 - page);
  tree->OnKeyDown(VK_PRIOR, 1, 0);
  EXPECT_EQ(tree->GetSelectedItem(), rows[static_cast<size_t>(199 - (page - 1))]);
  tree->SelectItem(rows[10]);
  EXPECT_EQ(tree->GetScrollPos(SB_VERT), 10);

  // Deleting rows above the top leaves the same item on top; when the top
  // item itself goes, the view stays at its place as far as rows remain.
  tree->OnVScroll(SB_THUMBPOSITION, 160);
  for (int i = 0; i < 10; ++i) tree->DeleteItem(rows[static_cast<size_t>(i)]);
  EXPECT_EQ(tree->GetFirstVisibleItem(), rows[160]);
  EXPECT_EQ(tree->GetScrollPos(SB_VERT), 150);
  tree->SelectItem({});  // no caret to follow
  for (int i = 10; i < 170; ++i) tree->DeleteItem(rows[static_cast<size_t>(i)]);
  EXPECT_EQ(tree->GetScrollPos(SB_VERT), 30 - page);
  EXPECT_EQ(tree->GetFirstVisibleItem(), rows[static_cast<size_t>(170 + 30 - page)]);
}

}  // namespace

namespace {

TEST_F(TreeFixture, ScrollingSidewaysMovesRectanglesAndHitsAlike) {
  HTREEITEM deep = tree->InsertItem("level 0");
  for (int level = 1; level < 30; ++level)
    deep = tree->InsertItem(wxString::Format("level %d", level), deep);
  tree->SelectItem(deep);
  RECT before{};
  ASSERT_TRUE(tree->GetItemRect(deep, &before, 1));
  ASSERT_GT(before.right, tree->GetClientSize().GetWidth());  // beyond the right edge

  int const indent = static_cast<int>(tree->GetIndent());
  struct Case {
    UINT code;
    int scroll;  // -1: as far as the widest label's end at the right edge
  };
  int const widest = before.right;
  for (Case const & c : std::vector<Case>{{SB_LINEDOWN, indent},
                                          {SB_LINEDOWN, 2 * indent},
                                          {SB_LINEUP, indent},
                                          {SB_BOTTOM, -1},
                                          {SB_PAGEDOWN, -1},  // no further than the end
                                          {SB_TOP, 0}}) {
    tree->OnHScroll(c.code, 0);
    // (The scroll bars coming and going change the width.)
    int const width = tree->GetClientSize().GetWidth();
    int const scroll = c.scroll >= 0 ? c.scroll : widest - width;
    EXPECT_EQ(tree->GetScrollPos(SB_HORZ), scroll) << "code " << c.code;
    RECT now{};
    ASSERT_TRUE(tree->GetItemRect(deep, &now, 1));
    EXPECT_EQ(now.left, before.left - scroll);
    if (now.left + 2 >= 0 && now.left + 2 < width) {
      UINT flags = 0;
      EXPECT_EQ(tree->HitTest(POINT{now.left + 2, now.top + 2}, &flags), deep);
      EXPECT_EQ(flags, TVHT_ONITEMLABEL);
    }
  }
}

}  // namespace
