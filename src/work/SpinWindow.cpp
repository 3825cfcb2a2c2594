#include "work/SpinWindow.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <cmath>

#include "work/ProgressPump.h"

SpinWindow::SpinWindow(wxWindow * parent)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxSize(16, 16), wxBORDER_NONE),
      mTimer(this) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, &SpinWindow::OnPaint, this);
  Bind(wxEVT_TIMER, &SpinWindow::OnTimer, this);
  progress_pump::AllowTimerOwner(this);
}

SpinWindow::~SpinWindow() {
  mTimer.Stop();
  progress_pump::DisallowTimerOwner(this);
}

void SpinWindow::Step() { SetStep(mStep + 1); }

void SpinWindow::SetStep(int step) {
  mStep = ((step % kSteps) + kSteps) % kSteps;
  Refresh(false);
}

void SpinWindow::SetSelfTurning(bool turning) {
  if (turning && !mTimer.IsRunning()) mTimer.Start(kIntervalMs);
  if (!turning) mTimer.Stop();
}

void SpinWindow::OnTimer(wxTimerEvent &) { Step(); }

void SpinWindow::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE)));
  dc.Clear();
  wxSize const size = GetClientSize();
  double const radius = std::min(size.x, size.y) / 2.0 - 1;
  wxPoint const centre(size.x / 2, size.y / 2);
  // Spokes fade behind the current one, so that the turn is seen.
  for (int i = 0; i < kSteps; ++i) {
    int const age = ((mStep - i) % kSteps + kSteps) % kSteps;
    unsigned char const grey = static_cast<unsigned char>(40 + age * 160 / kSteps);
    dc.SetPen(wxPen(wxColour(grey, grey, grey), 2));
    double const angle = 2 * M_PI * i / kSteps;
    dc.DrawLine(centre.x + int(std::lround(radius * 0.45 * std::cos(angle))),
                centre.y + int(std::lround(radius * 0.45 * std::sin(angle))),
                centre.x + int(std::lround(radius * std::cos(angle))),
                centre.y + int(std::lround(radius * std::sin(angle))));
  }
}
