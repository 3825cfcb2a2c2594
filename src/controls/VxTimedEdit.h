#pragma once
// Edits that act when the typing has stopped: each change restarts a timer
// of the control's own id, and when it runs out EditTriggered gets the text
// under the wait cursor.

#include <wx/textctrl.h>
#include <wx/timer.h>

class VxTimedEdit : public wxTextCtrl {
public:
  // The constructor raises a delay below 100 ms to 100.
  VxTimedEdit(int delay, int timerId);
  ~VxTimedEdit() override;

  bool Create(wxWindow * parent, wxWindowID id, wxString const & value = wxString(),
              wxPoint const & position = wxDefaultPosition, wxSize const & size = wxDefaultSize,
              long style = 0);

  void SetDelayTime(int delay) { mDelay = delay; }
  int GetDelayTime() const { return mDelay; }
  wxTimer & GetTimer() { return mTimer; }

  virtual void StartTimer();
  virtual void EditTriggered(wchar_t const * text) = 0;

  // What the timer's event does (tests call it instead of waiting).
  void OnTimer(wxTimerEvent & event);

private:
  void OnText(wxCommandEvent & event);

  wxTimer mTimer;
  int mDelay;
};

class TimedEditBox;

class TimedEditParent {
public:
  virtual ~TimedEditParent() = default;
  virtual void OnTimedEditChanged(TimedEditBox * box, wchar_t const * text) = 0;
};

class TimedEditBox : public VxTimedEdit {
public:
  static constexpr int kTimerId = 76354;
  TimedEditBox(int delay, TimedEditParent * parent);

  // Sets the text without triggering.
  void SetText(wchar_t const * text);
  void StartTimer() override;
  void EditTriggered(wchar_t const * text) override;

private:
  bool mSuppress = false;
  TimedEditParent * mParent;
};
