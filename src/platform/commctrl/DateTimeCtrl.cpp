#include "platform/commctrl/DateTimeCtrl.h"

#include <wx/dcbuffer.h>
#include <wx/dcclient.h>

#include "platform/SysColor.h"
#include "platform/WindowMessage.h"
#include "utl/VxTimeUtl.h"

namespace {

constexpr int kBorder = 1;
constexpr int kPadding = 3;
constexpr int kSpinWidth = 16;

std::wstring DefaultFormat(DWORD style) {
  std::string format;
  if ((style & DTS_TIMEFORMAT) == DTS_TIMEFORMAT)
    format = VxTimeUtl::GetUserLocaleTime(VxTimeUtl::UserLocale);
  else if ((style & DTS_SHORTDATECENTURYFORMAT) == DTS_SHORTDATECENTURYFORMAT)
    format = VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::UserLocale);
  else
    format = VxTimeUtl::GetUserLocaleDate((style & DTS_LONGDATEFORMAT) != 0, VxTimeUtl::UserLocale);
  return wxString::FromUTF8(format).ToStdWstring();
}

SYSTEMTIME ToSystemTime(CTime const & time, bool & ok) {
  SYSTEMTIME fields{};
  ok = time.GetAsSystemTime(fields);
  return fields;
}

}  // namespace

CDateTimeCtrl::CDateTimeCtrl() { Init(); }

CDateTimeCtrl::CDateTimeCtrl(wxWindow * parent, wxWindowID id, DWORD style,
                             wxPoint const & position, wxSize const & size) {
  Init();
  Create(parent, id, style, position, size);
}

void CDateTimeCtrl::Init() {
  GetLocalTime(&mTime);
  mTime.wMilliseconds = 0;
  Bind(wxEVT_PAINT, &CDateTimeCtrl::OnPaint, this);
  Bind(wxEVT_KEY_DOWN, &CDateTimeCtrl::OnKeyDown, this);
  Bind(wxEVT_CHAR, &CDateTimeCtrl::OnChar, this);
  Bind(wxEVT_LEFT_DOWN, &CDateTimeCtrl::OnLeftDown, this);
  Bind(wxEVT_LEFT_DCLICK, &CDateTimeCtrl::OnLeftDown, this);
  Bind(wxEVT_SET_FOCUS, &CDateTimeCtrl::OnFocus, this);
  Bind(wxEVT_KILL_FOCUS, &CDateTimeCtrl::OnFocus, this);
  Bind(VX_EVT_WINDOW_MESSAGE, &CDateTimeCtrl::OnWindowMessage, this);
}

bool CDateTimeCtrl::Create(wxWindow * parent, wxWindowID id, DWORD style, wxPoint const & position,
                           wxSize const & size) {
  // Painted whole through a memory bitmap: no background erase.
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  if (!wxControl::Create(parent, id, position, size, wxBORDER_NONE | wxWANTS_CHARS)) return false;
  mStyle = style;
  mSegments = ParseDateTimeFormat(DefaultFormat(style));
  SetInitialSize(size);
  PreSubclassWindow();
  return true;
}

bool CDateTimeCtrl::Create(DWORD style, RECT const & rect, wxWindow * parent, UINT id) {
  return Create(parent, static_cast<wxWindowID>(id), style, wxPoint(rect.left, rect.top),
                wxSize(rect.right - rect.left, rect.bottom - rect.top));
}

BOOL CDateTimeCtrl::SetFormat(LPCWSTR format) {
  mSegments = ParseDateTimeFormat(format != nullptr ? std::wstring(format) : DefaultFormat(mStyle));
  mSelected = -1;
  ForgetDigits();
  if (HasFocus()) SelectField(NextField(+1));
  InvalidateBestSize();
  Refresh();
  return TRUE;
}

DWORD CDateTimeCtrl::GetTime(SYSTEMTIME * time) const {
  if (time == nullptr) return GDT_ERROR;
  *time = mTime;
  return GDT_VALID;
}

DWORD CDateTimeCtrl::GetTime(CTime & time) const {
  try {
    time = CTime(mTime);
  } catch (CAtlException const &) {
    return GDT_ERROR;  // before 1970 or after 3000: no CTime can hold it
  }
  return GDT_VALID;
}

BOOL CDateTimeCtrl::GetTime(COleDateTime & time) const {
  time = COleDateTime(mTime);
  return time.GetStatus() == COleDateTime::valid;
}

BOOL CDateTimeCtrl::SetTime(SYSTEMTIME const * time) {
  if (time == nullptr || !IsValidSystemTime(*time)) return FALSE;
  mTime = ClampToRange(WithWeekday(*time));
  ForgetDigits();
  Refresh();
  return TRUE;
}

