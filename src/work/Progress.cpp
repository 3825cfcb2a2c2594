#include "work/Progress.h"

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/thread.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <cmath>

#include "platform/RunningApplication.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"
#include "work/BreakSpinnerThread.h"
#include "work/ProgressBreakDialog.h"
#include "work/ProgressPump.h"
#include "work/SpinWindow.h"
#include "work/StatusGauge.h"
#include "work/VxStatusAccess.h"

namespace {

constexpr int kPaneWidth = 100;

Progress * gActive = nullptr;
bool gShowDialog = true;
ProgressBreakDialog * gBreakDialog = &BreakSpinnerThread::Host();

// The status bar's gauge: made once; the weak reference lets a later frame
// get a gauge of its own when the one that held it is gone.
wxWeakRef<StatusGauge> gGauge;

void SetGaugeRange(float low, float high) {
  if (StatusGauge * gauge = gGauge.get()) gauge->SetRange(low, high);
}
void SetGaugeValue(float value) {
  if (StatusGauge * gauge = gGauge.get()) gauge->SetValue(value);
}

wxFrame * MainFrame() { return dynamic_cast<wxFrame *>(AppMainWindow()); }

wxString FromWide(wchar_t const * text) { return text != nullptr ? wxString(text) : wxString(); }

bool IsEmpty(wchar_t const * text) { return text == nullptr || *text == 0; }

// A value that lands on no number of the scale goes to the start of it.
void ClampToScale(float & value, Progress::Range const & range) {
  if (value > range.scaleTo)
    value = range.scaleTo;
  else if (value < range.scaleFrom)
    value = range.scaleFrom;
  else if (std::isnan(value))
    value = range.scaleFrom;
}

}  // namespace

Progress::Progress(wxWindow * parent, wchar_t const * text, float from, float to, bool spin,
                   bool dialog, bool gauge, wchar_t const * confirmText,
                   wchar_t const * confirmCaption, wchar_t const * buttonText,
                   std::uint32_t showDelay)
    : mDialog(dialog), mSpin(spin), mGauge(gauge), mParent(parent), mShowDelay(showDelay) {
  mInfoText = FromWide(text);
  if (!IsEmpty(confirmText)) mConfirmText = confirmText;
  if (!IsEmpty(confirmCaption)) mConfirmCaption = confirmCaption;
  if (!IsEmpty(buttonText)) mButtonText = buttonText;
  Construct(from, to);
}

Progress::Progress(wchar_t const * text, wxWindow * parent)
    : mSpin(true), mSelfSpin(true), mParent(parent) {
  mInfoText = FromWide(text);
  Construct(0, 1);
  if (gActive != nullptr) Show();
}

Progress::Progress(Progress const & other) { *this = other; }

Progress & Progress::operator=(Progress const & other) {
  if (this == &other) return *this;
  mDialog = other.mDialog;
  mSpin = other.mSpin;
  mGauge = other.mGauge;
  mConfirmText = other.mConfirmText;
  mConfirmCaption = other.mConfirmCaption;
  mButtonText = other.mButtonText;
  mInfoText = other.mInfoText;
  mBreakWindow = other.mBreakWindow;
  mBreakPressed = other.mBreakPressed;
  mRanges = other.mRanges;
  mValue = other.mValue;
  mCounter = other.mCounter;
  mSelfSpin = other.mSelfSpin;
  mSpinWindow = other.mSpinWindow;
  mSavedForeground = other.mSavedForeground;
  mParent = other.mParent;
  mOnGuiThread = other.mOnGuiThread;
  // The busy cursor is counted; only the object that began it ends it.
  mShowDelay = other.mShowDelay;
  return *this;
}

