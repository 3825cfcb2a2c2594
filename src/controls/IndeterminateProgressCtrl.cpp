#include "controls/IndeterminateProgressCtrl.h"

#include <wx/dcbuffer.h>
#include <wx/graphics.h>

#include <algorithm>

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
  Refresh(true);
  Update();
}

void IndeterminateProgressCtrl::Draw(wxDC & dc, wxSize const & size) const {
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(mBackground));
  dc.DrawRectangle(0, 0, size.x, size.y);
  // Diagonals as the platform's line drawing makes them: no smoothing.
  if (wxGraphicsContext * context = dc.GetGraphicsContext())
    context->SetAntialiasMode(wxANTIALIAS_NONE);
  int const h = size.y + 1;
  int const count = size.x / kPeriod + 2;
  int const x0 = mPosition - kPeriod + h + 9;
  int const top = 0;
  int const bottom = size.y;
  for (int i = 0; i < count; ++i) {
    int const d = x0 + kPeriod * i - h;
    for (Line const & line : kStripe) {
      if (line.shade == kNone) continue;
      dc.SetPen(mPens[line.shade]);
      dc.DrawLine(d + line.offset, top, d + line.offset + h - 1, bottom);
    }
  }
}

void IndeterminateProgressCtrl::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  Draw(dc, GetClientSize());
}
