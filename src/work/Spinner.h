#pragma once
// The break dialog's spinner: a picture of seven frames. Frames 0 to 5 turn
// one step at each report (but at most once in 251 ms, however often the
// operation reports), frame 6 is the picture at rest. The frames are the
// bitmaps 13008 to 13014 when the application's resources have all seven,
// else the library's own drawing.

#include <wx/bitmap.h>
#include <wx/window.h>

#include <cstdint>
#include <functional>

class Spinner : public wxWindow {
public:
  static constexpr int kFrames = 7;
  static constexpr int kRestFrame = 6;
  static constexpr unsigned int kFirstBitmapId = 13008;
  static constexpr std::uint32_t kStepIntervalMs = 251;
  // Milliseconds of a monotonic clock; tests give their own.
  using Clock = std::function<std::uint32_t()>;

  Spinner(wxWindow * parent, wxWindowID id);

  // Turns one frame when kStepIntervalMs have passed since the last turn or
  // rest; from rest it starts at frame 0.
  void Step();
  // Frame 6, and the interval starts anew.
  void Rest();
  int GetFrame() const { return mFrame; }
  // A frame's size; the control has no border.
  wxSize GetDesiredSize() const;

  void SetClock(Clock clock);
  // The frame pictures, shared by all spinners.
  static wxBitmap const & FrameBitmap(int frame);

private:
  void OnPaint(wxPaintEvent & event);
  void ShowFrame(int frame);

  int mFrame = 0;
  std::uint32_t mLastTick = 0;
  Clock mClock;
};
