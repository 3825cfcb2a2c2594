#pragma once
// The service manager as a service control program meets it: systemd over
// D-Bus (org.freedesktop.systemd1). A connection stands for the "control
// manager": the system's bus, a remote machine's system bus, or the user's
// manager when TALVO_SERVICE_MANAGER=user. Copies of a connection share it.
//
// Every call answers with a Win32 error code, 0 for success, so that the
// service control keeps the codes and tables its callers know.

#include <cstdint>
#include <memory>
#include <string>

struct sd_bus;

namespace VxService {

// The states of a unit as the manager reports them.
struct UnitState {
  std::string loadState;    // "loaded", "not-found", "masked", ...
  std::string activeState;  // "active", "inactive", "failed", "activating", ...
  std::string freezerState;
  std::string result;      // the service's last result: "success", "exit-code", ...
  int execMainStatus = 0;  // the main process's exit status
  bool canStop = true;
};

class ServiceManagerBus {
public:
  // Opens the connection; 0 or the code of why not (5 no right, 1065 no
  // such manager to talk to).
  unsigned long Open(wchar_t const * machine);
  bool IsOpen() const { return static_cast<bool>(mBus); }
  void Close() { mBus.reset(); }
  bool IsRemote() const { return mRemote; }
  bool IsUserManager() const { return mUser; }

  unsigned long GetUnitState(std::string const & unit, UnitState & state);
  // Starts the unit and waits for its job to end (at most `timeoutSeconds`).
  unsigned long StartUnit(std::string const & unit, int timeoutSeconds = 30);
  unsigned long StopUnit(std::string const & unit);
  unsigned long KillUnit(std::string const & unit, int signal);
  // Makes the manager read its unit files again.
  unsigned long Reload();

  // The manager's object path of a unit, as systemd encodes it.
  static std::string UnitObjectPath(std::string const & unit);

private:
  std::shared_ptr<sd_bus> mBus;
  bool mRemote = false;
  bool mUser = false;
};

// The Win32 code of a D-Bus error name (or of a negative errno when there
// is no name).
unsigned long Win32CodeOfBusError(char const * errorName, int error);

}  // namespace VxService
