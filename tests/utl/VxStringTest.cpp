// Heap strings, splitting, and numbers that read back what they write.
#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>
#include <memory>

#include "utl/VxString.h"

namespace {

struct HeapString {
  wchar_t * text = nullptr;
  ~HeapString() { delete[] text; }
};

TEST(VxString, EmptyIsOneSharedEmptyString) {
  EXPECT_TRUE(VxString::Empty().empty());
  EXPECT_EQ(&VxString::Empty(), &VxString::Empty());
}

TEST(VxString, DuplicatesAreIndependentCopies) {
  wchar_t source[] = L"abc";
  std::unique_ptr<wchar_t[]> const copy(VxString::vxstrdup(source));
  source[0] = L'x';
  EXPECT_STREQ(copy.get(), L"abc");
  EXPECT_EQ(VxString::vxstrdup(nullptr), nullptr);
}

TEST(VxString, SetStrReplacesEvenFromItsOwnText) {
  HeapString s;
  EXPECT_STREQ(VxString::SetStr(s.text, L"first"), L"first");
  EXPECT_STREQ(VxString::SetStr(s.text, s.text + 2), L"rst");  // value inside the target
  EXPECT_STREQ(s.text, L"rst");
  EXPECT_EQ(VxString::SetStr(s.text, nullptr), nullptr);
  EXPECT_EQ(s.text, nullptr);
}

TEST(VxString, ConcatStrAppendsAndReallocates) {
  HeapString s;
  EXPECT_STREQ(VxString::ConcatStr(s.text, L"ab"), L"ab");  // null target is empty
  EXPECT_STREQ(VxString::ConcatStr(s.text, nullptr), L"ab");
  EXPECT_STREQ(VxString::ConcatStr(s.text, L""), L"ab");
  EXPECT_STREQ(VxString::ConcatStr(s.text, s.text), L"abab");  // value is the target
  EXPECT_STREQ(VxString::ConcatStr(s.text, L"\U0001F600"), L"abab\U0001F600");
  EXPECT_EQ(std::wcslen(s.text), 5u);
}

TEST(VxString, SplitStringTakesThePartBeforeTheFirstSeparator) {
  struct Case {
    wchar_t const *text, *head, *rest;
  };
  Case const cases[] = {
      {L"2,120,80", L"2", L"120,80"}, {L",x", L"", L"x"}, {L"a,", L"a", L""},
      {L"abc", L"abc", L""},          {L"", L"", L""},    {L",,", L"", L","},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(wxString(c.text));
    wxString text(c.text);
    EXPECT_EQ(VxString::SplitString(text, L','), c.head);
    EXPECT_EQ(text, c.rest);
  }
}

TEST(VxString, SplitStringWalksAListOfFields) {
  wxString text = L"3;x;;\u00e9";
  std::vector<wxString> fields;
  while (!text.empty()) fields.push_back(VxString::SplitString(text, L';'));
  EXPECT_EQ(fields, (std::vector<wxString>{L"3", L"x", L"", L"\u00e9"}));
}

TEST(VxString, ToIntReadsWholeDecimalNumbersOnly) {
  struct Case {
    wchar_t const * text;
    bool ok;
    int value;
  };
  Case const cases[] = {
      {L"42", true, 42},
      {L" \t-17 \n", true, -17},
      {L"+5", true, 5},
      {L"010", true, 10},
      {L"2147483647", true, INT_MAX},
      {L"-2147483648", true, INT_MIN},
      {L"000000000000000000007", true, 7},
      {L"2147483648", false, 0},
      {L"-2147483649", false, 0},
      {L"99999999999999999999", false, 0},
      {L"", false, 0},
      {L"   ", false, 0},
      {L"-", false, 0},
      {L"+-1", false, 0},
      {L"12a", false, 0},
      {L"1 2", false, 0},
      {L"0x10", false, 0},
      {L"1.0", false, 0},
      {L"\u0661", false, 0},  // ARABIC-INDIC DIGIT ONE
      {L"\u00a012", false, 0},  // a no-break space is no blank
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(wxString(c.text));
    int value = 12345;
    EXPECT_EQ(VxString::ToInt(c.text, value), c.ok);
    EXPECT_EQ(value, c.ok ? c.value : 12345);
  }
  int value = 12345;
  EXPECT_FALSE(VxString::ToInt(nullptr, value));
  EXPECT_EQ(value, 12345);
}

TEST(VxString, ToFloatReadsDecimalNumbersWithinFloatRange) {
  struct Case {
    wchar_t const * text;
    bool ok;
    float value;
  };
  Case const cases[] = {
      {L"1.5", true, 1.5f},
      {L" -2.5e3 ", true, -2500.0f},
      {L"+.5", true, 0.5f},
      {L"5.", true, 5.0f},
      {L"1E2", true, 100.0f},
      {L"0e999999999", true, 0.0f},
      {L"3.4028235e38", true, FLT_MAX},
      {L"1e-40", true, 1e-40f},  // denormal, kept
      {L"3.4028236e38", false, 0},
      {L"1e-50", false, 0},
      {L"1,5", false, 0},
      {L"inf", false, 0},
      {L"nan", false, 0},
      {L"0x1p3", false, 0},
      {L"1e", false, 0},
      {L"e5", false, 0},
      {L".", false, 0},
      {L"-.e1", false, 0},
      {L"1.5f", false, 0},
      {L"1.5.", false, 0},
      {L"", false, 0},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(wxString(c.text));
    float value = -7.0f;
    EXPECT_EQ(VxString::ToFloat(c.text, value), c.ok);
    EXPECT_EQ(value, c.ok ? c.value : -7.0f);
  }
  float value = -7.0f;
  EXPECT_FALSE(VxString::ToFloat(nullptr, value));
  EXPECT_EQ(value, -7.0f);
}

TEST(VxString, ToStringFormatsOneValueAndAppendsTheSuffix) {
  EXPECT_EQ(VxString::ToString(42, L"%d", nullptr), L"42");
  EXPECT_EQ(VxString::ToString(-42, L"%5d", L" mm"), L"  -42 mm");
  EXPECT_EQ(VxString::ToString(255, L"%#06x", nullptr), L"0x00ff");
  EXPECT_EQ(VxString::ToString(-1, L"%X", nullptr), L"FFFFFFFF");
  EXPECT_EQ(VxString::ToString(7, L"Count: %+.3i%%", nullptr), L"Count: +007%");
  EXPECT_EQ(VxString::ToString(1.5, L"%g", nullptr), L"1.5");
  EXPECT_EQ(VxString::ToString(3.14159, L"%.2f", L" \u00b0C"), L"3.14 \u00b0C");
  EXPECT_EQ(VxString::ToString(1e-5, L"%e", nullptr), L"1.000000e-05");
  EXPECT_EQ(VxString::ToString(HUGE_VAL, L"%g", nullptr), L"inf");
  // The longest output the checked formats allow fits.
  EXPECT_EQ(VxString::ToString(1e308, L"%999.999f", nullptr).length(), 309u + 1u + 999u);
  EXPECT_EQ(VxString::ToString(-1e308, L"%-+999f", nullptr).length(), 999u);
}

TEST(VxString, ToStringReplacesFormatsThatDoNotFitTheValue) {
  wchar_t const * const formats[] = {nullptr, L"",    L"text",  L"%s",  L"%d %d", L"%*d",
                                     L"%.*d", L"%ld", L"%1$d",  L"%n",  L"%",     L"%5",
                                     L"%1000d", L"%.1000d", L"%c", L"%p", L"%%"};
  for (wchar_t const * format : formats) {
    SCOPED_TRACE(format != nullptr ? wxString(format) : wxString("null"));
    EXPECT_EQ(VxString::ToString(42, format, L"!"), L"42!");
    EXPECT_EQ(VxString::ToString(2.5, format, L"!"), L"2.5!");
  }
  EXPECT_EQ(VxString::ToString(42, L"%g", nullptr), L"42");    // double format, int value
  EXPECT_EQ(VxString::ToString(2.5, L"%d", nullptr), L"2.5");  // and the other way round
}

TEST(VxString, NumbersReadBackWhatToStringWrote) {
  for (float const value : {0.1f, -1.0f / 3.0f, FLT_MAX, FLT_MIN, 1e-40f, 123456789.0f}) {
    SCOPED_TRACE(value);
    float parsed = 0;
    ASSERT_TRUE(VxString::ToFloat(VxString::ToString(value, L"%.9g", nullptr).wc_str(), parsed));
    EXPECT_EQ(parsed, value);
  }
  for (int const value : {0, -1, INT_MAX, INT_MIN}) {
    int parsed = 1;
    ASSERT_TRUE(VxString::ToInt(VxString::ToString(value, L"%d", nullptr).wc_str(), parsed));
    EXPECT_EQ(parsed, value);
  }
}

// A process that installs a locale with a decimal comma still writes and
// reads ".".
TEST(VxString, NumbersIgnoreTheProcessLocale) {
  char const * const commaLocales[] = {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "ru_RU.UTF-8"};
  std::string const previous = setlocale(LC_NUMERIC, nullptr);
  char const * installed = nullptr;
  for (char const * name : commaLocales) {
    if (setlocale(LC_NUMERIC, name) != nullptr) {
      installed = name;
      break;
    }
  }
  if (installed == nullptr) GTEST_SKIP() << "no locale with a decimal comma is installed";
  EXPECT_EQ(VxString::ToString(1.5, L"%g", nullptr), L"1.5");
  float value = 0;
  EXPECT_TRUE(VxString::ToFloat(L"1.5", value));
  EXPECT_EQ(value, 1.5f);
  EXPECT_FALSE(VxString::ToFloat(L"1,5", value));
  setlocale(LC_NUMERIC, previous.c_str());
}

}  // namespace
