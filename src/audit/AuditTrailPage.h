#pragma once
// The property page that turns audit-trail logging on and off for a trail
// (template 13419, help topic 14). Without a trail it shows the settings
// that hold for everyone (the administrator's policy) and changes nothing.

#include "properties/VxPropertyPage.h"

class AuditTrail;

class AuditTrailPage : public VxPropertyPage {
  wxDECLARE_DYNAMIC_CLASS(AuditTrailPage);

public:
  enum Control : int {
    kClear = 13415,
    kPrompt = 13416,
    kLogEvents = 13417,
    kSave = 13418,
    kPromptText = 13032,
  };
  static constexpr unsigned kTemplate = 13419;
  static constexpr unsigned kHelpTopic = 14;

  AuditTrailPage() : AuditTrailPage(nullptr, false) {}
  // `trail` is not owned and may be null.
  AuditTrailPage(AuditTrail * trail, bool hideExtendedInfo);

  // Applied at least once.
  bool IsDirty() const { return mDirty; }
  // A locked page shows the settings but does not change them.
  void LockPage(bool locked) { mLocked = locked; }

  bool OnInitDialog() override;
  bool OnApply() override;

private:
  bool IsChecked(int id) const;
  void Enable(int id, bool enable) const;

  AuditTrail * mTrail;
  bool mLocked = false;
  bool mDirty = false;
  bool mHideExtendedInfo;
};
