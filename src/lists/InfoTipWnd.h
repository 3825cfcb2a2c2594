#pragma once
// A tip window of the library's own: a borderless popup with an optional
// icon, a bold title and a text wrapped at 60 characters. It serves two uses:
// a message box that goes away by itself (InfoTipMessageBox) to tell of a
// refused value without taking the focus, and a hover tip that is fed the
// mouse events of a window through RelayEvent and asks that window for its
// text (TTN_GETDISPINFOW).
//
// It is a wxPopupWindow: on X11 that is an override-redirect window, so the
// window manager neither frames nor focuses it, and a click on it pops it
// without moving the focus.

#include <functional>
#include <string>

#include <wx/bitmap.h>
#include <wx/font.h>
#include <wx/popupwin.h>
#include <wx/timer.h>

#include "platform/WinGdi.h"
#include "platform/commctrl/NotifyEvent.h"

// TTN_GETDISPINFOW: the owner of a tip fills in the text. `lpszText` wins
// over `szText`; with `resourceId` set instead, the string resource of that
// number is the text. A "\r" separates a title from the text.
constexpr UINT TTN_GETDISPINFOW = TTN_FIRST - 10;

struct NMTTDISPINFOW {
  NMHDR hdr;
  wchar_t const * lpszText = nullptr;
  wchar_t szText[80] = {};
  unsigned resourceId = 0;  // where the original named a module and MAKEINTRESOURCE
  UINT uFlags = 0;
  LPARAM lParam = 0;
};

// The Windows numbers of the messages RelayEvent reacts to.
namespace infotip_messages {
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_ACTIVATE = 0x0006;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_WINDOWPOSCHANGING = 0x0046;
constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
constexpr UINT WM_NCLBUTTONDOWN = 0x00A1;
constexpr UINT WM_NCLBUTTONDBLCLK = 0x00A3;
constexpr UINT WM_NCRBUTTONDOWN = 0x00A4;
constexpr UINT WM_NCRBUTTONDBLCLK = 0x00A6;
constexpr UINT WM_NCMBUTTONDOWN = 0x00A7;
constexpr UINT WM_NCMBUTTONDBLCLK = 0x00A9;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_SYSKEYDOWN = 0x0104;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
constexpr UINT WM_MBUTTONDOWN = 0x0207;
constexpr UINT WM_MBUTTONDBLCLK = 0x0209;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_MOVING = 0x0216;
}  // namespace infotip_messages

class InfoTipWnd : public wxPopupWindow {
public:
  static constexpr int kDelayTimer = 1001;
  static constexpr int kCheckTimer = 1002;
  static constexpr unsigned kCheckInterval = 500;
  // Characters a line of text holds before it is wrapped.
  static constexpr size_t kLineLength = 60;

  InfoTipWnd();
  ~InfoTipWnd() override;
  InfoTipWnd(InfoTipWnd const &) = delete;
  InfoTipWnd & operator=(InfoTipWnd const &) = delete;

  // `topmost` is what every popup is on X11 already.
  bool Create(wxWindow * parent, bool askParent = false, bool topmost = false);

  // Sizes the tip for `point` (screen) and shows it without activating it.
  // False, and nothing shown, when the tip was popped since the last relay
  // or both title and text are empty.
  virtual bool ShowTipWindow(wxPoint const & point);
  // Hides the tip; it stays hidden until the next relayed move.
  void Pop();

  // The mouse and window events of the watched window. A plain move (no
  // button, Ctrl, Shift or Alt) arms the delay; the events that end hovering
  // pop the tip. A left button press does not.
  void RelayEvent(wxEvent const & event);
  // The same by Windows message number; `buttonsOrModifiersDown` matters
  // only for WM_MOUSEMOVE.
  void RelayMessage(UINT message, bool buttonsOrModifiersDown = false);

