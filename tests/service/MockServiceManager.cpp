#include "MockServiceManager.h"

#include <signal.h>
#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <future>

#include "service/ServiceUnitFile.h"

namespace {

char const kPath[] = "/org/freedesktop/systemd1";
char const kUnitPrefix[] = "/org/freedesktop/systemd1/unit";

std::string UnitFromPath(char const * path) {
  char * name = nullptr;
  if (sd_bus_path_decode(path, kUnitPrefix, &name) <= 0) return {};
  std::string unit(name);
  std::free(name);
  return unit;
}

}  // namespace

// The vtable callbacks, with access to the mock's state.
struct MockServiceManagerCalls {
  static MockServiceManager & Of(void * userdata) {
    return *static_cast<MockServiceManager *>(userdata);
  }

  static int StartUnit(sd_bus_message * m, void * userdata, sd_bus_error * error) {
    auto & mock = Of(userdata);
    char const * name = nullptr;
    char const * mode = nullptr;
    if (int r = sd_bus_message_read(m, "ss", &name, &mode); r < 0) return r;
    std::string result;
    std::string job;
    unsigned id = 0;
    {
      std::lock_guard<std::mutex> lock(mock.m_mutex);
      auto found = mock.m_units.find(name);
      if (found == mock.m_units.end() || found->second.loadState == "not-found")
        return sd_bus_error_setf(error, "org.freedesktop.systemd1.NoSuchUnit", "Unit %s not found.",
                                 name);
      MockServiceManager::Unit & unit = found->second;
      if (!unit.startError.empty())
        return sd_bus_error_set(error, unit.startError.c_str(), "refused");
      id = mock.m_nextJob++;
      job = std::string(kPath) + "/job/" + std::to_string(id);
      result = unit.startResult;
      unit.activeState = result == "done" ? "active" : "failed";
    }
    if (int r = sd_bus_reply_method_return(m, "o", job.c_str()); r < 0) return r;
    return sd_bus_emit_signal(sd_bus_message_get_bus(m), kPath, "org.freedesktop.systemd1.Manager",
                              "JobRemoved", "uoss", id, job.c_str(), name, result.c_str());
  }

  static int StopUnit(sd_bus_message * m, void * userdata, sd_bus_error * error) {
    auto & mock = Of(userdata);
    char const * name = nullptr;
    char const * mode = nullptr;
    if (int r = sd_bus_message_read(m, "ss", &name, &mode); r < 0) return r;
    std::lock_guard<std::mutex> lock(mock.m_mutex);
    auto found = mock.m_units.find(name);
    if (found == mock.m_units.end())
      return sd_bus_error_setf(error, "org.freedesktop.systemd1.NoSuchUnit", "Unit %s not loaded.",
                               name);
    found->second.activeState = "inactive";
    ++found->second.stops;
    return sd_bus_reply_method_return(m, "o", "/org/freedesktop/systemd1/job/0");
  }

  static int KillUnit(sd_bus_message * m, void * userdata, sd_bus_error * error) {
    auto & mock = Of(userdata);
    char const * name = nullptr;
    char const * whom = nullptr;
    int32_t signal = 0;
    if (int r = sd_bus_message_read(m, "ssi", &name, &whom, &signal); r < 0) return r;
    std::lock_guard<std::mutex> lock(mock.m_mutex);
    auto found = mock.m_units.find(name);
    if (found == mock.m_units.end())
      return sd_bus_error_setf(error, "org.freedesktop.systemd1.NoSuchUnit", "Unit %s not loaded.",
                               name);
    found->second.signals.push_back(signal);
    return sd_bus_reply_method_return(m, "");
  }

  static int Reload(sd_bus_message * m, void * userdata, sd_bus_error *) {
    Of(userdata).ReloadFromFolder();
    return sd_bus_reply_method_return(m, "");
  }

