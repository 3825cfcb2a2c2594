#include "RunSettingsSheet.h"

#include <wx/checkbox.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/textctrl.h>

#include "SampleCommands.h"
#include "platform/WinUser.h"
#include "properties/VxPropertyPage.h"
#include "properties/VxPropertySheet.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

constexpr unsigned kGeneralPage = 7100;
constexpr int kNameEdit = 7101;
constexpr int kDescriptionEdit = 7102;
constexpr unsigned kLimitsPage = 7110;
constexpr int kLowerEdit = 7111;
constexpr int kUpperEdit = 7112;
constexpr int kLimitsNote = 7113;
constexpr unsigned kDisplayPage = 7120;
constexpr int kShowRetiredCheck = 7121;
constexpr int kStrikeOutCheck = 7122;
// A sample-only help topic: Help stays disabled until a help viewer exists.
constexpr unsigned kDisplayHelpTopic = 1002;

// What the sheet edits; it outlives the sheet's runs.
struct RunSettings {
  wxString name = "Run 1";
  wxString description;
  double lower = 0;
  double upper = 100;
  bool showRetired = true;
  bool strikeOut = true;
};

RunSettings gSettings;

wxTextCtrl * Edit(VxPropertyPage const & page, int id) {
  return static_cast<wxTextCtrl *>(page.GetDlgItem(id));
}

// Marks the page changed on every edit of its controls.
void TrackChanges(VxPropertyPage & page) {
  page.Bind(wxEVT_TEXT, [&page](wxCommandEvent &) { page.Changed(); });
  page.Bind(wxEVT_CHECKBOX, [&page](wxCommandEvent &) { page.Changed(); });
}

class GeneralPage : public VxPropertyPage {
public:
  GeneralPage() : VxPropertyPage(kGeneralPage) { TrackChanges(*this); }
  bool OnInitDialog() override {
    AddAnchor(kNameEdit, TOP_LEFT, TOP_RIGHT);
    AddAnchor(kDescriptionEdit, TOP_LEFT, BOTTOM_RIGHT);
    return VxPropertyPage::OnInitDialog();
  }
  bool OnSetActive() override {
    if (GetSheet()->IsWizard()) {
      GetSheet()->SetWizardButtons(PSWIZB_NEXT);
      SetWizardCaption(Tr("New run: name and description").wc_str());
    }
    return VxPropertyPage::OnSetActive();
  }
  bool DoDataExchange(bool save) override {
    if (save) {
      mName = Edit(*this, kNameEdit)->GetValue();
      mDescription = Edit(*this, kDescriptionEdit)->GetValue();
    } else {
      Edit(*this, kNameEdit)->ChangeValue(mName);
      Edit(*this, kDescriptionEdit)->ChangeValue(mDescription);
    }
    return true;
  }
  void OnOK() override {
    gSettings.name = mName;
    gSettings.description = mDescription;
  }
  wxString mName = gSettings.name;
  wxString mDescription = gSettings.description;
};

class LimitsPage : public VxPropertyPage {
public:
  LimitsPage() : VxPropertyPage(kLimitsPage) { TrackChanges(*this); }
  bool OnSetActive() override {
    if (GetSheet()->IsWizard()) {
      GetSheet()->SetWizardButtons(PSWIZB_BACK | PSWIZB_NEXT);
      SetWizardCaption(Tr("New run: limits").wc_str());
    }
    return VxPropertyPage::OnSetActive();
  }
  bool DoDataExchange(bool save) override {
    if (save) {
      // A number that does not read stays as it was; the apply says why.
      Edit(*this, kLowerEdit)->GetValue().ToDouble(&mLower);
      Edit(*this, kUpperEdit)->GetValue().ToDouble(&mUpper);
    } else {
      Edit(*this, kLowerEdit)->ChangeValue(wxString::Format("%g", mLower));
      Edit(*this, kUpperEdit)->ChangeValue(wxString::Format("%g", mUpper));
    }
    return true;
  }
  // Refuses limits the wrong way round: the sheet stays open on them.
  bool OnApply() override {
    if (mLower >= mUpper) {
      if (wxWindow * note = GetDlgItem(kLimitsNote)) note->SetForegroundColour(*wxRED);
      GetSheet()->SetActivePage(this);
      return false;
    }
    return VxPropertyPage::OnApply();
  }
  void OnOK() override {
    gSettings.lower = mLower;
    gSettings.upper = mUpper;
  }
  double mLower = gSettings.lower;
  double mUpper = gSettings.upper;
};

class DisplayPage : public VxPropertyPage {
public:
  DisplayPage() : VxPropertyPage(kDisplayPage, 0, nullptr, kDisplayHelpTopic) {
    TrackChanges(*this);
  }
  bool OnSetActive() override {
    if (GetSheet()->IsWizard()) {
      GetSheet()->SetWizardButtons(PSWIZB_BACK | PSWIZB_FINISH);
      SetWizardCaption(Tr("New run: display").wc_str());
    }
    return VxPropertyPage::OnSetActive();
  }
  bool DoDataExchange(bool save) override {
    auto * retired = static_cast<wxCheckBox *>(GetDlgItem(kShowRetiredCheck));
    auto * strike = static_cast<wxCheckBox *>(GetDlgItem(kStrikeOutCheck));
    if (save) {
      mShowRetired = retired->GetValue();
      mStrikeOut = strike->GetValue();
    } else {
      retired->SetValue(mShowRetired);
      strike->SetValue(mStrikeOut);
    }
    return true;
  }
  void OnOK() override {
    gSettings.showRetired = mShowRetired;
    gSettings.strikeOut = mStrikeOut;
  }
  // A wizard applies at Finish.
  bool OnWizardFinish() override {
    return VxPropertyPage::OnWizardFinish() && GetSheet()->ApplyAllNow();
  }
  bool mShowRetired = gSettings.showRetired;
  bool mStrikeOut = gSettings.strikeOut;
};

wxString Summary() {
  return wxString::Format(Tr("Status", "Run settings: %s, limits %g to %g."), gSettings.name,
                          gSettings.lower, gSettings.upper);
}

void RunSheet(wxFrame & frame, bool wizard) {
  GeneralPage general;
  LimitsPage limits;
  DisplayPage display;
  VxPropertySheet sheet(wizard ? Tr("New run").wc_str() : Tr("Run settings").wc_str(), &frame);
  if (wizard) sheet.SetWizardMode();
  sheet.AddPage(&general);
  sheet.AddPage(&limits);
  sheet.AddPage(&display);
  int const result = sheet.DoModal();
  frame.SetStatusText(result == IDCANCEL ? Tr("Status", "Run settings unchanged.") : Summary());
}

}  // namespace

void AddRunSettingsCommands(wxMenu & menu, wxFrame & frame) {
  menu.Append(kRunSettingsCommand, Tr("Menu command", "Run &settings..."));
  menu.Append(kNewRunWizardCommand, Tr("Menu command", "New r&un..."));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { RunSheet(frame, false); }, kRunSettingsCommand);
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { RunSheet(frame, true); }, kNewRunWizardCommand);
}
