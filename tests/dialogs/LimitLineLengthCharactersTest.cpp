// The character wrap needs no display: every line within the limit but for
// single pieces too long for any line, the text unchanged but for inserted
// line feeds, no cluster cut.
#include <gtest/gtest.h>

#include "WrapChecks.h"
#include "dialogs/LimitLineLength.h"

namespace {

using namespace wrap_checks;

TEST(LimitLineLength, ByCharactersKeepsEveryLineWithinTheLimit) {
  for (Case const & c : Cases())
    ExpectWrapped(c, LimitLineLength::ByCharacters(c.text, c.limit), c.limit, Clusters);
}

TEST(LimitLineLength, ByCharactersBreaksWhereExpected) {
  struct Expected {
    std::wstring text;
    size_t limit;
    std::wstring wrapped;
  };
  Expected const cases[] = {{L"aaa bbb ccc", 7, L"aaa \nbbb ccc"},
                            {L"one two\nthree four", 9, L"one two\nthree \nfour"},
                            // A piece longer than a line is never split: it stands on a line of
                            // its own, and one that starts a line is followed by a line feed.
                            {L"ab abcdefghij cd", 4, L"ab \nabcdefghij \ncd"},
                            {L"abcdefgh ij", 3, L"abcdefgh \nij"},
                            // A surrogate pair and a combining sequence count as one character.
                            {Repeat(L"\U0001F600", 140), 140, Repeat(L"\U0001F600", 140)},
                            {Repeat(L"o\u0308", 140), 140, Repeat(L"o\u0308", 140)},
                            {L"", 5, L""}};
  for (Expected const & c : cases)
    EXPECT_EQ(LimitLineLength::ByCharacters(c.text, c.limit), c.wrapped) << c.limit;
}

}  // namespace
