// One processor-monitor sample (read /proc/stat's "cpu" line, turn the
// delta into a load) beside a bare read and sscanf of the same line; and a
// stop-watch start and stop beside two bare clock_gettime calls.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cinttypes>
#include <cstdio>
#include <ctime>

#include "Figures.h"
#include "service/CPerfTimer.h"
#include "service/ProcessorMonitor.h"

namespace {

TALVO_RATIO_LIMIT("ProcessorMonitorSample", 1.2);
TALVO_RATIO_LIMIT("PerfTimerStartStop", 1.2);

void ProcessorMonitorSample_candidate(benchmark::State & state) {
  ProcStatTimesSource source;
  ProcessorTimes previous;
  source.Read(previous);
  for (auto _ : state) {
    ProcessorTimes current;
    int percent = 0;
    benchmark::DoNotOptimize(source.Read(current) &&
                             LoadPercentBetween(previous, current, percent));
    previous = current;
    benchmark::DoNotOptimize(percent);
  }
}
BENCHMARK(ProcessorMonitorSample_candidate)->Name("ProcessorMonitorSample/candidate");

void ProcessorMonitorSample_baseline(benchmark::State & state) {
  for (auto _ : state) {
    int const fd = ::open("/proc/stat", O_RDONLY | O_CLOEXEC);
    std::array<char, 512> buffer{};
    ssize_t const length = ::read(fd, buffer.data(), buffer.size() - 1);
    ::close(fd);
    std::uint64_t f[8] = {};
    int const read = length > 0
                         ? std::sscanf(buffer.data(),
                                       "cpu %" SCNu64 " %" SCNu64 " %" SCNu64 " %" SCNu64
                                       " %" SCNu64 " %" SCNu64 " %" SCNu64 " %" SCNu64,
                                       &f[0], &f[1], &f[2], &f[3], &f[4], &f[5], &f[6], &f[7])
                         : 0;
    benchmark::DoNotOptimize(read);
    benchmark::DoNotOptimize(f);
  }
}
BENCHMARK(ProcessorMonitorSample_baseline)->Name("ProcessorMonitorSample/baseline");

void PerfTimerStartStop_candidate(benchmark::State & state) {
  CPerfTimer timer;
  for (auto _ : state) {
    timer.Start();
    timer.Stop();
    benchmark::DoNotOptimize(timer);
  }
}
BENCHMARK(PerfTimerStartStop_candidate)->Name("PerfTimerStartStop/candidate");

void PerfTimerStartStop_baseline(benchmark::State & state) {
  for (auto _ : state) {
    timespec a{};
    timespec b{};
    ::clock_gettime(CLOCK_MONOTONIC, &a);
    ::clock_gettime(CLOCK_MONOTONIC, &b);
    benchmark::DoNotOptimize(a);
    benchmark::DoNotOptimize(b);
  }
}
BENCHMARK(PerfTimerStartStop_baseline)->Name("PerfTimerStartStop/baseline");

}  // namespace
