#include "frame/InternalErrorDialog.h"

#include <wx/string.h>

#include "frame/CExceptionHelper.h"
#include "platform/MessageBoxes.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

char const kUnknownExceptionText[] = "An unknown exception was caught in WindowProc().";

std::string FrameworkExceptionText(CException * e) { return CExceptionHelper::GetErrorMessage(e); }

void ShowInternalErrorDialog(std::string const & text) {
  wxString const message = vx3::Tr("Unknown error occurred.") + "\n\n" + wxString::FromUTF8(text);
  wxString const caption = wxString::FromUTF8(VxSystemInfo::GetApplicationName());
  MessageBoxW(nullptr, message.wc_str(), caption.wc_str(), MB_OK | MB_ICONERROR);
}
