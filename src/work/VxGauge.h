#pragma once
// The family's own gauge: a bar with a light stripe whose colour breathes
// once in 180 frames, and a caption that reads white over the bar and black
// over the rest. A 50 ms timer on the GUI thread paints a frame off-screen
// and shows it; the pulse restarts whenever the gauge is not on screen.

#include <wx/bitmap.h>
#include <wx/font.h>
#include <wx/timer.h>
#include <wx/window.h>

#include "work/VxGaugeBase.h"

class VxGauge : public wxWindow, public VxGaugeBase {
public:
  static constexpr int FrameMilliseconds = 50;
  static constexpr int PulseFrames = 180;
  // Room of the caption, in characters; a longer caption is cut.
  static constexpr size_t CaptionCapacity = 199;

  VxGauge() = default;
  VxGauge(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
          wxSize const & size = wxDefaultSize);
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
              wxSize const & size = wxDefaultSize);
  ~VxGauge() override;

  // Stores the smaller number as low, the larger as high.
  void SetRange(float low, float high) override;
  void SetValue(float value) override;
  wxWindow * GetWnd() override { return this; }
  void SetCaption(wxString const & caption);

  float GetLow() const { return mLow; }
  float GetHigh() const { return mHigh; }
  float GetValue() const { return mValue; }
  wxString const & GetCaption() const { return mCaption; }

  // Border height plus the height of "Xj" in the gauge's font.
  int GetDesiredHeight();

  // One tick of the frame timer: paints the next frame when the gauge is on
  // screen, else restarts the pulse. The timer calls it; tests call it too.
  void OnFrameTimer();
  // The pulse frame that the next tick paints, 0 to 179.
  int GetPulseFrame() const { return mPulseFrame; }
  // The last frame painted.
  wxBitmap const & GetFrameBitmap() const { return mFrame; }

  // The breathing weight of a pulse frame: 0, a rise over frames 70-79,
  // 1 over 80-100, a fall over 101-110, 0 from 111.
  static float Pulse(int frame);
  // Bar and stripe colours at a breathing weight.
  static wxColour BarColour(float pulse);
  static wxColour StripeColour(float pulse);

  struct FrameState {
    float low = 0, high = 100, value = 0;
    wxString caption;
    wxFont font;
    wxColour face;  // the colour under the empty part
    // The caption's extent in `font` when known: measuring it costs as
    // much as drawing it once, and a caption changes far less often than
    // frames are painted.
    wxSize captionSize;
  };
  // The caption's extent as PaintFrame would measure it.
  static wxSize MeasureCaption(wxDC & dc, FrameState const & state);
  // Paints one frame of `size` into `dc` at (0, 0).
  static void PaintFrame(wxDC & dc, wxSize size, FrameState const & state, float pulse);

private:
  void OnPaint(wxPaintEvent & event);
  FrameState CurrentState() const;

  float mLow = 0, mHigh = 100, mValue = 0;
  wxString mCaption;
  wxFont mFont;
  wxSize mCaptionSize;  // of mCaption in mFont; empty until measured
  int mPulseFrame = 0;
  wxBitmap mFrame;
  wxTimer mTimer;
};
