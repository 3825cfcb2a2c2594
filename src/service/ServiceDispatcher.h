#pragma once
// The service dispatcher of a systemd Type=notify service: the main thread
// blocks in Run while a service thread does the service's work and a control
// thread turns signals into controls:
//
//   SIGTERM  stop (1), or shutdown (5) while the manager is stopping
//   SIGUSR1  interrogate (4)
//   SIGHUP   a parameter change (6), which the handler takes for "other"
//
// The signals are blocked in every thread before any thread starts and are
// read from a signalfd, so no handler runs in an arbitrary thread. A stop or
// shutdown that comes while the service does not accept it (start or stop
// pending) is held, and handed over as soon as a report accepts it.

#include <cstdint>
#include <functional>
#include <string>

#include "service/ServiceStatus.h"

namespace VxService {

class ServiceDispatcher {
public:
  using ServiceMain = std::function<void()>;
  using ControlHandler = std::function<void(uint32_t control)>;

  // Blocks the dispatcher's signals in the calling thread (and so in every
  // thread it starts later).
  static void BlockControlSignals();

  // `status` is read to decide whether a control is accepted.
  ServiceDispatcher(AtomicStatus const & status, ServiceMain serviceMain, ControlHandler handler);
  ~ServiceDispatcher();
  ServiceDispatcher(ServiceDispatcher const &) = delete;
  ServiceDispatcher & operator=(ServiceDispatcher const &) = delete;

  // Runs the service to its end. 0 when it ran; otherwise the Win32 code:
  // 1063 not started by a manager (no NOTIFY_SOCKET), 1056 a dispatcher of
  // this process runs already, 1054 a thread could not be made.
  uint32_t Run();

  // Called after every status report: held controls may now be accepted.
  void StatusChanged();

private:
  void ControlLoop(int signals);
  void Wake();

  AtomicStatus const & mStatus;
  ServiceMain mServiceMain;
  ControlHandler mHandler;
  int mWake = -1;  // eventfd
};

}  // namespace VxService
