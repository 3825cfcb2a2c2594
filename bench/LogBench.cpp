// Log::WriteMessage from two threads at once, beside the bare cost of
// appending a preformatted line of the same length with one write(2).
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "Figures.h"
#include "utl/Log.h"
#include "utl/VxSystemInfo.h"

namespace {

TALVO_TIME_LIMIT("LogWriteMessage", 5000);

std::string BenchFolder() {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-bench-log";
}

void LogWriteMessage_candidate(benchmark::State & state) {
  if (state.thread_index() == 0) {
    ::setenv("XDG_STATE_HOME", BenchFolder().c_str(), 1);
    VxSystemInfo::SetApplication("talvo-bench", "1.0");
  }
  std::string const text =
      "Interrogate message arrived at service handler. " + std::to_string(state.thread_index());
  for (auto _ : state) Log::WriteMessage("NTServiceApp", "Handler", text, Log::Routine, false);
  if (state.thread_index() == 0) ::unlink(Log::GetLogFilePath().c_str());
}
BENCHMARK(LogWriteMessage_candidate)->Name("LogWriteMessage/candidate")->Threads(2)->UseRealTime();

void LogWriteMessage_baseline(benchmark::State & state) {
  static int fd = -1;
  std::string const path = BenchFolder() + "-raw.log";
  if (state.thread_index() == 0) fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT, 0600);
  std::string const line =
      "2026-11-21T05:44:00.123456Z [12345/12346] 0 NTServiceApp::Handler: Interrogate message "
      "arrived at service handler. 0\n";
  for (auto _ : state) benchmark::DoNotOptimize(::write(fd, line.data(), line.size()));
  if (state.thread_index() == 0) {
    ::close(fd);
    ::unlink(path.c_str());
  }
}
BENCHMARK(LogWriteMessage_baseline)->Name("LogWriteMessage/baseline")->Threads(2)->UseRealTime();

}  // namespace
