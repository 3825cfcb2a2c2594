#include "service/CPerfTimer.h"

#include <ctime>

std::int64_t CPerfTimer::Now() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);  // served by the vDSO: no system call
  return static_cast<std::int64_t>(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
}

void CPerfTimer::Start() {
  if (!IsRunning()) m_value += Now();
}

void CPerfTimer::Stop() {
  if (IsRunning()) m_value -= Now();
}

void CPerfTimer::Reset() { m_value = 0; }

std::int64_t CPerfTimer::GetElapsedTicks() const {
  return IsRunning() ? Now() - m_value : -m_value;
}

double CPerfTimer::GetElapsedSeconds() const {
  return static_cast<double>(GetElapsedTicks()) / static_cast<double>(GetFrequency());
}

double CPerfTimer::GetElapsedMilliseconds() const {
  return static_cast<double>(GetElapsedTicks()) * 1e3 / static_cast<double>(GetFrequency());
}

double CPerfTimer::GetElapsedMicroseconds() const {
  return static_cast<double>(GetElapsedTicks()) * 1e6 / static_cast<double>(GetFrequency());
}
