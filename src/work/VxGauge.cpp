#include "work/VxGauge.h"

#include <algorithm>
#include <cmath>

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/pen.h>
#include <wx/settings.h>

namespace {

// Bar and stripe colours at rest (pulse 0) and at full breath (pulse 1).
wxColour const BarAtRest(0x00, 0x80, 0xE6);
wxColour const BarAtBreath(0xE0, 0x00, 0x34);
wxColour const StripeAtRest(0xFF, 0xCC, 0x00);
wxColour const StripeAtBreath(0xFF, 0xFF, 0xFF);
// The bar's tint over the empty part, as alpha out of 255.
constexpr int RestTintAlpha = 0x10;

unsigned char BlendChannel(unsigned char breath, unsigned char rest, float pulse) {
  return static_cast<unsigned char>(breath * pulse + rest * (1 - pulse));
}

wxColour Blend(wxColour const & breath, wxColour const & rest, float pulse) {
  return wxColour(BlendChannel(breath.Red(), rest.Red(), pulse),
                  BlendChannel(breath.Green(), rest.Green(), pulse),
                  BlendChannel(breath.Blue(), rest.Blue(), pulse));
}

// `over` at `alpha` on `under`, rounded.
wxColour Tint(wxColour const & under, wxColour const & over, int alpha) {
  auto channel = [alpha](int u, int o) {
    return static_cast<unsigned char>((o * alpha + u * (255 - alpha) + 127) / 255);
  };
  return wxColour(channel(under.Red(), over.Red()), channel(under.Green(), over.Green()),
                  channel(under.Blue(), over.Blue()));
}

// Where the bar ends: the value's share of the width, never past the right
// edge; a value below the range (or a range of no width) leaves it empty.
int FillEnd(int left, int right, float low, float high, float value) {
  float const end = float(right - left) * (value - low) / (high - low);
  if (!(end > float(left))) return left;  // NaN too
  if (end >= float(right)) return right;
  return int(end);
}

void FillRect(wxDC & dc, wxColour const & colour, int x0, int y0, int x1, int y1) {
  if (x1 <= x0 || y1 <= y0) return;
  dc.SetBrush(wxBrush(colour));
  dc.DrawRectangle(x0, y0, x1 - x0, y1 - y0);
}

}  // namespace

VxGauge::VxGauge(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size) {
  Create(parent, id, pos, size);
}

bool VxGauge::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size) {
  // Every pixel comes from the frame bitmap: no background erase.
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  if (!wxWindow::Create(parent, id, pos, size, wxFULL_REPAINT_ON_RESIZE)) return false;
  mFont = wxFont(wxFontInfo(8).Family(wxFONTFAMILY_SWISS).Bold());
  Bind(wxEVT_PAINT, &VxGauge::OnPaint, this);
  mTimer.SetOwner(this);
  Bind(
      wxEVT_TIMER, [this](wxTimerEvent &) { OnFrameTimer(); }, mTimer.GetId());
  mTimer.Start(FrameMilliseconds);
  return true;
}

VxGauge::~VxGauge() { mTimer.Stop(); }

void VxGauge::SetRange(float low, float high) {
  mLow = std::min(low, high);
  mHigh = std::max(low, high);
}

void VxGauge::SetValue(float value) { mValue = value; }

void VxGauge::SetCaption(wxString const & caption) {
  wxString const kept = caption.Left(CaptionCapacity);
  if (kept == mCaption) return;
  mCaption = kept;
  mCaptionSize = wxSize();
}

int VxGauge::GetDesiredHeight() {
  int height = 0;
  GetTextExtent("Xj", nullptr, &height, nullptr, nullptr, &mFont);
  return GetSize().y - GetClientSize().y + height;
}

float VxGauge::Pulse(int frame) {
  if (frame < 70 || frame >= 111) return 0;
  if (frame < 80) return float(frame - 70) / 10;
  if (frame <= 100) return 1;
  return float(110 - frame) / 10;
}

wxColour VxGauge::BarColour(float pulse) { return Blend(BarAtBreath, BarAtRest, pulse); }

wxColour VxGauge::StripeColour(float pulse) { return Blend(StripeAtBreath, StripeAtRest, pulse); }

VxGauge::FrameState VxGauge::CurrentState() const {
  FrameState state;
  state.low = mLow;
  state.high = mHigh;
  state.value = mValue;
  state.caption = mCaption;
  state.font = mFont;
  state.face = wxSystemSettings::GetColour(wxSYS_COLOUR_3DFACE);
  state.captionSize = mCaptionSize;
  return state;
}

wxSize VxGauge::MeasureCaption(wxDC & dc, FrameState const & state) {
  if (state.caption.empty()) return wxSize();
  dc.SetFont(state.font);
  return dc.GetTextExtent(state.caption);
}

void VxGauge::PaintFrame(wxDC & dc, wxSize size, FrameState const & state, float pulse) {
  int const l = 0, u = 0, r = size.x, b = size.y;
  int const e = FillEnd(l, r, state.low, state.high, state.value);
  wxColour const bar = BarColour(pulse);
  dc.SetPen(*wxTRANSPARENT_PEN);
  FillRect(dc, bar, l, u, e, b);
  int const s1 = (b - u) * 3 / 5;
  int const s0 = (s1 - u) * 2 / 3;
  FillRect(dc, StripeColour(pulse), l, s0, e, s1);
  FillRect(dc, Tint(state.face, bar, RestTintAlpha), e, u, r, b);
  if (state.caption.empty()) return;

  dc.SetFont(state.font);
  dc.SetBackgroundMode(wxTRANSPARENT);
  wxSize const text =
      state.captionSize != wxSize() ? state.captionSize : dc.GetTextExtent(state.caption);
  int const x = (l + r - text.x) / 2;
  int const y = (u + b - text.y) / 2;
  dc.SetTextForeground(*wxWHITE);
  dc.DrawText(state.caption, x, y);
  if (e < r) {
    wxDCClipper clip(dc, wxRect(e, u, r - e, b - u));
    dc.SetTextForeground(*wxBLACK);
    dc.DrawText(state.caption, x, y);
  }
}

void VxGauge::OnFrameTimer() {
  if (!IsShownOnScreen()) {
    mPulseFrame = 0;
    return;
  }
  float const pulse = Pulse(mPulseFrame);
  mPulseFrame = (mPulseFrame + 1) % PulseFrames;
  wxSize const size = GetClientSize();
  if (size.x <= 0 || size.y <= 0) return;
  if (!mFrame.IsOk() || mFrame.GetSize() != size) mFrame.Create(size, 24);
  {
    wxMemoryDC dc(mFrame);
    FrameState state = CurrentState();
    if (state.captionSize == wxSize()) mCaptionSize = state.captionSize = MeasureCaption(dc, state);
    PaintFrame(dc, size, state, pulse);
  }
  Refresh(false);
}

void VxGauge::OnPaint(wxPaintEvent &) {
  wxPaintDC dc(this);
  wxSize const size = GetClientSize();
  if (!mFrame.IsOk() || mFrame.GetSize() != size) {
    // Before the first tick (or after a resize) show the current frame
    // without moving the pulse on.
    if (size.x <= 0 || size.y <= 0) return;
    mFrame.Create(size, 24);
    wxMemoryDC memory(mFrame);
    PaintFrame(memory, size, CurrentState(), Pulse(mPulseFrame));
  }
  dc.DrawBitmap(mFrame, 0, 0);
}
