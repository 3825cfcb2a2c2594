#include "lists/InfoTipWnd.h"

#include <algorithm>
#include <climits>

#include <wx/app.h>
#include <wx/artprov.h>
#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/settings.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include "dialogs/LimitLineLength.h"
#include "platform/ResourceModule.h"
#include "platform/RunningApplication.h"
#include "platform/SysColor.h"
#include "platform/SystemMetrics.h"
#include "platform/WinUser.h"

namespace {

constexpr int kAbovePointer = 21;

wxColour FromColorRef(COLORREF color) {
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

std::wstring Trimmed(std::wstring const & text) {
  wchar_t const * const blanks = L" \t\r\n\v\f";
  size_t const first = text.find_first_not_of(blanks);
  if (first == std::wstring::npos) return {};
  size_t const last = text.find_last_not_of(blanks);
  return text.substr(first, last - first + 1);
}

// The monitor that holds most of `rect`, else the one nearest to it.
wxRect MonitorOf(wxRect const & rect) {
  unsigned const count = wxDisplay::GetCount();
  wxRect best;
  long bestArea = -1;
  long bestDistance = LONG_MAX;
  for (unsigned at = 0; at < count; ++at) {
    wxRect const area = wxDisplay(at).GetGeometry();
    wxRect const common = area.Intersect(rect);
    long const overlap = common.IsEmpty() ? 0 : long(common.width) * common.height;
    long const dx = std::max({0, area.x - rect.x, rect.x - area.GetRight()});
    long const dy = std::max({0, area.y - rect.y, rect.y - area.GetBottom()});
    long const distance = dx * dx + dy * dy;
    if (overlap > bestArea || (overlap == 0 && bestArea == 0 && distance < bestDistance)) {
      best = area;
      bestArea = overlap;
      bestDistance = distance;
    }
  }
  return best;
}

// Lines longer than the limit (a single word without breaks) are cut, and no
// more than `maxLines` lines are kept: nothing past the monitor could show.
std::wstring CutLines(std::wstring const & wrapped, size_t lineLength, size_t maxLines) {
  std::wstring out;
  size_t lines = 0;
  size_t column = 0;
  for (wchar_t c : wrapped) {
    if (c == L'\n') {
      if (++lines >= maxLines) return out;
      out += c;
      column = 0;
      continue;
    }
    if (column == lineLength) {
      if (++lines >= maxLines) return out;
      out += L'\n';
      column = 0;
    }
    out += c == L'\t' ? L' ' : c;
    ++column;
  }
  return out;
}

wxWeakRef<InfoTipWnd> & SharedTipRef() {
  static wxWeakRef<InfoTipWnd> tip;
  return tip;
}

wxBitmap MessageIcon(unsigned iconType) {
  wxArtID id;
  switch (iconType) {
    case MB_ICONHAND: id = wxART_ERROR; break;
    case MB_ICONQUESTION: id = wxART_QUESTION; break;
    case MB_ICONEXCLAMATION: id = wxART_WARNING; break;
    case MB_ICONASTERISK: id = wxART_INFORMATION; break;
    default: return {};
  }
  int const side = std::max(16, GetSystemMetrics(SM_CXICON));
  return wxArtProvider::GetBitmap(id, wxART_MESSAGE_BOX, wxSize(side, side));
}

}  // namespace

InfoTipWnd::InfoTipWnd() : mDelayTimer(this, kDelayTimer), mCheckTimer(this, kCheckTimer) {
  LoadColours();
  mTextFont = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  mTitleFont = mTextFont.Bold();
}

InfoTipWnd::~InfoTipWnd() { StopTimers(); }

bool InfoTipWnd::Create(wxWindow * parent, bool askParent, bool /*topmost*/) {
  mParent = parent;
  mAskParent = askParent;
  if (!wxPopupWindow::Create(parent, wxBORDER_NONE)) return false;
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, &InfoTipWnd::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, &InfoTipWnd::OnLeftDown, this);
  Bind(wxEVT_SYS_COLOUR_CHANGED, &InfoTipWnd::OnSysColourChanged, this);
  Bind(wxEVT_TIMER, &InfoTipWnd::OnTimer, this);
  return true;
}

void InfoTipWnd::LoadColours() {
  if (mOwnColours) return;
  mBackColour = GetSysColour(COLOR_INFOBK);
  mTextColour = GetSysColour(COLOR_INFOTEXT);
}

