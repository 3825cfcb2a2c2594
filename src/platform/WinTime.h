#pragma once
// The C runtime's 64-bit time functions and the Win32 SYSTEMTIME, with the
// platform's limits: a __time64_t counts seconds since 1970-01-01 UTC and is
// valid from 0 to 3000-12-31 23:59:59 UTC; outside that the conversions
// fail as they do there (EINVAL, -1), whatever glibc could do.

#include <cstdint>
#include <ctime>

#include "platform/WinTypes.h"

using __time64_t = std::int64_t;  // NOLINT(bugprone-reserved-identifier): the runtime's name
using __int64 = std::int64_t;     // NOLINT(bugprone-reserved-identifier): the compiler's name
using errno_t = int;

// The last second a __time64_t may name (3000-12-31 23:59:59 UTC).
constexpr __time64_t kMaxTime64 = 32535215999LL;

// `*time` as local time into `*result`; EINVAL (and `*result` all -1) for a
// null pointer or a time out of range.
errno_t _localtime64_s(std::tm * result, __time64_t const * time);
// The same in UTC.
errno_t _gmtime64_s(std::tm * result, __time64_t const * time);
// Local broken-down time to a __time64_t, normalising `*time` (tm_isdst -1
// lets the zone decide); -1 when the result is out of range.
__time64_t _mktime64(std::tm * time);
__time64_t _time64(__time64_t * time);

struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;      // 1 to 12
  WORD wDayOfWeek;  // 0 Sunday
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};
using LPSYSTEMTIME = SYSTEMTIME *;
static_assert(sizeof(SYSTEMTIME) == 16, "the Windows layout");

// The local time now.
void GetLocalTime(SYSTEMTIME * time);

// Days in `month` (1 to 12) of `year` in the Gregorian calendar; 0 for a
// month out of range.
int DaysInMonth(int year, int month);
// Days from 1970-01-01 to the given Gregorian date (negative before), and
// back; the day of the week of a day number (0 Sunday).
std::int64_t DaysFromCivil(std::int64_t year, int month, int day);
void CivilFromDays(std::int64_t days, std::int64_t & year, int & month, int & day);
int WeekdayFromDays(std::int64_t days);
