// Numbers typed into a number cell (any text, as text and as raw 32-bit
// units): TakeBackNumber agrees with a reading done on the digits as text,
// holds too large values at INT_MAX/INT_MIN and reads ASCII digits only.
#include <climits>
#include <cstdint>
#include <string>

#include "WideInput.h"
#include "utl/NumberTakeBack.h"

namespace {

bool IsBlank(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }
bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// The expected result, found by comparing the digits as a text with the
// limits' digits, so that no arithmetic is shared with the code checked.
int Expected(std::wstring const & text) {
  size_t i = 0;
  while (i < text.size() && IsBlank(text[i])) ++i;
  bool const negative = i < text.size() && text[i] == L'-';
  if (i < text.size() && (text[i] == L'-' || text[i] == L'+')) ++i;
  while (i < text.size() && text[i] == L'0') ++i;
  std::wstring digits;
  while (i < text.size() && IsDigit(text[i])) digits += text[i++];
  std::wstring const limit = negative ? L"2147483648" : L"2147483647";
  if (digits.size() > limit.size() || (digits.size() == limit.size() && digits >= limit))
    return negative ? INT_MIN : INT_MAX;
  long long value = 0;
  for (wchar_t const c : digits) value = value * 10 + (c - L'0');
  return static_cast<int>(negative ? -value : value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  auto const [text, raw] = WideInputs(data, size);
  for (std::wstring const * candidate : {&text, static_cast<std::wstring const *>(&raw)}) {
    // The text ends at its first NUL, as a C string does.
    std::wstring const asString(candidate->c_str());
    int const value = TakeBackNumber(candidate->c_str());
    if (value != Expected(asString)) __builtin_trap();
    if (IsSaturatedNumber(value) != (value == INT_MAX || value == INT_MIN)) __builtin_trap();
  }
  return 0;
}
