#include "service/NTServiceControl.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <vector>

#include "service/EventLog.h"
#include "service/EventSource.h"
#include "service/ServiceControlErrors.h"
#include "service/ServiceErrorText.h"
#include "service/ServiceStatus.h"
#include "service/ServiceUnit.h"
#include "service/ServiceUnitFile.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

namespace {

constexpr DWORD kQueryConfig = 1;      // SERVICE_QUERY_CONFIG
constexpr DWORD kAllAccess = 0xF01FF;  // SERVICE_ALL_ACCESS
constexpr std::size_t kFormatBuffer = 500;

std::string Narrow(std::wstring const & text) { return vx3::WideToUtf8(text); }

// The unit's state in the system's numbering.
DWORD StateOf(VxService::UnitState const & unit) {
  if (unit.freezerState == "thawing") return 5;
  if (unit.freezerState == "freezing") return 6;
  if (unit.freezerState == "frozen") return 7;
  if (unit.activeState == "activating") return 2;
  if (unit.activeState == "deactivating") return 3;
  if (unit.activeState == "active" || unit.activeState == "reloading") return 4;
  return 1;  // inactive, failed, maintenance
}

}  // namespace

NTServiceControl::NTServiceControl(wchar_t const * service, wchar_t const * machine)
    : m_serviceName(service), m_machineName(machine) {}

NTServiceControl::~NTServiceControl() {
  if (m_scm && m_scm.use_count() == 1) {
    LogMessage("~NTServiceControl", L"Service Control Manager not closed.", Log::Failure);
    CloseSCM();
  }
}

bool NTServiceControl::SetEventMsgId(unsigned long start, unsigned long stop, unsigned long error,
                                     unsigned long information) {
  m_eventMsgIds[0] = start;
  m_eventMsgIds[1] = stop;
  m_eventMsgIds[2] = error;
  m_eventMsgIds[3] = information;
  return true;
}

std::wstring NTServiceControl::WithName(char const * format) const {
  std::wstring const wideFormat = vx3::Utf8ToWide(format);
  std::vector<wchar_t> buffer(kFormatBuffer, L'\0');
  std::swprintf(buffer.data(), buffer.size(), wideFormat.c_str(),
                m_serviceName != nullptr ? m_serviceName : L"");
  return std::wstring(buffer.data());
}

void NTServiceControl::LogMessage(char const * function, std::wstring const & text,
                                  int importance) const {
  Log::WriteMessage("NTServiceControl", function, Narrow(text),
                    static_cast<Log::Importance>(importance), false);
}

void NTServiceControl::ReportFailure(char const * function, unsigned long code) {
  m_lastError = code;
  char const * const name = VxService::SystemFunctionOf(function);
  char const * const own = VxService::ServiceControlErrorText(function, code);
  std::string const text = own != nullptr ? own : VxService::GetErrorText(code);
  Log::WriteMessage("NTServiceControl", function,
                    "Windows error - " + std::string(name != nullptr ? name : function) +
                        " returned error " + std::to_string(code) + ": " + text + ".",
                    Log::Error, false);
}

bool NTServiceControl::OpenSCM() {
  if (m_scm) {
    LogMessage("OpenSCM", L"Service Control Manager already open.", Log::Failure);
    return true;
  }
  auto scm = std::make_shared<VxService::ServiceManagerBus>();
  if (unsigned long const code = scm->Open(m_machineName)) {
    ReportFailure("OpenSCM", code);
    return false;
  }
  m_scm = std::move(scm);
  return true;
}

bool NTServiceControl::CloseSCM() {
  if (!m_scm) {
    LogMessage("CloseSCM", L"Service Control Manager not opened.", Log::Failure);
    return false;
  }
  m_scm.reset();
  return true;
}

