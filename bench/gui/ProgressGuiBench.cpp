// Progress on a real display: a report of the active progress beside
// wxProgressDialog::Update and wxYield, and the pump with few and many held
// events. talvo-bench-gui runs under xvfb-run when there is no display.
#include <benchmark/benchmark.h>
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/progdlg.h>
#include <wx/utils.h>

#include <cstdio>
#include <cstdlib>

#include "Figures.h"
#include "work/Progress.h"
#include "work/ProgressPump.h"
#include "work/VxStatusBar.h"

namespace {

TALVO_TIME_LIMIT("ProgressActiveSet", 5000);
TALVO_RATIO_LIMIT("ProgressPumpHeldEvents", 1.5);

// One application and one shown main frame for every figure of this binary.
wxFrame & MainFrame() {
  static wxFrame * frame = [] {
    static int argc = 1;
    static char name[] = "talvo-bench-gui";
    static char * argv[] = {name, nullptr};
    wxApp::SetInstance(new wxApp);
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) {
      std::fprintf(stderr, "talvo-bench-gui: cannot open the display\n");
      std::exit(2);
    }
    auto * made = new wxFrame(nullptr, wxID_ANY, "Bench", wxDefaultPosition, wxSize(600, 300));
    made->SetStatusBar(new VxStatusBar(made));
    wxTheApp->SetTopWindow(made);
    made->Show();
    for (int i = 0; i < 200 && !made->IsShownOnScreen(); ++i) wxYield();
    return made;
  }();
  return *frame;
}

// Lets GTK handle everything queued, outside any progress.
void Drain() {
  while (gtk_events_pending()) gtk_main_iteration_do(FALSE);
}

void BM_ProgressActiveSet_candidate(benchmark::State & state) {
  MainFrame();
  Drain();
  Progress progress(nullptr, L"Bench", 0, 1000, false, false, true);
  float value = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(progress.Set(value));
    value = value < 1000 ? value + 1 : 0;
  }
}
BENCHMARK(BM_ProgressActiveSet_candidate)->Name("ProgressActiveSet/candidate");
BENCHMARK(BM_ProgressActiveSet_candidate)->Name("ProgressActiveSetVsYield/candidate");

void BM_ProgressActiveSet_baseline(benchmark::State & state) {
  wxFrame & frame = MainFrame();
  Drain();
  // Never at its maximum: there the dialog would wait to be closed.
  wxProgressDialog dialog("Bench", "Working", 1001, &frame, wxPD_SMOOTH);
  int value = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(dialog.Update(value));
    value = value < 1000 ? value + 1 : 0;
  }
}
BENCHMARK(BM_ProgressActiveSet_baseline)->Name("ProgressActiveSet/baseline");

void BM_Yield_baseline(benchmark::State & state) {
  MainFrame();
  Drain();
  for (auto _ : state) benchmark::DoNotOptimize(wxTheApp->SafeYield(nullptr, true));
}
BENCHMARK(BM_Yield_baseline)->Name("ProgressActiveSetVsYield/baseline");

// Puts `count` key presses for the main frame in GDK's queue; the first pump
// of an active progress holds them.
void QueueKeyPresses(int count) {
  GdkWindow * const window = gtk_widget_get_window(MainFrame().GetHandle());
  for (int i = 0; i < count; ++i) {
    GdkEvent * const event = gdk_event_new(GDK_KEY_PRESS);
    event->key.window = GDK_WINDOW(g_object_ref(window));
    event->key.keyval = GDK_KEY_a;
    event->key.time = GDK_CURRENT_TIME;
    gdk_event_set_device(
        event, gdk_seat_get_keyboard(gdk_display_get_default_seat(gdk_display_get_default())));
    gdk_event_put(event);
    gdk_event_free(event);
  }
}

void PumpWithHeldEvents(benchmark::State & state, int held) {
  MainFrame();
  Drain();
  {
    Progress progress(nullptr, L"Bench", 0, 1000, false, false, true);
    QueueKeyPresses(held);
    while (progress_pump::HeldInputCount() < std::size_t(held)) progress.Set(0);
    float value = 0;
    for (auto _ : state) {
      benchmark::DoNotOptimize(progress.Set(value));
      value = value < 1000 ? value + 1 : 0;
    }
    state.counters["held"] = double(progress_pump::HeldInputCount());
  }
  Drain();  // the replayed presses go to the frame now, not to the next figure
}

void BM_PumpHeld1000_candidate(benchmark::State & state) { PumpWithHeldEvents(state, 1000); }
BENCHMARK(BM_PumpHeld1000_candidate)->Name("ProgressPumpHeldEvents/candidate");
void BM_PumpHeld10_baseline(benchmark::State & state) { PumpWithHeldEvents(state, 10); }
BENCHMARK(BM_PumpHeld10_baseline)->Name("ProgressPumpHeldEvents/baseline");

}  // namespace
