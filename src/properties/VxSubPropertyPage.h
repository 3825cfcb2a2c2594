#pragma once
// An inner page shown by a VxSubHandlerPropertyPage over a frame of its
// own template: a page of its own (template, controls, data exchange) whose
// changes count as the outer page's, and whose OK and Cancel end the sheet.

#include "properties/VxPropertyPage.h"

class VxSubPropertyPage : public VxPropertyPage {
public:
  explicit VxSubPropertyPage(unsigned templateId) : VxPropertyPage(templateId) {}

  // Marks this page and, while it is shown in one, the outer page.
  void Changed() override;
  void Unchanged() override;
  bool IsChanged() const override { return mSubChanged; }
  // End the sheet of the outer page with IDOK or IDCANCEL.
  void OnOK() override;
  void OnCancel() override;
  // The outer page applies; an inner page has nothing of its own to do.
  bool OnApply() override { return true; }

  VxPropertyPage * GetOuterPage() const { return mOuter; }

private:
  friend class VxSubHandlerPropertyPage;
  void EndSheet(int result);

  VxPropertyPage * mOuter = nullptr;
  bool mSubChanged = false;
};
