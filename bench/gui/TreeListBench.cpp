// The tree list beside its peers: filling 100,000 rows of 5 columns with
// redraw off (wx's own tree list), a full repaint of 50 rows of 8 columns
// and one sideways line step (a wx grid repainting as many cells), a
// heading click sorting 20,000 roots (a bare merge sort of the same
// records), and the text and HTML of 100,000 rows (joining the same cells
// from a vector). Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/grid.h>
#include <wx/treelist.h>

#include <memory>
#include <string>
#include <vector>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "lists/TreeListGeometry.h"
#include "lists/VxTreeListCtrl.h"
#include "platform/commctrl/MergeSortBy.h"
#include "platform/commctrl/NotifyEvent.h"
#include "utl/Utf.h"

namespace {

TALVO_RATIO_LIMIT("TreeListFill", 0.1);
TALVO_RATIO_LIMIT("TreeListRepaint", 0.6);
TALVO_RATIO_LIMIT("TreeListLineRight", 0.25);
TALVO_RATIO_LIMIT("TreeListHeaderSort", 1.3);
TALVO_RATIO_LIMIT("TreeListTextAndHtml", 1.5);

bool Started(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

using FramePtr = std::unique_ptr<wxFrame, void (*)(wxFrame *)>;

FramePtr MakeFrame(wxSize size) {
  auto * frame = new wxFrame(nullptr, wxID_ANY, "Bench", wxPoint(0, 0), size);
  frame->Show();
  return FramePtr(frame, [](wxFrame * f) { DestroyNow(f); });
}

void WaitShown(wxWindow & window) {
  for (int i = 0; i < 500 && !window.IsShownOnScreen(); ++i) wxTheApp->Yield();
  for (int i = 0; i < 20; ++i) wxTheApp->Yield();
}

// A shown tree list with `columns` columns of `width` pixels.
struct TreeListHost {
  FramePtr frame;
  VxTreeListCtrl * list = new VxTreeListCtrl;
  TreeListHost(int columns, int width, wxSize size) : frame(MakeFrame(size)) {
    list->Create(frame.get(), wxID_ANY, wxPoint(0, 0), frame->GetClientSize());
    for (int column = 0; column < columns; ++column)
      list->InsertColumn(column, wxString::Format(L"Column %d", column).wc_str(), 0, width);
  }
};

wxString Cell(int row, int column) { return wxString::Format(L"Run %d value %d", row, column); }

// 1,000 roots of 99 children each: 100,000 rows.
template <class AddRow>
void FillRows(AddRow const & add) {
  int row = 0;
  for (int root = 0; root < 1000; ++root) {
    add(row++, -1);
    int const parent = row - 1;
    for (int child = 0; child < 99; ++child) add(row++, parent);
  }
}

// The texts of the 100,000 rows, made once: formatting them would cost both
// sides of the fill figure more than the fill itself.
class FillCells {
public:
  explicit FillCells(int columns) : mColumns(columns) {
    mCells.reserve(size_t{100000} * static_cast<size_t>(columns));
    FillRows([&](int row, int) {
      for (int column = 0; column < columns; ++column) mCells.push_back(Cell(row, column));
    });
  }
  wxString const & At(int row, int column) const {
    return mCells[static_cast<size_t>(row) * static_cast<size_t>(mColumns) +
                  static_cast<size_t>(column)];
  }

private:
  int mColumns;
  std::vector<wxString> mCells;
};

void FillTreeList(VxTreeListCtrl & list, FillCells const & cells, int columns) {
  std::vector<HTREEITEM> items;
  items.reserve(100000);
  list.SetRedraw(0);
  FillRows([&](int row, int parent) {
    HTREEITEM const item =
        list.InsertItem(cells.At(row, 0).wc_str(),
                        parent < 0 ? TVI_ROOT : items[static_cast<size_t>(parent)], TVI_LAST);
    items.push_back(item);
    for (int column = 1; column < columns; ++column)
      list.SetItemText(item, column, cells.At(row, column).wc_str());
  });
  list.SetRedraw(1);
}

// --- Filling 100,000 rows x 5 columns ---------------------------------------

void TreeListFill_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  TreeListHost host(5, 100, wxSize(600, 400));
  FillCells const cells(5);
  for (auto _ : state) {
    FillTreeList(*host.list, cells, 5);
    state.PauseTiming();
    host.list->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(TreeListFill_candidate)
    ->Name("TreeListFill/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

void TreeListFill_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  FramePtr frame = MakeFrame(wxSize(600, 400));
  auto * list = new wxTreeListCtrl(frame.get(), wxID_ANY, wxPoint(0, 0), frame->GetClientSize());
  for (int column = 0; column < 5; ++column)
    list->AppendColumn(wxString::Format(L"Column %d", column), 100);
  FillCells const cells(5);
  for (auto _ : state) {
    std::vector<wxTreeListItem> items;
    items.reserve(100000);
    list->Freeze();
    FillRows([&](int row, int parent) {
      wxTreeListItem const item = list->AppendItem(
          parent < 0 ? list->GetRootItem() : items[static_cast<size_t>(parent)], cells.At(row, 0));
      items.push_back(item);
      for (int column = 1; column < 5; ++column)
        list->SetItemText(item, column, cells.At(row, column));
    });
    list->Thaw();
    state.PauseTiming();
    list->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(TreeListFill_baseline)
    ->Name("TreeListFill/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

// --- Repainting 50 rows x 8 columns, and one sideways step -------------------

// 50 rows of 8 columns, 120 pixels each, in a window narrower than them.
struct PaintedTreeList : TreeListHost {
  PaintedTreeList() : TreeListHost(8, 120, wxSize(700, 1200)) {
    list->SetRedraw(0);
    for (int row = 0; row < 50; ++row) {
      HTREEITEM const item = list->InsertItem(Cell(row, 0).wc_str());
      for (int column = 1; column < 8; ++column)
        list->SetItemText(item, column, Cell(row, column).wc_str());
      if (row % 5 == 0) list->SetItemBold(item, true, false);
    }
    list->SetRedraw(1);
    WaitShown(list->GetTreeCtrl());
  }
};

void TreeListRepaint_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  PaintedTreeList host;
  VxTreeCtrlEx & tree = host.list->GetTreeCtrl();
  for (auto _ : state) {
    tree.Refresh();
    tree.Update();
  }
}
BENCHMARK(TreeListRepaint_candidate)
    ->Name("TreeListRepaint/candidate")
    ->Unit(benchmark::kMicrosecond);

void GridRepaint(benchmark::State & state) {
  if (!Started(state)) return;
  FramePtr frame = MakeFrame(wxSize(700, 1200));
  auto * grid = new wxGrid(frame.get(), wxID_ANY, wxPoint(0, 0), frame->GetClientSize());
  grid->CreateGrid(50, 8);
  for (int row = 0; row < 50; ++row)
    for (int column = 0; column < 8; ++column) grid->SetCellValue(row, column, Cell(row, column));
  wxWindow & cells = *grid->GetGridWindow();
  WaitShown(cells);
  for (auto _ : state) {
    cells.Refresh();
    cells.Update();
  }
}

void TreeListRepaint_baseline(benchmark::State & state) { GridRepaint(state); }
BENCHMARK(TreeListRepaint_baseline)
    ->Name("TreeListRepaint/baseline")
    ->Unit(benchmark::kMicrosecond);

void TreeListLineRight_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  PaintedTreeList host;
  VxTreeCtrlEx & tree = host.list->GetTreeCtrl();
  CNewHeaderCtrl & header = *host.list->GetHeaderCtrl();
  bool right = true;
  for (auto _ : state) {
    // Right and back in turn: every step moves by a line.
    host.list->OnHScroll(right ? SB_LINERIGHT : SB_LINELEFT, 0);
    tree.Update();
    header.Update();
    right = !right;
  }
}
BENCHMARK(TreeListLineRight_candidate)
    ->Name("TreeListLineRight/candidate")
    ->Unit(benchmark::kMicrosecond);

void TreeListLineRight_baseline(benchmark::State & state) { GridRepaint(state); }
BENCHMARK(TreeListLineRight_baseline)
    ->Name("TreeListLineRight/baseline")
    ->Unit(benchmark::kMicrosecond);

// --- A heading click sorting 20,000 roots ------------------------------------

wxString SortText(int n) {
  // Shuffled numbers under a few prefixes.
  unsigned const mixed = (static_cast<unsigned>(n) * 2654435761U) % 100000U;
  return wxString::Format(L"%s %u", n % 3 == 0 ? L"Run" : n % 3 == 1 ? L"Sample" : L"Blank", mixed);
}

void TreeListHeaderSort_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  TreeListHost host(2, 100, wxSize(400, 400));
  host.list->SetSortType(VxTreeListCtrl::SortRoots);
  host.list->SetRedraw(0);
  for (int n = 0; n < 20000; ++n) host.list->InsertItem(SortText(n).wc_str());
  host.list->SetRedraw(1);
  for (auto _ : state) {
    // Each click turns the order round.
    NMHEADERW click;
    click.iItem = 0;
    SendNotify(host.list->GetHeaderCtrl(), HDN_ITEMCLICKW, click.hdr);
  }
}
BENCHMARK(TreeListHeaderSort_candidate)
    ->Name("TreeListHeaderSort/candidate")
    ->Unit(benchmark::kMillisecond);

void TreeListHeaderSort_baseline(benchmark::State & state) {
  std::vector<ItemData> records(20000);
  for (int n = 0; n < 20000; ++n) records[static_cast<size_t>(n)].text = SortText(n).ToStdWstring();
  std::vector<ItemData const *> order;
  order.reserve(records.size());
  for (ItemData const & record : records) order.push_back(&record);
  TreeSortInfo info;
  for (auto _ : state) {
    MergeSortBy(order, [&info](ItemData const * a, ItemData const * b) {
      return CompareItemData(*a, *b, info);
    });
    info.ascending = !info.ascending;
    benchmark::DoNotOptimize(order.data());
  }
}
BENCHMARK(TreeListHeaderSort_baseline)
    ->Name("TreeListHeaderSort/baseline")
    ->Unit(benchmark::kMillisecond);

// --- Text and HTML of 100,000 rows x 5 -------------------------------------

void TreeListTextAndHtml_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  TreeListHost host(5, 100, wxSize(600, 400));
  FillTreeList(*host.list, FillCells(5), 5);
  for (auto _ : state) {
    wxString const text = host.list->GetTextClipString();
    std::string const html = host.list->ToHTML(nullptr);
    benchmark::DoNotOptimize(text.wc_str());
    benchmark::DoNotOptimize(html.data());
  }
}
BENCHMARK(TreeListTextAndHtml_candidate)
    ->Name("TreeListTextAndHtml/candidate")
    ->Unit(benchmark::kMillisecond);

void TreeListTextAndHtml_baseline(benchmark::State & state) {
  std::vector<std::wstring> cells;
  cells.reserve(500000);
  FillRows([&](int row, int) {
    for (int column = 0; column < 5; ++column) cells.push_back(Cell(row, column).ToStdWstring());
  });
  for (auto _ : state) {
    std::wstring text;
    std::string html = "<table><tbody>";
    for (size_t at = 0; at < cells.size(); at += 5) {
      html += "<tr>";
      for (size_t column = 0; column < 5; ++column) {
        if (column > 0) text += L'\t';
        text += cells[at + column];
        html += "<td>";
        html += vx3::WideToUtf8(cells[at + column]);
        html += "</td>";
      }
      text += L"\r\n";
      html += "</tr>";
    }
    html += "</tbody></table>";
    wxString const joined(text);
    benchmark::DoNotOptimize(joined.wc_str());
    benchmark::DoNotOptimize(html.data());
  }
}
BENCHMARK(TreeListTextAndHtml_baseline)
    ->Name("TreeListTextAndHtml/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
