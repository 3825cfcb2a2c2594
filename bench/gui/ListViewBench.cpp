// The report list beside wx's own list control (the generic one on GTK),
// doing the same work: filling 100,000 rows of 4 columns, and painting a
// page of 40 rows by 6 columns of a 100,000-row list (a shown window
// invalidated and painted at once, RefreshRect + Update, the rows only). Part of
// talvo-bench-gui: it needs a display.
#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/listctrl.h>
#include <wx/utils.h>

#include <memory>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "platform/commctrl/CListCtrl.h"

namespace {

TALVO_RATIO_LIMIT("ListInsert100k", 0.2);
TALVO_RATIO_LIMIT("ListPaintPage", 1.0);

constexpr int InsertRows = 100000;
constexpr int PaintRows = 100000;

wxString CellText(int row, int column) { return wxString::Format("Run %d/%d", row, column); }

// A frame that goes when the benchmark ends.
struct Frame {
  explicit Frame(wxSize clientSize) {
    frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0));
    frame->SetClientSize(clientSize);
  }
  ~Frame() { DestroyNow(frame); }
  Frame(Frame const &) = delete;
  Frame & operator=(Frame const &) = delete;
  wxFrame * frame;
};

// Both lists get their texts made beforehand, so that only the list's own
// work is timed.
std::vector<std::vector<wxString>> const & Texts() {
  static std::vector<std::vector<wxString>> const texts = [] {
    std::vector<std::vector<wxString>> all(InsertRows, std::vector<wxString>(4));
    for (int row = 0; row < InsertRows; ++row)
      for (int column = 0; column < 4; ++column) all[row][column] = CellText(row, column);
    return all;
  }();
  return texts;
}

void ListInsert100k_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  auto const & texts = Texts();
  Frame host(wxSize(600, 400));
  auto * list = new CListCtrl(host.frame, wxID_ANY, wxPoint(0, 0), wxSize(600, 400));
  for (int column = 0; column < 4; ++column) list->InsertColumn(column, "Column", LVCFMT_LEFT, 100);
  for (auto _ : state) {
    for (int row = 0; row < InsertRows; ++row) {
      int const at = list->InsertItem(row, texts[row][0]);
      for (int column = 1; column < 4; ++column) list->SetItemText(at, column, texts[row][column]);
    }
    state.PauseTiming();
    list->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(ListInsert100k_candidate)
    ->Name("ListInsert100k/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);

void ListInsert100k_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  auto const & texts = Texts();
  Frame host(wxSize(600, 400));
  auto * list = new wxListCtrl(host.frame, wxID_ANY, wxPoint(0, 0), wxSize(600, 400), wxLC_REPORT);
  for (int column = 0; column < 4; ++column)
    list->InsertColumn(column, "Column", wxLIST_FORMAT_LEFT, 100);
  for (auto _ : state) {
    for (int row = 0; row < InsertRows; ++row) {
      long const at = list->InsertItem(row, texts[row][0]);
      for (int column = 1; column < 4; ++column) list->SetItem(at, column, texts[row][column]);
    }
    state.PauseTiming();
    list->DeleteAllItems();
    state.ResumeTiming();
  }
}
BENCHMARK(ListInsert100k_baseline)
    ->Name("ListInsert100k/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);

// Grows the list until a page holds 40 whole rows (6 columns of 85
// pixels leave room for the scroll bar).
// The list is its frame's only child and fills it, so the frame is sized.
template <typename List>
void SizeForPage(wxFrame & frame, List & list, int rowHeight) {
  frame.SetClientSize(wxSize(6 * 90, 40 * rowHeight));
  frame.Layout();
  for (int step = 0; step < 80 && list.GetCountPerPage() != 40; ++step) {
    int const change = list.GetCountPerPage() < 40 ? 2 : -2;
    frame.SetClientSize(frame.GetClientSize() + wxSize(0, change));
    frame.Layout();
  }
}

// The rows' area of `window` invalidated and painted at once.
void RefreshAndPaint(wxWindow & window, int top) {
  wxSize const size = window.GetClientSize();
  window.RefreshRect(wxRect(0, top, size.x, size.y - top), false);
  window.Update();
}

// Both lists paint their rows only: the candidate's rows lie below its
// header, the baseline's in a window of their own.
void PaintLoop(benchmark::State & state, wxWindow & window, int top) {
  wxYield();
  for (auto _ : state) RefreshAndPaint(window, top);
}

void ListPaintPage_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Frame host(wxSize(560, 800));
  auto * list = new CListCtrl(host.frame, wxID_ANY, wxPoint(0, 0), wxSize(560, 800));
  list->SetExtendedStyle(LVS_EX_FULLROWSELECT);
  for (int column = 0; column < 6; ++column) list->InsertColumn(column, "Column", LVCFMT_LEFT, 85);
  list->SetRedraw(false);
  for (int row = 0; row < PaintRows; ++row) {
    list->InsertItem(row, CellText(row, 0));
    for (int column = 1; column < 6; ++column)
      list->SetItemText(row, column, CellText(row, column));
  }
  list->SetRedraw(true);
  SizeForPage(*host.frame, *list, list->GetItemHeight());
  list->SetItemState(3, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  host.frame->Show();
  list->EnsureVisible(PaintRows / 2, false);
  PaintLoop(state, *list, list->GetHeaderHeight());
  state.counters["rows"] = list->GetCountPerPage();
}
BENCHMARK(ListPaintPage_candidate)->Name("ListPaintPage/candidate")->Unit(benchmark::kMicrosecond);

void ListPaintPage_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Frame host(wxSize(560, 800));
  auto * list = new wxListCtrl(host.frame, wxID_ANY, wxPoint(0, 0), wxSize(560, 800), wxLC_REPORT);
  for (int column = 0; column < 6; ++column)
    list->InsertColumn(column, "Column", wxLIST_FORMAT_LEFT, 85);
  for (int row = 0; row < PaintRows; ++row) {
    long const at = list->InsertItem(row, CellText(row, 0));
    for (int column = 1; column < 6; ++column) list->SetItem(at, column, CellText(row, column));
  }
  wxRect rect;
  list->GetItemRect(0, rect);
  SizeForPage(*host.frame, *list, rect.height);
  list->SetItemState(3, wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED,
                     wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED);
  host.frame->Show();
  list->EnsureVisible(PaintRows / 2);
  // The rows are painted by the list's inner window, its tallest child.
  wxWindow * rows = list;
  for (wxWindow * child : list->GetChildren())
    if (rows == list || child->GetSize().y > rows->GetSize().y) rows = child;
  PaintLoop(state, *rows, 0);
  state.counters["rows"] = list->GetCountPerPage();
}
BENCHMARK(ListPaintPage_baseline)->Name("ListPaintPage/baseline")->Unit(benchmark::kMicrosecond);

}  // namespace
