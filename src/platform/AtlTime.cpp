#include "platform/AtlTime.h"

#include "platform/AtlException.h"

CTimeSpan::CTimeSpan(LONG days, int hours, int minutes, int seconds) noexcept
    : m_timeSpan(seconds + 60 * (minutes + 60 * (hours + __time64_t{24} * days))) {}

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int dst) {
  if (year < 1900 || month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || hour > 23 ||
      minute < 0 || minute > 59 || second < 0 || second > 59)
    AtlThrow(E_INVALIDARG);
  std::tm fields{};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  fields.tm_isdst = dst;
  m_time = _mktime64(&fields);
  if (m_time == -1) AtlThrow(E_INVALIDARG);
}

CTime::CTime(SYSTEMTIME const & time, int dst) {
  if (time.wYear < 1900) return;  // stays 0
  *this = CTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond, dst);
}

CTime CTime::GetCurrentTime() noexcept { return _time64(nullptr); }

std::tm CTime::GetLocalTm() const noexcept {
  std::tm fields{};
  _localtime64_s(&fields, &m_time);
  return fields;
}

bool CTime::GetAsSystemTime(SYSTEMTIME & time) const noexcept {
  std::tm fields{};
  if (_localtime64_s(&fields, &m_time) != 0) return false;
  time.wYear = static_cast<WORD>(fields.tm_year + 1900);
  time.wMonth = static_cast<WORD>(fields.tm_mon + 1);
  time.wDayOfWeek = static_cast<WORD>(fields.tm_wday);
  time.wDay = static_cast<WORD>(fields.tm_mday);
  time.wHour = static_cast<WORD>(fields.tm_hour);
  time.wMinute = static_cast<WORD>(fields.tm_min);
  time.wSecond = static_cast<WORD>(fields.tm_sec);
  time.wMilliseconds = 0;
  return true;
}
