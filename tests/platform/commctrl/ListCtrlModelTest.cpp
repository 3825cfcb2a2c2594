// The list's rows, states, owner data and hit tests, driven through its
// interface (no input): what the family's list and popup rely on.
#include <gtest/gtest.h>

#include "ListRecorder.h"
#include "harness/GuiTestUtilities.h"

namespace {

using Seen = std::vector<std::string>;

TEST(ListCtrlRows, InsertAndDeleteKeepFocusMarkAndTextsWithTheirRows) {
  ListFixture f;
  f.Fill(4, 3);
  f.list->SetItemState(2, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  f.list->SetSelectionMark(3);
  f.list->SetItemData(2, 0xFEDCBA9876543210ULL);  // all 64 bits survive
  f.seen.clear();

  EXPECT_EQ(f.list->InsertItem(1, "new"), 1);
  EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), 3);
  EXPECT_EQ(f.list->GetSelectionMark(), 4);
  EXPECT_EQ(f.list->GetItemText(3, 2), "r2c2");
  EXPECT_EQ(f.list->GetItemData(3), 0xFEDCBA9876543210ULL);

  EXPECT_TRUE(f.list->DeleteItem(0));
  EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), 2);
  EXPECT_EQ(f.Selected(), (std::vector<int>{2}));
  EXPECT_TRUE(f.list->DeleteItem(2));
  EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), -1);
  EXPECT_EQ(f.list->GetSelectedCount(), 0u);
  EXPECT_FALSE(f.list->DeleteItem(3));
  EXPECT_EQ(f.seen, (Seen{"INSERT 1", "DELETE 0", "DELETE 2"}));

  // A column inserted in front shifts the sub-items' texts along.
  f.list->InsertColumn(0, "first", LVCFMT_LEFT, 50, 0);
  EXPECT_EQ(f.list->GetItemText(0, 0), "");
  EXPECT_EQ(f.list->GetItemText(0, 1), "new");
  EXPECT_TRUE(f.list->DeleteColumn(0));
  EXPECT_EQ(f.list->GetItemText(2, 2), "r3c2");
}

TEST(ListCtrlRows, DeleteAllAsksOnceAndPerRowOnlyWhenNotAnswered) {
  for (bool quiet : {false, true}) {
    ListFixture f;
    f.Fill(2, 1);
    f.quietDeleteAll = quiet;
    f.list->DeleteAllItems();
    Seen const expected = quiet ? Seen{"DELETEALL"} : Seen{"DELETEALL", "DELETE 0", "DELETE 1"};
    EXPECT_EQ(f.seen, expected) << quiet;
    EXPECT_EQ(f.list->GetItemCount(), 0);
  }
}

