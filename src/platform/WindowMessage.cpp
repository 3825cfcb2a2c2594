#include "platform/WindowMessage.h"

#include <wx/window.h>

wxDEFINE_EVENT(VX_EVT_WINDOW_MESSAGE, WindowMessageEvent);

WindowMessageEvent::WindowMessageEvent(UINT message, std::uintptr_t wParam, std::intptr_t lParam)
    : wxEvent(0, VX_EVT_WINDOW_MESSAGE), mMessage(message), mWParam(wParam), mLParam(lParam) {}

std::intptr_t SendWindowMessage(wxWindow * window, UINT message, std::uintptr_t wParam,
                                std::intptr_t lParam) {
  if (window == nullptr) return 0;
  WindowMessageEvent event(message, wParam, lParam);
  event.SetEventObject(window);
  event.SetId(window->GetId());
  window->GetEventHandler()->ProcessEvent(event);
  return event.GetResult();
}
