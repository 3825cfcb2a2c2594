#pragma once
// WM_NOTIFY, the way the common controls tell about themselves: a header
// (NMHDR) at the start of a larger structure that depends on the code. The
// notification is synchronous and seen first by the control itself
// (reflection), then, unless the control took it, by the control's parent.
// A handler takes a notification by not calling Skip(); it may set a result,
// which the sender reads (a custom-draw answer, a veto).

#include <wx/event.h>

#include "platform/WinTypes.h"

class wxWindow;

struct NMHDR {
  wxWindow * hwndFrom = nullptr;
  UINT_PTR idFrom = 0;
  UINT code = 0;
};

// Notification codes are negative numbers in an unsigned field; each control
// family has its own range below these bases.
constexpr UINT NM_FIRST = 0U - 0U;
constexpr UINT NM_OUTOFMEMORY = NM_FIRST - 1;
constexpr UINT NM_CLICK = NM_FIRST - 2;
constexpr UINT NM_DBLCLK = NM_FIRST - 3;
constexpr UINT NM_RETURN = NM_FIRST - 4;
constexpr UINT NM_RCLICK = NM_FIRST - 5;
constexpr UINT NM_RDBLCLK = NM_FIRST - 6;
constexpr UINT NM_SETFOCUS = NM_FIRST - 7;
constexpr UINT NM_KILLFOCUS = NM_FIRST - 8;
constexpr UINT NM_CUSTOMDRAW = NM_FIRST - 12;
constexpr UINT NM_HOVER = NM_FIRST - 13;
constexpr UINT NM_KEYDOWN = NM_FIRST - 15;
constexpr UINT NM_RELEASEDCAPTURE = NM_FIRST - 16;
constexpr UINT NM_SETCURSOR = NM_FIRST - 17;
constexpr UINT NM_CHAR = NM_FIRST - 18;

constexpr UINT LVN_FIRST = 0U - 100U;
constexpr UINT HDN_FIRST = 0U - 300U;
constexpr UINT TVN_FIRST = 0U - 400U;
constexpr UINT TTN_FIRST = 0U - 520U;
constexpr UINT DTN_FIRST = 0U - 740U;
constexpr UINT DTN_FIRST2 = 0U - 753U;

class NotifyEvent : public wxEvent {
public:
  NotifyEvent(wxEventType type, NMHDR * header);

  NMHDR * GetHeader() const { return mHeader; }
  UINT GetCode() const { return mHeader->code; }
  // The whole structure the code promises (NMLISTVIEW, NMTREEVIEW...); each
  // begins with its NMHDR.
  template <class Notification>
  Notification * GetNotification() const {
    return reinterpret_cast<Notification *>(mHeader);
  }

  LRESULT GetResult() const { return mResult; }
  void SetResult(LRESULT result) { mResult = result; }

  wxEvent * Clone() const override { return new NotifyEvent(*this); }

private:
  NMHDR * mHeader;
  LRESULT mResult = 0;
};

// Seen by the control that sends the notification.
wxDECLARE_EVENT(VX_EVT_NOTIFY_REFLECT, NotifyEvent);
// Seen by the control's parent when the control did not take it.
wxDECLARE_EVENT(VX_EVT_NOTIFY, NotifyEvent);

// Fills the header's sender fields from `control` and the given code,
// delivers the notification to the control, then to its parent, and returns
// the result of whichever took it (0 when none did).
LRESULT SendNotify(wxWindow * control, UINT code, NMHDR & header);
