// Local time in the user's locale and time zone, both taken from the
// environment that each test sets.
#include <gtest/gtest.h>

#include <locale.h>
#include <time.h>

#include <cstdlib>

#include "utl/VxTimeUtl.h"

namespace {

using namespace VxTimeUtl;

constexpr int64_t kWinter = 1705320000;                // 2024-01-15 12:00:00 UTC
constexpr int64_t kSummer = 1721044800;                // 2024-07-15 12:00:00 UTC
constexpr int64_t kNewYorkSpringForward = 1710054000;  // 2024-03-10 07:00:00 UTC
char const kNewYork[] = "EST5EDT,M3.2.0,M11.1.0";      // a POSIX rule: no zone data needed

// Each test starts in UTC and the C.UTF-8 locale, and leaves them so.
class TimeEnvironment : public testing::Test {
protected:
  void SetUp() override { Reset(); }
  void TearDown() override { Reset(); }
  static void Reset() {
    Set("TZ", "UTC");
    Set("LC_ALL", nullptr);
    Set("LC_TIME", nullptr);
    Set("LANG", "C.UTF-8");
    tzset();
  }
  static void Set(char const * name, char const * value) {
    value != nullptr ? setenv(name, value, 1) : unsetenv(name);
  }
  static bool Installed(char const * locale) {
    locale_t const l = newlocale(LC_TIME_MASK, locale, locale_t());
    if (l != locale_t()) freelocale(l);
    return l != locale_t();
  }
};

TEST_F(TimeEnvironment, FormatLocalUsesTheLocalZone) {
  struct Case {
    char const *zone, *format;
    int64_t time;
    char const * expected;
  } const cases[] = {
      {"UTC", "%F %T", -1, "1969-12-31 23:59:59"},
      {"UTC", "%Y年%m月 %p", 1700000000, "2023年11月 PM"},
      {"IST-5:30", "%H:%M %z", 0, "05:30 +0530"},
      {kNewYork, "%H %Z", kWinter, "07 EST"},
      {kNewYork, "%H %Z", kSummer, "08 EDT"},
  };
  for (Case const & c : cases) {
    Set("TZ", c.zone);
    EXPECT_EQ(FormatLocal(c.time, c.format), c.expected) << c.zone << " " << c.format;
  }
  EXPECT_EQ(GetUtcOffsetAt(kNewYorkSpringForward - 1), -5 * 3600);
  EXPECT_EQ(GetUtcOffsetAt(kNewYorkSpringForward), -4 * 3600);
  EXPECT_EQ(GetUtcOffsetAt(INT64_MAX), 0);  // a year no calendar holds
}

TEST_F(TimeEnvironment, FormatLocalGivesNothingForNothingAndHandlesLongResults) {
  EXPECT_EQ(FormatLocal(0, nullptr), "");
  EXPECT_EQ(FormatLocal(INT64_MAX, "%Y"), "");
  std::string const padded = FormatLocal(0, "%5000Y");  // beyond the first buffer
  EXPECT_EQ(padded.size(), 5000u);
  EXPECT_EQ(padded.substr(4996), "1970");
  EXPECT_EQ(FormatLocal(0, "%2000000Y"), "");  // beyond any sensible size
}

TEST_F(TimeEnvironment, InvariantFormatsIgnoreTheUsersLocale) {
  Set("LC_ALL", "de_DE.UTF-8");
  EXPECT_EQ(GetUserLocaleDate(true, InvariantLocale), "yyyy-MM-dd");
  EXPECT_EQ(GetUserLocaleTime(InvariantLocale), "HH:mm:ss");
}

TEST_F(TimeEnvironment, ALocaleThatIsNotInstalledFallsBackQuietly) {
  for (char const * name : {"LC_ALL", "LC_TIME", "LANG"}) {
    Set(name, "xx_NOWHERE.UTF-8");
    EXPECT_EQ(GetUserLocaleDate(false, UserLocale), "MM/dd/yy") << name;
    EXPECT_EQ(FormatLocal(kSummer, "%c"), "Mon Jul 15 12:00:00 2024") << name;
    Set(name, nullptr);
  }
}

// Only where these locales were generated.
TEST_F(TimeEnvironment, FormatsOfInstalledLocales) {
  if (!Installed("de_DE.UTF-8") || !Installed("ja_JP.UTF-8")) GTEST_SKIP() << "not installed";
  Set("LC_TIME", "de_DE.UTF-8");
  EXPECT_EQ(GetUserLocaleDate(false, UserLocale), "dd.MM.yyyy");
  EXPECT_EQ(GetUserLocaleDate(true, UserLocale), "ddd dd MMM yyyy");
  EXPECT_EQ(FormatLocal(kSummer, "%x %B"), "15.07.2024 Juli");
  Set("LANG", "ja_JP.UTF-8");  // LC_TIME decides over LANG...
  EXPECT_EQ(GetUserLocaleTime(UserLocale), "HH:mm:ss");
  Set("LC_TIME", nullptr);
  EXPECT_EQ(GetUserLocaleTime(UserLocale), "HH時mm分ss秒");
  Set("LC_ALL", "C.UTF-8");  // ...and LC_ALL over both
  EXPECT_EQ(GetUserLocaleTime(UserLocale), "HH:mm:ss");
}

TEST_F(TimeEnvironment, NamesInAnotherCharacterSetComeOutInUtf8) {
  if (!Installed("de_DE.ISO-8859-1")) GTEST_SKIP() << "de_DE.ISO-8859-1 is not installed";
  Set("LC_TIME", "de_DE.ISO-8859-1");
  EXPECT_EQ(FormatLocal(kNewYorkSpringForward, "%B \u00bb%Y\u00ab"), "M\u00e4rz \u00bb2024\u00ab");
}

}  // namespace
