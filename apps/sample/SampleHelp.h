#pragma once
// The sample's help: Help > Contents, Index, Search and "Help on runs" (a
// topic by its number) in the help window, and a dialog whose controls show
// pop-up help on F1. The help file, SampleHelp.chm, is built with the sample
// from help/ and lies beside the executable (kSampleHelpFile, HelpPane.h).

#include <wx/dialog.h>

class wxFrame;
class wxMenu;

// The topic number of "Runs" in the help file's map.
constexpr int kRunsHelpTopic = 1001;

// A dialog of three fields, each with its pop-up text (help/pages/popups.txt).
class PopupHelpDialog : public wxDialog {
public:
  enum Field { kRunNameField = 5101, kInstrumentField, kPointsField };
  // The context help numbers of the fields, as popups.txt numbers them.
  enum Popup { kRunNamePopup = 5001, kInstrumentPopup, kPointsPopup };

  explicit PopupHelpDialog(wxWindow * parent);
};

// Sets the help file and appends the help commands to `menu`; `frame`
// handles them.
void AddHelpCommands(wxMenu & menu, wxFrame & frame);
