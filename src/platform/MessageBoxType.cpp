#include "platform/MessageBoxType.h"

#include <vector>

#include <wx/defs.h>

#include "utl/Translation.h"

namespace {

// The buttons of each kind in Windows' order (left to right), as wx ids;
// MB_DEFBUTTONn picks among them.
std::vector<int> WindowsButtonOrder(UINT kind) {
  switch (kind) {
    case MB_OKCANCEL: return {wxID_OK, wxID_CANCEL};
    case MB_ABORTRETRYIGNORE: return {wxID_CANCEL, wxID_YES, wxID_NO};
    case MB_YESNOCANCEL: return {wxID_YES, wxID_NO, wxID_CANCEL};
    case MB_YESNO: return {wxID_YES, wxID_NO};
    case MB_RETRYCANCEL: return {wxID_OK, wxID_CANCEL};
    case MB_CANCELTRYCONTINUE: return {wxID_CANCEL, wxID_YES, wxID_NO};
    case MB_OK:
    default: return {wxID_OK};
  }
}

long IconStyle(UINT type) {
  switch (type & MB_ICONMASK) {
    case MB_ICONHAND: return wxICON_ERROR;
    case MB_ICONQUESTION: return wxICON_QUESTION;
    case MB_ICONEXCLAMATION: return wxICON_WARNING;
    case MB_ICONASTERISK: return wxICON_INFORMATION;
    default: return wxICON_NONE;
  }
}

long DefaultButtonStyle(int wxId) {
  switch (wxId) {
    case wxID_CANCEL: return wxCANCEL_DEFAULT;
    case wxID_NO: return wxNO_DEFAULT;
    default: return 0;  // wxOK_DEFAULT and wxYES_DEFAULT are the wx defaults
  }
}

}  // namespace

MessageBoxType MapMessageBoxType(UINT type) {
  MessageBoxType box;
  UINT kind = type & MB_TYPEMASK;
  if (kind > MB_CANCELTRYCONTINUE) kind = MB_OK;
  switch (kind) {
    case MB_OKCANCEL: box.style = wxOK | wxCANCEL; break;
    case MB_ABORTRETRYIGNORE:
      box.style = wxYES_NO | wxCANCEL;
      box.cancelLabel = vx3::Tr("Abort button", "&Abort");
      box.yesLabel = vx3::Tr("Retry button", "&Retry");
      box.noLabel = vx3::Tr("Ignore button", "&Ignore");
      box.cancelResult = IDABORT;
      box.yesResult = IDRETRY;
      box.noResult = IDIGNORE;
      break;
    case MB_YESNOCANCEL: box.style = wxYES_NO | wxCANCEL; break;
    case MB_YESNO:
      box.style = wxYES_NO;
      box.cancelResult = IDNO;
      break;
    case MB_RETRYCANCEL:
      box.style = wxOK | wxCANCEL;
      box.okLabel = vx3::Tr("Retry button", "&Retry");
      box.okResult = IDRETRY;
      break;
    case MB_CANCELTRYCONTINUE:
      box.style = wxYES_NO | wxCANCEL;
      box.yesLabel = vx3::Tr("Try Again button", "&Try Again");
      box.noLabel = vx3::Tr("Continue button", "&Continue");
      box.yesResult = IDTRYAGAIN;
      box.noResult = IDCONTINUE;
      break;
    case MB_OK:
    default:
      box.style = wxOK;
      box.cancelResult = IDOK;
      break;
  }
  if (type & MB_HELP) box.style |= wxHELP;
  box.style |= IconStyle(type);

  std::vector<int> const buttons = WindowsButtonOrder(kind);
  size_t const defaultIndex = (type & MB_DEFMASK) >> 8;
  if (defaultIndex < buttons.size()) box.style |= DefaultButtonStyle(buttons[defaultIndex]);
  return box;
}

int MessageBoxType::WindowsResult(int wxId) const {
  switch (wxId) {
    case wxID_OK: return okResult;
    case wxID_YES: return yesResult;
    case wxID_NO: return noResult;
    case wxID_HELP: return IDHELP;
    case wxID_CANCEL:
    default: return cancelResult;
  }
}