  static int Subscribe(sd_bus_message * m, void *, sd_bus_error *) {
    return sd_bus_reply_method_return(m, "");
  }

  // Every unit path exists, as the manager loads units when asked: a name
  // it has no file for is "not-found".
  static int FindUnit(sd_bus *, char const * path, char const *, void * userdata, void ** found,
                      sd_bus_error *) {
    if (UnitFromPath(path).empty()) return 0;
    *found = userdata;
    return 1;
  }

  template <std::string MockServiceManager::Unit::*Field>
  static int TextProperty(sd_bus *, char const * path, char const *, char const *,
                          sd_bus_message * reply, void * userdata, sd_bus_error *) {
    auto & mock = Of(userdata);
    std::lock_guard<std::mutex> lock(mock.m_mutex);
    auto found = mock.m_units.find(UnitFromPath(path));
    MockServiceManager::Unit missing;
    missing.loadState = "not-found";
    MockServiceManager::Unit const & unit = found != mock.m_units.end() ? found->second : missing;
    return sd_bus_message_append(reply, "s", (unit.*Field).c_str());
  }

  static int ExecMainStatus(sd_bus *, char const * path, char const *, char const *,
                            sd_bus_message * reply, void * userdata, sd_bus_error *) {
    auto & mock = Of(userdata);
    std::lock_guard<std::mutex> lock(mock.m_mutex);
    auto found = mock.m_units.find(UnitFromPath(path));
    return sd_bus_message_append(reply, "i",
                                 found != mock.m_units.end() ? found->second.execMainStatus : 0);
  }
};

namespace {

sd_bus_vtable const kManagerVtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("StartUnit", "ss", "o", MockServiceManagerCalls::StartUnit, 0),
    SD_BUS_METHOD("StopUnit", "ss", "o", MockServiceManagerCalls::StopUnit, 0),
    SD_BUS_METHOD("KillUnit", "ssi", "", MockServiceManagerCalls::KillUnit, 0),
    SD_BUS_METHOD("Reload", "", "", MockServiceManagerCalls::Reload, 0),
    SD_BUS_METHOD("Subscribe", "", "", MockServiceManagerCalls::Subscribe, 0),
    SD_BUS_SIGNAL("JobRemoved", "uoss", 0),
    SD_BUS_VTABLE_END,
};

using Unit = MockServiceManager::Unit;
sd_bus_vtable const kUnitVtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("LoadState", "s", MockServiceManagerCalls::TextProperty<&Unit::loadState>, 0,
                    0),
    SD_BUS_PROPERTY("ActiveState", "s", MockServiceManagerCalls::TextProperty<&Unit::activeState>,
                    0, 0),
    SD_BUS_PROPERTY("FreezerState", "s", MockServiceManagerCalls::TextProperty<&Unit::freezerState>,
                    0, 0),
    SD_BUS_VTABLE_END,
};
sd_bus_vtable const kServiceVtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Result", "s", MockServiceManagerCalls::TextProperty<&Unit::result>, 0, 0),
    SD_BUS_PROPERTY("ExecMainStatus", "i", MockServiceManagerCalls::ExecMainStatus, 0, 0),
    SD_BUS_VTABLE_END,
};

}  // namespace

