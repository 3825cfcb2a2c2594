#include "controls/VxMenu.h"

#include <wx/menu.h>
#include <wx/window.h>

#include "platform/WinUser.h"

namespace {

VxMenu::TrackPopupMenuFunction & Current() {
  static VxMenu::TrackPopupMenuFunction function = &VxMenu::ToolkitTrackPopupMenu;
  return function;
}

}  // namespace

int VxMenu::TrackPopupMenu(wxMenu * menu, unsigned int flags, int x, int y, wxWindow * wnd,
                           wxRect const * rect) {
  return Current()(menu, flags, x, y, wnd, rect);
}

void VxMenu::SetTrackPopupMenuFunction(TrackPopupMenuFunction const & function) {
  Current() = function;
}

int VxMenu::ToolkitTrackPopupMenu(wxMenu * menu, unsigned int flags, int x, int y, wxWindow * wnd,
                                  wxRect const * rect) {
  if (menu == nullptr || wnd == nullptr) return 0;
  wxPoint const where = wnd->ScreenToClient(wxPoint(x, y));
  if (flags & TPM_RETURNCMD) {
    int const chosen = wnd->GetPopupMenuSelectionFromUser(*menu, where);
    return chosen == wxID_NONE ? 0 : chosen;
  }
  return wnd->PopupMenu(menu, where) ? 1 : 0;
}
