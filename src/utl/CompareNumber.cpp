// Natural order: text compared without regard to case, digit runs by value.
//
// Each text is read as a sequence of tokens: a maximal run of ASCII digits
// (invalid bytes inside it are skipped like everywhere else), or one folded
// code point. Tokens compare in order; a number sits where a digit
// character would. Because the tokens of a text do not depend on the other
// text, and the tie-breaks (leading zeros, then bytes) are total, the order
// is a strict weak ordering, fit for std::sort.
//
// Lists sort with this, so the common case is tuned: ASCII text is walked
// with the terminating NUL of std::string as a sentinel (an embedded NUL is
// told from the end by the length), and the byte-identical prefix is
// skipped in one tight loop, digits included; only where the texts differ
// inside a number is the number read from its start.
#include <algorithm>

#include "utl/CaseFolding.h"
#include "utl/VxStdString.h"

namespace VxStdString {

namespace {

struct DigitRun {
  size_t end = 0;          // first byte after the run
  size_t significant = 0;  // byte where the digits after leading zeros start
  size_t digits = 0;       // how many digits there are after the leading zeros
  size_t zeros = 0;        // leading zeros
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
    } else {
      break;
    }
  }
  run.end = at;
  return run;
}

// The general comparison of two digit runs that start at `i` and `j`, with
// invalid bytes inside them skipped. Moves both positions past the runs.
int CompareDigitRunsSkippingInvalid(std::string_view a, size_t & i, std::string_view b, size_t & j,
                                    int & zeroTieBreak) {
  DigitRun const x = ScanDigitRun(a, i);
  DigitRun const y = ScanDigitRun(b, j);
  i = x.end;
  j = y.end;
  if (x.digits != y.digits) return x.digits < y.digits ? -1 : 1;
  size_t p = x.significant;
  size_t q = y.significant;
  for (size_t n = 0; n < x.digits; ++n, ++p, ++q) {
    while (!vx3::IsAsciiDigit(a[p])) ++p;
    while (!vx3::IsAsciiDigit(b[q])) ++q;
    if (a[p] != b[q]) return a[p] < b[q] ? -1 : 1;
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

class NaturalComparison {
public:
  NaturalComparison(std::string const & a, std::string const & b)
      : mA(a.c_str()), mB(b.c_str()), mEndA(mA + a.size()), mEndB(mB + b.size()) {}

  int Run() {
    char const * x = mA;
    char const * y = mB;
    for (;;) {
      char const * const floor = x;
      // Byte-identical ASCII, digits included: stops at a difference, at a
      // byte >= 0x80 and at NUL (the end, or a NUL inside the text).
      while (*x == *y && static_cast<signed char>(*x) > 0) ++x, ++y;

      if (x > floor && vx3::IsAsciiDigit(x[-1])) {
        // Inside a number whose first digits are the same on both sides.
        // With a significant digit among them the leading zeros are equal
        // and only the rest of the runs decides; otherwise the runs are
        // compared from their start.
        char const * start = x - 1;
        bool significant = *start != '0';
        while (start > floor && vx3::IsAsciiDigit(start[-1])) significant |= *--start != '0';
        char const * const startY = y - (x - start);
        int order;
        if (significant) {
          char const * const p = x;
          char const * const q = y;
          x = start;
          y = startY;
          order = CompareSignificantDigits(x, y, p, q, 0, 0);
        } else {
          x = start;
          y = startY;
          order = CompareDigitRuns(x, y);
        }
        if (order != 0) return order;
        continue;
      }

      bool const endA = x == mEndA;
      bool const endB = y == mEndB;
      if (endA && endB) return Finish();
      unsigned char const ca = *x;
      unsigned char const cb = *y;
      if (ca >= 0x80 || cb >= 0x80) {
        int const order = SlowStep(x, y);
        if (order != kUndecided) return order;
        continue;
      }
      if (endA || endB) return endA ? -1 : 1;
      if (vx3::IsAsciiDigit(ca) && vx3::IsAsciiDigit(cb)) {
        int const order = CompareDigitRuns(x, y);
        if (order != 0) return order;
        continue;
      }
      unsigned char const fa = vx3::FoldAscii(ca);
      unsigned char const fb = vx3::FoldAscii(cb);
      if (fa != fb) return fa < fb ? -1 : 1;
      if (ca != cb) mIdentical = false;
      ++x, ++y;
    }
  }

private:
  static constexpr int kUndecided = 2;

  // Compares the digit runs at `x` and `y` (both at a digit) and moves both
  // past them. Equal values note the first difference of leading zeros.
  __attribute__((always_inline)) int CompareDigitRuns(char const *& x, char const *& y) {
    char const * p = x;
    char const * q = y;
    while (*p == '0') ++p;
    while (*q == '0') ++q;
    return CompareSignificantDigits(x, y, p, q, p - x, q - y);
  }

  // The runs start at `x` and `y`; their significant digits from `p` and
  // `q` on are compared in one pass: the longer run is the greater, else
  // the first differing digit. Inlined so that the positions stay in
  // registers.
  __attribute__((always_inline)) int CompareSignificantDigits(char const *& x, char const *& y,
                                                              char const * p, char const * q,
                                                              size_t zerosX, size_t zerosY) {
    int firstDifference = 0;
    for (;; ++p, ++q) {
      bool const digitP = vx3::IsAsciiDigit(*p);
      bool const digitQ = vx3::IsAsciiDigit(*q);
      if (!digitP || !digitQ) {
        if (static_cast<unsigned char>(*p) >= 0x80 || static_cast<unsigned char>(*q) >= 0x80)
          break;  // maybe invalid bytes inside a run: the general reading below
        x = p;
        y = q;
        if (digitP != digitQ) return digitP ? 1 : -1;
        if (firstDifference != 0) return firstDifference;
        if (zerosX != zerosY) {
          mIdentical = false;
          if (mZeroTieBreak == 0) mZeroTieBreak = zerosX < zerosY ? -1 : 1;
        }
        return 0;
      }
      if (firstDifference == 0 && *p != *q) firstDifference = *p < *q ? -1 : 1;
    }
    mIdentical = false;
    size_t i = x - mA;
    size_t j = y - mB;
    int const order = CompareDigitRunsSkippingInvalid(TextA(), i, TextB(), j, mZeroTieBreak);
    x = mA + i;
    y = mB + j;
    return order;
  }

  // Tokens of any text until both sides stand on ASCII again (or the end).
  // Returns the order if it is decided, otherwise kUndecided with `x`, `y`
  // moved on.
  int SlowStep(char const *& x, char const *& y) {
    mIdentical = false;
    vx3::FoldedReader readerX(TextA());
    vx3::FoldedReader readerY(TextB());
    readerX.SetPosition(x - mA);
    readerY.SetPosition(y - mB);
    do {
      readerX.SkipInvalid();
      readerY.SkipInvalid();
      if (readerX.AtDigit() && readerY.AtDigit()) {
        char const * p = mA + readerX.Position();
        char const * q = mB + readerY.Position();
        int const order = CompareDigitRuns(p, q);
        if (order != 0) return order;
        readerX.SetPosition(p - mA);
        readerY.SetPosition(q - mB);
        continue;
      }
      char32_t const cx = readerX.Next();
      char32_t const cy = readerY.Next();
      int const order = CompareCodePoints(cx, cy);
      if (order != 0) return order;
      if (cx == vx3::FoldedReader::kEnd) return Finish();
    } while (readerX.HasPending() || readerY.HasPending() || !AtAsciiOrEnd(readerX) ||
             !AtAsciiOrEnd(readerY));
    x = mA + readerX.Position();
    y = mB + readerY.Position();
    return kUndecided;
  }

  static bool AtAsciiOrEnd(vx3::FoldedReader const & reader) {
    size_t const at = reader.Position();
    return at == reader.Text().size() || static_cast<unsigned char>(reader.Text()[at]) < 0x80;
  }

  // Equal as tokens: leading zeros, then bytes decide.
  int Finish() const {
    if (mZeroTieBreak != 0) return mZeroTieBreak;
    if (mIdentical && mEndA - mA == mEndB - mB) return 0;
    int const bytes = TextA().compare(TextB());
    return bytes < 0 ? -1 : bytes > 0 ? 1 : 0;
  }

  std::string_view TextA() const { return std::string_view(mA, mEndA - mA); }
  std::string_view TextB() const { return std::string_view(mB, mEndB - mB); }

  char const * const mA;
  char const * const mB;
  char const * const mEndA;
  char const * const mEndB;
  int mZeroTieBreak = 0;
  bool mIdentical = true;  // no byte read so far differs between the sides
};

}  // namespace

int CompareNumber(std::string const & first, std::string const & second, std::locale const &) {
  return NaturalComparison(first, second).Run();
}

}  // namespace VxStdString
