// Sorting a list by natural order: std::sort with CompareNumber beside
// std::sort with glibc's strverscmp, on the same million texts.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <locale>
#include <random>
#include <string>
#include <vector>

#include "Figures.h"
#include "utl/VxStdString.h"

namespace {

TALVO_RATIO_LIMIT("SortCompareNumber", 1.0);

// Texts of the kind a list shows: names with numbers (some zero-padded),
// versions, plain numbers, files, and names without digits; one word in
// six is not ASCII.
std::vector<std::string> MakeItems() {
  static char const * const words[] = {"Run",   "run",           "Sample",      "sample",
                                       "Batch", "Tag",           "PV",          "Station",
                                       "Valve", "M\xc3\xbcller", "\xc3\xa9lan", "Zone"};
  std::mt19937 random(42);
  std::uniform_int_distribution<int> word(0, std::size(words) - 1);
  std::uniform_int_distribution<int> form(0, 5);
  std::uniform_int_distribution<int> number(0, 99999);
  std::vector<std::string> items;
  items.reserve(1000000);
  char padded[16];
  while (items.size() < 1000000) {
    std::string const w = words[word(random)];
    switch (form(random)) {
      case 0: items.push_back(w + " " + std::to_string(number(random))); break;
      case 1:
        std::snprintf(padded, sizeof padded, "%05d", number(random));
        items.push_back(w + "_" + padded);
        break;
      case 2:
        items.push_back(w + std::to_string(number(random) % 100) + "." +
                        std::to_string(number(random) % 20));
        break;
      case 3: items.push_back(std::to_string(number(random))); break;
      case 4: items.push_back(w + " " + std::to_string(number(random)) + ".csv"); break;
      default: items.push_back(w + " " + words[word(random)]); break;
    }
  }
  return items;
}

std::vector<std::string> const & Items() {
  static std::vector<std::string> const items = MakeItems();
  return items;
}

template <typename Less>
void SortItems(benchmark::State & state, Less less) {
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<std::string> items = Items();
    state.ResumeTiming();
    std::sort(items.begin(), items.end(), less);
    benchmark::DoNotOptimize(items.data());
  }
  state.SetItemsProcessed(state.iterations() * Items().size());
}

void SortCompareNumber_candidate(benchmark::State & state) {
  std::locale const locale;
  SortItems(state, [&](std::string const & a, std::string const & b) {
    return VxStdString::CompareNumber(a, b, locale) < 0;
  });
}
BENCHMARK(SortCompareNumber_candidate)
    ->Name("SortCompareNumber/candidate")
    ->MinTime(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void SortCompareNumber_baseline(benchmark::State & state) {
  SortItems(state, [](std::string const & a, std::string const & b) {
    return ::strverscmp(a.c_str(), b.c_str()) < 0;
  });
}
BENCHMARK(SortCompareNumber_baseline)
    ->Name("SortCompareNumber/baseline")
    ->MinTime(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
