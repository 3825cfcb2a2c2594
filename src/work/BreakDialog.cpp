#include "work/BreakDialog.h"

#include <gtk/gtk.h>
#include <wx/button.h>
#include <wx/display.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <algorithm>

#include "platform/RunningApplication.h"
#include "utl/Translation.h"
#include "work/BreakConfirmWindow.h"
#include "work/Progress.h"
#include "work/ProgressArt.h"
#include "work/ProgressPump.h"
#include "work/Spinner.h"
#include "work/VxGauge.h"

namespace {

// Timer ids, kept from the family's dialog.
constexpr int kShowDelayTimerId = 7636;
constexpr int kArtTimerId = 7635;

constexpr int kMarginDip = 10;
constexpr int kArtistTextWidthDip = 160;
// Room for a title of this many pixels beside the window's buttons.
constexpr int kTitleRoomDip = 320;

}  // namespace

BreakDialog::BreakDialog(ProgressArtShow & paintings)
    : wxDialog(nullptr, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxCAPTION | wxCLOSE_BOX),
      mPaintings(paintings),
      mShowDelayTimer(this, kShowDelayTimerId),
      mArtTimer(this, kArtTimerId) {
  mStopButton = new wxButton(this, wxID_OK, vx3::Tr("Stop button", "Stop"));
  mSpinner = new Spinner(this, kSpinnerId);
  mPlaceholder = new wxStaticText(this, kPlaceholderId,
                                  vx3::Tr("Break Dialog", "Please wait until the work is done."));
  long const centred = wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE;
  mArtistText =
      new wxStaticText(this, kArtistTextId, wxString(), wxDefaultPosition, wxDefaultSize, centred);
  mPaintingText = new wxStaticText(this, kPaintingTextId, wxString(), wxDefaultPosition,
                                   wxDefaultSize, centred | wxST_ELLIPSIZE_END);
  mPainting = new wxStaticBitmap(this, wxID_ANY, wxBitmap());
  mPortrait = new wxStaticBitmap(this, wxID_ANY, wxBitmap());
  mGauge = new VxGauge(this, kGaugeId);
  for (wxWindow * control : GetChildren()) control->Hide();

  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { AskToStop(); }, wxID_OK);
  Bind(wxEVT_CLOSE_WINDOW, &BreakDialog::OnClose, this);
  Bind(
      wxEVT_TIMER, [this](wxTimerEvent &) { OnShowDelayElapsed(); }, kShowDelayTimerId);
  Bind(
      wxEVT_TIMER, [this](wxTimerEvent &) { OnNextPictureTime(); }, kArtTimerId);

  // A group of its own: the grab of a modal dialog elsewhere holds only
  // for the windows of that dialog's group.
  GtkWindowGroup * const group = gtk_window_group_new();
  gtk_window_group_add_window(group, GTK_WINDOW(GetHandle()));
  g_object_unref(group);
  // Above the application's windows, a modal dialog among them: window
  // managers stack a modal dialog over the other windows of its owner.
  gtk_window_set_keep_above(GTK_WINDOW(GetHandle()), TRUE);
  progress_pump::AllowWindow(this);
  progress_pump::AllowTimerOwner(this);
  progress_pump::AllowTimerOwner(mGauge);
}

BreakDialog::~BreakDialog() {
  mShowDelayTimer.Stop();
  mArtTimer.Stop();
  progress_pump::DisallowTimerOwner(mGauge);
  progress_pump::DisallowTimerOwner(this);
  progress_pump::DisallowWindow(this);
}

std::intptr_t BreakDialog::HandleMessage(ProgressBreakDialog::Message message,
                                         std::uintptr_t wParam, void const * lParam) {
  switch (message) {
    case ProgressBreakDialog::kStop: Stop(); break;
    case ProgressBreakDialog::kNextSpin: mSpinner->Step(); break;
    case ProgressBreakDialog::kSpinDone: mSpinner->Rest(); break;
    case ProgressBreakDialog::kSetTitle: SetTitle(static_cast<wchar_t const *>(lParam)); break;
    case ProgressBreakDialog::kSetValue:
      mGauge->SetValue(*static_cast<float const *>(lParam));
      break;
    case ProgressBreakDialog::kSetRange: {
      auto const * const range = static_cast<float const *>(lParam);
      mGauge->SetRange(range[0], range[1]);
      break;
    }
    case ProgressBreakDialog::kShow:
      mShowDelayTimer.Stop();
      if (wParam == 0)
        Hide();
      else if (mProgress != nullptr)
        ShowNow();
      break;
    case ProgressBreakDialog::kStart:
      Start(static_cast<std::uint32_t>(wParam),
            static_cast<Progress *>(const_cast<void *>(lParam)));
      break;
  }
  return 0;
}

void BreakDialog::Start(std::uint32_t delay, Progress * progress) {
  mGauge->SetCaption(wxString());
  bool const art = mPaintings.Restart();
  mProgress = progress;
  mHasGauge = progress->HasGauge();
  if (progress->HasSpinner())
    mFace = BreakDialogFace::kSpinner;
  else if (!art)
    mFace = BreakDialogFace::kPlain;
  else
    mFace = BreakDialogFace::kArt;
  mStopButton->SetLabel(progress->GetButtonText());
  mStopButton->Enable();
  SetTitle(progress->GetInfoText());
  LayOut();
  if (mFace == BreakDialogFace::kArt) {
    // The painting where the last operation of this artist left it.
    if (mPaintings.Current().painting.IsOk())
      ShowPicture(mPaintings.Current());
    else
      NextPicture();
    mArtTimer.Start(kArtIntervalMs);
  }

  // Centred on the main window, on the screen that shows it.
  wxWindow * const main = AppMainWindow();
  int const display = wxDisplay::GetFromWindow(main != nullptr ? main : this);
  wxRect const screen = wxDisplay(display != wxNOT_FOUND ? display : 0).GetClientArea();
  wxRect const owner = main != nullptr && main != this ? main->GetScreenRect() : screen;
  SetPosition(PlaceOnScreen(owner, GetSize(), screen));
  // A delay of 0 shows at the first tick: the operation's first report.
  mShowDelayTimer.StartOnce(std::max<std::uint32_t>(delay, 1));
}

