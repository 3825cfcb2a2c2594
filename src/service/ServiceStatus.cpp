#include "service/ServiceStatus.h"

#include "service/ServiceErrorText.h"

namespace VxService {

StatusRecord MakeRecord(uint32_t state, uint32_t checkPoint, uint32_t waitHint,
                        uint32_t win32ExitCode, uint32_t specificExitCode) {
  StatusRecord record;
  record.state = state;
  record.controlsAccepted =
      state == StartPending || state == StopPending ? 0u : AcceptStop | AcceptShutdown;
  record.checkPoint = checkPoint;
  record.waitHint = waitHint;
  record.specificExitCode = specificExitCode;
  record.win32ExitCode = specificExitCode != 0 ? kServiceSpecificError : win32ExitCode;
  return record;
}

namespace {

std::string StateText(StatusRecord const & record) {
  switch (record.state) {
    case Stopped: break;
    case StartPending: return "Starting";
    case StopPending: return "Stopping";
    case Running: return "Running";
    case ContinuePending: return "Continuing";
    case PausePending: return "Pausing";
    case Paused: return "Paused";
    default: return "State " + std::to_string(record.state);
  }
  if (record.specificExitCode != 0)
    return "Stopped: service-specific error " + std::to_string(record.specificExitCode);
  if (record.win32ExitCode != 0)
    return "Stopped: error " + std::to_string(record.win32ExitCode) + " (" +
           GetErrorText(record.win32ExitCode) + ")";
  return "Stopped";
}

}  // namespace

std::string NotifyText(StatusRecord const & record) {
  std::string text;
  if (record.state == Running) text += "READY=1\n";
  if (record.state == StopPending) text += "STOPPING=1\n";
  if (record.waitHint > 0)
    text += "EXTEND_TIMEOUT_USEC=" + std::to_string(uint64_t{record.waitHint} * 1000) + "\n";
  text += "STATUS=" + StateText(record) + "\n";
  text += "X_STATE=" + std::to_string(record.state) + "\n";
  text += "X_CHECKPOINT=" + std::to_string(record.checkPoint) + "\n";
  text += "X_WAIT_HINT=" + std::to_string(record.waitHint) + "\n";
  text += "X_CONTROLS_ACCEPTED=" + std::to_string(record.controlsAccepted) + "\n";
  text += "X_WIN32_EXIT=" + std::to_string(record.win32ExitCode) + "\n";
  text += "X_SPECIFIC_EXIT=" + std::to_string(record.specificExitCode) + "\n";
  return text;
}

int ExitStatus(StatusRecord const & record) {
  if (record.specificExitCode != 0)
    return record.specificExitCode <= 125 ? static_cast<int>(record.specificExitCode) : 1;
  return record.win32ExitCode != 0 ? 1 : 0;
}

void AtomicStatus::Store(StatusRecord const & record) {
  mControlsAccepted.store(record.controlsAccepted, std::memory_order_release);
  mWin32ExitCode.store(record.win32ExitCode, std::memory_order_release);
  mSpecificExitCode.store(record.specificExitCode, std::memory_order_release);
  mCheckPoint.store(record.checkPoint, std::memory_order_release);
  mWaitHint.store(record.waitHint, std::memory_order_release);
  mState.store(record.state, std::memory_order_release);
}

StatusRecord AtomicStatus::Load() const {
  StatusRecord record;
  record.state = mState.load(std::memory_order_acquire);
  record.controlsAccepted = mControlsAccepted.load(std::memory_order_acquire);
  record.win32ExitCode = mWin32ExitCode.load(std::memory_order_acquire);
  record.specificExitCode = mSpecificExitCode.load(std::memory_order_acquire);
  record.checkPoint = mCheckPoint.load(std::memory_order_acquire);
  record.waitHint = mWaitHint.load(std::memory_order_acquire);
  return record;
}

}  // namespace VxService
