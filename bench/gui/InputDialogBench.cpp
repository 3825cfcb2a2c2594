// The input dialog beside wxTextEntryDialog, and the item selection with
// 10,000 ticked-or-not runs beside wxMultiChoiceDialog with the same runs,
// each from the call to its first paint; and "Select complement" over the
// 10,000 rows. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/checklst.h>
#include <wx/choicdlg.h>
#include <wx/textdlg.h>

#include <vector>

#include "Figures.h"
#include "dialogs/VxInputDialog.h"
#include "gui/GuiBench.h"
#include "gui/ModalUntil.h"
#include "lists/SelectItemDialog.h"

namespace {

TALVO_RATIO_LIMIT("InputDialogOpen", 1.2);
TALVO_RATIO_LIMIT("SelectItemDialogOpen", 1.0);
TALVO_TIME_LIMIT("SelectComplement", 10e6);

constexpr int Items = 10000;

std::vector<wxString> const & Runs() {
  static std::vector<wxString> const runs = [] {
    std::vector<wxString> all;
    all.reserve(Items);
    for (int i = 0; i < Items; ++i)
      all.push_back(wxString::Format("Run %05d of the calibration batch", i));
    return all;
  }();
  return runs;
}

bool NeedDisplay(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

void InputDialogOpen_candidate(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  ModalUntil hook(ModalUntil::FirstPaint());
  for (auto _ : state) {
    wxString value = "Run 17";
    VxInputDialog dialog(L"Rename", L"New name of the run:", L"", value);
    benchmark::DoNotOptimize(dialog.DoModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the dialog was not painted");
}
BENCHMARK(InputDialogOpen_candidate)
    ->Name("InputDialogOpen/candidate")
    ->Unit(benchmark::kMillisecond);

void InputDialogOpen_baseline(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  ModalUntil hook(ModalUntil::FirstPaint());
  for (auto _ : state) {
    wxTextEntryDialog dialog(nullptr, "New name of the run:", "Rename", "Run 17");
    benchmark::DoNotOptimize(dialog.ShowModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the dialog was not painted");
}
BENCHMARK(InputDialogOpen_baseline)
    ->Name("InputDialogOpen/baseline")
    ->Unit(benchmark::kMillisecond);

void SelectItemDialogOpen_candidate(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  ModalUntil hook(ModalUntil::FirstPaint());
  for (auto _ : state) {
    std::vector<int> ticked{1, 5, 9000};
    benchmark::DoNotOptimize(VxMultiSelectItemDialog(L"Runs", L"Tick the runs:", L"Run", Runs(),
                                                     &ticked, true, nullptr));
  }
  if (hook.TimedOut()) state.SkipWithError("the dialog was not painted");
}
BENCHMARK(SelectItemDialogOpen_candidate)
    ->Name("SelectItemDialogOpen/candidate")
    ->Unit(benchmark::kMillisecond);

void SelectItemDialogOpen_baseline(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  ModalUntil hook(ModalUntil::FirstPaint());
  wxArrayString runs;
  for (wxString const & run : Runs()) runs.Add(run);
  for (auto _ : state) {
    wxMultiChoiceDialog dialog(nullptr, "Tick the runs:", "Runs", runs);
    wxArrayInt ticked;
    for (int row : {1, 5, 9000}) ticked.Add(row);
    dialog.SetSelections(ticked);
    benchmark::DoNotOptimize(dialog.ShowModal());
  }
  if (hook.TimedOut()) state.SkipWithError("the dialog was not painted");
}
BENCHMARK(SelectItemDialogOpen_baseline)
    ->Name("SelectItemDialogOpen/baseline")
    ->Unit(benchmark::kMillisecond);

// The ticks of 10,000 rows turned over, beside a wxCheckListBox with the
// same rows turned over one by one.
void SelectComplement_candidate(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  std::vector<int> ticked{1, 5, 9000};
  ModalUntil run([&state](wxDialog & shown, std::function<void()> const & done) {
    auto & select = dynamic_cast<SelectItemDialog &>(shown);
    for (auto _ : state) select.RunCommand(SelectItemDialog::kSelectComplement);
    done();
  });
  VxMultiSelectItemDialog(L"Runs", L"Tick:", L"Run", Runs(), &ticked, true, nullptr);
}
BENCHMARK(SelectComplement_candidate)
    ->Name("SelectComplement/candidate")
    ->Unit(benchmark::kMillisecond);

void SelectComplement_baseline(benchmark::State & state) {
  if (!NeedDisplay(state)) return;
  wxDialog dialog(nullptr, wxID_ANY, "Runs", wxDefaultPosition, wxSize(420, 400));
  wxArrayString runs;
  for (wxString const & text : Runs()) runs.Add(text);
  auto * list = new wxCheckListBox(&dialog, wxID_ANY, wxPoint(12, 52), wxSize(396, 230), runs);
  dialog.Show();
  for (auto _ : state)
    for (unsigned row = 0; row < list->GetCount(); ++row) list->Check(row, !list->IsChecked(row));
}
BENCHMARK(SelectComplement_baseline)
    ->Name("SelectComplement/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
