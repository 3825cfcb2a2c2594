#include "utl/UserComm.h"

#include <atomic>

#include "utl/FileProblemNotice.h"

namespace {
// Belongs to the user-interface thread; atomic only so that a service thread
// that reads it sees a whole pointer.
std::atomic<UserComm *> gCurrent{nullptr};
}  // namespace

UserComm * UserComm::GetUserComm() { return gCurrent.load(); }

UserComm * UserComm::SetUserComm(UserComm * channel) {
  UserComm * const previous = gCurrent.exchange(channel);
  // Damaged files met before the application had a channel are told now.
  if (channel != nullptr) vx3::TellWaitingFileProblems(*channel);
  return previous;
}

UserComm::~UserComm() = default;

void UserComm::HourGlassOn() { ++mHourGlassDepth; }

void UserComm::HourGlassOff() {
  if (mHourGlassDepth > 0) --mHourGlassDepth;
}
