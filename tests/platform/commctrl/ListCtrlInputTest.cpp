// The list and its header under real input (XTest on Xvfb): clicks with
// Ctrl and Shift, the state icon, the keys, type-ahead, divider drags that
// a handler refuses or clamps, and the order of the notifications.
#include <gtest/gtest.h>

#include <wx/toplevel.h>

#include "ListRecorder.h"
#include "harness/GuiTestUtilities.h"
// Last: Xlib's macros (None, Bool) clash with names in the headers above.
#include "ListInput.h"

namespace {

using Seen = std::vector<std::string>;
using Rows = std::vector<int>;
using list_input::ClickAt;
using list_input::Key;
using list_input::Modifiers;

class ListInputTest : public ::testing::Test {
protected:
  void SetUp() override {
    f.Fill(40, 3);
    ASSERT_TRUE(gui_test::ShowAndWait(*f.frame));
    ASSERT_TRUE(gui_test::WaitUntilPlaced(*f.frame));
    f.list->SetFocus();
    ASSERT_TRUE(gui_test::WaitUntilFocused(*f.list));
    f.seen.clear();
  }

  // The middle of the label of a visible row, in the list's coordinates.
  wxPoint RowPoint(int row, int x = 40) const {
    RECT rect{};
    f.list->GetItemRect(row, &rect, LVIR_BOUNDS);
    return wxPoint(x, (rect.top + rect.bottom) / 2);
  }

  bool SelectedBecomes(Rows const & rows) {
    return gui_test::WaitUntil([&] { return f.Selected() == rows; });
  }

  ListFixture f;
};

TEST_F(ListInputTest, ClicksSelectCtrlTogglesShiftExtendsFromTheMark) {
  ClickAt(*f.list, RowPoint(1));
  ASSERT_TRUE(SelectedBecomes({1}));
  {
    Modifiers ctrl{XK_Control_L};
    ClickAt(*f.list, RowPoint(3));
  }
  ASSERT_TRUE(SelectedBecomes({1, 3}));
  {
    Modifiers shift{XK_Shift_L};
    ClickAt(*f.list, RowPoint(5));
  }
  ASSERT_TRUE(SelectedBecomes({3, 4, 5}));
  EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), 5);
  {
    Modifiers ctrl{XK_Control_L};
    ClickAt(*f.list, RowPoint(4));  // off again
  }
  ASSERT_TRUE(SelectedBecomes({3, 5}));
  // A plain click on a selected row of several leaves that row alone.
  ClickAt(*f.list, RowPoint(5));
  ASSERT_TRUE(SelectedBecomes({5}));
  // A click beside the rows clears the selection of a multi-selection list.
  ClickAt(*f.list, wxPoint(300, RowPoint(2).y));
  ASSERT_TRUE(SelectedBecomes({}));
}

TEST_F(ListInputTest, AClickTellsOfTheOldRowsBeforeTheNewAndClicksLast) {
  f.list->SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  f.seen.clear();
  ClickAt(*f.list, RowPoint(2));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.seen.empty() && f.seen.back() == "CLICK 2,0"; }));
  EXPECT_EQ(f.seen, (Seen{"CHANGED 1 -sel", "CHANGED 1 -foc", "CHANGED 2 +sel +foc", "CLICK 2,0"}));

  // A refused change leaves the selection alone, and the click still comes.
  f.vetoSelecting = 4;
  f.seen.clear();
  ClickAt(*f.list, RowPoint(4, 100));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.seen.empty() && f.seen.back() == "CLICK 4,1"; }));
  EXPECT_EQ(f.Selected(), Rows{});
}

TEST_F(ListInputTest, TheStateIconTogglesTheCheckAndLeavesTheSelection) {
  f.list->SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
  f.list->SetItemState(6, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  RECT icon{};
  f.list->GetItemRect(2, &icon, LVIR_ICON);
  ClickAt(*f.list, RowPoint(2, icon.left / 2));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetCheck(2); }));
  EXPECT_EQ(f.Selected(), Rows{6});
  // Space toggles the focused row's check.
  Key(XK_space);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetCheck(6); }));
  Key(XK_space);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.list->GetCheck(6); }));
  EXPECT_TRUE(f.list->GetCheck(2));
}

