// The tree list with real windows: taking a template's place, the sideways
// bar and the header in step (the right edge while a column narrows at the
// far right, nothing while redraw is off, the pixels sideways steps leave
// against a whole repaint), header sorting by type, what the
// parent hears, columns following the width, the text and HTML forms, and
// bad handles and texts.
#include <gtest/gtest.h>

#include <cstring>

#include <wx/frame.h>
#include <wx/scrolbar.h>
#include <wx/sizer.h>

#include "controls/WindowSnapshot.h"
#include "harness/GuiTestUtilities.h"
#include "lists/TreeListGeometry.h"
#include "lists/VxTreeListCtrl.h"
#include "platform/commctrl/NotifyEvent.h"
#include "utl/Exception.h"

namespace {

class TreeListTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "tree list", wxPoint(40, 40), wxSize(420, 320));
    list = new VxTreeListCtrl;
    ASSERT_TRUE(list->Create(frame, 1040, wxPoint(0, 0), wxSize(400, 300)));
    frame->Bind(VX_EVT_NOTIFY, [this](NotifyEvent & event) {
      heard.push_back(event.GetCode());
      event.SetResult(answer);
    });
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  void Columns(std::vector<int> const & widths) {
    for (size_t column = 0; column < widths.size(); ++column) {
      wxString const heading = wxString::Format("C%zu", column);
      list->InsertColumn(static_cast<int>(column), heading.wc_str(), 0, widths[column]);
    }
  }
  void SetWidth(int column, int width) {
    HDITEMW item;
    item.mask = HDI_WIDTH;
    item.cxy = width;
    list->GetHeaderCtrl()->SetItem(column, &item);
  }
  LRESULT ClickHeading(int column) {
    NMHEADERW click;
    click.iItem = column;
    return SendNotify(list->GetHeaderCtrl(), HDN_ITEMCLICKW, click.hdr);
  }
  std::vector<wxString> Texts(HTREEITEM parent) {
    std::vector<wxString> texts;
    for (HTREEITEM item = list->GetChildItem(parent); item; item = list->GetNextSiblingItem(item))
      texts.push_back(list->GetItemText(item, 0));
    return texts;
  }
  int Offset() { return list->GetTreeCtrl().GetHorizontalOffset(); }
  int ColumnsRightEdge() { return Offset() + list->GetTreeCtrl().GetColumnsWidth(); }

  wxFrame * frame = nullptr;
  VxTreeListCtrl * list = nullptr;
  std::vector<UINT> heard;
  LRESULT answer = 0;
};

TEST(TreeListSubclass, TakesThePlaceholdersIdPlaceAndSizerSlot) {
  auto * frame = new wxFrame(nullptr, wxID_ANY, "template", wxPoint(40, 40), wxSize(300, 200));
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  auto * placeholder = new wxWindow(frame, 1041, wxPoint(5, 7), wxSize(250, 150));
  sizer->Add(placeholder, 1, wxEXPAND);
  frame->SetSizer(sizer);
  placeholder->SetSize(5, 7, 250, 150);

  VxTreeListCtrl missing;
  EXPECT_FALSE(missing.SubclassDlgItem(999, frame));
  auto * list = new VxTreeListCtrl;
  ASSERT_TRUE(list->SubclassDlgItem(1041, frame));
  EXPECT_EQ(frame->FindWindow(1041), list);
  EXPECT_EQ(list->GetRect(), wxRect(5, 7, 250, 150));
  EXPECT_EQ(list->GetContainingSizer(), sizer);
  EXPECT_EQ(list->FindWindow(VxTreeListCtrl::kHeaderId), list->GetHeaderCtrl());
  EXPECT_EQ(list->FindWindow(VxTreeListCtrl::kTreeId), &list->GetTreeCtrl());
  EXPECT_EQ(list->FindWindow(VxTreeListCtrl::kScrollBarId), list->GetSideScrollBar());
  EXPECT_EQ(list->GetHeaderCtrl()->GetSize().y, list->GetTextExtent("A").y + 4);
  EXPECT_FALSE(list->SubclassDlgItem(1041, frame)) << "a second time";
  frame->Destroy();
  gui_test::Flush();
}