  void SetTipText(wchar_t const * text, wchar_t const * title = nullptr,
                  wxBitmap const & icon = wxBitmap(), bool redraw = false);
  void SetTipColors(COLORREF back, COLORREF text, int redraw = 0);
  void SetTimeout(unsigned milliseconds);
  void SetMargins(wxSize margins);
  void SetLineSpace(int lineSpace);
  void SetRoundedEdges(bool rounded) { mRoundedEdges = rounded; }

  // The timers' handlers, public so that tests drive them.
  void OnDelayTimer();
  void OnCheckTimer();

  // Where the pointer is (screen); the real pointer unless a test replaces it.
  void SetCursorSource(std::function<wxPoint()> source) { mCursorSource = std::move(source); }

  // What the last ShowTipWindow laid out, for tests and painting.
  wxRect GetTipRect() const { return mTipRect; }    // screen coordinates
  wxRect GetTextRect() const { return mTextRect; }  // client coordinates
  std::wstring const & GetShownTitle() const { return mShownTitle; }
  std::wstring const & GetShownText() const { return mShownText; }  // wrapped
  wxSize GetMargins() const { return mMargins; }
  int GetLineSpace() const { return mLineSpace; }
  unsigned GetElapsed() const { return mElapsed; }
  bool IsPopped() const { return mPopped; }
  bool IsDelayRunning() const { return mDelayTimer.IsRunning(); }
  bool IsCheckRunning() const { return mCheckTimer.IsRunning(); }
  wxColour GetBackColour() const { return mBackColour; }

private:
  void LoadColours();
  void GetTipWindowText();
  void InitializeSize(wxPoint const & point);
  wxPoint CursorPos() const;
  void StopTimers();

  void OnPaint(wxPaintEvent & event);
  void OnLeftDown(wxMouseEvent & event);
  void OnSysColourChanged(wxSysColourChangedEvent & event);
  void OnTimer(wxTimerEvent & event);

  wxWindow * mParent = nullptr;
  wxRect mTipRect;
  wxRect mTextRect;
  std::wstring mText;
  std::wstring mTitle;
  std::wstring mShownText;
  std::wstring mShownTitle;
  wxBitmap mIcon;
  wxColour mBackColour;
  wxColour mTextColour;
  bool mOwnColours = false;
  wxFont mTextFont;
  wxFont mTitleFont;
  bool mAskParent = false;
  bool mTextSet = false;
  unsigned mTimeout = 0;
  unsigned mDelay = 500;
  unsigned mElapsed = 0;
  int mLineSpace = 8;
  wxSize mMargins{8, 8};
  bool mRoundedEdges = false;
  wxPoint mCursorAtShow;
  bool mCloseAfterTimeout = false;
  bool mPopped = false;
  wxTimer mDelayTimer;
  wxTimer mCheckTimer;
  std::function<wxPoint()> mCursorSource;
};

// A tip that tells and goes away by itself, at `point` (screen; null: the
// pointer, 22 pixels lower) or, in the first form, at the pointer moved 5
// right and 22 down. One tip of this kind exists at a time: each call
// replaces the previous one. `iconType` is MB_ICONHAND, MB_ICONQUESTION,
// MB_ICONEXCLAMATION or MB_ICONASTERISK, anything else shows no icon. True
// when the tip shows.
bool InfoTipMessageBox(wchar_t const * text, int timeout, wchar_t const * title = nullptr,
                       unsigned iconType = 0, bool topmost = false);
bool InfoTipMessageBox(wxPoint const * point, wchar_t const * text, int timeout,
                       wchar_t const * title = nullptr, unsigned iconType = 0,
                       bool topmost = false);
bool InfoTipMessageBox(wxWindow * parent, wxPoint const * point, wchar_t const * text, int timeout,
                       wchar_t const * title = nullptr, unsigned iconType = 0,
                       bool topmost = false);
// The tip of the last InfoTipMessageBox while it exists, else null.
InfoTipWnd * SharedInfoTip();
