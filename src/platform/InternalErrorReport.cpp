#include "platform/InternalErrorReport.h"

#include <wx/app.h>
#include <wx/string.h>

#include "platform/MessageBoxes.h"
#include "platform/RunningApplication.h"
#include "utl/Log.h"

char const kUnknownExceptionText[] = "An unknown exception was caught in WindowProc().";

namespace {

// A plain pointer, constant-initialised: the dialog's registrar may run
// during static initialisation, before any dynamic initialiser here.
InternalErrorReporter gReporter = nullptr;

}  // namespace

InternalErrorReporter SetInternalErrorReporter(InternalErrorReporter reporter) {
  InternalErrorReporter const former = gReporter;
  gReporter = reporter;
  return former;
}

void ReportInternalError(std::string const & text) {
  if (gReporter != nullptr) {
    gReporter(text);
    return;
  }
  // Logged first, flushed: the log outlives whatever follows. The plain road,
  // not the framework one, because an application's mute switch must not
  // swallow a failure; there is nothing to restart or exit from here, so the
  // window carries on as after Ignore in the dialog.
  Log::WriteMessage("InternalErrorReport", "ReportInternalError", text, Log::Error, true);
  if (wxTheApp == nullptr) return;  // no display to show it on
  MessageBoxW(AppMainWindow(), wxString::FromUTF8(text).wc_str(), nullptr, MB_OK | MB_ICONERROR);
}
