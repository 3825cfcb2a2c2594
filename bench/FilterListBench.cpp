// Filtering 1,000,000 items the way the filter popup does (the initial
// selection, the carried selection, the visible rows gathered), beside a
// bare loop of GetText and MatchString over the same items: the popup's
// own work may add at most 15 %.
#include <benchmark/benchmark.h>

#include <string>

#include "Figures.h"
#include "lists/FilterListFiltering.h"
#include "lists/FilterListItems.h"
#include "utl/FilterMatcher.h"

namespace {

TALVO_RATIO_LIMIT("FilterListItems", 1.15);

constexpr uint64_t kItems = 1000000;

// Run names as an application would give them, made on request.
class RunNames : public FilterListItems {
public:
  uint64_t GetCount() const override { return kItems; }
  std::string GetText(uint64_t index) const override {
    return (index % 7 == 0 ? "Calibration " : "Run ") + std::to_string(index);
  }
};

RunNames const kRuns;
char const kFilter[] = "run 12";

void FilterListItems_candidate(benchmark::State & state) {
  std::vector<uint64_t> const carried{12, 120, 1200, 12000};
  for (auto _ : state) {
    FilteredRows rows = FilterItems(&kRuns, kFilter, 500000, carried);
    benchmark::DoNotOptimize(rows.visible.data());
  }
}
BENCHMARK(FilterListItems_candidate)
    ->Name("FilterListItems/candidate")
    ->Unit(benchmark::kMillisecond);

void FilterListItems_baseline(benchmark::State & state) {
  for (auto _ : state) {
    FilterMatcher const matcher(kFilter);
    uint64_t passed = 0;
    for (uint64_t i = 0; i < kRuns.GetCount(); ++i)
      passed += matcher.MatchString(kRuns.GetText(i)) ? 1 : 0;
    benchmark::DoNotOptimize(passed);
  }
}
BENCHMARK(FilterListItems_baseline)
    ->Name("FilterListItems/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