NTServiceControl::HandlePtr NTServiceControl::OpenServiceW(DWORD access) {
  if (!OpenSCM()) {
    LogMessage("OpenServiceW", L"OpenSCM failed.", Log::Error);
    return nullptr;
  }
  HandlePtr handle;
  std::wstring const name = m_serviceName != nullptr ? m_serviceName : L"";
  if (!VxService::IsValidServiceName(name)) {
    ReportFailure("OpenServiceW", 123);
  } else {
    handle = std::make_unique<ServiceHandle>(ServiceHandle{*m_scm, VxService::UnitNameOf(name)});
    // Asking for the configuration proves the service exists. With all
    // access the first call on the handle does, which saves a round trip.
    VxService::UnitState state;
    unsigned long const code =
        access == kQueryConfig ? handle->bus.GetUnitState(handle->unit, state) : 0;
    if (code != 0) {
      ReportFailure("OpenServiceW", code);
      handle.reset();
    }
  }
  if (!CloseSCM()) LogMessage("OpenServiceW", L"CloseSCM failed.", Log::Error);
  return handle;
}

bool NTServiceControl::CloseService(HandlePtr & handle) {
  if (!handle) {
    ReportFailure("CloseService", 6);
    return false;
  }
  handle.reset();
  return true;
}

NTServiceControl::HandlePtr NTServiceControl::CreateServiceW(std::wstring const & path,
                                                             wchar_t const * account) {
  if (!OpenSCM()) {
    LogMessage("CreateServiceW", L"OpenSCM failed.", Log::Error);
    return nullptr;
  }
  auto fail = [this](unsigned long code) {
    ReportFailure("CreateServiceW", code);
    return HandlePtr();
  };
  HandlePtr handle;
  std::wstring const name = m_serviceName != nullptr ? m_serviceName : L"";
  std::string const program = Narrow(path);
  std::string const user = account != nullptr ? Narrow(account) : std::string();
  if (m_scm->IsRemote()) {
    // Unit files cannot be written over the bus.
    handle = fail(50);
  } else if (!VxService::IsValidServiceName(name)) {
    handle = fail(123);
  } else if (!VxService::IsUsableProgramPath(program) || vx3::Utf8ToWide(program) != path) {
    handle = fail(87);
  } else if (!user.empty() && ::getpwnam(user.c_str()) == nullptr) {
    handle = fail(1057);
  } else {
    std::string const unit = VxService::UnitNameOf(name);
    std::string const folder = VxService::UnitFolder(m_scm->IsUserManager());
    std::string const file = folder + "/" + unit;
    struct stat existing {};
    if (::stat(file.c_str(), &existing) == 0) {
      handle = fail(1073);
    } else {
      std::error_code ignored;
      std::filesystem::create_directories(folder, ignored);  // a user's folder may not exist yet
      if (::access(folder.c_str(), W_OK) != 0) {
        handle = fail(5);
      } else {
        try {
          vx3::WriteFileAtomically(file, VxService::UnitFileText(Narrow(name), program, user),
                                   0644);
          if (unsigned long const reloaded = m_scm->Reload()) {
            ::unlink(file.c_str());
            handle = fail(reloaded);
          } else {
            handle = std::make_unique<ServiceHandle>(ServiceHandle{*m_scm, unit});
          }
        } catch (Exception const &) {
          handle = fail(87);  // the folder takes no file of that name
        }
      }
    }
  }
  if (!CloseSCM()) LogMessage("CreateServiceW", L"CloseSCM failed.", Log::Error);
  return handle;
}

bool NTServiceControl::DeleteService(ServiceHandle & handle) {
  if (handle.bus.IsRemote()) {
    ReportFailure("DeleteService", 50);
    return false;
  }
  std::string const file = VxService::UnitFolder(handle.bus.IsUserManager()) + "/" + handle.unit;
  if (::unlink(file.c_str()) != 0) {
    // A unit the manager knows from elsewhere (a package) is not ours to delete.
    ReportFailure("DeleteService", errno == ENOENT ? 1072 : 5);
    return false;
  }
  if (unsigned long const code = handle.bus.Reload()) {
    ReportFailure("DeleteService", code);
    return false;
  }
  return true;
}

