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
// skipped in one tight loop, digits and identical valid characters of any
// script included; only where the texts differ inside a number is the
// number read from its start.
#include <algorithm>
#include <cstring>

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
  // `identical`: no byte before the starting place differs between the sides.
  NaturalComparison(std::string const & a, std::string const & b, bool identical)
      : mA(a.c_str()),
        mB(b.c_str()),
        mEndA(mA + a.size()),
        mEndB(mB + b.size()),
        mIdentical(identical) {}

  // Compares from `x` and `y`, which stand after the same number of
  // byte-identical ASCII bytes from the starts (none: the starts).
  int Run(char const * x, char const * y) {
    // Where this pass of the loop began: digits before it are not re-read.
    for (char const * floor = mA;; floor = x) {
      // Byte-identical text, digits included: stops at a difference, at NUL
      // (the end, or a NUL inside the text) and at a byte >= 0x80 that does
      // not begin the same valid character on both sides. A valid character
      // is a token of its own that ends any number, so an identical one is
      // passed like an identical ASCII byte.
      for (;;) {
        while (*x == *y && static_cast<signed char>(*x) > 0) ++x, ++y;
        if (*x != *y || *x == '\0') break;
        size_t const length = IdenticalCharacterLength(x, y);
        if (length == 0) break;
        x += length, y += length;
      }

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
        // Through copies: the loop's own positions must not have their
        // address taken, or they would live in memory instead of registers.
        char const * slowX = x;
        char const * slowY = y;
        int const order = SlowStep(slowX, slowY);
        if (order != kUndecided) return order;
        x = slowX;
        y = slowY;
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

  // The length of the valid UTF-8 character at `x` (a byte >= 0x80) when
  // `y` starts with the same bytes; 0 otherwise. Two-byte characters, the
  // common ones of Latin scripts, are checked here in line.
  __attribute__((always_inline)) size_t IdenticalCharacterLength(char const * x,
                                                                 char const * y) const {
    auto const lead = static_cast<unsigned char>(*x);
    if (lead >= 0xC2 && lead < 0xE0) {
      auto const next = static_cast<unsigned char>(x[1]);
      return (next & 0xC0) == 0x80 && next == static_cast<unsigned char>(y[1]) ? 2 : 0;
    }
    size_t at = x - mA;
    if (vx3::DecodeUtf8(TextA(), at) == vx3::kInvalidCodePoint) return 0;
    size_t const length = at - (x - mA);
    if (static_cast<size_t>(mEndB - y) < length || std::memcmp(x, y, length) != 0) return 0;
    return length;
  }

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
    char const * generalX = x;  // copies, as for SlowStep in Run
    char const * generalY = y;
    int const order = CompareRunsWithInvalidBytes(generalX, generalY);
    x = generalX;
    y = generalY;
    return order;
  }

  // The general reading of two digit runs that may hold invalid bytes;
  // out of line for the same reason as SlowStep.
  __attribute__((noinline)) int CompareRunsWithInvalidBytes(char const *& x, char const *& y) {
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
  // moved on. Out of line, so that its readers do not weigh on the frame of
  // the common path.
  __attribute__((noinline)) int SlowStep(char const *& x, char const *& y) {
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
  bool mIdentical;  // no byte read so far differs between the sides
};

// The whole comparison, from where the quick one below stopped.
__attribute__((noinline)) int CompareFrom(std::string const & first, std::string const & second,
                                          char const * x, char const * y, bool identical) {
  return NaturalComparison(first, second, identical).Run(x, y);
}

}  // namespace

// Most comparisons of a sort are decided where the texts first differ: at
// a letter, or at a digit of two numbers that agree up to there. Those are
// answered from two pointers, with no state; anything else (a difference
// in case only, leading zeros, a byte >= 0x80, an end) goes on in the whole
// comparison from the same place.
int CompareNumber(std::string const & first, std::string const & second, std::locale const &) {
  char const * const start = first.c_str();
  char const * x = start;
  char const * y = second.c_str();
  // Letters that differ in case only are passed too ("Run 7", "run 12"):
  // they end any number on both sides alike, and only the final tie-break
  // needs to know of them. So are identical two-byte characters ("Müller"),
  // tokens of their own that end any number.
  bool identical = true;
  unsigned char ca, cb;
  for (;;) {
    while (*x == *y && static_cast<signed char>(*x) > 0) ++x, ++y;
    ca = static_cast<unsigned char>(*x);
    cb = static_cast<unsigned char>(*y);
    if (ca == cb && ca >= 0xC2 && ca < 0xE0) {
      auto const next = static_cast<unsigned char>(x[1]);
      if ((next & 0xC0) != 0x80 || next != static_cast<unsigned char>(y[1])) break;
      x += 2, y += 2;
      continue;
    }
    if (ca >= 0x80 || cb >= 0x80 || vx3::FoldAscii(ca) != vx3::FoldAscii(cb) || ca == cb) break;
    identical = false;
    ++x, ++y;
  }
  // Byte-identical up to the end of one text: the shorter is the lesser,
  // whatever the other holds on (more tokens, more digits of its number,
  // or only bytes that count in the final tie-break).
  if (identical) {
    bool const endA = ca == 0 && x == start + first.size();
    bool const endB = cb == 0 && y == second.c_str() + second.size();
    if (endA || endB) return endA && endB ? 0 : endA ? -1 : 1;
  }
  if (ca - 1u < 0x7Fu && cb - 1u < 0x7Fu) {  // both ASCII, neither NUL
    bool const digitA = vx3::IsAsciiDigit(ca);
    bool const digitB = vx3::IsAsciiDigit(cb);
    if (x == start || !vx3::IsAsciiDigit(x[-1])) {
      if (!digitA || !digitB) {
        // A number stands for its first digit, which no folded letter equals.
        unsigned char const fa = vx3::FoldAscii(ca);
        unsigned char const fb = vx3::FoldAscii(cb);
        if (fa != fb) return fa < fb ? -1 : 1;
        return CompareFrom(first, second, x, y, identical);
      }
      if (ca == '0' || cb == '0') return CompareFrom(first, second, x, y, identical);
    } else {
      // Inside numbers whose first digits agree: only with a significant
      // digit among those are the leading zeros known to be equal.
      char const * digit = x - 1;
      bool significant = *digit != '0';
      while (!significant && digit > start && vx3::IsAsciiDigit(digit[-1]))
        significant = *--digit != '0';
      // Only zeros so far: the leading zeros are equal when both numbers go on
      // with a significant digit here.
      if (!significant && (ca == '0' || cb == '0' || !digitA || !digitB))
        return CompareFrom(first, second, x, y, identical);
      // One number goes on, the other has ended at an ASCII byte.
      if (digitA != digitB) return digitA ? 1 : -1;
    }
    if (digitA && digitB) {
      // The longer number is the greater, else the digit that differs here.
      // An invalid byte may continue a number: the whole comparison reads it.
      char const * p = x + 1;
      char const * q = y + 1;
      while (vx3::IsAsciiDigit(*p)) ++p;
      while (vx3::IsAsciiDigit(*q)) ++q;
      if (static_cast<unsigned char>(*p) < 0x80 && static_cast<unsigned char>(*q) < 0x80) {
        if (p - x != q - y) return p - x < q - y ? -1 : 1;
        return ca < cb ? -1 : 1;
      }
    }
  }
  return CompareFrom(first, second, x, y, identical);
}

}  // namespace VxStdString
