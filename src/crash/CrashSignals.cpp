#include "crash/CrashSignals.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <ctime>

#include "platform/AlternateSignalStack.h"

namespace {

constexpr int kFatalSignals[] = {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGTRAP, SIGSYS};
constexpr size_t kWriterStackSize = 1024 * 1024;
constexpr size_t kGuard = 4096;
constexpr char kWritten = 'W';

// Everything the handler uses is made before any crash.
CrashWriter gWriter;
char * gWriterStackTop = nullptr;
std::atomic<pid_t> gCrashingThread{0};
// Written by the handler only, read by the writer in its copy of memory.
CrashContext gCrash;
int gGoPipe[2] = {-1, -1};
int gResultPipe[2] = {-1, -1};

pid_t CurrentThread() { return static_cast<pid_t>(::syscall(SYS_gettid)); }

void SetDefaultAction(int signal) {
  struct sigaction action {};
  action.sa_handler = SIG_DFL;
  ::sigemptyset(&action.sa_mask);
  ::sigaction(signal, &action, nullptr);
}

void ReadFully(int fd, char * byte) {
  while (::read(fd, byte, 1) < 0 && errno == EINTR) {}
}

// The writer process: a copy of the crashed one at the moment of the crash.
int WriterMain(void *) {
  for (int const signal : kFatalSignals) SetDefaultAction(signal);
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  // A full disk or a file-size limit is a failed write, not a death.
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit const noCore{0, 0};
  ::setrlimit(RLIMIT_CORE, &noCore);
  ::close(gGoPipe[1]);
  ::close(gResultPipe[0]);
  char go = 0;
  ReadFully(gGoPipe[0], &go);  // the crashed process has let this one trace it

  ::alarm(gWriter.writeSeconds);
  bool const written = gWriter.write != nullptr && gWriter.write(gCrash);
  if (written) {
    while (::write(gResultPipe[1], &kWritten, 1) < 0 && errno == EINTR) {}
  }
  ::alarm(gWriter.reportSeconds);
  if (gWriter.report != nullptr) gWriter.report(written);
  ::_exit(0);
}

// True when the writer said it wrote the dump.
bool RunWriter() {
  if (::pipe2(gGoPipe, O_CLOEXEC) != 0) return false;
  if (::pipe2(gResultPipe, O_CLOEXEC) != 0) return false;
  // No CLONE_VM: the writer works on its own copy of memory. No exit
  // signal: an application's SIGCHLD handler never reaps it.
  pid_t const writer = ::clone(WriterMain, gWriterStackTop, CLONE_FS | CLONE_UNTRACED, nullptr);
  ::close(gGoPipe[0]);
  ::close(gResultPipe[1]);
  if (writer < 0) return false;
  ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0);
  ::prctl(PR_SET_PTRACER, static_cast<unsigned long>(writer), 0, 0, 0);
  char const go = 'g';
  while (::write(gGoPipe[1], &go, 1) < 0 && errno == EINTR) {}
  int status = 0;
  while (::waitpid(writer, &status, __WALL) < 0 && errno == EINTR) {}
  char result = 0;
  ::fcntl(gResultPipe[0], F_SETFL, O_NONBLOCK);
  return ::read(gResultPipe[0], &result, 1) == 1 && result == kWritten;
}

void OnFatalSignal(int signal, siginfo_t * info, void * context) {
  pid_t const self = CurrentThread();
  pid_t expected = 0;
  if (!gCrashingThread.compare_exchange_strong(expected, self)) {
    if (expected != self) {
      // Another thread's crash is being written; it ends the process.
      timespec const second{1, 0};
      for (;;) ::nanosleep(&second, nullptr);
    }
    SetDefaultAction(signal);  // a crash in the handler itself
    return;
  }
  gCrash.pid = ::getpid();
  gCrash.tid = self;
  gCrash.signal = signal;
  if (info != nullptr) std::memcpy(&gCrash.info, info, sizeof gCrash.info);
  if (context != nullptr) {
    auto const * ucontext = static_cast<ucontext_t const *>(context);
    std::memcpy(&gCrash.context, ucontext, sizeof gCrash.context);
    if (ucontext->uc_mcontext.fpregs != nullptr) {
      std::memcpy(&gCrash.fpState, ucontext->uc_mcontext.fpregs, sizeof gCrash.fpState);
      gCrash.hasFpState = true;
    }
  }
  bool const written = RunWriter();
  if (written) {
    // Reported: no core file on top of the dump.
    rlimit const noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
  }
  SetDefaultAction(signal);
  // Sent again, so that a signal that came from kill or abort also ends the
  // process once the handler returns; a fault would recur anyway.
  ::syscall(SYS_tgkill, gCrash.pid, self, signal);
}

}  // namespace

void SetCrashWriterLimits(unsigned writeSeconds, unsigned reportSeconds) {
  gWriter.writeSeconds = writeSeconds;
  gWriter.reportSeconds = reportSeconds;
}

bool InstallCrashHandlers(CrashWriter writer) {
  static bool installed = false;
  if (installed) return true;
  // Guard pages at both ends: the writer cannot run off its stack, and the
  // kernel cannot merge it with a thread's stack next to it, which would
  // make that thread's stack look larger than it is in a dump.
  void * block = ::mmap(nullptr, kWriterStackSize + 2 * kGuard, PROT_NONE,
                        MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
  if (block == MAP_FAILED) return false;
  char * const stack = static_cast<char *>(block) + kGuard;
  if (::mprotect(stack, kWriterStackSize, PROT_READ | PROT_WRITE) != 0) return false;
  gWriterStackTop = stack + kWriterStackSize;
  gWriter = writer;
  // The main thread's stack lasts as long as the process.
  static AlternateSignalStack const mainThreadStack;
  struct sigaction action {};
  action.sa_sigaction = OnFatalSignal;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  ::sigemptyset(&action.sa_mask);
  // While one is handled the others wait: a fault inside the handler then
  // ends the process at once with the system's handling.
  for (int const signal : kFatalSignals) ::sigaddset(&action.sa_mask, signal);
  for (int const signal : kFatalSignals)
    if (::sigaction(signal, &action, nullptr) != 0) return false;
  installed = true;
  return true;
}
