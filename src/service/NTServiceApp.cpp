#include "service/NTServiceApp.h"

#include <systemd/sd-daemon.h>

#include <boost/format.hpp>
#include <cerrno>
#include <cstdio>
#include <string>

#include "service/EventLog.h"
#include "service/ServiceDispatcher.h"
#include "service/ServiceErrorText.h"
#include "service/ServiceUnit.h"
#include "utl/Log.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

using VxService::StatusRecord;

std::atomic<NTServiceApp *> NTServiceApp::mgpTheApp{nullptr};

namespace {

constexpr unsigned long kErrorInvalidHandle = 6;
constexpr unsigned long kErrorInvalidData = 13;
constexpr unsigned long kErrorGenFailure = 31;
constexpr unsigned long kErrorInvalidName = 123;
constexpr unsigned long kErrorAlreadyRunning = 1056;
constexpr unsigned long kErrorServiceDoesNotExist = 1060;
constexpr unsigned long kErrorNotConnected = 1063;
constexpr unsigned long kPendingWaitHint = 10000;

void Write(char const * function, std::string const & text, int importance, bool flush = false) {
  Log::WriteMessage("NTServiceApp", function, text, static_cast<Log::Importance>(importance),
                    flush);
}

std::string ErrorLine(char const * call, unsigned long code, std::string const & text) {
  return (boost::format("Windows error - %1% returned error %2%: %3%.") % call % code % text).str();
}

std::string DispatcherErrorText(unsigned long code) {
  switch (code) {
    case kErrorInvalidData:
      return "The specified dispatch table contains entries that are not in the proper format";
    case kErrorAlreadyRunning: return "An instance of the service is already running";
    default: return VxService::GetErrorText(code);
  }
}

}  // namespace

NTServiceApp::NTServiceApp(wchar_t const * serviceName, wchar_t const * appName) {
  NTServiceApp * expected = nullptr;
  if (!mgpTheApp.compare_exchange_strong(expected, this)) {
    Write("NTServiceApp", "Application object already exist.", 4);
    // wx takes the newest application object for its own: the first one
    // stays the process's.
    wxAppConsole::SetInstance(expected);
    return;
  }
  // Before any thread starts, so that no thread takes a control's signal.
  VxService::ServiceDispatcher::BlockControlSignals();
  mServiceName = serviceName;
  if (appName != nullptr) {
    VxSystemInfo::SetApplication(vx3::WideToUtf8(appName),
                                 VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionFull));
    SetAppName(wxString(appName));
  }
}

NTServiceApp::~NTServiceApp() {
  NTServiceApp * self = this;
  mgpTheApp.compare_exchange_strong(self, nullptr);
}

bool NTServiceApp::SetEventMsgId(unsigned long reserved1, unsigned long reserved2,
                                 unsigned long startId, unsigned long stopId) {
  mReservedEventIds[0] = reserved1;
  mReservedEventIds[1] = reserved2;
  mStartEventId = startId;
  mStopEventId = stopId;
  return true;
}

bool NTServiceApp::OnInit() {
  if (StartDispatcher() && mStatusHandle) {
    StatusRecord const last = mStatus.Load();
    mExitStatus = VxService::ExitStatus(last);
    if (last.specificExitCode > 125)
      Write("InitInstance",
            (boost::format("The service-specific error %1% leaves the process with status 1.") %
             last.specificExitCode)
                .str(),
            3);
  } else {
    mExitStatus = 1;
  }
  return false;
}

bool NTServiceApp::CallOnInit() {
  OnInit();
  return true;
}

int NTServiceApp::OnRun() { return mExitStatus; }

bool NTServiceApp::StartDispatcher() {
  Write("StartDispatcher", "Service dispatcher launched.", 1);
  unsigned long code = 0;
  if (mServiceName == nullptr || mServiceName[0] == L'\0') {
    code = kErrorInvalidData;
  } else {
    VxService::ServiceDispatcher dispatcher(
        mStatus, [] { ServiceMain(); }, [](uint32_t control) { ServiceHandler(control); });
    mDispatcher = &dispatcher;
    code = dispatcher.Run();
    mDispatcher = nullptr;
  }
  if (code == 0) return true;
  if (code == kErrorNotConnected) {
    std::string const title = mServiceName != nullptr ? vx3::WideToUtf8(mServiceName) : "";
    std::fprintf(stderr, "%s: %s\n", title.c_str(),
                 "This application is a service, to start it go to Control Panel | "
                 "Administrative Tools | Services.");
  }
  Write("StartDispatcher", ErrorLine("StartServiceCtrlDispatcher", code, DispatcherErrorText(code)),
        3);
  return false;
}

void NTServiceApp::ServiceMain() {
  NTServiceApp * app = mgpTheApp.load();
  if (app != nullptr)
    app->Main();
  else
    Write("ServiceMain", "Application object is not set", 4);
}

void NTServiceApp::ServiceHandler(unsigned long control) {
  NTServiceApp * app = mgpTheApp.load();
  if (app != nullptr)
    app->Handler(control);
  else
    Write("ServiceHandler", "Application object is not set", 4);
}

