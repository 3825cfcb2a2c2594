#pragma once
// A time picker whose value keeps to a grid: offset + k * resolution seconds.
// When the user changes the time, the new time moves to the next grid point
// in the direction of the change, so that a spin up or down jumps a whole
// step. Times set by calls are taken as they are.

#include "platform/commctrl/DateTimeCtrl.h"

class RestrictedTimeCtrl : public CDateTimeCtrl {
public:
  RestrictedTimeCtrl();
  RestrictedTimeCtrl(wxWindow * parent, wxWindowID id, DWORD style = DTS_SHORTDATEFORMAT,
                     wxPoint const & position = wxDefaultPosition,
                     wxSize const & size = wxDefaultSize);

  // Each stores the time as the last one and shows it, without snapping.
  BOOL SetTime(__time64_t time);
  BOOL SetTime(CTime const & time);
  BOOL SetTime(CTime const * time);
  BOOL SetTime(COleDateTime const & time);
  BOOL SetTime(SYSTEMTIME const * time);

  DWORD GetTime(__time64_t & time) const;
  DWORD GetTime(CTime & time) const { return CDateTimeCtrl::GetTime(time); }
  BOOL GetTime(COleDateTime & time) const { return CDateTimeCtrl::GetTime(time); }
  DWORD GetTime(SYSTEMTIME * time) const { return CDateTimeCtrl::GetTime(time); }

  DWORD GetRange(CTime * minimum, CTime * maximum) const {
    return CDateTimeCtrl::GetRange(minimum, maximum);
  }
  DWORD GetRange(__time64_t * minimum, __time64_t * maximum) const;
  BOOL SetRange(CTime const * minimum, CTime const * maximum) {
    return CDateTimeCtrl::SetRange(minimum, maximum);
  }
  BOOL SetRange(__time64_t const * minimum, __time64_t const * maximum);
  // No limits.
  BOOL ResetRange();

  // A resolution below one second is taken as one (a grid needs a step).
  void SetTimeResolution(__time64_t resolution, __time64_t offset);
  void SetTimeResolution(CTimeSpan resolution, CTimeSpan offset);
  __time64_t GetTimeResolution() const { return mResolution; }

protected:
  __time64_t GetNearestTimeUpwards(__time64_t time) const;
  __time64_t GetNearestTimeDownwards(__time64_t time) const;
  // `time` moved to the grid in the direction from `last`.
  __time64_t GetRestrictedTime(__time64_t last, __time64_t time) const;

  void OnDateTimeChange(NMHDR * header, LRESULT * result);

private:
  // How far `time` lies past the grid point below it, as the control has
  // always computed it: on the low 32 bits of the time.
  __time64_t DistanceFromGrid(__time64_t time) const;

  __time64_t mLastTime;
  __time64_t mResolution = 1;
  __time64_t mOffset = 1;
};
