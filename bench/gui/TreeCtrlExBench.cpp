// The column tree beside plain work on the same data: a header-click sort
// of 20,000 roots beside a bare merge of their records, and a full repaint
// of 50 rows in 8 columns beside wxGrid repainting 50 x 8 cells. Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/grid.h>
#include <wx/utils.h>

#include <memory>
#include <string>
#include <vector>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "lists/VxTreeCtrlEx.h"
#include "platform/commctrl/MergeSortBy.h"

namespace {

TALVO_RATIO_LIMIT("TreeExHeaderSort", 1.3);
TALVO_RATIO_LIMIT("TreeExRepaint", 0.6);

bool Started(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

struct Frame {
  std::unique_ptr<wxFrame, void (*)(wxFrame *)> frame{
      new wxFrame(nullptr, wxID_ANY, "Bench", wxPoint(0, 0), wxSize(900, 1100)),
      [](wxFrame * f) { DestroyNow(f); }};
};

// A tree with `columns` columns of 100 pixels and its header.
struct ColumnTree : Frame {
  CNewHeaderCtrl * header = new CNewHeaderCtrl(frame.get(), 370, wxPoint(0, 0), wxSize(900, 22));
  VxTreeCtrlEx * tree =
      new VxTreeCtrlEx(frame.get(), VxTreeCtrlEx::kTreeId,
                       TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                       wxPoint(0, 22), wxSize(900, 1000));
  explicit ColumnTree(int columns) {
    tree->SetHeaderCtrl(header);
    for (int c = 0; c < columns; ++c) tree->InsertColumn(c, L"Column", c % 3, 100);
    frame->Show();
  }
};

// The texts of row `row`, column `column`: run names with numbers, so that
// the order compares numbers as well as text.
std::wstring Cell(int row, int column) {
  int const mixed = (row * 7919) % 20000;
  return column == 0 ? L"Run " + std::to_wstring(mixed) : std::to_wstring(mixed % (column + 11));
}

// --- A header click on 20,000 roots ----------------------------------------------

void HeaderSort_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  ColumnTree host(5);
  host.tree->SetRedraw(0);
  for (int row = 0; row < 20000; ++row) {
    HTREEITEM const item = host.tree->InsertItem(Cell(row, 0).c_str());
    for (int c = 1; c < 5; ++c) host.tree->SetItemText(item, c, Cell(row, c).c_str());
  }
  bool ascending = false;
  for (auto _ : state) {
    ascending = !ascending;
    host.tree->SortItems(0, ascending, TVI_NULL);
  }
}
BENCHMARK(HeaderSort_candidate)->Name("TreeExHeaderSort/candidate")->Unit(benchmark::kMillisecond);

void HeaderSort_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  std::vector<ItemData> records(20000);
  for (int row = 0; row < 20000; ++row)
    for (int c = 0; c < 5; ++c) records[static_cast<size_t>(row)].SetColumnText(c, Cell(row, c));
  std::vector<ItemData const *> order;
  order.reserve(records.size());
  for (ItemData const & record : records) order.push_back(&record);
  TreeSortInfo info;
  for (auto _ : state) {
    info.ascending = !info.ascending;
    MergeSortBy(order, [&info](ItemData const * a, ItemData const * b) {
      return CompareItemData(*a, *b, info);
    });
    benchmark::DoNotOptimize(order.data());
  }
}
BENCHMARK(HeaderSort_baseline)->Name("TreeExHeaderSort/baseline")->Unit(benchmark::kMillisecond);

// --- A full repaint of 50 rows x 8 columns ----------------------------------------

void PaintPages(benchmark::State & state, wxWindow & window) {
  int64_t paints = 0;
  window.Bind(wxEVT_PAINT, [&paints](wxPaintEvent & event) {
    ++paints;
    event.Skip();
  });
  // Until the window paints at all: on a loaded machine the window manager
  // can take seconds to map it.
  for (int i = 0; i < 5000 && paints == 0; ++i) {
    wxTheApp->Yield();
    window.Refresh();
    window.Update();
    if (paints == 0) wxMilliSleep(1);
  }
  paints = 0;
  for (auto _ : state) {
    window.Refresh();
    window.Update();
  }
  if (paints < state.iterations()) state.SkipWithError("the page was not painted every time");
}

void Repaint_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  ColumnTree host(8);
  for (int row = 0; row < 50; ++row) {
    HTREEITEM const item = host.tree->InsertItem(Cell(row, 0).c_str());
    for (int c = 1; c < 8; ++c) host.tree->SetItemText(item, c, Cell(row, c).c_str());
    if (row % 5 == 0) host.tree->SetItemBold(item, true, false);
  }
  host.tree->SetSize(800, 50 * host.tree->GetItemHeight());
  PaintPages(state, *host.tree);
}
BENCHMARK(Repaint_candidate)->Name("TreeExRepaint/candidate")->Unit(benchmark::kMicrosecond);

void Repaint_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  Frame host;
  auto * grid = new wxGrid(host.frame.get(), wxID_ANY, wxPoint(0, 0), wxSize(900, 1000));
  grid->CreateGrid(50, 8);
  grid->HideRowLabels();
  grid->HideColLabels();
  for (int row = 0; row < 50; ++row)
    for (int c = 0; c < 8; ++c) {
      grid->SetColSize(c, 100);
      grid->SetCellValue(row, c, Cell(row, c));
    }
  host.frame->Show();
  wxWindow & cells = *grid->GetGridWindow();
  grid->SetSize(800 + 20, 50 * grid->GetRowSize(0) + 20);
  PaintPages(state, cells);
}
BENCHMARK(Repaint_baseline)->Name("TreeExRepaint/baseline")->Unit(benchmark::kMicrosecond);

}  // namespace
