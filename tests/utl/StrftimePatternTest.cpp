// strftime patterns of real locales into the applications' format language.
#include <gtest/gtest.h>

#include <random>

#include "FormatLanguageCheck.h"
#include "utl/StrftimePattern.h"

namespace {

using VxTimeUtl::FromStrftimePattern;
using VxTimeUtl::PatternPart;
using VxTimeUtl::StrftimeComposites;

constexpr PatternPart kAll = PatternPart::DateAndTime;
constexpr PatternPart kDate = PatternPart::Date;
constexpr PatternPart kTime = PatternPart::Time;

struct Case {
  char const * pattern;
  PatternPart part;
  char const * expected;
};

void ExpectConversions(std::initializer_list<Case> cases,
                       StrftimeComposites const & composites = StrftimeComposites()) {
  for (Case const & c : cases) {
    SCOPED_TRACE(std::string("pattern \"") + c.pattern + "\" part " +
                 std::to_string(static_cast<int>(c.part)));
    std::string const converted = FromStrftimePattern(c.pattern, c.part, composites);
    EXPECT_EQ(converted, c.expected);
    EXPECT_EQ(format_language::Problems(converted), "");
  }
}

// D_FMT, T_FMT, T_FMT_AMPM and D_T_FMT as glibc's locale sources give them.
TEST(StrftimePattern, ConvertsThePatternsOfRealLocales) {
  ExpectConversions({
      // C and POSIX
      {"%m/%d/%y", kDate, "MM/dd/yy"},
      {"%H:%M:%S", kTime, "HH:mm:ss"},
      {"%I:%M:%S %p", kTime, "hh:mm:ss tt"},
      {"%a %b %e %H:%M:%S %Y", kAll, "ddd MMM d HH:mm:ss yyyy"},
      {"%a %b %e %H:%M:%S %Y", kDate, "ddd MMM d yyyy"},
      {"%a %b %e %H:%M:%S %Y", kTime, "HH:mm:ss"},
      // en_US
      {"%m/%d/%Y", kDate, "MM/dd/yyyy"},
      {"%r", kTime, "hh:mm:ss tt"},
      {"%a %d %b %Y %r %Z", kAll, "ddd dd MMM yyyy hh:mm:ss tt"},
      {"%a %d %b %Y %r %Z", kDate, "ddd dd MMM yyyy"},
      // en_GB
      {"%d/%m/%y", kDate, "dd/MM/yy"},
      {"%l:%M:%S %P %Z", kTime, "h:mm:ss tt"},
      // de_DE, ru_RU, pl_PL
      {"%d.%m.%Y", kDate, "dd.MM.yyyy"},
      {"%T", kTime, "HH:mm:ss"},
      {"%a %d %b %Y %T %Z", kAll, "ddd dd MMM yyyy HH:mm:ss"},
      {"%a, %-d %b %Y, %T", kDate, "ddd, d MMM yyyy"},
      // ja_JP
      {"%Y年%m月%d日", kDate, "yyyy年MM月dd日"},
      {"%H時%M分%S秒", kTime, "HH時mm分ss秒"},
      {"%p%I時%M分%S秒", kTime, "tthh時mm分ss秒"},
      {"%Y年%m月%d日 %H時%M分%S秒", kDate, "yyyy年MM月dd日"},
      {"%Y年%m月%d日 %H時%M分%S秒", kTime, "HH時mm分ss秒"},
      // zh_CN
      {"%Y年%m月%d日 %A %H时%M分%S秒", kDate, "yyyy年MM月dd日 ddd"},
      {"%Y年%m月%d日 %A %H时%M分%S秒", kTime, "HH时mm分ss秒"},
      // fi_FI: the partitive ending "ta" is text in the pattern
      {"%a %e. %Bta %Y %H.%M.%S", kDate, "ddd d. MMM yyyy"},
      {"%H.%M.%S", kTime, "HH.mm.ss"},
      // hu_HU, it_IT, sv_SE, nl_NL
      {"%Y. %b. %-e., %A, %H:%M:%S %Z", kDate, "yyyy. MMM. d., ddd"},
      {"%Y. %b. %-e., %A, %H:%M:%S %Z", kTime, "HH:mm:ss"},
      {"%a %-d %b %Y, %T", kDate, "ddd d MMM yyyy"},
      {"%Y-%m-%d", kDate, "yyyy-MM-dd"},
      {"%a %e %b %Y %k:%M:%S %Z", kAll, "ddd d MMM yyyy H:mm:ss"},
      // fa_IR: alternative digits
      {"%Oy/%Om/%Od", kDate, "yy/MM/dd"},
      {"%OH:%OM:%OS", kTime, "HH:mm:ss"},
  });
}

TEST(StrftimePattern, ExpandsCompositesWithTheLocalesPatterns) {
  StrftimeComposites korean;  // ko_KR
  korean.date = "%Y년 %m월 %d일";
  korean.time = "%H시 %M분 %S초";
  korean.ampmTime = "%p %I시 %M분 %S초";
  korean.dateAndTime = "%x (%a) %r";
  ExpectConversions(
      {
          {"%x (%a) %r", kAll, "yyyy년 MM월 dd일 (ddd) tt hh시 mm분 ss초"},
          {"%x (%a) %r", kDate, "yyyy년 MM월 dd일 (ddd)"},
          {"%x (%a) %r", kTime, "tt hh시 mm분 ss초"},
          {"%c", kDate, "yyyy년 MM월 dd일 (ddd)"},
          {"%X", kTime, "HH시 mm분 ss초"},
      },
      korean);
  ExpectConversions({
      {"%D", kDate, "MM/dd/yy"},
      {"%F", kDate, "yyyy-MM-dd"},
      {"%R", kTime, "HH:mm"},
      {"%c", kAll, "ddd MMM d HH:mm:ss yyyy"},
      {"%x %X", kAll, "MM/dd/yy HH:mm:ss"},
  });
}

TEST(StrftimePattern, DropsWhatTheLanguageCannotSayWithItsSeparators) {
  ExpectConversions({
      {"%Z %H:%M", kAll, "HH:mm"},
      {"%H:%M %Z", kAll, "HH:mm"},
      {"%Y-%m-%d %z %H", kAll, "yyyy-MM-dd HH"},
      {"%d.%C.%Y", kAll, "dd.yyyy"},
      {"%d de %B de %Y", kAll, "dd MMM yyyy"},  // pt_BR long date: words go
      {"%Hh%M", kAll, "HHmm"},                   // fr_CA: "h" would be an item
      {"%Z (%a)", kAll, "(ddd)"},
      {"%j", kAll, ""},
      {"at noon", kAll, ""},
      {"年", kAll, ""},
      {"", kAll, ""},
      {"%Y-%", kAll, "yyyy"},                    // cut-off conversion
      {"%H%%", kAll, "HH%"},
      {"%Y%n%m", kAll, "yyyy MM"},
      {" %d ", kAll, "dd"},
      {"%Y\xff年", kAll, "yyyy年"},              // invalid UTF-8 skipped
      {"%H:%\u00e9%M", kAll, "HH:mm"},           // "%" before a character beyond ASCII
  });
  StrftimeComposites invalid;
  invalid.date = "%d\xec#\x9b%m";
  EXPECT_EQ(FromStrftimePattern("%x", kAll, invalid), "dd#MM");
}

TEST(StrftimePattern, KeepsItemsReadableAndEachGroupOnce) {
  ExpectConversions({
      // flags and widths
      {"%-d.%-m.%Y", kAll, "d.M.yyyy"},
      {"%_H:%M", kAll, "H:mm"},
      {"%0e %0k", kAll, "dd HH"},
      {"%-I:%M %p", kAll, "h:mm tt"},
      {"%10Y %^b %#p", kAll, "yyyy MMM tt"},
      {"%EY %Ey", kAll, "yyyy"},
      // items that would run together
      {"%a%d", kAll, "ddd dd"},
      {"%e%A", kAll, "d ddd"},
      {"%aT%d", kAll, "ddd dd"},
      // repeats and the twelve-hour marker
      {"%H:%M %I", kAll, "HH:mm"},
      {"%d.%m.%Y %d", kAll, "dd.MM.yyyy"},
      {"%p %p", kAll, "tt"},
      {"%I:%M", kAll, "hh:mm tt"},
      {"%l %p", kDate, ""},
  });
}

TEST(StrftimePattern, CompositesThatNameThemselvesEnd) {
  StrftimeComposites looping;
  looping.date = "%x%x %Y";
  looping.dateAndTime = "%c%c%c%c%c%c%c%c%c%c";
  EXPECT_EQ(FromStrftimePattern("%x", kAll, looping), "yyyy");
  EXPECT_EQ(FromStrftimePattern("%c %H", kAll, looping), "HH");
}

// Whatever the pattern, the result reads in the format language: known
// items, each group once, a twelve-hour clock with its marker, and only the
// part asked for.
TEST(StrftimePattern, AnyPatternGivesOnlyKnownItems) {
  char const * const pieces[] = {"%Y", "%y", "%m", "%-m", "%d", "%e", "%0e", "%b", "%B", "%a",
                                 "%H", "%k", "%I", "%l", "%-I", "%M", "%S", "%p", "%Z", "%z",
                                 "%j", "%c", "%x", "%X", "%r", "%D", "%T", "%%", "%", "%n",
                                 " ",  ".",  "/",  ":",  ",",  "年", "h",  "d",  "MM", "tt"};
  std::mt19937 random(20240611);
  std::uniform_int_distribution<size_t> pick(0, std::size(pieces) - 1);
  std::uniform_int_distribution<int> length(0, 12);
  for (int round = 0; round < 5000; ++round) {
    std::string pattern;
    for (int i = length(random); i > 0; --i) pattern += pieces[pick(random)];
    for (PatternPart part : {kAll, kDate, kTime}) {
      std::string const converted = FromStrftimePattern(pattern, part);
      SCOPED_TRACE("pattern \"" + pattern + "\" gives \"" + converted + "\"");
      ASSERT_EQ(format_language::Problems(converted), "");
      for (std::string const & item : format_language::Items(converted)) {
        if (part != kAll) {
          ASSERT_EQ(format_language::IsDateItem(item), part == kDate) << item;
        }
      }
    }
  }
}

}  // namespace
