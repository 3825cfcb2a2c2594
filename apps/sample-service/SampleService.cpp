// talvo-sample-service: the family's service on systemd. It writes an event
// a minute to the event log (the journal) until it is stopped.
//
//   talvo-sample-service [--fail-init] [--fail-run]
//   talvo-sample-service --register | --unregister
//
// --fail-init makes its initialisation fail with the service-specific code
// 42 (the process exits with 42); --fail-run makes the run fail after its
// first event. --register makes its event source (it needs the right to
// write the system registry hive); --unregister removes it. Run it from a
// unit with Type=notify; started by hand it says that it is a service.
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <string>

#include "service/EventLog.h"
#include "service/EventSource.h"
#include "service/NTServiceApp.h"
#include "utl/Exception.h"
#include "utl/Paths.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

namespace {

wchar_t const kServiceName[] = L"talvo-sample-service";
constexpr unsigned long kStartedEvent = 1;
constexpr unsigned long kStoppedEvent = 2;
constexpr unsigned long kAliveEvent = 3;
constexpr unsigned long kInitFailure = 42;

class SampleService : public NTServiceApp {
public:
  SampleService() : NTServiceApp(kServiceName, L"TALVOutlwin Sample Service") {
    SetEventMsgId(0, 0, kStartedEvent, kStoppedEvent);
  }

  bool OnInit() override {
    VxSystemInfo::SetApplication("TALVOutlwin Sample Service", "1.0.0.0");
    for (int i = 1; i < argc; ++i) {
      std::string const option = argv[i].utf8_string();
      if (option == "--fail-init") mFailInit = true;
      if (option == "--fail-run") mFailRun = true;
      if (option == "--register" || option == "--unregister") {
        mExitCode = option == "--register" ? Register() : Unregister();
        return false;
      }
    }
    return NTServiceApp::OnInit();
  }

  int OnRun() override { return mExitCode >= 0 ? mExitCode : NTServiceApp::OnRun(); }

protected:
  DWORD OnServiceInitialize() override { return mFailInit ? kInitFailure : 0; }

  bool OnServiceRun() override {
    EventLog log(kServiceName);  // before it reports running: it reads the registry
    ReportStatus(VxService::Running, 0, 0, 0, 0);
    std::unique_lock<std::mutex> lock(mMutex);
    for (unsigned long minute = 1; !mStop; ++minute) {
      log.WriteEntry("The sample service has run for " + std::to_string(minute) + " minute(s).",
                     kAliveEvent);
      if (mFailRun) return false;
      mWake.wait_for(lock, std::chrono::minutes(1), [this] { return mStop; });
    }
    return true;
  }

  bool OnServiceStop() override {
    std::lock_guard<std::mutex> lock(mMutex);
    mStop = true;
    mWake.notify_all();
    return true;
  }

private:
  static int Register() {
    try {
      EventSource source = EventLog::CreateEventSource(kServiceName, L"Application");
      source.SetMessageFile(
          vx3::Utf8ToWide(VxGetExecutableDirectory() + "/talvo-sample-service").c_str());
      std::printf("The event source %s is registered.\n", vx3::WideToUtf8(kServiceName).c_str());
      return 0;
    } catch (Exception & e) {
      std::fprintf(stderr, "%s\n", e.Why().c_str());
      return 1;
    }
  }

  static int Unregister() {
    if (EventLog::DeleteEventSource(kServiceName)) return 0;
    std::fprintf(stderr, "The event source %s could not be removed.\n",
                 vx3::WideToUtf8(kServiceName).c_str());
    return 1;
  }

  bool mFailInit = false;
  bool mFailRun = false;
  int mExitCode = -1;
  std::mutex mMutex;
  std::condition_variable mWake;
  bool mStop = false;
};

}  // namespace

wxIMPLEMENT_APP_CONSOLE(SampleService);
