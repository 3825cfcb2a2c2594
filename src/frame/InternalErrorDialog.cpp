#include "frame/InternalErrorDialog.h"

#include "frame/CExceptionHelper.h"
#include "frame/HandleExceptionPage.h"
#include "frame/ProcessRestart.h"

char const kUnknownExceptionText[] = "An unknown exception was caught in WindowProc().";

std::string FrameworkExceptionText(CException * e) { return CExceptionHelper::GetErrorMessage(e); }

void ShowInternalErrorDialog(std::string const & text) {
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
