#pragma once
// Time as the user reads it: formatted with the user's regional settings in
// the local time zone, and the user's date and time formats in the format
// language of the applications (see utl/StrftimePattern.h).
//
// "The user's regional settings" are the LC_TIME locale that the environment
// names (LC_ALL, else LC_TIME, else LANG), read on every call; one that is not
// installed on the machine quietly gives C.UTF-8. The time zone is TZ, also
// read on every call.

#include <cstdint>
#include <string>

namespace VxTimeUtl {

enum LocaleType {
  UserLocale = 0,       // the user's regional settings
  InvariantLocale = 1,  // the same everywhere: ISO 8601 order, 24-hour clock
};

// `time` (seconds since 1970 UTC, as time_t) in the local time zone through
// the strftime `format` in the user's locale, in UTF-8. A null or empty
// format gives "", and so does a time the calendar cannot hold or a result
// longer than a megabyte.
std::string FormatLocal(int64_t time, char const * format);

// Seconds east of UTC of the local time zone now, daylight saving included.
int GetUtcOffset();
// The same at `time` (seconds since 1970 UTC); 0 if the calendar cannot
// hold it.
int GetUtcOffsetAt(int64_t time);

// The user's date format: the short one (nl_langinfo D_FMT, "dd.MM.yyyy"),
// or with `longFormat` the date part of the locale's full date and time
// (D_T_FMT, "ddd dd MMM yyyy"), which names weekday and month. A locale that
// gives no usable date falls back to the short date, then to the invariant
// "yyyy-MM-dd".
std::string GetUserLocaleDate(bool longFormat, LocaleType type);

// The user's time format (T_FMT, else T_FMT_AMPM); the invariant and the last
// fallback is "HH:mm:ss".
std::string GetUserLocaleTime(LocaleType type);

}  // namespace VxTimeUtl
