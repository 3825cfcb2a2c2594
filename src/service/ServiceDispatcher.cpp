#include "service/ServiceDispatcher.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <deque>
#include <system_error>
#include <thread>

#include "platform/AlternateSignalStack.h"
#include "service/ServiceUnit.h"

namespace VxService {

namespace {

constexpr uint32_t kControlParamChange = 6;
constexpr uint32_t kErrorThreadNotCreated = 1054;
constexpr uint32_t kErrorAlreadyRunning = 1056;
constexpr uint32_t kErrorNotConnected = 1063;

std::atomic<bool> gRunning{false};
// Set once the service thread has returned: the control thread ends.
std::atomic<bool> gEnded{false};

sigset_t ControlSignals() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGTERM);
  sigaddset(&set, SIGUSR1);
  sigaddset(&set, SIGHUP);
  return set;
}

// The accept bit a control needs; 0: always delivered.
uint32_t AcceptBitOf(uint32_t control) {
  switch (control) {
    case ControlStop: return AcceptStop;
    case ControlShutdown: return AcceptShutdown;
    default: return 0;
  }
}

// The service reported its stop. The record before any report is stopped
// too, but accepts nothing: controls that come then wait for the start.
bool HasStopped(AtomicStatus const & status) {
  return status.State() == Stopped && status.ControlsAccepted() != 0;
}

}  // namespace

void ServiceDispatcher::BlockControlSignals() {
  sigset_t const set = ControlSignals();
  ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

ServiceDispatcher::ServiceDispatcher(AtomicStatus const & status, ServiceMain serviceMain,
                                     ControlHandler handler)
    : mStatus(status), mServiceMain(std::move(serviceMain)), mHandler(std::move(handler)) {}

ServiceDispatcher::~ServiceDispatcher() {
  if (mWake >= 0) ::close(mWake);
}

void ServiceDispatcher::Wake() {
  if (mWake >= 0) {
    uint64_t const one = 1;
    ssize_t const written = ::write(mWake, &one, sizeof one);
    (void)written;  // a full counter wakes the reader all the same
  }
}

void ServiceDispatcher::StatusChanged() { Wake(); }

uint32_t ServiceDispatcher::Run() {
  char const * socket = std::getenv("NOTIFY_SOCKET");
  if (socket == nullptr || socket[0] == '\0') return kErrorNotConnected;
  if (gRunning.exchange(true)) return kErrorAlreadyRunning;
  BlockControlSignals();
  sigset_t const set = ControlSignals();
  int const signals = ::signalfd(-1, &set, SFD_CLOEXEC);
  mWake = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (signals < 0 || mWake < 0) {
    if (signals >= 0) ::close(signals);
    gRunning = false;
    return kErrorThreadNotCreated;
  }
  gEnded = false;
  uint32_t result = 0;
  try {
    std::thread control([this, signals] {
      AlternateSignalStack const signalStack;  // a crash here is still reported
      ControlLoop(signals);
    });
    try {
      std::thread service([this] {
        AlternateSignalStack const signalStack;
        mServiceMain();
      });
      service.join();
    } catch (std::system_error &) {
      result = kErrorThreadNotCreated;
    }
    gEnded = true;
    Wake();
    control.join();
  } catch (std::system_error &) {
    result = kErrorThreadNotCreated;
  }
  ::close(signals);
  gRunning = false;
  return result;
}

void ServiceDispatcher::ControlLoop(int signals) {
  ManagerState manager;
  std::deque<uint32_t> held;
  auto deliver = [this, &held] {
    while (!held.empty()) {
      if (HasStopped(mStatus)) {
        held.clear();
        return;
      }
      if ((mStatus.ControlsAccepted() & AcceptBitOf(held.front())) == 0) return;
      uint32_t const control = held.front();
      held.pop_front();
      mHandler(control);
    }
  };
  pollfd wait[2] = {{signals, POLLIN, 0}, {mWake, POLLIN, 0}};
  while (!gEnded) {
    if (::poll(wait, 2, -1) < 0) {
      if (errno == EINTR) continue;
      break;
    }
    if ((wait[1].revents & POLLIN) != 0) {
      uint64_t count = 0;
      ssize_t const got = ::read(mWake, &count, sizeof count);
      (void)got;
    }
    if ((wait[0].revents & POLLIN) != 0) {
      signalfd_siginfo info{};
      if (::read(signals, &info, sizeof info) == static_cast<ssize_t>(sizeof info)) {
        uint32_t control = kControlParamChange;
        if (info.ssi_signo == SIGTERM)
          control = manager.IsStopping() ? ControlShutdown : ControlStop;
        else if (info.ssi_signo == SIGUSR1)
          control = ControlInterrogate;
        uint32_t const needs = AcceptBitOf(control);
        if (needs != 0 && HasStopped(mStatus)) continue;  // the service has ended: nothing to stop
        if (needs != 0 && (!held.empty() || (mStatus.ControlsAccepted() & needs) == 0))
          held.push_back(control);
        else
          mHandler(control);
      }
    }
    if (!gEnded) deliver();
  }
}

}  // namespace VxService
