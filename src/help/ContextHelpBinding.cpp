#include "help/ContextHelpBinding.h"

#include <wx/event.h>
#include <wx/window.h>

#include "html/HelpInfo.h"
#include "html/VxHtmlHelp.h"

void VxBindContextHelp(wxWindow & dialog, std::wstring popupTopic) {
  wxWindow * const owner = &dialog;
  dialog.Bind(wxEVT_HELP, [owner, topic = std::move(popupTopic)](wxHelpEvent & event) {
    auto * control = dynamic_cast<wxWindow *>(event.GetEventObject());
    HELPINFO info;
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = control != nullptr && control != owner ? control->GetId() : 0;
    info.hItemHandle = control;
    // Not a control (the dialog itself, a menu): the caller's own handling.
    if (!VxHtmlHelp::Instance()->DisplayContextHelp(owner, &info, topic.c_str())) event.Skip();
  });
  // GTK has no F1 request of its own: the key becomes one for the control
  // that has the focus.
  dialog.Bind(wxEVT_CHAR_HOOK, [](wxKeyEvent & event) {
    wxWindow * focus = wxWindow::FindFocus();
    if (event.GetKeyCode() != WXK_F1 || event.GetModifiers() != wxMOD_NONE || focus == nullptr) {
      event.Skip();
      return;
    }
    wxHelpEvent help(wxEVT_HELP, focus->GetId(), wxGetMousePosition(),
                     wxHelpEvent::Origin_Keyboard);
    help.SetEventObject(focus);
    focus->GetEventHandler()->ProcessEvent(help);
  });
}
