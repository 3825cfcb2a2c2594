#include "service/ServiceManagerBus.h"

#include <systemd/sd-bus.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace VxService {

namespace {

char const kManagerName[] = "org.freedesktop.systemd1";
char const kManagerPath[] = "/org/freedesktop/systemd1";
char const kManagerInterface[] = "org.freedesktop.systemd1.Manager";

// sd-bus's error and message objects, freed on every road out.
struct BusError {
  sd_bus_error error = SD_BUS_ERROR_NULL;
  ~BusError() { sd_bus_error_free(&error); }
};
struct Reply {
  sd_bus_message * message = nullptr;
  ~Reply() { sd_bus_message_unref(message); }
};

unsigned long CodeOf(BusError const & error, int result) {
  return Win32CodeOfBusError(sd_bus_error_is_set(&error.error) ? error.error.name : nullptr,
                             result);
}

bool IsOneOf(std::string const & value, std::initializer_list<char const *> states) {
  for (char const * state : states)
    if (value == state) return true;
  return false;
}

// Reads the properties the service control needs from an a{sv}; skips the rest.
int ReadUnitProperties(sd_bus_message * reply, UnitState & state) {
  int r = sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "{sv}");
  if (r < 0) return r;
  while ((r = sd_bus_message_enter_container(reply, SD_BUS_TYPE_DICT_ENTRY, "sv")) > 0) {
    char const * name = nullptr;
    if ((r = sd_bus_message_read(reply, "s", &name)) < 0) return r;
    std::string * text = nullptr;
    if (std::strcmp(name, "LoadState") == 0)
      text = &state.loadState;
    else if (std::strcmp(name, "ActiveState") == 0)
      text = &state.activeState;
    else if (std::strcmp(name, "FreezerState") == 0)
      text = &state.freezerState;
    else if (std::strcmp(name, "Result") == 0)
      text = &state.result;
    if (text != nullptr) {
      char const * value = nullptr;
      if ((r = sd_bus_message_read(reply, "v", "s", &value)) < 0) return r;
      *text = value;
    } else if (std::strcmp(name, "ExecMainStatus") == 0) {
      int32_t value = 0;
      if ((r = sd_bus_message_read(reply, "v", "i", &value)) < 0) return r;
      state.execMainStatus = value;
    } else if (std::strcmp(name, "CanStop") == 0) {
      int value = 0;
      if ((r = sd_bus_message_read(reply, "v", "b", &value)) < 0) return r;
      state.canStop = value != 0;
    } else if ((r = sd_bus_message_skip(reply, "v")) < 0) {
      return r;
    }
    if ((r = sd_bus_message_exit_container(reply)) < 0) return r;
  }
  if (r < 0) return r;
  return sd_bus_message_exit_container(reply);
}

// The job results of JobRemoved signals, kept until the waiting call looks.
struct JobWatch {
  std::vector<std::pair<std::string, std::string>> removed;  // job path, result
};

int OnJobRemoved(sd_bus_message * message, void * userdata, sd_bus_error *) {
  uint32_t id = 0;
  char const * job = nullptr;
  char const * unit = nullptr;
  char const * result = nullptr;
  if (sd_bus_message_read(message, "uoss", &id, &job, &unit, &result) >= 0)
    static_cast<JobWatch *>(userdata)->removed.emplace_back(job, result);
  return 0;
}

unsigned long CodeOfJobResult(std::string const & result) {
  if (result == "done") return 0;
  if (result == "dependency") return 1068;
  return 1053;  // timeout, failed, canceled: the service did not come up
}

}  // namespace

unsigned long Win32CodeOfBusError(char const * errorName, int error) {
  struct Mapping {
    char const * name;
    unsigned long code;
  };
  static Mapping const kNames[] = {
      {"org.freedesktop.systemd1.NoSuchUnit", 1060},
      {"org.freedesktop.systemd1.LoadFailed", 1060},
      {"org.freedesktop.systemd1.UnitMasked", 1058},
      {"org.freedesktop.systemd1.OnlyByDependency", 1058},
      {"org.freedesktop.systemd1.TransactionOrderIsCyclic", 1059},
      {"org.freedesktop.systemd1.TransactionIsDestructive", 1068},
      {"org.freedesktop.systemd1.ShuttingDown", 1115},
      {"org.freedesktop.DBus.Error.AccessDenied", 5},
      {"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", 5},
      {"org.freedesktop.DBus.Error.InvalidArgs", 87},
      {"org.freedesktop.DBus.Error.NoReply", 1053},
      {"org.freedesktop.DBus.Error.Timeout", 1053},
      {"org.freedesktop.DBus.Error.ServiceUnknown", 1065},
      {"org.freedesktop.DBus.Error.NameHasNoOwner", 1065},
  };
  if (errorName != nullptr) {
    for (auto const & mapping : kNames)
      if (std::strcmp(errorName, mapping.name) == 0) return mapping.code;
    // The bus tried to start a manager and could not: there is none.
    if (std::strncmp(errorName, "org.freedesktop.DBus.Error.Spawn.", 33) == 0) return 1065;
  }
  switch (-error) {
    case EACCES:
    case EPERM: return 5;
    case ETIMEDOUT: return 1053;
    case ENOENT:
    case ECONNREFUSED:
    case EHOSTUNREACH: return 1065;
    case EINVAL: return 87;
    default: return 31;  // the device (the manager) does not work
  }
}

std::string ServiceManagerBus::UnitObjectPath(std::string const & unit) {
  char * path = nullptr;
  if (sd_bus_path_encode("/org/freedesktop/systemd1/unit", unit.c_str(), &path) < 0) return {};
  std::string encoded(path);
  std::free(path);
  return encoded;
}

