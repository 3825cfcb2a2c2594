#pragma once
// The status bar's spinner: activity without a known end. It steps when the
// operation reports (Step) or, when turning by itself, every 50 ms from a
// timer on the GUI thread that the progress pump lets through.

#include <wx/timer.h>
#include <wx/window.h>

class SpinWindow : public wxWindow {
public:
  static constexpr int kSteps = 12;
  static constexpr int kIntervalMs = 50;

  explicit SpinWindow(wxWindow * parent);
  ~SpinWindow() override;

  void Step();
  void SetStep(int step);
  int GetStep() const { return mStep; }
  void SetSelfTurning(bool turning);
  bool IsSelfTurning() const { return mTimer.IsRunning(); }

private:
  void OnPaint(wxPaintEvent & event);
  void OnTimer(wxTimerEvent & event);

  int mStep = 0;
  wxTimer mTimer;
};