void Progress::Construct(float from, float to) {
  if (mConfirmText.empty()) mConfirmText = vx3::Tr("Do you really want to stop?");
  if (mButtonText.empty()) mButtonText = vx3::Tr("Stop button", "Stop");
  if (mConfirmCaption.empty())
    mConfirmCaption = wxString::FromUTF8(VxSystemInfo::GetApplicationName());
  mOnGuiThread = wxThread::IsMain();

  // Ends that are no number at all: the scale starts at 0 and is one wide.
  if (!std::isfinite(from)) from = 0;
  if (!std::isfinite(to)) to = from + 1.0f;
  if (to == from) to = static_cast<float>(from + 1.0);
  if (from > to) std::swap(from, to);
  mRanges.reserve(4);
  mRanges.push_back({0, 1, from, to});
  mValue = from;
  if (!gShowDialog) mDialog = false;
  if (!mOnGuiThread) return;

  if (wxTheApp != nullptr) {
    wxBeginBusyCursor();
    mWaitCursor = true;
  }
  if (gGauge.get() == nullptr) InitProgress();
  if (mParent.get() == nullptr) mParent = AppMainWindow();
  if (gActive == nullptr) Init();
}

void Progress::Init() {
  wxFrame * const frame = MainFrame();
  VxStatusAccess * const bar = GetStatusBar();
  if (frame == nullptr || (bar == nullptr && !mDialog) || gActive != nullptr) return;
  gActive = this;
  wxWindow * const messageBar = GetMessageBar();
  if (messageBar != nullptr) messageBar->Freeze();
  StatusGauge * const gauge = gGauge.get();
  if (!mGauge) {
    if (gauge != nullptr) {
      gauge->Hide();
      if (bar != nullptr) bar->RemoveWindow(gauge, true, kGaugePane);
    }
  } else if (!mDialog) {
    float low = 0;
    float high = 0;
    GetGaugeRange(low, high);
    SetGaugeRange(low, high);
    SetGaugeValue(mValue);
    if (bar != nullptr && gauge != nullptr) {
      gauge->Show();
      bar->InsertWindow(gauge, kPaneWidth, 0, kGaugePane);
    }
  }
  if (mSpin && !mDialog && bar != nullptr && messageBar != nullptr) {
    auto * const spinner = new SpinWindow(messageBar);
    mSpinWindow = spinner;
    if (mSelfSpin) spinner->SetSelfTurning(true);
    bar->InsertWindow(spinner, kPaneWidth, mGauge ? 1 : 0, kSpinnerPane);
    spinner->Show();
  }
  if (messageBar != nullptr) messageBar->Thaw();
  SetString(mInfoText);
  MessageLoop();
  if (mDialog && gBreakDialog != nullptr) {
    mSavedForeground = wxGetActiveWindow();
    mBreakWindow = gBreakDialog;
    Send(ProgressBreakDialog::kStart, mShowDelay, this);
    if (mGauge) {
      float const range[2] = {mRanges.back().scaleFrom, mRanges.back().scaleTo};
      Send(ProgressBreakDialog::kSetRange, 0, range);
      Send(ProgressBreakDialog::kSetValue, 0, &mValue);
    }
  }
}

Progress::~Progress() {
  VxStatusAccess * const bar = GetStatusBar();
  wxWindow * const messageBar = GetMessageBar();
  if (gActive == this) {
    gActive = nullptr;
    if (bar != nullptr && messageBar != nullptr) messageBar->Freeze();
    if (SpinWindow * spinner = mSpinWindow.get()) {
      if (bar != nullptr) bar->RemoveWindow(spinner, false, kSpinnerPane);
      spinner->Destroy();
    }
    Send(ProgressBreakDialog::kStop, 0, nullptr);
    if (wxWindow * foreground = mSavedForeground.get()) foreground->Raise();
    if (bar != nullptr) {
      StatusGauge * const gauge = gGauge.get();
      if (!mGauge && gauge != nullptr) bar->InsertWindow(gauge, kPaneWidth, 0, kGaugePane);
      if (messageBar != nullptr) messageBar->Thaw();
      SetGaugeRange(0, 1);
      SetGaugeValue(0);
      // The idle text back in the message pane.
      for (int i = 0; i < bar->GetCount(); ++i)
        if (bar->GetItemID(i) == 0) {
          bar->SetPaneText(i, vx3::Tr("Status bar", "Ready"), true);
          break;
        }
    }
    progress_pump::Release();
  }
  if (mWaitCursor) wxEndBusyCursor();
}

