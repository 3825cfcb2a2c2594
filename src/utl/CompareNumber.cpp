// Natural order: text compared without regard to case, digit runs by value.
//
// Each text is read as a sequence of tokens: a maximal run of ASCII digits
// (invalid bytes inside it are skipped like everywhere else), or one folded
// code point. Tokens compare in order; a number sits where a digit
// character would. Because the tokens of a text do not depend on the other
// text, and the tie-breaks (leading zeros, then bytes) are total, the order
// is a strict weak ordering, fit for std::sort.
#include <cstring>

#include "utl/CaseFolding.h"
#include "utl/VxStdString.h"

namespace VxStdString {

namespace {

struct DigitRun {
  size_t end = 0;           // first byte after the run
  size_t significant = 0;   // byte where the digits after leading zeros start
  size_t digits = 0;        // how many digits there are after the leading zeros
  size_t zeros = 0;         // leading zeros
  bool hasInvalid = false;  // invalid bytes inside the run, to be skipped
};

DigitRun ScanDigitRun(std::string_view text, size_t at) {
  DigitRun run;
  run.significant = text.size();
  while (at < text.size()) {
    unsigned char const c = text[at];
    if (vx3::IsAsciiDigit(c)) {
      if (run.digits == 0 && c == '0') {
        ++run.zeros;
      } else {
        if (run.digits == 0) run.significant = at;
        ++run.digits;
      }
      ++at;
    } else if (c >= 0x80) {
      size_t probe = at;
      if (vx3::DecodeUtf8(text, probe) != vx3::kInvalidCodePoint) break;
      at = probe;
      run.hasInvalid = true;
    } else {
      break;
    }
  }
  run.end = at;
  return run;
}

// Digits of equal count, compared one by one past invalid bytes.
int CompareDigitsSkippingInvalid(std::string_view a, DigitRun const & x, std::string_view b,
                                 DigitRun const & y) {
  size_t i = x.significant;
  size_t j = y.significant;
  for (size_t n = 0; n < x.digits; ++n, ++i, ++j) {
    while (!vx3::IsAsciiDigit(a[i])) ++i;
    while (!vx3::IsAsciiDigit(b[j])) ++j;
    if (a[i] != b[j]) return a[i] < b[j] ? -1 : 1;
  }
  return 0;
}

// Compares the digit runs that start at `i` in `a` and `j` in `b` and moves
// both positions past them. Equal values note the first difference of
// leading zeros in `zeroTieBreak`.
int CompareDigitRuns(std::string_view a, size_t & i, std::string_view b, size_t & j,
                     int & zeroTieBreak) {
  DigitRun const x = ScanDigitRun(a, i);
  DigitRun const y = ScanDigitRun(b, j);
  i = x.end;
  j = y.end;
  if (x.digits != y.digits) return x.digits < y.digits ? -1 : 1;
  if (x.digits > 0) {
    int order;
    if (!x.hasInvalid && !y.hasInvalid) {
      order = std::memcmp(a.data() + x.significant, b.data() + y.significant, x.digits);
    } else {
      order = CompareDigitsSkippingInvalid(a, x, b, y);
    }
    if (order != 0) return order < 0 ? -1 : 1;
  }
  if (zeroTieBreak == 0 && x.zeros != y.zeros) zeroTieBreak = x.zeros < y.zeros ? -1 : 1;
  return 0;
}

// The token order on everything that is not two numbers: a number stands
// for its first digit, which no folded character equals.
int CompareCodePoints(char32_t x, char32_t y) {
  if (x == y) return 0;
  if (x == vx3::FoldedReader::kEnd) return -1;
  if (y == vx3::FoldedReader::kEnd) return 1;
  return x < y ? -1 : 1;
}

}  // namespace

int CompareNumber(std::string const & first, std::string const & second, std::locale const &) {
  std::string_view const a(first);
  std::string_view const b(second);
  vx3::FoldedReader x(a);
  vx3::FoldedReader y(b);
  int zeroTieBreak = 0;
  for (;;) {
    // ASCII on both sides: bytes, no decoding, no allocation.
    if (!x.HasPending() && !y.HasPending()) {
      size_t i = x.Position();
      size_t j = y.Position();
      while (i < a.size() && j < b.size()) {
        unsigned char const ca = a[i];
        unsigned char const cb = b[j];
        if ((ca | cb) >= 0x80) break;
        if (ca == cb && !vx3::IsAsciiDigit(ca)) {
          ++i, ++j;
          continue;
        }
        if (vx3::IsAsciiDigit(ca) && vx3::IsAsciiDigit(cb)) {
          int const order = CompareDigitRuns(a, i, b, j, zeroTieBreak);
          if (order != 0) return order;
          continue;
        }
        unsigned char const fa = vx3::FoldAscii(ca);
        unsigned char const fb = vx3::FoldAscii(cb);
        if (fa != fb) return fa < fb ? -1 : 1;
        ++i, ++j;
      }
      x.SetPosition(i);
      y.SetPosition(j);
    }
    // One token from each side, any text.
    x.SkipInvalid();
    y.SkipInvalid();
    if (x.AtDigit() && y.AtDigit()) {
      size_t i = x.Position();
      size_t j = y.Position();
      int const order = CompareDigitRuns(a, i, b, j, zeroTieBreak);
      if (order != 0) return order;
      x.SetPosition(i);
      y.SetPosition(j);
      continue;
    }
    char32_t const cx = x.Next();
    char32_t const cy = y.Next();
    int const order = CompareCodePoints(cx, cy);
    if (order != 0) return order;
    if (cx == vx3::FoldedReader::kEnd) break;
  }
  if (zeroTieBreak != 0) return zeroTieBreak;
  int const bytes = a.compare(b);
  return bytes < 0 ? -1 : bytes > 0 ? 1 : 0;
}

}  // namespace VxStdString
