// Progress on a silent object (no application object here, so none becomes
// active): what a report costs a procedure whose caller shows nothing.
#include <benchmark/benchmark.h>

#include <vector>

#include "Figures.h"
#include "work/Progress.h"

namespace {

TALVO_TIME_LIMIT("ProgressSilentSet", 20);
TALVO_TIME_LIMIT("ProgressSilentNesting", 100);

// The least a reporting call can be: a float stored through a call that is
// not inlined.
struct BareReporter {
  float value = 0;
  std::vector<float> levels;
  __attribute__((noinline)) bool Set(float v) {
    value = v;
    return true;
  }
};

void BM_ProgressSilentSet_candidate(benchmark::State & state) {
  Progress progress(nullptr, L"Work", 0, 1000, false, false, true);
  float value = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(progress.Set(value));
    value = value < 1000 ? value + 1 : 0;
  }
}
BENCHMARK(BM_ProgressSilentSet_candidate)->Name("ProgressSilentSet/candidate");

void BM_ProgressSilentSet_baseline(benchmark::State & state) {
  BareReporter reporter;
  float value = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(reporter.Set(value));
    benchmark::ClobberMemory();
    value = value < 1000 ? value + 1 : 0;
  }
}
BENCHMARK(BM_ProgressSilentSet_baseline)->Name("ProgressSilentSet/baseline");

void BM_ProgressSilentNesting_candidate(benchmark::State & state) {
  Progress progress(nullptr, L"Work", 0, 1000, false, false, true);
  float value = 0;
  for (auto _ : state) {
    progress.PushSubRange(value, value + 1);
    progress.Set(0.5f);
    benchmark::DoNotOptimize(progress.PopSubRange());
    value = value < 999 ? value + 1 : 0;
  }
}
BENCHMARK(BM_ProgressSilentNesting_candidate)->Name("ProgressSilentNesting/candidate");

// A level pushed and popped on a vector, and a value stored.
void BM_ProgressSilentNesting_baseline(benchmark::State & state) {
  BareReporter reporter;
  reporter.levels.reserve(4);
  float value = 0;
  for (auto _ : state) {
    reporter.levels.push_back(value);
    reporter.Set(0.5f);
    reporter.levels.pop_back();
    benchmark::ClobberMemory();
    value = value < 999 ? value + 1 : 0;
  }
}
BENCHMARK(BM_ProgressSilentNesting_baseline)->Name("ProgressSilentNesting/baseline");

}  // namespace
