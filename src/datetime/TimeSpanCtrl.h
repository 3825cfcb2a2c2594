#pragma once
// A picker of a span under one day, shown as "HH:mm:ss", between a minimum
// (at least 1 s) and a maximum (at most 86399 s), on a resolution. When the
// user changes it, a move up goes to the next multiple of the resolution
// above and a move down to the one below, so that a spin jumps a whole step.
// The span is shown as the time of day 2000-01-01 plus the span.

#include "platform/commctrl/DateTimeCtrl.h"

class TimeSpanCtrl : public CDateTimeCtrl {
public:
  TimeSpanCtrl();
  TimeSpanCtrl(wxWindow * parent, wxWindowID id, wxPoint const & position = wxDefaultPosition,
               wxSize const & size = wxDefaultSize);

  // Clamps the span to minimum and maximum and shows it. Throws
  // CAtlException: E_FAIL when the clamped span is no time of day (a
  // minimum above the maximum), E_INVALIDARG when the local calendar has no
  // such time.
  void SetTimeSpan(__int64 span);
  void SetTimeSpan(CTimeSpan span);

  __int64 GetTimeSpan() const { return mSpan; }
  __int64 GetTimeResolution() const { return mResolution; }
  __int64 GetMinTimeSpan() const { return mMinimum; }
  __int64 GetMaxTimeSpan() const { return mMaximum; }

  void SetMinTimeSpan(__int64 minimum);  // raised to at least 1
  void SetMaxTimeSpan(__int64 maximum);  // lowered to at most 86399
  // A resolution below one second is taken as one.
  void SetTimeResolution(__int64 resolution);

  static constexpr __int64 kLongestSpan = 86399;

protected:
  void PreSubclassWindow() override;
  void OnDateTimeChange(NMHDR * header, LRESULT * result);

private:
  __int64 mLastSpan = 1;
  __int64 mResolution = 1;
  __int64 mSpan = 1;
  __int64 mMinimum = 1;
  __int64 mMaximum = kLongestSpan;
  // The picker's time last shown, for the wrap test.
  __time64_t mLastShown = 0;
};
