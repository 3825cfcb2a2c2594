// The column tree in a frame of its own, with real windows: items and bad
// handles, the refused divider, copies and moves, sorting, painted rows
// (group spread, selection fill, right-aligned groups, ellipsis, huge and
// many cells), the header's arrow, the sideways bar, and clicks from the X
// server (the whole row, Ctrl in multi-selection, double clicks).
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/scrolbar.h>

#include <gtk/gtk.h>

#include "harness/GuiTestUtilities.h"
#include "lists/TreeListHost.h"
#include "lists/VxTreeCtrlEx.h"
#include "platform/SysColor.h"
#include "utl/Exception.h"

// X11 last: its macros (None) clash with the headers above.
#include "lists/PointerInput.h"

namespace {

class Tree : public VxTreeCtrlEx {
public:
  using VxTreeCtrlEx::OnPaint;
  using VxTreeCtrlEx::VxTreeCtrlEx;
};

// The frame the tree lives in: header on top, tree, sideways bar.
class Host : public wxFrame, public TreeListHost {
public:
  Host() : wxFrame(nullptr, wxID_ANY, "tree columns", wxPoint(60, 60), wxSize(420, 300)) {
    header = new CNewHeaderCtrl(this, 370, wxPoint(0, 0), wxSize(420, 22));
    tree = new Tree(this, VxTreeCtrlEx::kTreeId,
                    TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                    wxPoint(0, 22), wxSize(420, 240));
    bar = new wxScrollBar(this, 377, wxPoint(0, 262), wxSize(420, 16));
    tree->SetHeaderCtrl(header);
    Bind(VX_EVT_NOTIFY, [this](NotifyEvent & event) {
      if (event.GetCode() == TVN_SELCHANGEDW) selectionIds.push_back(event.GetHeader()->idFrom);
    });
    Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent &) { ++doubleClicks; });
  }
  void ResetScrollBar() override { ++resets; }
  wxScrollBar * GetSideScrollBar() override { return bar; }

  CNewHeaderCtrl * header = nullptr;
  Tree * tree = nullptr;
  wxScrollBar * bar = nullptr;
  int resets = 0;
  int doubleClicks = 0;
  std::vector<UINT_PTR> selectionIds;
};

class TreeExTest : public ::testing::Test {
protected:
  void SetUp() override {
    host = new Host;
    tree = host->tree;
    tree->InsertColumn(0, L"Name", 0, 120);
    tree->InsertColumn(1, L"Value", 1, 100);
    tree->InsertColumn(2, L"Unit", 2, 80);
  }
  void TearDown() override {
    host->Destroy();
    gui_test::Flush();
  }
  void Show() {
    ASSERT_TRUE(gui_test::ShowAndWait(*host));
    ASSERT_TRUE(gui_test::WaitUntil([this] { return IsClickable(*tree); }));
  }
  // The rows as the tree paints them now.
  wxImage Paint() {
    wxBitmap bitmap(tree->GetClientSize());
    {
      wxMemoryDC dc(bitmap);
      tree->OnPaint(dc, wxRect(tree->GetClientSize()));
    }
    return bitmap.ConvertToImage();
  }
  RECT Row(HTREEITEM item) const {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(item, &rect, 1));
    return rect;
  }
  // Pixels of `colour` in the row of `item` between x0 and x1.
  static int Count(wxImage const & image, RECT const & row, int x0, int x1,
                   wxColour const & colour) {
    int found = 0;
    for (int y = row.top; y < row.bottom; ++y)
      for (int x = std::max(0, x0); x < std::min(x1, image.GetWidth()); ++x)
        if (image.GetRed(x, y) == colour.Red() && image.GetGreen(x, y) == colour.Green() &&
            image.GetBlue(x, y) == colour.Blue())
          ++found;
    return found;
  }
  std::vector<std::wstring> Roots(int column = 0) const {
    std::vector<std::wstring> texts;
    for (HTREEITEM at = tree->GetRootItem(); at; at = tree->GetNextSiblingItem(at))
      texts.push_back(tree->GetItemText(at, column).ToStdWstring());
    return texts;
  }

  Host * host = nullptr;
  Tree * tree = nullptr;
};

}  // namespace

