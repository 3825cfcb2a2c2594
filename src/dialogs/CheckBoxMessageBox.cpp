#include "dialogs/CheckBoxMessageBox.h"

#include "dialogs/CustomMessageBoxDlg.h"

int64_t CheckBoxMessageBox(wchar_t const * text, bool & checked, unsigned int type,
                           wchar_t const * checkText, unsigned int helpTopic, wxWindow * parent) {
  CustomMessageBoxDlg box(type, helpTopic, parent);
  box.SetText(text != nullptr ? text : L"");
  if (checkText != nullptr && *checkText != L'\0') box.SetCheckText(checkText);
  box.ShowCheckBox(true);
  box.SetCheckState(checked ? 1 : 0);
  int const result = box.DoModal();
  if (result != IDCANCEL) checked = box.GetCheckState() != 0;
  return result;
}
