#pragma once
// A service manager for tests: a private dbus-daemon, and on it a thread
// that owns org.freedesktop.systemd1 and answers the calls a service
// control program makes (unit properties, StartUnit with its JobRemoved
// signal, StopUnit, KillUnit, Reload, Subscribe). The process's user bus
// and TALVO_SERVICE_MANAGER=user point at it while it lives.

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

struct sd_bus;

class MockServiceManager {
public:
  struct Unit {
    std::string loadState = "loaded";
    std::string activeState = "inactive";
    std::string freezerState = "running";
    std::string result = "success";
    int execMainStatus = 0;
    // What a start does: the job's result ("done" makes the unit active),
    // or a D-Bus error name the call fails with.
    std::string startResult = "done";
    std::string startError;
    std::vector<int> signals;  // KillUnit's signals
    int stops = 0;
  };

  // `withManager` false: the bus runs, but nobody owns the manager's name.
  explicit MockServiceManager(bool withManager = true);
  ~MockServiceManager();
  MockServiceManager(MockServiceManager const &) = delete;
  MockServiceManager & operator=(MockServiceManager const &) = delete;

  bool IsReady() const { return m_ready; }
  // The folder whose *.service files Reload turns into loaded units.
  std::string UnitFolder() const;

  void SetUnit(std::string const & name, Unit const & unit);
  Unit GetUnit(std::string const & name);
  int Reloads();

private:
  friend struct MockServiceManagerCalls;
  void Serve();
  void ReloadFromFolder();

  std::string m_address;
  int m_daemonPid = -1;
  bool m_ready = false;
  bool m_withManager;
  std::atomic<bool> m_stop{false};
  std::thread m_thread;
  sd_bus * m_bus = nullptr;
  std::mutex m_mutex;
  std::map<std::string, Unit> m_units;
  std::vector<std::string> m_fileUnits;  // units that Reload found as files
  int m_reloads = 0;
  unsigned m_nextJob = 1;
};
