#pragma once
// The fields of a date-time picker: its format (DTM_SETFORMAT's language)
// cut into fields and literal text, what each field shows of a SYSTEMTIME,
// and how a field changes by a step or by typed digits. Every change stays
// inside the field: a step wraps in the field's range and never carries into
// the next field (seconds 00 down to 59 leave the minutes alone); typed
// digits past the range are clamped. A day that the month cannot hold after
// a change of month or year is lowered to its last day.
//
// The language: "yy"/"yyyy" year, "M"/"MM" month number, "MMM"/"MMMM" month
// name, "d"/"dd" day, "ddd"/"dddd" weekday name (shown, not edited),
// "h"/"hh" 12-hour, "H"/"HH" 24-hour, "m"/"mm" minute, "s"/"ss" second,
// "f".."fff" milliseconds, "t"/"tt" AM/PM. Text in single quotes is literal
// ('' is one quote); every other character is literal as it stands.

#include <string>
#include <string_view>
#include <vector>

#include "platform/WinTime.h"

enum class DateTimeField {
  Literal,
  Year2,
  Year4,
  Month1,
  Month2,
  MonthAbbrev,
  MonthName,
  Day1,
  Day2,
  WeekdayAbbrev,
  WeekdayName,
  Hour12_1,
  Hour12_2,
  Hour24_1,
  Hour24_2,
  Minute1,
  Minute2,
  Second1,
  Second2,
  Milliseconds,
  AmPm1,
  AmPm2,
};

struct DateTimeSegment {
  DateTimeField field = DateTimeField::Literal;
  std::wstring literal;  // the text of a Literal segment

  bool operator==(DateTimeSegment const & other) const {
    return field == other.field && literal == other.literal;
  }
};

std::vector<DateTimeSegment> ParseDateTimeFormat(std::wstring_view format);

// What the segment shows of `time` (names in the user's language).
std::wstring FormatSegment(DateTimeSegment const & segment, SYSTEMTIME const & time);
std::wstring FormatDateTime(std::vector<DateTimeSegment> const & segments, SYSTEMTIME const & time);

// Whether the user can select and change the field.
bool IsEditable(DateTimeField field);
// How many digits complete a typed value of the field (0: takes no digits).
int DigitsOfField(DateTimeField field);

// `time` with the field stepped by `delta` (+1 up, -1 down), wrapping.
SYSTEMTIME StepField(SYSTEMTIME time, DateTimeField field, int delta);
// `time` with the field set to the typed `value`, clamped to the field's
// range (a two-digit year stays in the century of `time`).
SYSTEMTIME TypeIntoField(SYSTEMTIME time, DateTimeField field, int value);
// Whether another digit after `value` could still make a value of the field.
bool AcceptsMoreDigits(DateTimeField field, int value, int digitsTyped);

// Whether the fields make a date and time (year 1601 to 9999); and the
// order of two such times.
bool IsValidSystemTime(SYSTEMTIME const & time);
int CompareSystemTime(SYSTEMTIME const & a, SYSTEMTIME const & b);
// The weekday of the date filled in.
SYSTEMTIME WithWeekday(SYSTEMTIME time);