TEST(ListCtrlStates, OneFocusAVetoedChangeAndCheckBoxesInTheStateImage) {
  ListFixture f;
  f.Fill(3, 1);
  f.list->SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED);
  f.list->SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
  EXPECT_EQ(f.list->GetItemState(0, LVIS_FOCUSED), 0u);
  EXPECT_EQ(f.seen, (Seen{"CHANGED 0 +foc", "CHANGED 0 -foc", "CHANGED 2 +foc"}));

  f.vetoSelecting = 1;
  f.list->SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(f.list->GetItemState(1, LVIS_SELECTED), 0u);

  // Setting a state that is already there says nothing.
  f.seen.clear();
  f.list->SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
  EXPECT_TRUE(f.seen.empty());

  f.list->SetExtendedStyle(LVS_EX_CHECKBOXES);
  EXPECT_EQ(f.list->GetItemState(1, LVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(1));
  f.list->InsertItem(3, "later");
  EXPECT_EQ(f.list->GetItemState(3, LVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(1));
  EXPECT_TRUE(f.list->SetCheck(3));
  EXPECT_TRUE(f.list->GetCheck(3));
  EXPECT_FALSE(f.list->GetCheck(1));
  // SetItemState for -1 reaches every row.
  f.list->SetItemState(-1, INDEXTOSTATEIMAGEMASK(2), LVIS_STATEIMAGEMASK);
  for (int row = 0; row < 4; ++row) EXPECT_TRUE(f.list->GetCheck(row)) << row;
}

TEST(ListCtrlStates, ASingleSelectionListKeepsOneSelectedRowWhateverSetsIt) {
  for (DWORD const kind : {DWORD{0}, LVS_OWNERDATA}) {
    ListFixture f(LVS_REPORT | LVS_SINGLESEL | kind);
    f.list->InsertColumn(0, "Name");
    if (kind == LVS_OWNERDATA)
      f.list->SetItemCountEx(5);
    else
      for (int row = 0; row < 5; ++row) f.list->InsertItem(row, "row");
    f.list->SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    f.list->SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(f.Selected(), std::vector<int>{3}) << kind;
    EXPECT_EQ(f.list->GetSelectedCount(), 1u) << kind;
  }
}

TEST(ListCtrlFind, BeginningsWithoutCaseFromTheRowAfterStartAndRoundWithWrap) {
  ListFixture f;
  f.list->InsertColumn(0, "Name");
  for (wxString const name : {"Beta", "alpha", "Bravo", "ALPHA 2"}) f.list->InsertItem(99, name);
  std::wstring text = L"al";
  LVFINDINFOW find;
  find.flags = LVFI_STRING | LVFI_PARTIAL;
  find.psz = text.c_str();
  struct Case {
    int start;
    UINT extra;
    int expected;
  };
  for (Case const c : {Case{-1, 0, 1}, Case{1, 0, 3}, Case{3, 0, -1}, Case{3, LVFI_WRAP, 1}}) {
    find.flags = LVFI_STRING | LVFI_PARTIAL | c.extra;
    EXPECT_EQ(f.list->FindItem(&find, c.start), c.expected) << c.start;
  }
  find.flags = LVFI_STRING;  // whole text only
  EXPECT_EQ(f.list->FindItem(&find, -1), -1);
  f.list->SetItemData(2, 77);
  find.flags = LVFI_PARAM;
  find.lParam = 77;
  EXPECT_EQ(f.list->FindItem(&find, -1), 2);
}

int CompareData(LPARAM a, LPARAM b, LPARAM) { return a < b ? -1 : a > b ? 1 : 0; }

TEST(ListCtrlSort, RowsMoveWithTheirStateAndEqualKeysKeepTheirOrder) {
  ListFixture f;
  f.list->InsertColumn(0, "Name");
  LPARAM const keys[] = {3, 1, 3, 2};
  for (int row = 0; row < 4; ++row) {
    f.list->InsertItem(row, wxString::Format("row %d", row));
    f.list->SetItemData(row, static_cast<DWORD_PTR>(keys[row]));
  }
  f.list->SetItemState(2, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  ASSERT_TRUE(f.list->SortItems(CompareData, 0));
  std::vector<wxString> order(4);
  for (int row = 0; row < 4; ++row) order[row] = f.list->GetItemText(row, 0);
  EXPECT_EQ(order, (std::vector<wxString>{"row 1", "row 3", "row 0", "row 2"}));
  EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), 3);
  EXPECT_EQ(f.Selected(), (std::vector<int>{3}));
}

TEST(ListCtrlOwnerData, TextsComeFromTheOwnerAndTheListKeepsOnlyTheSelection) {
  ListFixture f(LVS_REPORT | LVS_OWNERDATA);
  f.list->InsertColumn(0, "Item", LVCFMT_LEFT, 100);
  f.list->InsertColumn(1, "More", LVCFMT_LEFT, 100);
  f.list->SetItemCountEx(1000000);
  EXPECT_EQ(f.list->GetItemCount(), 1000000);
  EXPECT_EQ(f.list->GetItemText(999999, 1), "row 999999.1");
  EXPECT_EQ(f.list->InsertItem(0, "no rows of its own"), -1);

  f.list->SetItemState(10, LVIS_SELECTED, LVIS_SELECTED);
  f.list->SetItemState(500000, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  EXPECT_EQ(f.list->GetSelectedCount(), 2u);
  EXPECT_EQ(f.list->GetNextItem(10, LVNI_SELECTED), 500000);
  EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), 500000);

  // A shorter list drops the states beyond its end.
  f.list->SetItemCountEx(100);
  EXPECT_EQ(f.list->GetSelectedCount(), 1u);
  EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), -1);

  // Select all: one notification for every row, not a million.
  f.seen.clear();
  f.list->SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(f.list->GetSelectedCount(), 100u);
  EXPECT_EQ(f.seen, (Seen{"CHANGED -1 +sel"}));

  // Check states live with the owner.
  f.list->SetExtendedStyle(LVS_EX_CHECKBOXES);
  f.checkedOwnerRow = 5;
  EXPECT_TRUE(f.list->GetCheck(5));
  EXPECT_FALSE(f.list->GetCheck(6));
}

