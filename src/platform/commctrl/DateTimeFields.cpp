#include "platform/commctrl/DateTimeFields.h"

#include <algorithm>

#include <wx/datetime.h>

namespace {

constexpr int kMinYear = 1601;
constexpr int kMaxYear = 9999;

DateTimeField FieldOfRun(wchar_t letter, size_t count) {
  switch (letter) {
    case L'y': return count <= 2 ? DateTimeField::Year2 : DateTimeField::Year4;
    case L'M':
      return count == 1   ? DateTimeField::Month1
             : count == 2 ? DateTimeField::Month2
             : count == 3 ? DateTimeField::MonthAbbrev
                          : DateTimeField::MonthName;
    case L'd':
      return count == 1   ? DateTimeField::Day1
             : count == 2 ? DateTimeField::Day2
             : count == 3 ? DateTimeField::WeekdayAbbrev
                          : DateTimeField::WeekdayName;
    case L'h': return count == 1 ? DateTimeField::Hour12_1 : DateTimeField::Hour12_2;
    case L'H': return count == 1 ? DateTimeField::Hour24_1 : DateTimeField::Hour24_2;
    case L'm': return count == 1 ? DateTimeField::Minute1 : DateTimeField::Minute2;
    case L's': return count == 1 ? DateTimeField::Second1 : DateTimeField::Second2;
    case L'f': return DateTimeField::Milliseconds;
    case L't': return count == 1 ? DateTimeField::AmPm1 : DateTimeField::AmPm2;
    default: return DateTimeField::Literal;
  }
}

void AppendLiteral(std::vector<DateTimeSegment> & segments, std::wstring_view text) {
  if (text.empty()) return;
  if (segments.empty() || segments.back().field != DateTimeField::Literal)
    segments.push_back({DateTimeField::Literal, {}});
  segments.back().literal.append(text);
}

std::wstring Padded(int value, int width) {
  std::wstring digits = std::to_wstring(value);
  if (static_cast<int>(digits.size()) < width) digits.insert(0, width - digits.size(), L'0');
  return digits;
}

std::wstring ToWide(wxString const & text) { return text.ToStdWstring(); }

// Wraps `value` into [low, high].
int Wrap(int value, int low, int high) {
  int const span = high - low + 1;
  return low + ((value - low) % span + span) % span;
}

SYSTEMTIME WithDayInMonth(SYSTEMTIME time) {
  time.wDay = static_cast<WORD>(std::min<int>(time.wDay, DaysInMonth(time.wYear, time.wMonth)));
  return WithWeekday(time);
}

}  // namespace

std::vector<DateTimeSegment> ParseDateTimeFormat(std::wstring_view format) {
  std::vector<DateTimeSegment> segments;
  size_t i = 0;
  while (i < format.size()) {
    wchar_t const c = format[i];
    if (c == L'\'') {
      // Quoted text up to the closing quote; '' inside is one quote.
      std::wstring text;
      ++i;
      while (i < format.size()) {
        if (format[i] == L'\'') {
          if (i + 1 < format.size() && format[i + 1] == L'\'') {
            text += L'\'';
            i += 2;
            continue;
          }
          ++i;
          break;
        }
        text += format[i++];
      }
      if (text.empty() && i >= 2 && format[i - 2] == L'\'' && format[i - 1] == L'\'')
        text = L"'";  // '' outside quotes
      AppendLiteral(segments, text);
      continue;
    }
    size_t run = 1;
    while (i + run < format.size() && format[i + run] == c) ++run;
    DateTimeField const field = FieldOfRun(c, run);
    if (field == DateTimeField::Literal)
      AppendLiteral(segments, format.substr(i, run));
    else
      segments.push_back({field, {}});
    i += run;
  }
  return segments;
}

