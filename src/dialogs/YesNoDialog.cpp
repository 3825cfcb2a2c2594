#include "dialogs/YesNoDialog.h"

#include <wx/stattext.h>

#include "dialogs/DialogTitle.h"
#include "dialogs/ScrollingText.h"
#include "platform/WinUser.h"

YesNoDialog::YesNoDialog(wchar_t const * header, wchar_t const * text, wchar_t const * caption,
                         int defaultAnswer, wxWindow * parent)
    : VxDialog(kTemplate, parent, static_cast<unsigned int>(-1)),
      mText(WithCrLfLineEnds(text)),
      mHeader(header != nullptr ? header : L""),
      mCaption(caption != nullptr ? caption : L""),
      mDefaultAnswer(defaultAnswer) {}

bool YesNoDialog::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  SetTitle(TitleOrApplicationName(mCaption));
  AddAnchor(kHeaderId, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kTextId, TOP_LEFT, BOTTOM_RIGHT);
  AddAnchor(IDOK, BOTTOM_RIGHT);
  // Enter answers at once, and no caret blinks in the read-only text.
  if (wxWindow * ok = GetDlgItem(IDOK)) ok->SetFocus();
  AddAnchor(IDCANCEL, BOTTOM_RIGHT);
  return result;
}

bool YesNoDialog::DoDataExchange(bool saveAndValidate) {
  if (saveAndValidate) return true;  // the controls only show
  if (auto * header = wxDynamicCast(GetDlgItem(kHeaderId), wxStaticText))
    header->SetLabelText(mHeader);
  ShowScrollingText(GetDlgItem(kTextId), mText);
  return true;
}