TEST_F(TreeExTest, ItemsAnswerByRootIndexAndRefuseBadHandles) {
  HTREEITEM const a = tree->InsertItem(L"a");
  HTREEITEM const b = tree->InsertItem(L"b");
  HTREEITEM const child = tree->InsertItem(L"a1", a);
  tree->InsertItem(0, L"last");     // index 0 appends
  tree->InsertItem(1, L"after a");  // after root 1
  EXPECT_EQ(Roots(), (std::vector<std::wstring>{L"a", L"b", L"after a", L"last"}));
  EXPECT_EQ(tree->GetListItem(b), 1);
  EXPECT_EQ(tree->GetListItem(child), 4);  // no root: the number of roots
  EXPECT_EQ(tree->GetItemText(1, 0), L"b");
  EXPECT_EQ(tree->GetItemPriority(a), 1000);
  EXPECT_EQ(tree->FindParentItem(L"b", 0, TVI_NULL, 0), b);
  EXPECT_FALSE(tree->FindParentItem(L"a1", 0, TVI_NULL, 0));  // does not descend
  EXPECT_GE(host->resets, 5);

  HTREEITEM const gone = tree->InsertItem(L"gone");
  ASSERT_TRUE(tree->DeleteItem(gone));
  EXPECT_EQ(tree->GetItemRecord(a)->hasChildren, 1);
  ASSERT_TRUE(tree->DeleteItem(child));
  EXPECT_EQ(tree->GetItemRecord(a)->hasChildren, 0);
  for (HTREEITEM bad : {TVI_NULL, TVI_ROOT, gone, child}) {
    EXPECT_EQ(tree->GetItemText(bad, 0), L"");
    EXPECT_EQ(tree->GetItemPriority(bad), -1);
    EXPECT_FALSE(tree->SetItemColor(bad, 0xFF, true));
    EXPECT_FALSE(tree->SetItemGroup(bad, true, true));
    EXPECT_EQ(tree->SetItemText(bad, 1, L"x"), 0);
    EXPECT_FALSE(tree->CopyItem(bad, TVI_ROOT));
    EXPECT_EQ(tree->DeleteItem(bad), 0);
  }
  for (int bad : {-1, 99}) {
    EXPECT_FALSE(tree->GetTreeItem(bad));
    EXPECT_EQ(tree->GetItemText(bad, 0), L"");
    EXPECT_EQ(tree->GetColumnWidth(bad), 0);
    EXPECT_FALSE(tree->SetColumnWidth(bad, 10));
  }
  EXPECT_EQ(tree->GetItemText(a, -1), L"");
}

TEST_F(TreeExTest, TextWithTheDividerIsRefusedAndNothingChanges) {
  HTREEITEM const a = tree->InsertItem(L"a");
  tree->SetItemText(a, 1, L"one");
  EXPECT_THROW(tree->SetItemText(a, 1, L"x\u00B6y"), Exception);
  EXPECT_EQ(tree->GetItemText(a, 1), L"one");
  EXPECT_THROW(tree->InsertItem(L"b\u00B6c"), Exception);
  EXPECT_EQ(tree->GetItemCount(), 1);
}

