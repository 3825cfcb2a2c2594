#pragma once
// A gauge over the toolkit's own progress bar. The bar always runs from 0
// to 100; the value is shown as its whole percent of the range, and the bar
// is touched only when that percent changes.

#include <wx/gauge.h>

#include "work/VxGaugeBase.h"

class VxXTPGauge : public wxGauge, public VxGaugeBase {
public:
  VxXTPGauge() = default;
  VxXTPGauge(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
             wxSize const & size = wxDefaultSize, long style = wxGA_HORIZONTAL);
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
              wxSize const & size = wxDefaultSize, long style = wxGA_HORIZONTAL);

  void SetRange(float low, float high) override;
  // A value outside the range (or a range of no width) shows as 0 or 100;
  // NaN as 0.
  void SetValue(float value) override;
  wxWindow * GetWnd() override { return this; }

  // The whole percent of a value, clamped to 0..100.
  static int Percent(float low, float high, float value);

private:
  float mLow = 0, mHigh = 0;
  int mLastPosition = 0;
};
