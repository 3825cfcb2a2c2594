#pragma once
// The process's channel to the person at the screen. Code anywhere asks and
// informs through the current channel and does not know how the question
// reaches a person (dialogs, a log, memory).

#include "utl/UserCommMessage.h"

enum UserCommAnswer {
  UserCommNone = 0,
  UserCommYes = 1,
  UserCommYesToAll = 2,
  UserCommNo = 3,
  UserCommNoToAll = 4,
  UserCommCancel = 5,
};

class UserComm {
public:
  // The current channel; null until the application installs one.
  static UserComm * GetUserComm();
  // Installs `channel` and returns the one it replaces, so that a scoped
  // channel can restore it. Damaged files met while there was no channel
  // are told through the new one (FileProblemNotice.h).
  static UserComm * SetUserComm(UserComm * channel);

  virtual ~UserComm();
  virtual int AskUserYesNo(UserCommMessage const & header, UserCommMessage const & text,
                           UserCommMessage const & caption, int defaultAnswer) = 0;
  virtual int AskUserYesNo(UserCommMessage const & text, UserCommMessage const & caption,
                           int defaultAnswer) = 0;
  virtual int AskUserYesYesToAllNoNoToAllCancel(UserCommMessage const & header,
                                                UserCommMessage const & text,
                                                UserCommMessage const & caption,
                                                int defaultAnswer) = 0;
  virtual int AskUserYesYesToAllCancel(UserCommMessage const & header, UserCommMessage const & text,
                                       UserCommMessage const & caption, int defaultAnswer) = 0;
  virtual int AskUserYesCancel(UserCommMessage const & header, UserCommMessage const & text,
                               UserCommMessage const & caption, int defaultAnswer) = 0;
  virtual void FatalError(UserCommMessage const & text, UserCommMessage const & caption) = 0;
  // `id` zero: a message that cannot be switched off; any other value names
  // the message in the store of switched-off messages.
  virtual void InformUser(UserCommMessage const & text, UserCommMessage const & caption,
                          unsigned long id) = 0;
  // The base only counts nesting; a channel with a screen shows the busy
  // cursor while the depth is above zero.
  virtual void HourGlassOn();
  virtual void HourGlassOff();

  int HourGlassDepth() const { return mHourGlassDepth; }

private:
  int mHourGlassDepth = 0;
};