BOOL CDateTimeCtrl::SetTime(CTime const * time) {
  if (time == nullptr) return FALSE;
  return SetTime(*time);
}

BOOL CDateTimeCtrl::SetTime(CTime const & time) {
  bool ok = false;
  SYSTEMTIME const fields = ToSystemTime(time, ok);
  return ok && SetTime(&fields);
}

BOOL CDateTimeCtrl::SetTime(COleDateTime const & time) {
  SYSTEMTIME fields{};
  return time.GetAsSystemTime(fields) && SetTime(&fields);
}

DWORD CDateTimeCtrl::GetRange(SYSTEMTIME * minimum, SYSTEMTIME * maximum) const {
  if (minimum != nullptr) *minimum = mHasMin ? mMin : SYSTEMTIME{};
  if (maximum != nullptr) *maximum = mHasMax ? mMax : SYSTEMTIME{};
  return (mHasMin ? GDTR_MIN : 0) | (mHasMax ? GDTR_MAX : 0);
}

DWORD CDateTimeCtrl::GetRange(CTime * minimum, CTime * maximum) const {
  // A limit no CTime can hold reads as the time 0.
  auto const read = [](SYSTEMTIME const & limit, CTime * out) {
    if (out == nullptr) return;
    try {
      *out = CTime(limit);
    } catch (CAtlException const &) {
      *out = CTime();
    }
  };
  read(mMin, minimum);
  read(mMax, maximum);
  return (mHasMin ? GDTR_MIN : 0) | (mHasMax ? GDTR_MAX : 0);
}

DWORD CDateTimeCtrl::GetRange(COleDateTime * minimum, COleDateTime * maximum) const {
  auto const read = [](bool has, SYSTEMTIME const & limit, COleDateTime * out) {
    if (out == nullptr) return;
    *out = COleDateTime(limit);
    if (!has) out->SetStatus(COleDateTime::null);
  };
  read(mHasMin, mMin, minimum);
  read(mHasMax, mMax, maximum);
  return (mHasMin ? GDTR_MIN : 0) | (mHasMax ? GDTR_MAX : 0);
}

BOOL CDateTimeCtrl::SetRange(SYSTEMTIME const * minimum, SYSTEMTIME const * maximum) {
  if ((minimum != nullptr && !IsValidSystemTime(*minimum)) ||
      (maximum != nullptr && !IsValidSystemTime(*maximum)))
    return FALSE;
  mHasMin = minimum != nullptr;
  mHasMax = maximum != nullptr;
  mMin = mHasMin ? WithWeekday(*minimum) : SYSTEMTIME{};
  mMax = mHasMax ? WithWeekday(*maximum) : SYSTEMTIME{};
  mTime = ClampToRange(mTime);
  Refresh();
  return TRUE;
}

BOOL CDateTimeCtrl::SetRange(CTime const * minimum, CTime const * maximum) {
  bool okMin = true;
  bool okMax = true;
  SYSTEMTIME const low = minimum != nullptr ? ToSystemTime(*minimum, okMin) : SYSTEMTIME{};
  SYSTEMTIME const high = maximum != nullptr ? ToSystemTime(*maximum, okMax) : SYSTEMTIME{};
  if (!okMin || !okMax) return FALSE;
  return SetRange(minimum != nullptr ? &low : nullptr, maximum != nullptr ? &high : nullptr);
}

BOOL CDateTimeCtrl::SetRange(COleDateTime const * minimum, COleDateTime const * maximum) {
  // A limit whose status is not valid (null) is no limit.
  SYSTEMTIME low{};
  SYSTEMTIME high{};
  bool const hasMin = minimum != nullptr && minimum->GetAsSystemTime(low);
  bool const hasMax = maximum != nullptr && maximum->GetAsSystemTime(high);
  return SetRange(hasMin ? &low : nullptr, hasMax ? &high : nullptr);
}

wxString CDateTimeCtrl::GetLabel() const { return FormatDateTime(mSegments, mTime); }

SYSTEMTIME CDateTimeCtrl::ClampToRange(SYSTEMTIME const & time) const {
  if (mHasMin && CompareSystemTime(time, mMin) < 0) return mMin;
  if (mHasMax && CompareSystemTime(time, mMax) > 0) return mMax;
  return time;
}

void CDateTimeCtrl::ChangeByUser(SYSTEMTIME const & time) {
  SYSTEMTIME const changed = ClampToRange(WithWeekday(time));
  Refresh();
  if (CompareSystemTime(changed, mTime) == 0) return;
  mTime = changed;
  NMDATETIMECHANGE change;
  change.dwFlags = GDT_VALID;
  change.st = mTime;
  SendNotify(this, DTN_DATETIMECHANGE, change.nmhdr);
}