TEST_F(TreeExTest, CopiesAndMovesOnlyLeaves) {
  HTREEITEM const group = tree->InsertItem(L"group");
  HTREEITEM const leaf = tree->InsertItem(L"leaf", group);
  tree->SetItemText(leaf, 2, L"mg");
  tree->SetItemData(leaf, 77);
  EXPECT_FALSE(tree->CopyItem(group, TVI_ROOT));
  EXPECT_FALSE(tree->MoveItem(group, TVI_ROOT));
  EXPECT_EQ(tree->GetItemCount(), 2);
  HTREEITEM const copy = tree->CopyItem(leaf, TVI_ROOT);
  ASSERT_TRUE(copy);
  EXPECT_EQ(tree->GetItemText(copy, 2), L"mg");
  EXPECT_EQ(tree->GetItemData(copy), 77U);
  HTREEITEM const moved = tree->MoveItem(leaf, copy);
  ASSERT_TRUE(moved);
  EXPECT_FALSE(tree->IsValidItem(leaf));
  EXPECT_EQ(tree->GetParentItem(moved), copy);
  EXPECT_EQ(tree->GetItemRecord(group)->hasChildren, 0);
  EXPECT_EQ(tree->GetItemRecord(copy)->hasChildren, 1);
  // The family tree's branch copy gives the copies records of their own.
  HTREEITEM const twin = tree->CopyBranch(copy, TVI_ROOT);
  ASSERT_TRUE(tree->DeleteItem(copy));
  EXPECT_EQ(tree->GetItemText(tree->GetChildItem(twin), 2), L"mg");
  EXPECT_EQ(tree->DeleteSubItems(twin), 0);
  EXPECT_EQ(tree->GetItemCount(), 2);
  // Deleting the selection keeps the parent's flag too.
  tree->EnableMultiSelect(true);
  HTREEITEM const only = tree->InsertItem(L"only", twin);
  tree->SetItemState(only, TVIS_SELECTED, TVIS_SELECTED);
  tree->DeleteSelectedItems(false);
  EXPECT_EQ(tree->GetItemRecord(twin)->hasChildren, 0);
  tree->DeleteAllItems();
  EXPECT_EQ(tree->GetItemCount(), 0);
}

TEST_F(TreeExTest, SortsGroupsFirstThenByPriorityAndNumbers) {
  for (wchar_t const * text : {L"Sample 10", L"Sample 2", L"b", L"A", L"group"})
    tree->InsertItem(text);
  HTREEITEM const group = tree->GetTreeItem(4);
  tree->InsertItem(L"child", group);
  tree->SetItemPriority(tree->GetTreeItem(2), 2000);  // b
  tree->SortItems(0, true, TVI_NULL);
  EXPECT_EQ(Roots(), (std::vector<std::wstring>{L"group", L"b", L"A", L"Sample 2", L"Sample 10"}));
  // Descending flips only -1 and +1: "A" against "Sample" answers 'a' - 's'
  // and keeps its place.
  tree->SortItems(0, false, TVI_NULL);
  EXPECT_EQ(Roots(), (std::vector<std::wstring>{L"group", L"b", L"A", L"Sample 10", L"Sample 2"}));
  // An order that is no permutation of the children moves nothing.
  HTREEITEM const first = tree->GetRootItem();
  HTREEITEM const child = tree->GetChildItem(group);
  std::vector<HTREEITEM> const bad[] = {{first, first, first, first, first}, {child}, {}};
  for (auto const & order : bad) EXPECT_EQ(tree->SetChildOrder(TVI_ROOT, order), 0);
  EXPECT_EQ(Roots(), (std::vector<std::wstring>{L"group", L"b", L"A", L"Sample 10", L"Sample 2"}));
}

