// The splash window's figures. Part of talvo-bench-gui.
//  - SplashRegion: the outline of an 800 x 600 picture with a ragged edge,
//    beside wxRegion's own constructor from a bitmap and a colour (the two
//    regions must be equal, or the figure is skipped).
//  - SplashFirstPaint: from constructing a shaped splash to its first paint,
//    beside wxSplashScreen with the same picture.
#include <benchmark/benchmark.h>
#include <glib.h>

#include <chrono>
#include <cmath>

#include <wx/app.h>
#include <wx/splash.h>

#include "Figures.h"
#include "controls/VxSplashWindow.h"
#include "gui/GuiBench.h"

namespace {

TALVO_RATIO_LIMIT("SplashRegion", 1.0);
TALVO_RATIO_LIMIT("SplashFirstPaint", 1.0);

constexpr COLORREF kMagenta = RGB(255, 0, 255);

// An 800 x 600 picture whose left and right edges wander row by row, with
// round holes; the last column is always magenta, so no row ends on a lone
// opaque pixel (where the family's rule and wxRegion's differ).
wxBitmap const & RaggedPicture() {
  static wxBitmap const picture = [] {
    wxImage image(800, 600, false);
    unsigned char * p = image.GetData();
    for (int y = 0; y < 600; ++y) {
      int const left = 40 + static_cast<int>(30 * std::sin(y / 17.0) + 10 * std::sin(y / 3.0));
      int const right = 760 + static_cast<int>(25 * std::cos(y / 13.0));
      for (int x = 0; x < 800; ++x, p += 3) {
        bool const hole = std::hypot((x % 100) - 50, (y % 100) - 50) < 12;
        bool const opaque = x >= left && x < right && !hole;
        p[0] = opaque ? static_cast<unsigned char>(x / 4) : 255;
        p[1] = opaque ? static_cast<unsigned char>(y / 3) : 0;
        p[2] = opaque ? 90 : 255;
      }
    }
    return wxBitmap(image);
  }();
  return picture;
}

bool Started(benchmark::State & state) {
  if (GuiStarted()) return true;
  state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
  return false;
}

void SplashRegion_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  wxRegion difference = VxSplashWindow::CreateRgnFromBitmap(RaggedPicture(), kMagenta);
  difference.Xor(wxRegion(RaggedPicture(), wxColour(255, 0, 255)));
  if (!difference.IsEmpty()) {
    state.SkipWithError("the regions differ");
    return;
  }
  for (auto _ : state)
    benchmark::DoNotOptimize(VxSplashWindow::CreateRgnFromBitmap(RaggedPicture(), kMagenta));
}
BENCHMARK(SplashRegion_candidate)->Name("SplashRegion/candidate")->Unit(benchmark::kMillisecond);

void SplashRegion_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  for (auto _ : state) benchmark::DoNotOptimize(wxRegion(RaggedPicture(), wxColour(255, 0, 255)));
}
BENCHMARK(SplashRegion_baseline)->Name("SplashRegion/baseline")->Unit(benchmark::kMillisecond);

// Runs the main loop until `painted`, at most five seconds.
bool RunUntilPainted(bool const & painted) {
  auto const end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (!painted && std::chrono::steady_clock::now() < end) {
    g_main_context_iteration(nullptr, FALSE);
    wxTheApp->ProcessPendingEvents();
  }
  return painted;
}

void Settle() {
  while (g_main_context_iteration(nullptr, FALSE)) {}
  wxTheApp->ProcessPendingEvents();
  wxTheApp->ProcessIdle();
}

void SplashFirstPaint_candidate(benchmark::State & state) {
  if (!Started(state)) return;
  bool timedOut = false;
  for (auto _ : state) {
    bool painted = false;
    auto * splash = new VxSplashWindow;
    splash->Create(nullptr, 0, VxSplashWindow::kCentreOnScreen);
    splash->SetBitmap(RaggedPicture(), kMagenta);
    splash->GetWindow()->Bind(wxEVT_PAINT, [&painted](wxPaintEvent & event) {
      painted = true;
      event.Skip();
    });
    splash->Show();
    timedOut = !RunUntilPainted(painted) || timedOut;
    state.PauseTiming();
    splash->Hide();
    Settle();
    state.ResumeTiming();
  }
  if (timedOut) state.SkipWithError("the splash was not painted");
}
BENCHMARK(SplashFirstPaint_candidate)
    ->Name("SplashFirstPaint/candidate")
    ->Unit(benchmark::kMillisecond);

void SplashFirstPaint_baseline(benchmark::State & state) {
  if (!Started(state)) return;
  bool timedOut = false;
  for (auto _ : state) {
    bool painted = false;
    wxBitmap picture = RaggedPicture();
    picture.SetMask(new wxMask(picture, wxColour(255, 0, 255)));
    auto * splash = new wxSplashScreen(picture, wxSPLASH_CENTRE_ON_SCREEN | wxSPLASH_NO_TIMEOUT, 0,
                                       nullptr, wxID_ANY);
    splash->GetSplashWindow()->Bind(wxEVT_PAINT, [&painted](wxPaintEvent & event) {
      painted = true;
      event.Skip();
    });
    timedOut = !RunUntilPainted(painted) || timedOut;
    state.PauseTiming();
    splash->Destroy();
    Settle();
    state.ResumeTiming();
  }
  if (timedOut) state.SkipWithError("the splash was not painted");
}
BENCHMARK(SplashFirstPaint_baseline)
    ->Name("SplashFirstPaint/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
