#include "frame/InternalErrorDialog.h"

#include "frame/CExceptionHelper.h"
#include "frame/HandleExceptionPage.h"
#include "frame/ProcessRestart.h"
#include "utl/Log.h"

char const kUnknownExceptionText[] = "An unknown exception was caught in WindowProc().";

std::string FrameworkExceptionText(CException * e) { return CExceptionHelper::GetErrorMessage(e); }

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
