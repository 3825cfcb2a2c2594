#pragma once
// A gauge shows a value between two limits. Progress and the break dialog
// use a gauge through this interface, whatever control draws it.

class wxWindow;

class VxGaugeBase {
public:
  virtual ~VxGaugeBase() = default;
  virtual void SetRange(float low, float high) = 0;
  virtual void SetValue(float value) = 0;
  virtual wxWindow * GetWnd() = 0;
};
