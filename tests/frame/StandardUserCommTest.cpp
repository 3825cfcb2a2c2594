// The dialog channels: which dialog a text gets, the answers through the
// boxes and YesNoCancelAll, the usage count, the progress hidden around every
// dialog, messages switched off in the store, and the silent channel.
#include <gtest/gtest.h>

#include <functional>

#include <wx/checkbox.h>
#include <wx/utils.h>

#include "UserCommTestSupport.h"
#include "frame/InformUserSwitches.h"
#include "frame/MuteAskUserComm.h"
#include "frame/StandardUserComm.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"

namespace {

using gui_test::Click;

// Each text on both sides of its line limit: the dialog it gets and whether
// the channel counts it (the short yes/no box is not counted).
TEST_F(UserCommTest, TextsUpToTheirLineLimitAreBoxesAndLongerOnesScroll) {
  struct Case {
    char const * call;
    int lines;
    char const * kind;
    long icon;  // of the box; 0: the scrolling dialog
    int usage;
  } const cases[] = {
      {"question", 30, "message box", wxICON_WARNING, 0},
      {"question", 31, "YesNoDialog", 0, 1},
      {"fatal", 19, "message box", wxICON_ERROR, 1},
      {"fatal", 20, "FatalErrorDialog", 0, 1},
      {"information", 19, "message box", wxICON_INFORMATION, 1},
      {"information", 20, "FatalErrorDialog", 0, 1},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << c.call << " " << c.lines);
    StandardUserComm comm;
    RecordingDialogScript script(progressDialog);
    script.Answer(c.call == std::string("question") ? wxID_YES : wxID_OK);
    if (c.call == std::string("question"))
      comm.AskUserYesNo(Msg(Lines(c.lines)), Msg("Caption"), UserCommYes);
    else if (c.call == std::string("fatal"))
      comm.FatalError(Msg(Lines(c.lines)), Msg("Caption"));
    else
      comm.InformUser(Msg(Lines(c.lines)), Msg("Caption"), 0);
    ASSERT_EQ(script.Seen().size(), 1u);
    SeenDialog const & seen = script.Seen()[0];
    EXPECT_EQ(seen.kind, c.kind);
    EXPECT_EQ(seen.title, "Caption");
    EXPECT_EQ(comm.GetUsage(), c.usage);
    if (c.icon != 0) {
      EXPECT_EQ(seen.style & wxICON_MASK, c.icon);
    } else {
      // Whole, with the line ends of the scrolling control.
      EXPECT_EQ(seen.text.Freq('\r'), static_cast<size_t>(c.lines - 1));
      if (seen.kind == "FatalErrorDialog") {
        EXPECT_EQ(seen.iconShown, c.call == std::string("fatal"));
      }
    }
  }
}

TEST_F(UserCommTest, TheShortQuestionIsAYesNoWarningWhoseDefaultIsNoUnlessTheAnswerIsYes) {
  struct Case {
    int defaultAnswer;
    int pressed;
    int answer;
  } const cases[] = {
      {UserCommYes, wxID_NO, UserCommNo},
      {UserCommNo, wxID_YES, UserCommYes},
      {UserCommYesToAll, wxID_NO, UserCommNo},
      {UserCommNone, wxID_CANCEL, UserCommNo},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.defaultAnswer);
    StandardUserComm comm;
    RecordingDialogScript script(progressDialog);
    script.Answer(c.pressed);
    EXPECT_EQ(comm.AskUserYesNo(Msg("Overwrite?"), Msg(""), c.defaultAnswer), c.answer);
    SeenDialog const & seen = script.Seen().at(0);
    EXPECT_EQ(seen.style & (wxYES_NO | wxCANCEL | wxOK), wxYES_NO);
    EXPECT_EQ((seen.style & wxNO_DEFAULT) != 0, c.defaultAnswer != UserCommYes);
    EXPECT_EQ(seen.title, kAppName);  // an empty caption names the application
    EXPECT_EQ(seen.text, "Overwrite?");
  }
}

using Question = int (StandardUserComm::*)(UserCommMessage const &, UserCommMessage const &,
                                           UserCommMessage const &, int);

// The answers and buttons map both ways without a display and the dialog's
// buttons have their own tests: here each question's buttons, and that the
// default and the pressed button go through the mapping.
TEST_F(UserCommTest, EachQuestionShowsItsButtonsAndAnswersWithTheOnePressed) {
  struct Case {
    char const * name;
    Question ask;
    std::set<int> buttons;
    int pressed;  // 0: the close box, with no default button
    int answer;
  } const cases[] = {
      {"all five",
       &StandardUserComm::AskUserYesYesToAllNoNoToAllCancel,
       {13095, 13096, 13092, 13093, 2},
       13093,
       UserCommNoToAll},
      {"yes, yes to all, cancel",
       &StandardUserComm::AskUserYesYesToAllCancel,
       {13095, 13096, 2},
       13096,
       UserCommYesToAll},
      {"yes, cancel", &StandardUserComm::AskUserYesCancel, {13095, 2}, 0, UserCommCancel},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    StandardUserComm comm;
    RecordingDialogScript script(progressDialog);
    script.Act([&](wxDialog & d) {
      if (c.pressed == 0)
        d.Close();
      else
        Click(d, c.pressed);
    });
    int const defaultAnswer = c.pressed == 0 ? UserCommNone : c.answer;
    EXPECT_EQ((comm.*c.ask)(Msg("Header"), Msg("a\nb"), Msg("Caption"), defaultAnswer), c.answer);
    SeenDialog const & seen = script.Seen().at(0);
    EXPECT_EQ(seen.kind, "YesNoCancelAll");
    EXPECT_EQ(seen.buttons, c.buttons);
    EXPECT_EQ(seen.defaultButton, c.pressed);
    EXPECT_EQ(seen.text, "a\r\nb");
    EXPECT_EQ(comm.GetUsage(), 1);
  }
}

