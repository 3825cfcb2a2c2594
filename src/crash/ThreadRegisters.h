#pragma once
// The registers of a process's threads: the other threads stopped and read
// through ptrace, the crashing one taken from its signal frame, each turned
// into the dump's x86-64 register record.

#include <sys/types.h>
#include <sys/ucontext.h>
#include <sys/user.h>

#include <vector>

#include "crash/MinidumpFormat.h"

struct StoppedThread {
  pid_t tid = 0;
  bool attached = false;
  minidump::ContextAmd64 context{};
};

// Stops every thread of `pid` but `skipTid` and reads its registers; a
// thread that cannot be stopped (gone, not permitted) is listed without
// registers. DetachThreads lets them go again.
std::vector<StoppedThread> StopThreads(pid_t pid, pid_t skipTid);
void DetachThreads(std::vector<StoppedThread> const & threads);

minidump::ContextAmd64 ContextFromRegisters(user_regs_struct const & regs,
                                            user_fpregs_struct const * fp);
minidump::ContextAmd64 ContextFromSignal(ucontext_t const & context,
                                         struct _libc_fpstate const * fp);
