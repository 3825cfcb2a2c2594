#pragma once
// What the signal handler saw of a crash, copied out of the signal frame so
// that the dump writer, which runs in another process, finds it at the same
// address in its copy of the crashed process's memory.

#include <sys/types.h>
#include <sys/ucontext.h>

#include <csignal>

struct CrashContext {
  pid_t pid = 0;
  pid_t tid = 0;  // the crashing thread; 0 for a dump of a process that did not crash
  int signal = 0;
  siginfo_t info{};
  ucontext_t context{};
  struct _libc_fpstate fpState {};
  bool hasFpState = false;
};
