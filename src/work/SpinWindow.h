#pragma once
// The status bar's spinner: a barber pole, stripes 5 pixels wide leaning at
// 45 degrees, one colour and the face colour in turn. The pole moves one
// pixel when the operation reports (Step), once more than 100 ms have passed
// since its last step, however often it reports. Turning by itself, a 50 ms timer on the GUI thread
// (one that the progress pump lets through) steps it at every other tick. The colour goes round the
// hue circle in 73 ticks while the pole is on screen.

#include <wx/timer.h>
#include <wx/window.h>

#include <cstdint>
#include <functional>

class SpinWindow : public wxWindow {
public:
  static constexpr int kSteps = 10;
  static constexpr int kIntervalMs = 50;
  static constexpr std::uint32_t kStepIntervalMs = 100;
  static constexpr int kHues = 73;
  static constexpr int kStripeWidth = 5;
  // Milliseconds of a monotonic clock; tests give their own.
  using Clock = std::function<std::uint32_t()>;

  explicit SpinWindow(wxWindow * parent);
  ~SpinWindow() override;

  // One pixel on when the last step plus 100 ms lies before now.
  void Step();
  void SetStep(int step);
  int GetStep() const { return mStep; }
  void SetSelfTurning(bool turning);
  bool IsSelfTurning() const { return mTimer.IsRunning(); }
  void SetClock(Clock clock);

  // What the timer does at each tick; tests call it.
  void OnTick();
  int GetHue() const { return mHue; }

  // The colour of the coloured stripes at hue counter `hue`.
  static wxColour StripeColour(int hue);

private:
  void OnPaint(wxPaintEvent & event);

  int mStep = 0;
  int mHue = 0;
  bool mToggle = true;
  std::uint32_t mLastStep = 0;
  Clock mClock;
  wxTimer mTimer;
};
