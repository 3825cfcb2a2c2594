#pragma once
// Writes a minidump of another process (the crashed one, or any process the
// caller may trace): its threads with their registers and stacks, its
// modules with build ids, the exception, the system, and its /proc maps,
// status, auxv and command line.
//
// Dump types: 0 the stacks, 1 also the writable data of the modules, 2 all
// readable memory (as a 64-bit memory list, which may pass 4 GiB).

#include <string>

#include "crash/CrashContext.h"

namespace minidump {

constexpr int kTypeStacks = 0;
constexpr int kTypeWithModuleData = 1;
constexpr int kTypeFullMemory = 2;

// Writes to `fd` from its start; 0 or the errno of what failed. The threads
// of `crash.pid` are stopped while it runs and let go at the end.
int WriteMinidump(int fd, CrashContext const & crash, int dumpType);

// Writes `path` whole or not at all: the dump goes to a file beside it,
// renamed over `path` once complete. 0 or an errno value.
int WriteMinidumpFile(std::string const & path, CrashContext const & crash, int dumpType);

}  // namespace minidump
