#pragma once
// A scoped channel for a run over many items: while it lives it is the
// process's channel; it asks with dialogs, and once the user answered "Yes
// to all" or "No to all" it asks no more and answers plain Yes or No to
// every later question (of any kind, but the three-message Yes/No, which
// always asks). Information is collected and shown in one box when the
// object ends, after the channel it replaced has been put back; that box
// goes through the restored channel.
//
//   {
//     MemoryUserComm batch;
//     for (Item & item : items)
//       if (comm->AskUserYesYesToAllNoNoToAllCancel(...) == UserCommYes) ...
//   }  // the collected messages are shown here

#include "frame/MuteInformUserComm.h"

class MemoryUserComm : public MuteInformUserComm {
public:
  MemoryUserComm();
  // A scope object: a copy would put the previous channel back twice.
  MemoryUserComm(MemoryUserComm const &) = delete;
  MemoryUserComm & operator=(MemoryUserComm const &) = delete;
  ~MemoryUserComm() override;

  int AskUserYesNo(UserCommMessage const & text, UserCommMessage const & caption,
                   int defaultAnswer) override;
  using MuteInformUserComm::AskUserYesNo;
  int AskUserYesYesToAllNoNoToAllCancel(UserCommMessage const & header,
                                        UserCommMessage const & text,
                                        UserCommMessage const & caption,
                                        int defaultAnswer) override;
  int AskUserYesYesToAllCancel(UserCommMessage const & header, UserCommMessage const & text,
                               UserCommMessage const & caption, int defaultAnswer) override;
  int AskUserYesCancel(UserCommMessage const & header, UserCommMessage const & text,
                       UserCommMessage const & caption, int defaultAnswer) override;

  // The last answer the user gave (UserCommAnswer); -1 before the first.
  // (The name's spelling is the interface's.)
  int GetLastAnsver() const { return mLastAnswer; }

private:
  template <class Ask>
  int AskUnlessAnsweredToAll(Ask && ask);

  int mLastAnswer = -1;
  UserComm * mPrevious = nullptr;
};
