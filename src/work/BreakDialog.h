#pragma once
// The break dialog: where an operation that can be stopped shows its
// progress, and the only way its break flag gets set. Progress drives it
// through the messages of ProgressBreakDialog.h; BreakSpinnerThread.h makes
// one for each operation and keeps what lasts between them.
//
// It lives on the GUI thread like everything else: the operation blocks the
// event loop but pumps at every report (ProgressPump.h), and the pump lets
// the user's input through to this dialog and its question only. The dialog
// has a GTK window group of its own, so that a modal dialog elsewhere, under
// which the operation may run, does not block its stop button.
//
// It comes up only after the show delay, so that short operations show
// nothing. It shows the progress's info text as its title; a spinner, or a
// plain text, or a painting that changes every 15 seconds; a gauge when the
// operation has one; and the stop button. Stop (also Escape and the close
// box) asks "Do you really want to stop?"; the operation goes on while the
// question is open, and its end answers No. Yes sets the break flag, which
// the operation reads at its next report.

#include <wx/dialog.h>
#include <wx/timer.h>

#include <cstdint>

#include "work/BreakDialogLayout.h"
#include "work/ProgressBreakDialog.h"

class BreakConfirmWindow;
class Progress;
class ProgressArtShow;
struct ProgressArtPicture;
class Spinner;
class VxGauge;
class wxButton;
class wxStaticBitmap;
class wxStaticText;

class BreakDialog : public wxDialog {
public:
  // Control ids, kept from the family's dialog template.
  static constexpr int kSpinnerId = 13065;
  static constexpr int kPlaceholderId = 13090;
  static constexpr int kArtistTextId = 13039;
  static constexpr int kPaintingTextId = 13059;
  static constexpr int kGaugeId = 13048;
  static constexpr int kArtIntervalMs = 15000;

  // `paintings` outlives the dialog: the next operation's dialog goes on
  // where this one left them.
  explicit BreakDialog(ProgressArtShow & paintings);
  ~BreakDialog() override;

  // One message of the seam; returns 0 like the family's handlers.
  std::intptr_t HandleMessage(ProgressBreakDialog::Message message, std::uintptr_t wParam,
                              void const * lParam);

  // What the timers do; tests call them instead of waiting.
  void OnShowDelayElapsed();
  void OnNextPictureTime();
  // The stop button, Escape and the close box: asks the question.
  void AskToStop();

  Progress * GetProgress() const { return mProgress; }
  bool IsConfirming() const { return mConfirming; }
  bool IsShowDelayRunning() const { return mShowDelayTimer.IsRunning(); }
  bool IsArtTimerRunning() const { return mArtTimer.IsRunning(); }
  BreakDialogFace GetFace() const { return mFace; }
  bool IsConfirmShown() const;
  // Null until the question was asked once.
  BreakConfirmWindow * GetConfirmWindow() const { return mConfirm; }
  wxButton & GetStopButton() const { return *mStopButton; }
  Spinner & GetSpinner() const { return *mSpinner; }
  VxGauge & GetGauge() const { return *mGauge; }
  wxStaticText & GetArtistText() const { return *mArtistText; }
  wxStaticText & GetPaintingText() const { return *mPaintingText; }

  // It must not keep the application running.
  bool ShouldPreventAppExit() const override { return false; }

private:
  void Start(std::uint32_t delay, Progress * progress);
  void Stop();
  void ShowNow();
  void NextPicture();
  void ShowPicture(ProgressArtPicture const & picture);
  void LayOut();
  void OnAnswer(bool stop);
  void OnClose(wxCloseEvent & event);

  ProgressArtShow & mPaintings;
  Progress * mProgress = nullptr;
  wxButton * mStopButton = nullptr;
  Spinner * mSpinner = nullptr;
  wxStaticText * mPlaceholder = nullptr;
  wxStaticText * mArtistText = nullptr;
  wxStaticText * mPaintingText = nullptr;
  wxStaticBitmap * mPainting = nullptr;
  wxStaticBitmap * mPortrait = nullptr;
  VxGauge * mGauge = nullptr;
  BreakConfirmWindow * mConfirm = nullptr;
  BreakDialogFace mFace = BreakDialogFace::kPlain;
  BreakDialogLayout mLayout;
  bool mHasGauge = false;
  bool mConfirming = false;
  wxTimer mShowDelayTimer;
  wxTimer mArtTimer;
};
