#include "utl/UserComm.h"

#include <atomic>

namespace {
// Belongs to the user-interface thread; atomic only so that a service thread
// that reads it sees a whole pointer.
std::atomic<UserComm *> gCurrent{nullptr};
}  // namespace

UserComm * UserComm::GetUserComm() { return gCurrent.load(); }

UserComm * UserComm::SetUserComm(UserComm * channel) { return gCurrent.exchange(channel); }

UserComm::~UserComm() = default;

void UserComm::HourGlassOn() { ++mHourGlassDepth; }

void UserComm::HourGlassOff() {
  if (mHourGlassDepth > 0) --mHourGlassDepth;
}
