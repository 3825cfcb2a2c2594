// Sorting a list of 100,000 "Run N" rows by a header click: VxListCtrl's
// SortItems (its quicksort on a snapshot of the column, then the rows moved
// once) beside wxListCtrl::SortItems with a CompareNumber callback on item
// data, and beside a bare std::sort of the same texts with CompareNumber.
// Every iteration starts from the same shuffled order. Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/frame.h>
#include <wx/listctrl.h>

#include <algorithm>
#include <locale>
#include <random>
#include <string>
#include <vector>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "lists/VxListCtrl.h"
#include "utl/VxStdString.h"

namespace {

TALVO_RATIO_LIMIT("ListSortItems", 0.3);
TALVO_TIME_LIMIT("ListSortItems", 1e9);
TALVO_RATIO_LIMIT("SortItemsBesideStdSort", 1.5);

constexpr int kRows = 100000;

std::vector<std::string> const & ShuffledRuns() {
  static std::vector<std::string> const runs = [] {
    std::vector<std::string> texts;
    texts.reserve(kRows);
    for (int n = 1; n <= kRows; ++n) texts.push_back("Run " + std::to_string(n));
    std::shuffle(texts.begin(), texts.end(), std::mt19937(2026));
    return texts;
  }();
  return runs;
}

struct Frame {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Sort", wxDefaultPosition, wxSize(400, 300));
  ~Frame() { DestroyNow(frame); }
};

void SortVxList(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Frame host;
  auto * list = new VxListCtrl(host.frame, wxID_ANY);
  list->AddColumn(L"Run", 120);
  auto const & runs = ShuffledRuns();
  for (int n = 0; n < kRows; ++n) list->AddItem(wxString::FromUTF8(runs[n]).wc_str(), n);
  for (auto _ : state) {
    state.PauseTiming();
    for (int n = 0; n < kRows; ++n) list->SetItemText(n, 0, wxString::FromUTF8(runs[n]));
    state.ResumeTiming();
    benchmark::DoNotOptimize(list->SortItems(0, 1));
  }
  if (list->GetItemText(0, 0) != "Run 1" || list->GetItemText(kRows - 1, 0) != "Run 100000")
    state.SkipWithError("the list is not in order");
}

void ListSortItems_candidate(benchmark::State & state) { SortVxList(state); }
BENCHMARK(ListSortItems_candidate)
    ->Name("ListSortItems/candidate")
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

int wxCALLBACK CompareRuns(wxIntPtr first, wxIntPtr second, wxIntPtr texts) {
  auto const & runs = *reinterpret_cast<std::vector<std::string> const *>(texts);  // NOLINT
  static std::locale const locale;
  return VxStdString::CompareNumber(runs[static_cast<size_t>(first)],
                                    runs[static_cast<size_t>(second)], locale);
}

void ListSortItems_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Frame host;
  auto * list = new wxListCtrl(host.frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT);
  list->AppendColumn("Run", wxLIST_FORMAT_LEFT, 120);
  auto const & runs = ShuffledRuns();
  for (int n = 0; n < kRows; ++n) list->InsertItem(n, wxString::FromUTF8(runs[n]));
  for (auto _ : state) {
    state.PauseTiming();
    for (int n = 0; n < kRows; ++n) {
      list->SetItem(n, 0, wxString::FromUTF8(runs[n]));
      list->SetItemData(n, n);
    }
    state.ResumeTiming();
    benchmark::DoNotOptimize(
        list->SortItems(&CompareRuns, reinterpret_cast<wxIntPtr>(&runs)));  // NOLINT
  }
  if (list->GetItemText(0) != "Run 1") state.SkipWithError("the list is not in order");
}
BENCHMARK(ListSortItems_baseline)
    ->Name("ListSortItems/baseline")
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void SortItemsBesideStdSort_candidate(benchmark::State & state) { SortVxList(state); }
BENCHMARK(SortItemsBesideStdSort_candidate)
    ->Name("SortItemsBesideStdSort/candidate")
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void SortItemsBesideStdSort_baseline(benchmark::State & state) {
  std::locale const locale;
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<std::string> texts = ShuffledRuns();
    state.ResumeTiming();
    std::sort(texts.begin(), texts.end(), [&](std::string const & a, std::string const & b) {
      return VxStdString::CompareNumber(a, b, locale) < 0;
    });
    benchmark::DoNotOptimize(texts.data());
  }
}
BENCHMARK(SortItemsBesideStdSort_baseline)
    ->Name("SortItemsBesideStdSort/baseline")
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
