#include "work/Spinner.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/settings.h>

#include <array>
#include <chrono>
#include <cmath>
#include <memory>

#include "platform/ResourceModule.h"

namespace {

constexpr int kFrameSize = 32;
constexpr int kDots = 6;

std::uint32_t SteadyMilliseconds() {
  using namespace std::chrono;
  return static_cast<std::uint32_t>(
      duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// Six dots on a ring; in a turning frame the dot of the frame is the
// brightest and the ones behind it fade, at rest all are alike.
wxBitmap DrawFrame(int frame) {
  wxBitmap bitmap(kFrameSize, kFrameSize, 32);
  bitmap.UseAlpha();
  wxMemoryDC dc(bitmap);
  dc.SetBackground(*wxTRANSPARENT_BRUSH);
  dc.Clear();
  std::unique_ptr<wxGraphicsContext> gc(wxGraphicsContext::Create(dc));
  if (!gc) return bitmap;
  gc->SetAntialiasMode(wxANTIALIAS_DEFAULT);
  double const centre = kFrameSize / 2.0;
  double const ring = kFrameSize * 0.33;
  double const radius = kFrameSize * 0.12;
  for (int dot = 0; dot < kDots; ++dot) {
    wxColour colour(0x80, 0x80, 0x80);
    if (frame != Spinner::kRestFrame) {
      int const age = (frame - dot + kDots) % kDots;
      int const level = 0x20 + age * 0x24;  // 0x20 (dark) for the dot of the frame
      colour = wxColour(level / 3, 0x60 + level / 2, 0xC0 + level / 4);
    }
    double const angle = 2 * M_PI * dot / kDots - M_PI / 2;
    gc->SetBrush(wxBrush(colour));
    gc->SetPen(*wxTRANSPARENT_PEN);
    gc->DrawEllipse(centre + ring * std::cos(angle) - radius,
                    centre + ring * std::sin(angle) - radius, 2 * radius, 2 * radius);
  }
  return bitmap;
}

std::array<wxBitmap, Spinner::kFrames> MakeFrames() {
  std::array<wxBitmap, Spinner::kFrames> frames;
  bool fromResources = true;
  for (int i = 0; i < Spinner::kFrames; ++i) {
    frames[i] = LoadResourceBitmap(Spinner::kFirstBitmapId + i);
    fromResources = fromResources && frames[i].IsOk();
  }
  // Mixed sets would turn between two styles: all seven or none.
  if (!fromResources)
    for (int i = 0; i < Spinner::kFrames; ++i) frames[i] = DrawFrame(i);
  return frames;
}

}  // namespace

wxBitmap const & Spinner::FrameBitmap(int frame) {
  // Never freed: bitmaps must not outlive the toolkit at the process's exit.
  static auto const * const frames = new std::array<wxBitmap, kFrames>(MakeFrames());
  return (*frames)[(frame % kFrames + kFrames) % kFrames];
}

Spinner::Spinner(wxWindow * parent, wxWindowID id)
    : wxWindow(parent, id, wxDefaultPosition, FrameBitmap(0).GetSize(), wxBORDER_NONE),
      mClock(&SteadyMilliseconds) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, &Spinner::OnPaint, this);
  mLastTick = mClock();
}

void Spinner::SetClock(Clock clock) {
  mClock = std::move(clock);
  mLastTick = mClock();
}

wxSize Spinner::GetDesiredSize() const { return FrameBitmap(0).GetSize(); }

void Spinner::Step() {
  std::uint32_t const now = mClock();
  // Unsigned difference: right across the wrap of the 32-bit clock.
  if (now - mLastTick < kStepIntervalMs) return;
  mLastTick = now;
  ShowFrame(mFrame == kRestFrame ? 0 : (mFrame + 1) % kRestFrame);
}

void Spinner::Rest() {
  mLastTick = mClock();
  ShowFrame(kRestFrame);
}

void Spinner::ShowFrame(int frame) {
  mFrame = frame;
  Refresh(false);
}

void Spinner::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(GetParent()->GetBackgroundColour()));
  dc.Clear();
  dc.DrawBitmap(FrameBitmap(mFrame), 0, 0, true);
}
