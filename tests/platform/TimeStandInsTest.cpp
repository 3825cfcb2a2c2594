// The time stand-ins: the VARIANT day number both ways (with the platform's
// convention before 1899-12-30), the limits of __time64_t, CTime's refusals
// and the parts of a CTimeSpan.
#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>

#include "platform/AtlException.h"
#include "platform/AtlTime.h"
#include "platform/OleDateTime.h"

namespace {

SYSTEMTIME Fields(int year, int month, int day, int hour, int minute, int second) {
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(year);
  time.wMonth = static_cast<WORD>(month);
  time.wDay = static_cast<WORD>(day);
  time.wHour = static_cast<WORD>(hour);
  time.wMinute = static_cast<WORD>(minute);
  time.wSecond = static_cast<WORD>(second);
  return time;
}

::testing::AssertionResult SameFields(SYSTEMTIME const & a, SYSTEMTIME const & b) {
  if (a.wYear == b.wYear && a.wMonth == b.wMonth && a.wDay == b.wDay && a.wHour == b.wHour &&
      a.wMinute == b.wMinute && a.wSecond == b.wSecond)
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << a.wYear << "-" << a.wMonth << "-" << a.wDay << " " << a.wHour << ":" << a.wMinute << ":"
         << a.wSecond << " is not " << b.wYear << "-" << b.wMonth << "-" << b.wDay << " " << b.wHour
         << ":" << b.wMinute << ":" << b.wSecond;
}

TEST(VariantDayNumber, ReadsBothWaysWithTheFractionCountingForwardsBeforeTheBaseDay) {
  struct Case {
    DATE date;
    SYSTEMTIME fields;
    int weekday;  // 0 Sunday
  };
  Case const cases[] = {
      {0.0, Fields(1899, 12, 30, 0, 0, 0), 6},     {2.5, Fields(1900, 1, 1, 12, 0, 0), 1},
      {-1.5, Fields(1899, 12, 29, 12, 0, 0), 5},   {-1.25, Fields(1899, 12, 29, 6, 0, 0), 5},
      {-700.75, Fields(1898, 1, 29, 18, 0, 0), 6}, {36526.75, Fields(2000, 1, 1, 18, 0, 0), 6},
      {60.0, Fields(1900, 2, 28, 0, 0, 0), 3},  // 1900 had no 29 February
      {61.0, Fields(1900, 3, 1, 0, 0, 0), 4},      {2958465.0, Fields(9999, 12, 31, 0, 0, 0), 5},
      {-657434.0, Fields(100, 1, 1, 0, 0, 0), 5},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.date);
    SYSTEMTIME read{};
    ASSERT_TRUE(VariantTimeToSystemTime(c.date, read));
    EXPECT_TRUE(SameFields(read, c.fields));
    EXPECT_EQ(read.wDayOfWeek, c.weekday);
    DATE back = 0;
    ASSERT_TRUE(SystemTimeToVariantTime(c.fields, back));
    EXPECT_DOUBLE_EQ(back, c.date);
  }
}