MockServiceManager::MockServiceManager(bool withManager) : m_withManager(withManager) {
  char const * tmp = std::getenv("TMPDIR");
  std::string const socket =
      std::string(tmp != nullptr ? tmp : "/tmp") + "/mock-bus-" + std::to_string(::getpid());
  ::unlink(socket.c_str());
  m_address = "unix:path=" + socket;
  int pipeFds[2];
  if (::pipe(pipeFds) != 0) return;
  pid_t const pid = ::fork();
  if (pid == 0) {
    ::close(pipeFds[0]);
    // Its complaints (an fd limit it may not raise) are not the test's.
    ::freopen("/dev/null", "w", stderr);
    std::string const address = "--address=" + m_address;
    std::string const print = "--print-address=" + std::to_string(pipeFds[1]);
    ::execlp("dbus-daemon", "dbus-daemon", "--session", "--nofork", "--nopidfile", address.c_str(),
             print.c_str(), static_cast<char *>(nullptr));
    ::_exit(127);
  }
  ::close(pipeFds[1]);
  m_daemonPid = pid;
  // The daemon prints its address once it listens.
  char line[512] = {};
  ssize_t const got = ::read(pipeFds[0], line, sizeof line - 1);
  ::close(pipeFds[0]);
  if (got <= 0) return;
  ::setenv("DBUS_SESSION_BUS_ADDRESS", m_address.c_str(), 1);
  ::setenv("TALVO_SERVICE_MANAGER", "user", 1);
  if (!m_withManager) {
    m_ready = true;
    return;
  }
  std::promise<bool> started;
  auto ready = started.get_future();
  m_thread = std::thread([this, &started] {
    bool ok =
        sd_bus_open_user(&m_bus) >= 0 &&
        sd_bus_add_object_vtable(m_bus, nullptr, kPath, "org.freedesktop.systemd1.Manager",
                                 kManagerVtable, this) >= 0 &&
        sd_bus_add_fallback_vtable(m_bus, nullptr, kUnitPrefix, "org.freedesktop.systemd1.Unit",
                                   kUnitVtable, MockServiceManagerCalls::FindUnit, this) >= 0 &&
        sd_bus_add_fallback_vtable(m_bus, nullptr, kUnitPrefix, "org.freedesktop.systemd1.Service",
                                   kServiceVtable, MockServiceManagerCalls::FindUnit, this) >= 0 &&
        sd_bus_request_name(m_bus, "org.freedesktop.systemd1", 0) >= 0;
    started.set_value(ok);
    if (ok) Serve();
  });
  m_ready = ready.get();
}

MockServiceManager::~MockServiceManager() {
  m_stop = true;
  if (m_thread.joinable()) m_thread.join();
  if (m_bus != nullptr) sd_bus_flush_close_unref(m_bus);
  if (m_daemonPid > 0) {
    ::kill(m_daemonPid, SIGTERM);
    ::waitpid(m_daemonPid, nullptr, 0);
  }
  ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
  ::unsetenv("TALVO_SERVICE_MANAGER");
}

void MockServiceManager::Serve() {
  while (!m_stop) {
    int const r = sd_bus_process(m_bus, nullptr);
    if (r < 0) break;
    if (r > 0) continue;
    sd_bus_wait(m_bus, 20'000);  // wakes for each call; 20 ms to see the stop
  }
}

std::string MockServiceManager::UnitFolder() const { return VxService::UnitFolder(true); }

void MockServiceManager::ReloadFromFolder() {
  std::lock_guard<std::mutex> lock(m_mutex);
  ++m_reloads;
  namespace fs = std::filesystem;
  std::vector<std::string> present;
  std::error_code error;
  for (auto const & entry : fs::directory_iterator(UnitFolder(), error))
    if (entry.path().extension() == ".service") present.push_back(entry.path().filename().string());
  for (auto const & name : m_fileUnits)
    if (std::find(present.begin(), present.end(), name) == present.end())
      m_units[name].loadState = "not-found";
  for (auto const & name : present) {
    auto & unit = m_units[name];
    if (unit.loadState == "not-found") unit = Unit{};
  }
  m_fileUnits = present;
}

void MockServiceManager::SetUnit(std::string const & name, Unit const & unit) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_units[name] = unit;
}

MockServiceManager::Unit MockServiceManager::GetUnit(std::string const & name) {
  std::lock_guard<std::mutex> lock(m_mutex);
  auto found = m_units.find(name);
  if (found != m_units.end()) return found->second;
  Unit missing;
  missing.loadState = "not-found";
  return missing;
}

int MockServiceManager::Reloads() {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_reloads;
}