bool NTServiceControl::StartServiceW(ServiceHandle & handle) {
  if (unsigned long const code = handle.bus.StartUnit(handle.unit)) {
    ReportFailure(code == 1060 ? "OpenServiceW" : "StartServiceW", code);
    return false;
  }
  return true;
}

bool NTServiceControl::StopService(ServiceHandle & handle) {
  return ControlService(handle, VxService::ControlStop);
}

bool NTServiceControl::ControlService(ServiceHandle & handle, DWORD control) {
  unsigned long code = 87;
  if (control == VxService::ControlStop)
    code = handle.bus.StopUnit(handle.unit);
  else if (control == VxService::ControlInterrogate)
    code = handle.bus.KillUnit(handle.unit, SIGUSR1);
  if (code != 0) {
    // A unit that is not there fails where the handle was made, as a
    // handle to a missing service could not be had.
    ReportFailure(code == 1060 ? "OpenServiceW" : "ControlService", code);
    return false;
  }
  return true;
}

bool NTServiceControl::QueryService(ServiceHandle & handle, SERVICE_STATUS & status) {
  VxService::UnitState unit;
  if (unsigned long const code = handle.bus.GetUnitState(handle.unit, unit)) {
    ReportFailure(code == 1060 ? "OpenServiceW" : "QueryService", code);
    return false;
  }
  status = SERVICE_STATUS{};
  status.dwServiceType = VxService::kOwnProcess;
  status.dwCurrentState = StateOf(unit);
  if (status.dwCurrentState == 4 && unit.canStop)
    status.dwControlsAccepted = VxService::AcceptStop | VxService::AcceptShutdown;
  if (unit.result == "exit-code" && unit.execMainStatus != 0) {
    status.dwWin32ExitCode = VxService::kServiceSpecificError;
    status.dwServiceSpecificExitCode = static_cast<DWORD>(unit.execMainStatus);
  }
  return true;
}

bool NTServiceControl::GetFileName(std::wstring & path) {
  std::vector<char> buffer(4096);
  ssize_t const length = ::readlink("/proc/self/exe", buffer.data(), buffer.size());
  if (length <= 0 || static_cast<std::size_t>(length) >= buffer.size()) {
    ReportFailure("GetFileName", length < 0 && errno == EACCES ? 5 : 2);
    return false;
  }
  path = vx3::Utf8ToWide(std::string(buffer.data(), static_cast<std::size_t>(length)));
  return true;
}

bool NTServiceControl::IsInstalled() {
  HandlePtr handle = OpenServiceW(kQueryConfig);
  return static_cast<bool>(handle);
}

bool NTServiceControl::Install(wchar_t const * path, wchar_t const * messageFile,
                               bool applicationLog, wchar_t const * account, wchar_t const *) {
  if (HandlePtr existing = OpenServiceW(kQueryConfig)) {
    CloseService(existing);
    LogMessage("Install", WithName("Service %ls already installed."), Log::Failure);
    m_lastError = 1073;
    return false;
  }
  std::wstring program;
  if (path != nullptr) {
    program = path;
  } else if (!GetFileName(program)) {
    LogMessage("Install", L"GetFileName failed.", Log::Error);
    return false;
  }
  std::wstring const message = messageFile != nullptr ? std::wstring(messageFile) : program;
  HandlePtr created = CreateServiceW(program, account);
  if (!created) {
    LogMessage("Install", L"CreateService failed.", Log::Error);
    return false;
  }
  LogMessage("Install", WithName("Service %ls installed."), Log::Normal);
  if (!CloseService(created)) LogMessage("Install", L"CloseServiceHandle failed.", Log::Error);
  try {
    EventSource source = EventLog::CreateEventSource(
        m_serviceName,
        vx3::Utf8ToWide(applicationLog ? EventLog::APPLICATION_LOG : EventLog::SYSTEM_LOG).c_str());
    source.SetMessageFile(message.c_str());
    LogMessage("Install", WithName("Creation of event source for service %ls succeeded."),
               Log::Normal);
  } catch (Exception const &) {
    LogMessage("Install", WithName("Creation of event source for service %ls failed."), Log::Error);
  }
  return true;
}

