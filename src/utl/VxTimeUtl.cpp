#include "utl/VxTimeUtl.h"

#include <langinfo.h>
#include <locale.h>
#include <time.h>

#include <boost/locale/encoding.hpp>
#include <cstdlib>

#include "utl/StrftimePattern.h"
#include "utl/Utf.h"

namespace VxTimeUtl {

namespace {

static_assert(sizeof(time_t) == sizeof(int64_t), "time_t holds 64-bit seconds");

constexpr size_t kMaxFormatted = 1 << 20;
char const kInvariantDate[] = "yyyy-MM-dd";
char const kInvariantTime[] = "HH:mm:ss";

// The LC_TIME locale of the environment, with its own character set (taken
// from the same locale name, so that the names of months and the patterns
// are read in the set they are written in).
class UserTimeLocale {
public:
  UserTimeLocale() {
    int const mask = LC_TIME_MASK | LC_CTYPE_MASK;
    mLocale = newlocale(mask, ChosenName(), locale_t());
    if (mLocale == locale_t()) mLocale = newlocale(mask, "C.UTF-8", locale_t());
    if (mLocale == locale_t()) mLocale = newlocale(mask, "C", locale_t());
    if (mLocale != locale_t()) {
      std::string const codeset = nl_langinfo_l(CODESET, mLocale);
      // ASCII (the "C" locale) passes any byte through: it reads as UTF-8.
      if (codeset != "UTF-8" && codeset != "ANSI_X3.4-1968") mCodeset = codeset;
    }
  }
  ~UserTimeLocale() {
    if (mLocale != locale_t()) freelocale(mLocale);
  }
  UserTimeLocale(UserTimeLocale const &) = delete;
  UserTimeLocale & operator=(UserTimeLocale const &) = delete;

  locale_t Get() const { return mLocale; }

  std::string Info(nl_item item) const {
    return mLocale != locale_t() ? ToUtf8(nl_langinfo_l(item, mLocale)) : std::string();
  }

  std::string ToUtf8(std::string const & text) const {
    if (!mCodeset.empty()) {
      try {
        return vx3::SanitizeUtf8(
            boost::locale::conv::to_utf<char>(text, mCodeset, boost::locale::conv::skip));
      } catch (std::exception const &) {
        // A character set the converter does not know: keep what is UTF-8.
      }
    }
    return vx3::SanitizeUtf8(text);
  }

  std::string FromUtf8(std::string const & text) const {
    if (!mCodeset.empty()) {
      try {
        return boost::locale::conv::from_utf<char>(text, mCodeset, boost::locale::conv::skip);
      } catch (std::exception const &) {}
    }
    return text;
  }

  // What %x %X %r %c stand for here; an empty one keeps the "C" locale's, as
  // strftime itself does for %r.
  StrftimeComposites Composites() const {
    StrftimeComposites composites;
    auto const take = [this](nl_item item, std::string & target) {
      std::string const pattern = Info(item);
      if (!pattern.empty()) target = pattern;
    };
    take(D_FMT, composites.date);
    take(T_FMT, composites.time);
    take(T_FMT_AMPM, composites.ampmTime);
    take(D_T_FMT, composites.dateAndTime);
    return composites;
  }

private:
  static char const * ChosenName() {
    for (char const * variable : {"LC_ALL", "LC_TIME", "LANG"}) {
      char const * value = std::getenv(variable);
      if (value != nullptr && *value != '\0') return value;
    }
    return "C.UTF-8";
  }

  locale_t mLocale = locale_t();
  std::string mCodeset;  // empty for UTF-8 and ASCII
};

bool LocalTime(int64_t time, struct tm & local) {
  tzset();  // localtime_r need not notice a changed TZ by itself
  time_t const seconds = static_cast<time_t>(time);
  return localtime_r(&seconds, &local) != nullptr;
}

}  // namespace

std::string FormatLocal(int64_t time, char const * format) {
  if (format == nullptr || *format == '\0') return std::string();
  struct tm local = {};
  if (!LocalTime(time, local)) return std::string();
  UserTimeLocale const locale;
  // A trailing blank makes every result non-empty, so that strftime's 0
  // can only mean "the buffer is too small".
  std::string const pattern = locale.FromUtf8(format) + ' ';
  std::string buffer;
  for (size_t size = 256; size <= kMaxFormatted; size *= 2) {
    buffer.resize(size);
    size_t const length = strftime_l(&buffer[0], size, pattern.c_str(), &local, locale.Get());
    if (length > 0) {
      buffer.resize(length - 1);
      return locale.ToUtf8(buffer);
    }
  }
  return std::string();
}

int GetUtcOffset() { return GetUtcOffsetAt(::time(nullptr)); }

int GetUtcOffsetAt(int64_t time) {
  struct tm local = {};
  return LocalTime(time, local) ? static_cast<int>(local.tm_gmtoff) : 0;
}

std::string GetUserLocaleDate(bool longFormat, LocaleType type) {
  if (type == InvariantLocale) return kInvariantDate;
  StrftimeComposites const composites = UserTimeLocale().Composites();
  std::string format;
  if (longFormat) {
    format = FromStrftimePattern(composites.dateAndTime, PatternPart::Date, composites);
  }
  if (format.empty()) {
    format = FromStrftimePattern(composites.date, PatternPart::Date, composites);
  }
  return format.empty() ? kInvariantDate : format;
}

std::string GetUserLocaleTime(LocaleType type) {
  if (type == InvariantLocale) return kInvariantTime;
  StrftimeComposites const composites = UserTimeLocale().Composites();
  std::string format = FromStrftimePattern(composites.time, PatternPart::Time, composites);
  if (format.empty()) {
    format = FromStrftimePattern(composites.ampmTime, PatternPart::Time, composites);
  }
  return format.empty() ? kInvariantTime : format;
}

}  // namespace VxTimeUtl
