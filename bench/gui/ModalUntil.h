#pragma once
// A modal dialog run to a point and ended there: to its first paint, or to
// the moment a condition set up by the caller holds. The dialog really
// shows (the hook lets it through), so what a dialog builds inside
// ShowModal is counted too. A run that never gets there ends after ten
// seconds and says so.

#include <functional>
#include <utility>

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/timer.h>

class ModalUntil : public wxModalDialogHook {
public:
  // Called with the dialog as it enters ShowModal; `done` ends the run once
  // everything pending at that moment has been handled.
  using Arm = std::function<void(wxDialog & dialog, std::function<void()> const & done)>;

  explicit ModalUntil(Arm arm) : mArm(std::move(arm)) { Register(); }
  ~ModalUntil() override { Unregister(); }

  // The dialog's first paint, children included: they draw in the same
  // frame, before anything queued from the paint handler runs.
  static Arm FirstPaint() {
    return [](wxDialog & dialog, std::function<void()> const & done) {
      dialog.Bind(wxEVT_PAINT, [done](wxPaintEvent & event) {
        event.Skip();
        done();
      });
    };
  }

  bool TimedOut() const { return mTimedOut; }

protected:
  int Enter(wxDialog * dialog) override {
    mEnded = false;
    mWatchdog.SetOwner(dialog);
    dialog->Bind(wxEVT_TIMER, [this, dialog](wxTimerEvent &) {
      mTimedOut = true;
      End(dialog);
    });
    mWatchdog.StartOnce(10'000);
    mArm(*dialog, [this, dialog] { dialog->CallAfter([this, dialog] { End(dialog); }); });
    return wxID_NONE;
  }
  void Exit(wxDialog *) override { mWatchdog.Stop(); }

private:
  void End(wxDialog * dialog) {
    if (mEnded) return;
    mEnded = true;
    dialog->EndModal(wxID_CANCEL);
  }

  Arm mArm;
  wxTimer mWatchdog;
  bool mEnded = false;
  bool mTimedOut = false;
};
