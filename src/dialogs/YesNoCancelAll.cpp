#include "dialogs/YesNoCancelAll.h"

#include <wx/button.h>
#include <wx/stattext.h>

#include "dialogs/ButtonRow.h"
#include "dialogs/DialogTitle.h"
#include "dialogs/ScrollingText.h"

int YesNoCancelAll::ControlId(ButtonPressed button) {
  switch (button) {
    case Yes: return kYesId;
    case No: return kNoId;
    case YesToAll: return kYesToAllId;
    case NoToAll: return kNoToAllId;
    case Cancel: return kCancelId;
    default: return 0;
  }
}

YesNoCancelAll::YesNoCancelAll(wchar_t const * header, wchar_t const * text,
                               wchar_t const * caption, ButtonPressed defaultButton,
                               wxWindow * parent, bool yes, bool yesToAll, bool no, bool noToAll,
                               bool cancel)
    : VxDialog(kTemplate, parent, static_cast<unsigned int>(-1)),
      mHeader(header != nullptr ? header : L""),
      mText(WithCrLfLineEnds(text)),
      mCaption(caption != nullptr ? caption : L""),
      mDefaultButton(defaultButton),
      mShowYes(yes),
      mShowYesToAll(yesToAll),
      mShowNo(no),
      mShowNoToAll(noToAll),
      mShowCancel(cancel) {
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Press(Yes); }, kYesId);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Press(No); }, kNoId);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Press(YesToAll); }, kYesToAllId);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Press(NoToAll); }, kNoToAllId);
}

int YesNoCancelAll::DoModal(wchar_t const * header, wchar_t const * text, wchar_t const * caption,
                            ButtonPressed defaultButton) {
  if (header != nullptr) mHeader = header;
  if (text != nullptr) mText = WithCrLfLineEnds(text);
  if (caption != nullptr) mCaption = caption;
  if (defaultButton != None) mDefaultButton = defaultButton;
  mResult = Cancel;
  return VxDialog::DoModal();
}

bool YesNoCancelAll::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  SetTitle(TitleOrApplicationName(mCaption));
  if (auto * button = wxDynamicCast(GetDlgItem(ControlId(mDefaultButton)), wxButton)) {
    button->SetDefault();
    button->SetFocus();
  }
  bool const shown[] = {mShowYes, mShowNo, mShowYesToAll, mShowNoToAll, mShowCancel};
  for (int button = Yes; button <= Cancel; ++button)
    if (wxWindow * control = GetDlgItem(ControlId(static_cast<ButtonPressed>(button))))
      control->Show(shown[button]);
  int const rowLeft =
      PackButtonRowRight(*this, {kYesId, kYesToAllId, kNoId, kNoToAllId, kCancelId});

  AddAnchor(kHeaderId, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kTextId, TOP_LEFT, TOP_RIGHT);
  for (int id : {kYesId, kYesToAllId, kNoId, kNoToAllId, kCancelId}) AddAnchor(id, BOTTOM_RIGHT);
  WidenForButtonRow(*this, rowLeft, FromDIP(12));
  return result;
}

bool YesNoCancelAll::DoDataExchange(bool saveAndValidate) {
  // Both controls only show: there is nothing to read back.
  if (saveAndValidate) return true;
  if (auto * header = wxDynamicCast(GetDlgItem(kHeaderId), wxStaticText))
    header->SetLabelText(mHeader);
  ShowScrollingText(GetDlgItem(kTextId), mText);
  return true;
}

void YesNoCancelAll::Press(ButtonPressed button) {
  mResult = button;
  OnOK();
}

void YesNoCancelAll::OnCancel() {
  mResult = Cancel;
  VxDialog::OnCancel();
}
