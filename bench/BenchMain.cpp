// Runs every benchmark, then prints each figure as candidate / baseline and
// checks the registered limits. Exits 1 when a limit is missed. Run with
// --benchmark_repetitions=N --benchmark_enable_random_interleaving=true
// (scripts/bench does) so that candidate and baseline take turns and the
// fastest of each is compared.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

#include "Figures.h"

namespace {

// Whether `key` is `figure`'s, with or without Google Benchmark's additions
// ("/iterations:3"): "EditorFolder" does not name "EditorFolderCollection".
bool IsOf(std::string const & key, std::string const & figure) {
  return key.compare(0, figure.size(), figure) == 0 &&
         (key.size() == figure.size() || key[figure.size()] == '/');
}

struct Timing {
  double nanoseconds = 0;  // real time per iteration
  bool seen = false;
};

class RatioReporter : public benchmark::ConsoleReporter {
public:
  void ReportRuns(std::vector<Run> const & runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (Run const & run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      std::string const name = run.benchmark_name();
      for (char const * role : {"/candidate", "/baseline"}) {
        auto const at = name.find(role);
        if (at == std::string::npos) continue;
        std::string const key = name.substr(0, at) + name.substr(at + std::string(role).size());
        // With repetitions the fastest run counts: on a shared machine load only
        // ever adds time, so the minimum is the figure least disturbed by it.
        Timing & timing = (role[1] == 'c' ? candidates : baselines)[key];
        double const nanoseconds = run.GetAdjustedRealTime() * Scale(run.time_unit);
        if (!timing.seen || nanoseconds < timing.nanoseconds) timing.nanoseconds = nanoseconds;
        timing.seen = true;
      }
    }
  }

  int Summarise() const {
    int failures = 0;
    std::printf("\n%-48s %14s %14s %8s  %s\n", "figure", "candidate ns", "baseline ns", "ratio",
                "limit");
    for (auto const & [key, candidate] : candidates) {
      auto const baseline = baselines.find(key);
      double const ratio = baseline != baselines.end() && baseline->second.nanoseconds > 0
                               ? candidate.nanoseconds / baseline->second.nanoseconds
                               : 0;
      std::string verdict;
      for (bench::Limit const & limit : bench::Limits()) {
        if (!IsOf(key, limit.figure)) continue;
        char text[96];
        if (limit.maxRatio > 0) {
          bool const ok = ratio > 0 && ratio <= limit.maxRatio;
          std::snprintf(text, sizeof text, "ratio <= %.2f %s", limit.maxRatio,
                        ok ? "ok" : "MISSED");
          failures += ok ? 0 : 1;
        } else {
          bool const ok = candidate.nanoseconds <= limit.maxNanoseconds;
          std::snprintf(text, sizeof text, "time <= %.0f ns %s", limit.maxNanoseconds,
                        ok ? "ok" : "MISSED");
          failures += ok ? 0 : 1;
        }
        verdict += (verdict.empty() ? "" : "; ") + std::string(text);
      }
      if (baseline != baselines.end()) {
        std::printf("%-48s %14.1f %14.1f %8.3f  %s\n", key.c_str(), candidate.nanoseconds,
                    baseline->second.nanoseconds, ratio, verdict.c_str());
      } else {
        std::printf("%-48s %14.1f %14s %8s  %s\n", key.c_str(), candidate.nanoseconds, "-", "-",
                    verdict.c_str());
      }
    }
    return failures;
  }

private:
  static double Scale(benchmark::TimeUnit unit) {
    switch (unit) {
      case benchmark::kSecond: return 1e9;
      case benchmark::kMillisecond: return 1e6;
      case benchmark::kMicrosecond: return 1e3;
      default: return 1;
    }
  }

  std::map<std::string, Timing> candidates;
  std::map<std::string, Timing> baselines;
};

}  // namespace

int main(int argc, char ** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  int const failures = reporter.Summarise();
  if (failures > 0) std::printf("\n%d figure(s) missed their limit\n", failures);
  return failures > 0 ? 1 : 0;
}
