#pragma once
// The convention of talvo-bench: a figure is a pair of benchmarks named
// "<Figure>/candidate" and "<Figure>/baseline" (arguments may follow), run in
// one binary. The report prints candidate time / baseline time for each pair,
// and checks the limits registered here.
//
//   TALVO_RATIO_LIMIT("SortCompareNumber", 1.3);   // candidate <= 1.3 x baseline
//   TALVO_TIME_LIMIT("WildCardAdversarial", 1e6);  // candidate <= 1 ms a call

#include <string>
#include <vector>

namespace bench {

struct Limit {
  std::string figure;
  double maxRatio = 0;        // 0: no ratio limit
  double maxNanoseconds = 0;  // 0: no time limit
};

int RegisterRatioLimit(std::string figure, double maxRatio);
int RegisterTimeLimit(std::string figure, double maxNanoseconds);
std::vector<Limit> const & Limits();

}  // namespace bench

#define TALVO_BENCH_CONCAT2(a, b) a##b
#define TALVO_BENCH_CONCAT(a, b) TALVO_BENCH_CONCAT2(a, b)
#define TALVO_RATIO_LIMIT(figure, ratio)                      \
  static int const TALVO_BENCH_CONCAT(talvoRatio, __LINE__) = \
      bench::RegisterRatioLimit(figure, ratio)
#define TALVO_TIME_LIMIT(figure, nanoseconds)                \
  static int const TALVO_BENCH_CONCAT(talvoTime, __LINE__) = \
      bench::RegisterTimeLimit(figure, nanoseconds)
