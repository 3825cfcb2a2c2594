// One step of a time picker as a person makes it: the Up key reaches the
// control, the value changes, and the control is repainted with it. The
// span picker (field wrap, wrap test, snap, clamp, the picker's time set
// anew, a buffered paint) beside the same step in wxTimePickerCtrl, GTK's
// stock time picker (a text entry whose field the key changes). Part of
// talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/timectrl.h>
#include <wx/utils.h>

#include "Figures.h"
#include "datetime/TimeSpanCtrl.h"
#include "gui/GuiBench.h"

namespace {

TALVO_RATIO_LIMIT("TimeSpanStep", 1.0);

struct Pickers {
  wxFrame * frame = nullptr;
  TimeSpanCtrl * span = nullptr;
  wxTimePickerCtrl * stock = nullptr;
  wxWindow * stockKeys = nullptr;  // the child that takes the stock picker's keys
};

Pickers & Shown() {
  static Pickers pickers = [] {
    Pickers made;
    made.frame = new wxFrame(nullptr, wxID_ANY, "Pickers", wxDefaultPosition, wxSize(300, 120));
    auto * panel = new wxPanel(made.frame);
    auto * sizer = new wxBoxSizer(wxVERTICAL);
    made.span = new TimeSpanCtrl(panel, wxID_ANY);
    made.span->SetTimeSpan(3600);
    made.stock = new wxTimePickerCtrl(panel, wxID_ANY, wxDateTime(1, 0, 0));
    sizer->Add(made.span, 0, wxALL, 8);
    sizer->Add(made.stock, 0, wxALL, 8);
    panel->SetSizer(sizer);
    made.frame->Show();
    for (int i = 0; i < 200 && !made.frame->IsShownOnScreen(); ++i) wxYield();
    made.stockKeys = made.stock;
    for (wxWindow * child : made.stock->GetChildren())
      if (dynamic_cast<wxTextCtrl *>(child) != nullptr) made.stockKeys = child;
    wxYield();
    return made;
  }();
  return pickers;
}

void PressUp(wxWindow & target) {
  wxKeyEvent key(wxEVT_KEY_DOWN);
  key.m_keyCode = WXK_UP;
  key.SetEventObject(&target);
  key.SetId(target.GetId());
  target.GetEventHandler()->ProcessEvent(key);
}

void TimeSpanStep_candidate(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  TimeSpanCtrl & span = *Shown().span;
  __int64 const before = span.GetTimeSpan();
  PressUp(span);
  if (span.GetTimeSpan() == before) {
    state.SkipWithError("the key did not step the span");
    return;
  }
  for (auto _ : state) {
    PressUp(span);
    span.Update();  // the repaint, now
  }
}
BENCHMARK(TimeSpanStep_candidate)->Name("TimeSpanStep/candidate")->Unit(benchmark::kMicrosecond);

void TimeSpanStep_baseline(benchmark::State & state) {
  if (!GuiStarted()) {
    state.SkipWithError("needs a display: run through scripts/bench, which starts Xvfb");
    return;
  }
  Pickers & pickers = Shown();
  wxDateTime const before = pickers.stock->GetValue();
  PressUp(*pickers.stockKeys);
  if (pickers.stock->GetValue() == before) {
    state.SkipWithError("the key did not step the stock picker");
    return;
  }
  for (auto _ : state) {
    PressUp(*pickers.stockKeys);
    pickers.stockKeys->Update();
  }
}
BENCHMARK(TimeSpanStep_baseline)->Name("TimeSpanStep/baseline")->Unit(benchmark::kMicrosecond);

}  // namespace
