// The family's list under real input: header clicks that sort, drag
// selection, check boxes of a selection, keys, and cell editing.
#include <gtest/gtest.h>

#include "ListTestFixture.h"
#include "lists/CFlatHeaderCtrl.h"
#include "lists/CInPlaceEdit.h"
#include "lists/ListSortOrder.h"
#include "platform/commctrl/HeaderDefs.h"
#include "utl/Utf.h"

namespace {

using Texts = std::vector<wxString>;

// A point inside a heading; `shift` moves it sideways, so that two clicks in
// a row are two clicks and not a double click.
wxPoint HeadingCenter(VxListCtrl & list, int column, int shift = 0) {
  RECT rect{};
  list.GetHeaderCtrl()->GetItemRect(column, &rect);
  return list.GetHeaderCtrl()->ClientToScreen(
      wxPoint((rect.left + rect.right) / 2 + shift, (rect.top + rect.bottom) / 2));
}

int HeadingFormat(VxListCtrl & list, int column) {
  return list.GetHeaderCtrl()->GetItemFormat(column) & (HDF_SORTUP | HDF_SORTDOWN);
}

TEST(VxListCtrlSort, HeaderClicksSortNaturallyAndASecondClickReverses) {
  ListFixture f;
  f.Fill({"Run 10", "Run 9", "run 100", "Run 2"});
  f.list->SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);  // "Run 9"
  ASSERT_TRUE(f.Show());

  f.ClickAt(HeadingCenter(*f.list, 0));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetSortColumn() == 0; }));
  EXPECT_EQ(f.Column(0), (Texts{"Run 2", "Run 9", "Run 10", "run 100"}));
  EXPECT_EQ(f.Column(1), (Texts{"r3", "r1", "r0", "r2"}));  // rows move whole
  EXPECT_EQ(f.list->GetItemData(1), 1u);
  EXPECT_EQ(f.Selected(), (std::vector<int>{1}));
  EXPECT_EQ(HeadingFormat(*f.list, 0), HDF_SORTUP);

  f.ClickAt(HeadingCenter(*f.list, 0, 30));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.list->GetSortAscending(); }));
  EXPECT_EQ(f.Column(0), (Texts{"run 100", "Run 10", "Run 9", "Run 2"}));
  EXPECT_EQ(HeadingFormat(*f.list, 0), HDF_SORTDOWN);

  f.ClickAt(HeadingCenter(*f.list, 1));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetSortColumn() == 1; }));
  EXPECT_TRUE(f.list->GetSortAscending());
  EXPECT_EQ(f.Column(1), (Texts{"r0", "r1", "r2", "r3"}));
  EXPECT_EQ(HeadingFormat(*f.list, 0), 0);
  EXPECT_EQ(HeadingFormat(*f.list, 1), HDF_SORTUP);
}

TEST(VxListCtrlSort, RefusesWhatCannotBeSortedAndLeavesTheRowsAlone) {
  ListFixture f;
  f.Fill({"b", "a"});
  EXPECT_FALSE(f.list->SortItems(2, 1));        // beyond the last column
  EXPECT_FALSE(f.list->SortItems(0, 1, 1, 1));  // one row
  EXPECT_FALSE(f.list->SortItems(0, 1, 0, 5));
  EXPECT_EQ(f.Column(0), (Texts{"b", "a"}));
  EXPECT_TRUE(f.list->SortItems(0, 1));
  EXPECT_EQ(f.Column(0), (Texts{"a", "b"}));
}

// More rows than the sort reads ahead, with texts beyond ASCII and cells
// that were never set: the list ends in exactly the order the quicksort
// gives for the same texts, and each row moves whole.
TEST(VxListCtrlSort, ManyRowsFollowTheQuicksortOfTheirTexts) {
  struct Case {
    int low, high, column, ascending;
  };
  for (Case const c :
       {Case{0, -1, 0, 1}, Case{0, -1, 0, 0}, Case{5, 50, 0, 1}, Case{0, -1, 1, 1}}) {
    ListFixture f;
    std::vector<wxString> runs;
    runs.reserve(60);
    for (int n = 0; n < 60; ++n)
      runs.push_back(wxString::FromUTF8(n % 7 == 0   ? "Müller "
                                        : n % 5 == 0 ? "run "
                                                     : "Run ") +
                     std::to_string((n * 37) % 23));
    f.Fill(runs);
    for (int row = 0; row < 60; row += 9) f.list->SetItemText(row, 1, wxString());
    int const high = c.high == -1 ? 59 : c.high;
    std::vector<wxString> const before = f.Column(c.column);
    std::vector<std::string> texts;
    for (int row = c.low; row <= high; ++row)
      texts.push_back(std::string(before[static_cast<size_t>(row)].utf8_str()));
    std::vector<int> const origin = QuickSortTexts(texts, c.ascending != 0, 0, -1);

    ASSERT_TRUE(f.list->SortItems(c.column, c.ascending, c.low, c.high));
    std::vector<wxString> const after = f.Column(c.column);
    for (int row = 0; row < 60; ++row) {
      bool const inRange = row >= c.low && row <= high;
      int const from = inRange ? c.low + origin[static_cast<size_t>(row - c.low)] : row;
      EXPECT_EQ(after[static_cast<size_t>(row)], before[static_cast<size_t>(from)]) << row;
      EXPECT_EQ(f.list->GetItemData(row), static_cast<DWORD_PTR>(from)) << row;
    }
  }
}

