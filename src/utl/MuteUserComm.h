#pragma once
// A channel that shows nothing: for batch runs, services and tests.
//
// Questions are answered without asking. The default answer is taken when
// the question offers it; otherwise the answer is the one that changes
// nothing:
//   AskUserYesNo                       Yes or Yes to all -> Yes; else No
//   AskUserYesYesToAllNoNoToAllCancel  any answer 1..5 as given; else Cancel
//   AskUserYesYesToAllCancel           Yes, Yes to all as given; else Cancel
//   AskUserYesCancel                   Yes or Yes to all -> Yes; else Cancel
// Every question and its silent answer is written to the log (importance 0),
// every information to the log (importance 1), so nothing said is lost.
// FatalError stays for the derived channel to decide.

#include "utl/UserComm.h"

class MuteUserComm : public UserComm {
public:
  ~MuteUserComm() override;
  int AskUserYesNo(UserCommMessage const & header, UserCommMessage const & text,
                   UserCommMessage const & caption, int defaultAnswer) override;
  int AskUserYesNo(UserCommMessage const & text, UserCommMessage const & caption,
                   int defaultAnswer) override;
  int AskUserYesYesToAllNoNoToAllCancel(UserCommMessage const & header,
                                        UserCommMessage const & text,
                                        UserCommMessage const & caption,
                                        int defaultAnswer) override;
  int AskUserYesYesToAllCancel(UserCommMessage const & header, UserCommMessage const & text,
                               UserCommMessage const & caption, int defaultAnswer) override;
  int AskUserYesCancel(UserCommMessage const & header, UserCommMessage const & text,
                       UserCommMessage const & caption, int defaultAnswer) override;
  void InformUser(UserCommMessage const & text, UserCommMessage const & caption,
                  unsigned long id) override;
};
