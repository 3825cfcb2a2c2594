// A details dialog with 2,000 lines of details and its panel open, from
// the call to its first paint. Beside it wxRichMessageDialog with the same
// message and the same details through ShowDetailedText, also to its first
// paint: the generic dialog builds its window inside ShowModal, so only a
// run that really shows counts its work. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <string>

#include <wx/richmsgdlg.h>

#include "Figures.h"
#include "dialogs/DetailsDialog.h"
#include "gui/GuiBench.h"
#include "gui/ModalUntil.h"

namespace {

TALVO_RATIO_LIMIT("DetailsDialogOpen", 1.1);

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
  ModalUntil hook(ModalUntil::FirstPaint());
  for (auto _ : state) DetailsDialog(nullptr, Text, Details().c_str(), L"Favorites", 48, true);
  if (hook.TimedOut()) state.SkipWithError("the dialog was not painted");
}
BENCHMARK(DetailsDialogOpen_candidate)
    ->Name("DetailsDialogOpen/candidate")
    ->Unit(benchmark::kMillisecond);

void DetailsDialogOpen_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  ModalUntil hook(ModalUntil::FirstPaint());
  wxString const details(Details());
  for (auto _ : state) {
    wxRichMessageDialog dialog(nullptr, Text, "Favorites", wxOK | wxICON_WARNING);
    dialog.ShowDetailedText(details);
    benchmark::DoNotOptimize(dialog.ShowModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the dialog was not painted");
}
BENCHMARK(DetailsDialogOpen_baseline)
    ->Name("DetailsDialogOpen/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