bool Progress::IsActive() const { return gActive == this; }

void Progress::Send(unsigned int message, std::uintptr_t wParam, void const * lParam) const {
  if (mBreakWindow != nullptr && mBreakWindow->IsWindow())
    mBreakWindow->Send(static_cast<ProgressBreakDialog::Message>(message), wParam, lParam);
}

void Progress::GetGaugeRange(float & low, float & high) const {
  Range const & range = mRanges.back();
  float const ratio = (range.scaleTo - range.scaleFrom) / (range.shareTo - range.shareFrom);
  low = range.scaleFrom - range.shareFrom * ratio;
  high = static_cast<float>((1.0 - range.shareTo) * ratio + range.scaleTo);
}

void Progress::ShowGaugeValue() {
  ClampToScale(mValue, mRanges.back());
  if (mDialog)
    Send(ProgressBreakDialog::kSetValue, 0, &mValue);
  else
    SetGaugeValue(mValue);
}

void Progress::GetRange(float & from, float & to) const {
  from = mRanges.back().scaleFrom;
  to = mRanges.back().scaleTo;
}

bool Progress::Set(float value) {
  mValue = value + mCounter;
  if (mGauge) {
    if (!IsActive()) return !IsBreakPressed();
    ShowGaugeValue();
  }
  if (IsActive()) MessageLoop();
  return !IsBreakPressed();
}

bool Progress::SetRange(float from, float to) {
  Range & range = mRanges.back();
  mValue = from;
  range.scaleFrom = from;
  range.scaleTo = to;
  mCounter = 0;
  if (mGauge) {
    if (!IsActive()) return !IsBreakPressed();
    float gaugeRange[2] = {0, 0};
    GetGaugeRange(gaugeRange[0], gaugeRange[1]);
    if (mDialog) {
      Send(ProgressBreakDialog::kSetRange, 0, gaugeRange);
      Send(ProgressBreakDialog::kSetValue, 0, &mValue);
    } else {
      SetGaugeRange(gaugeRange[0], gaugeRange[1]);
      SetGaugeValue(mValue);
    }
  }
  if (IsActive()) MessageLoop();
  return !IsBreakPressed();
}

bool Progress::PushSubRange(float from, float to) {
  Range const current = mRanges.back();
  // NaN ends fall back to the ends of the current scale, like ends beyond it.
  if (!(from >= current.scaleFrom)) from = current.scaleFrom;
  if (!(to <= current.scaleTo)) to = current.scaleTo;
  float const width = current.shareTo - current.shareFrom;
  float const span = current.scaleTo - current.scaleFrom;
  // The ends are not offset by the scale's start: a parent scale that does
  // not start at 0 places its sub-tasks further on. Callers rely on it.
  float shareFrom = width * from / span + current.shareFrom;
  float shareTo = width * to / span + current.shareFrom;
  // An empty or endless parent scale places nothing: the sub-task takes the
  // parent's whole slice.
  if (!std::isfinite(shareFrom) || !std::isfinite(shareTo)) {
    shareFrom = current.shareFrom;
    shareTo = current.shareTo;
  }
  mRanges.push_back({shareFrom, shareTo, 0, 1});
  mCounter = 0;
  SetRange(0, 1);
  Set(0);
  if (IsActive()) MessageLoop();
  return !IsBreakPressed();
}

