#pragma once
// The application object of a service: a console wx application (a service
// has no display) that runs as a systemd Type=notify service. It answers
// the manager, walks the service states and reports them; what the service
// does is left to the three pure operations of the derived class.
//
//   class Sampler : public NTServiceApp {
//     DWORD OnServiceInitialize() override;   // 0: started
//     bool OnServiceRun() override;           // ReportStatus(4, ...), work
//     bool OnServiceStop() override;          // ask the work to end
//   };
//   wxIMPLEMENT_APP_CONSOLE(Sampler);
//
// One object a process: the manager's callbacks find it through a
// class-wide pointer. A second object logs and stays idle; it must live as
// long as the first, as wx forgets its application object when any
// application object is destroyed. Its unit runs it with Type=notify; the process exits
// with 0 after a clean stop, with a service-specific code e when e is 1 to
// 125 (else 1), and with 1 when it could not run as a service.
//
// Nothing here throws: failures are log lines (class "NTServiceApp").

#include <wx/app.h>

#include <atomic>
#include <cstdint>
#include <memory>

#include "frame/VxAppCore.h"
#include "platform/WinTypes.h"
#include "service/ServiceStatus.h"

namespace VxService {
class ServiceDispatcher;
}

class NTServiceApp : public wxAppConsole {
public:
  // `serviceName` is not copied: it must outlive the object. `appName`, when
  // given, names the application (settings, log file).
  NTServiceApp(wchar_t const * serviceName, wchar_t const * appName);
  ~NTServiceApp() override;
  NTServiceApp(NTServiceApp const &) = delete;
  NTServiceApp & operator=(NTServiceApp const &) = delete;

  // The two reserved identifiers, then those of the start and stop events.
  bool SetEventMsgId(unsigned long reserved1, unsigned long reserved2, unsigned long startId,
                     unsigned long stopId);

  // Runs the dispatcher until the service has ended; false in every case.
  bool OnInit() override;
  // wx leaves with its own status when OnInit gives false; the service's
  // exit status comes from OnRun instead.
  bool CallOnInit() override;
  int OnRun() override;

  // The exit status the process leaves with (see above).
  int GetExitStatus() const { return mExitStatus; }
  VxAppCore & GetCore() { return mCore; }
  // The last status reported.
  VxService::StatusRecord GetStatus() const { return mStatus.Load(); }

protected:
  virtual DWORD OnServiceInitialize() = 0;
  virtual bool OnServiceRun() = 0;
  virtual bool OnServiceStop() = 0;
  // Reports the current state again.
  virtual bool OnInterrogate();

  bool ReportStatus(unsigned long state, unsigned long checkPoint, unsigned long waitHint,
                    unsigned long win32ExitCode, unsigned long specificExitCode);
  void LogEvent(unsigned long messageId);
  void LogErrorEvent(unsigned long messageId, char const * text);
  static wxString GetErrorText(unsigned long code);

  bool StartDispatcher();
  void Main();
  void Handler(unsigned long control);
  void Start();
  void Stop();
  void Shutdown();
  bool Interrogate();

  // The shutdown event's identifier (0: none is written at shutdown).
  unsigned long mShutdownEventId = 0;

private:
  // Reports stop pending at once, for Stop or Shutdown to follow.
  void AnnounceStop();
  static void ServiceMain();
  static void ServiceHandler(unsigned long control);

  static std::atomic<NTServiceApp *> mgpTheApp;

  wchar_t const * mServiceName = nullptr;
  bool mStatusHandle = false;  // the handler is registered
  std::atomic<bool> mStopAnnounced{false};
  VxService::AtomicStatus mStatus;
  unsigned long mReservedEventIds[2] = {0, 0};
  unsigned long mStartEventId = 0;
  unsigned long mStopEventId = 0;
  int mExitStatus = 1;
  VxService::ServiceDispatcher * mDispatcher = nullptr;
  VxAppCore mCore;
};
