// The collecting channels: what MuteInformUserComm collects and how it
// writes it out, messages switched off in the store, and MemoryUserComm as
// a scope: the channel it replaced comes back before the collected text is
// shown through it, and a "to all" answer stops the asking.
#include <gtest/gtest.h>

#include <locale>

#include "UserCommTestSupport.h"
#include "frame/InformUserSwitches.h"
#include "frame/MemoryUserComm.h"
#include "frame/MuteInformUserComm.h"
#include "frame/StandardUserComm.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"

namespace {

using gui_test::Click;

TEST_F(UserCommTest, CollectedMessagesAreWrittenOnceEachBelowTheHeader) {
  MuteInformUserComm comm;
  EXPECT_EQ(comm.GetInformUserMessages(std::locale()), "");
  comm.SetHeader(Msg("Import finished:\n"));
  EXPECT_EQ(comm.GetInformUserMessages(std::locale()), "");  // a header alone is nothing
  comm.SetPrefix(Msg("- "));
  RecordingDialogScript script(progressDialog);  // information shows nothing
  comm.InformUser(Msg("run 3 skipped"), Msg("ignored caption"), 0);
  comm.InformUser(Msg("run 5 skipped"), Msg(""), 0);
  comm.InformUser(Msg("run 3 skipped"), Msg(""), 0);
  comm.AddString(Msg(""));
  EXPECT_EQ(comm.GetInformUserMessages(std::locale()),
            "Import finished:\n- run 3 skipped\n- run 5 skipped\n- \n");
  comm.Empty();
  EXPECT_EQ(comm.GetInformUserMessages(std::locale()), "");
  EXPECT_TRUE(script.Seen().empty());
  EXPECT_EQ(comm.GetUsage(), 0);
}

TEST_F(UserCommTest, AMessageSwitchedOffInTheStoreIsNotCollected) {
  InformUserSwitches().SwitchOff(4711);
  // Any other value lets the message through.
  StoreSwitchValue(4712, 1);
  MuteInformUserComm comm;
  comm.InformUser(Msg("switched off"), Msg(""), 4711);
  comm.InformUser(Msg("value 1"), Msg(""), 4712);
  comm.InformUser(Msg("never asked"), Msg(""), 4713);
  comm.InformUser(Msg("no id"), Msg(""), 0);
  EXPECT_EQ(comm.GetInformUserMessages(std::locale()), "value 1\nnever asked\nno id\n");
}

TEST_F(UserCommTest, TheReplacedChannelComesBackBeforeItShowsEverythingCollected) {
  StandardUserComm previous;
  UserComm::SetUserComm(&previous);
  RecordingDialogScript script(progressDialog);
  script.Answer(wxID_OK);
  {
    MemoryUserComm memory;
    EXPECT_EQ(UserComm::GetUserComm(), &memory);
    UserComm::GetUserComm()->InformUser(Msg("run 3 skipped"), Msg(""), 0);
    UserComm::GetUserComm()->InformUser(Msg("run 5 skipped"), Msg(""), 0);
    UserComm::GetUserComm()->InformUser(Msg("run 3 skipped"), Msg(""), 0);
    EXPECT_TRUE(script.Seen().empty());
  }
  EXPECT_EQ(UserComm::GetUserComm(), &previous);
  ASSERT_EQ(script.Seen().size(), 1u);
  SeenDialog const & seen = script.Seen()[0];
  EXPECT_EQ(seen.channel, &previous);
  EXPECT_EQ(seen.kind, "message box");
  EXPECT_EQ(seen.style & wxICON_MASK, wxICON_INFORMATION);
  EXPECT_EQ(seen.title, kAppName);
  // No duplicate test on this road.
  EXPECT_EQ(seen.text, "run 3 skipped\nrun 5 skipped\nrun 3 skipped\n");
  EXPECT_EQ(previous.GetUsage(), 1);
}

TEST_F(UserCommTest, WithNothingCollectedOrNoChannelToGoBackToNothingIsShown) {
  RecordingDialogScript script(progressDialog);  // any dialog fails the test
  StandardUserComm previous;
  UserComm::SetUserComm(&previous);
  { MemoryUserComm memory; }
  EXPECT_EQ(UserComm::GetUserComm(), &previous);

  UserComm::SetUserComm(nullptr);
  {
    MemoryUserComm memory;
    memory.InformUser(Msg("nobody to tell"), Msg(""), 0);
  }
  EXPECT_EQ(UserComm::GetUserComm(), nullptr);
  EXPECT_TRUE(script.Seen().empty());
}

TEST_F(UserCommTest, AToAllAnswerStopsTheAskingAndLaterQuestionsGetPlainYesOrNo) {
  struct Case {
    int pressed;
    int lastAnswer;
    int laterAnswer;
  };
  Case const cases[] = {{YesNoCancelAll::kYesToAllId, UserCommYesToAll, UserCommYes},
                        {YesNoCancelAll::kNoToAllId, UserCommNoToAll, UserCommNo}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.lastAnswer);
    MemoryUserComm memory;
    EXPECT_EQ(memory.GetLastAnsver(), -1);
    RecordingDialogScript script(progressDialog);
    script.Act([&](wxDialog & d) { Click(d, c.pressed); });
    EXPECT_EQ(memory.AskUserYesYesToAllNoNoToAllCancel(Msg("H"), Msg("item 1"), Msg(""), 1),
              c.laterAnswer);
    EXPECT_EQ(memory.GetLastAnsver(), c.lastAnswer);
    // No dialog for any of these, even where the dialog would have no No.
    EXPECT_EQ(memory.AskUserYesCancel(Msg("H"), Msg("item 2"), Msg(""), 5), c.laterAnswer);
    EXPECT_EQ(memory.AskUserYesYesToAllCancel(Msg("H"), Msg("item 3"), Msg(""), 5), c.laterAnswer);
    EXPECT_EQ(memory.AskUserYesNo(Msg("item 4"), Msg(""), 1), c.laterAnswer);
    EXPECT_EQ(script.Seen().size(), 1u);
    // The three-message question always asks.
    script.Answer(IDOK);
    EXPECT_EQ(memory.AskUserYesNo(Msg("H"), Msg("item 5"), Msg(""), 1), UserCommYes);
    EXPECT_EQ(script.Seen().size(), 2u);
    EXPECT_EQ(memory.GetLastAnsver(), c.lastAnswer);
  }
}

TEST_F(UserCommTest, APlainAnswerIsRememberedButTheNextQuestionAsksAgain) {
  MemoryUserComm memory;
  RecordingDialogScript script(progressDialog);
  script.Act([](wxDialog & d) { Click(d, YesNoCancelAll::kYesId); });
  script.Act([](wxDialog & d) { d.Close(); });
  script.Answer(wxID_NO);
  EXPECT_EQ(memory.AskUserYesCancel(Msg(""), Msg("item 1"), Msg(""), 1), UserCommYes);
  EXPECT_EQ(memory.GetLastAnsver(), UserCommYes);
  EXPECT_EQ(memory.AskUserYesYesToAllCancel(Msg(""), Msg("item 2"), Msg(""), 1), UserCommCancel);
  EXPECT_EQ(memory.GetLastAnsver(), UserCommCancel);
  EXPECT_EQ(memory.AskUserYesNo(Msg("item 3"), Msg(""), 1), UserCommNo);
  EXPECT_EQ(memory.GetLastAnsver(), UserCommNo);
  EXPECT_EQ(script.Seen().size(), 3u);
}

}  // namespace
