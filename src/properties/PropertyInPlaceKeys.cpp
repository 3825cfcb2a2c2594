#include "properties/PropertyInPlaceKeys.h"

#include <wx/event.h>
#include <wx/weakref.h>
#include <wx/window.h>

InPlaceKeyAction InPlaceKeyActionFor(int keyCode) {
  switch (keyCode) {
    case WXK_TAB:
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
    case WXK_ESCAPE: return InPlaceKeyAction::Commit;
    case WXK_UP:
    case WXK_DOWN:
    case WXK_NUMPAD_UP:
    case WXK_NUMPAD_DOWN: return InPlaceKeyAction::CommitAndPassOn;
    default: return InPlaceKeyAction::None;
  }
}

void HandKeyToList(wxWindow & list, wxKeyEvent const & key, InPlaceKeyAction action) {
  if (action == InPlaceKeyAction::None) return;
  wxWeakRef<wxWindow> const alive(&list);
  if (!list.HasFocus()) list.SetFocus();
  if (action != InPlaceKeyAction::CommitAndPassOn || !alive) return;
  wxKeyEvent down(key);
  down.SetEventType(wxEVT_KEY_DOWN);
  down.SetEventObject(&list);
  down.SetId(list.GetId());
  list.GetEventHandler()->ProcessEvent(down);
}