TEST_F(UserCommTest, TheProgressIsHiddenWhileEveryDialogIsUpAndShownAfterIt) {
  StandardUserComm standard;
  MuteAskUserComm muteAsk;
  struct Case {
    char const * name;
    std::function<void()> call;
  } const cases[] = {
      {"short yes/no", [&] { standard.AskUserYesNo(Msg("Q"), Msg(""), 1); }},
      {"long yes/no", [&] { standard.AskUserYesNo(Msg("H"), Msg("Q"), Msg(""), 1); }},
      {"all five",
       [&] { standard.AskUserYesYesToAllNoNoToAllCancel(Msg(""), Msg("Q"), Msg(""), 1); }},
      {"fatal box", [&] { standard.FatalError(Msg("F"), Msg("")); }},
      {"fatal dialog", [&] { standard.FatalError(Msg(Lines(25)), Msg("")); }},
      {"information", [&] { standard.InformUser(Msg("I"), Msg(""), 0); }},
      {"silent channel's fatal", [&] { muteAsk.FatalError(Msg(Lines(25)), Msg("")); }},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    progressDialog.messages.clear();
    RecordingDialogScript script(progressDialog);
    script.Answer(wxID_OK);
    c.call();
    ASSERT_EQ(script.Seen().size(), 1u);
    EXPECT_TRUE(script.Seen()[0].progressHidden);
    EXPECT_TRUE(ProgressShownAgain());
  }
  EXPECT_EQ(standard.GetUsage(), 5) << "all but the short yes/no box count";
  standard.ResetUsage();
  EXPECT_EQ(standard.GetUsage(), 0);
}

TEST_F(UserCommTest, EmptyTextsShowNothingAndLeaveTheProgressAloneButCount) {
  StandardUserComm standard;
  MuteAskUserComm muteAsk;
  RecordingDialogScript script(progressDialog);  // any dialog fails the test
  standard.FatalError(Msg(""), Msg("Caption"));
  standard.InformUser(UserCommMessage(), Msg("Caption"), 0);
  standard.InformUser(Msg(""), Msg("Caption"), 12);
  muteAsk.FatalError(UserCommMessage(), UserCommMessage());
  EXPECT_TRUE(script.Seen().empty());
  EXPECT_FALSE(ProgressTouched());
  EXPECT_EQ(standard.GetUsage(), 3);
}

TEST_F(UserCommTest, TheSilentChannelAnswersQuestionsUnseenButShowsFatalErrors) {
  MuteAskUserComm comm;
  RecordingDialogScript script(progressDialog);
  EXPECT_EQ(comm.AskUserYesNo(Msg(Lines(40)), Msg(""), UserCommYes), UserCommYes);
  EXPECT_EQ(comm.AskUserYesCancel(Msg(""), Msg("Q"), Msg(""), UserCommNo), UserCommCancel);
  comm.InformUser(Msg("Done."), Msg(""), 0);
  EXPECT_TRUE(script.Seen().empty());
  script.Answer(wxID_OK);
  comm.FatalError(Msg(Lines(20)), Msg("Stopped"));
  ASSERT_EQ(script.Seen().size(), 1u);
  EXPECT_EQ(script.Seen()[0].kind, "FatalErrorDialog");
  EXPECT_TRUE(script.Seen()[0].iconShown);
}

constexpr int kDontShowAgainBox = CustomMessageBoxDlg::kCheckBoxId;

TEST_F(UserCommTest, AMessageWithAnIdCanBeSwitchedOffForGood) {
  StandardUserComm comm;
  RecordingDialogScript script(progressDialog);
  auto answer = [](bool tick) {
    return [tick](wxDialog & d) {
      auto * box = wxDynamicCast(d.FindWindow(kDontShowAgainBox), wxCheckBox);
      ASSERT_NE(box, nullptr);
      EXPECT_TRUE(box->IsShown());
      EXPECT_FALSE(box->GetValue());
      box->SetValue(tick);
      Click(d, IDOK);
    };
  };
  script.Act(answer(false)).Act(answer(true));
  // The caption is not used on this road, nor the line limit.
  comm.InformUser(Msg(Lines(25)), Msg("Unused caption"), 31);
  EXPECT_FALSE(InformUserSwitches().IsSwitchedOff(31));
  comm.InformUser(Msg(Lines(25)), Msg("Unused caption"), 31);
  EXPECT_TRUE(InformUserSwitches().IsSwitchedOff(31));
  ASSERT_EQ(script.Seen().size(), 2u);
  for (SeenDialog const & seen : script.Seen()) {
    EXPECT_EQ(seen.kind, "CustomMessageBoxDlg");
    EXPECT_EQ(seen.title, kAppName);
    EXPECT_TRUE(seen.progressHidden);
  }
  EXPECT_TRUE(script.Seen()[0].text.EndsWith("line 25"));

  comm.InformUser(Msg("switched off"), Msg(""), 31);  // nothing shown
  EXPECT_EQ(script.Seen().size(), 2u);
  EXPECT_EQ(comm.GetUsage(), 3);
}

TEST_F(UserCommTest, TheBusyCursorStaysWhileTheHourGlassIsOnAndAnExtraOffIsHarmless) {
  progress.reset();  // a progress shows the busy cursor of its own
  StandardUserComm comm;
  comm.HourGlassOn();
  comm.HourGlassOn();
  comm.HourGlassOff();
  EXPECT_TRUE(wxIsBusy());
  comm.HourGlassOff();
  EXPECT_FALSE(wxIsBusy());
  comm.HourGlassOff();
  EXPECT_EQ(comm.HourGlassDepth(), 0);
}

}  // namespace