TEST_F(TreeListTest, SidewaysBarHeaderAndRowsMoveTogether) {
  Columns({100, 100});
  HTREEITEM const row = list->InsertItem(L"row");
  list->SetItemText(row, 1, L"the last cell's text, right to its end");
  wxScrollBar & bar = *list->GetSideScrollBar();
  EXPECT_FALSE(bar.IsShown());
  EXPECT_FALSE(bar.IsEnabled());

  SetWidth(1, 600);  // 700 wide
  ASSERT_TRUE(bar.IsShown());
  EXPECT_TRUE(bar.IsEnabled());
  list->OnHScroll(SB_LINERIGHT, 0);
  EXPECT_EQ(Offset(), -kSidewaysLineStep);
  EXPECT_EQ(list->GetHeaderOffset(), -kSidewaysLineStep);
  list->OnHScroll(SB_THUMBTRACK, 1);
  EXPECT_EQ(Offset(), -6) << "a thumb at 1 snaps to 6";

  // At the far right a narrowing column keeps the right edge in place.
  list->OnHScroll(SB_RIGHT, 0);
  int const treeRight = list->GetTreeCtrl().GetClientSize().x;
  EXPECT_EQ(ColumnsRightEdge(), treeRight);
  SetWidth(1, 560);
  EXPECT_EQ(ColumnsRightEdge(), treeRight);
  EXPECT_EQ(list->GetHeaderOffset(), Offset());
  gui_test::Snapshot(*frame, "tree-list-far-right");

  SetWidth(1, 100);  // fits again
  EXPECT_FALSE(bar.IsShown());
  EXPECT_EQ(Offset(), 0);
  EXPECT_EQ(list->GetHeaderOffset(), 0);
}

// Sideways steps move the drawn rows and paint only the strip each one
// uncovers: after steps both ways (and a selection changed between them)
// the screen must show what a whole repaint at that offset shows.
TEST_F(TreeListTest, SidewaysStepsShowWhatAWholeRepaintShows) {
  Columns({150, 170, 150, 160});
  std::vector<HTREEITEM> rows;
  for (int row = 0; row < 12; ++row) {
    HTREEITEM const item = list->InsertItem(wxString::Format("row %d", row).wc_str());
    for (int column = 1; column < 4; ++column)
      list->SetItemText(item, column,
                        wxString::Format("cell %d.%d of the row", row, column).wc_str());
    if (row % 3 == 0) list->SetItemBold(item, true, false);
    rows.push_back(item);
  }
  VxTreeCtrlEx & tree = list->GetTreeCtrl();
  CNewHeaderCtrl & header = *list->GetHeaderCtrl();
  // GTK's overlay scroll bar fades in and out over the right edge: left out.
  auto shown = [&](wxWindow & window) {
    window.Update();
    gui_test::Flush();
    wxImage const image = CaptureWindowImage(window);
    int const kept = image.GetWidth() - (&window == &tree ? 20 : 0);
    return image.IsOk() ? image.GetSubImage(wxRect(0, 0, kept, image.GetHeight())) : image;
  };
  auto whole = [&](wxWindow & window) {
    window.Refresh();
    return shown(window);
  };
  wxImage const start = whole(tree);
  ASSERT_TRUE(start.IsOk());

  struct Step {
    UINT code;
    int times;
  };
  for (Step const step : {Step{SB_LINERIGHT, 5}, Step{SB_LINELEFT, 2}, Step{SB_LINERIGHT, 7}}) {
    for (int k = 0; k < step.times; ++k) {
      list->OnHScroll(step.code, 0);
      shown(tree);
      shown(header);
    }
    if (step.code == SB_LINELEFT) tree.SelectItem(rows[4]);  // a change between steps
  }
  EXPECT_EQ(Offset(), -10 * kSidewaysLineStep);
  wxImage const stepped = shown(tree);
  wxImage const steppedHeader = shown(header);
  gui_test::Snapshot(*frame, "tree-list-after-steps");
  wxImage const repainted = whole(tree);
  wxImage const repaintedHeader = whole(header);
  ASSERT_EQ(stepped.GetSize(), repainted.GetSize());
  auto bytesOf = [](wxImage const & image) {
    return static_cast<size_t>(image.GetWidth()) * static_cast<size_t>(image.GetHeight()) * 3;
  };
  size_t const bytes = bytesOf(stepped);
  EXPECT_NE(0, memcmp(start.GetData(), repainted.GetData(), bytes)) << "the rows moved";
  EXPECT_EQ(0, memcmp(stepped.GetData(), repainted.GetData(), bytes));
  ASSERT_EQ(steppedHeader.GetSize(), repaintedHeader.GetSize());
  EXPECT_EQ(0, memcmp(steppedHeader.GetData(), repaintedHeader.GetData(), bytesOf(steppedHeader)));
}

