#pragma once
// Watches the load of the whole machine on a thread of its own and calls
// back when the load has stayed high: every sample at or above the value
// limit counts one hit, every lower one takes one back, and reaching the hit
// limit calls the callback and starts counting again. So a load that hovers
// around the limit still reaches it in time, while a short peak does not.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "service/ProcessorTimes.h"

// Where the monitor's samples come from: the machine's /proc/stat, or a
// script in tests.
class ProcessorTimesSource {
public:
  virtual ~ProcessorTimesSource() = default;
  // False when the times cannot be read; the monitor then ends its worker.
  virtual bool Read(ProcessorTimes & times) = 0;
};

// The machine's times from /proc/stat.
class ProcStatTimesSource : public ProcessorTimesSource {
public:
  bool Read(ProcessorTimes & times) override;
};

class ProcessorMonitor {
public:
  using Callback = void (*)(ProcessorMonitor const *, void *);

  static constexpr std::chrono::milliseconds kSamplePeriod{1000};

  ProcessorMonitor();
  // Tests give their own samples and a period of 0, so that nothing waits.
  ProcessorMonitor(std::unique_ptr<ProcessorTimesSource> source, std::chrono::milliseconds period);
  // Stops the worker at once (it waits on a condition, not in a sleep) and
  // joins it. Never call it from the callback: that runs on the worker.
  ~ProcessorMonitor();
  ProcessorMonitor(ProcessorMonitor const &) = delete;
  ProcessorMonitor & operator=(ProcessorMonitor const &) = delete;

  // Stores the limits and the callback and starts the worker; a second call
  // does nothing. If no thread can be made, the monitor stays inactive.
  void Init(int valueLimit, int hitLimit, Callback callback, void * param);

  int GetValueLimit() const { return m_valueLimit; }
  int GetHitLimit() const { return m_hitLimit; }
  // The last sample in percent, -1 before the first. Written by the worker
  // only; read without a lock.
  int GetLastValue() const { return m_lastValue.load(std::memory_order_relaxed); }
  void * GetParam() const { return m_param; }

private:
  void ThreadProc();
  // Waits until `deadline` or until stopped; true while still running.
  bool WaitUntil(std::chrono::steady_clock::time_point deadline);

  std::unique_ptr<ProcessorTimesSource> m_source;
  std::chrono::milliseconds m_period;
  Callback m_callback = nullptr;
  void * m_param = nullptr;
  std::unique_ptr<std::thread> m_worker;
  std::atomic<int> m_run{1};
  int m_valueLimit = -1;
  int m_hitLimit = -1;
  std::atomic<int> m_lastValue{-1};
  std::mutex m_wakeMutex;
  std::condition_variable m_wake;
};
