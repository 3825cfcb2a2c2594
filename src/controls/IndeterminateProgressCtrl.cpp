#include "controls/IndeterminateProgressCtrl.h"

#include <wx/dcclient.h>
#include <wx/image.h>

#include <algorithm>
#include <iterator>

#include "platform/SysColor.h"

namespace {

int Clamp(int value) { return std::clamp(value, 0, 255); }

enum Shade { kDark2, kDark1, kBase, kLight1, kLight2, kNone };

// The lines of one stripe, by their offset from the stripe's start.
struct Line {
  int offset;
  Shade shade;
};
constexpr Line kStripe[] = {{-8, kDark2},  {-7, kDark1}, {-6, kBase},   {-5, kLight1},
                            {-4, kLight2}, {-3, kNone},  {-2, kLight2}, {-1, kLight1},
                            {0, kBase},    {1, kDark1}};

// The offsets follow each other, so an offset finds its line by index.
constexpr bool OffsetsAreConsecutive() {
  for (size_t i = 1; i < std::size(kStripe); ++i)
    if (kStripe[i].offset != kStripe[i - 1].offset + 1) return false;
  return true;
}
static_assert(OffsetsAreConsecutive());

}  // namespace

wxColour IndeterminateProgressCtrl::Shift(wxColour const & colour, int shift) {
  return wxColour(static_cast<unsigned char>(Clamp(colour.Red() + shift)),
                  static_cast<unsigned char>(Clamp(colour.Green() + shift)),
                  static_cast<unsigned char>(Clamp(colour.Blue() + shift)));
}

IndeterminateProgressCtrl::IndeterminateProgressCtrl(wxWindow * parent, wxWindowID id,
                                                     wxPoint const & pos, wxSize const & size)
    : wxWindow(parent, id, pos, size, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      mTimer(this, kTimerId) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);  // the paint covers everything: no erasing
  wxColour const base = GetSysColour(COLOR_HIGHLIGHT);
  // Each shade is taken from the clamped one before it, 51 apart.
  wxColour const dark1 = Shift(base, -51);
  wxColour const light1 = Shift(base, 51);
  wxColour const light2 = Shift(light1, 51);
  mPens[kDark2] = wxPen(Shift(dark1, -51), 1);
  mPens[kDark1] = wxPen(dark1, 1);
  mPens[kBase] = wxPen(base, 1);
  mPens[kLight1] = wxPen(light1, 1);
  mPens[kLight2] = wxPen(light2, 1);
  mBackground = Shift(light2, 51);
  Bind(wxEVT_PAINT, &IndeterminateProgressCtrl::OnPaint, this);
  Bind(wxEVT_TIMER, [this](wxTimerEvent & event) {
    if (event.GetId() == kTimerId) Step();
    event.Skip();
  });
  mTimer.Start(kIntervalMs);
}

void IndeterminateProgressCtrl::Step() {
  mPosition = (mPosition + 1) % kPeriod;
  // Painted in the next frame of the desktop. Painting at once (Update)
  // would wait for the display server first, which costs the GUI thread
  // milliseconds on every step.
  Refresh(false);
}

void IndeterminateProgressCtrl::RenderFrame(unsigned char * rgb, wxSize const & size,
                                            int position) const {
  // Every line runs down-right at 45 degrees from (d + offset, 0), d the
  // start of stripe i (x0 + 25 * i - h, where x0 = position - 25 + h + 9),
  // to the bottom edge; no two lines meet, so the pixel (x, y) lies on the
  // line that starts at x - y on the top row, or on none.
  int const count = size.x / kPeriod + 2;
  int const firstStripe = position - kPeriod + 9;  // x0 - h: d of stripe 0
  wxColour colours[6];
  for (int shade = kDark2; shade <= kLight2; ++shade) colours[shade] = mPens[shade].GetColour();
  colours[kNone] = mBackground;
  constexpr int kFirstOffset = kStripe[0].offset;  // -8
  for (int y = 0; y < size.y; ++y) {
    for (int x = 0; x < size.x; ++x, rgb += 3) {
      int const k = x - y - firstStripe - kFirstOffset;  // 25 * i + offset + 8
      int const stripe = k >= 0 ? k / kPeriod : -((kPeriod - 1 - k) / kPeriod);
      int const line = k - stripe * kPeriod;  // 0..24
      Shade shade = kNone;
      if (stripe >= 0 && stripe < count && line < static_cast<int>(std::size(kStripe)))
        shade = kStripe[line].shade;
      wxColour const & colour = colours[shade];
      rgb[0] = colour.Red();
      rgb[1] = colour.Green();
      rgb[2] = colour.Blue();
    }
  }
}

wxBitmap const & IndeterminateProgressCtrl::Frame(wxSize const & size) const {
  if (size != mFramesSize) {
    mFrames = {};
    mFramesSize = size;
  }
  wxBitmap & frame = mFrames[static_cast<size_t>(mPosition)];
  if (!frame.IsOk()) {
    wxImage image(size, false);
    RenderFrame(image.GetData(), size, mPosition);
    frame = wxBitmap(image);
  }
  return frame;
}

void IndeterminateProgressCtrl::Draw(wxDC & dc, wxSize const & size) const {
  if (size.x <= 0 || size.y <= 0) return;
  dc.DrawBitmap(Frame(size), 0, 0, false);
}

void IndeterminateProgressCtrl::OnPaint(wxPaintEvent &) {
  // One copy of a finished picture: nothing flickers without a buffer.
  wxPaintDC dc(this);
  Draw(dc, GetClientSize());
}