TEST_F(TreeListTest, RedrawOffLeavesTheBarAloneUntilItIsOn) {
  Columns({100});
  list->SetRedraw(0);
  list->InsertColumn(1, L"wide", 0, 900);
  for (int n = 0; n < 50; ++n) list->InsertItem(L"row");
  EXPECT_FALSE(list->GetSideScrollBar()->IsShown());
  list->SetRedraw(1);
  EXPECT_TRUE(list->GetSideScrollBar()->IsShown());
}

TEST_F(TreeListTest, HeadingClicksSortByTheSortType) {
  Columns({150, 150});
  for (wchar_t const * root : {L"Series 10", L"Series 9"}) {
    HTREEITEM const item = list->InsertItem(root);
    for (wchar_t const * run : {L"Run 2", L"Run 10", L"Run 1"}) list->InsertItem(run, item);
  }
  HTREEITEM const first = list->GetItem(0);
  struct Case {
    VxTreeListCtrl::SortType type;
    int column;
    std::vector<wxString> roots, runs;
  };
  std::vector<Case> const cases{
      {VxTreeListCtrl::NoSort, 0, {"Series 10", "Series 9"}, {"Run 2", "Run 10", "Run 1"}},
      {VxTreeListCtrl::SortRoots, 0, {"Series 9", "Series 10"}, {"Run 2", "Run 10", "Run 1"}},
      {VxTreeListCtrl::SortRoots, 0, {"Series 10", "Series 9"}, {"Run 2", "Run 10", "Run 1"}},
      {VxTreeListCtrl::SortChildren, 1, {"Series 10", "Series 9"}, {"Run 2", "Run 10", "Run 1"}},
      {VxTreeListCtrl::SortChildren, 0, {"Series 10", "Series 9"}, {"Run 1", "Run 2", "Run 10"}},
      {VxTreeListCtrl::SortChildren, 0, {"Series 10", "Series 9"}, {"Run 10", "Run 2", "Run 1"}},
  };
  for (size_t n = 0; n < cases.size(); ++n) {
    Case const & c = cases[n];
    list->SetSortType(c.type);
    ClickHeading(c.column);
    EXPECT_EQ(Texts(TVI_ROOT), c.roots) << "click " << n;
    EXPECT_EQ(Texts(first), c.runs) << "click " << n;
  }
  EXPECT_EQ(list->GetHeaderCtrl()->GetSortColumn(), 0);
  EXPECT_EQ(list->GetHeaderCtrl()->GetAscending(), 0);
  // A heading click is the frame's: the parent does not hear it.
  EXPECT_EQ(std::count(heard.begin(), heard.end(), HDN_ITEMCLICKW), 0);
}

TEST_F(TreeListTest, ParentHearsWhatTheFrameDoesNotUse) {
  Columns({100});
  HTREEITEM const a = list->InsertItem(L"a");
  list->InsertItem(L"b");
  heard.clear();
  list->GetTreeCtrl().SelectItem(a);
  EXPECT_NE(std::count(heard.begin(), heard.end(), TVN_SELCHANGEDW), 0);

  // The parent's answer reaches the header: a refused drag does not start.
  answer = 1;
  NMHEADERW track;
  track.iItem = 0;
  EXPECT_EQ(SendNotify(list->GetHeaderCtrl(), HDN_BEGINTRACKW, track.hdr), 1);

  int doubleClicks = 0;
  wxPoint where(-1, -1);
  frame->Bind(wxEVT_LEFT_DCLICK, [&](wxMouseEvent & event) {
    ++doubleClicks;
    where = event.GetPosition();
  });
  wxMouseEvent twice(wxEVT_LEFT_DCLICK);
  twice.SetPosition(wxPoint(30, 40));
  list->GetEventHandler()->ProcessEvent(twice);
  EXPECT_EQ(doubleClicks, 1);
  EXPECT_EQ(where, wxPoint(0, 0));
}

TEST_F(TreeListTest, ColumnsFollowTheWidthOnceAutoSizeIsOn) {
  Columns({100, 100, 100});
  list->EnableColumnAutoSize(true);
  int const start = list->GetClientSize().x;
  ASSERT_EQ(list->GetAutoSizeWidth(), start);
  list->SetSize(start + 5, 300);  // under 10: nothing
  EXPECT_EQ(list->GetTreeCtrl().GetColumnWidth(0), 100);
  list->SetSize(start + 60, 300);
  gui_test::WaitUntil([&] { return list->GetAutoSizeWidth() == start + 60; });
  EXPECT_EQ(list->GetTreeCtrl().GetColumnWidth(0), 120);
  EXPECT_EQ(list->GetTreeCtrl().GetColumnWidth(2), 120);
  EXPECT_EQ(list->GetTreeCtrl().GetColumnsWidth(), 360);
  list->EnableColumnAutoSize(false);
  list->SetSize(300, 300);
  gui_test::WaitUntil([&] { return list->GetSize().x == 300; });
  EXPECT_EQ(list->GetTreeCtrl().GetColumnsWidth(), 360);
}

