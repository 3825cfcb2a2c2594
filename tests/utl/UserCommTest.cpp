// The process-wide channel, and what the mute channel answers without a
// person to ask.
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "utl/Log.h"
#include "utl/MuteUserComm.h"

namespace {

class TestMuteUserComm : public MuteUserComm {
public:
  void FatalError(UserCommMessage const &, UserCommMessage const &) override { ++fatal; }
  int fatal = 0;
};

TEST(UserComm, HourGlassCountsNestingAndNeverGoesBelowZero) {
  TestMuteUserComm comm;
  comm.HourGlassOff();
  comm.HourGlassOn();
  comm.HourGlassOn();
  comm.HourGlassOff();
  EXPECT_EQ(comm.HourGlassDepth(), 1);
}

TEST(MuteUserComm, AnswersEachQuestionWithTheDefaultItOffersOrTheSafeAnswer) {
  TestMuteUserComm comm;
  UserCommMessage const text = ExceptionMessage::translate("Overwrite?");
  UserCommMessage const none;
  struct Case {
    int defaultAnswer, yesNo, all, yesAllCancel, yesCancel;
  };
  // default            YesNo           5 buttons        Yes/YesAll/Cancel  Yes/Cancel
  Case const cases[] = {
      {UserCommNone, UserCommNo, UserCommCancel, UserCommCancel, UserCommCancel},
      {UserCommYes, UserCommYes, UserCommYes, UserCommYes, UserCommYes},
      {UserCommYesToAll, UserCommYes, UserCommYesToAll, UserCommYesToAll, UserCommYes},
      {UserCommNo, UserCommNo, UserCommNo, UserCommCancel, UserCommCancel},
      {UserCommCancel, UserCommNo, UserCommCancel, UserCommCancel, UserCommCancel},
      {-7, UserCommNo, UserCommCancel, UserCommCancel, UserCommCancel},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.defaultAnswer);
    EXPECT_EQ(comm.AskUserYesNo(text, none, c.defaultAnswer), c.yesNo);
    EXPECT_EQ(comm.AskUserYesYesToAllNoNoToAllCancel(none, text, none, c.defaultAnswer), c.all);
    EXPECT_EQ(comm.AskUserYesYesToAllCancel(none, text, none, c.defaultAnswer), c.yesAllCancel);
    EXPECT_EQ(comm.AskUserYesCancel(none, text, none, c.defaultAnswer), c.yesCancel);
  }
  EXPECT_EQ(comm.fatal, 0);
}

TEST(MuteUserComm, WritesInformationAndSilentAnswersToTheLog) {
  TestMuteUserComm comm;
  comm.InformUser(ExceptionMessage::translate("{1} rows imported.") % 12,
                  ExceptionMessage::translate("Import"), 0);
  comm.AskUserYesNo(ExceptionMessage::translate("Delete the run?"), UserCommMessage(), UserCommYes);
  std::string const log = Slurp(Log::GetLogFilePath());
  EXPECT_NE(log.find("MuteUserComm::InformUser: Import: 12 rows imported."), std::string::npos)
      << log;
  EXPECT_NE(log.find("MuteUserComm::AskUserYesNo: Delete the run? -> answered 1"),
            std::string::npos)
      << log;
}

}  // namespace
