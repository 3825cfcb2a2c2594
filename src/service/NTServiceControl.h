#pragma once
// Installs, removes, starts, stops and queries a service through the
// service manager (systemd over D-Bus, ServiceManagerBus.h), and makes the
// event source that goes with it. Every operation answers true or false and
// logs what went wrong (class "NTServiceControl"); the last Win32 error code
// stays for the caller. Copies share the open control manager.
//
// One object is used by one thread at a time.

#include <memory>
#include <string>

#include "platform/WinTypes.h"
#include "service/ServiceManagerBus.h"

struct SERVICE_STATUS {
  DWORD dwServiceType;
  DWORD dwCurrentState;
  DWORD dwControlsAccepted;
  DWORD dwWin32ExitCode;
  DWORD dwServiceSpecificExitCode;
  DWORD dwCheckPoint;
  DWORD dwWaitHint;
};

class NTServiceControl {
public:
  static constexpr DWORD SERVICE_DEMAND_START = 3;

  // Neither text is copied: both must outlive the object. A null machine is
  // this one.
  NTServiceControl(wchar_t const * service, wchar_t const * machine);
  virtual ~NTServiceControl();
  NTServiceControl(NTServiceControl const &) = default;
  NTServiceControl & operator=(NTServiceControl const &) = default;

  bool SetEventMsgId(unsigned long start, unsigned long stop, unsigned long error,
                     unsigned long information);
  bool IsInstalled();
  // A null `path` installs the running program. `password` is never used:
  // the service manager starts services under an account without one.
  bool Install(wchar_t const * path, wchar_t const * messageFile, bool applicationLog,
               wchar_t const * account, wchar_t const * password);
  bool Uninstall();
  bool Start();
  bool Stop();
  bool Status(unsigned long & state);
  bool QueryStatus(SERVICE_STATUS & status);
  bool OpenSCM();
  bool CloseSCM();

  static std::wstring CurrentStateToString(unsigned long state);
  unsigned long GetLastError() const { return m_lastError; }

private:
  // What OpenServiceW gives: the unit and its own share of the connection,
  // which outlives the control manager's closing.
  struct ServiceHandle {
    VxService::ServiceManagerBus bus;
    std::string unit;
  };
  using HandlePtr = std::unique_ptr<ServiceHandle>;

  HandlePtr CreateServiceW(std::wstring const & path, wchar_t const * account);
  bool DeleteService(ServiceHandle & handle);
  HandlePtr OpenServiceW(DWORD access);
  bool CloseService(HandlePtr & handle);
  bool StartServiceW(ServiceHandle & handle);
  bool StopService(ServiceHandle & handle);
  bool QueryService(ServiceHandle & handle, SERVICE_STATUS & status);
  bool ControlService(ServiceHandle & handle, DWORD control);
  bool GetFileName(std::wstring & path);

  // Keeps `code` as the last error and logs the system line of `function`.
  void ReportFailure(char const * function, unsigned long code);
  void LogMessage(char const * function, std::wstring const & text, int importance) const;
  // "%s" filled with the service name, cut at 500 characters.
  std::wstring WithName(char const * format) const;

  wchar_t const * m_serviceName;
  wchar_t const * m_machineName;
  std::shared_ptr<VxService::ServiceManagerBus> m_scm;  // null while closed
  DWORD m_startType = SERVICE_DEMAND_START;
  unsigned long m_eventMsgIds[4] = {0, 0, 0, 0};
  unsigned long m_lastError = 0;
};
