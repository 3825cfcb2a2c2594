#pragma once
// Shows a context menu the way every window of the family does: through
// VxMenu::TrackPopupMenu, at the mouse point or, for the keyboard, near the
// window's top left corner, owned by the window or by its frame.

#include <wx/gdicmn.h>

class wxMenu;
class wxWindow;

namespace GUI {

// The point meaning "from the keyboard": the menu opens 5 pixels right and
// down from the window's top left client corner.
inline wxPoint const KeyboardMenuPoint(-1, -1);

// Loads the menu bar resource `menuId` and tracks its first menu. `point`
// is in screen coordinates. Nothing happens when the resource is missing.
void DisplayContextMenu(wxWindow * wnd, unsigned int menuId, wxPoint point, bool findFrame,
                        wxWindow * owner = nullptr);

// The same with a menu at hand.
void DisplayContextMenu(wxWindow * wnd, wxMenu & menu, wxPoint point, bool findFrame,
                        wxWindow * owner = nullptr);

}  // namespace GUI
