// The dialog channels: which dialog a text of how many lines gets, the box
// types, the answers both ways through YesNoCancelAll, the usage count, the
// progress hidden around every dialog, messages switched off in the store,
// and the silent channel's fatal box.
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

TEST_F(UserCommTest, QuestionsUpToThirtyLinesAreMessageBoxesAndLongerOnesScroll) {
  struct Case {
    int lines;
    char const * kind;
    int usage;  // the message box is not counted, the dialog is
  };
  Case const cases[] = {{1, "message box", 0},
                        {30, "message box", 0},
                        {31, "YesNoDialog", 1},
                        {4000, "YesNoDialog", 1}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.lines);
    StandardUserComm comm;
    RecordingDialogScript script(progressDialog);
    script.Answer(wxID_YES);
    comm.AskUserYesNo(Msg(Lines(c.lines)), Msg("Caption"), UserCommYes);
    ASSERT_EQ(script.Seen().size(), 1u);
    EXPECT_EQ(script.Seen()[0].kind, c.kind);
    EXPECT_EQ(comm.GetUsage(), c.usage);
    if (c.kind == std::string("YesNoDialog")) {
      // Whole, with the line ends of the scrolling control.
      EXPECT_EQ(script.Seen()[0].text.Freq('\n'), static_cast<size_t>(c.lines - 1));
      EXPECT_EQ(script.Seen()[0].text.Freq('\r'), static_cast<size_t>(c.lines - 1));
    }
  }
}

TEST_F(UserCommTest, FatalErrorsAndInformationBelowTwentyLinesAreBoxesAndLongerOnesScroll) {
  struct Case {
    bool fatal;
    int lines;
    char const * kind;
    long icon;  // of the box
  };
  Case const cases[] = {
      {true, 1, "message box", wxICON_ERROR},
      {true, 19, "message box", wxICON_ERROR},
      {true, 20, "FatalErrorDialog", 0},
      {true, 5000, "FatalErrorDialog", 0},
      {false, 19, "message box", wxICON_INFORMATION},
      {false, 20, "FatalErrorDialog", 0},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << c.fatal << " " << c.lines);
    StandardUserComm comm;
    RecordingDialogScript script(progressDialog);
    script.Answer(wxID_OK);
    if (c.fatal)
      comm.FatalError(Msg(Lines(c.lines)), Msg("Caption"));
    else
      comm.InformUser(Msg(Lines(c.lines)), Msg("Caption"), 0);
    ASSERT_EQ(script.Seen().size(), 1u);
    SeenDialog const & seen = script.Seen()[0];
    EXPECT_EQ(seen.kind, c.kind);
    EXPECT_EQ(seen.title, "Caption");
    EXPECT_EQ(comm.GetUsage(), 1);
    if (c.icon != 0)
      EXPECT_EQ(seen.style & wxICON_MASK, c.icon);
    else
      EXPECT_EQ(seen.iconShown, c.fatal);  // information hides the fatal icon
  }
}

TEST_F(UserCommTest, TheShortQuestionIsAYesNoWarningWhoseDefaultIsNoUnlessTheAnswerIsYes) {
  struct Case {
    int defaultAnswer;
    int pressed;
    bool noIsDefault;
    int answer;
  };
  Case const cases[] = {
      {UserCommYes, wxID_YES, false, UserCommYes},
      {UserCommYes, wxID_NO, false, UserCommNo},
      {UserCommNo, wxID_YES, true, UserCommYes},
      {UserCommYesToAll, wxID_NO, true, UserCommNo},
      {UserCommNone, wxID_CANCEL, true, UserCommNo},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.defaultAnswer);
    StandardUserComm comm;
    RecordingDialogScript script(progressDialog);
    script.Answer(c.pressed);
    EXPECT_EQ(comm.AskUserYesNo(Msg("Overwrite?"), Msg(""), c.defaultAnswer), c.answer);
    SeenDialog const & seen = script.Seen().at(0);
    EXPECT_EQ(seen.style & (wxYES_NO | wxCANCEL | wxOK), wxYES_NO);
    EXPECT_EQ(seen.style & wxICON_MASK, wxICON_WARNING);
    EXPECT_EQ((seen.style & wxNO_DEFAULT) != 0, c.noIsDefault);
    EXPECT_EQ(seen.title, kAppName);  // an empty caption names the application
    EXPECT_EQ(seen.text, "Overwrite?");
  }
}