void InfoTipWnd::SetTipText(wchar_t const * text, wchar_t const * title, wxBitmap const & icon,
                            bool redraw) {
  mText = text != nullptr ? text : L"";
  mTitle = title != nullptr ? title : L"";
  mIcon = icon;
  mTextSet = true;
  if (redraw && IsShown()) Refresh();
}

void InfoTipWnd::SetTipColors(COLORREF back, COLORREF text, int redraw) {
  mOwnColours = true;
  mBackColour = FromColorRef(back);
  mTextColour = FromColorRef(text);
  if (redraw != 0 && IsShown()) Refresh();
}

void InfoTipWnd::SetTimeout(unsigned milliseconds) {
  mTimeout = milliseconds;
  if (milliseconds != 0) mCloseAfterTimeout = true;
}

void InfoTipWnd::SetMargins(wxSize margins) {
  mMargins.x = margins.x < 4 ? 3 : margins.x;
  mMargins.y = margins.y < 4 ? 3 : margins.y;
}

void InfoTipWnd::SetLineSpace(int lineSpace) { mLineSpace = lineSpace < 3 ? 2 : lineSpace; }

wxPoint InfoTipWnd::CursorPos() const {
  return mCursorSource ? mCursorSource() : wxGetMousePosition();
}

void InfoTipWnd::StopTimers() {
  mDelayTimer.Stop();
  mCheckTimer.Stop();
}

void InfoTipWnd::GetTipWindowText() {
  mShownTitle = mTitle;
  mShownText = mText;
  if (mAskParent && !mTextSet) {
    NMTTDISPINFOW info;
    SendNotify(this, TTN_GETDISPINFOW, info.hdr);
    std::wstring all;
    if (info.lpszText != nullptr)
      all = info.lpszText;
    else if (info.szText[0] != L'\0')
      all.assign(info.szText, std::find(std::begin(info.szText), std::end(info.szText), L'\0'));
    else if (info.resourceId != 0)
      all = LoadResourceString(info.resourceId).ToStdWstring();
    size_t const split = all.find(L'\r');
    if (split == std::wstring::npos || split == 0) {
      mShownTitle.clear();
      mShownText = all;
    } else {
      mShownTitle = all.substr(0, split);
      mShownText = all.substr(split + 1);
    }
    mIcon = wxBitmap();
  }
  mTextSet = false;
}

void InfoTipWnd::InitializeSize(wxPoint const & point) {
  GetTipWindowText();
  wxRect const monitor = MonitorOf(wxRect(point, wxSize(1, 1)));

  int const lineHeight = std::max(1, mTextFont.GetPixelSize().y);
  size_t const maxLines = size_t(std::max(1, monitor.height / lineHeight)) + 1;
  std::wstring text = Trimmed(mShownText);
  // Wrapping a megabyte costs time for lines nobody sees.
  size_t const keep = (maxLines + 1) * (kLineLength + 1);
  if (text.size() > keep) text.resize(keep);
  text = CutLines(LimitLineLength::ByCharacters(text, kLineLength), kLineLength, maxLines);
  while (!text.empty() && text.back() == L'\n') text.pop_back();
  mShownText = text;
  mShownTitle = CutLines(mShownTitle, kLineLength * 2, 1);

  wxSize titleSize;
  if (!mShownTitle.empty()) {
    wxClientDC dc(this);
    dc.SetFont(mTitleFont);
    titleSize = dc.GetTextExtent(mShownTitle);
  }
  wxSize textSize;
  if (!mShownText.empty())
    textSize = LimitLineLength::GetBoundsRect(mShownText.c_str(), mTextFont).GetSize();

  int const iconSide = GetSystemMetrics(SM_CYICON);
  int width = std::max(titleSize.x, textSize.x) + 2 * mMargins.x;
  if (mIcon.IsOk()) width += iconSide + mMargins.x;
  int height = textSize.y + titleSize.y + 2 * mMargins.y;
  if (!mShownTitle.empty() && !mShownText.empty()) height += mLineSpace;
  if (mIcon.IsOk()) height = std::max(height, iconSide + 2 * mMargins.y);
  width = std::min(width, monitor.width);
  height = std::min(height, monitor.height);

  mTipRect = wxRect(point, wxSize(width, height));
  if (mTipRect.GetRight() > monitor.GetRight())
    mTipRect.x -= mTipRect.GetRight() - monitor.GetRight();
  if (mTipRect.x < monitor.x) mTipRect.x = monitor.x;
  if (mTipRect.GetBottom() > monitor.GetBottom()) mTipRect.y -= height + kAbovePointer;
  if (mTipRect.y < monitor.y) mTipRect.y = monitor.y;

  mTextRect = wxRect(mMargins.x, mMargins.y, width - 2 * mMargins.x, height - 2 * mMargins.y);
  if (mIcon.IsOk()) {
    mTextRect.x += iconSide + mMargins.x;
    mTextRect.width -= iconSide + mMargins.x;
  }
  if (!mShownTitle.empty()) {
    mTextRect.y += titleSize.y + mLineSpace;
    mTextRect.height -= titleSize.y + mLineSpace;
  }
}

