#include "frame/FatalErrorDialog.h"

#include "dialogs/DialogTitle.h"
#include "dialogs/ScrollingText.h"
#include "platform/WinUser.h"

FatalErrorDialog::FatalErrorDialog(wchar_t const * text, wchar_t const * caption, wxWindow * parent,
                                   bool informationOnly)
    : VxDialog(kTemplate, parent, static_cast<unsigned int>(-1)),
      mText(WithCrLfLineEnds(text)),
      mCaption(caption != nullptr ? caption : L""),
      mInformationOnly(informationOnly) {}

bool FatalErrorDialog::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  SetTitle(TitleOrApplicationName(mCaption));
  if (mInformationOnly)
    if (wxWindow * icon = GetDlgItem(kIconId)) icon->Hide();
  AddAnchor(kTextId, TOP_LEFT, BOTTOM_RIGHT);
  AddAnchor(kIconId, BOTTOM_LEFT);
  AddAnchor(IDOK, BOTTOM_RIGHT);
  // Enter answers at once, and no caret blinks in the read-only text.
  if (wxWindow * ok = GetDlgItem(IDOK)) ok->SetFocus();
  return result;
}

bool FatalErrorDialog::DoDataExchange(bool saveAndValidate) {
  if (saveAndValidate) return true;  // the text only shows
  ShowScrollingText(GetDlgItem(kTextId), mText);
  return true;
}
