#pragma once
// Messages of the WM_USER range (1024 and up) that windows of the library
// send each other, as one synchronous wx event type carrying the message
// number, wParam and lParam, and a result the handler sets. The numbers are
// kept from Windows, so a handler switches on them as before.

#include <cstdint>

#include <wx/event.h>

#include "platform/WinTypes.h"

class WindowMessageEvent : public wxEvent {
public:
  WindowMessageEvent(UINT message = 0, std::uintptr_t wParam = 0, std::intptr_t lParam = 0);

  UINT GetMessage() const { return mMessage; }
  std::uintptr_t GetWParam() const { return mWParam; }
  std::intptr_t GetLParam() const { return mLParam; }
  std::intptr_t GetResult() const { return mResult; }
  void SetResult(std::intptr_t result) { mResult = result; }

  wxEvent * Clone() const override { return new WindowMessageEvent(*this); }

private:
  UINT mMessage;
  std::uintptr_t mWParam;
  std::intptr_t mLParam;
  std::intptr_t mResult = 0;
};

wxDECLARE_EVENT(VX_EVT_WINDOW_MESSAGE, WindowMessageEvent);

// Delivers the message to `window` at once (as SendMessage did) and
// returns the result its handler set; 0 when no handler took it or
// `window` is null.
std::intptr_t SendWindowMessage(wxWindow * window, UINT message, std::uintptr_t wParam,
                                std::intptr_t lParam);