// The cells a sort reads in place: the list's own texts, an empty one for a
// sub-item never set, none where the owner supplies the text.
TEST(VxListCtrlSort, StoredTextsAreTheListsOwnOnly) {
  ListFixture f;
  f.Fill({"b", "a"});
  int const bare = f.list->AddItem(L"c", 2);
  LVITEMW callback{};
  callback.mask = LVIF_TEXT;
  callback.iItem = 3;
  callback.pszText = LPSTR_TEXTCALLBACKW;
  ASSERT_EQ(f.list->InsertItem(&callback), 3);

  ASSERT_NE(f.list->FindStoredText(0, 0), nullptr);
  EXPECT_EQ(*f.list->FindStoredText(0, 0), "b");
  EXPECT_EQ(*f.list->FindStoredText(1, 1), "r1");
  ASSERT_NE(f.list->FindStoredText(bare, 1), nullptr);
  EXPECT_TRUE(f.list->FindStoredText(bare, 1)->empty());
  EXPECT_EQ(f.list->FindStoredText(3, 0), nullptr);
  for (int item : {-1, 4}) EXPECT_EQ(f.list->FindStoredText(item, 0), nullptr) << item;
  EXPECT_EQ(f.list->FindStoredText(0, -1), nullptr);

  ListFixture owned(LVS_REPORT | LVS_OWNERDATA);
  owned.list->SetItemCount(3);
  EXPECT_EQ(owned.list->FindStoredText(0, 0), nullptr);
}

TEST(VxListCtrlSort, FlatHeaderShowsTheArrowExceptOnABitmapHeading) {
  ListFixture f;
  f.Fill({"b", "a"});
  ASSERT_TRUE(f.list->SubclassHeader(true));
  auto * header = f.list->GetFlatHeader();
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(f.list->GetHeaderCtrl(), static_cast<CHeaderCtrl *>(header));
  EXPECT_EQ(f.list->GetColumnText(1), "Result");  // the items came along
  ASSERT_TRUE(f.Show());
  f.ClickAt(HeadingCenter(*f.list, 0));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return header->GetSortColumn() == 0; }));
  EXPECT_EQ(f.Column(0), (Texts{"a", "b"}));
  EXPECT_NE(header->GetItemFormat(0) & HDF_OWNERDRAW, 0);
  EXPECT_EQ(HeadingFormat(*f.list, 0), 0);  // no platform arrow beside the own one

  wxBitmap const picture(8, 8);
  HDITEMW item;
  item.mask = HDI_BITMAP | HDI_FORMAT;
  item.fmt = HDF_BITMAP;
  item.hbm = &picture;
  header->SetItem(1, &item);
  EXPECT_EQ(header->SetSortImage(1, 0), 0);
  EXPECT_EQ(header->GetSortColumn(), 1);  // remembered, not drawn
  EXPECT_EQ(header->GetItemFormat(1) & HDF_OWNERDRAW, 0);
}

TEST(VxListCtrlDrag, DraggingSelectsTheRangeAndControlKeepsTheOldSelection) {
  for (bool control : {false, true}) {
    SCOPED_TRACE(control ? "with Ctrl" : "alone");
    ListFixture f;
    f.Fill({"0", "1", "2", "3", "4", "5", "6", "7"});
    f.list->SetItemState(6, LVIS_SELECTED, LVIS_SELECTED);
    ASSERT_TRUE(f.Show());
    f.input.MouseMove(f.Cell(1, 0));
    gui_test::Flush();
    if (control) f.input.KeyDown(WXK_CONTROL);
    f.input.MouseDown();
    gui_test::Flush();
    f.input.MouseMove(f.Cell(2, 0));
    f.input.MouseMove(f.Cell(4, 0));
    ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->IsDragRunning(); }));
    f.list->OnDragTimer();  // the timer's tick
    std::vector<int> expected{1, 2, 3, 4};
    if (control) expected.push_back(6);
    EXPECT_EQ(f.Selected(), expected);
    EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), 4);
    f.input.MouseUp();
    if (control) f.input.KeyUp(WXK_CONTROL);
    ASSERT_TRUE(gui_test::WaitUntil([] { return !wxGetMouseState().LeftIsDown(); }));
    f.list->OnDragTimer();  // sees the button up: the drag ends
    EXPECT_FALSE(f.list->IsDragRunning());
    EXPECT_EQ(f.Selected(), expected);  // the release did not reduce it to one row
  }
}

