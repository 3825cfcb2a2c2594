// A message box made and laid out to the point of showing it: a
// CustomMessageBoxDlg built as VxMessageBox builds it (Yes/No/Cancel, a
// relabelled button, the check box, a text of three sentences), run until its
// ShowModal, where a modal hook answers before anything is shown. Beside it
// a plain wxDialog made from the same template with the text set and the
// window sized, which is the least any box from that template costs. Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/init.h>
#include <wx/modalhook.h>
#include <wx/stattext.h>

#include "Figures.h"
#include "dialogs/CustomMessageBoxDlg.h"
#include "gui/GuiBench.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"

namespace {

// Within a tenth of the least that the template costs, and never past 30 ms.
TALVO_RATIO_LIMIT("MessageBoxLayout", 1.1);
TALVO_TIME_LIMIT("MessageBoxLayout", 30e6);

wchar_t const Text[] =
    L"The run \"Calibration 12\" has measurements that are not saved yet. If you close the "
    L"project now, they will be lost. Do you want to save them before the project closes?";

// Ends every modal run before it shows.
class AnswerAtOnce : public wxModalDialogHook {
public:
  AnswerAtOnce() { Register(); }
  ~AnswerAtOnce() override { Unregister(); }

protected:
  int Enter(wxDialog *) override { return wxID_CANCEL; }
  void Exit(wxDialog *) override {}
};

void MessageBoxLayout_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  AnswerAtOnce hook;
  for (auto _ : state) {
    CustomMessageBoxDlg box(MB_YESNOCANCEL | MB_ICONQUESTION);
    box.SetText(Text);
    box.SetButtonText(IDYES, L"&Save and close");
    box.ShowCheckBox(true);
    benchmark::DoNotOptimize(box.DoModal());
  }
}
BENCHMARK(MessageBoxLayout_candidate)
    ->Name("MessageBoxLayout/candidate")
    ->Unit(benchmark::kMillisecond);

void MessageBoxLayout_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  AnswerAtOnce hook;
  for (auto _ : state) {
    wxDialog dialog;
    LoadDialogTemplate(dialog, nullptr, CustomMessageBoxDlg::kTemplateId);
    auto * text = static_cast<wxStaticText *>(dialog.FindWindow(CustomMessageBoxDlg::kTextId));
    text->SetLabelText(Text);
    text->Wrap(400);
    dialog.SetClientSize(text->GetRect().GetRight() + 12, text->GetRect().GetBottom() + 60);
    dialog.Centre();
    benchmark::DoNotOptimize(dialog.ShowModal());
  }
}
BENCHMARK(MessageBoxLayout_baseline)
    ->Name("MessageBoxLayout/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