TEST_F(TreeExTest, PaintsRowsCellsAndGroups) {
  HTREEITEM const group = tree->InsertItem(L"Series");
  HTREEITEM const run = tree->InsertItem(L"Run", group);
  HTREEITEM const plain = tree->InsertItem(L"plain");
  HTREEITEM const red = tree->InsertItem(L"Red and bold");
  tree->SetItemColor(red, 0x0000C8, false);
  tree->SetItemBold(red, true, false);
  tree->SetItemText(plain, 1, std::wstring(1'000'000, L'W').c_str());  // a megabyte cell
  tree->SetItemState(plain, TVIS_SELECTED, TVIS_SELECTED);
  Show();
  tree->SetItemGroup(group, true, true);
  EXPECT_FALSE(tree->IsGroup(run));  // spreads only once painted
  wxImage const image = Paint();
  EXPECT_TRUE(tree->IsGroup(run));
  gui_test::Snapshot(*host, "tree-columns-rows");

  // The selected row is filled from its label to the columns' end.
  RECT const row = Row(plain);
  wxColour const highlight = GetSysColour(COLOR_HIGHLIGHT);
  int const fill = Count(image, row, 300 - 2, 300, highlight);
  EXPECT_EQ(fill, 2 * (row.bottom - row.top));
  EXPECT_EQ(Count(image, row, 302, 420, highlight), 0);
  // The megabyte cell ends in the ellipsis before the column's edge.
  wxColour const text = GetSysColour(COLOR_HIGHLIGHTTEXT);
  EXPECT_GT(Count(image, row, 120, 220 - 6, text), 0);
  EXPECT_EQ(Count(image, row, 220 - 5, 222, text), 0);
  // A group row's name stands at the right of the first column.
  wxColour const windowText = GetSysColour(COLOR_WINDOWTEXT);
  RECT const groupRow = Row(group);
  EXPECT_GT(Count(image, groupRow, 80, 120, windowText), 0);
  EXPECT_EQ(Count(image, groupRow, Row(group).left, 60, windowText), 0);
  EXPECT_GT(Count(image, Row(red), 0, 120, wxColour(0xC8, 0, 0)), 0);
}

TEST_F(TreeExTest, ManyOrNoColumnsPaint) {
  HTREEITEM const item = tree->InsertItem(L"row");
  Show();
  for (int column = 3; column < 1000; ++column) tree->InsertColumn(column, L"c", 0, 40);
  for (int column = 0; column < 1000; ++column)
    tree->SetItemText(item, column, std::to_wstring(column).c_str());
  EXPECT_EQ(tree->GetItemText(item, 999), L"999");
  auto const start = std::chrono::steady_clock::now();
  Paint();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
  tree->ClearColumns();
  EXPECT_EQ(tree->GetColumnsWidth(), 0);
  Paint();
}

TEST_F(TreeExTest, SidewaysBarFollowsTheColumnsWidth) {
  Show();
  tree->ResetVertScrollBar();
  EXPECT_FALSE(host->bar->IsShown());
  tree->SetColumnWidth(2, 600);
  tree->ResetVertScrollBar();
  EXPECT_TRUE(host->bar->IsShown());
  EXPECT_EQ(host->bar->GetRange(), tree->GetColumnsWidth());
  // The offset moves the rows, and their hits with them.
  HTREEITEM const item = tree->InsertItem(L"row");
  int const left = Row(item).left;
  tree->SetHorizontalOffset(-10);
  EXPECT_EQ(Row(item).left, left - 10);
  UINT hit = 0;
  EXPECT_EQ(tree->HitTest(POINT{left - 10 + 2, Row(item).top + 2}, &hit), item);
  EXPECT_EQ(hit, TVHT_ONITEMLABEL);
  tree->SetColumnWidth(2, 40);
  tree->ResetVertScrollBar();
  EXPECT_FALSE(host->bar->IsShown());
  EXPECT_EQ(tree->GetHorizontalOffset(), 0);
}

TEST_F(TreeExTest, HeaderDrawsTheArrowOnlyWhileSorting) {
  Show();
  auto arrowPixels = [this] {
    wxBitmap bitmap(host->header->GetSize());
    {
      wxMemoryDC dc(bitmap);
      RECT const item{0, 0, 120, 22};
      host->header->DrawItem(dc, 0, item, 0);
    }
    wxImage const image = bitmap.ConvertToImage();
    wxColour const shadow = GetSysColour(COLOR_3DSHADOW);
    int found = 0;
    for (int y = 0; y < 22; ++y)
      for (int x = 90; x < 120; ++x)
        found += image.GetRed(x, y) == shadow.Red() && image.GetGreen(x, y) == shadow.Green() &&
                 image.GetBlue(x, y) == shadow.Blue();
    return found;
  };
  EXPECT_EQ(arrowPixels(), 0);
  host->header->SetSortActive(1);
  EXPECT_GT(arrowPixels(), 0);
  gui_test::Snapshot(*host->header, "tree-columns-header");
}

