// strftime patterns of real locales into the applications' format language.
#include <gtest/gtest.h>

#include "FormatLanguageCheck.h"
#include "utl/StrftimePattern.h"

namespace {

using VxTimeUtl::FromStrftimePattern;
using VxTimeUtl::StrftimeComposites;
constexpr auto kAll = VxTimeUtl::PatternPart::DateAndTime;
constexpr auto kDate = VxTimeUtl::PatternPart::Date;
constexpr auto kTime = VxTimeUtl::PatternPart::Time;

struct Case {
  char const * pattern;
  VxTimeUtl::PatternPart part;
  char const * expected;
};

void ExpectConversions(std::initializer_list<Case> cases,
                       StrftimeComposites const & composites = StrftimeComposites()) {
  for (Case const & c : cases) {
    std::string const converted = FromStrftimePattern(c.pattern, c.part, composites);
    EXPECT_EQ(converted, c.expected) << c.pattern << " part " << static_cast<int>(c.part);
    EXPECT_EQ(format_language::Problems(converted), "") << c.pattern;
  }
}

// D_FMT, T_FMT, T_FMT_AMPM and D_T_FMT as glibc's locale sources give them.
TEST(StrftimePattern, ConvertsThePatternsOfRealLocales) {
  ExpectConversions({
      {"%m/%d/%y", kDate, "MM/dd/yy"},
      {"%I:%M:%S %p", kTime, "hh:mm:ss tt"},  // C
      {"%a %b %e %H:%M:%S %Y", kDate, "ddd MMM d yyyy"},
      {"%a %b %e %H:%M:%S %Y", kTime, "HH:mm:ss"},
      {"%a %d %b %Y %r %Z", kAll, "ddd dd MMM yyyy hh:mm:ss tt"},
      {"%l:%M:%S %P %Z", kTime, "h:mm:ss tt"},          // en_GB
      {"%a, %-d %b %Y, %T", kDate, "ddd, d MMM yyyy"},  // pl_PL
      {"%Y年%m月%d日", kDate, "yyyy年MM月dd日"},
      {"%p%I時%M分%S秒", kTime, "tthh時mm分ss秒"},
      {"%Y年%m月%d日 %H時%M分%S秒", kDate, "yyyy年MM月dd日"},          // ja_JP
      {"%Y年%m月%d日 %A %H时%M分%S秒", kDate, "yyyy年MM月dd日 ddd"},   // zh_CN
      {"%a %e. %Bta %Y %H.%M.%S", kDate, "ddd d. MMM yyyy"},           // fi_FI: "ta" is text
      {"%Y. %b. %-e., %A, %H:%M:%S %Z", kDate, "yyyy. MMM. d., ddd"},  // hu_HU
      {"%a %e %b %Y %k:%M:%S %Z", kAll, "ddd d MMM yyyy H:mm:ss"},     // nl_NL
      {"%Oy/%Om/%Od", kDate, "yy/MM/dd"},                              // fa_IR
  });
  StrftimeComposites korean;  // ko_KR: the composites are the locale's
  korean.date = "%Y년 %m월 %d일";
  korean.ampmTime = "%p %I시 %M분 %S초";
  korean.dateAndTime = "%x (%a) %r";
  ExpectConversions({{"%c", kAll, "yyyy년 MM월 dd일 (ddd) tt hh시 mm분 ss초"},
                     {"%c", kTime, "tt hh시 mm분 ss초"}},
                    korean);
}

TEST(StrftimePattern, DropsWhatTheLanguageCannotSayWithItsSeparators) {
  ExpectConversions({
      {"%D %R", kAll, "MM/dd/yy HH:mm"},
      {"%F", kAll, "yyyy-MM-dd"},
      {"%Z %H:%M", kAll, "HH:mm"},
      {"%Y-%m-%d %z %H", kAll, "yyyy-MM-dd HH"},
      {"%d.%C.%Y", kAll, "dd.yyyy"},
      {"%d de %B de %Y", kAll, "dd MMM yyyy"},
      {"%Z (%a)", kAll, "(ddd)"},
      {"%j at 年", kAll, ""},
      {"%Y-%", kAll, "yyyy"},
      {"%H%%", kAll, "HH%"},
      {"%Y%n%m", kAll, "yyyy MM"},
      {"%Y\xff年", kAll, "yyyy年"},
      {"%H:%\u00e9%M", kAll, "HH:mm"},
      // flags, widths, modifiers
      {"%-d.%-m.%Y", kAll, "d.M.yyyy"},
      {"%_H %0e %0k", kAll, "H dd"},
      {"%10Y %^b %#p %-I", kAll, "yyyy MMM tt h"},
      // items that would run together, repeats, the twelve-hour marker
      {"%a%d", kAll, "ddd dd"},
      {"%H:%M %I", kAll, "HH:mm"},
      {"%EY %Ey", kAll, "yyyy"},
      {"%I:%M", kAll, "hh:mm tt"},
      {"%l %p", kDate, ""},
  });
  StrftimeComposites odd;
  odd.date = "%x%x %d\xec#\x9b%m";  // names itself, invalid UTF-8
  odd.dateAndTime = "%c%c%c%c%c%c%c%c%c%c";
  EXPECT_EQ(FromStrftimePattern("%x", kAll, odd), "dd#MM");
  EXPECT_EQ(FromStrftimePattern("%c %H", kAll, odd), "HH");
}

}  // namespace
