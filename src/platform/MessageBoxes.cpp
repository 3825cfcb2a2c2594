#include "platform/MessageBoxes.h"

#include <utility>

#include <wx/app.h>
#include <wx/log.h>
#include <wx/msgdlg.h>

#include "platform/MessageBoxType.h"
#include "platform/ResourceModule.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

FrameworkMessageBoxHandler & FrameworkHandler() {
  static FrameworkMessageBoxHandler handler;
  return handler;
}

MessageBoxHelpHandler & HelpHandler() {
  static MessageBoxHelpHandler handler;
  return handler;
}

using ButtonLabel = wxMessageDialogBase::ButtonLabel;

ButtonLabel LabelOr(wxString const & custom, int stockId) {
  return custom.empty() ? ButtonLabel(stockId) : ButtonLabel(custom);
}

void ApplyLabels(wxMessageDialog & dialog, MessageBoxType const & box) {
  if (box.yesLabel.empty() && box.noLabel.empty() && box.okLabel.empty() && box.cancelLabel.empty())
    return;
  ButtonLabel const cancel = LabelOr(box.cancelLabel, wxID_CANCEL);
  if (box.style & wxYES_NO) {
    ButtonLabel const yes = LabelOr(box.yesLabel, wxID_YES);
    ButtonLabel const no = LabelOr(box.noLabel, wxID_NO);
    if (box.style & wxCANCEL)
      dialog.SetYesNoCancelLabels(yes, no, cancel);
    else
      dialog.SetYesNoLabels(yes, no);
  } else if (box.style & wxCANCEL) {
    dialog.SetOKCancelLabels(LabelOr(box.okLabel, wxID_OK), cancel);
  } else {
    dialog.SetOKLabel(LabelOr(box.okLabel, wxID_OK));
  }
}

// Both roads end here. Help keeps the box up: it is shown again after the
// help handler has run.
int ShowMessageDialog(wxWindow * owner, wxString const & text, wxString const & caption, UINT type,
                      UINT helpId) {
  MessageBoxType const box = MapMessageBoxType(type);
  for (;;) {
    wxMessageDialog dialog(owner, text, caption, box.style);
    ApplyLabels(dialog, box);
    int const result = box.WindowsResult(dialog.ShowModal());
    if (result != IDHELP) return result;
    if (MessageBoxHelpHandler const & help = HelpHandler()) help(helpId);
  }
}

wxWindow * MainWindow() { return wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr; }

}  // namespace

int MessageBoxW(wxWindow * owner, wchar_t const * text, wchar_t const * caption, UINT type) {
  wxString const shownCaption = caption != nullptr && *caption != L'\0'
                                    ? wxString(caption)
                                    : vx3::Tr("Message box caption", "Error");
  return ShowMessageDialog(owner, text != nullptr ? wxString(text) : wxString(), shownCaption, type,
                           0);
}

int ShowFrameworkMessageBox(wxString const & text, UINT type, UINT helpId) {
  if ((type & MB_ICONMASK) == 0) {
    switch (type & MB_TYPEMASK) {
      case MB_OK:
      case MB_OKCANCEL: type |= MB_ICONEXCLAMATION; break;
      case MB_YESNO:
      case MB_YESNOCANCEL: type |= MB_ICONQUESTION; break;
      default: break;  // the rarer kinds name their icon themselves
    }
  }
  wxString const caption = wxString::FromUTF8(VxSystemInfo::GetApplicationName());
  return ShowMessageDialog(MainWindow(), text, caption, type, helpId);
}

int AfxMessageBox(wxString const & text, UINT type, UINT helpId) {
  // A copy: the handler may replace itself while its box is up.
  FrameworkMessageBoxHandler const handler = FrameworkHandler();
  if (handler) return handler(text, type, helpId);
  return ShowFrameworkMessageBox(text, type, helpId);
}

int AfxMessageBox(UINT stringId, UINT type, UINT helpId) {
  wxString const text = LoadResourceString(stringId);
  if (text.empty()) wxLogDebug("AfxMessageBox: no string %u in the resource modules", stringId);
  return AfxMessageBox(text, type, helpId == static_cast<UINT>(-1) ? stringId : helpId);
}

FrameworkMessageBoxHandler SetFrameworkMessageBoxHandler(FrameworkMessageBoxHandler handler) {
  return std::exchange(FrameworkHandler(), std::move(handler));
}

MessageBoxHelpHandler SetMessageBoxHelpHandler(MessageBoxHelpHandler handler) {
  return std::exchange(HelpHandler(), std::move(handler));
}