bool InfoTipWnd::ShowTipWindow(wxPoint const & point) {
  StopTimers();
  mElapsed = 0;
  InitializeSize(point);
  mCursorAtShow = CursorPos();
  Hide();
  if (mPopped) {
    mPopped = false;
    return false;
  }
  if (mShownText.empty() && mShownTitle.empty()) return false;
  SetSize(mTipRect);
  Show();
  Raise();
  Refresh();
  mCheckTimer.StartOnce(int(mDelay));
  return true;
}

void InfoTipWnd::Pop() {
  Hide();
  mPopped = true;
  mElapsed = 0;
  if (mParent != nullptr) mParent->Refresh();
}

void InfoTipWnd::OnDelayTimer() {
  mDelayTimer.Stop();
  ShowTipWindow(CursorPos() + wxPoint(0, 22));
}

void InfoTipWnd::OnCheckTimer() {
  mCheckTimer.Stop();
  mElapsed += kCheckInterval;
  wxPoint const cursor = CursorPos();
  if (!mTipRect.Contains(cursor)) {
    bool const timedOut = mElapsed >= mTimeout;
    if ((timedOut && cursor != mCursorAtShow) || (mCloseAfterTimeout && timedOut)) {
      Pop();
      return;
    }
  }
  mCheckTimer.StartOnce(int(kCheckInterval));
}

void InfoTipWnd::OnTimer(wxTimerEvent & event) {
  if (event.GetId() == kDelayTimer)
    OnDelayTimer();
  else if (event.GetId() == kCheckTimer)
    OnCheckTimer();
}

void InfoTipWnd::RelayMessage(UINT message, bool buttonsOrModifiersDown) {
  namespace m = infotip_messages;
  switch (message) {
    case m::WM_MOUSEMOVE:
      if (!IsShown() && !buttonsOrModifiersDown) {
        StopTimers();
        mPopped = false;
        mDelayTimer.StartOnce(int(mDelay));
      }
      break;
    case m::WM_MOVE:
    case m::WM_SIZE:
    case m::WM_ACTIVATE:
    case m::WM_KILLFOCUS:
    case m::WM_WINDOWPOSCHANGING:
    case m::WM_WINDOWPOSCHANGED:
    case m::WM_NCLBUTTONDOWN:
    case m::WM_NCLBUTTONDBLCLK:
    case m::WM_NCRBUTTONDOWN:
    case m::WM_NCRBUTTONDBLCLK:
    case m::WM_NCMBUTTONDOWN:
    case m::WM_NCMBUTTONDBLCLK:
    case m::WM_KEYDOWN:
    case m::WM_SYSKEYDOWN:
    case m::WM_LBUTTONDBLCLK:
    case m::WM_RBUTTONDOWN:
    case m::WM_RBUTTONDBLCLK:
    case m::WM_MBUTTONDOWN:
    case m::WM_MBUTTONDBLCLK:
    case m::WM_MOUSEWHEEL:
    case m::WM_MOVING: Pop(); break;
    default: break;
  }
}

