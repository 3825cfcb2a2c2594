#include "platform/WinTime.h"

#include <cerrno>
#include <cstring>

namespace {

bool InRange(__time64_t time) { return time >= 0 && time <= kMaxTime64; }

void Invalidate(std::tm * result) { std::memset(result, 0xFF, sizeof *result); }

}  // namespace

errno_t _localtime64_s(std::tm * result, __time64_t const * time) {
  if (result == nullptr) return EINVAL;
  if (time == nullptr || !InRange(*time)) {
    Invalidate(result);
    return EINVAL;
  }
  std::time_t const t = *time;
  if (localtime_r(&t, result) == nullptr) {
    Invalidate(result);
    return EINVAL;
  }
  return 0;
}

errno_t _gmtime64_s(std::tm * result, __time64_t const * time) {
  if (result == nullptr) return EINVAL;
  if (time == nullptr || !InRange(*time)) {
    Invalidate(result);
    return EINVAL;
  }
  std::time_t const t = *time;
  if (gmtime_r(&t, result) == nullptr) {
    Invalidate(result);
    return EINVAL;
  }
  return 0;
}

__time64_t _mktime64(std::tm * time) {
  if (time == nullptr) return -1;
  // Years far outside the range would overflow tm_year's int in glibc's
  // normalisation; refuse them before.
  if (time->tm_year < 60 || time->tm_year > 1200) return -1;
  std::tm copy = *time;
  std::time_t const t = std::mktime(&copy);
  if (t == static_cast<std::time_t>(-1) || !InRange(t)) return -1;
  *time = copy;
  return t;
}

__time64_t _time64(__time64_t * time) {
  __time64_t const now = std::time(nullptr);
  if (time != nullptr) *time = now;
  return now;
}

void GetLocalTime(SYSTEMTIME * time) {
  if (time == nullptr) return;
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  std::tm local{};
  localtime_r(&now.tv_sec, &local);
  time->wYear = static_cast<WORD>(local.tm_year + 1900);
  time->wMonth = static_cast<WORD>(local.tm_mon + 1);
  time->wDayOfWeek = static_cast<WORD>(local.tm_wday);
  time->wDay = static_cast<WORD>(local.tm_mday);
  time->wHour = static_cast<WORD>(local.tm_hour);
  time->wMinute = static_cast<WORD>(local.tm_min);
  time->wSecond = static_cast<WORD>(local.tm_sec);
  time->wMilliseconds = static_cast<WORD>(now.tv_nsec / 1000000);
}

int DaysInMonth(int year, int month) {
  static int const days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12) return 0;
  bool const leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : days[month - 1];
}

// The proleptic Gregorian calendar counted in eras of 400 years (146097
// days), so that the arithmetic holds for every year, negative ones too.
std::int64_t DaysFromCivil(std::int64_t year, int month, int day) {
  year -= month <= 2 ? 1 : 0;
  std::int64_t const era = (year >= 0 ? year : year - 399) / 400;
  std::int64_t const yearOfEra = year - era * 400;
  std::int64_t const dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  std::int64_t const dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - 719468;
}

void CivilFromDays(std::int64_t days, std::int64_t & year, int & month, int & day) {
  days += 719468;
  std::int64_t const era = (days >= 0 ? days : days - 146096) / 146097;
  std::int64_t const dayOfEra = days - era * 146097;
  std::int64_t const yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  std::int64_t const dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  std::int64_t const monthIndex = (5 * dayOfYear + 2) / 153;
  day = static_cast<int>(dayOfYear - (153 * monthIndex + 2) / 5 + 1);
  month = static_cast<int>(monthIndex < 10 ? monthIndex + 3 : monthIndex - 9);
  year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
}

int WeekdayFromDays(std::int64_t days) {
  // 1970-01-01 was a Thursday (4).
  return static_cast<int>(days >= -4 ? (days + 4) % 7 : (days + 5) % 7 + 6);
}