void BreakDialog::LayOut() {
  BreakDialogMeasures measures;
  measures.face = mFace;
  measures.margin = FromDIP(kMarginDip);
  measures.button = mStopButton->GetBestSize();
  measures.spinner = mSpinner->GetDesiredSize();
  measures.placeholder = mPlaceholder->GetBestSize();
  measures.painting = ProgressArt::GetMaxBitmapSize();
  measures.portrait = ProgressArt::GetMaxPortraitSize();
  measures.artistText = wxSize(FromDIP(kArtistTextWidthDip), 2 * mArtistText->GetCharHeight());
  measures.paintingTextHeight = mPaintingText->GetCharHeight();
  measures.gaugeHeight = mHasGauge ? mGauge->GetDesiredHeight() : 0;
  measures.minWidth = FromDIP(kTitleRoomDip);
  mLayout = LayOutBreakDialog(measures);

  // The laid-out size is also the least: wx recomputes a window's size from
  // the frame that the window manager reports, which it withdraws while
  // the window is hidden, and a dialog shown again could shrink to nothing.
  SetMinClientSize(mLayout.client);
  SetClientSize(mLayout.client);
  auto place = [](wxWindow & control, wxRect const & rect) {
    bool const shown = !rect.IsEmpty();
    if (shown) control.SetSize(rect);
    control.Show(shown);
  };
  place(*mSpinner, mLayout.spinner);
  place(*mPlaceholder, mLayout.placeholder);
  place(*mArtistText, mLayout.artistText);
  place(*mPaintingText, mLayout.paintingText);
  place(*mGauge, mLayout.gauge);
  place(*mStopButton, mLayout.button);
  bool const art = mFace == BreakDialogFace::kArt;
  mPainting->Show(art);
  mPortrait->Show(art);
}

void BreakDialog::ShowNow() {
  // A modal dialog that began after this one existed disabled it.
  if (!IsEnabled()) Enable();
  if (!IsShown()) Show();
  Raise();
}

void BreakDialog::OnShowDelayElapsed() {
  mShowDelayTimer.Stop();
  if (mProgress != nullptr) ShowNow();
}

void BreakDialog::Stop() {
  mShowDelayTimer.Stop();
  mArtTimer.Stop();
  // The operation ended while the question was open: the answer is No.
  if (mConfirming && mConfirm != nullptr) mConfirm->Answer(false);
  mConfirming = false;
  Hide();
  mProgress = nullptr;
  mStopButton->Enable();
  mSpinner->Rest();
  mSpinner->Step();
}

void BreakDialog::AskToStop() {
  if (mConfirming) {
    if (mConfirm != nullptr) mConfirm->Raise();
    return;
  }
  if (mProgress == nullptr || !mStopButton->IsEnabled()) return;
  mConfirming = true;
  if (mConfirm == nullptr)
    mConfirm = new BreakConfirmWindow(this, [this](bool stop) { OnAnswer(stop); });
  mConfirm->Ask(mProgress->GetConfirmText(), mProgress->GetConfirmCaption());
}

void BreakDialog::OnAnswer(bool stop) {
  mConfirming = false;
  if (!stop || mProgress == nullptr) return;
  mGauge->SetCaption(vx3::Tr("Break Dialog", "Breaking..."));
  mGauge->Refresh();
  mGauge->Update();
  mProgress->PressBreak();
  mStopButton->Disable();
}

void BreakDialog::OnClose(wxCloseEvent & event) {
  if (event.CanVeto() && mProgress != nullptr) {
    event.Veto();
    AskToStop();
    return;
  }
  // Nothing to ask, or the application is closing all its windows.
  mShowDelayTimer.Stop();
  mArtTimer.Stop();
  mProgress = nullptr;
  Destroy();
}

bool BreakDialog::IsConfirmShown() const { return mConfirm != nullptr && mConfirm->IsShown(); }

void BreakDialog::OnNextPictureTime() {
  if (mFace == BreakDialogFace::kArt) NextPicture();
}

void BreakDialog::NextPicture() {
  if (mPaintings.HasArt()) ShowPicture(mPaintings.Next());
}

void BreakDialog::ShowPicture(ProgressArtPicture const & shown) {
  wxBitmap const picture = shown.painting.IsOk() ? wxBitmap(shown.painting) : wxBitmap();
  wxBitmap const portrait = shown.portrait.IsOk() ? wxBitmap(shown.portrait) : wxBitmap();
  mPainting->SetBitmap(picture);
  mPortrait->SetBitmap(portrait);
  if (picture.IsOk()) mPainting->SetSize(StandOn(mLayout.painting, picture.GetSize()));
  if (portrait.IsOk()) mPortrait->SetSize(CentreIn(mLayout.portrait, portrait.GetSize()));
  mPainting->Show(picture.IsOk());
  mPortrait->Show(portrait.IsOk());
  mPaintingText->SetLabelText(wxString::FromUTF8(shown.paintingName));
  mArtistText->SetLabelText(wxString::FromUTF8(shown.artistName + "\n" + shown.lifeSpan));
}
