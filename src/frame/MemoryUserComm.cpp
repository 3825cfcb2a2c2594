#include "frame/MemoryUserComm.h"

#include <exception>

#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/VxSystemInfo.h"

MemoryUserComm::MemoryUserComm() : mPrevious(UserComm::SetUserComm(this)) {}

MemoryUserComm::~MemoryUserComm() {
  UserComm::SetUserComm(mPrevious);
  if (Messages().empty()) return;
  // Every message as it came, duplicates included, each on its own line.
  UserCommMessage text;
  for (UserCommMessage const & message : Messages())
    text << message << (ExceptionMessage::translate("{1}") % "\n");
  UserCommMessage const caption =
      ExceptionMessage::translate("{1}") % VxSystemInfo::GetApplicationName();
  UserComm * const current = UserComm::GetUserComm();
  if (current == nullptr) {
    // Nobody to tell: the log keeps what would have been shown.
    Log::WriteMessage("MemoryUserComm", "~MemoryUserComm", text.ToString(std::locale()),
                      Log::Normal, false);
    return;
  }
  // A destructor must not throw; a failure to show is logged instead.
  try {
    current->InformUser(text, caption, 0);
  } catch (Exception const & error) {
    Log::WriteMessage("MemoryUserComm", "~MemoryUserComm", error.Why(), Log::Error, false);
  } catch (std::exception const & error) {
    Log::WriteMessage("MemoryUserComm", "~MemoryUserComm", error.what(), Log::Error, false);
  }
}

template <class Ask>
int MemoryUserComm::AskUnlessAnsweredToAll(Ask && ask) {
  if (mLastAnswer != UserCommYesToAll && mLastAnswer != UserCommNoToAll) mLastAnswer = ask();
  if (mLastAnswer == UserCommYesToAll) return UserCommYes;
  if (mLastAnswer == UserCommNoToAll) return UserCommNo;
  return mLastAnswer;
}

int MemoryUserComm::AskUserYesNo(UserCommMessage const & text, UserCommMessage const & caption,
                                 int defaultAnswer) {
  return AskUnlessAnsweredToAll(
      [&] { return StandardUserComm::AskUserYesNo(text, caption, defaultAnswer); });
}

int MemoryUserComm::AskUserYesYesToAllNoNoToAllCancel(UserCommMessage const & header,
                                                      UserCommMessage const & text,
                                                      UserCommMessage const & caption,
                                                      int defaultAnswer) {
  return AskUnlessAnsweredToAll([&] {
    return StandardUserComm::AskUserYesYesToAllNoNoToAllCancel(header, text, caption,
                                                               defaultAnswer);
  });
}

int MemoryUserComm::AskUserYesYesToAllCancel(UserCommMessage const & header,
                                             UserCommMessage const & text,
                                             UserCommMessage const & caption, int defaultAnswer) {
  return AskUnlessAnsweredToAll([&] {
    return StandardUserComm::AskUserYesYesToAllCancel(header, text, caption, defaultAnswer);
  });
}

int MemoryUserComm::AskUserYesCancel(UserCommMessage const & header, UserCommMessage const & text,
                                     UserCommMessage const & caption, int defaultAnswer) {
  return AskUnlessAnsweredToAll(
      [&] { return StandardUserComm::AskUserYesCancel(header, text, caption, defaultAnswer); });
}