std::wstring FormatSegment(DateTimeSegment const & segment, SYSTEMTIME const & time) {
  auto const month = static_cast<wxDateTime::Month>(std::clamp<int>(time.wMonth, 1, 12) - 1);
  auto const weekday = static_cast<wxDateTime::WeekDay>(time.wDayOfWeek % 7);
  int const hour12 = time.wHour % 12 == 0 ? 12 : time.wHour % 12;
  switch (segment.field) {
    case DateTimeField::Literal: return segment.literal;
    case DateTimeField::Year2: return Padded(time.wYear % 100, 2);
    case DateTimeField::Year4: return Padded(time.wYear, 4);
    case DateTimeField::Month1: return Padded(time.wMonth, 1);
    case DateTimeField::Month2: return Padded(time.wMonth, 2);
    case DateTimeField::MonthAbbrev:
      return ToWide(wxDateTime::GetMonthName(month, wxDateTime::Name_Abbr));
    case DateTimeField::MonthName:
      return ToWide(wxDateTime::GetMonthName(month, wxDateTime::Name_Full));
    case DateTimeField::Day1: return Padded(time.wDay, 1);
    case DateTimeField::Day2: return Padded(time.wDay, 2);
    case DateTimeField::WeekdayAbbrev:
      return ToWide(wxDateTime::GetWeekDayName(weekday, wxDateTime::Name_Abbr));
    case DateTimeField::WeekdayName:
      return ToWide(wxDateTime::GetWeekDayName(weekday, wxDateTime::Name_Full));
    case DateTimeField::Hour12_1: return Padded(hour12, 1);
    case DateTimeField::Hour12_2: return Padded(hour12, 2);
    case DateTimeField::Hour24_1: return Padded(time.wHour, 1);
    case DateTimeField::Hour24_2: return Padded(time.wHour, 2);
    case DateTimeField::Minute1: return Padded(time.wMinute, 1);
    case DateTimeField::Minute2: return Padded(time.wMinute, 2);
    case DateTimeField::Second1: return Padded(time.wSecond, 1);
    case DateTimeField::Second2: return Padded(time.wSecond, 2);
    case DateTimeField::Milliseconds: return Padded(time.wMilliseconds, 3);
    case DateTimeField::AmPm1:
    case DateTimeField::AmPm2: {
      wxString am;
      wxString pm;
      wxDateTime::GetAmPmStrings(&am, &pm);
      if (am.empty() || pm.empty()) {
        am = "AM";
        pm = "PM";
      }
      wxString const marker = time.wHour < 12 ? am : pm;
      return ToWide(segment.field == DateTimeField::AmPm1 ? marker.Left(1) : marker);
    }
  }
  return {};
}

std::wstring FormatDateTime(std::vector<DateTimeSegment> const & segments,
                            SYSTEMTIME const & time) {
  std::wstring text;
  for (DateTimeSegment const & segment : segments) text += FormatSegment(segment, time);
  return text;
}

bool IsEditable(DateTimeField field) {
  return field != DateTimeField::Literal && field != DateTimeField::WeekdayAbbrev &&
         field != DateTimeField::WeekdayName;
}

int DigitsOfField(DateTimeField field) {
  switch (field) {
    case DateTimeField::Year4: return 4;
    case DateTimeField::Milliseconds: return 3;
    case DateTimeField::Literal:
    case DateTimeField::WeekdayAbbrev:
    case DateTimeField::WeekdayName:
    case DateTimeField::AmPm1:
    case DateTimeField::AmPm2: return 0;
    default: return 2;
  }
}

SYSTEMTIME StepField(SYSTEMTIME time, DateTimeField field, int delta) {
  switch (field) {
    case DateTimeField::Year2:
    case DateTimeField::Year4:
      time.wYear = static_cast<WORD>(Wrap(time.wYear + delta, kMinYear, kMaxYear));
      return WithDayInMonth(time);
    case DateTimeField::Month1:
    case DateTimeField::Month2:
    case DateTimeField::MonthAbbrev:
    case DateTimeField::MonthName:
      time.wMonth = static_cast<WORD>(Wrap(time.wMonth + delta, 1, 12));
      return WithDayInMonth(time);
    case DateTimeField::Day1:
    case DateTimeField::Day2:
      time.wDay =
          static_cast<WORD>(Wrap(time.wDay + delta, 1, DaysInMonth(time.wYear, time.wMonth)));
      return WithWeekday(time);
    case DateTimeField::Hour12_1:
    case DateTimeField::Hour12_2:
      // Within the half of the day: the AM/PM field is the next one up.
      time.wHour = static_cast<WORD>(time.wHour / 12 * 12 + Wrap(time.wHour % 12 + delta, 0, 11));
      return time;
    case DateTimeField::Hour24_1:
    case DateTimeField::Hour24_2:
      time.wHour = static_cast<WORD>(Wrap(time.wHour + delta, 0, 23));
      return time;
    case DateTimeField::Minute1:
    case DateTimeField::Minute2:
      time.wMinute = static_cast<WORD>(Wrap(time.wMinute + delta, 0, 59));
      return time;
    case DateTimeField::Second1:
    case DateTimeField::Second2:
      time.wSecond = static_cast<WORD>(Wrap(time.wSecond + delta, 0, 59));
      return time;
    case DateTimeField::Milliseconds:
      time.wMilliseconds = static_cast<WORD>(Wrap(time.wMilliseconds + delta, 0, 999));
      return time;
    case DateTimeField::AmPm1:
    case DateTimeField::AmPm2:
      if (delta % 2 != 0) time.wHour = static_cast<WORD>((time.wHour + 12) % 24);
      return time;
    case DateTimeField::Literal:
    case DateTimeField::WeekdayAbbrev:
    case DateTimeField::WeekdayName: return time;
  }
  return time;
}

