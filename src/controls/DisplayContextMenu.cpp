#include "controls/DisplayContextMenu.h"

#include <memory>

#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/xrc/xh_menu.h>
#include <wx/xrc/xmlres.h>

#include "controls/VxMenu.h"
#include "platform/ResourceMenus.h"
#include "platform/WinUser.h"

namespace GUI {

namespace {

// Menus are menu resources of the resource chain, else wxMenuBar resources
// of wx's resource set, named by number; the context menu is the bar's
// first menu. The set learns to build menus on first use, whether or not
// the application initialised all its handlers.
std::unique_ptr<wxMenu> LoadFirstSubMenu(unsigned int menuId) {
  if (std::unique_ptr<wxMenu> menu = LoadResourcePopupMenu(menuId)) return menu;
  wxXmlResource & resources = *wxXmlResource::Get();
  static bool const menuHandlers = [&resources] {
    resources.AddHandler(new wxMenuBarXmlHandler);
    resources.AddHandler(new wxMenuXmlHandler);
    return true;
  }();
  (void)menuHandlers;
  wxString const name = wxString::Format("%u", menuId);
  if (resources.GetResourceNode(name) == nullptr) return nullptr;
  std::unique_ptr<wxMenuBar> bar(resources.LoadMenuBar(name));
  if (!bar || bar->GetMenuCount() == 0) return nullptr;
  return std::unique_ptr<wxMenu>(bar->Remove(0));
}

// Commands of the menu go to the owner: the one given, else the window, or
// with findFrame the frame around a child window (not for a dialog).
wxWindow * MenuOwner(wxWindow * wnd, bool findFrame, wxWindow * owner) {
  if (owner != nullptr) return owner;
  if (!findFrame || wxDynamicCast(wnd, wxDialog) != nullptr) return wnd;
  wxWindow * top = wnd;
  while (!top->IsTopLevel() && top->GetParent() != nullptr) top = top->GetParent();
  return wxDynamicCast(top, wxFrame) != nullptr ? top : wnd;
}

}  // namespace

void DisplayContextMenu(wxWindow * wnd, wxMenu & menu, wxPoint point, bool findFrame,
                        wxWindow * owner) {
  if (wnd == nullptr) return;
  if (point == KeyboardMenuPoint) point = wnd->ClientToScreen(wxPoint(5, 5));
  VxMenu::TrackPopupMenu(&menu, TPM_RIGHTBUTTON, point.x, point.y, MenuOwner(wnd, findFrame, owner),
                         nullptr);
}

void DisplayContextMenu(wxWindow * wnd, unsigned int menuId, wxPoint point, bool findFrame,
                        wxWindow * owner) {
  if (wnd == nullptr) return;
  std::unique_ptr<wxMenu> menu = LoadFirstSubMenu(menuId);
  if (menu) DisplayContextMenu(wnd, *menu, point, findFrame, owner);
}

}  // namespace GUI
