#pragma once
// A message box with a check box under its text, "Don't show this message
// again" unless told otherwise: the caller decides what the tick means.
//
//   bool dontAsk = false;
//   if (CheckBoxMessageBox(L"Close the project?", dontAsk, MB_YESNO) == IDYES) ...

#include <cstdint>

#include "platform/WinUser.h"

class wxWindow;

// Shows `text` with the check box ticked as `checked` says; unless the box
// was cancelled, `checked` takes the box's state afterwards. An empty or null
// `checkText` labels it "&Don't show this message again"; a `helpTopic`
// other than 0 adds a Help button; a null `parent` means the safe owner of
// the main window. Returns the pressed button's Windows id (0 for an OK-only
// box under the mute switch).
int64_t CheckBoxMessageBox(wchar_t const * text, bool & checked, unsigned int type = MB_OK,
                           wchar_t const * checkText = nullptr, unsigned int helpTopic = 0,
                           wxWindow * parent = nullptr);