unsigned long ServiceManagerBus::Open(wchar_t const * machine) {
  sd_bus * bus = nullptr;
  char const * manager = std::getenv("TALVO_SERVICE_MANAGER");
  mUser = manager != nullptr && std::strcmp(manager, "user") == 0;
  mRemote = !mUser && machine != nullptr && machine[0] != 0;
  int r = 0;
  if (mUser) {
    r = sd_bus_open_user(&bus);
  } else if (mRemote) {
    std::wstring const wide(machine);
    std::string host(wide.begin(), wide.end());  // host names are ASCII
    r = sd_bus_open_system_remote(&bus, host.c_str());
  } else {
    r = sd_bus_open_system(&bus);
  }
  if (r < 0) return Win32CodeOfBusError(nullptr, r);
  mBus.reset(bus, [](sd_bus * b) { sd_bus_flush_close_unref(b); });
  return 0;
}

unsigned long ServiceManagerBus::GetUnitState(std::string const & unit, UnitState & state) {
  if (!mBus) return 6;
  BusError error;
  Reply reply;
  // Every interface at once: one round trip for the unit's and the
  // service's properties. The manager loads a unit when its path is asked.
  int r = sd_bus_call_method(mBus.get(), kManagerName, UnitObjectPath(unit).c_str(),
                             "org.freedesktop.DBus.Properties", "GetAll", &error.error,
                             &reply.message, "s", "");
  if (r < 0) return CodeOf(error, r);
  state = UnitState{};
  r = ReadUnitProperties(reply.message, state);
  if (r < 0) return Win32CodeOfBusError(nullptr, r);
  if (state.loadState == "not-found" || state.loadState.empty()) return 1060;
  return 0;
}

unsigned long ServiceManagerBus::StartUnit(std::string const & unit, int timeoutSeconds) {
  UnitState state;
  if (unsigned long const code = GetUnitState(unit, state)) return code;
  if (state.loadState == "masked") return 1058;
  if (IsOneOf(state.activeState, {"active", "reloading", "activating"})) return 1056;

  JobWatch watch;
  sd_bus_slot * slot = nullptr;
  int r = sd_bus_match_signal(mBus.get(), &slot, kManagerName, kManagerPath, kManagerInterface,
                              "JobRemoved", OnJobRemoved, &watch);
  if (r < 0) return Win32CodeOfBusError(nullptr, r);
  std::unique_ptr<sd_bus_slot, sd_bus_slot * (*)(sd_bus_slot *)> slotGuard(slot, sd_bus_slot_unref);
  {
    BusError error;
    r = sd_bus_call_method(mBus.get(), kManagerName, kManagerPath, kManagerInterface, "Subscribe",
                           &error.error, nullptr, "");
    if (r < 0) return CodeOf(error, r);
  }
  std::string job;
  {
    BusError error;
    Reply reply;
    r = sd_bus_call_method(mBus.get(), kManagerName, kManagerPath, kManagerInterface, "StartUnit",
                           &error.error, &reply.message, "ss", unit.c_str(), "replace");
    if (r < 0) return CodeOf(error, r);
    char const * path = nullptr;
    if ((r = sd_bus_message_read(reply.message, "o", &path)) < 0)
      return Win32CodeOfBusError(nullptr, r);
    job = path;
  }
  auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(timeoutSeconds);
  for (;;) {
    for (auto const & [path, result] : watch.removed) {
      if (path != job) continue;
      unsigned long code = CodeOfJobResult(result);
      if (code == 1053 && GetUnitState(unit, state) == 0 && state.result == "exit-code" &&
          state.execMainStatus == 203)
        code = 3;  // the program could not be executed: the binary is missing
      return code;
    }
    r = sd_bus_process(mBus.get(), nullptr);
    if (r < 0) return Win32CodeOfBusError(nullptr, r);
    if (r > 0) continue;
    auto const left = std::chrono::duration_cast<std::chrono::microseconds>(
        deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0) return 1053;
    if ((r = sd_bus_wait(mBus.get(), static_cast<uint64_t>(left.count()))) < 0)
      return Win32CodeOfBusError(nullptr, r);
  }
}

unsigned long ServiceManagerBus::StopUnit(std::string const & unit) {
  UnitState state;
  if (unsigned long const code = GetUnitState(unit, state)) return code;
  if (IsOneOf(state.activeState, {"inactive", "failed"})) return 1062;
  if (IsOneOf(state.activeState, {"activating", "deactivating"})) return 1061;
  BusError error;
  int const r =
      sd_bus_call_method(mBus.get(), kManagerName, kManagerPath, kManagerInterface, "StopUnit",
                         &error.error, nullptr, "ss", unit.c_str(), "replace");
  return r < 0 ? CodeOf(error, r) : 0;
}

unsigned long ServiceManagerBus::KillUnit(std::string const & unit, int signal) {
  UnitState state;
  if (unsigned long const code = GetUnitState(unit, state)) return code;
  if (IsOneOf(state.activeState, {"inactive", "failed"})) return 1062;
  if (IsOneOf(state.activeState, {"activating", "deactivating"})) return 1061;
  BusError error;
  int const r =
      sd_bus_call_method(mBus.get(), kManagerName, kManagerPath, kManagerInterface, "KillUnit",
                         &error.error, nullptr, "ssi", unit.c_str(), "main", signal);
  return r < 0 ? CodeOf(error, r) : 0;
}

unsigned long ServiceManagerBus::Reload() {
  if (!mBus) return 6;
  BusError error;
  int const r = sd_bus_call_method(mBus.get(), kManagerName, kManagerPath, kManagerInterface,
                                   "Reload", &error.error, nullptr, "");
  return r < 0 ? CodeOf(error, r) : 0;
}

}  // namespace VxService
