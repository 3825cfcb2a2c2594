#include "crash/ThreadRegisters.h"

#include <dirent.h>
#include <sys/ptrace.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

static_assert(sizeof(user_fpregs_struct) == 512);
static_assert(sizeof(struct _libc_fpstate) == 512);

namespace {

std::vector<pid_t> ThreadIds(pid_t pid) {
  std::vector<pid_t> tids;
  std::string const path = "/proc/" + std::to_string(pid) + "/task";
  DIR * dir = ::opendir(path.c_str());
  if (dir == nullptr) return tids;
  while (dirent * entry = ::readdir(dir)) {
    char * end = nullptr;
    long const tid = std::strtol(entry->d_name, &end, 10);
    if (tid > 0 && end != nullptr && *end == '\0') tids.push_back(static_cast<pid_t>(tid));
  }
  ::closedir(dir);
  return tids;
}

bool StopAndRead(StoppedThread & thread) {
  // Seize and interrupt: no SIGSTOP is left pending in a thread let go again.
  if (::ptrace(PTRACE_SEIZE, thread.tid, nullptr, nullptr) != 0) return false;
  thread.attached = true;
  if (::ptrace(PTRACE_INTERRUPT, thread.tid, nullptr, nullptr) != 0) return false;
  int status = 0;
  while (::waitpid(thread.tid, &status, __WALL) < 0)
    if (errno != EINTR) return false;
  if (!WIFSTOPPED(status)) return false;
  user_regs_struct regs{};
  user_fpregs_struct fp{};
  if (::ptrace(PTRACE_GETREGS, thread.tid, nullptr, &regs) != 0) return false;
  bool const hasFp = ::ptrace(PTRACE_GETFPREGS, thread.tid, nullptr, &fp) == 0;
  thread.context = ContextFromRegisters(regs, hasFp ? &fp : nullptr);
  return true;
}

}  // namespace

std::vector<StoppedThread> StopThreads(pid_t pid, pid_t skipTid) {
  std::vector<StoppedThread> threads;
  for (pid_t const tid : ThreadIds(pid)) {
    if (tid == skipTid) continue;
    StoppedThread thread;
    thread.tid = tid;
    if (!StopAndRead(thread)) thread.context = minidump::ContextAmd64{};
    threads.push_back(thread);
  }
  return threads;
}

void DetachThreads(std::vector<StoppedThread> const & threads) {
  for (StoppedThread const & thread : threads)
    if (thread.attached) ::ptrace(PTRACE_DETACH, thread.tid, nullptr, nullptr);
}

minidump::ContextAmd64 ContextFromRegisters(user_regs_struct const & regs,
                                            user_fpregs_struct const * fp) {
  minidump::ContextAmd64 c{};
  c.contextFlags = minidump::kContextAmd64Full;
  c.rax = regs.rax;
  c.rcx = regs.rcx;
  c.rdx = regs.rdx;
  c.rbx = regs.rbx;
  c.rsp = regs.rsp;
  c.rbp = regs.rbp;
  c.rsi = regs.rsi;
  c.rdi = regs.rdi;
  c.r8 = regs.r8;
  c.r9 = regs.r9;
  c.r10 = regs.r10;
  c.r11 = regs.r11;
  c.r12 = regs.r12;
  c.r13 = regs.r13;
  c.r14 = regs.r14;
  c.r15 = regs.r15;
  c.rip = regs.rip;
  c.eFlags = static_cast<uint32_t>(regs.eflags);
  c.segCs = static_cast<uint16_t>(regs.cs);
  c.segDs = static_cast<uint16_t>(regs.ds);
  c.segEs = static_cast<uint16_t>(regs.es);
  c.segFs = static_cast<uint16_t>(regs.fs);
  c.segGs = static_cast<uint16_t>(regs.gs);
  c.segSs = static_cast<uint16_t>(regs.ss);
  if (fp != nullptr) {
    std::memcpy(c.fltSave, fp, sizeof c.fltSave);
    c.mxCsr = fp->mxcsr;
  }
  return c;
}

minidump::ContextAmd64 ContextFromSignal(ucontext_t const & context,
                                         struct _libc_fpstate const * fp) {
  auto const & g = context.uc_mcontext.gregs;
  auto const reg = [&g](int index) { return static_cast<uint64_t>(g[index]); };
  minidump::ContextAmd64 c{};
  c.contextFlags = minidump::kContextAmd64Full;
  c.rax = reg(REG_RAX);
  c.rcx = reg(REG_RCX);
  c.rdx = reg(REG_RDX);
  c.rbx = reg(REG_RBX);
  c.rsp = reg(REG_RSP);
  c.rbp = reg(REG_RBP);
  c.rsi = reg(REG_RSI);
  c.rdi = reg(REG_RDI);
  c.r8 = reg(REG_R8);
  c.r9 = reg(REG_R9);
  c.r10 = reg(REG_R10);
  c.r11 = reg(REG_R11);
  c.r12 = reg(REG_R12);
  c.r13 = reg(REG_R13);
  c.r14 = reg(REG_R14);
  c.r15 = reg(REG_R15);
  c.rip = reg(REG_RIP);
  c.eFlags = static_cast<uint32_t>(reg(REG_EFL));
  // cs, gs, fs and ss, 16 bits each, from the low end.
  uint64_t const segments = reg(REG_CSGSFS);
  c.segCs = static_cast<uint16_t>(segments);
  c.segGs = static_cast<uint16_t>(segments >> 16);
  c.segFs = static_cast<uint16_t>(segments >> 32);
  c.segSs = static_cast<uint16_t>(segments >> 48);
  if (fp != nullptr) {
    std::memcpy(c.fltSave, fp, sizeof c.fltSave);
    c.mxCsr = fp->mxcsr;
  }
  return c;
}
