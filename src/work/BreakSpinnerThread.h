#pragma once
// The host of the break dialog that Progress talks to through the
// ProgressBreakDialog seam. It keeps the family's name, but it is no thread:
// only the GUI thread touches windows, and the dialog stays responsive
// because every report of the operation pumps events. What is left of the
// thread is the laziness: nothing is made before the first dialog progress.
//
// Each operation gets a dialog window of its own, made at its start and
// destroyed at its end; what lasts from one operation to the next (where
// the paintings stand) lives here. A window hidden and shown
// again under a modal dialog comes back misplaced and shrunk under some
// window managers, so a window is never shown for a second operation.

#include <type_traits>  // wx/weakref.h uses it without including it

#include <wx/weakref.h>

#include "work/BreakDialog.h"
#include "work/ProgressArt.h"
#include "work/ProgressBreakDialog.h"

class BreakSpinnerThread : public ProgressBreakDialog {
public:
  // The process's host; Progress uses it unless told otherwise.
  static BreakSpinnerThread & Host();

  // True on the GUI thread of a running GUI: a dialog is made when needed.
  bool IsWindow() const override;
  // The dialog of the operation; null between operations.
  wxWindow * Window() const override;
  // A start makes the operation's dialog, a stop ends it; other messages
  // go to the dialog when there is one.
  std::intptr_t Send(Message message, std::uintptr_t wParam, void const * lParam) override;

  // The dialog of the operation; null between operations.
  BreakDialog * GetDialog() const;
  // Starts the walk through the paintings afresh, with `paintings`; after
  // ProgressArt::Reload, and in tests for an order of their own.
  void RestartPaintings(ProgressArtShow paintings = ProgressArtShow());

private:
  ProgressArtShow mPaintings;
  wxWeakRef<BreakDialog> mDialog;
};
