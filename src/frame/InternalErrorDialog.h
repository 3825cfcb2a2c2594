#pragma once
// The last-resort dialog at the end of every exception guard.

#include <string>

// Shows `text` as the description of an internal error. The library installs
// it as the internal-error reporter (platform/InternalErrorReport.h) when it
// is loaded.
void ShowInternalErrorDialog(std::string const & text);