TEST_F(ListInputTest, KeysMoveTheFocusShiftExtendsCtrlMovesOnlyTheFocus) {
  ClickAt(*f.list, RowPoint(0));
  ASSERT_TRUE(SelectedBecomes({0}));
  int const page = f.list->GetCountPerPage();
  ASSERT_GT(page, 3);
  struct Step {
    char const * name;
    KeySym key;
    KeySym modifier;  // 0: none
    Rows selected;
    int focus;
  };
  Rows firstPage;
  for (int row = 0; row < page; ++row) firstPage.push_back(row);
  Step const steps[] = {
      {"Down", XK_Down, 0, {1}, 1},
      {"Shift+Down", XK_Down, XK_Shift_L, {1, 2}, 2},
      {"Ctrl+Down moves the focus only", XK_Down, XK_Control_L, {1, 2}, 3},
      {"Home", XK_Home, 0, {0}, 0},
      {"PgDn goes to the page's last row", XK_Next, XK_Shift_L, firstPage, page - 1},
      {"End", XK_End, 0, {39}, 39},
      {"PgUp goes to the page's first row", XK_Prior, 0, {39 - page + 1}, 39 - page + 1},
      {"Up", XK_Up, 0, {39 - page}, 39 - page},
  };
  for (Step const & step : steps) {
    if (step.modifier != 0) {
      Modifiers held{step.modifier};
      Key(step.key);
    } else {
      Key(step.key);
    }
    EXPECT_TRUE(gui_test::WaitUntil([&] {
      return f.list->GetNextItem(-1, LVNI_FOCUSED) == step.focus;
    })) << step.name;
    EXPECT_EQ(f.Selected(), step.selected) << step.name;
    // The focused row is always on the page.
    EXPECT_GE(step.focus, f.list->GetTopIndex()) << step.name;
    EXPECT_LT(step.focus, f.list->GetTopIndex() + page) << step.name;
  }
  // Ctrl+Space adds the focused row to the selection.
  {
    Modifiers ctrl{XK_Control_L};
    Key(XK_Down);
    Key(XK_space);
  }
  EXPECT_TRUE(SelectedBecomes({39 - page, 39 - page + 1}));
}

TEST_F(ListInputTest, TypeAheadFindsByBeginningAndStartsAfreshAfterAPause) {
  f.list->DeleteAllItems();
  for (wxString const name : {"alpha", "Bravo", "beta", "Charlie", "bravado"})
    f.list->InsertItem(99, name);
  // Real keys, typed at once: "br" finds Bravo, and "a" more keeps it.
  Key(XK_b);
  Key(XK_r);
  ASSERT_TRUE(SelectedBecomes({1}));
  Key(XK_a);
  Key(XK_v);
  Key(XK_a);
  Key(XK_d);
  ASSERT_TRUE(SelectedBecomes({4}));

  // Timing is the events' own: the same character again steps on, and a
  // pause begins a new text.
  auto const type = [&](wxChar character, long time) {
    wxKeyEvent event(wxEVT_CHAR);
    event.m_uniChar = character;
    event.m_keyCode = character;
    event.SetTimestamp(time);
    f.list->GetEventHandler()->ProcessEvent(event);
  };
  type('b', 100000);
  EXPECT_EQ(f.Selected(), Rows{1}) << "after a pause 'b' wraps round to the first b-row";
  type('b', 100200);
  EXPECT_EQ(f.Selected(), Rows{2}) << "'b' again steps to the next";
  type('c', 100400);
  EXPECT_EQ(f.Selected(), Rows{2}) << "'bbc' matches nothing, nothing moves";
  type('c', 100400 + CListCtrl::TypeAheadPause + 1);
  EXPECT_EQ(f.Selected(), Rows{3});
}

TEST_F(ListInputTest, OwnerDataTypeAheadAsksTheOwner) {
  ListFixture owner(LVS_REPORT | LVS_OWNERDATA);
  owner.list->InsertColumn(0, "Item", LVCFMT_LEFT, 100);
  owner.list->SetItemCountEx(1000);
  owner.list->SetItemState(7, LVIS_FOCUSED, LVIS_FOCUSED);
  owner.ownerFindAnswer = 420;
  owner.seen.clear();
  wxKeyEvent event(wxEVT_CHAR);
  event.m_uniChar = 'x';
  event.m_keyCode = 'x';
  owner.list->GetEventHandler()->ProcessEvent(event);
  EXPECT_EQ(owner.seen.front(), "FIND 8 x");
  EXPECT_EQ(owner.Selected(), Rows{420});
  EXPECT_LE(owner.list->GetTopIndex(), 420);
  EXPECT_GT(owner.list->GetTopIndex() + owner.list->GetCountPerPage(), 420);
}

