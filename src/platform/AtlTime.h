#pragma once
// The ATL time classes: CTimeSpan, a signed count of seconds, and CTime, a
// point in time as a __time64_t read in the local time zone. Building a
// CTime from fields the calendar cannot hold throws CAtlException
// (E_INVALIDARG), as ATL does.

#include "platform/AtlException.h"
#include "platform/WinTime.h"

class CTimeSpan {
public:
  CTimeSpan() noexcept = default;
  CTimeSpan(__time64_t seconds) noexcept
      : m_timeSpan(seconds) {}  // NOLINT(google-explicit-constructor): ATL's
  CTimeSpan(LONG days, int hours, int minutes, int seconds) noexcept;

  __time64_t GetTimeSpan() const noexcept { return m_timeSpan; }
  __time64_t GetDays() const noexcept { return m_timeSpan / (24 * 3600); }
  __time64_t GetTotalHours() const noexcept { return m_timeSpan / 3600; }
  LONG GetHours() const noexcept { return static_cast<LONG>(GetTotalHours() - GetDays() * 24); }
  __time64_t GetTotalMinutes() const noexcept { return m_timeSpan / 60; }
  LONG GetMinutes() const noexcept {
    return static_cast<LONG>(GetTotalMinutes() - GetTotalHours() * 60);
  }
  __time64_t GetTotalSeconds() const noexcept { return m_timeSpan; }
  LONG GetSeconds() const noexcept {
    return static_cast<LONG>(GetTotalSeconds() - GetTotalMinutes() * 60);
  }

  CTimeSpan operator+(CTimeSpan other) const noexcept { return m_timeSpan + other.m_timeSpan; }
  CTimeSpan operator-(CTimeSpan other) const noexcept { return m_timeSpan - other.m_timeSpan; }
  bool operator==(CTimeSpan other) const noexcept { return m_timeSpan == other.m_timeSpan; }
  bool operator!=(CTimeSpan other) const noexcept { return m_timeSpan != other.m_timeSpan; }
  bool operator<(CTimeSpan other) const noexcept { return m_timeSpan < other.m_timeSpan; }
  bool operator>(CTimeSpan other) const noexcept { return m_timeSpan > other.m_timeSpan; }

private:
  __time64_t m_timeSpan = 0;
};

class CTime {
public:
  CTime() noexcept = default;
  CTime(__time64_t time) noexcept : m_time(time) {}  // NOLINT(google-explicit-constructor): ATL's
  // Local fields; `dst` as tm_isdst (-1: the zone decides). Throws
  // CAtlException(E_INVALIDARG) for a field out of range or a time out of
  // the __time64_t range.
  CTime(int year, int month, int day, int hour, int minute, int second, int dst = -1);
  // A year before 1900 gives the time 0, as ATL does; otherwise as above.
  explicit CTime(SYSTEMTIME const & time, int dst = -1);

  static CTime GetCurrentTime() noexcept;

  __time64_t GetTime() const noexcept { return m_time; }
  // The local fields; all -1 (and false for the system time) when the time
  // is out of range.
  std::tm GetLocalTm() const noexcept;
  bool GetAsSystemTime(SYSTEMTIME & time) const noexcept;
  int GetYear() const noexcept { return GetLocalTm().tm_year + 1900; }
  int GetMonth() const noexcept { return GetLocalTm().tm_mon + 1; }
  int GetDay() const noexcept { return GetLocalTm().tm_mday; }
  int GetHour() const noexcept { return GetLocalTm().tm_hour; }
  int GetMinute() const noexcept { return GetLocalTm().tm_min; }
  int GetSecond() const noexcept { return GetLocalTm().tm_sec; }
  int GetDayOfWeek() const noexcept { return GetLocalTm().tm_wday + 1; }  // 1 Sunday

  CTimeSpan operator-(CTime other) const noexcept { return m_time - other.m_time; }
  CTime operator+(CTimeSpan span) const noexcept { return m_time + span.GetTimeSpan(); }
  CTime operator-(CTimeSpan span) const noexcept { return m_time - span.GetTimeSpan(); }
  CTime & operator+=(CTimeSpan span) noexcept {
    m_time += span.GetTimeSpan();
    return *this;
  }
  CTime & operator-=(CTimeSpan span) noexcept {
    m_time -= span.GetTimeSpan();
    return *this;
  }
  bool operator==(CTime other) const noexcept { return m_time == other.m_time; }
  bool operator!=(CTime other) const noexcept { return m_time != other.m_time; }
  bool operator<(CTime other) const noexcept { return m_time < other.m_time; }
  bool operator>(CTime other) const noexcept { return m_time > other.m_time; }
  bool operator<=(CTime other) const noexcept { return m_time <= other.m_time; }
  bool operator>=(CTime other) const noexcept { return m_time >= other.m_time; }

private:
  __time64_t m_time = 0;
};
