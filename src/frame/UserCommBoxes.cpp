#include "frame/UserCommBoxes.h"

#include <algorithm>

#include "dialogs/VxDialog.h"
#include "frame/FatalErrorDialog.h"
#include "platform/MessageBoxes.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

namespace {

// The dialog base's owner rule, which it keeps for its kin.
class SafeOwner : public VxDialog {
public:
  using VxDialog::GetDialogParent;
};

}  // namespace

namespace user_comm {

int CountLines(std::string const & text) {
  return static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 1;
}

wxWindow * DialogParent() { return SafeOwner::GetDialogParent(); }

int ShowMessageBox(wxString const & text, wxString const & caption, UINT type) {
  // The framework's disabling of modeless windows around the box is what
  // wx's modal run does to every other window by itself.
  UINT const buttons = type & MB_TYPEMASK;
  bool const warnable = buttons == MB_OK || buttons == MB_OKCANCEL || buttons == MB_YESNOCANCEL ||
                        buttons == MB_YESNO;
  if ((type & MB_ICONMASK) == 0 && warnable) type |= MB_ICONEXCLAMATION;
  wxString const shownCaption =
      caption.empty() ? wxString::FromUTF8(VxSystemInfo::GetApplicationName()) : caption;
  return MessageBoxW(DialogParent(), text.wc_str(), shownCaption.wc_str(), type);
}

void ShowFatalOrInformation(std::string const & text, std::string const & caption,
                            bool informationOnly) {
  std::wstring const shownText = vx3::Utf8ToWide(text);
  std::wstring const shownCaption = vx3::Utf8ToWide(caption);
  if (CountLines(text) < kScrollingMessageLines) {
    ShowMessageBox(shownText, shownCaption, informationOnly ? MB_ICONINFORMATION : MB_ICONHAND);
    return;
  }
  FatalErrorDialog dialog(shownText.c_str(), shownCaption.c_str(), DialogParent(), informationOnly);
  dialog.DoModal();
}

}  // namespace user_comm