void InfoTipWnd::RelayEvent(wxEvent const & event) {
  namespace m = infotip_messages;
  wxEventType const type = event.GetEventType();
  if (type == wxEVT_MOTION) {
    auto const & mouse = static_cast<wxMouseEvent const &>(event);
    bool const held = mouse.ButtonIsDown(wxMOUSE_BTN_ANY) || mouse.ControlDown() ||
                      mouse.ShiftDown() || mouse.AltDown();
    RelayMessage(m::WM_MOUSEMOVE, held);
    return;
  }
  static std::pair<wxEventType, UINT> const table[] = {
      {wxEVT_MOVE, m::WM_MOVE},
      {wxEVT_SIZE, m::WM_SIZE},
      {wxEVT_ACTIVATE, m::WM_ACTIVATE},
      {wxEVT_KILL_FOCUS, m::WM_KILLFOCUS},
      {wxEVT_MOVING, m::WM_MOVING},
      {wxEVT_KEY_DOWN, m::WM_KEYDOWN},
      {wxEVT_LEFT_DCLICK, m::WM_LBUTTONDBLCLK},
      {wxEVT_RIGHT_DOWN, m::WM_RBUTTONDOWN},
      {wxEVT_RIGHT_DCLICK, m::WM_RBUTTONDBLCLK},
      {wxEVT_MIDDLE_DOWN, m::WM_MBUTTONDOWN},
      {wxEVT_MIDDLE_DCLICK, m::WM_MBUTTONDBLCLK},
      {wxEVT_MOUSEWHEEL, m::WM_MOUSEWHEEL},
  };
  for (auto const & [wxType, message] : table)
    if (type == wxType) RelayMessage(message);
}

void InfoTipWnd::OnPaint(wxPaintEvent & /*event*/) {
  wxPaintDC dc(this);
  wxRect const client(GetClientSize());
  if (mRoundedEdges) {
    // Outside the corners the tip shows what a popup has beneath: the window colour.
    dc.SetBackground(wxBrush(GetSysColour(COLOR_WINDOW)));
    dc.Clear();
    dc.SetPen(wxPen(mBackColour));
    dc.SetBrush(wxBrush(mBackColour));
    dc.DrawRoundedRectangle(client, 5);
  } else {
    dc.SetPen(wxPen(GetSysColour(COLOR_ACTIVEBORDER)));
    dc.SetBrush(wxBrush(mBackColour));
    dc.DrawRectangle(client);
  }
  if (mIcon.IsOk()) {
    int const side = GetSystemMetrics(SM_CYICON);
    dc.DrawBitmap(mIcon, mMargins.x, (client.height - side + 1) / 2, true);
  }
  dc.SetTextForeground(mTextColour);
  dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
  if (!mShownTitle.empty()) {
    dc.SetFont(mTitleFont);
    dc.DrawText(mShownTitle, mTextRect.x, mMargins.y);
  }
  if (!mShownText.empty()) {
    dc.SetFont(mTextFont);
    dc.SetClippingRegion(mTextRect);
    dc.DrawLabel(mShownText, mTextRect, wxALIGN_LEFT | wxALIGN_TOP);
    dc.DestroyClippingRegion();
  }
}

void InfoTipWnd::OnLeftDown(wxMouseEvent & event) {
  Pop();
  event.Skip();
}

void InfoTipWnd::OnSysColourChanged(wxSysColourChangedEvent & event) {
  LoadColours();
  Refresh();
  event.Skip();
}

InfoTipWnd * SharedInfoTip() { return SharedTipRef().get(); }

bool InfoTipMessageBox(wxWindow * parent, wxPoint const * point, wchar_t const * text, int timeout,
                       wchar_t const * title, unsigned iconType, bool topmost) {
  wxWeakRef<InfoTipWnd> & shared = SharedTipRef();
  if (shared) shared->Destroy();
  shared = nullptr;
  if (parent == nullptr) parent = AppMainWindow();
  if (parent == nullptr) parent = wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr;
  if (parent == nullptr) return false;

  auto * tip = new InfoTipWnd;
  if (!tip->Create(parent, false, topmost)) {
    delete tip;
    return false;
  }
  shared = tip;
  tip->SetTimeout(timeout > 0 ? unsigned(timeout) : 0U);
  tip->SetTipText(text, title, MessageIcon(iconType));
  wxPoint const at = point != nullptr ? *point : wxGetMousePosition() + wxPoint(0, 22);
  return tip->ShowTipWindow(at);
}

bool InfoTipMessageBox(wxPoint const * point, wchar_t const * text, int timeout,
                       wchar_t const * title, unsigned iconType, bool topmost) {
  return InfoTipMessageBox(nullptr, point, text, timeout, title, iconType, topmost);
}

bool InfoTipMessageBox(wchar_t const * text, int timeout, wchar_t const * title, unsigned iconType,
                       bool topmost) {
  wxPoint const at = wxGetMousePosition() + wxPoint(5, 22);
  return InfoTipMessageBox(nullptr, &at, text, timeout, title, iconType, topmost);
}
