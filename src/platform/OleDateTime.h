#pragma once
// COleDateTime: a local date and time as the VARIANT day number (DATE):
// whole days since 1899-12-30 plus the time as a fraction of a day. Before
// that day the fraction still counts forwards: -1.5 is 1899-12-29 12:00.
// Valid from 100-01-01 to 9999-12-31; anything else has the status invalid.

#include "platform/OleAutomation.h"
#include "platform/WinTime.h"

class COleDateTime {
public:
  enum DateTimeStatus { error = -1, valid = 0, invalid = 1, null = 2 };

  COleDateTime() noexcept = default;
  COleDateTime(DATE date) noexcept;  // NOLINT(google-explicit-constructor): ATL's
  explicit COleDateTime(__time64_t time) noexcept;
  explicit COleDateTime(SYSTEMTIME const & time) noexcept;
  COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;

  static COleDateTime GetCurrentTime() noexcept;

  DateTimeStatus GetStatus() const noexcept { return m_status; }
  void SetStatus(DateTimeStatus status) noexcept { m_status = status; }
  operator DATE() const noexcept { return m_dt; }  // NOLINT(google-explicit-constructor): ATL's

  // 0 when the fields make a valid time, else 1 and the status invalid.
  int SetDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
  // Rounded to the nearest second; false unless valid.
  bool GetAsSystemTime(SYSTEMTIME & time) const noexcept;
  int GetYear() const noexcept;
  int GetMonth() const noexcept;
  int GetDay() const noexcept;
  int GetHour() const noexcept;
  int GetMinute() const noexcept;
  int GetSecond() const noexcept;

  bool operator==(COleDateTime const & other) const noexcept {
    return m_status == other.m_status && m_dt == other.m_dt;
  }
  bool operator!=(COleDateTime const & other) const noexcept { return !(*this == other); }

  // NOLINTBEGIN(misc-non-private-member-variables-in-classes): ATL's public fields
  DATE m_dt = 0;
  DateTimeStatus m_status = valid;
  // NOLINTEND(misc-non-private-member-variables-in-classes)
};

// The day number of local fields, and back (rounded to the nearest second);
// false for what lies outside 100-01-01 to 9999-12-31.
bool SystemTimeToVariantTime(SYSTEMTIME const & time, DATE & date) noexcept;
bool VariantTimeToSystemTime(DATE date, SYSTEMTIME & time) noexcept;
