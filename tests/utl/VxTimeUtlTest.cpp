// Local time in the user's locale and time zone, both taken from the
// environment that each test sets.
#include <gtest/gtest.h>

#include <locale.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <optional>

#include "FormatLanguageCheck.h"
#include "utl/VxTimeUtl.h"

namespace {

using VxTimeUtl::FormatLocal;
using VxTimeUtl::GetUtcOffsetAt;

constexpr int64_t kWinter2024 = 1705320000;  // 2024-01-15 12:00:00 UTC
constexpr int64_t kSummer2024 = 1721044800;  // 2024-07-15 12:00:00 UTC
constexpr int64_t kBerlinSpringForward2024 = 1711846800;  // 2024-03-31 01:00:00 UTC

// Sets the variables the functions read and puts the old ones back.
class TimeEnvironment : public testing::Test {
protected:
  void SetUp() override {
    for (char const * name : {"TZ", "LC_ALL", "LC_TIME", "LANG"}) {
      char const * value = std::getenv(name);
      mSaved[name] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    }
    Set("TZ", "UTC");
    Set("LC_ALL", nullptr);
    Set("LC_TIME", nullptr);
    Set("LANG", "C.UTF-8");
  }
  void TearDown() override {
    for (auto const & [name, value] : mSaved) Set(name.c_str(), value ? value->c_str() : nullptr);
    tzset();
  }
  static void Set(char const * name, char const * value) {
    if (value != nullptr) {
      setenv(name, value, 1);
    } else {
      unsetenv(name);
    }
  }
  static bool Installed(char const * locale) {
    locale_t const l = newlocale(LC_TIME_MASK, locale, locale_t());
    if (l != locale_t()) freelocale(l);
    return l != locale_t();
  }
  static bool HasZone(char const * zone) {
    return access((std::string("/usr/share/zoneinfo/") + zone).c_str(), R_OK) == 0;
  }

private:
  std::map<std::string, std::optional<std::string>> mSaved;
};

TEST_F(TimeEnvironment, FormatLocalUsesTheLocalZone) {
  struct Case {
    char const * zone;
    int64_t time;
    char const * format;
    char const * expected;
  };
  Case const cases[] = {
      {"UTC", 0, "%x %X", "01/01/70 00:00:00"},
      {"UTC", 1700000000, "%Y-%m-%d %H:%M:%S", "2023-11-14 22:13:20"},
      {"UTC", -1, "%F %T", "1969-12-31 23:59:59"},
      {"IST-5:30", 0, "%H:%M %z", "05:30 +0530"},
      {"EST5EDT,M3.2.0,M11.1.0", kWinter2024, "%H %Z", "07 EST"},
      {"EST5EDT,M3.2.0,M11.1.0", kSummer2024, "%H %Z", "08 EDT"},
      {"UTC", 0, "%Y年%m月", "1970年01月"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(std::string(c.zone) + " " + c.format);
    Set("TZ", c.zone);
    EXPECT_EQ(FormatLocal(c.time, c.format), c.expected);
  }
}

TEST_F(TimeEnvironment, FormatLocalFollowsTheZoneDatabase) {
  if (!HasZone("Europe/Berlin")) GTEST_SKIP() << "no time zone data for Europe/Berlin";
  Set("TZ", "Europe/Berlin");
  EXPECT_EQ(FormatLocal(kWinter2024, "%H:%M %Z"), "13:00 CET");
  EXPECT_EQ(FormatLocal(kSummer2024, "%H:%M %Z"), "14:00 CEST");
  EXPECT_EQ(GetUtcOffsetAt(kWinter2024), 3600);
  EXPECT_EQ(GetUtcOffsetAt(kSummer2024), 7200);
  EXPECT_EQ(GetUtcOffsetAt(kBerlinSpringForward2024 - 1), 3600);
  EXPECT_EQ(GetUtcOffsetAt(kBerlinSpringForward2024), 7200);
}

TEST_F(TimeEnvironment, FormatLocalGivesNothingForNothingAndHandlesLongResults) {
  EXPECT_EQ(FormatLocal(0, nullptr), "");
  EXPECT_EQ(FormatLocal(0, ""), "");
  EXPECT_EQ(FormatLocal(0, "%p"), "AM");
  // Longer than the first buffer: grown until it fits.
  std::string const padded = FormatLocal(0, "%5000Y");
  EXPECT_EQ(padded.size(), 5000u);
  EXPECT_EQ(padded.substr(4996), "1970");
  std::string many;
  for (int i = 0; i < 300; ++i) many += "%Y.";
  EXPECT_EQ(FormatLocal(0, many.c_str()).size(), 1500u);
  // Beyond any sensible size: refused, not truncated.
  EXPECT_EQ(FormatLocal(0, "%2000000Y"), "");
  // A year the calendar cannot hold.
  EXPECT_EQ(FormatLocal(INT64_MAX, "%Y"), "");
}

TEST_F(TimeEnvironment, UtcOffsetFollowsTheZoneAndItsRules) {
  Set("TZ", "IST-5:30");
  EXPECT_EQ(VxTimeUtl::GetUtcOffset(), 19800);
  Set("TZ", "UTC");
  EXPECT_EQ(VxTimeUtl::GetUtcOffset(), 0);
  Set("TZ", "EST5EDT,M3.2.0,M11.1.0");
  EXPECT_EQ(GetUtcOffsetAt(kWinter2024), -5 * 3600);
  EXPECT_EQ(GetUtcOffsetAt(kSummer2024), -4 * 3600);
  EXPECT_EQ(GetUtcOffsetAt(INT64_MAX), 0);
}

TEST_F(TimeEnvironment, InvariantFormatsIgnoreTheLocale) {
  for (char const * locale : {"C.UTF-8", "de_DE.UTF-8", "ja_JP.UTF-8"}) {
    SCOPED_TRACE(locale);
    Set("LC_ALL", locale);
    EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::InvariantLocale), "yyyy-MM-dd");
    EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(true, VxTimeUtl::InvariantLocale), "yyyy-MM-dd");
    EXPECT_EQ(VxTimeUtl::GetUserLocaleTime(VxTimeUtl::InvariantLocale), "HH:mm:ss");
  }
}

