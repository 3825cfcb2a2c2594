#pragma once
// What the store had to repair on its own, for the person who runs the
// application: a damaged hive that was moved aside, a hive that could not be
// opened. Each notice goes to the log at once, with the hive's path and the
// reason, and waits here until it is told: through the current UserComm
// (TellNotices, once per hive file and process) or by a tool that takes
// them itself (talvo-reg).

#include <string>
#include <vector>

#include "utl/ExceptionMessage.h"

namespace registry {

// `hive` is the path of the hive file the notice is about.
void AddNotice(ExceptionMessage const & notice, std::string const & hive);
// The notices since the last call, oldest first; they are handed out once.
std::vector<ExceptionMessage> TakeNotices();
// Tells the waiting notices through the current UserComm; without a channel
// they keep waiting. Called by the store at every access of a predefined
// key, with no hive locked, so that a dialog can use the registry meanwhile;
// the hives are opened at the application's start, on its main thread, so
// that is where a dialog comes up.
void TellNotices();

}  // namespace registry
