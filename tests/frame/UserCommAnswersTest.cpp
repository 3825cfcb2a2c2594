// The display-free rules of the dialog channels: how answers meet the
// buttons of YesNoCancelAll both ways, how lines are counted, and the line
// ends of the scrolling texts.
#include <gtest/gtest.h>

#include <string>

#include "dialogs/ScrollingText.h"
#include "frame/UserCommAnswers.h"
#include "frame/UserCommBoxes.h"
#include "utl/UserComm.h"

namespace {

using Button = YesNoCancelAll::ButtonPressed;

TEST(UserCommAnswers, EachDefaultAnswerFocusesItsButtonAndEachButtonGivesItsAnswer) {
  struct Case {
    int answer;
    Button button;
  };
  Case const cases[] = {
      {UserCommNone, YesNoCancelAll::None},         {UserCommYes, YesNoCancelAll::Yes},
      {UserCommYesToAll, YesNoCancelAll::YesToAll}, {UserCommNo, YesNoCancelAll::No},
      {UserCommNoToAll, YesNoCancelAll::NoToAll},   {UserCommCancel, YesNoCancelAll::Cancel}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.answer);
    EXPECT_EQ(user_comm::DefaultButtonFor(c.answer), c.button);
    if (c.button != YesNoCancelAll::None) {  // the way back
      EXPECT_EQ(user_comm::AnswerFor(c.button), c.answer);
    }
  }
  for (int outside : {-1, 6, 1000})
    EXPECT_EQ(user_comm::DefaultButtonFor(outside), YesNoCancelAll::None);
  EXPECT_EQ(user_comm::AnswerFor(YesNoCancelAll::None), UserCommCancel);
  EXPECT_EQ(user_comm::AnswerFor(static_cast<Button>(17)), UserCommCancel);
}

TEST(UserCommAnswers, LinesAreTheLineFeedsPlusOne) {
  struct Case {
    char const * text;
    int lines;
  };
  Case const cases[] = {{"", 1},       {"one line", 1}, {"a\nb", 2},
                        {"ends\n", 2}, {"\n\n\n", 4},   {"a\r\nb", 2}};
  for (Case const & c : cases) EXPECT_EQ(user_comm::CountLines(c.text), c.lines) << c.text;
}

TEST(ScrollingText, LineFeedsBecomeCrLfOnceAndNullIsEmpty) {
  struct Case {
    wchar_t const * text;
    wchar_t const * shown;
  };
  Case const cases[] = {{L"", L""},
                        {L"a\nb", L"a\r\nb"},
                        {L"a\r\nb", L"a\r\nb"},
                        {L"\n\n", L"\r\n\r\n"},
                        {L"\r\r\n\n", L"\r\r\n\r\n"},
                        {L"lone \r stays", L"lone \r stays"}};
  for (Case const & c : cases) EXPECT_EQ(WithCrLfLineEnds(c.text), wxString(c.shown));
  EXPECT_EQ(WithCrLfLineEnds(nullptr), wxString());
  std::wstring many;
  for (int i = 0; i < 10000; ++i) many += L"x\n";
  EXPECT_EQ(WithCrLfLineEnds(many.c_str()).length(), 30000u);
}

}  // namespace
