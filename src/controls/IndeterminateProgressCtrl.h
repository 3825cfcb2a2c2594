#pragma once
// A bar for work of unknown length: a barber pole of stripes leaning right
// in five shades of the highlight colour, moving one pixel every 50 ms and
// repeating every 25 pixels.

#include <wx/bitmap.h>
#include <wx/pen.h>
#include <wx/timer.h>
#include <wx/window.h>

#include <array>

class IndeterminateProgressCtrl : public wxWindow {
public:
  static constexpr int kTimerId = 13;
  static constexpr int kIntervalMs = 50;
  static constexpr int kPeriod = 25;  // pixels until the pattern repeats

  IndeterminateProgressCtrl(wxWindow * parent, wxWindowID id,
                            wxPoint const & pos = wxDefaultPosition,
                            wxSize const & size = wxDefaultSize);

  // The timer's step: the stripes move one pixel and the bar is repainted
  // in the desktop's next frame.
  void Step();
  int GetPosition() const { return mPosition; }
  // Draws the bar as it stands into `dc`, `size` large.
  void Draw(wxDC & dc, wxSize const & size) const;
  // The bar's pixels at `position`, `size` large, as RGB rows.
  void RenderFrame(unsigned char * rgb, wxSize const & size, int position) const;

  // A colour with every channel moved by `shift`, clamped to 0..255.
  static wxColour Shift(wxColour const & colour, int shift);

private:
  void OnPaint(wxPaintEvent & event);

  wxBitmap const & Frame(wxSize const & size) const;

  int mPosition = 0;
  wxPen mPens[5];  // darkest first
  wxColour mBackground;
  wxTimer mTimer;
  // The picture of each position at one size, made when first shown: a
  // frame is then one copy of a picture.
  mutable std::array<wxBitmap, kPeriod> mFrames;
  mutable wxSize mFramesSize;
};