TEST_F(ListInputTest, TrackSelectFollowsThePointerUnlessHotTrackIsRefused) {
  f.list->SetExtendedStyle(LVS_EX_TRACKSELECT | LVS_EX_FULLROWSELECT);
  int refuseRow = -1;
  std::vector<int> hot;
  f.panel->Bind(VX_EVT_NOTIFY, [&](NotifyEvent & event) {
    if (event.GetCode() != LVN_HOTTRACK) return event.Skip();
    hot.push_back(event.GetNotification<NMLISTVIEW>()->iItem);
    event.SetResult(hot.back() == refuseRow ? 1 : 0);
  });
  list_input::MoveTo(*f.list, RowPoint(3));
  ASSERT_TRUE(SelectedBecomes({3}));
  list_input::MoveTo(*f.list, RowPoint(6, 150));
  ASSERT_TRUE(SelectedBecomes({6}));
  EXPECT_EQ(f.list->GetNextItem(-1, LVNI_FOCUSED), 6);
  refuseRow = 2;
  list_input::MoveTo(*f.list, RowPoint(2));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return hot.back() == 2; }));
  EXPECT_EQ(f.Selected(), Rows{6});
  list_input::MoveTo(*f.list, RowPoint(1));
  ASSERT_TRUE(SelectedBecomes({1}));
}

// A header of the owner's own class takes the place of the list's.
class CountingHeader : public CHeaderCtrl {
public:
  using CHeaderCtrl::CHeaderCtrl;
  void DrawItem(wxDC &, int, RECT const &, UINT) override { ++drawn; }
  int drawn = 0;
};

TEST_F(ListInputTest, AReplacedHeaderKeepsTheColumnsAndSpeaksForTheList) {
  int const order[] = {2, 0, 1};
  f.list->SetColumnOrderArray(3, order);
  f.list->SetColumnWidth(1, 95);
  auto * header = new CountingHeader(f.list, wxID_ANY);
  EXPECT_FALSE(f.list->ReplaceHeaderCtrl(nullptr));
  ASSERT_TRUE(f.list->ReplaceHeaderCtrl(header));
  EXPECT_EQ(f.list->GetHeaderCtrl(), header);
  EXPECT_EQ(header->GetItemCount(), 3);
  EXPECT_EQ(header->GetItemText(1), "Column 1");
  EXPECT_EQ(f.list->GetColumnWidth(1), 95);
  EXPECT_EQ(header->GetOrder(), (std::vector<int>{2, 0, 1}));
  EXPECT_EQ(f.list->GetChildren().size(), 1u);  // the old one is gone

  // Owner drawing reaches the new class; a heading click reaches the list.
  HDITEMW item;
  item.mask = HDI_FORMAT;
  item.fmt = HDF_STRING | HDF_OWNERDRAW;
  header->SetItem(0, &item);
  header->Refresh();
  header->Update();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return header->drawn > 0; }));
  RECT rect{};
  header->GetItemRect(1, &rect);
  f.seen.clear();
  ClickAt(*header, wxPoint(rect.left + 10, header->GetSize().y / 2));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.seen.empty(); }));
  EXPECT_EQ(f.seen, Seen{"COLUMNCLICK 1"});
  // Cells follow the new header's widths.
  item.mask = HDI_WIDTH;
  item.cxy = 30;
  header->SetItem(2, &item);
  RECT cell{};
  f.list->GetSubItemRect(0, 0, LVIR_LABEL, &cell);
  EXPECT_EQ(cell.left, 30);
}

// Header dividers: column 0 is 80 wide, its divider at x = 80.
class HeaderInputTest : public ListInputTest {
protected:
  CHeaderCtrl & Header() { return *f.list->GetHeaderCtrl(); }
  wxPoint Divider() { return wxPoint(80, Header().GetSize().y / 2); }
  // A click elsewhere, so that the next press does not make a double click
  // with the last one; the notifications so far are forgotten.
  void ClickElsewhere() {
    f.seen.clear();
    ClickAt(*f.list, wxPoint(300, 100));
    ASSERT_TRUE(
        gui_test::WaitUntil([&] { return !f.seen.empty() && f.seen.back() == "CLICK -1,0"; }));
    f.seen.clear();
  }
  bool SeenEnd() {
    return gui_test::WaitUntil(
        [&] { return !f.seen.empty() && f.seen.back().rfind("ENDTRACK", 0) == 0; });
  }
};

