#pragma once
// CDateTimeCtrl: the date-time picker of the common controls, drawn here.
// It shows a SYSTEMTIME through a format (DTM_SETFORMATW, DateTimeFields.h)
// and lets the user select a field with the mouse, Left/Right or Tab, and
// change it with Up/Down, the spin button at the right or digits. Each
// change stays in its field (see DateTimeFields.h) and is then kept inside
// the range, whose limits may each be null. Every change the user makes is
// told by DTN_DATETIMECHANGE (NMDATETIMECHANGE) through SendNotify: the
// control first, then its parent. Changes made by calls notify nobody.
//
// The DTM_ messages are answered through SendWindowMessage as well, with
// the numbers of the platform, so that code written against the messages
// runs unchanged. Not drawn: the drop-down month calendar (the spin button
// is always there, as with DTS_UPDOWN) and the check box of DTS_SHOWNONE.

#include <vector>

#include <wx/control.h>

#include "platform/AtlTime.h"
#include "platform/OleDateTime.h"
#include "platform/WinGeometry.h"
#include "platform/commctrl/DateTimeFields.h"
#include "platform/commctrl/NotifyEvent.h"

class WindowMessageEvent;

// Styles.
constexpr DWORD DTS_UPDOWN = 0x0001;
constexpr DWORD DTS_SHOWNONE = 0x0002;
constexpr DWORD DTS_SHORTDATEFORMAT = 0x0000;
constexpr DWORD DTS_LONGDATEFORMAT = 0x0004;
constexpr DWORD DTS_SHORTDATECENTURYFORMAT = 0x000C;
constexpr DWORD DTS_TIMEFORMAT = 0x0009;
constexpr DWORD DTS_APPCANPARSE = 0x0010;
constexpr DWORD DTS_RIGHTALIGN = 0x0020;

// Messages.
constexpr UINT DTM_FIRST = 0x1000;
constexpr UINT DTM_GETSYSTEMTIME = DTM_FIRST + 1;
constexpr UINT DTM_SETSYSTEMTIME = DTM_FIRST + 2;
constexpr UINT DTM_GETRANGE = DTM_FIRST + 3;
constexpr UINT DTM_SETRANGE = DTM_FIRST + 4;
constexpr UINT DTM_SETFORMATW = DTM_FIRST + 50;

// GetTime results and SetTime flags.
constexpr DWORD GDT_ERROR = static_cast<DWORD>(-1);
constexpr DWORD GDT_VALID = 0;
constexpr DWORD GDT_NONE = 1;
// Range flags: which limits are set.
constexpr DWORD GDTR_MIN = 0x0001;
constexpr DWORD GDTR_MAX = 0x0002;

// Notifications.
constexpr UINT DTN_DATETIMECHANGE = DTN_FIRST2 - 6;

struct NMDATETIMECHANGE {
  NMHDR nmhdr;
  DWORD dwFlags = GDT_VALID;
  SYSTEMTIME st{};
};
using LPNMDATETIMECHANGE = NMDATETIMECHANGE *;

class CDateTimeCtrl : public wxControl {
public:
  CDateTimeCtrl();
  CDateTimeCtrl(wxWindow * parent, wxWindowID id, DWORD style = DTS_SHORTDATEFORMAT,
                wxPoint const & position = wxDefaultPosition, wxSize const & size = wxDefaultSize);

  bool Create(wxWindow * parent, wxWindowID id, DWORD style = DTS_SHORTDATEFORMAT,
              wxPoint const & position = wxDefaultPosition, wxSize const & size = wxDefaultSize);
  bool Create(DWORD style, RECT const & rect, wxWindow * parent, UINT id);

  // The format; null goes back to the one of the style.
  BOOL SetFormat(LPCWSTR format);

  DWORD GetTime(SYSTEMTIME * time) const;
  DWORD GetTime(CTime & time) const;
  BOOL GetTime(COleDateTime & time) const;
  // An invalid time (or null) is refused with FALSE; one outside the range
  // is clamped to it.
  BOOL SetTime(SYSTEMTIME const * time);
  BOOL SetTime(CTime const * time);
  BOOL SetTime(CTime const & time);
  BOOL SetTime(COleDateTime const & time);

  // Null pointers ask for, and set, no limit on that side. The result of
  // GetRange says which limits there are (GDTR_MIN | GDTR_MAX).
  DWORD GetRange(SYSTEMTIME * minimum, SYSTEMTIME * maximum) const;
  DWORD GetRange(CTime * minimum, CTime * maximum) const;
  DWORD GetRange(COleDateTime * minimum, COleDateTime * maximum) const;
  BOOL SetRange(SYSTEMTIME const * minimum, SYSTEMTIME const * maximum);
  BOOL SetRange(CTime const * minimum, CTime const * maximum);
  BOOL SetRange(COleDateTime const * minimum, COleDateTime const * maximum);

  // What the control shows.
  wxString GetLabel() const override;

  bool AcceptsFocus() const override { return true; }

protected:
  // Called once the window exists, before it is used: a derived control sets
  // its format and value here.
  virtual void PreSubclassWindow() {}

  wxSize DoGetBestSize() const override;

private:
  void Init();
  void OnPaint(wxPaintEvent & event);
  void OnKeyDown(wxKeyEvent & event);
  void OnChar(wxKeyEvent & event);
  void OnLeftDown(wxMouseEvent & event);
  void OnFocus(wxFocusEvent & event);
  void OnWindowMessage(WindowMessageEvent & event);

  // The user's change: clamped into the range, shown and told.
  void ChangeByUser(SYSTEMTIME const & time);
  SYSTEMTIME ClampToRange(SYSTEMTIME const & time) const;
  void SelectField(int segment);
  // The next editable segment in `direction` (+1, -1) from the selected
  // one, or the selected one when there is none.
  int NextField(int direction) const;
  void Step(int delta);
  void ForgetDigits();
  wxRect SpinButtonRect() const;
  // Where each segment is drawn, in client coordinates.
  std::vector<wxRect> SegmentRects() const;

  DWORD mStyle = 0;
  std::vector<DateTimeSegment> mSegments;
  SYSTEMTIME mTime{};
  bool mHasMin = false;
  bool mHasMax = false;
  SYSTEMTIME mMin{};
  SYSTEMTIME mMax{};
  int mSelected = -1;   // the selected segment
  int mTypedValue = 0;  // digits typed into the selected field so far
  int mTypedDigits = 0;
};
