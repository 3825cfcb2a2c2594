// Conversions skip invalid sequences without swallowing the text after them.
#include <gtest/gtest.h>

#include "utl/Utf.h"

namespace {

TEST(Utf, RoundTripsEveryPlane) {
  std::string const text = "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80z";  // a é € 😀 z
  std::wstring const wide = vx3::Utf8ToWide(text);
  EXPECT_EQ(wide, std::wstring(L"a\u00e9\u20ac\U0001F600z"));
  EXPECT_EQ(vx3::WideToUtf8(wide), text);
  EXPECT_EQ(vx3::Utf32ToUtf8(vx3::Utf8ToUtf32(text)), text);
}

TEST(Utf, InvalidSequencesAreSkippedAndTheRestKept) {
  struct Case {
    char const *input, *kept;
  } const cases[] = {
      {"<\xc3>", "<>"},            // lead byte without continuation
      {"x\xff\xfey", "xy"},        // bytes that never start a sequence
      {"\xc0\xaf/", "/"},          // overlong "/"
      {"\xed\xa0\x80!", "!"},      // UTF-16 surrogate
      {"\xf4\x90\x80\x80.", "."},  // beyond U+10FFFF
      {"\xe2\x82", ""},            // cut off at the end
      {"\x80\x80ok", "ok"},        // stray continuations
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.input);
    EXPECT_EQ(vx3::SanitizeUtf8(c.input), c.kept);
    EXPECT_EQ(vx3::WideToUtf8(vx3::Utf8ToWide(c.input)), c.kept);
  }
  // Surrogates, values beyond U+10FFFF and negative ones in wide text.
  std::wstring const wide{L'a', wchar_t(0xD800), wchar_t(0x110000), wchar_t(-1), L'b'};
  EXPECT_EQ(vx3::WideToUtf8(wide), "ab");
}

}  // namespace