TEST_F(HeaderInputTest, ADragResizesAHandlerMayRefuseClampOrChangeTheEnd) {
  struct Case {
    char const * name;
    bool refuse;
    bool refuseMove;  // HDN_TRACK answered nonzero: the drag ends there
    int minimum;
    int endWidth;
    int dragTo;
    int expected;
  };
  Case const cases[] = {
      {"plain", false, false, 0, 0, 130, 130},
      {"clamped to the minimum", false, false, 60, 0, 20, 60},
      {"changed at the end", false, false, 0, 99, 150, 99},
      {"refused", true, false, 0, 0, 150, 80},
      {"a move refused", false, true, 0, 0, 150, 80},
  };
  for (Case const & c : cases) {
    f.list->SetColumnWidth(0, 80);
    // A click elsewhere first, so that this press does not make a double
    // click with the last one.
    f.seen.clear();
    ClickAt(*f.list, wxPoint(300, 100));
    ASSERT_TRUE(
        gui_test::WaitUntil([&] { return !f.seen.empty() && f.seen.back() == "CLICK -1,0"; }));
    f.seen.clear();
    f.refuseTrack = c.refuse;
    f.refuseTrackMove = c.refuseMove;
    f.minimumWidth = c.minimum;
    f.endTrackWidth = c.endWidth;
    bool pressed = false;
    list_input::DragFromTo(Header(), Divider(), wxPoint(c.dragTo, Divider().y), [&] {
      // A step has arrived once the header answered it: the press with
      // HDN_BEGINTRACK, each move with HDN_TRACK (none after a refusal).
      if (!pressed) {
        pressed = gui_test::WaitUntil([&] { return !f.seen.empty(); });
        return;
      }
      int const tracks = f.tracks;
      gui_test::WaitUntil([&] { return f.tracks > tracks || Header().GetTrackingItem() < 0; });
    });
    if (c.refuse) {
      // The press is refused at once; wait for the release to have come.
      ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.seen.empty(); })) << c.name;
      gui_test::WaitUntil([&] { return Header().GetTrackingItem() < 0 && !Header().HasCapture(); });
      EXPECT_EQ(f.seen, Seen{"BEGINTRACK 0"}) << c.name;
    } else {
      ASSERT_TRUE(SeenEnd()) << c.name << " " << ::testing::PrintToString(f.seen);
      EXPECT_EQ(f.seen.front(), "BEGINTRACK 0") << c.name;
    }
    EXPECT_EQ(f.list->GetColumnWidth(0), c.expected) << c.name;
    // The cells follow their heading.
    RECT cell{};
    f.list->GetSubItemRect(0, 1, LVIR_BOUNDS, &cell);
    EXPECT_EQ(cell.left, c.expected) << c.name;
  }
}

TEST_F(HeaderInputTest, AHeadingDraggedSidewaysMovesItsColumnUnlessTheDropIsRefused) {
  f.list->SetExtendedStyle(LVS_EX_HEADERDRAGDROP);
  struct Case {
    char const * name;
    bool refuse;
    std::vector<int> order;
  };
  for (Case const & c : {Case{"refused", true, {0, 1, 2}}, Case{"moved", false, {1, 2, 0}}}) {
    ClickElsewhere();
    f.refuseDrop = c.refuse;
    list_input::DragFromTo(Header(), wxPoint(40, Divider().y), wxPoint(230, Divider().y), [&] {
      // The release's own place decides; the drag must have begun before it.
      gui_test::WaitUntil(
          [&] { return Header().GetPressedItem() == 0 || Header().GetDraggedItem() == 0; });
    });
    ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.seen.empty(); })) << c.name;
    EXPECT_EQ(f.seen, Seen{"ENDDRAG 0 to 2"}) << c.name;
    EXPECT_EQ(Header().GetOrder(), c.order) << c.name;
  }
  // The cells of column 0 are now painted last.
  RECT cell{};
  f.list->GetSubItemRect(0, 1, LVIR_BOUNDS, &cell);
  EXPECT_EQ(cell.left, 0);
  f.list->GetItemRect(0, &cell, LVIR_LABEL);
  EXPECT_EQ(cell.left, 160);
}

TEST_F(HeaderInputTest, DividerDoubleClickFitsTheColumnAndAHeadingClickSorts) {
  f.list->SetColumnWidth(0, 80);
  ClickElsewhere();
  list_input::MoveTo(Header(), Divider());
  list_input::Press(1, true);
  list_input::Press(1, false);
  // The first click is handled before the second comes, as a hand's would be.
  ASSERT_TRUE(SeenEnd());
  list_input::Press(1, true);
  list_input::Press(1, false);
  ASSERT_TRUE(gui_test::WaitUntil([&] {
    return std::find(f.seen.begin(), f.seen.end(), "DIVIDERDBLCLICK 0") != f.seen.end();
  })) << ::testing::PrintToString(f.seen);
  int const widest = f.list->GetStringWidth("r39c0");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetColumnWidth(0) < 80; }));
  EXPECT_GE(f.list->GetColumnWidth(0), widest);

  f.seen.clear();
  RECT heading{};
  Header().GetItemRect(1, &heading);
  ClickAt(Header(), wxPoint(heading.left + 20, Divider().y));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !f.seen.empty(); }));
  EXPECT_EQ(f.seen, Seen{"COLUMNCLICK 1"});
  gui_test::Snapshot(*f.frame, "listview");
}

}  // namespace
