#pragma once
// Progress: what a long operation on the GUI thread holds on its stack. It
// shows how far the operation has come (in the main frame's status bar or in
// the break dialog), keeps the windows painted while the operation blocks
// the event loop, and tells the operation when the user asked it to stop.
//
// The caller works in a scale of its own; PushSubRange gives a nested
// procedure the scale 0..1 inside a slice of its caller's scale. One
// Progress is active at a time; one made while another is active, or off
// the GUI thread, is silent: it computes and stores, and shows nothing.

#include <wx/string.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <cstdint>
#include <vector>

#include "work/SpinWindow.h"

class ProgressBreakDialog;
class StatusGauge;
class VxStatusAccess;
class wxWindow;

class Progress {
public:
  // One nesting level: the slice of the whole task it occupies, and the
  // values of the caller's scale that stand for the ends of the slice.
  struct Range {
    float shareFrom;
    float shareTo;
    float scaleFrom;
    float scaleTo;
  };

  // Pane ids in the family's status bar.
  static constexpr unsigned int kSpinnerPane = 1036;
  static constexpr unsigned int kGaugePane = 1037;

  Progress(wxWindow * parent, wchar_t const * text, float from, float to, bool spin, bool dialog,
           bool gauge, wchar_t const * confirmText = nullptr,
           wchar_t const * confirmCaption = nullptr, wchar_t const * buttonText = nullptr,
           std::uint32_t showDelay = 0);
  // Work without a known end: a spinner that turns by itself.
  explicit Progress(wchar_t const * text, wxWindow * parent = nullptr);
  // A copy is never the active progress.
  Progress(Progress const & other);
  Progress & operator=(Progress const & other);
  ~Progress();

  // Reporting; each returns !IsBreakPressed().
  bool Set(float value);
  bool SetRange(float from, float to);
  bool PushSubRange(float from, float to);
  bool PopSubRange();
  bool PopPushSubRange(float from, float to);
  bool NextSpin();
  bool SpinDone();
  bool SetInfoStr(wchar_t const * text);

  float GetValue() const { return mValue; }
  void GetRange(float & from, float & to) const;
  bool IsBreakPressed() const { return mBreakPressed; }
  // Stored only; added to every value given to Set.
  void SetCounter(float counter) { mCounter = counter; }

  // Called by the break dialog when the user confirmed a stop.
  void PressBreak() { mBreakPressed = true; }

  bool HasSpinner() const { return mSpin; }
  bool HasGauge() const { return mGauge; }
  wxString const & GetConfirmText() const { return mConfirmText; }
  wxString const & GetConfirmCaption() const { return mConfirmCaption; }
  wxString const & GetButtonText() const { return mButtonText; }
  wxString const & GetInfoText() const { return mInfoText; }
  std::size_t GetDepth() const { return mRanges.size(); }

  static bool IsProgressActive();
  static Progress * GetActiveProgress();
  static void Show();
  static void ForceCreate();
  static void Hide();
  // Shows the active progress's dialog now and returns its window; null
  // without an active progress or dialog.
  static wxWindow * GetBreakWindow();
  static void SetShowProgressDialog(bool show);
  // Pumps what may run while an operation blocks the GUI thread (see
  // ProgressPump.h); does nothing off the GUI thread.
  static void MessageLoop();
  // Creates the status-bar gauge when the main frame's status bar offers one.
  static void InitProgress();
  // The status bar's gauge, null until InitProgress made it.
  static StatusGauge * GetStatusGauge();
  // The break dialog that dialog progress talks to; null: no dialog road.
  // The process's own (BreakSpinnerThread::Host()) until replaced.
  static void SetBreakDialog(ProgressBreakDialog * dialog);

private:
  void Construct(float from, float to);
  void Init();
  void SetString(wxString const & text);
  void GetGaugeRange(float & low, float & high) const;
  void ShowGaugeValue();
  bool IsActive() const;
  void Send(unsigned int message, std::uintptr_t wParam, void const * lParam) const;
  static VxStatusAccess * GetStatusBar();
  static wxWindow * GetMessageBar();

  bool mDialog = false;
  bool mSpin = false;
  bool mGauge = false;
  wxString mConfirmText;
  wxString mConfirmCaption;
  wxString mButtonText;
  wxString mInfoText;
  ProgressBreakDialog * mBreakWindow = nullptr;
  // Written by the break dialog, read at the next report.
  volatile bool mBreakPressed = false;
  std::vector<Range> mRanges;
  float mValue = 0;
  float mCounter = 0;
  bool mSelfSpin = false;
  wxWeakRef<SpinWindow> mSpinWindow;
  wxWeakRef<wxWindow> mSavedForeground;
  wxWeakRef<wxWindow> mParent;
  bool mOnGuiThread = false;
  bool mWaitCursor = false;
  std::uint32_t mShowDelay = 0;
};
