#include "work/BreakSpinnerThread.h"

#include <wx/app.h>
#include <wx/thread.h>

BreakSpinnerThread & BreakSpinnerThread::Host() {
  // Never destroyed: a dialog is a window that wx destroys with the GUI,
  // and static destruction comes after that.
  static BreakSpinnerThread * const host = new BreakSpinnerThread;
  return *host;
}

bool BreakSpinnerThread::IsWindow() const { return wxTheApp != nullptr && wxThread::IsMain(); }

BreakDialog * BreakSpinnerThread::GetDialog() const {
  BreakDialog * const dialog = mDialog.get();
  if (dialog == nullptr || wxTheApp == nullptr) return nullptr;
  // One that wx is about to delete (the application closes) serves no more.
  bool const dying = dialog->IsBeingDeleted() || wxTheApp->IsScheduledForDestruction(dialog);
  return dying ? nullptr : dialog;
}

wxWindow * BreakSpinnerThread::Window() const { return GetDialog(); }

std::intptr_t BreakSpinnerThread::Send(Message message, std::uintptr_t wParam,
                                       void const * lParam) {
  if (!IsWindow()) return 0;
  if (message == kStart && GetDialog() == nullptr) mDialog = new BreakDialog(mPaintings);
  BreakDialog * const dialog = GetDialog();
  if (dialog == nullptr) return 0;
  std::intptr_t const result = dialog->HandleMessage(message, wParam, lParam);
  if (message == kStop) {
    // Deleted once the operation's events are let through again.
    dialog->Destroy();
    mDialog = nullptr;
  }
  return result;
}

void BreakSpinnerThread::RestartPaintings(ProgressArtShow paintings) {
  mPaintings = std::move(paintings);
}
