#pragma once
// The status bar's gauge for now: a native gauge that shows a float value in
// a float range. Progress only stores numbers here; the gauge moves at its
// own pace, from a 50 ms timer that the progress pump lets through, so that
// a report costs no drawing.

#include <wx/gauge.h>
#include <wx/timer.h>

class StatusGauge : public wxGauge {
public:
  static constexpr int kSteps = 1000;
  static constexpr int kIntervalMs = 50;

  explicit StatusGauge(wxWindow * parent);
  ~StatusGauge() override;

  void SetRange(float low, float high);
  void SetValue(float value);
  // Moves the bar to the stored value; what the timer does.
  void ShowValue();

  // The value's share of the range; what cannot be placed (an empty or
  // endless range, NaN) is 0.
  float GetFraction() const;

private:
  void OnTimer(wxTimerEvent & event);

  float mLow = 0;
  float mHigh = 1;
  float mValue = 0;
  wxTimer mTimer;
};
