// A details dialog with 2,000 lines of details, made, laid out and brought
// to the point of showing with its panel open (a modal hook answers before
// anything is shown). Beside it wxRichMessageDialog with the same message
// and the same details through ShowDetailedText, brought to the same point.
// Part of talvo-bench-gui.
//
// Not yet a fair pair: the generic wxRichMessageDialog builds its window
// only inside ShowModal, after the hook has answered, so the baseline counts
// almost nothing. Both must be measured to the first paint instead.
#include <benchmark/benchmark.h>

#include <string>

#include <wx/modalhook.h>
#include <wx/richmsgdlg.h>

#include "Figures.h"
#include "dialogs/DetailsDialog.h"
#include "gui/GuiBench.h"

namespace {

TALVO_RATIO_LIMIT("DetailsDialogOpen", 1.1);

class AnswerAtOnce : public wxModalDialogHook {
public:
  AnswerAtOnce() { Register(); }
  ~AnswerAtOnce() override { Unregister(); }

protected:
  int Enter(wxDialog *) override { return wxID_CANCEL; }
  void Exit(wxDialog *) override {}
};

wchar_t const Text[] = L"Not all favorites could be opened.";

std::wstring const & Details() {
  static std::wstring const details = [] {
    std::wstring text;
    for (int line = 1; line <= 2000; ++line)
      text += L"Run " + std::to_wstring(line) + L": the reference sample is missing.\n";
    return text;
  }();
  return details;
}

void DetailsDialogOpen_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  AnswerAtOnce hook;
  for (auto _ : state) DetailsDialog(nullptr, Text, Details().c_str(), L"Favorites", 48, true);
}
BENCHMARK(DetailsDialogOpen_candidate)
    ->Name("DetailsDialogOpen/candidate")
    ->Unit(benchmark::kMillisecond);

void DetailsDialogOpen_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  AnswerAtOnce hook;
  wxString const details(Details());
  for (auto _ : state) {
    wxRichMessageDialog dialog(nullptr, Text, "Favorites", wxOK | wxICON_WARNING);
    dialog.ShowDetailedText(details);
    benchmark::DoNotOptimize(dialog.ShowModal());
  }
}
BENCHMARK(DetailsDialogOpen_baseline)
    ->Name("DetailsDialogOpen/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
