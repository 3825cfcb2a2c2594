#include "platform/OleDateTime.h"

#include <cmath>

namespace {

// 1899-12-30 counted from 1970-01-01.
std::int64_t const kBaseDay = DaysFromCivil(1899, 12, 30);
constexpr DATE kMinDate = -657434.0;  // 100-01-01
constexpr DATE kMaxDate = 2958466.0;  // 10000-01-01, excluded

bool ValidFields(int year, int month, int day, int hour, int minute, int second) {
  return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
         day <= DaysInMonth(year, month) && hour >= 0 && hour <= 23 && minute >= 0 &&
         minute <= 59 && second >= 0 && second <= 59;
}

}  // namespace

bool SystemTimeToVariantTime(SYSTEMTIME const & time, DATE & date) noexcept {
  if (!ValidFields(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond))
    return false;
  auto const day =
      static_cast<double>(DaysFromCivil(time.wYear, time.wMonth, time.wDay) - kBaseDay);
  double const fraction = ((time.wHour * 60.0 + time.wMinute) * 60.0 + time.wSecond) / 86400.0;
  date = day >= 0 ? day + fraction : day - fraction;
  return true;
}

bool VariantTimeToSystemTime(DATE date, SYSTEMTIME & time) noexcept {
  if (!(date >= kMinDate && date < kMaxDate)) return false;  // NaN too
  double const whole = std::trunc(date);
  auto day = static_cast<std::int64_t>(whole);
  auto seconds = static_cast<std::int64_t>(std::llround(std::fabs(date - whole) * 86400.0));
  if (seconds >= 86400) {  // rounded up into the next calendar day
    seconds -= 86400;
    day += 1;
  }
  std::int64_t year = 0;
  int month = 0;
  int dayOfMonth = 0;
  CivilFromDays(day + kBaseDay, year, month, dayOfMonth);
  if (year < 100 || year > 9999) return false;
  time.wYear = static_cast<WORD>(year);
  time.wMonth = static_cast<WORD>(month);
  time.wDay = static_cast<WORD>(dayOfMonth);
  time.wDayOfWeek = static_cast<WORD>(WeekdayFromDays(day + kBaseDay));
  time.wHour = static_cast<WORD>(seconds / 3600);
  time.wMinute = static_cast<WORD>(seconds / 60 % 60);
  time.wSecond = static_cast<WORD>(seconds % 60);
  time.wMilliseconds = 0;
  return true;
}

COleDateTime::COleDateTime(DATE date) noexcept : m_dt(date) {
  SYSTEMTIME unused{};
  if (!VariantTimeToSystemTime(date, unused)) m_status = invalid;
}

COleDateTime::COleDateTime(__time64_t time) noexcept {
  std::tm fields{};
  if (_localtime64_s(&fields, &time) != 0) {
    m_status = invalid;
    return;
  }
  SetDateTime(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
              fields.tm_min, fields.tm_sec);
}

COleDateTime::COleDateTime(SYSTEMTIME const & time) noexcept {
  if (!SystemTimeToVariantTime(time, m_dt)) m_status = invalid;
}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute,
                           int second) noexcept {
  SetDateTime(year, month, day, hour, minute, second);
}

COleDateTime COleDateTime::GetCurrentTime() noexcept { return COleDateTime(_time64(nullptr)); }

int COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute,
                              int second) noexcept {
  if (!ValidFields(year, month, day, hour, minute, second)) {
    m_status = invalid;
    return 1;
  }
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(year);
  time.wMonth = static_cast<WORD>(month);
  time.wDay = static_cast<WORD>(day);
  time.wHour = static_cast<WORD>(hour);
  time.wMinute = static_cast<WORD>(minute);
  time.wSecond = static_cast<WORD>(second);
  SystemTimeToVariantTime(time, m_dt);
  m_status = valid;
  return 0;
}

bool COleDateTime::GetAsSystemTime(SYSTEMTIME & time) const noexcept {
  return m_status == valid && VariantTimeToSystemTime(m_dt, time);
}

namespace {

// A field of the time, or -1 (ATL's AFX_OLE_DATETIME_ERROR) unless valid.
template <class Field>
int Read(COleDateTime const & time, Field field) {
  SYSTEMTIME fields{};
  return time.GetAsSystemTime(fields) ? field(fields) : -1;
}

}  // namespace

int COleDateTime::GetYear() const noexcept {
  return Read(*this, [](SYSTEMTIME const & t) { return int{t.wYear}; });
}
int COleDateTime::GetMonth() const noexcept {
  return Read(*this, [](SYSTEMTIME const & t) { return int{t.wMonth}; });
}
int COleDateTime::GetDay() const noexcept {
  return Read(*this, [](SYSTEMTIME const & t) { return int{t.wDay}; });
}
int COleDateTime::GetHour() const noexcept {
  return Read(*this, [](SYSTEMTIME const & t) { return int{t.wHour}; });
}
int COleDateTime::GetMinute() const noexcept {
  return Read(*this, [](SYSTEMTIME const & t) { return int{t.wMinute}; });
}
int COleDateTime::GetSecond() const noexcept {
  return Read(*this, [](SYSTEMTIME const & t) { return int{t.wSecond}; });
}