TEST(VariantDayNumber, RoundsToTheSecondAcrossMidnightAndRefusesWhatLiesOutside) {
  SYSTEMTIME read{};
  ASSERT_TRUE(VariantTimeToSystemTime(1.0 - 1e-9, read));  // 23:59:59.9999
  EXPECT_TRUE(SameFields(read, Fields(1899, 12, 31, 0, 0, 0)));
  ASSERT_TRUE(VariantTimeToSystemTime(-2.0 - (1.0 - 1e-9), read));  // day -2, almost 24:00
  EXPECT_TRUE(SameFields(read, Fields(1899, 12, 29, 0, 0, 0)));
  ASSERT_TRUE(VariantTimeToSystemTime(0.5 + 0.4 / 86400, read));
  EXPECT_EQ(read.wSecond, 0);

  for (DATE const outside : {-657435.0, 2958466.0, std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    SCOPED_TRACE(outside);
    EXPECT_FALSE(VariantTimeToSystemTime(outside, read));
    EXPECT_EQ(COleDateTime(outside).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(COleDateTime(outside).GetYear(), -1);
  }
  DATE date = 0;
  EXPECT_FALSE(SystemTimeToVariantTime(Fields(2023, 2, 29, 0, 0, 0), date));
  EXPECT_FALSE(SystemTimeToVariantTime(Fields(2023, 1, 1, 24, 0, 0), date));
  EXPECT_FALSE(SystemTimeToVariantTime(Fields(99, 12, 31, 0, 0, 0), date));
}

TEST(OleDateTime, FieldsAndTimesAgreeWithTheLocalCalendar) {
  COleDateTime const fromFields(2024, 2, 29, 13, 45, 30);
  ASSERT_EQ(fromFields.GetStatus(), COleDateTime::valid);
  EXPECT_EQ(fromFields.GetDay(), 29);
  EXPECT_EQ(fromFields.GetSecond(), 30);

  COleDateTime invalid;
  EXPECT_EQ(invalid.SetDateTime(2023, 2, 29, 0, 0, 0), 1);
  EXPECT_EQ(invalid.GetStatus(), COleDateTime::invalid);

  CTime const local(2024, 7, 14, 9, 30, 15);
  COleDateTime const fromTime(local.GetTime());
  ASSERT_EQ(fromTime.GetStatus(), COleDateTime::valid);
  EXPECT_EQ(fromTime.GetYear(), 2024);
  EXPECT_EQ(fromTime.GetMonth(), 7);
  EXPECT_EQ(fromTime.GetHour(), 9);
  EXPECT_EQ(fromTime.GetMinute(), 30);
  EXPECT_EQ(COleDateTime(__time64_t{-1}).GetStatus(), COleDateTime::invalid);
}

TEST(Time64, HoldsOnlyTheYearsOfThePlatform) {
  std::tm fields{};
  __time64_t const before = -1;
  __time64_t const after = kMaxTime64 + 1;
  __time64_t const last = kMaxTime64;
  EXPECT_EQ(_localtime64_s(&fields, &before), EINVAL);
  EXPECT_EQ(fields.tm_year, -1);
  EXPECT_EQ(_localtime64_s(&fields, &after), EINVAL);
  EXPECT_EQ(_localtime64_s(&fields, nullptr), EINVAL);
  EXPECT_EQ(_localtime64_s(nullptr, &last), EINVAL);
  ASSERT_EQ(_gmtime64_s(&fields, &last), 0);
  EXPECT_EQ(fields.tm_year + 1900, 3000);
  EXPECT_EQ(fields.tm_mon, 11);
  EXPECT_EQ(fields.tm_mday, 31);

  std::tm far{};
  far.tm_year = 1101;  // 3001
  far.tm_mday = 2;
  EXPECT_EQ(_mktime64(&far), -1);
  std::tm early{};
  early.tm_year = 60;  // 1960
  early.tm_mday = 1;
  EXPECT_EQ(_mktime64(&early), -1);
}

TEST(CTime, RefusesFieldsTheCalendarCannotHold) {
  struct Case {
    int year, month, day, hour, minute, second;
  };
  Case const refused[] = {{1899, 1, 1, 0, 0, 0},  {2020, 13, 1, 0, 0, 0}, {2020, 1, 0, 0, 0, 0},
                          {2020, 1, 1, 24, 0, 0}, {2020, 1, 1, 0, 60, 0}, {2020, 1, 1, 0, 0, 60},
                          {3001, 1, 2, 0, 0, 0}};
  for (Case const & c : refused) {
    SCOPED_TRACE(c.year * 10000 + c.month * 100 + c.day);
    try {
      CTime const time(c.year, c.month, c.day, c.hour, c.minute, c.second);
      ADD_FAILURE() << "accepted as " << time.GetTime();
    } catch (CAtlException const & e) {
      EXPECT_EQ(static_cast<HRESULT>(e), E_INVALIDARG);
    }
  }
  // A SYSTEMTIME before 1900 is the time 0, as the platform has it.
  EXPECT_EQ(CTime(Fields(1800, 5, 5, 0, 0, 0)).GetTime(), 0);

  CTime const time(2024, 3, 31, 23, 59, 58);
  SYSTEMTIME fields{};
  ASSERT_TRUE(time.GetAsSystemTime(fields));
  EXPECT_TRUE(SameFields(fields, Fields(2024, 3, 31, 23, 59, 58)));
  EXPECT_EQ(fields.wDayOfWeek, 0);    // a Sunday
  EXPECT_EQ(time.GetDayOfWeek(), 1);  // CTime counts Sunday as 1
  EXPECT_EQ((time + CTimeSpan(0, 0, 0, 2)).GetDay(), 1);
}

TEST(CTimeSpan, SplitsIntoPartsThatKeepTheSign) {
  struct Case {
    __time64_t seconds;
    __time64_t days;
    LONG hours, minutes, secondsPart;
  };
  Case const cases[] = {{90061, 1, 1, 1, 1},
                        {86399, 0, 23, 59, 59},
                        {-61, 0, 0, -1, -1},
                        {59, 0, 0, 0, 59},
                        {-90061, -1, -1, -1, -1}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.seconds);
    CTimeSpan const span(c.seconds);
    EXPECT_EQ(span.GetDays(), c.days);
    EXPECT_EQ(span.GetHours(), c.hours);
    EXPECT_EQ(span.GetMinutes(), c.minutes);
    EXPECT_EQ(span.GetSeconds(), c.secondsPart);
  }
  EXPECT_EQ(CTimeSpan(1, 1, 1, 1).GetTimeSpan(), 90061);
}

TEST(Calendar, DayNumbersRoundTripOverCenturiesAndEras) {
  EXPECT_EQ(DaysFromCivil(1970, 1, 1), 0);
  EXPECT_EQ(DaysFromCivil(2000, 3, 1), 11017);
  EXPECT_EQ(WeekdayFromDays(0), 4);  // a Thursday
  std::int64_t const first = DaysFromCivil(1599, 12, 25);
  std::int64_t const lastDay = DaysFromCivil(2401, 1, 5);
  int weekday = WeekdayFromDays(first);
  for (std::int64_t day = first; day <= lastDay; ++day) {
    std::int64_t year = 0;
    int month = 0;
    int dayOfMonth = 0;
    CivilFromDays(day, year, month, dayOfMonth);
    ASSERT_GE(dayOfMonth, 1);
    ASSERT_LE(dayOfMonth, DaysInMonth(static_cast<int>(year), month)) << year << "-" << month;
    ASSERT_EQ(DaysFromCivil(year, month, dayOfMonth), day);
    ASSERT_EQ(WeekdayFromDays(day), weekday) << day;
    weekday = (weekday + 1) % 7;
  }
  EXPECT_EQ(DaysInMonth(2000, 2), 29);
  EXPECT_EQ(DaysInMonth(1900, 2), 28);
  EXPECT_EQ(DaysInMonth(2024, 13), 0);
}

}  // namespace
