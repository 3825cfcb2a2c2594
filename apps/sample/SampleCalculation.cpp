#include "SampleCalculation.h"

#include <wx/utils.h>

#include <cmath>

#include "work/Progress.h"

namespace {

constexpr int kSeries = 4;
constexpr int kPointsPerSeries = 400;
// Short runs show no dialog at all.
constexpr unsigned int kShowDelayMs = 400;

// One series: a procedure that reports in its own scale and knows nothing
// of the slice its caller gave it.
double FitSeries(Progress & progress, int series) {
  progress.SetRange(0, kPointsPerSeries);
  double sum = 0;
  for (int point = 0; point < kPointsPerSeries; ++point) {
    for (int term = 1; term < 2000; ++term) sum += std::sin(series + point * 0.001 * term) / term;
    if (point % 2 == 0) wxMilliSleep(1);  // a slow instrument, so that the gauge is seen moving
    if (!progress.Set(float(point + 1))) break;
  }
  return sum;
}

}  // namespace

double RunSampleCalculation(wxWindow * parent) {
  Progress progress(parent, L"Fitting the calibration series...", 0, kSeries, false, true, true,
                    nullptr, nullptr, nullptr, kShowDelayMs);
  double checksum = 0;
  for (int series = 0; series < kSeries && !progress.IsBreakPressed(); ++series) {
    progress.PushSubRange(float(series), float(series + 1));
    checksum += FitSeries(progress, series);
    progress.PopSubRange();
  }
  return checksum;
}
