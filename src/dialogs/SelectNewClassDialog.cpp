#include "dialogs/SelectNewClassDialog.h"

#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/stattext.h>

#include "platform/WinUser.h"
#include "utl/Translation.h"
#include "utl/VxString.h"

using vx3::Tr;

SelectNewClassDialog::SelectNewClassDialog(std::vector<wxString> const & names, bool phases,
                                           wxWindow * parent)
    : VxDialog(16003, parent, static_cast<unsigned>(-1)), mNames(names), mPhases(phases) {}

wxString SelectNewClassDialog::DefaultClassName(std::vector<wxString> const & names) {
  long long highest = 0;
  for (wxString const & name : names) {
    int value = 0;
    if (VxString::ToInt(name.wc_str(), value) && value > highest) highest = value;
  }
  return wxString::Format("%lld", highest + 1);
}

bool SelectNewClassDialog::OnInitDialog() {
  auto * prompt = wxDynamicCast(GetDlgItem(kPrompt), wxStaticText);
  auto * note = wxDynamicCast(GetDlgItem(kNote), wxStaticText);
  auto * classes = wxDynamicCast(GetDlgItem(kClasses), wxComboBox);
  auto * phases = wxDynamicCast(GetDlgItem(kPhases), wxChoice);
  if (prompt == nullptr || note == nullptr || classes == nullptr || phases == nullptr) return false;
  if (mPhases) {
    prompt->SetLabel(Tr("Batch Phase", "Phase:"));
    note->SetLabel(Tr("Select an existing phase."));
    classes->Hide();
    for (wxString const & name : mNames) phases->Append(name);
    if (!mNames.empty()) phases->SetSelection(0);
    phases->SetFocus();
  } else {
    prompt->SetLabel(Tr("Model Class", "Class:"));
    note->SetLabel(Tr("Select an existing class or enter a new name."));
    phases->Hide();
    classes->Append(Tr("Model Class", "No class"));
    for (wxString const & name : mNames) classes->Append(name);
    classes->SetValue(DefaultClassName(mNames));
    classes->SelectAll();
    classes->SetFocus();
  }
  AddAnchor(kClasses, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kPhases, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kNote, TOP_LEFT, TOP_RIGHT);
  AddAnchor(IDOK, BOTTOM_RIGHT);
  AddAnchor(IDCANCEL, BOTTOM_RIGHT);
  return true;
}

void SelectNewClassDialog::OnOK() {
  if (mPhases) {
    auto * phases = wxDynamicCast(GetDlgItem(kPhases), wxChoice);
    mSelected = phases != nullptr ? phases->GetStringSelection() : wxString();
  } else {
    auto * classes = wxDynamicCast(GetDlgItem(kClasses), wxComboBox);
    mSelected = classes != nullptr ? classes->GetValue() : wxString();
  }
  EndDialog(IDOK);
}
