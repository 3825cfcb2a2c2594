// Reading a million edited numbers back: TakeBackNumber (the platform's
// text-to-int rules, held at INT_MAX/INT_MIN) beside a bare wcstol loop on
// the same texts.
#include <benchmark/benchmark.h>

#include <cwchar>
#include <random>
#include <string>
#include <vector>

#include "Figures.h"
#include "utl/NumberTakeBack.h"

namespace {

TALVO_RATIO_LIMIT("NumberTakeBack", 1.2);

// What users type into a number cell: mostly short numbers, some negative,
// some with blanks or a trailing unit, a few too large. Fixed seed.
std::vector<std::wstring> const & Texts() {
  static std::vector<std::wstring> const texts = [] {
    std::mt19937 random(11);
    std::vector<std::wstring> made;
    made.reserve(1000000);
    for (int i = 0; i < 1000000; ++i) {
      std::wstring text = std::to_wstring(random() % 100000);
      switch (random() % 8) {
        case 0: text = L"-" + text; break;
        case 1: text = L"  " + text; break;
        case 2: text += L" ms"; break;
        case 3: text += std::to_wstring(random()); break;  // often too large
        default: break;
      }
      made.push_back(text);
    }
    return made;
  }();
  return texts;
}

void NumberTakeBack_candidate(benchmark::State & state) {
  for (auto _ : state) {
    long sum = 0;
    for (std::wstring const & text : Texts()) sum += TakeBackNumber(text.c_str());
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(NumberTakeBack_candidate)
    ->Name("NumberTakeBack/candidate")
    ->Unit(benchmark::kMillisecond);

void NumberTakeBack_baseline(benchmark::State & state) {
  for (auto _ : state) {
    long sum = 0;
    for (std::wstring const & text : Texts()) sum += std::wcstol(text.c_str(), nullptr, 10);
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(NumberTakeBack_baseline)->Name("NumberTakeBack/baseline")->Unit(benchmark::kMillisecond);

}  // namespace