TEST(VxListCtrlChecks, StateIconOfASelectedRowAndSpaceActOnTheWholeSelection) {
  ListFixture f(LVS_REPORT, LVS_EX_CHECKBOXES);
  f.Fill({"0", "1", "2", "3", "4"});
  f.list->SetSelIndexes({1, 2, 3});
  f.list->SetCheckedIndexes({1, 3}, true);
  ASSERT_TRUE(f.Show());
  // The state icon of row 2: the first point of the row the list says is on it.
  RECT bounds{};
  f.list->GetItemRect(2, &bounds, LVIR_BOUNDS);
  wxPoint icon(-1, (bounds.top + bounds.bottom) / 2);
  for (int x = bounds.left; x < bounds.left + 40 && icon.x < 0; ++x) {
    UINT flags = 0;
    if (f.list->HitTest(wxPoint(x, icon.y), &flags) == 2 && flags == LVHT_ONITEMSTATEICON)
      icon.x = x + 2;
  }
  ASSERT_GE(icon.x, 0);
  f.ClickAt(f.list->ClientToScreen(icon));
  // Row 2 was unchecked: every selected row is checked now, row 0 is not.
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetCheck(2); }));
  for (int row : {1, 3}) EXPECT_TRUE(f.list->GetCheck(row)) << row;
  EXPECT_FALSE(f.list->GetCheck(0));
  EXPECT_EQ(f.list->GetCheckedItemCount(), 3);
  EXPECT_EQ(f.Selected(), (std::vector<int>{1, 2, 3}));  // the click did not select

  f.Key(WXK_SPACE);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.list->GetCheck(1); }));
  EXPECT_EQ(f.list->GetCheckedItemCount(), 0);
}

TEST(VxListCtrlKeys, ShortcutsSelectComplementAndDelete) {
  struct Case {
    char const * name;
    bool shortcuts, deleteKey;
    int key, modifiers;
    std::vector<int> selected;
    int rows;
  };
  // Rows 0..4, with 1 and 3 selected.
  Case const cases[] = {
      {"ctrl+a", true, false, 'A', wxMOD_CONTROL, {0, 1, 2, 3, 4}, 5},
      {"ctrl+shift+a", true, false, 'A', wxMOD_CONTROL | wxMOD_SHIFT, {0, 2, 4}, 5},
      {"ctrl+i", true, false, 'I', wxMOD_CONTROL, {0, 2, 4}, 5},
      {"delete without its flag", true, false, WXK_DELETE, 0, {1, 3}, 5},
      {"delete", true, true, WXK_DELETE, 0, {}, 3},
      {"shortcuts off, delete on: ctrl+a still works",
       false,
       true,
       'A',
       wxMOD_CONTROL,
       {0, 1, 2, 3, 4},
       5},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    ListFixture f;
    f.Fill({"0", "1", "2", "3", "4"});
    f.list->EnableShortCuts(c.shortcuts, c.deleteKey);
    f.list->SetSelIndexes({1, 3});
    ASSERT_TRUE(f.Show());
    f.Key(c.key, c.modifiers);
    gui_test::WaitUntil(
        [&] { return f.Selected() == c.selected && f.list->GetItemCount() == c.rows; }, 1000);
    EXPECT_EQ(f.Selected(), c.selected);
    EXPECT_EQ(f.list->GetItemCount(), c.rows);
  }
}

// The parent's side of a cell edit that the list did not accept itself.
struct EndEditRecorder {
  explicit EndEditRecorder(wxWindow & parent, LRESULT answer) {
    parent.Bind(VX_EVT_NOTIFY, [this, answer](NotifyEvent & event) {
      if (event.GetCode() != LVN_ENDLABELEDITW) {
        event.Skip();
        return;
      }
      auto * info = event.GetNotification<NMLVDISPINFOW>();
      ++calls;
      idFrom = static_cast<int>(info->hdr.idFrom);
      textGiven = info->item.pszText != nullptr;
      cell = {info->item.iItem, info->item.iSubItem};
      event.SetResult(answer);
    });
  }
  int calls = 0;
  int idFrom = 0;
  bool textGiven = false;
  std::pair<int, int> cell{-1, -1};
};

CInPlaceEdit * RunningEdit(VxListCtrl & list) { return list.GetCellEdit(); }

