#pragma once
// The one seam between Progress and the break dialog: Progress drives the
// dialog only through these messages, sent synchronously.

#include <cstdint>

class wxWindow;

class ProgressBreakDialog {
public:
  enum Message : unsigned int {
    kStop = 1025,      // the progress ends; forget it
    kNextSpin = 1026,  // advance the spinner one step
    kSpinDone = 1027,  // stop the spinner
    kSetTitle = 1028,  // lParam: wchar_t const *, the info text
    kSetValue = 1029,  // lParam: float const *
    kSetRange = 1030,  // lParam: float const[2], scale from and scale to
    kShow = 1031,      // wParam: 1 show, 0 hide
    kStart = 1032,     // wParam: the show delay in ms, lParam: the Progress
  };

  virtual ~ProgressBreakDialog() = default;

  // False once the dialog's window is gone; nothing is sent then.
  virtual bool IsWindow() const = 0;
  virtual wxWindow * Window() const = 0;
  virtual std::intptr_t Send(Message message, std::uintptr_t wParam, void const * lParam) = 0;
};