bool Progress::PopSubRange() {
  if (mRanges.size() == 1) {
    if (IsActive()) MessageLoop();
    return !IsBreakPressed();
  }
  float const end = mRanges.back().shareTo;
  mRanges.pop_back();
  float low = 0;
  float high = 0;
  GetGaugeRange(low, high);
  mCounter = 0;
  Range const current = mRanges.back();
  SetRange(current.scaleFrom, current.scaleTo);
  mValue = (high - low) * end + low + mCounter;
  if (mGauge) {
    if (!IsActive()) return !IsBreakPressed();
    ShowGaugeValue();
  }
  if (IsActive()) MessageLoop();
  return !IsBreakPressed();
}

bool Progress::PopPushSubRange(float from, float to) {
  PopSubRange();
  return PushSubRange(from, to);
}

bool Progress::NextSpin() {
  if (mSpin && !mDialog) {
    if (SpinWindow * spinner = mSpinWindow.get()) spinner->Step();
  } else {
    Send(ProgressBreakDialog::kNextSpin, 0, nullptr);
  }
  if (IsActive()) MessageLoop();
  return !IsBreakPressed();
}

bool Progress::SpinDone() {
  if (mSpin && !mDialog) {
    if (SpinWindow * spinner = mSpinWindow.get()) {
      spinner->SetStep(0);
      spinner->SetSelfTurning(false);
    }
  } else {
    Send(ProgressBreakDialog::kSpinDone, 0, nullptr);
  }
  if (IsActive()) MessageLoop();
  return !IsBreakPressed();
}

bool Progress::SetInfoStr(wchar_t const * text) {
  SetString(FromWide(text));
  return !IsBreakPressed();
}

void Progress::SetString(wxString const & text) {
  mInfoText = text;
  VxStatusAccess * const bar = GetStatusBar();
  if ((bar == nullptr && !mDialog) || !IsActive()) return;
  if (!mDialog) {
    for (int i = 0; i < bar->GetCount(); ++i)
      if (bar->GetItemID(i) == 0) {
        bar->SetPaneText(i, text, true);
        break;
      }
  } else {
    Send(ProgressBreakDialog::kSetTitle, 0, mInfoText.wc_str());
  }
}

bool Progress::IsProgressActive() { return gActive != nullptr; }
Progress * Progress::GetActiveProgress() { return gActive; }

void Progress::Show() {
  if (gActive != nullptr) gActive->Send(ProgressBreakDialog::kShow, 1, nullptr);
}
void Progress::ForceCreate() { Show(); }
void Progress::Hide() {
  if (gActive != nullptr) gActive->Send(ProgressBreakDialog::kShow, 0, nullptr);
}

wxWindow * Progress::GetBreakWindow() {
  if (gActive == nullptr) return nullptr;
  ForceCreate();
  ProgressBreakDialog const * const dialog = gActive->mBreakWindow;
  return dialog != nullptr && dialog->IsWindow() ? dialog->Window() : nullptr;
}

void Progress::SetShowProgressDialog(bool show) { gShowDialog = show; }
void Progress::SetBreakDialog(ProgressBreakDialog * dialog) { gBreakDialog = dialog; }
StatusGauge * Progress::GetStatusGauge() { return gGauge.get(); }

void Progress::MessageLoop() {
  if (!wxThread::IsMain()) return;
  progress_pump::Pump();
}

wxWindow * Progress::GetMessageBar() {
  wxFrame * const frame = MainFrame();
  return frame != nullptr ? frame->GetStatusBar() : nullptr;
}

VxStatusAccess * Progress::GetStatusBar() {
  return dynamic_cast<VxStatusAccess *>(GetMessageBar());
}

void Progress::InitProgress() {
  wxWindow * const messageBar = GetMessageBar();
  VxStatusAccess * const bar = GetStatusBar();
  if (messageBar == nullptr || bar == nullptr || gGauge.get() != nullptr) return;
  auto * const gauge = new StatusGauge(messageBar);
  gGauge = gauge;
  SetGaugeRange(0, 1);
  SetGaugeValue(0);
  bar->InsertWindow(gauge, kPaneWidth, 0, kGaugePane);
  gauge->Show();
}