TEST_F(TreeListTest, TextAndHtmlFormsWalkTheTree) {
  Columns({100, 100});
  HTREEITEM const series = list->InsertItem(L"S1");
  list->SetItemText(series, 1, L"HPLC");
  HTREEITEM const run = list->InsertItem(L"Run 1", series);
  list->SetItemFloat(run, 1, 2.5F, L" mg/l");
  HTREEITEM const gone = list->InsertItem(L"gone");
  list->DeleteItem(gone);

  EXPECT_EQ(list->GetTextClipString(), "C0\tC1\r\nS1\tHPLC\r\nRun 1\t2.5 mg/l");
  EXPECT_EQ(list->ToHTML("T"),
            "<table><caption>T</caption><thead><tr><th>C0</th><th>C1</th></tr></thead><tbody>"
            "<tr><td>S1</td><td>HPLC</td></tr>"
            "<tr><td>&nbsp;Run 1</td><td>&nbsp;2.5 mg/l</td></tr></tbody></table>");
  // Given rows: no headings, no nesting mark; a deleted handle is passed over.
  std::vector<HTREEITEM> const items{run, gone, series};
  EXPECT_EQ(list->MakeClipString(items, 1).value_or("(null)"), "Run 1\r\nS1");
  EXPECT_EQ(list->ToHTML(items, 1),
            "<table><tbody><tr><td>Run 1</td></tr><tr><td>S1</td></tr></tbody></table>");
  list->DeleteAllItems();
  EXPECT_EQ(list->MakeClipString().value_or("(null)"), "C0\tC1");
}

TEST_F(TreeListTest, BadHandlesAndTextsChangeNothing) {
  Columns({100, 100});
  HTREEITEM const item = list->InsertItem(L"kept");
  HTREEITEM const gone = list->InsertItem(L"gone");
  list->DeleteItem(gone);
  for (HTREEITEM bad : {HTREEITEM{}, gone, TVI_ROOT}) {
    EXPECT_EQ(list->GetItemText(bad, 0), "");
    EXPECT_FALSE(list->SetItemText(bad, 0, L"x"));
    EXPECT_FALSE(list->SetItemBold(bad, true));
    EXPECT_FALSE(list->ItemHasChildren(bad));
    EXPECT_FALSE(list->GetParentItem(bad));
    EXPECT_FALSE(list->GetNextSiblingItem(bad));
    EXPECT_EQ(list->GetItemState(bad, TVIS_SELECTED), 0u);
  }
  EXPECT_FALSE(list->GetItem(7));
  EXPECT_FALSE(list->GetItem(-1));
  EXPECT_EQ(list->GetItemText(5, 0), "");
  EXPECT_FALSE(list->SetColumnHeaderText(9, L"x"));
  EXPECT_EQ(list->GetSelIndex(), -1);
  EXPECT_THROW(list->SetItemText(item, 1, L"a\u00B6b"), Exception);
  EXPECT_EQ(list->GetTextClipString(), "C0\tC1\r\nkept");
}

TEST_F(TreeListTest, HugeCellsManyColumnsAndNoColumnsPaintAndExport) {
  struct Case {
    char const * name;
    int columns;
    size_t cellLength;
  };
  for (Case const & c : std::vector<Case>{
           {"1 MB cells", 2, 1u << 20}, {"1,000 columns", 1000, 3}, {"no columns", 0, 5}}) {
    list->DeleteAllItems();
    list->ClearColumns();
    std::vector<int> widths(static_cast<size_t>(c.columns), 40);
    Columns(widths);
    std::wstring const cell(c.cellLength, L'x');
    HTREEITEM const item = list->InsertItem(cell.c_str());
    for (int column = 1; column < c.columns; ++column)
      list->SetItemText(item, column, cell.c_str());
    list->Refresh();
    list->Update();
    gui_test::Flush();
    size_t const cells = static_cast<size_t>(std::max(c.columns, 0));
    EXPECT_EQ(list->MakeClipString({item}, c.columns).value_or("").length(),
              cells * c.cellLength + (cells > 0 ? cells - 1 : 0))
        << c.name;
    EXPECT_EQ(
        list->ToHTML({item}, c.columns).size(),
        std::string("<table><tbody><tr></tr></tbody></table>").size() + cells * (c.cellLength + 9))
        << c.name;
  }
}

}  // namespace
