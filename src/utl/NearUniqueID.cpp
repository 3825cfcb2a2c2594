#include "utl/NearUniqueID.h"

#include <pthread.h>
#include <sys/random.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdint>

namespace {

// Any odd step walks through all 2^32 values before it repeats one; this
// one (2^32 divided by the golden ratio) also spreads neighbouring calls far
// apart.
constexpr uint32_t kStep = 0x9E3779B9u;

uint32_t FreshStart() {
  uint32_t start = 0;
  if (getrandom(&start, sizeof start, GRND_NONBLOCK) == sizeof start) return start;
  // No entropy yet (early boot): the clock and the process id, mixed.
  uint64_t mix =
      static_cast<uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
      (static_cast<uint64_t>(getpid()) << 32);
  mix = (mix ^ (mix >> 30)) * 0xBF58476D1CE4E5B9ull;
  mix = (mix ^ (mix >> 27)) * 0x94D049BB133111EBull;
  return static_cast<uint32_t>(mix ^ (mix >> 31));
}

std::atomic<uint32_t> & Next();

// A forked child would otherwise continue its parent's sequence and hand
// out the very numbers the parent hands out next.
void RestartInChild() { Next().store(FreshStart(), std::memory_order_relaxed); }

std::atomic<uint32_t> & Next() {
  static std::atomic<uint32_t> next = [] {
    pthread_atfork(nullptr, nullptr, &RestartInChild);
    return FreshStart();
  }();
  return next;
}

}  // namespace

unsigned long GetNearUniqueID() { return Next().fetch_add(kStep, std::memory_order_relaxed); }
