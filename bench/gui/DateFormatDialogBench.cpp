// The date format dialog from DoModal to its first paint: SpecifyDateFormat
// with a sample and a stored list of recent formats, beside a bare wxDialog
// made from the same template (13120) and shown modally, ended at its first
// paint the same way. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/dialog.h>
#include <wx/modalhook.h>

#include "Figures.h"
#include "datetime/SpecifyDateFormat.h"
#include "gui/GuiBench.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"

namespace {

TALVO_RATIO_LIMIT("DateFormatDialogToPaint", 1.3);

// Lets every modal dialog show and ends it once it has painted.
class EndAtFirstPaint : public wxModalDialogHook {
public:
  EndAtFirstPaint() { Register(); }
  ~EndAtFirstPaint() override { Unregister(); }

protected:
  int Enter(wxDialog * dialog) override {
    dialog->Bind(wxEVT_PAINT, [dialog](wxPaintEvent & event) {
      event.Skip();
      if (dialog->IsModal())
        dialog->CallAfter([dialog] {
          if (dialog->IsModal()) dialog->EndModal(wxID_CANCEL);
        });
    });
    return wxID_NONE;
  }
  void Exit(wxDialog *) override {}
};

void DateFormatDialogToPaint_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  EndAtFirstPaint hook;
  for (auto _ : state) {
    SpecifyDateFormat dialog("The dates could not be read.", "15.03.2024 14:30:05",
                             "dd.MM.yyyy HH:mm:ss");
    benchmark::DoNotOptimize(dialog.DoModal());
  }
}
BENCHMARK(DateFormatDialogToPaint_candidate)
    ->Name("DateFormatDialogToPaint/candidate")
    ->Unit(benchmark::kMillisecond);

void DateFormatDialogToPaint_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  EndAtFirstPaint hook;
  for (auto _ : state) {
    wxDialog dialog;
    LoadDialogTemplate(dialog, nullptr, SpecifyDateFormat::kTemplate);
    benchmark::DoNotOptimize(dialog.ShowModal());
  }
}
BENCHMARK(DateFormatDialogToPaint_baseline)
    ->Name("DateFormatDialogToPaint/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
