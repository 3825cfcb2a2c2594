#include "work/VxXTPGauge.h"

#include <cmath>

VxXTPGauge::VxXTPGauge(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                       long style) {
  Create(parent, id, pos, size, style);
}

bool VxXTPGauge::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                        long style) {
  return wxGauge::Create(parent, id, 100, pos, size, style);
}

void VxXTPGauge::SetRange(float low, float high) {
  mLow = low;
  mHigh = high;
  wxGauge::SetRange(100);
}

int VxXTPGauge::Percent(float low, float high, float value) {
  // In double, so that a range of no width gives an infinity (or NaN), not
  // a trap; the cast below only ever sees 0..100.
  double const percent = std::trunc((double(value) - low) * 100 / (double(high) - low));
  if (!(percent > 0)) return 0;
  return percent >= 100 ? 100 : int(percent);
}

void VxXTPGauge::SetValue(float value) {
  int const percent = Percent(mLow, mHigh, value);
  if (percent == mLastPosition) return;
  mLastPosition = percent;
  // Through the virtual, so that a derived bar sees every change.
  static_cast<wxGauge *>(this)->SetValue(percent);
}
