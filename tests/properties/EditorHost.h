#pragma once
// A dialog as the property list's page would be, with a default OK button,
// and in it the owner an in-place editor reports to: a focusable window
// that counts kInPlaceDataChanged and records the keys passed on to it.

#include <vector>

#include <wx/button.h>
#include <wx/dialog.h>

#include "harness/GuiTestUtilities.h"
#include "platform/WindowMessage.h"
#include "properties/PropertyInPlaceMessages.h"
#include "work/XTestInput.h"

class EditorOwner : public wxWindow {
public:
  explicit EditorOwner(wxWindow * parent)
      : wxWindow(parent, wxID_ANY, wxPoint(10, 10), wxSize(360, 200), wxWANTS_CHARS) {
    SetBackgroundColour(*wxWHITE);
    Bind(VX_EVT_WINDOW_MESSAGE, [this](WindowMessageEvent & event) {
      messages.push_back(event.GetMessage());
      if (event.GetMessage() == kInPlaceDataChanged) {
        if (onDataChanged) onDataChanged();
        event.SetResult(1);
      }
    });
    Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent & event) { keys.push_back(event.GetKeyCode()); });
  }
  bool AcceptsFocus() const override { return true; }

  int DataChanges() const {
    int count = 0;
    for (unsigned message : messages) count += message == kInPlaceDataChanged ? 1 : 0;
    return count;
  }

  std::vector<unsigned> messages;
  std::vector<int> keys;
  std::function<void()> onDataChanged;
};

class EditorHost : public wxDialog {
public:
  EditorHost() : wxDialog(nullptr, wxID_ANY, "Properties", wxPoint(60, 60), wxSize(420, 300)) {
    owner = new EditorOwner(this);
    auto * ok = new wxButton(this, wxID_OK, "OK", wxPoint(300, 230));
    ok->SetDefault();
    SetDefaultItem(ok);
    Bind(wxEVT_BUTTON, [this](wxCommandEvent & event) { buttons.push_back(event.GetId()); });
  }

  EditorOwner * owner;
  std::vector<int> buttons;  // OK or Cancel as the dialog saw them
};

// Whether a click on the middle of `window` reaches it: GTK lays out a
// child made after its window was shown in a pass of its own, and until
// then places it elsewhere than wx does.
inline bool IsReady(wxWindow & window) {
  return IsClickable(window) && window.GetScreenRect().Contains(ScreenCentre(window));
}