TEST_F(TimeEnvironment, UserFormatsOfTheCLocale) {
  EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::UserLocale), "MM/dd/yy");
  EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(true, VxTimeUtl::UserLocale), "ddd MMM d yyyy");
  EXPECT_EQ(VxTimeUtl::GetUserLocaleTime(VxTimeUtl::UserLocale), "HH:mm:ss");
}

TEST_F(TimeEnvironment, ALocaleThatIsNotInstalledFallsBackQuietly) {
  std::string const date = VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::UserLocale);
  std::string const time = VxTimeUtl::GetUserLocaleTime(VxTimeUtl::UserLocale);
  std::string const formatted = FormatLocal(kSummer2024, "%x %X");
  for (char const * name : {"LC_ALL", "LC_TIME", "LANG"}) {
    SCOPED_TRACE(name);
    Set(name, "xx_NOWHERE.UTF-8");
    EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::UserLocale), date);
    EXPECT_EQ(VxTimeUtl::GetUserLocaleTime(VxTimeUtl::UserLocale), time);
    EXPECT_EQ(FormatLocal(kSummer2024, "%x %X"), formatted);
    Set(name, nullptr);
  }
}

// The locales below exist only where they were generated.
TEST_F(TimeEnvironment, UserFormatsOfAnInstalledLocale) {
  if (!Installed("de_DE.UTF-8")) GTEST_SKIP() << "de_DE.UTF-8 is not installed";
  Set("LC_TIME", "de_DE.UTF-8");
  EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::UserLocale), "dd.MM.yyyy");
  EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(true, VxTimeUtl::UserLocale), "ddd dd MMM yyyy");
  EXPECT_EQ(VxTimeUtl::GetUserLocaleTime(VxTimeUtl::UserLocale), "HH:mm:ss");
  EXPECT_EQ(FormatLocal(kSummer2024, "%x %B"), "15.07.2024 Juli");
  Set("LC_ALL", "C.UTF-8");  // LC_ALL decides over LC_TIME
  EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::UserLocale), "MM/dd/yy");
}

TEST_F(TimeEnvironment, NamesOfALocaleInAnotherCharacterSetComeOutInUtf8) {
  if (!Installed("de_DE.ISO-8859-1")) GTEST_SKIP() << "de_DE.ISO-8859-1 is not installed";
  Set("LC_TIME", "de_DE.ISO-8859-1");
  EXPECT_EQ(FormatLocal(kBerlinSpringForward2024, "%B \u00bb%Y\u00ab"), "M\u00e4rz \u00bb2024\u00ab");
}

TEST_F(TimeEnvironment, UserFormatsOfAsianLocalesKeepTheirSeparators) {
  if (!Installed("ja_JP.UTF-8")) GTEST_SKIP() << "ja_JP.UTF-8 is not installed";
  Set("LC_TIME", "ja_JP.UTF-8");
  EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::UserLocale), "yyyy年MM月dd日");
  EXPECT_EQ(VxTimeUtl::GetUserLocaleDate(true, VxTimeUtl::UserLocale), "yyyy年MM月dd日");
  EXPECT_EQ(VxTimeUtl::GetUserLocaleTime(VxTimeUtl::UserLocale), "HH時mm分ss秒");
}

// Whatever the machine has installed, the formats proposed to the user read
// in the format language and have the parts they should.
TEST_F(TimeEnvironment, UserFormatsOfEveryInstalledLocaleAreUsable) {
  char const * const candidates[] = {
      "C.UTF-8",     "POSIX",       "en_US.UTF-8", "en_GB.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8",
      "fi_FI.UTF-8", "hu_HU.UTF-8", "ja_JP.UTF-8", "ko_KR.UTF-8", "zh_CN.UTF-8", "fa_IR.UTF-8",
      "ar_SA.UTF-8", "th_TH.UTF-8", "ru_RU.UTF-8", "pt_BR.UTF-8", "ja_JP.EUC-JP"};
  int tried = 0;
  for (char const * locale : candidates) {
    if (!Installed(locale)) continue;
    ++tried;
    Set("LC_TIME", locale);
    for (bool const longFormat : {false, true}) {
      std::string const date = VxTimeUtl::GetUserLocaleDate(longFormat, VxTimeUtl::UserLocale);
      SCOPED_TRACE(std::string(locale) + " date \"" + date + "\"");
      EXPECT_EQ(format_language::Problems(date), "");
      std::vector<std::string> const items = format_language::Items(date);
      EXPECT_FALSE(items.empty());
      for (std::string const & item : items) EXPECT_TRUE(format_language::IsDateItem(item));
    }
    std::string const time = VxTimeUtl::GetUserLocaleTime(VxTimeUtl::UserLocale);
    SCOPED_TRACE(std::string(locale) + " time \"" + time + "\"");
    EXPECT_EQ(format_language::Problems(time), "");
    for (std::string const & item : format_language::Items(time)) {
      EXPECT_FALSE(format_language::IsDateItem(item));
    }
  }
  EXPECT_GE(tried, 2);  // C.UTF-8 and POSIX are always there
}

}  // namespace
