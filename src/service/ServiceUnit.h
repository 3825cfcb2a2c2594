#pragma once
// What ties a service name to its systemd unit: the name's checks, the unit
// name systemd-escape makes of it, the unit this process runs in, and
// whether the manager is shutting down. The manager's answers go through
// replaceable functions, so that tests decide what the manager says.

#include <functional>
#include <string>

namespace VxService {

// A name a service can have: at most 256 characters, no "/" or "\\", no
// control character, nothing outside Unicode, and an escaped unit name that
// systemd takes (at most 255 bytes with ".service").
bool IsValidServiceName(std::wstring const & name);

// The name as `systemd-escape` escapes it: "/" becomes "-"; ASCII letters,
// digits, ":" and "_" stay, and "." too unless it leads; every other byte
// is "\xNN".
std::string EscapeUnitName(std::string const & name);
// The escaped name with ".service".
std::string UnitNameOf(std::wstring const & serviceName);

// The unit this process runs in, as the system manager (sd_pid_get_unit) or
// a user's manager (sd_pid_get_user_unit) sees it; empty outside any unit.
using UnitLookup = std::function<std::string()>;
std::string OwnUnit();
// Replaces the lookup (an empty function restores the manager's); returns
// the former one.
UnitLookup SetUnitLookup(UnitLookup lookup);

// Asks whether the manager that runs this process is stopping (its
// SystemState is "stopping"). Made once, before signals arrive, so that the
// answer costs one call on a bus already open.
class ManagerState {
public:
  ManagerState();
  ~ManagerState();
  ManagerState(ManagerState const &) = delete;
  ManagerState & operator=(ManagerState const &) = delete;

  bool IsStopping();

  // Replaces the question for every later object (tests); empty: the bus.
  using Query = std::function<std::string()>;
  static void SetQuery(Query query);

private:
  struct Bus;
  Bus * mBus = nullptr;
};

}  // namespace VxService
