#include "work/SpinWindow.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <chrono>

#include "controls/StandardColor.h"
#include "work/ProgressPump.h"

namespace {

std::uint32_t SteadyMilliseconds() {
  using namespace std::chrono;
  return static_cast<std::uint32_t>(
      duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

}  // namespace

SpinWindow::SpinWindow(wxWindow * parent)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxSize(16, 16), wxBORDER_NONE),
      mClock(&SteadyMilliseconds),
      mTimer(this) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, &SpinWindow::OnPaint, this);
  Bind(wxEVT_TIMER, [this](wxTimerEvent &) { OnTick(); });
  progress_pump::AllowTimerOwner(this);
  mLastStep = mClock();
}

SpinWindow::~SpinWindow() {
  mTimer.Stop();
  progress_pump::DisallowTimerOwner(this);
}

void SpinWindow::SetClock(Clock clock) {
  mClock = std::move(clock);
  mLastStep = mClock();
}

void SpinWindow::Step() {
  std::uint32_t const now = mClock();
  // Only once the last step plus the interval lies before now: at exactly
  // 100 ms the pole stands. Unsigned difference: right across the wrap of
  // the 32-bit clock.
  if (now - mLastStep <= kStepIntervalMs) return;
  mLastStep = now;
  SetStep(mStep + 1);
}

void SpinWindow::SetStep(int step) {
  mStep = ((step % kSteps) + kSteps) % kSteps;
  Refresh(false);
}

void SpinWindow::SetSelfTurning(bool turning) {
  if (turning && !mTimer.IsRunning()) mTimer.Start(kIntervalMs);
  if (!turning) mTimer.Stop();
}

void SpinWindow::OnTick() {
  if (!IsShownOnScreen()) return;
  mHue = (mHue + 1) % kHues;
  // Turning by itself, the pole steps at every other tick.
  mToggle = !mToggle;
  if (IsSelfTurning() && !mToggle) Step();
  Refresh(false);
}

wxColour SpinWindow::StripeColour(int hue) {
  wxColour colour;
  colour.SetRGB(StandardColor::HSV2RGB(hue * 5.0, 0.3, 0.7));
  return colour;
}

void SpinWindow::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  wxColour const face = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
  dc.SetBackground(wxBrush(face));
  dc.Clear();
  wxSize const size = GetClientSize();
  int const height = size.y;
  // A stripe: the parallelogram from (x, 0) leaning left down to the
  // bottom, 5 wide. The first one starts left of the window, so that the
  // whole window is covered; stripes alternate from the one at the step.
  int x = mStep;
  bool coloured = true;
  if (x + height > 0) {
    int const back = (x + height - 1) / kStripeWidth + 1;
    x -= back * kStripeWidth;
    coloured = back % 2 == 0;
  }
  dc.SetPen(*wxTRANSPARENT_PEN);
  wxBrush const stripe(StripeColour(mHue));
  wxBrush const plain(face);
  for (; x < size.x; x += kStripeWidth, coloured = !coloured) {
    wxPoint const corners[4] = {
        {x + height, 0}, {x, height}, {x + kStripeWidth, height}, {x + height + kStripeWidth, 0}};
    dc.SetBrush(coloured ? stripe : plain);
    dc.DrawPolygon(4, corners);
  }
}
