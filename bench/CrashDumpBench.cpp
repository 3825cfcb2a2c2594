// A crash dump of a process with 20 threads and 500 MB of heap: the
// library's minidump (type 0: threads, stacks, modules) beside gcore's core
// file of the same process, in time and in size. The size figure reports
// one nanosecond per byte written, so that its ratio is the size ratio.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "Figures.h"
#include "crash/MinidumpWriter.h"

extern char ** environ;  // NOLINT(readability-redundant-declaration): POSIX names it only here

namespace {

TALVO_RATIO_LIMIT("CrashDumpTime", 0.05);
TALVO_RATIO_LIMIT("CrashDumpSize", 0.05);

constexpr size_t kHeapBytes = 500UL * 1024 * 1024;
constexpr int kThreads = 20;

// The process dumped: forked once, killed when the benchmarks end.
class DumpedProcess {
public:
  DumpedProcess() {
    int ready[2];
    if (::pipe(ready) != 0) return;
    mPid = ::fork();
    if (mPid == 0) {
      ::close(ready[0]);
      auto * heap = static_cast<char *>(std::malloc(kHeapBytes));
      for (size_t i = 0; i < kHeapBytes; i += 4096) heap[i] = static_cast<char>(i >> 12 | 1);
      for (int i = 1; i < kThreads; ++i)
        std::thread([] {
          for (;;) ::pause();
        }).detach();
      char const byte = 'r';
      if (::write(ready[1], &byte, 1) != 1) ::_exit(1);
      for (;;) ::pause();
    }
    ::close(ready[1]);
    char byte = 0;
    if (::read(ready[0], &byte, 1) != 1) mPid = -1;
    ::close(ready[0]);
    std::string const tmp = std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp";
    mFolder = tmp + "/crash-dump-bench-" + std::to_string(::getpid());
    ::mkdir(mFolder.c_str(), 0700);
  }
  ~DumpedProcess() {
    if (mPid > 0) {
      ::kill(mPid, SIGKILL);
      ::waitpid(mPid, nullptr, 0);
    }
    std::error_code ignored;
    std::filesystem::remove_all(mFolder, ignored);
  }
  DumpedProcess(DumpedProcess const &) = delete;
  DumpedProcess & operator=(DumpedProcess const &) = delete;

  pid_t Pid() const { return mPid; }

  // Each returns the file's size, 0 on failure.
  off_t Minidump() const {
    CrashContext context;
    context.pid = mPid;
    std::string const path = mFolder + "/process.dmp";
    if (minidump::WriteMinidumpFile(path, context, minidump::kTypeStacks) != 0) return 0;
    return SizeOf(path);
  }
  off_t Core() const {
    std::string const prefix = mFolder + "/core";
    std::string const pid = std::to_string(mPid);
    char gcore[] = "gcore";
    char o[] = "-o";
    std::vector<char *> argv = {gcore, o, const_cast<char *>(prefix.c_str()),
                                const_cast<char *>(pid.c_str()), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    int status = 1;
    if (::posix_spawnp(&child, "gcore", &actions, nullptr, argv.data(), environ) == 0)
      ::waitpid(child, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    off_t const size = status == 0 ? SizeOf(prefix + "." + pid) : 0;
    ::unlink((prefix + "." + pid).c_str());
    return size;
  }

private:
  static off_t SizeOf(std::string const & path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 ? info.st_size : 0;
  }
  pid_t mPid = -1;
  std::string mFolder;
};

DumpedProcess & Process() {
  static DumpedProcess process;
  return process;
}

template <typename Dump>
void Time(benchmark::State & state, Dump dump) {
  if (Process().Pid() <= 0) state.SkipWithError("the dumped process did not start");
  for (auto _ : state) {
    auto const start = std::chrono::steady_clock::now();
    off_t const size = dump();
    std::chrono::duration<double> const took = std::chrono::steady_clock::now() - start;
    if (size == 0) state.SkipWithError("no dump written (is gdb installed?)");
    state.SetIterationTime(took.count());
  }
}

template <typename Dump>
void Size(benchmark::State & state, Dump dump) {
  if (Process().Pid() <= 0) state.SkipWithError("the dumped process did not start");
  for (auto _ : state) {
    off_t const size = dump();
    if (size == 0) state.SkipWithError("no dump written (is gdb installed?)");
    state.SetIterationTime(static_cast<double>(size) * 1e-9);
    state.counters["bytes"] = static_cast<double>(size);
  }
}

void CrashDumpTime_candidate(benchmark::State & state) {
  Time(state, [] { return Process().Minidump(); });
}
void CrashDumpTime_baseline(benchmark::State & state) {
  Time(state, [] { return Process().Core(); });
}
void CrashDumpSize_candidate(benchmark::State & state) {
  Size(state, [] { return Process().Minidump(); });
}
void CrashDumpSize_baseline(benchmark::State & state) {
  Size(state, [] { return Process().Core(); });
}
BENCHMARK(CrashDumpTime_candidate)->Name("CrashDumpTime/candidate")->UseManualTime()->Iterations(1);
BENCHMARK(CrashDumpTime_baseline)->Name("CrashDumpTime/baseline")->UseManualTime()->Iterations(1);
BENCHMARK(CrashDumpSize_candidate)->Name("CrashDumpSize/candidate")->UseManualTime()->Iterations(1);
BENCHMARK(CrashDumpSize_baseline)->Name("CrashDumpSize/baseline")->UseManualTime()->Iterations(1);

}  // namespace