// The three questions with more answers, as one table.
using Question = int (StandardUserComm::*)(UserCommMessage const &, UserCommMessage const &,
                                           UserCommMessage const &, int);

struct QuestionKind {
  char const * name;
  Question ask;
  std::set<int> buttons;
};

QuestionKind const kQuestions[] = {
    {"all five", &StandardUserComm::AskUserYesYesToAllNoNoToAllCancel,
     {13095, 13096, 13092, 13093, 2}},
    {"yes, yes to all, cancel", &StandardUserComm::AskUserYesYesToAllCancel, {13095, 13096, 2}},
    {"yes, cancel", &StandardUserComm::AskUserYesCancel, {13095, 2}},
};

TEST_F(UserCommTest, EachQuestionShowsItsButtonsAndEachButtonGivesItsAnswer) {
  struct Press {
    int id;  // 0: the close box
    int answer;
  };
  Press const presses[] = {{13095, UserCommYes},     {13096, UserCommYesToAll},
                           {13092, UserCommNo},      {13093, UserCommNoToAll},
                           {2, UserCommCancel},      {0, UserCommCancel}};
  for (QuestionKind const & question : kQuestions) {
    for (Press const & press : presses) {
      if (press.id != 0 && question.buttons.count(press.id) == 0) continue;
      SCOPED_TRACE(testing::Message() << question.name << " " << press.id);
      StandardUserComm comm;
      RecordingDialogScript script(progressDialog);
      script.Act([&](wxDialog & d) {
        if (press.id == 0)
          d.Close();
        else
          Click(d, press.id);
      });
      EXPECT_EQ((comm.*question.ask)(Msg("Header"), Msg("a\nb"), Msg("Caption"), UserCommNo),
                press.answer);
      SeenDialog const & seen = script.Seen().at(0);
      EXPECT_EQ(seen.kind, "YesNoCancelAll");
      EXPECT_EQ(seen.buttons, question.buttons);
      EXPECT_EQ(seen.text, "a\r\nb");
      EXPECT_EQ(comm.GetUsage(), 1);
    }
  }
}

TEST_F(UserCommTest, TheDefaultAnswerChoosesTheDefaultButton) {
  struct Case {
    int defaultAnswer;
    int button;  // 0: none chosen
  };
  Case const cases[] = {{UserCommNone, 0},      {UserCommYes, 13095}, {UserCommYesToAll, 13096},
                        {UserCommNo, 13092},    {UserCommNoToAll, 13093},
                        {UserCommCancel, 2},    {-1, 0},              {6, 0}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.defaultAnswer);
    StandardUserComm comm;
    RecordingDialogScript script(progressDialog);
    script.Answer(wxID_CANCEL);
    EXPECT_EQ(comm.AskUserYesYesToAllNoNoToAllCancel(Msg("H"), Msg("T"), Msg("C"),
                                                     c.defaultAnswer),
              UserCommCancel);  // not shown: no button pressed
    EXPECT_EQ(script.Seen().at(0).defaultButton, c.button);
  }
}

TEST_F(UserCommTest, EveryDialogIsCountedOnEntryEvenAnEmptyOneButNotTheShortYesNoBox) {
  StandardUserComm comm;
  RecordingDialogScript script(progressDialog);
  struct Step {
    std::function<void()> call;
    int answersNeeded;
    int usage;
  };
  Step const steps[] = {
      {[&] { comm.AskUserYesNo(Msg("short"), Msg(""), 1); }, 1, 0},
      {[&] { comm.AskUserYesNo(Msg(Lines(31)), Msg(""), 1); }, 1, 1},
      {[&] { comm.AskUserYesNo(Msg("H"), Msg("short"), Msg(""), 1); }, 1, 2},
      {[&] { comm.AskUserYesCancel(Msg("H"), Msg("T"), Msg(""), 1); }, 1, 3},
      {[&] { comm.InformUser(Msg(""), Msg("C"), 0); }, 0, 4},
      {[&] { comm.InformUser(Msg(""), Msg("C"), 77); }, 0, 5},
      {[&] { comm.FatalError(Msg(""), Msg("C")); }, 0, 6},
      {[&] { comm.FatalError(Msg("Disk full."), Msg("C")); }, 1, 7},
  };
  size_t shown = 0;
  for (Step const & step : steps) {
    SCOPED_TRACE(step.usage);
    for (int i = 0; i < step.answersNeeded; ++i) script.Answer(wxID_OK);
    step.call();
    EXPECT_EQ(comm.GetUsage(), step.usage);
    shown += step.answersNeeded;
    EXPECT_EQ(script.Seen().size(), shown);
  }
  comm.ResetUsage();
  EXPECT_EQ(comm.GetUsage(), 0);
}

