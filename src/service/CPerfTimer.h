#pragma once
// A stop-watch on the monotonic clock, one word wide: stopped, the field
// holds minus the nanoseconds counted so far; running, the clock reading at
// start minus them. The clock reading is far above any elapsed time, so the
// field's sign is the timer's state.

#include <cstdint>

class CPerfTimer {
public:
  CPerfTimer() = default;

  void Start();  // no effect while running
  void Stop();   // no effect while stopped
  void Reset();  // 0 ticks; stops a running timer
  bool IsRunning() const { return m_value > 0; }

  std::int64_t GetElapsedTicks() const;
  double GetElapsedSeconds() const;
  double GetElapsedMilliseconds() const;
  double GetElapsedMicroseconds() const;

  // Ticks a second: the monotonic clock counts nanoseconds.
  static std::int64_t GetFrequency() { return 1'000'000'000; }

private:
  static std::int64_t Now();

  std::int64_t m_value = 0;
};
