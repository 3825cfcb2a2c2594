#include "service/ProcessorMonitor.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <string_view>
#include <system_error>

#include "platform/AlternateSignalStack.h"

bool ProcStatTimesSource::Read(ProcessorTimes & times) {
  int const fd = ::open("/proc/stat", O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  // The "cpu" line comes first and is short; the rest of the file is not
  // needed.
  std::array<char, 512> buffer{};
  ssize_t const length = ::read(fd, buffer.data(), buffer.size());
  ::close(fd);
  if (length <= 0) return false;
  std::string_view text(buffer.data(), static_cast<std::size_t>(length));
  text = text.substr(0, text.find('\n'));
  return ParseProcessorTimes(text, times);
}

ProcessorMonitor::ProcessorMonitor()
    : ProcessorMonitor(std::make_unique<ProcStatTimesSource>(), kSamplePeriod) {}

ProcessorMonitor::ProcessorMonitor(std::unique_ptr<ProcessorTimesSource> source,
                                   std::chrono::milliseconds period)
    : m_source(std::move(source)), m_period(period) {}

ProcessorMonitor::~ProcessorMonitor() {
  if (!m_worker) return;
  m_run.store(0);
  {
    // Under the lock, so that the wake-up cannot fall between the worker's
    // check of the flag and its wait.
    std::lock_guard<std::mutex> lock(m_wakeMutex);
  }
  m_wake.notify_all();
  m_worker->join();
}

void ProcessorMonitor::Init(int valueLimit, int hitLimit, Callback callback, void * param) {
  if (m_worker) return;
  m_valueLimit = valueLimit;
  m_hitLimit = hitLimit;
  m_callback = callback;
  m_param = param;
  try {
    m_worker = std::make_unique<std::thread>(&ProcessorMonitor::ThreadProc, this);
  } catch (std::system_error const &) {
    m_worker.reset();  // no thread: the monitor stays inactive
  }
}

bool ProcessorMonitor::WaitUntil(std::chrono::steady_clock::time_point deadline) {
  std::unique_lock<std::mutex> lock(m_wakeMutex);
  m_wake.wait_until(lock, deadline, [this] { return m_run.load() != 1; });
  return m_run.load() == 1;
}

void ProcessorMonitor::ThreadProc() {
  AlternateSignalStack const signalStack;  // a crash here is still reported
  Callback const callback = m_callback;
  void * const param = m_param;
  int const valueLimit = m_valueLimit;
  int const hitLimit = m_hitLimit;

  // A load is a rate: it needs a first reading to measure from.
  ProcessorTimes previous;
  if (!m_source->Read(previous)) return;
  int hits = 0;
  // Deadlines on a fixed grid, so that slow samples do not stretch the period.
  auto deadline = std::chrono::steady_clock::now();
  while (m_run.load() == 1) {
    deadline += m_period;
    if (!WaitUntil(deadline)) break;
    ProcessorTimes current;
    if (!m_source->Read(current)) break;
    int value = 0;
    bool const measured = LoadPercentBetween(previous, current, value);
    previous = current;
    if (!measured) continue;
    m_lastValue.store(value, std::memory_order_relaxed);
    if (value >= valueLimit) {
      if (++hits >= hitLimit) {
        if (callback != nullptr) callback(this, param);
        hits = 0;
      }
    } else if (hits > 0) {
      --hits;
    }
  }
}
