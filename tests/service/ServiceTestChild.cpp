// A service for the dispatcher tests, run as a process of its own under a
// NOTIFY_SOCKET the test binds. The environment says how it behaves:
//   TALVO_SERVICE_NAME   its name (unset: "TalvoTestService"; "-": none)
//   TALVO_SERVICE_UNIT   the unit the manager would say it runs in
//   TALVO_INIT_RESULT    what OnServiceInitialize gives
//   TALVO_INIT_GATE      a FIFO the initialisation reads one byte from first
//   TALVO_RUN_FAILS      OnServiceRun fails at once, after reporting running
//   TALVO_MANAGER_STATE  the manager's SystemState
//   TALVO_SECOND_OBJECT  a second service object is made before the start
// Its stderr goes to its stdout, so that the test reads both.
#include <fcntl.h>
#include <unistd.h>

#include <condition_variable>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>

#include "service/NTServiceApp.h"
#include "service/ServiceUnit.h"
#include "utl/Utf.h"

namespace {

std::string Env(char const * name) {
  char const * value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::wstring const gName = vx3::Utf8ToWide(
    std::getenv("TALVO_SERVICE_NAME") != nullptr ? Env("TALVO_SERVICE_NAME") : "TalvoTestService");

class TestService : public NTServiceApp {
public:
  TestService() : NTServiceApp(gName == L"-" ? nullptr : gName.c_str(), L"TalvoServiceTest") {}

  bool OnInit() override {
    ::dup2(STDOUT_FILENO, STDERR_FILENO);
    VxService::SetUnitLookup([] { return Env("TALVO_SERVICE_UNIT"); });
    if (!Env("TALVO_MANAGER_STATE").empty())
      VxService::ManagerState::SetQuery([] { return Env("TALVO_MANAGER_STATE"); });
    // Kept to the process's end: wx forgets its application object when any
    // one is destroyed.
    static std::unique_ptr<TestService> second;
    if (!Env("TALVO_SECOND_OBJECT").empty()) second = std::make_unique<TestService>();
    return NTServiceApp::OnInit();
  }

protected:
  DWORD OnServiceInitialize() override {
    std::string const gate = Env("TALVO_INIT_GATE");
    if (!gate.empty()) {
      int const fd = ::open(gate.c_str(), O_RDONLY | O_CLOEXEC);
      char byte = 0;
      if (fd >= 0 && ::read(fd, &byte, 1) < 0) byte = 0;
      if (fd >= 0) ::close(fd);
    }
    return static_cast<DWORD>(std::strtoul(Env("TALVO_INIT_RESULT").c_str(), nullptr, 10));
  }

  bool OnServiceRun() override {
    ReportStatus(VxService::Running, 0, 0, 0, 0);
    if (!Env("TALVO_RUN_FAILS").empty()) return false;
    std::unique_lock<std::mutex> lock(mMutex);
    mStopped.wait(lock, [this] { return mStop; });
    return true;
  }

  bool OnServiceStop() override {
    std::lock_guard<std::mutex> lock(mMutex);
    mStop = true;
    mStopped.notify_all();
    return true;
  }

private:
  std::mutex mMutex;
  std::condition_variable mStopped;
  bool mStop = false;
};

}  // namespace

wxIMPLEMENT_APP_CONSOLE(TestService);
