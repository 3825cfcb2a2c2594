#pragma once
// What a test reads off a message box on screen: the places of its controls
// and the measures the box computed with. Sizes are compared with each
// other, never with fixed pixels: fonts differ between machines.

#include <map>

#include <wx/button.h>
#include <wx/display.h>
#include <wx/textctrl.h>

#include "dialogs/CustomMessageBoxDlg.h"
#include "platform/WinUser.h"

struct MessageBoxProbe {
  std::map<int, wxRect> shown;  // control id -> rectangle, shown controls only
  wxString buttonLabel[10];
  wxSize client;
  wxSize window;
  wxSize minimum;
  wxRect screen;  // on screen, frame included
  wxRect workArea;
  int gap = 0;           // X(4)
  int marginX = 0;       // X(6)
  int x8 = 0;            // X(8)
  bool scrolls = false;  // the text sits in a text view
  wxString textShown;
  int focus = 0;  // id of the control with the keyboard focus

  static MessageBoxProbe Of(wxDialog & dialog) {
    auto & box = dynamic_cast<CustomMessageBoxDlg &>(dialog);
    MessageBoxProbe probe;
    for (int id : {IDOK, IDCANCEL, IDYES, IDNO, IDHELP, CustomMessageBoxDlg::kCheckBoxId,
                   CustomMessageBoxDlg::kIconId, CustomMessageBoxDlg::kTextId}) {
      wxWindow * control = box.FindWindow(id);
      if (control != nullptr && control->IsShown()) probe.shown[id] = control->GetRect();
      if (id < 10 && control != nullptr) probe.buttonLabel[id] = control->GetLabel();
    }
    probe.client = box.GetClientSize();
    probe.window = box.GetSize();
    probe.minimum = box.GetMinSize();
    probe.screen = box.GetScreenRect();
    int display = wxDisplay::GetFromWindow(&box);
    probe.workArea = wxDisplay(display == wxNOT_FOUND ? 0u : unsigned(display)).GetClientArea();
    wxWindow * focused = wxWindow::FindFocus();
    probe.focus = focused != nullptr ? focused->GetId() : 0;
    probe.gap = box.FromDlgX(4);
    probe.marginX = box.FromDlgX(6);
    probe.x8 = box.FromDlgX(8);
    wxWindow * text = box.FindWindow(CustomMessageBoxDlg::kTextId);
    if (auto * view = dynamic_cast<wxTextCtrl *>(text)) {
      probe.scrolls = true;
      probe.textShown = view->GetValue();
    } else if (auto * label = dynamic_cast<wxControl *>(text)) {
      probe.textShown = label->GetLabelText();
    }
    return probe;
  }

  bool Shows(int id) const { return shown.count(id) != 0; }
  wxRect const & Rect(int id) const { return shown.at(id); }
};
