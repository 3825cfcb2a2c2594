// The picker's fields without a window: the format cut into fields, what a
// field shows, and how steps and typed digits change one field only.
#include <gtest/gtest.h>

#include "platform/commctrl/DateTimeFields.h"

namespace {

using F = DateTimeField;

SYSTEMTIME At(int year, int month, int day, int hour, int minute, int second, int ms = 0) {
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(year);
  time.wMonth = static_cast<WORD>(month);
  time.wDay = static_cast<WORD>(day);
  time.wHour = static_cast<WORD>(hour);
  time.wMinute = static_cast<WORD>(minute);
  time.wSecond = static_cast<WORD>(second);
  time.wMilliseconds = static_cast<WORD>(ms);
  return WithWeekday(time);
}

std::vector<F> FieldsOf(std::wstring_view format) {
  std::vector<F> fields;
  for (auto const & segment : ParseDateTimeFormat(format)) fields.push_back(segment.field);
  return fields;
}

TEST(DateTimeFormat, CutsRunsOfLettersIntoFieldsAndKeepsTheRestAsText) {
  struct Case {
    std::wstring_view format;
    std::vector<F> fields;
  };
  Case const cases[] = {
      {L"HH:mm:ss", {F::Hour24_2, F::Literal, F::Minute2, F::Literal, F::Second2}},
      {L"yyyy-MM-dd", {F::Year4, F::Literal, F::Month2, F::Literal, F::Day2}},
      {L"d/M/yy h:m:s tt",
       {F::Day1, F::Literal, F::Month1, F::Literal, F::Year2, F::Literal, F::Hour12_1, F::Literal,
        F::Minute1, F::Literal, F::Second1, F::Literal, F::AmPm2}},
      {L"ddd dd MMM MMMM dddd",
       {F::WeekdayAbbrev, F::Literal, F::Day2, F::Literal, F::MonthAbbrev, F::Literal, F::MonthName,
        F::Literal, F::WeekdayName}},
      {L"ss.fff", {F::Second2, F::Literal, F::Milliseconds}},
      {L"HHmm", {F::Hour24_2, F::Minute2}},
      {L"'at' HH 'o''clock'", {F::Literal, F::Hour24_2, F::Literal}},
      {L"xyz", {F::Literal, F::Year2, F::Literal}},  // unknown letters are text
      {L"", {}},
      {L"'unclosed HH", {F::Literal}},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(std::wstring(c.format));
    EXPECT_EQ(FieldsOf(c.format), c.fields);
  }
  auto const quoted = ParseDateTimeFormat(L"'at' HH 'o''clock'");
  ASSERT_EQ(quoted.size(), 3u);
  EXPECT_EQ(quoted[0].literal, L"at ");
  EXPECT_EQ(quoted[2].literal, L" o'clock");
}

TEST(DateTimeFormat, ShowsEachFieldPaddedAsItsLengthSays) {
  SYSTEMTIME const time = At(2024, 3, 5, 14, 7, 9, 42);
  struct Case {
    std::wstring_view format;
    std::wstring_view shown;
  };
  Case const cases[] = {
      {L"yyyy-MM-dd HH:mm:ss.fff", L"2024-03-05 14:07:09.042"},
      {L"d/M/yy", L"5/3/24"},
      {L"h:m:s", L"2:7:9"},
      {L"hh", L"02"},
      {L"'HH' HH", L"HH 14"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(std::wstring(c.format));
    EXPECT_EQ(FormatDateTime(ParseDateTimeFormat(c.format), time), c.shown);
  }
  // Midnight and noon on the 12-hour clock.
  EXPECT_EQ(FormatDateTime(ParseDateTimeFormat(L"hh"), At(2024, 1, 1, 0, 0, 0)), L"12");
  EXPECT_EQ(FormatDateTime(ParseDateTimeFormat(L"hh"), At(2024, 1, 1, 12, 0, 0)), L"12");
  EXPECT_NE(FormatDateTime(ParseDateTimeFormat(L"tt"), At(2024, 1, 1, 0, 0, 0)),
            FormatDateTime(ParseDateTimeFormat(L"tt"), At(2024, 1, 1, 12, 0, 0)));
  EXPECT_FALSE(FormatDateTime(ParseDateTimeFormat(L"MMM ddd"), time).empty());
}

TEST(DateTimeFieldStep, WrapsInTheFieldWithoutCarrying) {
  struct Case {
    char const * what;
    SYSTEMTIME from;
    F field;
    int delta;
    SYSTEMTIME to;
  };
  Case const cases[] = {
      {"seconds 00 down", At(2024, 5, 1, 10, 5, 0), F::Second2, -1, At(2024, 5, 1, 10, 5, 59)},
      {"seconds 59 up", At(2024, 5, 1, 10, 5, 59), F::Second2, +1, At(2024, 5, 1, 10, 5, 0)},
      {"minutes 59 up", At(2024, 5, 1, 10, 59, 3), F::Minute2, +1, At(2024, 5, 1, 10, 0, 3)},
      {"hours 23 up", At(2024, 5, 31, 23, 0, 0), F::Hour24_2, +1, At(2024, 5, 31, 0, 0, 0)},
      {"12-hour 11 up stays AM", At(2024, 5, 1, 11, 0, 0), F::Hour12_2, +1,
       At(2024, 5, 1, 0, 0, 0)},
      {"12-hour 12 down stays PM", At(2024, 5, 1, 12, 0, 0), F::Hour12_2, -1,
       At(2024, 5, 1, 23, 0, 0)},
      {"AM to PM", At(2024, 5, 1, 9, 0, 0), F::AmPm2, +1, At(2024, 5, 1, 21, 0, 0)},
      {"day 31 up", At(2024, 1, 31, 0, 0, 0), F::Day2, +1, At(2024, 1, 1, 0, 0, 0)},
      {"day 1 down", At(2024, 2, 1, 0, 0, 0), F::Day1, -1, At(2024, 2, 29, 0, 0, 0)},
      {"month keeps a day it can hold", At(2024, 1, 31, 0, 0, 0), F::Month2, +1,
       At(2024, 2, 29, 0, 0, 0)},
      {"month 12 up", At(2024, 12, 15, 0, 0, 0), F::MonthAbbrev, +1, At(2024, 1, 15, 0, 0, 0)},
      {"year leaves 29 February", At(2024, 2, 29, 0, 0, 0), F::Year4, +1, At(2025, 2, 28, 0, 0, 0)},
      {"year 9999 up", At(9999, 6, 1, 0, 0, 0), F::Year4, +1, At(1601, 6, 1, 0, 0, 0)},
      {"milliseconds 0 down", At(2024, 5, 1, 0, 0, 0, 0), F::Milliseconds, -1,
       At(2024, 5, 1, 0, 0, 0, 999)},
      {"weekday is no field", At(2024, 5, 1, 0, 0, 0), F::WeekdayName, +1, At(2024, 5, 1, 0, 0, 0)},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    SYSTEMTIME const stepped = StepField(c.from, c.field, c.delta);
    EXPECT_EQ(CompareSystemTime(stepped, c.to), 0)
        << stepped.wYear << "-" << stepped.wMonth << "-" << stepped.wDay << " " << stepped.wHour
        << ":" << stepped.wMinute << ":" << stepped.wSecond << "." << stepped.wMilliseconds;
    EXPECT_EQ(stepped.wDayOfWeek, c.to.wDayOfWeek);
  }
}

TEST(DateTimeFieldDigits, ClampsWhatTheFieldCannotHold) {
  struct Case {
    char const * what;
    SYSTEMTIME from;
    F field;
    int value;
    SYSTEMTIME to;
  };
  SYSTEMTIME const base = At(2024, 2, 10, 10, 20, 30);
  Case const cases[] = {
      {"minutes 75", base, F::Minute2, 75, At(2024, 2, 10, 10, 59, 30)},
      {"seconds 99", base, F::Second2, 99, At(2024, 2, 10, 10, 20, 59)},
      {"hours 24", base, F::Hour24_2, 24, At(2024, 2, 10, 23, 20, 30)},
      {"day 31 in February", base, F::Day2, 31, At(2024, 2, 29, 10, 20, 30)},
      {"day 0", base, F::Day2, 0, At(2024, 2, 1, 10, 20, 30)},
      {"month 13", base, F::Month2, 13, At(2024, 12, 10, 10, 20, 30)},
      {"year 42", base, F::Year4, 42, At(1601, 2, 10, 10, 20, 30)},
      {"two-digit year in its century", base, F::Year2, 7, At(2007, 2, 10, 10, 20, 30)},
      {"12-hour 12 in the morning", At(2024, 2, 10, 9, 0, 0), F::Hour12_2, 12,
       At(2024, 2, 10, 0, 0, 0)},
      {"12-hour 3 in the afternoon", At(2024, 2, 10, 15, 0, 0), F::Hour12_2, 3,
       At(2024, 2, 10, 15, 0, 0)},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    SYSTEMTIME const typed = TypeIntoField(c.from, c.field, c.value);
    EXPECT_EQ(CompareSystemTime(typed, c.to), 0)
        << typed.wYear << "-" << typed.wMonth << "-" << typed.wDay << " " << typed.wHour << ":"
        << typed.wMinute << ":" << typed.wSecond;
  }
  // A field is complete when its digits are all there, or when no further
  // digit could make a value of it.
  EXPECT_TRUE(AcceptsMoreDigits(F::Hour24_2, 2, 1));
  EXPECT_FALSE(AcceptsMoreDigits(F::Hour24_2, 3, 1));
  EXPECT_FALSE(AcceptsMoreDigits(F::Minute2, 6, 1));
  EXPECT_FALSE(AcceptsMoreDigits(F::Minute2, 5, 2));
  EXPECT_TRUE(AcceptsMoreDigits(F::Year4, 202, 3));
  EXPECT_FALSE(AcceptsMoreDigits(F::Year4, 2024, 4));
  EXPECT_FALSE(AcceptsMoreDigits(F::AmPm2, 0, 0));
}

TEST(DateTimeFieldDigits, ValidityAndOrderOfTimes) {
  EXPECT_TRUE(IsValidSystemTime(At(1601, 1, 1, 0, 0, 0)));
  EXPECT_FALSE(IsValidSystemTime(At(1600, 12, 31, 0, 0, 0)));
  EXPECT_FALSE(IsValidSystemTime(At(2023, 2, 29, 0, 0, 0)));
  EXPECT_FALSE(IsValidSystemTime(At(2023, 1, 1, 0, 60, 0)));
  EXPECT_FALSE(IsValidSystemTime(SYSTEMTIME{}));
  EXPECT_LT(CompareSystemTime(At(2024, 1, 1, 0, 0, 59), At(2024, 1, 1, 0, 1, 0)), 0);
  EXPECT_GT(CompareSystemTime(At(2024, 1, 1, 0, 0, 0, 1), At(2024, 1, 1, 0, 0, 0, 0)), 0);
  EXPECT_GT(CompareSystemTime(At(2025, 1, 1, 0, 0, 0), At(2024, 12, 31, 23, 59, 59)), 0);
}

}  // namespace
