#include "platform/SystemMetrics.h"

#include <wx/settings.h>

int GetSystemMetrics(int index) {
  wxSystemMetric metric;
  switch (index) {
    case SM_CXSCREEN: metric = wxSYS_SCREEN_X; break;
    case SM_CYSCREEN: metric = wxSYS_SCREEN_Y; break;
    case SM_CXVSCROLL: metric = wxSYS_VSCROLL_X; break;
    case SM_CYHSCROLL: metric = wxSYS_HSCROLL_Y; break;
    case SM_CXBORDER: metric = wxSYS_BORDER_X; break;
    case SM_CYBORDER: metric = wxSYS_BORDER_Y; break;
    case SM_CXICON: metric = wxSYS_ICON_X; break;
    case SM_CYICON: metric = wxSYS_ICON_Y; break;
    case SM_CXDOUBLECLK: metric = wxSYS_DCLICK_X; break;
    case SM_CYDOUBLECLK: metric = wxSYS_DCLICK_Y; break;
    case SM_CXEDGE: metric = wxSYS_EDGE_X; break;
    case SM_CYEDGE: metric = wxSYS_EDGE_Y; break;
    case SM_CXSMICON: metric = wxSYS_SMALLICON_X; break;
    case SM_CYSMICON: metric = wxSYS_SMALLICON_Y; break;
    case SM_CXDRAG: metric = wxSYS_DRAG_X; break;
    case SM_CYDRAG: metric = wxSYS_DRAG_Y; break;
    default: return 0;
  }
  int const value = wxSystemSettings::GetMetric(metric);
  return value < 0 ? 0 : value;
}
