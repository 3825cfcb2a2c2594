// Background execution's figures. Part of talvo-bench-gui.
//  - ExecuteWithProgressEmpty: ExecuteWithProgress of work that returns at
//    once, beside the same waiting dialog shown and ended by itself (its
//    close posted as it enters its modal loop, with no worker): the cost of
//    the thread and the handshake.
//  - BarberPoleFrame: one frame of a 300 x 20 barber pole (a step and the
//    repaint it causes, drawn by GTK into an off-screen surface as it draws
//    the window) beside one pulse of wxGauge at the same size, drawn the same
//    way.
#include <benchmark/benchmark.h>
#include <gtk/gtk.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/modalhook.h>

#include "Figures.h"
#include "controls/IndeterminateProgressCtrl.h"
#include "dialogs/ExecuteWithProgress.h"
#include "dialogs/ProgressDialog.h"
#include "gui/GuiBench.h"
#include "platform/PostedWindowMessages.h"

namespace {

TALVO_RATIO_LIMIT("ExecuteWithProgressEmpty", 1.2);
TALVO_RATIO_LIMIT("BarberPoleFrame", 1.0);
TALVO_TIME_LIMIT("BarberPoleFrame", 100000);

bool Started(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

// Counts the waiting dialogs; with `endAlone`, posts each one's close as it
// enters its modal loop, as the worker would once the dialog is up.
class WaitingDialogs : public wxModalDialogHook {
public:
  explicit WaitingDialogs(bool endAlone) : mEndAlone(endAlone) { Register(); }
  ~WaitingDialogs() override { Unregister(); }
  int Count() const { return mCount; }

protected:
  int Enter(wxDialog * dialog) override {
    auto * waiting = dynamic_cast<ProgressDialog *>(dialog);
    if (waiting == nullptr) return wxID_NONE;
    ++mCount;
    if (mEndAlone) {
      waiting->SetMayClose();
      PostWindowMessage(waiting, WM_CLOSE);
    }
    return wxID_NONE;
  }
  void Exit(wxDialog *) override {}

private:
  bool mEndAlone;
  int mCount = 0;
};

void ExecuteWithProgressEmpty_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  WaitingDialogs dialogs(false);
  for (auto _ : state) ExecuteWithProgress([] {}, nullptr, nullptr);
  if (dialogs.Count() == 0) state.SkipWithError("no waiting dialog was shown");
}
BENCHMARK(ExecuteWithProgressEmpty_candidate)
    ->Name("ExecuteWithProgressEmpty/candidate")
    ->Unit(benchmark::kMillisecond);

void ExecuteWithProgressEmpty_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  WaitingDialogs dialogs(true);
  for (auto _ : state) {
    ReadySignal ready;
    ProgressDialog dialog(std::wstring(), &ready, nullptr, nullptr);
    benchmark::DoNotOptimize(dialog.DoModal());
  }
  if (dialogs.Count() == 0) state.SkipWithError("no waiting dialog was shown");
}
BENCHMARK(ExecuteWithProgressEmpty_baseline)
    ->Name("ExecuteWithProgressEmpty/baseline")
    ->Unit(benchmark::kMillisecond);

wxSize const BarSize(300, 20);

// A shown frame holding the bar under test, and an image surface of the
// bar's size that GTK draws it into.
class BarStage {
public:
  BarStage() : mFrame(new wxFrame(nullptr, wxID_ANY, "bar")) {
    mSurface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, BarSize.x, BarSize.y);
    mCairo = cairo_create(mSurface);
  }
  ~BarStage() {
    cairo_destroy(mCairo);
    cairo_surface_destroy(mSurface);
    mFrame->Destroy();
    wxTheApp->ProcessIdle();
  }
  BarStage(BarStage const &) = delete;
  BarStage & operator=(BarStage const &) = delete;

  wxFrame & Frame() const { return *mFrame; }
  void Show() {
    mFrame->Show();
    while (g_main_context_iteration(nullptr, FALSE)) {}
  }
  // Draws `window` as GTK draws it in a frame: layout, then paint.
  void Draw(wxWindow & window) const {
    GtkWidget * widget = window.GetHandle();
    GtkAllocation allocation;
    gtk_widget_get_allocation(widget, &allocation);
    gtk_widget_size_allocate(widget, &allocation);
    gtk_widget_draw(widget, mCairo);
  }

private:
  wxFrame * mFrame;
  cairo_surface_t * mSurface = nullptr;
  cairo_t * mCairo = nullptr;
};

void BarberPoleFrame_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  BarStage stage;
  auto * bar = new IndeterminateProgressCtrl(&stage.Frame(), wxID_ANY, wxPoint(0, 0), BarSize);
  int paints = 0;
  bar->Bind(wxEVT_PAINT, [&paints](wxPaintEvent & event) {
    ++paints;
    event.Skip();
  });
  stage.Show();
  paints = 0;
  for (auto _ : state) {
    bar->Step();
    stage.Draw(*bar);
  }
  if (paints == 0) state.SkipWithError("the bar was not painted");
}
BENCHMARK(BarberPoleFrame_candidate)
    ->Name("BarberPoleFrame/candidate")
    ->Unit(benchmark::kMicrosecond);

void BarberPoleFrame_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  BarStage stage;
  auto * gauge = new wxGauge(&stage.Frame(), wxID_ANY, 100, wxPoint(0, 0), BarSize);
  stage.Show();
  for (auto _ : state) {
    gauge->Pulse();
    stage.Draw(*gauge);
  }
}
BENCHMARK(BarberPoleFrame_baseline)
    ->Name("BarberPoleFrame/baseline")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
