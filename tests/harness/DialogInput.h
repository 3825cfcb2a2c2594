#pragma once
// What a person does to a dialog in a test, sent as the events the dialog
// would get.

#include <gtest/gtest.h>

#include <wx/dialog.h>
#include <wx/event.h>

namespace gui_test {

// A click on the button with `id`; fails the test when there is none.
inline void Click(wxDialog & dialog, int id) {
  wxWindow * button = dialog.FindWindow(id);
  ASSERT_NE(button, nullptr) << id;
  wxCommandEvent click(wxEVT_BUTTON, id);
  click.SetEventObject(button);
  button->ProcessWindowEvent(click);
}

inline void PressEscape(wxDialog & dialog) {
  wxKeyEvent key(wxEVT_CHAR_HOOK);
  key.m_keyCode = WXK_ESCAPE;
  key.SetEventObject(&dialog);
  dialog.ProcessWindowEvent(key);
}

}  // namespace gui_test
