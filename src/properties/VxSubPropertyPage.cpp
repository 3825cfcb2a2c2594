#include "properties/VxSubPropertyPage.h"

#include "platform/WinUser.h"
#include "properties/VxPropertySheet.h"

void VxSubPropertyPage::Changed() {
  mSubChanged = true;
  if (mOuter != nullptr && GetSafeHwnd() != nullptr) mOuter->Changed();
}

void VxSubPropertyPage::Unchanged() {
  mSubChanged = false;
  if (mOuter != nullptr && GetSafeHwnd() != nullptr) mOuter->Unchanged();
}

void VxSubPropertyPage::OnOK() { EndSheet(IDOK); }

void VxSubPropertyPage::OnCancel() { EndSheet(IDCANCEL); }

void VxSubPropertyPage::EndSheet(int result) {
  VxPropertySheet * sheet = mOuter != nullptr ? mOuter->GetSheet() : nullptr;
  if (sheet == nullptr) return;
  if (result == IDOK)
    sheet->OnOK();
  else
    sheet->OnCancel();
}
