#include "InstrumentsDialog.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <memory>

#include "SampleCommands.h"
#include "lists/CheckComboBox.h"
#include "utl/Translation.h"

namespace {

// Shown for reference, never chosen: runs are weighed on it by hand.
constexpr int kReferenceBalance = 5;

}  // namespace

std::vector<char const *> const & SampleInstrumentNames() {
  static std::vector<char const *> const names = {
      "Balance", "pH meter", "Spectrometer", "Chromatograph", "Thermometer", "Reference balance"};
  return names;
}

InstrumentsDialog::InstrumentsDialog(wxWindow * parent, std::vector<int> const & checked)
    : wxDialog(parent, wxID_ANY, vx3::Tr("Instruments")) {
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(new wxStaticText(this, wxID_ANY, vx3::Tr("Runs measured on:")), 0,
             wxLEFT | wxRIGHT | wxTOP, 12);
  mCombo = new CheckComboBox(this, wxID_ANY, wxDefaultPosition, wxSize(260, -1));
  for (char const * name : SampleInstrumentNames())
    mCombo->Append(wxString::FromUTF8(name));  // instrument names stay untranslated
  mCombo->SetNoSelectionString(vx3::Tr("No instrument"));
  mCombo->SetDisabled(kReferenceBalance, true);
  mCombo->EnableAllClear(false);  // a run list without any instrument shows nothing
  for (int index : checked) mCombo->SetCheck(index, true);
  sizer->Add(mCombo, 0, wxEXPAND | wxALL, 12);
  sizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxEXPAND | wxALL, 12);
  SetSizerAndFit(sizer);
}

std::vector<int> InstrumentsDialog::GetChecked() const {
  std::vector<int> checked;
  for (int index = 0; index < static_cast<int>(mCombo->GetCount()); ++index)
    if (mCombo->GetCheck(index)) checked.push_back(index);
  return checked;
}

void AddInstrumentsCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kInstrumentsCommand, vx3::Tr("Menu command", "&Instruments..."));
  auto const checked = std::make_shared<std::vector<int>>(std::vector<int>{0});
  frame.Bind(
      wxEVT_MENU,
      [&frame, checked](wxCommandEvent &) {
        InstrumentsDialog dialog(&frame, *checked);
        if (dialog.ShowModal() != wxID_OK) return;
        *checked = dialog.GetChecked();
        wxString text = vx3::Tr("Instruments: %1%");
        text.Replace("%1%", dialog.GetCombo().GetValue());
        frame.SetStatusText(text);
      },
      kInstrumentsCommand);
}
