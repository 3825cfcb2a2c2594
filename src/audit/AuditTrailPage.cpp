#include "audit/AuditTrailPage.h"

#include <memory>

#include <wx/checkbox.h>

#include "audit/AuditTrailSettingsUI.h"
#include "utl/AuditTrail.h"
#include "utl/AuditTrailSettings.h"

wxIMPLEMENT_DYNAMIC_CLASS(AuditTrailPage, VxPropertyPage);

AuditTrailPage::AuditTrailPage(AuditTrail * trail, bool hideExtendedInfo)
    : VxPropertyPage(kTemplate, 0, nullptr, kHelpTopic),
      mTrail(trail),
      mHideExtendedInfo(hideExtendedInfo) {
  Bind(
      wxEVT_CHECKBOX, [this](wxCommandEvent &) { Changed(); }, kLogEvents);
  Bind(
      wxEVT_CHECKBOX, [this](wxCommandEvent &) { Changed(); }, kPrompt);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { AuditTrailSettingsUI::ClearAuditTrail(mTrail); },
      kClear);
  Bind(
      wxEVT_BUTTON,
      [this](wxCommandEvent &) { AuditTrailSettingsUI::AuditTrailViewSaveAsDialog(mTrail); },
      kSave);
}

bool AuditTrailPage::IsChecked(int id) const {
  auto const * box = dynamic_cast<wxCheckBox *>(GetDlgItem(id));
  return box != nullptr && box->GetValue();
}

void AuditTrailPage::Enable(int id, bool enable) const {
  if (wxWindow * control = GetDlgItem(id)) control->Enable(enable);
}

bool AuditTrailPage::OnInitDialog() {
  bool const result = VxPropertyPage::OnInitDialog();
  AuditTrailSettings const * settings = nullptr;
  std::unique_ptr<AuditTrailSettings> global;
  if (mTrail != nullptr) {
    settings = &mTrail->mSettings;
    if (mLocked || settings->mLocked) {
      Enable(kLogEvents, false);
      Enable(kPrompt, false);
    }
  } else {
    // What holds for everyone: shown, not changed.
    global =
        std::make_unique<AuditTrailSettings>(AuditTrailSettingsUI::GetGlobalAuditTrailSettings());
    global->Load();
    settings = global.get();
    for (int const id : {kClear, kPrompt, kLogEvents, kSave}) Enable(id, false);
  }
  if (auto * box = dynamic_cast<wxCheckBox *>(GetDlgItem(kLogEvents)))
    box->SetValue(settings->mLogLevel >= 1);
  if (auto * box = dynamic_cast<wxCheckBox *>(GetDlgItem(kPrompt)))
    box->SetValue(settings->mPromptForExtendedUserInfo);
  if (mHideExtendedInfo) {
    for (int const id : {kPrompt, kPromptText})
      if (wxWindow * control = GetDlgItem(id)) control->Hide();
  }
  return result;
}

bool AuditTrailPage::OnApply() {
  if (IsChanged() && mTrail != nullptr) {
    mDirty = true;
    AuditTrailSettingsUI::SetAuditTrailLogLevel(mTrail, IsChecked(kLogEvents) ? 1 : 0,
                                                IsChecked(kPrompt));
  }
  return VxPropertyPage::OnApply();
}
