// Date formats and date conversions.
//  - ValidateFormat: a valid 23-character format, checked; each call must
//    stay under 1 µs. Beside it, the floor of any check: walking the format's
//    bytes once.
//  - VariantToDateTime: 1,000,000 VARIANT dates between 1900 and 2100 to UTC,
//    beside a bare localtime_r of each (the C library's local time, which the
//    conversion needs once a date), in Europe/Berlin.
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <time.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "Figures.h"
#include "datetime/DateConversions.h"
#include "datetime/DateFormatValidation.h"

namespace {

TALVO_TIME_LIMIT("ValidateFormat", 1000);
TALVO_RATIO_LIMIT("VariantToDateTime", 1.5);

std::string const kFormat = "yyyy-MM-dd HH:mm:ss.fff";

void ValidateFormat_candidate(benchmark::State & state) {
  for (auto _ : state) benchmark::DoNotOptimize(VxTimeUtl::ValidateFormatString(kFormat));
}
BENCHMARK(ValidateFormat_candidate)->Name("ValidateFormat/candidate");

void ValidateFormat_baseline(benchmark::State & state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(
        std::count_if(kFormat.begin(), kFormat.end(), [](char c) { return c >= 'A'; }));
}
BENCHMARK(ValidateFormat_baseline)->Name("ValidateFormat/baseline");

constexpr size_t kDates = 1000000;
constexpr double kDay1900 = 2.0;      // 1900-01-01
constexpr double kDay2100 = 73051.0;  // 2100-01-01
constexpr double kSecondsADay = 86400.0;
constexpr double kUnixDayZero = 25569.0;  // 1970-01-01

std::vector<double> const & Days() {
  static std::vector<double> const days = [] {
    setenv("TZ", "Europe/Berlin", 1);
    tzset();
    std::mt19937_64 random(15);
    std::uniform_real_distribution<double> day(kDay1900, kDay2100);
    std::vector<double> made(kDates);
    for (double & d : made) d = day(random);
    return made;
  }();
  return days;
}

void VariantToDateTime_candidate(benchmark::State & state) {
  std::vector<double> const & days = Days();
  VARIANT value{};
  value.vt = VT_DATE;
  for (auto _ : state) {
    for (double day : days) {
      value.date = day;
      benchmark::DoNotOptimize(VxTimeUtl::ToDateTime(value));
    }
  }
}
BENCHMARK(VariantToDateTime_candidate)
    ->Name("VariantToDateTime/candidate")
    ->Unit(benchmark::kMillisecond);

void VariantToDateTime_baseline(benchmark::State & state) {
  std::vector<double> const & days = Days();
  struct tm fields {};
  for (auto _ : state) {
    for (double day : days) {
      auto const seconds = static_cast<time_t>((day - kUnixDayZero) * kSecondsADay);
      benchmark::DoNotOptimize(localtime_r(&seconds, &fields));
    }
  }
}
BENCHMARK(VariantToDateTime_baseline)
    ->Name("VariantToDateTime/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