// Hit tests over a list of known geometry, with check boxes and images off
// and on: where each flag must come from.
TEST(ListCtrlHitTest, FlagsByPlace) {
  ListFixture f;
  f.Fill(3, 2);
  f.list->SetExtendedStyle(LVS_EX_CHECKBOXES);
  int const header = f.list->GetHeaderHeight();
  int const height = f.list->GetItemHeight();
  ASSERT_GT(header, 0);
  RECT icon{}, label{};
  ASSERT_TRUE(f.list->GetItemRect(1, &icon, LVIR_ICON));
  ASSERT_TRUE(f.list->GetItemRect(1, &label, LVIR_LABEL));
  int const y1 = header + height + height / 2;  // middle of row 1
  struct Case {
    char const * name;
    wxPoint point;
    DWORD exStyle;
    int item;
    UINT flags;
    int subItem;
  };
  Case const cases[] = {
      {"state icon", {icon.left / 2, y1}, LVS_EX_CHECKBOXES, 1, LVHT_ONITEMSTATEICON, 0},
      {"label", {label.left + 10, y1}, LVS_EX_CHECKBOXES, 1, LVHT_ONITEMLABEL, 0},
      {"sub-item, full row",
       {120, y1},
       LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT,
       1,
       LVHT_ONITEMLABEL,
       1},
      {"sub-item, not full row", {120, y1}, LVS_EX_CHECKBOXES, 1, LVHT_ONITEMLABEL, 1},
      {"right of the columns", {200, y1}, LVS_EX_FULLROWSELECT, -1, LVHT_NOWHERE, 0},
      {"below the rows", {10, header + 5 * height}, LVS_EX_FULLROWSELECT, -1, LVHT_NOWHERE, 0},
      {"on the header", {10, header / 2}, LVS_EX_FULLROWSELECT, -1, LVHT_NOWHERE, 0},
      {"above the list", {10, -3}, 0, -1, LVHT_ABOVE, 0},
      {"left of the list", {-3, y1}, 0, -1, LVHT_TOLEFT, 0},
      {"without check boxes the place is label", {icon.left / 2, y1}, 0, 1, LVHT_ONITEMLABEL, 0},
  };
  for (Case const & c : cases) {
    f.list->SetExtendedStyle(c.exStyle);
    LVHITTESTINFO info;
    info.pt = POINT{c.point.x, c.point.y};
    EXPECT_EQ(f.list->SubItemHitTest(&info), c.item) << c.name;
    EXPECT_EQ(info.flags, c.flags) << c.name;
    if (c.item >= 0) EXPECT_EQ(info.iSubItem, c.subItem) << c.name;
  }

  // Beside column 0 without full-row selection the row itself is missed.
  f.list->SetExtendedStyle(0);
  UINT flags = 0;
  EXPECT_EQ(f.list->HitTest(wxPoint(120, y1), &flags), -1);
  EXPECT_EQ(flags, LVHT_NOWHERE);
  f.list->SetExtendedStyle(LVS_EX_FULLROWSELECT);
  EXPECT_EQ(f.list->HitTest(wxPoint(120, y1), &flags), 1);

  // Scrolled down by one row, the same place is the next row.
  f.list->SetExtendedStyle(LVS_EX_FULLROWSELECT);
  f.frame->SetClientSize(400, header + height * 2 + 40);
  for (int row = 3; row < 30; ++row) f.list->InsertItem(row, "more");
  f.list->Scroll(wxSize(0, height));
  EXPECT_EQ(f.list->GetTopIndex(), 1);
  EXPECT_EQ(f.list->HitTest(wxPoint(10, y1)), 2);
}

TEST(ListCtrlScroll, EnsureVisibleBringsTheRowIntoThePageAndNoFurther) {
  ListFixture f;
  f.Fill(100, 1);
  int const page = f.list->GetCountPerPage();
  ASSERT_GT(page, 2);
  EXPECT_TRUE(f.list->EnsureVisible(50, false));
  EXPECT_EQ(f.list->GetTopIndex(), 50 - page + 1);
  EXPECT_TRUE(f.list->EnsureVisible(10, false));
  EXPECT_EQ(f.list->GetTopIndex(), 10);
  EXPECT_TRUE(f.list->EnsureVisible(12, false));  // already shown: no move
  EXPECT_EQ(f.list->GetTopIndex(), 10);
  EXPECT_FALSE(f.list->EnsureVisible(100, false));
  f.list->Scroll(wxSize(0, 1000000));
  EXPECT_EQ(f.list->GetTopIndex(), 100 - page);  // never past the last page
}

}  // namespace
