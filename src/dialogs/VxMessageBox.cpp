#include "dialogs/VxMessageBox.h"

#include <string>

#include <wx/string.h>

#include "dialogs/CustomMessageBoxDlg.h"
#include "platform/ResourceModule.h"

namespace {

bool HasYesNoButtons(unsigned int type) {
  unsigned int const kind = type & MB_TYPEMASK;
  return kind == MB_YESNOCANCEL || kind == MB_YESNO;
}

int ShowBox(wchar_t const * caption, wxString const & text, unsigned int type,
            wchar_t const * yesText, wchar_t const * noText) {
  CustomMessageBoxDlg box(type);
  box.SetText(text);
  if (caption != nullptr) box.SetCaption(caption);
  if (HasYesNoButtons(type)) {
    if (yesText != nullptr) box.SetButtonText(IDYES, yesText);
    if (noText != nullptr) box.SetButtonText(IDNO, noText);
  }
  return box.DoModal();
}

}  // namespace

int VxMessageBox(wchar_t const * text, unsigned int type, wchar_t const * yesText,
                 wchar_t const * noText) {
  return ShowBox(nullptr, text != nullptr ? text : L"", type, yesText, noText);
}

int VxMessageBox(unsigned int textId, unsigned int type, unsigned int yesTextId,
                 unsigned int noTextId) {
  wxString const yes = yesTextId != 0 ? LoadResourceString(yesTextId) : wxString();
  wxString const no = noTextId != 0 ? LoadResourceString(noTextId) : wxString();
  std::wstring const & yesText = yes.ToStdWstring();
  std::wstring const & noText = no.ToStdWstring();
  return ShowBox(nullptr, LoadResourceString(textId), type,
                 yesText.empty() ? nullptr : yesText.c_str(),
                 noText.empty() ? nullptr : noText.c_str());
}

int VxMessageBox(wchar_t const * caption, wchar_t const * text, unsigned int type) {
  return ShowBox(caption, text != nullptr ? text : L"", type, nullptr, nullptr);
}
