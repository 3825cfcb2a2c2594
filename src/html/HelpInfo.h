#pragma once
// A request for context help (F1 or the "?" of a dialog) with the fields and
// values of Windows' HELPINFO that VxHtmlHelp reads.

#include <cstdint>

class wxWindow;

constexpr int HELPINFO_WINDOW = 1;    // help for a control
constexpr int HELPINFO_MENUITEM = 2;  // help for a menu item

struct HELPINFO {
  int iContextType = HELPINFO_WINDOW;
  int iCtrlId = 0;                   // the control's (or menu item's) identifier
  wxWindow * hItemHandle = nullptr;  // the control (or menu)
  uint32_t dwContextId = 0;
};
