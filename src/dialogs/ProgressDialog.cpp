#include "dialogs/ProgressDialog.h"

#include <wx/button.h>

#include "controls/IndeterminateProgressCtrl.h"
#include "platform/PostedWindowMessages.h"
#include "platform/WinUser.h"

void ReadySignal::Set() {
  {
    std::lock_guard<std::mutex> lock(mMutex);
    mSet = true;
  }
  mCondition.notify_all();
}

void ReadySignal::Wait() {
  std::unique_lock<std::mutex> lock(mMutex);
  mCondition.wait(lock, [this] { return mSet; });
  mSet = false;  // taken: the next wait waits again
}

ProgressDialog::ProgressDialog(std::wstring title, ReadySignal * ready,
                               boost::function<void()> const * cancel, wxWindow * parent)
    : VxDialog(kTemplate, parent, static_cast<unsigned>(-1)),
      mTitle(std::move(title)),
      mReady(ready),
      mCancel(cancel) {
  Bind(VX_EVT_WINDOW_MESSAGE, &ProgressDialog::OnWindowMessage, this);
}

bool ProgressDialog::OnInitDialog() {
  if (wxWindow * placeholder = GetDlgItem(kBar)) {
    wxRect const rect = placeholder->GetRect();
    placeholder->Destroy();
    mBar = new IndeterminateProgressCtrl(this, kBar, rect.GetPosition(), rect.GetSize());
  }
  if (!mTitle.empty()) SetTitle(mTitle);
  if (mCancel != nullptr) {
    if (wxWindow * button = GetDlgItem(kCancelButton)) {
      button->Show();
      button->Enable();
      // Taller by the button's height, so that it comes into view. The
      // client size: the frame's decorations may not be known yet.
      wxSize const client = GetClientSize();
      SetClientSize(client.x, client.y + button->GetClientSize().y);
      Bind(
          wxEVT_BUTTON,
          [this](wxCommandEvent &) {
            if (mCancel != nullptr && *mCancel) (*mCancel)();
          },
          kCancelButton);
      Refresh();
    }
  }
  mReady->Set();
  return true;
}

void ProgressDialog::OnCancel() {
  // Escape and the close box are dead until the work is done.
  if (mMayClose) VxDialog::OnCancel();
}

void ProgressDialog::OnWindowMessage(WindowMessageEvent & event) {
  if (event.GetMessage() == WM_CLOSE) {
    OnCancel();
    return;
  }
  event.Skip();
}
