// Selecting rows while typing: VxFindAndSelectEdit::EditTriggered over a
// report list of 100,000 run names (reading each cell, matching without
// regard to case, selecting the 250 hits, scrolling to the first) beside a
// bare loop of VxStdString::ContainsNoCase over the same names held as
// UTF-8 strings. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <locale>
#include <string>
#include <vector>

#include <wx/frame.h>

#include "Figures.h"
#include "controls/VxFindAndSelectEdit.h"
#include "gui/GuiBench.h"
#include "platform/commctrl/CListCtrl.h"
#include "utl/VxStdString.h"

namespace {

TALVO_RATIO_LIMIT("FindAndSelect", 1.3);

constexpr int kRows = 100000;
constexpr wchar_t kPattern[] = L"77 contr";

struct Fixture {
  wxFrame * frame =
      new wxFrame(nullptr, wxID_ANY, "Find and select", wxDefaultPosition, wxSize(500, 400));
  CListCtrl * list = new CListCtrl(frame, wxID_ANY);
  VxFindAndSelectEdit * edit =
      new VxFindAndSelectEdit(100, list, VxFindAndSelectEdit::FindContains);
  std::vector<std::string> names;
  Fixture() {
    edit->Create(frame, wxID_ANY);
    list->InsertColumn(0, "Run", LVCFMT_LEFT, 300);
    char const * const kinds[] = {"Blank", "Standard", "Sample", "Control"};
    list->SetRedraw(false);
    for (int i = 0; i < kRows; ++i) {
      char name[64];
      std::snprintf(name, sizeof name, "Run %06d %s", i, kinds[(i / 100) % 4]);
      names.emplace_back(name);
      list->InsertItem(i, wxString::FromUTF8(name));
    }
    list->SetRedraw(true);
    frame->Show();
  }
};

Fixture & Shown() {
  static Fixture fixture;
  return fixture;
}

void FindAndSelect_candidate(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Fixture & f = Shown();
  for (auto _ : state) f.edit->EditTriggered(kPattern);
  state.counters["selected"] = static_cast<double>(f.list->GetSelectedCount());
}
BENCHMARK(FindAndSelect_candidate)->Name("FindAndSelect/candidate")->Unit(benchmark::kMillisecond);

void FindAndSelect_baseline(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Fixture & f = Shown();
  std::string const pattern = wxString(kPattern).utf8_string();
  std::locale const locale;
  for (auto _ : state) {
    int hits = 0;
    for (std::string const & name : f.names)
      hits += VxStdString::ContainsNoCase(name, pattern, locale) ? 1 : 0;
    benchmark::DoNotOptimize(hits);
  }
}
BENCHMARK(FindAndSelect_baseline)->Name("FindAndSelect/baseline")->Unit(benchmark::kMillisecond);

}  // namespace
