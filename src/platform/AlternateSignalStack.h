#pragma once
// A stack of its own for the signal handlers of the calling thread, so that
// a thread that overflowed its stack can still report the crash. Every
// thread the library starts holds one for its life; the crash handler gives
// the main thread one that lasts to the end of the process.
//
// Header-only: the display-free crash library below the user interface
// uses it too.

#include <sys/mman.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>

class AlternateSignalStack {
public:
  // Installs a stack unless the thread has one already.
  AlternateSignalStack() {
    stack_t current{};
    if (::sigaltstack(nullptr, &current) != 0 || (current.ss_flags & SS_DISABLE) == 0) return;
    // Guard pages: below, so that a handler overflowing this stack faults
    // instead of writing over whatever lies beneath; above, so that the
    // kernel never merges it with a thread's stack next to it.
    void * block = ::mmap(nullptr, kGuard + kSize + kGuard, PROT_NONE,
                          MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
    if (block == MAP_FAILED) return;
    if (::mprotect(static_cast<char *>(block) + kGuard, kSize, PROT_READ | PROT_WRITE) != 0) {
      ::munmap(block, kGuard + kSize + kGuard);
      return;
    }
    stack_t stack{};
    stack.ss_sp = static_cast<char *>(block) + kGuard;
    stack.ss_size = kSize;
    if (::sigaltstack(&stack, nullptr) != 0) {
      ::munmap(block, kGuard + kSize + kGuard);
      return;
    }
    mBlock = block;
  }

  // Removes the stack it installed (and only that one).
  ~AlternateSignalStack() {
    if (mBlock == nullptr) return;
    stack_t current{};
    if (::sigaltstack(nullptr, &current) == 0 &&
        current.ss_sp == static_cast<char *>(mBlock) + kGuard) {
      stack_t off{};
      off.ss_flags = SS_DISABLE;
      ::sigaltstack(&off, nullptr);
    }
    ::munmap(mBlock, kGuard + kSize + kGuard);
  }

  AlternateSignalStack(AlternateSignalStack const &) = delete;
  AlternateSignalStack & operator=(AlternateSignalStack const &) = delete;

  bool Installed() const { return mBlock != nullptr; }

  // The handler copies the crash and starts the dump writer: a few frames.
  static constexpr size_t kSize = 64 * 1024;

private:
  static constexpr size_t kGuard = 4096;
  void * mBlock = nullptr;
};
