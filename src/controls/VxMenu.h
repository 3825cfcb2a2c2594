#pragma once
// The one road to a popup menu. Every popup menu of the library goes
// through TrackPopupMenu, never straight to wxWindow::PopupMenu, so that an
// application (or a test) can put its own menu engine under all of them.

#include <boost/function.hpp>

class wxMenu;
class wxRect;
class wxWindow;

class VxMenu {
public:
  // flags: TPM_* of platform/WinUser.h; (x, y) in screen coordinates. With
  // TPM_RETURNCMD the chosen command id (0 for none) comes back and no
  // command is sent; otherwise nonzero when the menu was shown.
  using TrackPopupMenuFunction =
      boost::function<int(wxMenu *, unsigned int, int, int, wxWindow *, wxRect const *)>;

  // Calls the current function; an empty one raises boost::bad_function_call.
  static int TrackPopupMenu(wxMenu * menu, unsigned int flags, int x, int y, wxWindow * wnd,
                            wxRect const * rect);
  static void SetTrackPopupMenuFunction(TrackPopupMenuFunction const & function);

  // What the function is at first: wx's own popup menu on `wnd`.
  static int ToolkitTrackPopupMenu(wxMenu * menu, unsigned int flags, int x, int y, wxWindow * wnd,
                                   wxRect const * rect);
};