SYSTEMTIME TypeIntoField(SYSTEMTIME time, DateTimeField field, int value) {
  switch (field) {
    case DateTimeField::Year2:
      time.wYear = static_cast<WORD>(
          std::clamp(time.wYear / 100 * 100 + std::clamp(value, 0, 99), kMinYear, kMaxYear));
      return WithDayInMonth(time);
    case DateTimeField::Year4:
      time.wYear = static_cast<WORD>(std::clamp(value, kMinYear, kMaxYear));
      return WithDayInMonth(time);
    case DateTimeField::Month1:
    case DateTimeField::Month2:
    case DateTimeField::MonthAbbrev:
    case DateTimeField::MonthName:
      time.wMonth = static_cast<WORD>(std::clamp(value, 1, 12));
      return WithDayInMonth(time);
    case DateTimeField::Day1:
    case DateTimeField::Day2:
      time.wDay = static_cast<WORD>(std::clamp(value, 1, DaysInMonth(time.wYear, time.wMonth)));
      return WithWeekday(time);
    case DateTimeField::Hour12_1:
    case DateTimeField::Hour12_2:
      time.wHour = static_cast<WORD>(time.wHour / 12 * 12 + std::clamp(value, 1, 12) % 12);
      return time;
    case DateTimeField::Hour24_1:
    case DateTimeField::Hour24_2:
      time.wHour = static_cast<WORD>(std::clamp(value, 0, 23));
      return time;
    case DateTimeField::Minute1:
    case DateTimeField::Minute2:
      time.wMinute = static_cast<WORD>(std::clamp(value, 0, 59));
      return time;
    case DateTimeField::Second1:
    case DateTimeField::Second2:
      time.wSecond = static_cast<WORD>(std::clamp(value, 0, 59));
      return time;
    case DateTimeField::Milliseconds:
      time.wMilliseconds = static_cast<WORD>(std::clamp(value, 0, 999));
      return time;
    case DateTimeField::Literal:
    case DateTimeField::WeekdayAbbrev:
    case DateTimeField::WeekdayName:
    case DateTimeField::AmPm1:
    case DateTimeField::AmPm2: return time;
  }
  return time;
}

bool AcceptsMoreDigits(DateTimeField field, int value, int digitsTyped) {
  int const digits = DigitsOfField(field);
  if (digitsTyped >= digits) return false;
  // A field of two digits whose next digit would pass every value of the
  // field is complete after one (a 3 in the hours of a day).
  int high = 0;
  switch (field) {
    case DateTimeField::Month1:
    case DateTimeField::Month2:
    case DateTimeField::MonthAbbrev:
    case DateTimeField::MonthName:
    case DateTimeField::Hour12_1:
    case DateTimeField::Hour12_2: high = 12; break;
    case DateTimeField::Day1:
    case DateTimeField::Day2: high = 31; break;
    case DateTimeField::Hour24_1:
    case DateTimeField::Hour24_2: high = 23; break;
    case DateTimeField::Minute1:
    case DateTimeField::Minute2:
    case DateTimeField::Second1:
    case DateTimeField::Second2: high = 59; break;
    default: return true;
  }
  return value * 10 <= high;
}

bool IsValidSystemTime(SYSTEMTIME const & time) {
  return time.wYear >= kMinYear && time.wYear <= kMaxYear && time.wMonth >= 1 &&
         time.wMonth <= 12 && time.wDay >= 1 && time.wDay <= DaysInMonth(time.wYear, time.wMonth) &&
         time.wHour <= 23 && time.wMinute <= 59 && time.wSecond <= 59 && time.wMilliseconds <= 999;
}

int CompareSystemTime(SYSTEMTIME const & a, SYSTEMTIME const & b) {
  WORD const SYSTEMTIME::*const order[] = {
      &SYSTEMTIME::wYear,   &SYSTEMTIME::wMonth,  &SYSTEMTIME::wDay,         &SYSTEMTIME::wHour,
      &SYSTEMTIME::wMinute, &SYSTEMTIME::wSecond, &SYSTEMTIME::wMilliseconds};
  for (auto const field : order)
    if (a.*field != b.*field) return a.*field < b.*field ? -1 : 1;
  return 0;
}

SYSTEMTIME WithWeekday(SYSTEMTIME time) {
  time.wDayOfWeek =
      static_cast<WORD>(WeekdayFromDays(DaysFromCivil(time.wYear, time.wMonth, time.wDay)));
  return time;
}
