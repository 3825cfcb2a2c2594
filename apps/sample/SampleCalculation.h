#pragma once
// The sample's "Run calculation" command: a nested calculation on the GUI
// thread, long enough (about 20 s) for a person to watch the break dialog
// with the sample's paintings and to stop it. It reports through Progress;
// Stop ends it at the next report, and the outcome says where.

#include <functional>

#include <wx/string.h>

class wxWindow;
class Progress;

struct CalculationPlan {
  int runs = 120;
  // One run: reports through `progress` in a scale of its own and returns
  // false once a report did (the user stopped). Empty: the sample's fit,
  // about 0.17 s a run.
  std::function<bool(Progress & progress, int run)> run;
};

struct CalculationOutcome {
  int runs = 0;     // runs planned
  int reached = 0;  // the run that was under way when it ended (1-based)
  bool stopped = false;
  double milliseconds = 0;  // the whole calculation, on the stop-watch
};

CalculationOutcome RunSampleCalculation(wxWindow * parent, CalculationPlan const & plan);

// What the status bar says afterwards: "Calculation stopped at run 37 of
// 120." or "Calculation finished: 120 runs."
wxString DescribeOutcome(CalculationOutcome const & outcome);

// "Time: 1234.5 ms": how long the calculation took.
wxString DescribeDuration(CalculationOutcome const & outcome);
