// Heap strings, splitting, and numbers that read back what they write.
#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

#include "utl/VxString.h"

namespace {

TEST(VxString, HeapStringsSurviveBeingBuiltFromThemselves) {
  wchar_t * s = nullptr;
  EXPECT_STREQ(VxString::ConcatStr(s, L"ab"), L"ab");  // a null target is empty
  EXPECT_STREQ(VxString::ConcatStr(s, s), L"abab");    // the value is the target
  EXPECT_STREQ(VxString::SetStr(s, s + 1), L"bab");    // the value lies inside the target
  EXPECT_EQ(VxString::SetStr(s, nullptr), nullptr);
  EXPECT_EQ(s, nullptr);
}

TEST(VxString, SplitStringTakesThePartBeforeTheFirstSeparator) {
  struct Case {
    wchar_t const *text, *head, *rest;
  } const cases[] = {{L"2,120,80", L"2", L"120,80"}, {L",x", L"", L"x"}, {L"abc", L"abc", L""}};
  for (Case const & c : cases) {
    wxString text(c.text);
    EXPECT_EQ(VxString::SplitString(text, L','), c.head) << c.text;
    EXPECT_EQ(text, c.rest) << c.text;
  }
}

TEST(VxString, ToIntReadsWholeDecimalNumbersOnly) {
  struct Case {
    wchar_t const * text;
    bool ok;
    int value;
  } const cases[] = {
      {L" \t-17 \n", true, -17},
      {L"+5", true, 5},
      {L"010", true, 10},
      {L"-2147483648", true, INT_MIN},
      {L"2147483648", false, 0},
      {L"", false, 0},
      {L"99999999999999999999", false, 0},
      {L"-", false, 0},
      {L"+-1", false, 0},
      {L"1 2", false, 0},
      {L"0x10", false, 0},
      {L"\u0661", false, 0},
      {L"\u00a012", false, 0},  // a no-break space is no blank
  };
  for (Case const & c : cases) {
    int value = 12345;
    EXPECT_EQ(VxString::ToInt(c.text, value), c.ok) << c.text;
    EXPECT_EQ(value, c.ok ? c.value : 12345) << c.text;
  }
  int value = 12345;
  EXPECT_FALSE(VxString::ToInt(nullptr, value));
}

TEST(VxString, ToFloatReadsDecimalNumbersWithinFloatRange) {
  struct Case {
    wchar_t const * text;
    bool ok;
    float value;
  } const cases[] = {
      {L" -2.5e3 ", true, -2500.0f},
      {L"+.5", true, 0.5f},
      {L"5.", true, 5.0f},
      {L"0e999999999", true, 0.0f},
      {L"1e-40", true, 1e-40f},  // a denormal is kept
      {L"3.4028236e38", false, 0},
      {L"1e-50", false, 0},
      {L"1,5", false, 0},
      {L"inf", false, 0},
      {L"0x1p3", false, 0},
      {L"1e", false, 0},
      {L"-.e1", false, 0},
      {L"1.5f", false, 0},
  };
  for (Case const & c : cases) {
    float value = -7.0f;
    EXPECT_EQ(VxString::ToFloat(c.text, value), c.ok) << c.text;
    EXPECT_EQ(value, c.ok ? c.value : -7.0f) << c.text;
  }
}

TEST(VxString, ToStringFormatsOneValueAndAppendsTheSuffix) {
  EXPECT_EQ(VxString::ToString(-42, L"%5d", L" mm"), L"  -42 mm");
  EXPECT_EQ(VxString::ToString(7, L"Count: %+.3i%%", nullptr), L"Count: +007%");
  EXPECT_EQ(VxString::ToString(3.14159, L"%.2f", L" \u00b0C"), L"3.14 \u00b0C");
  // The longest output the accepted formats allow fits.
  EXPECT_EQ(VxString::ToString(1e308, L"%999.999f", nullptr).length(), 309u + 1u + 999u);
}

TEST(VxString, ToStringReplacesFormatsThatDoNotFitTheValue) {
  for (wchar_t const * format : {L"", L"text", L"%s", L"%d %d", L"%*d", L"%ld", L"%1$d", L"%n",
                                 L"%", L"%1000d", L"%.1000d", L"%%"}) {
    EXPECT_EQ(VxString::ToString(42, format, L"!"), L"42!") << format;
    EXPECT_EQ(VxString::ToString(2.5, format, L"!"), L"2.5!") << format;
  }
  EXPECT_EQ(VxString::ToString(42, L"%g", nullptr), L"42");    // double format, int value
  EXPECT_EQ(VxString::ToString(2.5, L"%d", nullptr), L"2.5");  // and the other way round
}

// Whatever the process locale (a decimal comma where one is installed).
TEST(VxString, NumbersReadBackWhatToStringWrote) {
  std::string const previous = setlocale(LC_NUMERIC, nullptr);
  for (char const * comma : {"de_DE.UTF-8", "fr_FR.UTF-8", "ru_RU.UTF-8"}) {
    if (setlocale(LC_NUMERIC, comma) != nullptr) break;
  }
  for (float const value : {0.1f, -1.0f / 3.0f, FLT_MAX, 1e-40f}) {
    float parsed = 0;
    EXPECT_TRUE(VxString::ToFloat(VxString::ToString(value, L"%.9g", nullptr).wc_str(), parsed));
    EXPECT_EQ(parsed, value);
  }
  setlocale(LC_NUMERIC, previous.c_str());
}

}  // namespace
