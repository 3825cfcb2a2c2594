// One VxGauge frame at 300 x 20 (bar, stripe, tinted rest, caption in two
// colours) painted into a memory context, beside filling a rectangle of the
// same size and drawing the same caption once. Both measure the caption
// once, before the loop, as the gauge does at its first frame. Part of talvo-bench-gui: it
// needs a display, so scripts/bench starts it under Xvfb when there is none.
#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/init.h>
#include <wx/settings.h>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "work/VxGauge.h"

namespace {

TALVO_TIME_LIMIT("GaugeFrame", 200000);

wxSize const FrameSize(300, 20);
char const Caption[] = "Breaking...";

void GaugeFrame_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  VxGauge::FrameState frame;
  frame.value = 50;
  frame.caption = Caption;
  frame.font = wxFont(wxFontInfo(8).Family(wxFONTFAMILY_SWISS).Bold());
  frame.face = wxSystemSettings::GetColour(wxSYS_COLOUR_3DFACE);
  wxBitmap bitmap(FrameSize, 24);
  {
    // The gauge measures its caption once, at its first frame.
    wxMemoryDC dc(bitmap);
    frame.captionSize = VxGauge::MeasureCaption(dc, frame);
  }
  int tick = 0;
  for (auto _ : state) {
    // As a timer tick does it: select the frame bitmap, paint, deselect.
    wxMemoryDC dc(bitmap);
    VxGauge::PaintFrame(dc, FrameSize, frame, VxGauge::Pulse(tick));
    tick = (tick + 1) % VxGauge::PulseFrames;
  }
}
BENCHMARK(GaugeFrame_candidate)->Name("GaugeFrame/candidate")->Unit(benchmark::kMicrosecond);

void GaugeFrame_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  wxFont const font(wxFontInfo(8).Family(wxFONTFAMILY_SWISS).Bold());
  wxBitmap bitmap(FrameSize, 24);
  wxSize text;
  {
    wxMemoryDC dc(bitmap);
    dc.SetFont(font);
    text = dc.GetTextExtent(Caption);
  }
  for (auto _ : state) {
    wxMemoryDC dc(bitmap);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(*wxBLUE_BRUSH);
    dc.DrawRectangle(wxPoint(0, 0), FrameSize);
    dc.SetFont(font);
    dc.SetTextForeground(*wxWHITE);
    dc.DrawText(Caption, (FrameSize.x - text.x) / 2, (FrameSize.y - text.y) / 2);
  }
}
BENCHMARK(GaugeFrame_baseline)->Name("GaugeFrame/baseline")->Unit(benchmark::kMicrosecond);

}  // namespace