int CDateTimeCtrl::NextField(int direction) const {
  int const count = static_cast<int>(mSegments.size());
  for (int i = mSelected + direction; i >= 0 && i < count; i += direction)
    if (IsEditable(mSegments[i].field)) return i;
  if (mSelected >= 0) return mSelected;
  return -1;
}

void CDateTimeCtrl::SelectField(int segment) {
  ForgetDigits();
  if (segment == mSelected) return;
  mSelected = segment;
  Refresh();
}

void CDateTimeCtrl::ForgetDigits() {
  mTypedValue = 0;
  mTypedDigits = 0;
}

void CDateTimeCtrl::Step(int delta) {
  if (mSelected < 0) SelectField(NextField(+1));
  if (mSelected < 0) return;
  ForgetDigits();
  ChangeByUser(StepField(mTime, mSegments[mSelected].field, delta));
}

void CDateTimeCtrl::OnKeyDown(wxKeyEvent & event) {
  switch (event.GetKeyCode()) {
    case WXK_UP:
    case WXK_NUMPAD_UP: Step(+1); return;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN: Step(-1); return;
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT: SelectField(NextField(-1)); return;
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT: SelectField(NextField(+1)); return;
    case WXK_HOME: {
      mSelected = -1;
      SelectField(NextField(+1));
      return;
    }
    case WXK_END: {
      int const keep = mSelected;
      mSelected = static_cast<int>(mSegments.size());
      int const last = NextField(-1);
      mSelected = keep;
      SelectField(last == static_cast<int>(mSegments.size()) ? keep : last);
      return;
    }
    case WXK_TAB:
      Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                 : wxNavigationKeyEvent::IsForward);
      return;
    default: event.Skip();
  }
}

void CDateTimeCtrl::OnChar(wxKeyEvent & event) {
  int const key = event.GetUnicodeKey() != WXK_NONE ? static_cast<int>(event.GetUnicodeKey())
                                                    : event.GetKeyCode();
  if (mSelected < 0) SelectField(NextField(+1));
  if (mSelected < 0) {
    event.Skip();
    return;
  }
  DateTimeField const field = mSegments[mSelected].field;
  if (key >= '0' && key <= '9' && DigitsOfField(field) > 0) {
    mTypedValue = mTypedValue * 10 + (key - '0');
    ++mTypedDigits;
    int const typed = mTypedValue;
    bool const more = AcceptsMoreDigits(field, typed, mTypedDigits);
    int const typedDigits = mTypedDigits;
    ChangeByUser(TypeIntoField(mTime, field, typed));
    // The handlers of the notification may have set a time: the digits
    // typed so far still count.
    mTypedValue = typed;
    mTypedDigits = typedDigits;
    if (!more) {
      ForgetDigits();
      SelectField(NextField(+1));
    }
    return;
  }
  if ((field == DateTimeField::AmPm1 || field == DateTimeField::AmPm2) &&
      (key == 'a' || key == 'A' || key == 'p' || key == 'P')) {
    bool const wantPm = key == 'p' || key == 'P';
    if ((mTime.wHour >= 12) != wantPm) ChangeByUser(StepField(mTime, field, 1));
    return;
  }
  event.Skip();
}

wxRect CDateTimeCtrl::SpinButtonRect() const {
  wxSize const client = GetClientSize();
  return {client.x - kBorder - kSpinWidth, kBorder, kSpinWidth, client.y - 2 * kBorder};
}

std::vector<wxRect> CDateTimeCtrl::SegmentRects() const {
  std::vector<wxRect> rects;
  rects.reserve(mSegments.size());
  wxClientDC dc(const_cast<CDateTimeCtrl *>(this));
  dc.SetFont(GetFont());
  int x = kBorder + kPadding;
  int const height = GetClientSize().y;
  for (DateTimeSegment const & segment : mSegments) {
    wxSize const extent = dc.GetTextExtent(FormatSegment(segment, mTime));
    rects.emplace_back(x, (height - extent.y) / 2, extent.x, extent.y);
    x += extent.x;
  }
  return rects;
}

void CDateTimeCtrl::OnLeftDown(wxMouseEvent & event) {
  SetFocus();
  wxPoint const at = event.GetPosition();
  wxRect const spin = SpinButtonRect();
  if (spin.Contains(at)) {
    Step(at.y < spin.y + spin.height / 2 ? +1 : -1);
    return;
  }
  std::vector<wxRect> const rects = SegmentRects();
  for (size_t i = 0; i < rects.size(); ++i)
    if (IsEditable(mSegments[i].field) && at.x >= rects[i].x && at.x < rects[i].GetRight() + 1) {
      SelectField(static_cast<int>(i));
      return;
    }
}

