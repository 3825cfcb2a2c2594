#pragma once
// The sample's "Instruments" dialog: a check combo of the lab's instruments.
// OK takes the checked ones (the combo's face shows in the status bar);
// the first instrument cannot be left unchecked alone, and the reference
// balance is shown but cannot be chosen.

#include <wx/dialog.h>

#include <vector>

class CheckComboBox;
class wxFrame;
class wxMenu;

// The instruments the sample's runs were measured on.
std::vector<char const *> const & SampleInstrumentNames();

class InstrumentsDialog : public wxDialog {
public:
  // `checked`: the indexes of SampleInstrumentNames() checked at first.
  InstrumentsDialog(wxWindow * parent, std::vector<int> const & checked);

  CheckComboBox & GetCombo() const { return *mCombo; }
  // The indexes checked now.
  std::vector<int> GetChecked() const;

private:
  CheckComboBox * mCombo = nullptr;
};

// Appends the command to `menu`; `frame` handles it, keeps the choice
// between openings and shows it in its status bar.
void AddInstrumentsCommand(wxMenu & menu, wxFrame & frame);
