// Numbers in wide text, independent of the process locale: what ToString
// writes, ToInt and ToFloat read back.
#include <locale.h>

#include <charconv>
#include <climits>
#include <cwchar>
#include <string>
#include <vector>

#include "utl/VxString.h"

namespace VxString {

namespace {

bool IsBlank(wchar_t c) {
  return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\v' || c == L'\f';
}
bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// The text between surrounding blanks, as [first, last).
void TrimBlanks(wchar_t const *& first, wchar_t const *& last) {
  while (first < last && IsBlank(*first)) ++first;
  while (last > first && IsBlank(last[-1])) --last;
}

// The decimal float grammar: [sign] (digits [. digits] | . digits) [e [sign] digits].
// Returns the ASCII text for from_chars (without a '+', which it does not
// take), or an empty string if the text is no such number.
std::string FloatText(wchar_t const * first, wchar_t const * last) {
  std::string ascii;
  wchar_t const * at = first;
  if (at < last && (*at == L'+' || *at == L'-')) {
    if (*at == L'-') ascii += '-';
    ++at;
  }
  size_t mantissaDigits = 0;
  for (; at < last && IsDigit(*at); ++at, ++mantissaDigits) ascii += static_cast<char>(*at);
  if (at < last && *at == L'.') {
    ascii += '.';
    for (++at; at < last && IsDigit(*at); ++at, ++mantissaDigits) ascii += static_cast<char>(*at);
  }
  if (mantissaDigits == 0) return {};
  if (at < last && (*at == L'e' || *at == L'E')) {
    ascii += 'e';
    ++at;
    if (at < last && (*at == L'+' || *at == L'-')) ascii += static_cast<char>(*at++);
    size_t exponentDigits = 0;
    for (; at < last && IsDigit(*at); ++at, ++exponentDigits) ascii += static_cast<char>(*at);
    if (exponentDigits == 0) return {};
  }
  return at == last ? ascii : std::string();
}

struct Conversion {
  bool valid = false;
  size_t width = 0;
  size_t precision = 0;
  wchar_t conversion = L'\0';
};

// Whether `format` holds exactly one conversion out of `allowed`, with
// optional flags, width and precision and no '*', length modifier or
// positional argument, so that it can be handed to swprintf with one value.
Conversion CheckFormat(wchar_t const * format, wchar_t const * allowed) {
  Conversion result;
  if (format == nullptr) return result;
  int conversions = 0;
  auto const number = [](wchar_t const *& at, size_t & value) {
    int digits = 0;
    for (; IsDigit(*at); ++at) {
      if (++digits > 3) return false;
      value = value * 10 + static_cast<size_t>(*at - L'0');
    }
    return true;
  };
  for (wchar_t const * at = format; *at != L'\0'; ++at) {
    if (*at != L'%') continue;
    ++at;
    if (*at == L'%') continue;
    while (*at != L'\0' && std::wcschr(L"-+ #0", *at) != nullptr) ++at;
    if (!number(at, result.width)) return {};
    if (*at == L'.') {
      ++at;
      if (!number(at, result.precision)) return {};
    }
    if (*at == L'\0' || std::wcschr(allowed, *at) == nullptr) return {};
    result.conversion = *at;
    ++conversions;
  }
  result.valid = conversions == 1;
  return result;
}

// swprintf under the "C" locale of this thread, whatever the process has
// installed, so that the decimal point is always ".".
template <typename Value>
wxString Format(wchar_t const * format, size_t extra, Value value, wchar_t const * suffix) {
  static locale_t const cLocale = newlocale(LC_ALL_MASK, "C", locale_t());
  locale_t const previous = uselocale(cLocale != locale_t() ? cLocale : LC_GLOBAL_LOCALE);
  // Room for the literal text, padding, precision and the longest %f of a
  // double (309 integer digits); swprintf fails rather than cut.
  std::vector<wchar_t> buffer(std::wcslen(format) + extra + 400);
  int written = std::swprintf(buffer.data(), buffer.size(), format, value);
  uselocale(previous);
  wxString text;
  if (written > 0) text.assign(buffer.data(), static_cast<size_t>(written));
  if (suffix != nullptr) text += suffix;
  return text;
}

}  // namespace

bool ToInt(wchar_t const * text, int & value) {
  if (text == nullptr) return false;
  wchar_t const * first = text;
  wchar_t const * last = text + std::wcslen(text);
  TrimBlanks(first, last);
  bool const negative = first < last && *first == L'-';
  if (first < last && (*first == L'-' || *first == L'+')) ++first;
  if (first == last) return false;
  long long magnitude = 0;
  long long const limit = negative ? -static_cast<long long>(INT_MIN) : INT_MAX;
  for (wchar_t const * at = first; at < last; ++at) {
    if (!IsDigit(*at)) return false;
    magnitude = magnitude * 10 + (*at - L'0');
    if (magnitude > limit) return false;
  }
  value = static_cast<int>(negative ? -magnitude : magnitude);
  return true;
}

bool ToFloat(wchar_t const * text, float & value) {
  if (text == nullptr) return false;
  wchar_t const * first = text;
  wchar_t const * last = text + std::wcslen(text);
  TrimBlanks(first, last);
  std::string const ascii = FloatText(first, last);
  if (ascii.empty()) return false;
  float parsed = 0;
  // from_chars is locale-independent and reports both overflow and
  // underflow to zero as out of range.
  auto const [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), parsed);
  if (error != std::errc() || end != ascii.data() + ascii.size()) return false;
  value = parsed;
  return true;
}

wxString ToString(int value, wchar_t const * format, wchar_t const * suffix) {
  Conversion check = CheckFormat(format, L"dioxXu");
  if (!check.valid) format = L"%d", check = Conversion{true, 0, 0, L'd'};
  size_t const extra = check.width + check.precision;
  // o, u, x and X take an unsigned int: hand it one, with the same bits.
  if (check.conversion == L'd' || check.conversion == L'i') {
    return Format(format, extra, value, suffix);
  }
  return Format(format, extra, static_cast<unsigned>(value), suffix);
}

wxString ToString(double value, wchar_t const * format, wchar_t const * suffix) {
  Conversion check = CheckFormat(format, L"fFeEgGaA");
  if (!check.valid) format = L"%g", check = Conversion{true, 0, 0, L'g'};
  return Format(format, check.width + check.precision, value, suffix);
}

}  // namespace VxString