// --- Clicks from the X server ------------------------------------------------

TEST_F(TreeExTest, ClicksCountAnywhereInTheRowAndCtrlAddsInMultiSelection) {
  HTREEITEM const a = tree->InsertItem(L"a");
  HTREEITEM const b = tree->InsertItem(L"b");
  HTREEITEM const c = tree->InsertItem(L"c");
  tree->InsertItem(L"a1", a);
  Show();
  auto middle = [this](HTREEITEM item, int x) {
    RECT const row = Row(item);
    return wxPoint(x, (row.top + row.bottom) / 2);
  };
  FakeClickAt(*tree, middle(b, 260));  // in the third column
  EXPECT_TRUE(gui_test::WaitUntil([&] { return tree->GetSelectedItem() == b; }));

  tree->EnableMultiSelect(true);
  FakeClickAt(*tree, middle(a, 200));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return tree->GetSelectedItem() == a; }));
  Display * const display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  XTestFakeKeyEvent(display, XKeysymToKeycode(display, XK_Control_L), True, CurrentTime);
  FakeClickAt(*tree, middle(c, 200));
  XTestFakeKeyEvent(display, XKeysymToKeycode(display, XK_Control_L), False, CurrentTime);
  XSync(display, False);
  EXPECT_TRUE(gui_test::WaitUntil([&] { return tree->GetSelectedItemCount() == 2; }));
  EXPECT_NE(tree->GetItemState(a, TVIS_SELECTED), 0U);
  EXPECT_NE(tree->GetItemState(c, TVIS_SELECTED), 0U);
  ASSERT_FALSE(host->selectionIds.empty());
  EXPECT_EQ(host->selectionIds.back(), UINT_PTR(373));
  // A click on a button expands and keeps the selection.
  FakeClickAt(*tree, middle(a, static_cast<int>(tree->GetIndent()) / 2));
  EXPECT_TRUE(gui_test::WaitUntil([&] { return tree->GetItemState(a, TVIS_EXPANDED) != 0; }));
  EXPECT_EQ(tree->GetSelectedItemCount(), 2);
}

TEST_F(TreeExTest, DoubleClickExpandsOnlyInTheFirstColumn) {
  HTREEITEM const group = tree->InsertItem(L"group");
  tree->InsertItem(L"child", group);
  Show();
  RECT const row = Row(group);
  int const y = (row.top + row.bottom) / 2;
  auto doubleClick = [this, y](int x) { FakeDoubleClickAt(*tree, wxPoint(x, y)); };
  doubleClick(180);  // the second column
  ASSERT_TRUE(gui_test::WaitUntil([this] { return host->doubleClicks == 1; }));
  EXPECT_EQ(tree->GetItemState(group, TVIS_EXPANDED), 0U);
  // The next press must not count as the third click of the last pair: let
  // the desktop's double-click time run out first.
  gint doubleClickMs = 400;
  g_object_get(gtk_settings_get_default(), "gtk-double-click-time", &doubleClickMs, nullptr);
  auto const lastClick = std::chrono::steady_clock::now();
  gui_test::WaitUntil([&] {
    return std::chrono::steady_clock::now() - lastClick >
           std::chrono::milliseconds(2 * doubleClickMs);
  });
  doubleClick(100);  // the first column, right of the label
  ASSERT_TRUE(gui_test::WaitUntil([this] { return host->doubleClicks == 2; }));
  EXPECT_NE(tree->GetItemState(group, TVIS_EXPANDED), 0U);
}
