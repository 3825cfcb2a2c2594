#include "datetime/DateConversions.h"

#include <time.h>

#include <boost/date_time/gregorian/gregorian_types.hpp>
#include <cmath>
#include <cstdint>

namespace VxTimeUtl {

namespace {

using boost::gregorian::date;
using boost::posix_time::ptime;
using boost::posix_time::time_duration;

constexpr double kMinDay = -350000.0;
constexpr double kMaxDay = 2.9e6;
constexpr double kMillisecondsADay = 8.64e7;
constexpr int64_t kMicrosecondsASecond = 1000000;

ptime const & DayZero() {
  static ptime const zero(date(1899, 12, 30));
  return zero;
}

ptime const & UnixEpoch() {
  static ptime const epoch(date(1970, 1, 1));
  return epoch;
}

ptime const & FileTimeEpoch() {
  static ptime const epoch(date(1601, 1, 1));
  return epoch;
}

// Whole seconds since 1970, rounded down (also before 1970).
int64_t UnixSeconds(ptime const & time) {
  int64_t const micro = (time - UnixEpoch()).total_microseconds();
  int64_t seconds = micro / kMicrosecondsASecond;
  if (micro % kMicrosecondsASecond < 0) --seconds;
  return seconds;
}

}  // namespace

ptime LocalToUtc(ptime const & local) {
  if (local.is_special()) return local;
  time_t const seconds = UnixSeconds(local);
  struct tm fields {};
  if (localtime_r(&seconds, &fields) == nullptr) return ptime(boost::posix_time::not_a_date_time);
  return local - boost::posix_time::seconds(fields.tm_gmtoff);
}

ptime ToDateTime(VARIANT const & value) {
  double day = 0;
  if (value.vt == VT_DATE) {
    day = value.date;
  } else if (value.vt == (VT_DATE | VT_BYREF) && value.pdate != nullptr) {
    day = *value.pdate;
  } else {
    return ptime(boost::posix_time::not_a_date_time);
  }
  // Written so that NaN fails too.
  if (!(day >= kMinDay && day <= kMaxDay)) return ptime(boost::posix_time::not_a_date_time);
  double const wholeDays = std::trunc(day);
  auto const milliseconds = static_cast<int64_t>(std::abs(day - wholeDays) * kMillisecondsADay);
  ptime const local = DayZero() + boost::gregorian::days(static_cast<long>(wholeDays)) +
                      boost::posix_time::milliseconds(milliseconds);
  return LocalToUtc(local);
}

ptime ToDateTime(TIMESTAMP_STRUCT const & value) {
  int64_t const timeOfDay =
      ((int64_t{value.hour} * 60 + value.minute) * 60 + value.second) * kMicrosecondsASecond +
      value.fraction / 1000;
  if (value.day == 0 || value.day > 31) throw boost::gregorian::bad_day_of_month();
  if (value.year < 1400 || value.year > 10000) throw boost::gregorian::bad_year();
  date const day(static_cast<unsigned short>(value.year), boost::gregorian::greg_month(value.month),
                 value.day);
  return LocalToUtc(ptime(day, boost::posix_time::microseconds(timeOfDay)));
}

FILETIME ToFileTime(ptime const & time) {
  FILETIME result{0, 0};
  if (time.is_special()) return result;
  int64_t const micro = (time - FileTimeEpoch()).total_microseconds();
  if (micro < 0) return result;
  auto const ticks = static_cast<uint64_t>(micro) * 10;
  result.dwLowDateTime = static_cast<DWORD>(ticks & 0xFFFFFFFFu);
  result.dwHighDateTime = static_cast<DWORD>(ticks >> 32);
  return result;
}

}  // namespace VxTimeUtl
