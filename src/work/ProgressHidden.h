#pragma once
// A scope in which the active progress's dialog is hidden, so that a dialog
// shown meanwhile is not covered: Progress::Hide() on entry,
// Progress::Show() on leaving, also when a failure leaves it.

#include "work/Progress.h"

class ProgressHidden {
public:
  ProgressHidden() { Progress::Hide(); }
  ~ProgressHidden() { Progress::Show(); }
  ProgressHidden(ProgressHidden const &) = delete;
  ProgressHidden & operator=(ProgressHidden const &) = delete;
};
