// Wildcard matching beside glibc's fnmatch(3) on the same input.
//  - WildCardAdversarial: patterns that make a backtracking matcher
//    explode, against 10,000 "a"s; each call must stay under 1 ms.
//      shape 0  a*a*...*a*b        (100 stars, anchored at both ends)
//      shape 1  *a*a*...*a*b*      (101 pieces, none anchored: all scanned)
//      shape 2  *aaa...ab*         (one piece of 100 that almost matches
//                                   everywhere: the worst case of the
//                                   piece search, pattern x text)
//  - WildCardTypical: "*run*.csv" without regard to case over 10,000 file
//    names (fnmatch with FNM_CASEFOLD).
#include <benchmark/benchmark.h>
#include <fnmatch.h>

#include <random>
#include <string>
#include <vector>

#include "Figures.h"
#include "utl/WildCardCompare.h"

namespace {

TALVO_TIME_LIMIT("WildCardAdversarial", 1e6);

std::string AdversarialPattern(int shape) {
  std::string pattern;
  switch (shape) {
    case 0:
      for (int i = 0; i < 100; ++i) pattern += "a*";
      return pattern + "b";
    case 1:
      pattern = "*";
      for (int i = 0; i < 100; ++i) pattern += "a*";
      return pattern + "b*";
    default: return "*" + std::string(99, 'a') + "b*";
  }
}

std::string const & AdversarialText() {
  static std::string const text(10000, 'a');
  return text;
}

void WildCardAdversarial_candidate(benchmark::State & state) {
  std::string const pattern = AdversarialPattern(static_cast<int>(state.range(0)));
  for (auto _ : state)
    benchmark::DoNotOptimize(
        VxString::WildCardCompare(pattern.c_str(), AdversarialText().c_str(), true));
}
BENCHMARK(WildCardAdversarial_candidate)
    ->Name("WildCardAdversarial/candidate")
    ->ArgName("shape")
    ->DenseRange(0, 2);

void WildCardAdversarial_baseline(benchmark::State & state) {
  std::string const pattern = AdversarialPattern(static_cast<int>(state.range(0)));
  for (auto _ : state)
    benchmark::DoNotOptimize(::fnmatch(pattern.c_str(), AdversarialText().c_str(), FNM_NOESCAPE));
}
BENCHMARK(WildCardAdversarial_baseline)
    ->Name("WildCardAdversarial/baseline")
    ->ArgName("shape")
    ->DenseRange(0, 2);

std::vector<std::string> const & FileNames() {
  static std::vector<std::string> const names = [] {
    static char const * const stems[] = {"Run", "run", "Dry RUN", "sample", "Batch", "export"};
    static char const * const extensions[] = {".csv", ".CSV", ".txt", ".xml", ".csv.bak"};
    std::mt19937 random(3);
    std::uniform_int_distribution<int> stem(0, std::size(stems) - 1);
    std::uniform_int_distribution<int> extension(0, std::size(extensions) - 1);
    std::uniform_int_distribution<int> number(0, 9999);
    std::vector<std::string> made;
    made.reserve(10000);
    for (int i = 0; i < 10000; ++i)
      made.push_back(std::string(stems[stem(random)]) + " " + std::to_string(number(random)) +
                     extensions[extension(random)]);
    return made;
  }();
  return names;
}

void WildCardTypical_candidate(benchmark::State & state) {
  for (auto _ : state)
    for (std::string const & name : FileNames())
      benchmark::DoNotOptimize(VxString::WildCardCompare("*run*.csv", name.c_str(), false));
  state.SetItemsProcessed(state.iterations() * FileNames().size());
}
BENCHMARK(WildCardTypical_candidate)->Name("WildCardTypical/candidate");

void WildCardTypical_baseline(benchmark::State & state) {
  for (auto _ : state)
    for (std::string const & name : FileNames())
      benchmark::DoNotOptimize(::fnmatch("*run*.csv", name.c_str(), FNM_NOESCAPE | FNM_CASEFOLD));
  state.SetItemsProcessed(state.iterations() * FileNames().size());
}
BENCHMARK(WildCardTypical_baseline)->Name("WildCardTypical/baseline");

}  // namespace
