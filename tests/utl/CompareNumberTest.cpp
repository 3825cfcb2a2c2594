// Natural order: numbers by value, text without regard to case, and an
// order that std::sort can rely on.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "utl/VxStdString.h"

namespace {

int Compare(std::string const & a, std::string const & b) {
  int const order = VxStdString::CompareNumber(a, b, std::locale());
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

TEST(CompareNumber, OrdersPairs) {
  std::string const huge(400, '9');
  struct Case {
    std::string a, b;
    int expected;
  } const cases[] = {
      {"Run 9", "Run 10", -1},
      {"run 10", "Run 9", 1},          // case ignored before the number decides
      {"x2y10", "x2y9", 1},            // later numbers compared too
      {"7", "07", -1},                 // equal value: fewer leading zeros first
      {"a07b", "a7c", -1},             // ...but only when the rest is equal
      {"1" + huge, huge, 1},           // no overflow on long runs
      {"000" + huge, huge + "0", -1},  // leading zeros do not count for length
      {"A1", "a1", -1},                // final tie-break by bytes
      {"", "0", -1},
      {"file5", "file!", 1},   // a number sorts like a digit: after "!"
      {"file5", "filea", -1},  // ...and before letters
      {"\xc3\xa9t\xc3\xa9 2", "\xc3\x89T\xc3\x89 10", -1},  // été 2 < ÉTÉ 10
      {"1\xff"
       "2",
       "9", 1},  // invalid byte inside a run: 12
      {"a\xff"
       "5",
       "a10", -1},       // invalid byte before a run
      {"x10", "x1", 1},  // one run goes on
      {"5\xff"
       "3",
       "54", -1},                                            // invalid byte after equal digits: 53
      {std::string("a\0b", 3), std::string("a\0c", 3), -1},  // NUL inside is a character
      // Where the quick comparison passes case twins, identical characters
      // and equal leading zeros, and where it stops at an end.
      {"Run b7", "run B12", -1},                    // case twins, then the numbers decide
      {"Run b", "run B", -1},                       // ...or, all equal, the bytes
      {"aB", "Ab\xff", 1},                          // an invalid tail adds no token: bytes
      {"M\xc3\xbcller 7", "M\xc3\xbcller 12", -1},  // identical ü ends no number wrongly
      {"\xc3\xa9"
       "5",
       "\xc3\xa9"
       "12",
       -1},
      {"Batch_00123", "Batch_00456", -1},  // equal zeros, then the digits
      {"Batch_00123", "Batch_0045", 1},    // equal zeros, then the length
      {"Batch_001", "Batch_0001", -1},     // one more zero: the tie-break
      {"Run 5", "Run 5", 0},
      {"Run 5", "Run 5 x", -1},
      {"a0", "a00", -1},  // the longer run has more zeros
      {"a1",
       "a1\xff"
       "0",
       -1},  // the run goes on past an invalid byte
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.a.substr(0, 20) + " / " + c.b.substr(0, 20));
    EXPECT_EQ(Compare(c.a, c.b), c.expected);
    EXPECT_EQ(Compare(c.b, c.a), -c.expected);
  }
}

// Pieces chosen to collide: equal values with different zeros, case twins,
// ß against ss, invalid bytes, digits meeting letters.
std::string RandomText(std::mt19937 & random) {
  static char const * const pieces[] = {"a",
                                        "A",
                                        "b",
                                        "0",
                                        "00",
                                        "1",
                                        "01",
                                        "9",
                                        "10",
                                        "ss",
                                        "\xc3\x9f",
                                        "\xc3\xa9",
                                        "\xc3\x89",
                                        " ",
                                        "!",
                                        "\xff",
                                        "\xc3",
                                        "z",
                                        "99999999999999999999"};
  std::uniform_int_distribution<int> length(0, 5);
  std::uniform_int_distribution<size_t> piece(0, std::size(pieces) - 1);
  std::string text;
  for (int n = length(random); n > 0; --n) text += pieces[piece(random)];
  return text;
}

TEST(CompareNumber, IsAStrictTotalOrderOnRandomTriples) {
  std::mt19937 random(20240611);
  for (int round = 0; round < 20000; ++round) {
    std::string const a = RandomText(random);
    std::string const b = RandomText(random);
    std::string const c = RandomText(random);
    int const ab = Compare(a, b);
    int const bc = Compare(b, c);
    int const ac = Compare(a, c);
    ASSERT_EQ(ab, -Compare(b, a)) << a << " / " << b;
    ASSERT_EQ(ab == 0, a == b) << a << " / " << b;
    if (ab <= 0 && bc <= 0) {
      ASSERT_LE(ac, 0) << a << " / " << b << " / " << c;
    }
    if (ab >= 0 && bc >= 0) {
      ASSERT_GE(ac, 0) << a << " / " << b << " / " << c;
    }
  }
}

}  // namespace
