#pragma once
// Processor samples from a script, for tests of what watches the load.

#include <cstdint>
#include <future>
#include <optional>
#include <vector>

#include "service/ProcessorMonitor.h"

// Samples from a script: each entry is the load of one period in percent,
// or nothing for a period in which the counters did not move. When the
// script runs out, the source fails, which ends the worker.
class ScriptedProcessorTimes : public ProcessorTimesSource {
public:
  explicit ScriptedProcessorTimes(std::vector<std::optional<int>> loads)
      : m_loads(std::move(loads)) {}

  bool Read(ProcessorTimes & times) override {
    if (m_first) {
      m_first = false;
      times = m_times;
      return true;
    }
    if (m_next == m_loads.size()) {
      m_finished.set_value();
      return false;
    }
    if (auto const load = m_loads[m_next++]) {
      m_times.busy += static_cast<std::uint64_t>(*load);
      m_times.total += 100;
    }
    times = m_times;
    return true;
  }

  std::future<void> Finished() { return m_finished.get_future(); }

private:
  std::vector<std::optional<int>> m_loads;
  std::size_t m_next = 0;
  bool m_first = true;
  ProcessorTimes m_times{1000, 5000};
  std::promise<void> m_finished;
};
