// Dates from the platform's values to UTC and on to FILETIME ticks, checked
// against GNU date reading the same local time in the same zone, and what
// cannot be a date.
#include <gtest/gtest.h>

#include <stdio.h>
#include <stdlib.h>
#include <time.h>

#include <boost/date_time/gregorian/gregorian_types.hpp>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "datetime/DateConversions.h"

using boost::posix_time::ptime;
using VxTimeUtl::ToDateTime;
using VxTimeUtl::ToFileTime;

namespace {

constexpr int64_t kFileTimeToUnix = 11644473600;  // seconds from 1601 to 1970

VARIANT Variant(VARTYPE type, double day) {
  VARIANT v{};
  v.vt = type;
  v.date = day;
  return v;
}

uint64_t Ticks(FILETIME const & f) { return (uint64_t{f.dwHighDateTime} << 32) | f.dwLowDateTime; }

// GNU date's reading of the local time `text` ("1899-12-30 00:00:00") in
// `zone`, as FILETIME ticks.
uint64_t TicksByGnuDate(char const * zone, std::string const & text) {
  std::string const command = std::string("TZ=") + zone + " date -d '" + text + "' +%s";
  FILE * pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return 0;
  long long seconds = 0;
  bool const read = fscanf(pipe, "%lld", &seconds) == 1;
  pclose(pipe);
  EXPECT_TRUE(read) << command;
  return static_cast<uint64_t>(seconds + kFileTimeToUnix) * 10000000;
}

class DateConversions : public testing::Test {
protected:
  void SetUp() override { SetZone("UTC"); }
  void TearDown() override { SetZone("UTC"); }
  static void SetZone(char const * zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
};

}  // namespace

TEST_F(DateConversions, DayNumbersAreLocalTimesAsGnuDateReadsThem) {
  struct Case {
    double day;
    char const * local;       // what the day number means on the local clock
    uint64_t extraTicks = 0;  // below the second
  };
  Case const cases[] = {
      {0.0, "1899-12-30 00:00:00"},
      {2.5, "1900-01-01 12:00:00"},
      {-1.5, "1899-12-29 12:00:00"},  // the fraction is added below zero too
      {-0.25, "1899-12-30 06:00:00"},
      {36526.0, "2000-01-01 00:00:00"},
      {45000.75, "2023-03-15 18:00:00"},
      {45474.5, "2024-07-01 12:00:00"},  // summer time in the northern zones
      {45474.5 + 1.5 / 86400.0, "2024-07-01 12:00:01", 5000000},
  };
  for (char const * zone : {"UTC", "Europe/Berlin", "America/New_York", "Asia/Kolkata"}) {
    SetZone(zone);
    for (Case const & c : cases) {
      SCOPED_TRACE(std::string(zone) + " " + c.local);
      VARIANT const direct = Variant(VT_DATE, c.day);
      double day = c.day;
      VARIANT byReference{};
      byReference.vt = VT_DATE | VT_BYREF;
      byReference.pdate = &day;
      ptime const utc = ToDateTime(direct);
      ASSERT_FALSE(utc.is_special());
      EXPECT_EQ(ToDateTime(byReference), utc);
      EXPECT_EQ(Ticks(ToFileTime(utc)), TicksByGnuDate(zone, c.local) + c.extraTicks);
    }
  }
}

TEST_F(DateConversions, WhatIsNoDayNumberGivesNotADateTime) {
  double const nan = std::numeric_limits<double>::quiet_NaN();
  double const inf = std::numeric_limits<double>::infinity();
  VARIANT nullReference{};
  nullReference.vt = VT_DATE | VT_BYREF;
  struct Case {
    char const * name;
    VARIANT value;
    bool special;
  };
  Case const cases[] = {
      {"a double", Variant(VT_R8, 2.5), true},
      {"empty", Variant(VT_EMPTY, 0), true},
      {"an array of dates", Variant(VT_DATE | VT_ARRAY, 0), true},
      {"a null reference", nullReference, true},
      {"NaN", Variant(VT_DATE, nan), true},
      {"infinity", Variant(VT_DATE, inf), true},
      {"minus infinity", Variant(VT_DATE, -inf), true},
      {"below the range", Variant(VT_DATE, -350000.001), true},
      {"above the range", Variant(VT_DATE, 2.9e6 + 0.001), true},
      {"lowest", Variant(VT_DATE, -350000.0), false},
      {"highest", Variant(VT_DATE, 2.9e6), false},
  };
  for (Case const & c : cases)
    EXPECT_EQ(ToDateTime(c.value).is_not_a_date_time(), c.special) << c.name;
}

TEST_F(DateConversions, FractionsAreWholeMillisecondsCutTowardsZero) {
  // 0.1 s short of a full millisecond more still gives the millisecond below.
  double const day = 2.0 + (1.9 / 86400000.0);
  ptime const t = ToDateTime(Variant(VT_DATE, day));
  EXPECT_EQ(t, ptime(boost::gregorian::date(1900, 1, 1), boost::posix_time::milliseconds(1)));
}

TEST_F(DateConversions, TimestampsAreLocalTimesWithNanosecondFractions) {
  struct Case {
    TIMESTAMP_STRUCT stamp;
    char const * local;
    uint64_t extraTicks;
  };
  Case const cases[] = {
      {{2024, 7, 1, 12, 30, 15, 123456789}, "2024-07-01 12:30:15", 1234560},
      {{1899, 12, 30, 0, 0, 0, 0}, "1899-12-30 00:00:00", 0},
      {{2023, 1, 31, 23, 59, 59, 999999999}, "2023-01-31 23:59:59", 9999990},
      {{2023, 2, 28, 24, 0, 0, 0}, "2023-03-01 00:00:00", 0},  // into the next day
  };
  for (char const * zone : {"UTC", "Europe/Berlin", "America/New_York"}) {
    SetZone(zone);
    for (Case const & c : cases) {
      SCOPED_TRACE(std::string(zone) + " " + c.local);
      EXPECT_EQ(Ticks(ToFileTime(ToDateTime(c.stamp))),
                TicksByGnuDate(zone, c.local) + c.extraTicks);
    }
  }
}

TEST_F(DateConversions, TimestampsOutsideTheCalendarThrowBoostsExceptions) {
  auto stamp = [](SQLSMALLINT year, SQLUSMALLINT month, SQLUSMALLINT day) {
    return TIMESTAMP_STRUCT{year, month, day, 0, 0, 0, 0};
  };
  EXPECT_THROW(ToDateTime(stamp(2024, 1, 0)), boost::gregorian::bad_day_of_month);
  EXPECT_THROW(ToDateTime(stamp(2024, 1, 32)), boost::gregorian::bad_day_of_month);
  EXPECT_THROW(ToDateTime(stamp(2023, 2, 29)), boost::gregorian::bad_day_of_month);
  EXPECT_THROW(ToDateTime(stamp(1399, 1, 1)), boost::gregorian::bad_year);
  EXPECT_THROW(ToDateTime(stamp(-5, 1, 1)), boost::gregorian::bad_year);
  EXPECT_THROW(ToDateTime(stamp(10001, 1, 1)), boost::gregorian::bad_year);
  EXPECT_THROW(ToDateTime(stamp(2024, 0, 1)), boost::gregorian::bad_month);
  EXPECT_THROW(ToDateTime(stamp(2024, 13, 1)), boost::gregorian::bad_month);
  EXPECT_NO_THROW(ToDateTime(stamp(1400, 1, 1)));
  EXPECT_NO_THROW(ToDateTime(stamp(2024, 2, 29)));
}

TEST_F(DateConversions, FileTimeTicksFrom1601AndZeroForWhatTheyCannotHold) {
  using boost::gregorian::date;
  struct Case {
    ptime time;
    uint64_t ticks;
  };
  Case const cases[] = {
      {ptime(boost::posix_time::not_a_date_time), 0},
      {ptime(boost::posix_time::pos_infin), 0},
      {ptime(boost::posix_time::neg_infin), 0},
      {ptime(date(1600, 12, 31)), 0},
      {ptime(date(1601, 1, 1), boost::posix_time::microseconds(1)), 10},
      {ptime(date(1970, 1, 1)), uint64_t{kFileTimeToUnix} * 10000000},
  };
  for (Case const & c : cases) EXPECT_EQ(Ticks(ToFileTime(c.time)), c.ticks);
}
