#include "platform/commctrl/NotifyEvent.h"

#include <wx/window.h>

wxDEFINE_EVENT(VX_EVT_NOTIFY_REFLECT, NotifyEvent);
wxDEFINE_EVENT(VX_EVT_NOTIFY, NotifyEvent);

NotifyEvent::NotifyEvent(wxEventType type, NMHDR * header) : wxEvent(0, type), mHeader(header) {}

LRESULT SendNotify(wxWindow * control, UINT code, NMHDR & header) {
  if (control == nullptr) return 0;
  header.hwndFrom = control;
  header.idFrom = static_cast<UINT_PTR>(control->GetId());
  header.code = code;

  NotifyEvent reflected(VX_EVT_NOTIFY_REFLECT, &header);
  reflected.SetEventObject(control);
  reflected.SetId(control->GetId());
  if (control->GetEventHandler()->ProcessEvent(reflected)) return reflected.GetResult();

  wxWindow * parent = control->GetParent();
  if (parent == nullptr) return 0;
  NotifyEvent notified(VX_EVT_NOTIFY, &header);
  notified.SetEventObject(control);
  notified.SetId(control->GetId());
  parent->GetEventHandler()->ProcessEvent(notified);
  return notified.GetResult();
}