bool NTServiceControl::Uninstall() {
  if (HandlePtr probe = OpenServiceW(kQueryConfig)) {
    CloseService(probe);
  } else {
    LogMessage("Uninstall", WithName("Service %ls is not installed."), Log::Error);
    return false;
  }
  HandlePtr handle = OpenServiceW(kAllAccess);
  if (!handle) {
    LogMessage("Uninstall", L"OpenService failed.", Log::Error);
    return false;
  }
  SERVICE_STATUS status{};
  if (!QueryService(*handle, status)) {
    LogMessage("Uninstall", L"QueryService failed.", Log::Error);
    CloseService(handle);
    return false;
  }
  if (status.dwCurrentState != VxService::Stopped) {
    m_lastError = 1056;
    CloseService(handle);
    return false;
  }
  if (!DeleteService(*handle)) {
    LogMessage("Uninstall", L"DeleteService failed.", Log::Error);
    CloseService(handle);
    return false;
  }
  LogMessage("Uninstall", WithName("Service %ls uninstalled."), Log::Normal);
  if (!CloseService(handle)) LogMessage("Uninstall", L"CloseService failed.", Log::Error);
  bool const deleted = EventLog::DeleteEventSource(m_serviceName);
  LogMessage("Uninstall",
             WithName(deleted ? "Deletion of event source for service %ls succeeded."
                              : "Deletion of event source for service %ls failed."),
             deleted ? Log::Normal : Log::Error);
  return true;
}

bool NTServiceControl::Start() {
  HandlePtr handle = OpenServiceW(kAllAccess);
  bool const started = handle && StartServiceW(*handle);
  if (handle) CloseService(handle);
  // Logged whatever came of it: the result is the answer.
  LogMessage("Start", WithName("Service %ls started."), Log::Normal);
  return started;
}

bool NTServiceControl::Stop() {
  HandlePtr handle = OpenServiceW(kAllAccess);
  bool const stopped = handle && StopService(*handle);
  if (handle) CloseService(handle);
  LogMessage("Stop", WithName("Service %ls stopped."), Log::Normal);
  return stopped;
}

bool NTServiceControl::Status(unsigned long & state) {
  HandlePtr handle = OpenServiceW(kAllAccess);
  if (!handle) return false;
  // A running service reports on the interrogation; a failed one is logged,
  // and the manager's answer stands either way.
  ControlService(*handle, VxService::ControlInterrogate);
  SERVICE_STATUS status{};
  bool const answered = QueryService(*handle, status);
  CloseService(handle);
  if (answered) state = status.dwCurrentState;
  return answered;
}

bool NTServiceControl::QueryStatus(SERVICE_STATUS & status) {
  status = SERVICE_STATUS{};
  HandlePtr handle = OpenServiceW(kAllAccess);
  if (!handle) return false;
  bool const queried = QueryService(*handle, status);
  CloseService(handle);
  return queried;
}

std::wstring NTServiceControl::CurrentStateToString(unsigned long state) {
  static char const * const kTexts[] = {
      "The service is stopped", "The service is starting",   "The service is stopping",
      "The service is running", "The service is continuing", "The service is pausing",
      "The service is paused",
  };
  if (state >= 1 && state <= 7) return vx3::Tr(kTexts[state - 1]).ToStdWstring();
  wxString text = vx3::Tr("Unknown state (%1%)");
  text.Replace("%1%", wxString::Format("%lu", state));
  return text.ToStdWstring();
}
