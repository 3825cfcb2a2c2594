// A thousand paths fitted into a 150-pixel cell, as a property list's path
// cells draw them: CompactPath beside wx's own middle ellipsis
// (wxControl::Ellipsize with wxELLIPSIZE_MIDDLE). Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/control.h>
#include <wx/dcmemory.h>

#include <random>
#include <vector>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "properties/PathCompact.h"

namespace {

TALVO_RATIO_LIMIT("CompactPaths", 0.5);

int const CellWidth = 150;

// Paths of the kind a data application keeps: a home or a mount, three to
// six folders (dates, projects, run numbers), a file; some names with
// accents and blanks. Fixed seed.
std::vector<wxString> const & Paths() {
  static std::vector<wxString> const paths = [] {
    wchar_t const * const roots[] = {L"/home/ana", L"/mnt/lab-share", L"/srv/data", L"/media/usb0"};
    wchar_t const * const folders[] = {L"projects",  L"Messungen 2024", L"raw",     L"calibration",
                                       L"run_0042",  L"Zürich",         L"export",  L"qc",
                                       L"station 7", L"archive",        L"2023-11", L"pump valves"};
    wchar_t const * const files[] = {L"results.csv", L"Protokoll Élan.txt", L"spectrum_0815.dat",
                                     L"summary.xlsx", L"run 17 of the long series.kvxml"};
    std::mt19937 random(7);
    std::vector<wxString> made;
    made.reserve(1000);
    for (int i = 0; i < 1000; ++i) {
      wxString path = roots[random() % std::size(roots)];
      for (unsigned depth = 3 + random() % 4; depth > 0; --depth)
        path << L'/' << folders[random() % std::size(folders)];
      path << L'/' << files[random() % std::size(files)];
      made.push_back(path);
    }
    return made;
  }();
  return paths;
}

struct Measuring {
  wxBitmap bitmap{8, 8};
  wxMemoryDC dc{bitmap};
  Measuring() { dc.SetFont(wxFont(wxFontInfo(9).Family(wxFONTFAMILY_SWISS))); }
};

void CompactPaths_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Measuring measuring;
  for (auto _ : state)
    for (wxString const & path : Paths())
      benchmark::DoNotOptimize(CompactPath(measuring.dc, path, CellWidth));
}
BENCHMARK(CompactPaths_candidate)->Name("CompactPaths/candidate")->Unit(benchmark::kMillisecond);

void CompactPaths_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Measuring measuring;
  for (auto _ : state)
    for (wxString const & path : Paths())
      benchmark::DoNotOptimize(
          wxControl::Ellipsize(path, measuring.dc, wxELLIPSIZE_MIDDLE, CellWidth));
}
BENCHMARK(CompactPaths_baseline)->Name("CompactPaths/baseline")->Unit(benchmark::kMillisecond);

}  // namespace