void NTServiceApp::Main() {
  unsigned long code = 0;
  std::string text;
  if (!VxService::IsValidServiceName(mServiceName)) {
    code = kErrorInvalidName;
    text = "The specified service name is invalid";
  } else {
    std::string const unit = VxService::OwnUnit();
    if (!unit.empty() && unit != VxService::UnitNameOf(mServiceName)) {
      code = kErrorServiceDoesNotExist;
      text = "The specified service does not exist";
    }
  }
  if (code != 0) {
    // The wording names the dispatcher here too: it is the text operators know.
    Write("Main", ErrorLine("StartServiceCtrlDispatcher", code, text), 3);
    return;
  }
  mStatusHandle = true;
  Start();
}

void NTServiceApp::Start() {
  ReportStatus(VxService::StartPending, 1, kPendingWaitHint, 0, 0);
  DWORD const error = OnServiceInitialize();
  if (error == 0) {
    Write("Start", "Service started.", 1);
    LogEvent(mStartEventId);
    if (!OnServiceRun()) Write("Start", "Service failed while running", 4);
  } else {
    Write("Start", "Service failed to initialize", 4);
  }
  Write("Start", "Service stopped.", 1);
  if (error == 0) LogEvent(mStopEventId);
  ReportStatus(VxService::Stopped, 0, 0, error != 0 ? VxService::kServiceSpecificError : 0, error);
}

void NTServiceApp::Handler(unsigned long control) {
  switch (control) {
    // The manager hears of a stop before its log line is flushed: a flush
    // takes milliseconds, and the manager's stop timeout runs meanwhile.
    case VxService::ControlStop:
      AnnounceStop();
      Write("Handler", "Stop message arrived at service handler.", 1, true);
      Stop();
      break;
    case VxService::ControlInterrogate:
      Write("Handler", "Interrogate message arrived at service handler.", 0);
      Interrogate();
      break;
    case VxService::ControlShutdown:
      AnnounceStop();
      Write("Handler", "Shutdown message arrived at service handler.", 1, true);
      Shutdown();
      break;
    default: Write("Handler", "Other message arrived at service handler.", 0); break;
  }
}

void NTServiceApp::AnnounceStop() {
  ReportStatus(VxService::StopPending, 1, kPendingWaitHint, 0, 0);
  mStopAnnounced = true;
}

void NTServiceApp::Stop() {
  if (!mStopAnnounced.exchange(false))
    ReportStatus(VxService::StopPending, 1, kPendingWaitHint, 0, 0);
  if (!OnServiceStop()) Write("Stop", "Service failed during stopping.", 4);
}

void NTServiceApp::Shutdown() {
  LogEvent(mShutdownEventId);
  if (!mStopAnnounced.exchange(false))
    ReportStatus(VxService::StopPending, 1, kPendingWaitHint, 0, 0);
  if (!OnServiceStop()) Write("Shutdown", "Service failed during stop", 4);
}

bool NTServiceApp::Interrogate() { return OnInterrogate(); }

bool NTServiceApp::OnInterrogate() {
  ReportStatus(mStatus.State(), 0, 0, 0, 0);
  return true;
}

bool NTServiceApp::ReportStatus(unsigned long state, unsigned long checkPoint,
                                unsigned long waitHint, unsigned long win32ExitCode,
                                unsigned long specificExitCode) {
  StatusRecord const record =
      VxService::MakeRecord(static_cast<uint32_t>(state), static_cast<uint32_t>(checkPoint),
                            static_cast<uint32_t>(waitHint), static_cast<uint32_t>(win32ExitCode),
                            static_cast<uint32_t>(specificExitCode));
  mStatus.Store(record);
  int sent = 0;
  if (mStatusHandle) sent = ::sd_notify(0, VxService::NotifyText(record).c_str());
  if (mDispatcher != nullptr) mDispatcher->StatusChanged();
  if (sent > 0) return true;
  unsigned long code = kErrorInvalidHandle;
  if (sent == -EINVAL || sent == -EMSGSIZE)
    code = kErrorInvalidData;
  else if (sent < 0 && sent != -ENOENT && sent != -ECONNREFUSED)
    code = kErrorGenFailure;
  std::string text;
  switch (code) {
    case kErrorInvalidHandle: text = "The specified handle is invalid"; break;
    case kErrorInvalidData: text = "The specified service status structure is invalid"; break;
    default: text = VxService::GetErrorText(code); break;
  }
  Write("ReportStatus", ErrorLine("SetServiceStatus", code, text), 3);
  return false;
}

void NTServiceApp::LogEvent(unsigned long messageId) {
  if (messageId == 0) return;
  EventLog log(mServiceName);
  log.WriteEntry(vx3::WideToUtf8(mServiceName), messageId, EventLog::Information, 0);
}

void NTServiceApp::LogErrorEvent(unsigned long messageId, char const * text) {
  if (messageId == 0) return;
  EventLog log(mServiceName);
  log.WriteEntry(std::vector<std::string>{vx3::WideToUtf8(mServiceName), text ? text : ""},
                 messageId, EventLog::Error, 0);
}

wxString NTServiceApp::GetErrorText(unsigned long code) {
  return wxString::FromUTF8(VxService::GetErrorText(code));
}