void CDateTimeCtrl::OnFocus(wxFocusEvent & event) {
  ForgetDigits();
  if (event.GetEventType() == wxEVT_SET_FOCUS && mSelected < 0) mSelected = NextField(+1);
  Refresh();
  event.Skip();
}

void CDateTimeCtrl::OnWindowMessage(WindowMessageEvent & event) {
  auto * const times =
      reinterpret_cast<SYSTEMTIME *>(event.GetLParam());  // NOLINT(performance-no-int-to-ptr)
  switch (event.GetMessage()) {
    case DTM_GETSYSTEMTIME: event.SetResult(static_cast<std::intptr_t>(GetTime(times))); return;
    case DTM_SETSYSTEMTIME:
      event.SetResult(event.GetWParam() == GDT_VALID ? SetTime(times) : FALSE);
      return;
    case DTM_GETRANGE:
      event.SetResult(times != nullptr ? GetRange(&times[0], &times[1]) : 0);
      return;
    case DTM_SETRANGE: {
      WPARAM const flags = event.GetWParam();
      bool const hasMin = (flags & GDTR_MIN) != 0 && times != nullptr;
      bool const hasMax = (flags & GDTR_MAX) != 0 && times != nullptr;
      event.SetResult(SetRange(hasMin ? &times[0] : nullptr, hasMax ? &times[1] : nullptr));
      return;
    }
    case DTM_SETFORMATW:
      event.SetResult(SetFormat(
          reinterpret_cast<LPCWSTR>(event.GetLParam())));  // NOLINT(performance-no-int-to-ptr)
      return;
    default: event.Skip();
  }
}

wxSize CDateTimeCtrl::DoGetBestSize() const {
  wxClientDC dc(const_cast<CDateTimeCtrl *>(this));
  dc.SetFont(GetFont());
  // Room for the widest digits, so that the control need not grow as the
  // value changes.
  SYSTEMTIME wide = mTime;
  wide.wHour = wide.wHour >= 12 ? 20 : 8;
  wide.wMinute = 58;
  wide.wSecond = 58;
  wide.wDay = wide.wDay >= 10 ? 28 : 8;
  wxSize const text = dc.GetTextExtent(FormatDateTime(mSegments, wide) + L"  ");
  return {text.x + 2 * (kBorder + kPadding) + kSpinWidth, text.y + 2 * (kBorder + kPadding)};
}

void CDateTimeCtrl::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  wxSize const client = GetClientSize();
  bool const enabled = IsEnabled();
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNSHADOW)));
  dc.SetBrush(wxBrush(GetSysColour(enabled ? COLOR_WINDOW : COLOR_BTNFACE)));
  dc.DrawRectangle(0, 0, client.x, client.y);

  dc.SetFont(GetFont());
  bool const focused = HasFocus();
  int x = kBorder + kPadding;
  wxColour const text = GetSysColour(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
  wxRect const spin = SpinButtonRect();
  dc.SetClippingRegion(kBorder, kBorder, spin.x - kBorder, client.y - 2 * kBorder);
  for (size_t i = 0; i < mSegments.size(); ++i) {
    wxString const shown = FormatSegment(mSegments[i], mTime);
    wxSize const extent = dc.GetTextExtent(shown);
    int const y = (client.y - extent.y) / 2;
    if (focused && enabled && static_cast<int>(i) == mSelected) {
      dc.SetPen(*wxTRANSPARENT_PEN);
      dc.SetBrush(wxBrush(GetSysColour(COLOR_HIGHLIGHT)));
      dc.DrawRectangle(x, y, extent.x, extent.y);
      dc.SetTextForeground(GetSysColour(COLOR_HIGHLIGHTTEXT));
    } else {
      dc.SetTextForeground(text);
    }
    dc.DrawText(shown, x, y);
    x += extent.x;
  }
  dc.DestroyClippingRegion();

  // The spin button: two halves, an arrow in each.
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNSHADOW)));
  dc.SetBrush(wxBrush(GetSysColour(COLOR_BTNFACE)));
  int const half = spin.height / 2;
  dc.DrawRectangle(spin.x, spin.y, spin.width, half);
  dc.DrawRectangle(spin.x, spin.y + half, spin.width, spin.height - half);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(GetSysColour(enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT)));
  int const cx = spin.x + spin.width / 2;
  int const upY = spin.y + half / 2;
  int const downY = spin.y + half + (spin.height - half) / 2;
  wxPoint const up[] = {{cx - 4, upY + 2}, {cx + 4, upY + 2}, {cx, upY - 2}};
  wxPoint const down[] = {{cx - 4, downY - 2}, {cx + 4, downY - 2}, {cx, downY + 2}};
  dc.DrawPolygon(3, up);
  dc.DrawPolygon(3, down);
}