TEST_F(UserCommTest, TheProgressIsHiddenWhileEveryDialogIsUpAndShownAfterIt) {
  StandardUserComm standard;
  MuteAskUserComm muteAsk;
  struct Case {
    char const * name;
    std::function<void()> call;
  };
  Case const cases[] = {
      {"short yes/no", [&] { standard.AskUserYesNo(Msg("Q"), Msg(""), 1); }},
      {"long yes/no", [&] { standard.AskUserYesNo(Msg("H"), Msg("Q"), Msg(""), 1); }},
      {"all five",
       [&] { standard.AskUserYesYesToAllNoNoToAllCancel(Msg(""), Msg("Q"), Msg(""), 1); }},
      {"yes to all", [&] { standard.AskUserYesYesToAllCancel(Msg(""), Msg("Q"), Msg(""), 1); }},
      {"yes/cancel", [&] { standard.AskUserYesCancel(Msg(""), Msg("Q"), Msg(""), 1); }},
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
}

TEST_F(UserCommTest, EmptyTextsShowNothingAndLeaveTheProgressAlone) {
  StandardUserComm standard;
  MuteAskUserComm muteAsk;
  RecordingDialogScript script(progressDialog);  // any dialog fails the test
  standard.FatalError(Msg(""), Msg("Caption"));
  standard.InformUser(UserCommMessage(), Msg("Caption"), 0);
  standard.InformUser(Msg(""), Msg("Caption"), 12);
  muteAsk.FatalError(UserCommMessage(), UserCommMessage());
  EXPECT_TRUE(script.Seen().empty());
  EXPECT_FALSE(ProgressTouched());
}

TEST_F(UserCommTest, TheSilentChannelAnswersQuestionsUnseenButShowsFatalErrors) {
  MuteAskUserComm comm;
  {
    RecordingDialogScript script(progressDialog);  // no dialog for any question
    EXPECT_EQ(comm.AskUserYesNo(Msg(Lines(40)), Msg(""), UserCommYes), UserCommYes);
    EXPECT_EQ(comm.AskUserYesCancel(Msg(""), Msg("Q"), Msg(""), UserCommNo), UserCommCancel);
    comm.InformUser(Msg("Done."), Msg(""), 0);
    EXPECT_TRUE(script.Seen().empty());
  }
  RecordingDialogScript script(progressDialog);
  script.Answer(wxID_OK).Answer(wxID_OK);
  comm.FatalError(Msg(Lines(19)), Msg("Stopped"));
  comm.FatalError(Msg(Lines(20)), Msg("Stopped"));
  ASSERT_EQ(script.Seen().size(), 2u);
  EXPECT_EQ(script.Seen()[0].kind, "message box");
  EXPECT_EQ(script.Seen()[0].style & wxICON_MASK, wxICON_ERROR);
  EXPECT_EQ(script.Seen()[1].kind, "FatalErrorDialog");
  EXPECT_TRUE(script.Seen()[1].iconShown);
}

constexpr int kDontShowAgainBox = CustomMessageBoxDlg::kCheckBoxId;

TEST_F(UserCommTest, AMessageWithAnIdCanBeSwitchedOffForGoodAndAnyOtherStoredValueShowsIt) {
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

  StoreSwitchValue(31, 1);
  script.Act(answer(false));
  comm.InformUser(Msg("back on"), Msg(""), 31);
  EXPECT_EQ(script.Seen().size(), 3u);
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
  EXPECT_FALSE(wxIsBusy());
  EXPECT_EQ(comm.HourGlassDepth(), 0);
}

}  // namespace
