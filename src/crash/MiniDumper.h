#pragma once
// Crash capture for the whole process: once initialized, a fatal signal on
// any thread writes a minidump (crash/MinidumpWriter.h) through the
// handlers of crash/CrashSignals.h, then tells the success or the failure
// callback. Everything given here runs in the writer process, a copy of
// the crashed one, never in the crashed process itself.
//
// The standard behaviour names the dump with StandardDumpName, writes type
// 0 (stacks), and on success runs the report program talvo-crash-report
// (the dialog that offers to send the dump; GTK must not run in a crashed
// process) and waits for it; a failure is silent.

#include <wx/string.h>
#include <boost/function.hpp>

class MiniDumper {
public:
  using NameProvider = boost::function<wxString()>;
  using SuccessCallback = boost::function<void(wchar_t const * path)>;
  using FailureCallback = boost::function<void(wchar_t const * path, unsigned long error)>;

  // Only the first call of either form counts; empty functions are allowed
  // (no name: no dump, no callback).
  static void Initialize();
  static void Initialize(NameProvider const & nameProvider, SuccessCallback const & onSuccess,
                         FailureCallback const & onFailure, int dumpType);

  static bool IsInitialized();

  // The standard success callback: the report program for `path`.
  static void ShowCrashReport(wchar_t const * path);
};