TEST(VxListCtrlEdit, SecondClickOnTheSelectedRowEditsTheCell) {
  ListFixture f(LVS_REPORT | LVS_SINGLESEL);
  f.Fill({"Run 1", "Run 2", "Run 3"});
  f.list->EnableEditSubItems(true, true);
  ASSERT_TRUE(f.Show());
  f.ClickAt(f.Cell(1, 1));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.Selected() == std::vector<int>{1}; }));
  EXPECT_EQ(RunningEdit(*f.list), nullptr);
  f.ClickAt(f.Cell(1, 1) + wxPoint(20, 0));  // a second click, not a double click
  ASSERT_TRUE(gui_test::WaitUntil([&] { return RunningEdit(*f.list) != nullptr; }));
  CInPlaceEdit * edit = RunningEdit(*f.list);
  EXPECT_EQ(edit->GetId(), VxListCtrl::kInPlaceEditId);
  EXPECT_EQ(edit->GetValue(), "r1");
  ASSERT_TRUE(gui_test::WaitUntilFocused(*edit));
  f.input.Text("  new value  ");
  f.Key(WXK_RETURN);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return RunningEdit(*f.list) == nullptr; }));
  EXPECT_EQ(f.list->GetItemText(1, 1), "new value");
  EXPECT_NE(f.list->GetStyle() & LVS_SHOWSELALWAYS, 0u);
}

TEST(VxListCtrlEdit, EndingAsksTheParentUnlessAcceptedAndAnswerOneWrites) {
  struct Case {
    char const * name;
    bool accept;
    int key;
    LRESULT answer;
    wxString typed;
    wxString expected;
    int calls;
    bool textGiven;
  };
  Case const cases[] = {
      {"accepted by the list", true, WXK_RETURN, 0, "x", "x", 0, false},
      {"parent agrees", false, WXK_RETURN, 1, "y", "y", 1, true},
      {"parent refuses", false, WXK_RETURN, 0, "y", "r0", 1, true},
      {"blanks commit empty", true, WXK_RETURN, 0, "   ", "", 0, false},
      {"escape, parent says 1: written all the same", true, WXK_ESCAPE, 1, "z", "z", 1, false},
      {"escape, parent says 0", true, WXK_ESCAPE, 0, "z", "r0", 1, false},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    ListFixture f;
    f.Fill({"Run 1", "Run 2"});
    EndEditRecorder parent(*f.frame, c.answer);
    f.list->EnableEditSubItems(true, c.accept);
    ASSERT_TRUE(f.Show());
    CInPlaceEdit * edit = f.list->EditSubLabel(0, 1);
    ASSERT_NE(edit, nullptr);
    // The text is selected, so that typing replaces it.
    ASSERT_TRUE(gui_test::WaitUntil([&] {
      return edit->HasFocus() && edit->GetStringSelection() == "r0";
    })) << edit->GetStringSelection();
    f.input.Text(c.typed.c_str());
    ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->GetValue() == c.typed; }))
        << edit->GetValue();
    f.Key(c.key);
    ASSERT_TRUE(gui_test::WaitUntil([&] { return RunningEdit(*f.list) == nullptr; }));
    EXPECT_EQ(f.list->GetItemText(0, 1), c.expected);
    EXPECT_EQ(parent.calls, c.calls);
    if (c.calls > 0) {
      EXPECT_EQ(parent.textGiven, c.textGiven);
      EXPECT_EQ(parent.idFrom, VxListCtrl::kInPlaceEditId);
      EXPECT_EQ(parent.cell, std::make_pair(0, 1));
    }
  }
}

TEST(VxListCtrlEdit, TabMovesThroughTheCellsAndReopensTheLastOne) {
  ListFixture f;
  f.Fill({"Run 1", "Run 2"});
  f.list->EnableEditSubItems(true, true);
  ASSERT_TRUE(f.Show());
  f.list->EditSubLabel(0, 1);
  std::vector<std::pair<int, int>> const expected{{1, 0}, {1, 1}, {1, 1}};
  for (auto const & cell : expected) {
    SCOPED_TRACE(testing::Message() << "to " << cell.first << "," << cell.second);
    CInPlaceEdit * before = RunningEdit(*f.list);
    ASSERT_NE(before, nullptr);
    ASSERT_TRUE(gui_test::WaitUntilFocused(*before));
    f.Key(WXK_TAB);
    ASSERT_TRUE(gui_test::WaitUntil([&] {
      CInPlaceEdit * now = RunningEdit(*f.list);
      return now != nullptr && now != before && now->IsShown();
    }));
    CInPlaceEdit * now = f.list->GetCellEdit();
    ASSERT_NE(now, nullptr);
    EXPECT_EQ(std::make_pair(now->GetRow(), now->GetColumn()), cell);
  }
}

}  // namespace
