#include "utl/NumberTakeBack.h"

#include <cstdint>

int TakeBackNumber(wchar_t const * text) {
  if (text == nullptr) return 0;
  wchar_t const * p = text;
  while (*p == L' ' || (*p >= L'\t' && *p <= L'\r')) ++p;
  bool const negative = *p == L'-';
  if (*p == L'-' || *p == L'+') ++p;
  // Magnitude up to one past INT_MAX's, so that INT_MIN is reached exactly;
  // past that the result is settled and the remaining digits do not matter.
  std::int64_t constexpr limit = std::int64_t(INT_MAX) + 1;
  std::int64_t magnitude = 0;
  for (; *p >= L'0' && *p <= L'9'; ++p) {
    magnitude = magnitude * 10 + (*p - L'0');
    if (magnitude >= limit) return negative ? INT_MIN : INT_MAX;
  }
  return static_cast<int>(negative ? -magnitude : magnitude);
}
