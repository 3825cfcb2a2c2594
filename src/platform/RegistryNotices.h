#pragma once
// What the store had to repair on its own, for the person who runs the
// application: a damaged hive that was moved aside, a hive that could not be
// opened. Each notice goes to the log at once and waits here until the
// application (or the talvo-reg tool) takes it to show it.

#include <vector>

#include "utl/ExceptionMessage.h"

namespace registry {

void AddNotice(ExceptionMessage const & notice);
// The notices since the last call, oldest first; they are handed out once.
std::vector<ExceptionMessage> TakeNotices();

}  // namespace registry
