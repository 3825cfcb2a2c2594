#include "datetime/RestrictedTimeCtrl.h"

#include <cstdlib>

#include "platform/AtlException.h"

RestrictedTimeCtrl::RestrictedTimeCtrl() : mLastTime(_time64(nullptr)) {
  Bind(VX_EVT_NOTIFY_REFLECT, [this](NotifyEvent & event) {
    if (event.GetCode() == DTN_DATETIMECHANGE) {
      LRESULT result = 0;
      OnDateTimeChange(event.GetHeader(), &result);
      event.SetResult(result);
    }
    event.Skip();  // the parent hears of it as well
  });
}

RestrictedTimeCtrl::RestrictedTimeCtrl(wxWindow * parent, wxWindowID id, DWORD style,
                                       wxPoint const & position, wxSize const & size)
    : RestrictedTimeCtrl() {
  Create(parent, id, style, position, size);
}

BOOL RestrictedTimeCtrl::SetTime(__time64_t time) { return SetTime(CTime(time)); }

BOOL RestrictedTimeCtrl::SetTime(CTime const & time) {
  mLastTime = time.GetTime();
  return CDateTimeCtrl::SetTime(time);
}

BOOL RestrictedTimeCtrl::SetTime(CTime const * time) {
  if (time == nullptr) return FALSE;
  return SetTime(*time);
}

BOOL RestrictedTimeCtrl::SetTime(COleDateTime const & time) {
  SYSTEMTIME fields{};
  if (!time.GetAsSystemTime(fields)) return FALSE;
  return SetTime(&fields);
}

BOOL RestrictedTimeCtrl::SetTime(SYSTEMTIME const * time) {
  if (time == nullptr) return FALSE;
  try {
    mLastTime = CTime(*time).GetTime();
  } catch (CAtlException const &) {
    return FALSE;  // no __time64_t holds it
  }
  return CDateTimeCtrl::SetTime(time);
}

DWORD RestrictedTimeCtrl::GetTime(__time64_t & time) const {
  CTime fields;
  DWORD const result = CDateTimeCtrl::GetTime(fields);
  if (result == GDT_VALID) time = fields.GetTime();
  return result;
}

DWORD RestrictedTimeCtrl::GetRange(__time64_t * minimum, __time64_t * maximum) const {
  CTime low;
  CTime high;
  DWORD const result = CDateTimeCtrl::GetRange(&low, &high);
  if (minimum != nullptr) *minimum = low.GetTime();
  if (maximum != nullptr) *maximum = high.GetTime();
  return result;
}

BOOL RestrictedTimeCtrl::SetRange(__time64_t const * minimum, __time64_t const * maximum) {
  CTime const low(minimum != nullptr ? *minimum : 0);
  CTime const high(maximum != nullptr ? *maximum : 0);
  return CDateTimeCtrl::SetRange(minimum != nullptr ? &low : nullptr,
                                 maximum != nullptr ? &high : nullptr);
}

BOOL RestrictedTimeCtrl::ResetRange() {
  return CDateTimeCtrl::SetRange(static_cast<CTime const *>(nullptr), nullptr);
}

void RestrictedTimeCtrl::SetTimeResolution(__time64_t resolution, __time64_t offset) {
  mResolution = resolution < 1 ? 1 : resolution;
  mOffset = offset;
}

void RestrictedTimeCtrl::SetTimeResolution(CTimeSpan resolution, CTimeSpan offset) {
  SetTimeResolution(resolution.GetTimeSpan(), offset.GetTimeSpan());
}

__time64_t RestrictedTimeCtrl::DistanceFromGrid(__time64_t time) const {
  auto const low = static_cast<std::int32_t>(static_cast<std::uint32_t>(time));
  return std::llabs(low - mOffset) % mResolution;
}

__time64_t RestrictedTimeCtrl::GetNearestTimeUpwards(__time64_t time) const {
  __time64_t const d = DistanceFromGrid(time);
  return d == 0 ? time : time - d + mResolution;
}

__time64_t RestrictedTimeCtrl::GetNearestTimeDownwards(__time64_t time) const {
  __time64_t const d = DistanceFromGrid(time);
  return d == 0 ? time : time - d;
}

__time64_t RestrictedTimeCtrl::GetRestrictedTime(__time64_t last, __time64_t time) const {
  __time64_t const d = DistanceFromGrid(time);
  if (d == 0 || time == last) return time;
  return time > last ? time + (mResolution - d) : time + (mResolution - d) - mResolution;
}

void RestrictedTimeCtrl::OnDateTimeChange(NMHDR *, LRESULT * result) {
  __time64_t time = 0;
  if (GetTime(time) != GDT_VALID) {
    *result = 0;
    return;
  }
  __time64_t const last = mLastTime;
  // The picker's seconds going from 0 down to 59 leave the minutes alone:
  // that is a step down of one second, not up of 59.
  if (time - last == 59) {
    std::tm now{};
    std::tm before{};
    if (_localtime64_s(&now, &time) == 0 && _localtime64_s(&before, &last) == 0 &&
        std::abs(now.tm_sec - before.tm_sec) == 59)
      time -= 60;
  }
  __time64_t const d = DistanceFromGrid(time);
  if (time > last && d != 0) time += mResolution - d;
  if (time < last && d != 0) time += (mResolution - d) - mResolution;
  mLastTime = time;
  CDateTimeCtrl::SetTime(CTime(time));
  *result = 0;
}
