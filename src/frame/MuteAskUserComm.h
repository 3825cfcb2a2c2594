#pragma once
// A channel that answers questions and takes information silently (as
// MuteUserComm does: default answers, everything to the log) but still shows
// fatal errors: for batch runs that a person started and must see fail.

#include "utl/MuteUserComm.h"

class MuteAskUserComm : public MuteUserComm {
public:
  // As StandardUserComm shows it (message box, or FatalErrorDialog from 20
  // lines on, the progress hidden meanwhile), without a usage count; an
  // empty text shows nothing.
  void FatalError(UserCommMessage const & text, UserCommMessage const & caption) override;
};
