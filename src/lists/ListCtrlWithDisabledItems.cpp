#include "lists/ListCtrlWithDisabledItems.h"

#include <algorithm>

#include <wx/dc.h>

#include "dialogs/LimitLineLength.h"
#include "platform/SysColor.h"
#include "platform/commctrl/CustomDraw.h"

void ListCtrlWithDisabledItems::OnReflectedNotify(NotifyEvent & event) {
  if (event.GetCode() != NM_CUSTOMDRAW) {
    VxListCtrl::OnReflectedNotify(event);
    return;
  }
  auto * draw = event.GetNotification<NMLVCUSTOMDRAW>();
  int const item = static_cast<int>(draw->nmcd.dwItemSpec);
  switch (draw->nmcd.dwDrawStage) {
    case CDDS_PREPAINT: event.SetResult(CDRF_NOTIFYITEMDRAW); break;
    case CDDS_ITEMPREPAINT:
      if (IsItemDisabled(item)) draw->clrText = GetSysColor(COLOR_GRAYTEXT);
      event.SetResult(CDRF_NOTIFYPOSTPAINT);
      break;
    case CDDS_ITEMPOSTPAINT:
      if (IsItemDisabled(item) && draw->nmcd.hdc != nullptr) {
        RECT label{};
        GetItemRect(item, &label, LVIR_LABEL);
        wxString const text = GetItemText(item, 0);
        int const textWidth = LimitLineLength::GetBoundsRect(text.wc_str(), GetFont()).width;
        int const length = std::min<int>(label.right - label.left, textWidth + 4);
        int const middle = (label.top + label.bottom) / 2;
        wxDC & dc = *draw->nmcd.hdc;
        dc.SetPen(wxPen(GetSysColour(COLOR_GRAYTEXT), 1));
        dc.DrawLine(label.left, middle, label.left + length, middle);
      }
      event.SetResult(CDRF_DODEFAULT);
      break;
    default: event.SetResult(CDRF_DODEFAULT); break;
  }
}
