#pragma once
// The process's handlers for fatal signals (SIGSEGV, SIGBUS, SIGILL,
// SIGFPE, SIGABRT, where an uncaught C++ exception ends, SIGTRAP, SIGSYS).
//
// The crashed process does not allocate, lock or use stdio: the handler
// copies the crash out of the signal frame and clones a writer process (raw
// clone, a copy of the crashed memory, no fork handlers run), which it lets
// trace itself (PR_SET_PTRACER). The writer names and writes the dump, then
// reports; the crashed thread waits for it. A dump written: the process dies
// of the same signal without a core file, so that its parent still sees
// that signal. Otherwise the signal's default action follows as if no
// handler had been there.
//
// A second thread crashing meanwhile waits for the first to end the
// process; a crash inside the handler itself gets the default action.

#include "crash/CrashContext.h"

struct CrashWriter {
  // In the writer process, at most `writeSeconds`: names and writes the
  // dump; true when it was written. A writer still at it then is killed.
  bool (*write)(CrashContext const & crash) = nullptr;
  // Then, at most `reportSeconds` (the report may wait for a person): tells
  // of the outcome.
  void (*report)(bool written) = nullptr;
  unsigned writeSeconds = 30;
  unsigned reportSeconds = 600;
};

// Installs the handlers and an alternate signal stack for the calling
// thread; later calls change nothing. False when the handlers could not be
// installed.
bool InstallCrashHandlers(CrashWriter writer);

// Changes the writer's time limits after installation (tests shorten them).
void SetCrashWriterLimits(unsigned writeSeconds, unsigned reportSeconds);
