#include "SampleCalculation.h"

#include <wx/utils.h>

#include <cmath>

#include "service/CPerfTimer.h"
#include "utl/Translation.h"
#include "work/Progress.h"

using vx3::Tr;

namespace {

constexpr int kPointsPerRun = 40;
// Short runs show no dialog at all.
constexpr unsigned int kShowDelayMs = 400;

// One run: fits its points, reporting each, like a procedure that knows
// nothing of the slice its caller gave it.
bool FitRun(Progress & progress, int run) {
  progress.SetRange(0, kPointsPerRun);
  double sum = 0;
  for (int point = 0; point < kPointsPerRun; ++point) {
    for (int term = 1; term < 2000; ++term) sum += std::sin(run + point * 0.001 * term) / term;
    wxMilliSleep(4);  // a slow instrument, so that a person can follow and stop it
    if (!progress.Set(float(point + 1))) return false;
  }
  return std::isfinite(sum);
}

}  // namespace

CalculationOutcome RunSampleCalculation(wxWindow * parent, CalculationPlan const & plan) {
  CalculationOutcome outcome;
  outcome.runs = plan.runs;
  CPerfTimer timer;
  timer.Start();
  std::function<bool(Progress &, int)> const run = plan.run ? plan.run : FitRun;
  Progress progress(parent, Tr("Fitting the calibration runs...").wc_str(), 0, float(plan.runs),
                    false, true, true, nullptr, nullptr, nullptr, kShowDelayMs);
  for (int index = 0; index < plan.runs; ++index) {
    outcome.reached = index + 1;
    progress.PushSubRange(float(index), float(index + 1));
    bool const going = run(progress, outcome.reached);
    progress.PopSubRange();
    // A stop pressed after the run's last report is seen here.
    if (!going || progress.IsBreakPressed()) {
      outcome.stopped = true;
      break;
    }
  }
  outcome.milliseconds = timer.GetElapsedMilliseconds();
  return outcome;
}

wxString DescribeOutcome(CalculationOutcome const & outcome) {
  wxString text = outcome.stopped ? Tr("Calculation stopped at run %1% of %2%.")
                                  : Tr("Calculation finished: %2% runs.");
  text.Replace("%1%", wxString::Format("%d", outcome.reached));
  text.Replace("%2%", wxString::Format("%d", outcome.runs));
  return text;
}

wxString DescribeDuration(CalculationOutcome const & outcome) {
  wxString text = Tr("Time: %1% ms");
  text.Replace("%1%", wxString::Format("%.1f", outcome.milliseconds));
  return text;
}
