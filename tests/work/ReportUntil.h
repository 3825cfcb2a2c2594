#pragma once
// A calculation for tests: it reports until something has happened, so
// that the progress pump is what delivers the events in between.

#include <chrono>
#include <functional>

#include "work/Progress.h"

// Reports until `condition` holds, then `extra` reports more; false when the
// condition does not hold within five seconds.
inline bool ReportUntil(Progress & progress, std::function<bool()> const & condition,
                        int extra = 20) {
  auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  int step = 0;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    progress.Set(float(++step % 100));
  }
  for (int i = 0; i < extra; ++i) progress.Set(float(++step % 100));
  return true;
}
