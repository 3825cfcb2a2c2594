#include "work/StatusGauge.h"

#include <algorithm>
#include <cmath>

#include "work/ProgressPump.h"

StatusGauge::StatusGauge(wxWindow * parent)
    : wxGauge(parent, wxID_ANY, kSteps, wxPoint(0, 0), wxSize(1, 1)), mTimer(this) {
  Bind(wxEVT_TIMER, &StatusGauge::OnTimer, this);
  progress_pump::AllowTimerOwner(this);
}

StatusGauge::~StatusGauge() {
  mTimer.Stop();
  progress_pump::DisallowTimerOwner(this);
}

void StatusGauge::SetRange(float low, float high) {
  mLow = low;
  mHigh = high;
}

void StatusGauge::SetValue(float value) {
  mValue = value;
  if (!mTimer.IsRunning()) mTimer.StartOnce(kIntervalMs);
}

float StatusGauge::GetFraction() const {
  float const fraction = (mValue - mLow) / (mHigh - mLow);
  return std::isfinite(fraction) ? std::min(1.0f, std::max(0.0f, fraction)) : 0.0f;
}

void StatusGauge::ShowValue() {
  int const position = static_cast<int>(std::lround(GetFraction() * kSteps));
  if (GetValue() != position) wxGauge::SetValue(position);
}

void StatusGauge::OnTimer(wxTimerEvent &) { ShowValue(); }
