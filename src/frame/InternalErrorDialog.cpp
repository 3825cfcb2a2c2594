#include "frame/InternalErrorDialog.h"

#include "frame/HandleExceptionPage.h"
#include "frame/ProcessRestart.h"
#include "platform/InternalErrorReport.h"
#include "utl/Log.h"

namespace {

// Registered with the library rather than by VxApp, so that a program whose
// application object is a plain wxApp gets the dialog too.
bool const gReporterInstalled = (SetInternalErrorReporter(&ShowInternalErrorDialog), true);

}  // namespace

void ShowInternalErrorDialog(std::string const & text) {
  // Logged first: the user may end the process from the dialog, and a
  // dialog dismissed unread leaves nothing else behind.
  Log::WriteMessage("InternalErrorDialog", "ShowInternalErrorDialog", text, Log::Error, true);
  bool restart = false;
  {
    HandleExceptionPage page(nullptr);
    page.SetDetailText(text);
    if (page.ShowModal() != HandleExceptionPage::kFinishId) return;  // Ignore: carry on
    restart = page.GetRestart();
  }
  if (restart) LaunchRestart();
  EndProcessNow(1);
}
