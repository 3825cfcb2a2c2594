#include "datetime/TimeSpanCtrl.h"

#include <cstdlib>

#include "platform/AtlException.h"
#include "platform/WindowMessage.h"

namespace {

// Whether the picker's change from `last` to `now` wrapped a field rather
// than stepped it: read as a span, its seconds (the minutes taken out), its
// minutes (the hours taken out) or its hours (the days taken out) moved by 2
// or more, as the seconds do from 00 down to 59 (a span of +59 s).
bool Wrapped(__time64_t now, __time64_t last) {
  CTimeSpan const change(now - last);
  return std::abs(change.GetSeconds()) >= 2 || std::abs(change.GetMinutes()) >= 2 ||
         std::abs(change.GetHours()) >= 2;
}

}  // namespace

TimeSpanCtrl::TimeSpanCtrl() {
  Bind(VX_EVT_NOTIFY_REFLECT, [this](NotifyEvent & event) {
    if (event.GetCode() == DTN_DATETIMECHANGE) {
      LRESULT result = 0;
      OnDateTimeChange(event.GetHeader(), &result);
      event.SetResult(result);
    }
    event.Skip();  // the parent hears of it as well
  });
}

TimeSpanCtrl::TimeSpanCtrl(wxWindow * parent, wxWindowID id, wxPoint const & position,
                           wxSize const & size)
    : TimeSpanCtrl() {
  Create(parent, id, DTS_TIMEFORMAT | DTS_UPDOWN, position, size);
}

void TimeSpanCtrl::PreSubclassWindow() {
  SetTimeSpan(mSpan);
  CDateTimeCtrl::PreSubclassWindow();
  SendWindowMessage(this, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"HH:mm:ss"));
}

void TimeSpanCtrl::SetTimeSpan(__int64 span) {
  // The minimum is applied last: one above the maximum wins, and is refused
  // below as no time of day.
  if (span > mMaximum) span = mMaximum;
  if (span < mMinimum) span = mMinimum;
  __int64 const hours = span / 3600;
  __int64 const minutes = span / 60 % 60;
  __int64 const seconds = span % 60;
  if (hours >= 24 || minutes >= 60 || seconds >= 60) AtlThrow(E_FAIL);
  std::tm fields{};
  fields.tm_mday = 1;
  fields.tm_mon = 0;
  fields.tm_year = 100;
  fields.tm_hour = static_cast<int>(hours);
  fields.tm_min = static_cast<int>(minutes);
  fields.tm_sec = static_cast<int>(seconds);
  fields.tm_isdst = -1;
  __time64_t const time = _mktime64(&fields);
  if (time == -1) AtlThrow(E_INVALIDARG);
  mSpan = span;
  CDateTimeCtrl::SetTime(CTime(time));
  mLastSpan = span;
  mLastShown = time;
}

void TimeSpanCtrl::SetTimeSpan(CTimeSpan span) { SetTimeSpan(span.GetTimeSpan()); }

void TimeSpanCtrl::SetMinTimeSpan(__int64 minimum) { mMinimum = minimum < 1 ? 1 : minimum; }

void TimeSpanCtrl::SetMaxTimeSpan(__int64 maximum) {
  mMaximum = maximum > kLongestSpan ? kLongestSpan : maximum;
}

void TimeSpanCtrl::SetTimeResolution(__int64 resolution) {
  mResolution = resolution < 1 ? 1 : resolution;
}

void TimeSpanCtrl::OnDateTimeChange(NMHDR *, LRESULT * result) {
  *result = 0;
  CTime shown;
  if (GetTime(shown) != GDT_VALID) return;
  __time64_t const time = shown.GetTime();
  std::tm now{};
  if (_localtime64_s(&now, &time) != 0) return;
  __int64 const s = (now.tm_hour * 60 + now.tm_min) * 60 + now.tm_sec;
  bool const wrapped = Wrapped(time, mLastShown);
  __int64 span = 0;
  if (s <= mLastSpan) {
    span = s - s % mResolution;
  } else {
    __int64 const r = s % mResolution;
    span = r == 0 ? s : s + mResolution - r;
    if (r != 0 && wrapped) span -= 60 + mResolution;
  }
  SetTimeSpan(span);
}
