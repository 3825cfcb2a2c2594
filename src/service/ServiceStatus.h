#pragma once
// The status a service reports to its manager, and its sd_notify text.
//
// The record is written from the service thread and the control thread
// without a lock: each field is one atomic word, and every report sends the
// whole record. systemd reads READY=1, STOPPING=1, EXTEND_TIMEOUT_USEC and
// STATUS; the X_ fields carry the rest of the record (systemd ignores them,
// a control program or a test reads them).

#include <atomic>
#include <cstdint>
#include <string>

namespace VxService {

// The service states and controls in the system's numbering.
enum State : uint32_t {
  Stopped = 1,
  StartPending = 2,
  StopPending = 3,
  Running = 4,
  ContinuePending = 5,
  PausePending = 6,
  Paused = 7,
};
enum Control : uint32_t { ControlStop = 1, ControlInterrogate = 4, ControlShutdown = 5 };
enum Accept : uint32_t { AcceptStop = 1, AcceptShutdown = 4 };
constexpr uint32_t kOwnProcess = 16;
constexpr uint32_t kServiceSpecificError = 1066;

struct StatusRecord {
  uint32_t type = kOwnProcess;
  uint32_t state = Stopped;
  uint32_t controlsAccepted = 0;
  uint32_t win32ExitCode = 0;
  uint32_t specificExitCode = 0;
  uint32_t checkPoint = 0;
  uint32_t waitHint = 0;
};

// The record with the rules of every report: no controls accepted while a
// start or stop is pending, else stop and shutdown; a service-specific code
// makes the Win32 code 1066.
StatusRecord MakeRecord(uint32_t state, uint32_t checkPoint, uint32_t waitHint,
                        uint32_t win32ExitCode, uint32_t specificExitCode);

// The sd_notify text of a record, one "NAME=value" a line.
std::string NotifyText(StatusRecord const & record);

// The process's exit status for a stopped record: 0 after a clean stop; a
// service-specific code e gives e when it is 1 to 125 (what an exit status
// can carry without meaning a signal or a shell's failure), else 1; another
// Win32 code gives 1.
int ExitStatus(StatusRecord const & record);

class AtomicStatus {
public:
  void Store(StatusRecord const & record);
  StatusRecord Load() const;
  uint32_t State() const { return mState.load(std::memory_order_acquire); }
  uint32_t ControlsAccepted() const { return mControlsAccepted.load(std::memory_order_acquire); }

private:
  std::atomic<uint32_t> mState{Stopped};
  std::atomic<uint32_t> mControlsAccepted{0};
  std::atomic<uint32_t> mWin32ExitCode{0};
  std::atomic<uint32_t> mSpecificExitCode{0};
  std::atomic<uint32_t> mCheckPoint{0};
  std::atomic<uint32_t> mWaitHint{0};
};

}  // namespace VxService
