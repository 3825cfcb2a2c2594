// The processor monitor's sample arithmetic, its hit rule on scripted
// samples, its real /proc/stat source, and the stop-watch.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <string>
#include <vector>

#include "service/CPerfTimer.h"
#include "service/ProcessorMonitor.h"
#include "service/ScriptedProcessorTimes.h"

namespace {

TEST(ProcessorTimes, ParsesTheCpuLineOfProcStat) {
  struct Case {
    char const * text;
    bool ok;
    std::uint64_t busy;
    std::uint64_t total;
  };
  Case const cases[] = {
      // user nice system idle iowait irq softirq steal guest guest_nice:
      // guest is inside user, so busy leaves it out.
      {"cpu  10 20 30 400 50 6 7 8 90 100", true, 10 + 20 + 30 + 6 + 7 + 8, 81 + 400 + 50},
      {"cpu 1 2 3 4", true, 6, 10},  // old kernels: four fields
      {"cpu\t1\t2\t3\t4 5", true, 6, 15},
      {"cpu 1 2 3", false, 0, 0},             // no idle field
      {"cpu0 1 2 3 4 5 6 7 8", false, 0, 0},  // a single processor's line
      {"intr 1 2 3 4", false, 0, 0},
      {"", false, 0, 0},
      {"cpu  1 2 x 4", false, 0, 0},
      {"cpu 99999999999999999999 1 1 1", false, 0, 0},  // past 64 bits
      {"cpu 18446744073709551615 18446744073709551615 0 5", true, UINT64_MAX, UINT64_MAX},
  };
  for (auto const & c : cases) {
    ProcessorTimes times;
    EXPECT_EQ(ParseProcessorTimes(c.text, times), c.ok) << c.text;
    if (!c.ok) continue;
    EXPECT_EQ(times.busy, c.busy) << c.text;
    EXPECT_EQ(times.total, c.total) << c.text;
  }
}

TEST(ProcessorTimes, LoadIsRoundedAndCappedAndNeedsForwardCounters) {
  struct Case {
    ProcessorTimes earlier, later;
    bool ok;
    int percent;
  };
  Case const cases[] = {
      {{0, 0}, {1, 3}, true, 33},          {{0, 0}, {2, 3}, true, 67},
      {{100, 1000}, {100, 2000}, true, 0}, {{100, 1000}, {1100, 2000}, true, 100},
      {{0, 0}, {1, 200}, true, 1},       // 0.5 rounds up
      {{0, 0}, {5, 3}, true, 100},       // idle went backwards: capped
      {{10, 100}, {10, 100}, false, 0},  // no time passed
      {{10, 100}, {5, 200}, false, 0},   // busy went backwards
      {{10, 100}, {20, 50}, false, 0},   // total went backwards
  };
  for (auto const & c : cases) {
    int percent = -1;
    EXPECT_EQ(LoadPercentBetween(c.earlier, c.later, percent), c.ok);
    if (c.ok) {
      EXPECT_EQ(percent, c.percent);
    }
  }
}

struct ScriptRun {
  int callbacks = 0;
  int lastValue = -1;
};

ScriptRun RunScript(std::vector<std::optional<int>> loads, int valueLimit, int hitLimit) {
  auto source = std::make_unique<ScriptedProcessorTimes>(std::move(loads));
  auto finished = source->Finished();
  ScriptRun run;
  ProcessorMonitor monitor(std::move(source), std::chrono::milliseconds(0));
  monitor.Init(
      valueLimit, hitLimit,
      [](ProcessorMonitor const * m, void * param) {
        auto * r = static_cast<ScriptRun *>(param);
        ++r->callbacks;
        EXPECT_GE(m->GetLastValue(), m->GetValueLimit());
      },
      &run);
  EXPECT_EQ(finished.wait_for(std::chrono::seconds(10)), std::future_status::ready);
  run.lastValue = monitor.GetLastValue();
  return run;
}

TEST(ProcessorMonitor, CountsHitsAndTakesOneBackForEachLowSample) {
  struct Case {
    char const * name;
    std::vector<std::optional<int>> loads;
    int hitLimit;
    int callbacks;
    int lastValue;
  };
  Case const cases[] = {
      {"hit limit 1 fires at each high sample", {90, 20, 80, 95}, 1, 3, 95},
      {"a dip takes back one step", {90, 90, 10, 90, 90}, 3, 1, 90},
      {"alternating never reaches 2", {90, 10, 90, 10, 90}, 2, 0, 90},
      {"the count restarts after a call", {90, 90, 90, 90, 90, 90}, 3, 2, 90},
      {"the limit itself counts as high", {80, 80}, 2, 1, 80},
      {"a still counter is no sample", {90, std::nullopt, 90}, 2, 1, 90},
      {"only still counters", {std::nullopt, std::nullopt}, 1, 0, -1},
  };
  for (auto const & c : cases) {
    ScriptRun const run = RunScript(c.loads, 80, c.hitLimit);
    EXPECT_EQ(run.callbacks, c.callbacks) << c.name;
    EXPECT_EQ(run.lastValue, c.lastValue) << c.name;
  }
}

TEST(ProcessorMonitor, InitTakesOnlyTheFirstCallAndUnreadableTimesEndTheWorker) {
  class Unreadable : public ProcessorTimesSource {
  public:
    bool Read(ProcessorTimes &) override { return false; }
  };
  ProcessorMonitor monitor(std::make_unique<Unreadable>(), std::chrono::milliseconds(0));
  int marker = 0;
  monitor.Init(50, 2, nullptr, &marker);
  monitor.Init(70, 9, nullptr, nullptr);
  EXPECT_EQ(monitor.GetValueLimit(), 50);
  EXPECT_EQ(monitor.GetHitLimit(), 2);
  EXPECT_EQ(monitor.GetParam(), &marker);
  EXPECT_EQ(monitor.GetLastValue(), -1);
}

TEST(ProcessorMonitor, MeasuresTheMachineAndStopsWithoutWaitingForTheSample) {
  ProcessorTimes times;
  ProcStatTimesSource source;
  ASSERT_TRUE(source.Read(times));
  EXPECT_GT(times.total, 0U);
  EXPECT_LE(times.busy, times.total);

  auto const start = std::chrono::steady_clock::now();
  {
    ProcessorMonitor monitor;  // the real source and the real 1 s period
    monitor.Init(101, 1, nullptr, nullptr);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, ProcessorMonitor::kSamplePeriod / 2);
}

// Waits until the monotonic clock has visibly moved, without sleeping.
void LetTimePass() {
  CPerfTimer watch;
  watch.Start();
  while (watch.GetElapsedTicks() < 1000) {}
}

TEST(CPerfTimer, AddsUpRunsAndIgnoresRepeatedStartsAndStops) {
  CPerfTimer timer;
  EXPECT_FALSE(timer.IsRunning());
  EXPECT_EQ(timer.GetElapsedTicks(), 0);

  timer.Start();
  EXPECT_TRUE(timer.IsRunning());
  LetTimePass();
  timer.Start();  // already running: the start stays where it was
  timer.Stop();
  std::int64_t const first = timer.GetElapsedTicks();
  EXPECT_GE(first, 1000);
  timer.Stop();  // already stopped
  LetTimePass();
  EXPECT_EQ(timer.GetElapsedTicks(), first);

  timer.Start();
  LetTimePass();
  timer.Stop();
  std::int64_t const both = timer.GetElapsedTicks();
  EXPECT_GE(both, first + 1000);
  EXPECT_DOUBLE_EQ(timer.GetElapsedMicroseconds(), static_cast<double>(both) / 1e3);
  EXPECT_DOUBLE_EQ(timer.GetElapsedSeconds(), static_cast<double>(both) / 1e9);

  timer.Start();
  timer.Reset();  // stops a running timer
  EXPECT_FALSE(timer.IsRunning());
  EXPECT_EQ(timer.GetElapsedTicks(), 0);
  static_assert(sizeof(CPerfTimer) == sizeof(std::int64_t), "one word wide");
}

}  // namespace
