#include "dialogs/YesYesToAllCancelDialog.h"

#include <algorithm>

#include "dialogs/ButtonRow.h"
#include "dialogs/WrappedText.h"
#include "platform/WinUser.h"

namespace {

// The caller's label may be longer than the template's button.
void SetLabelAndWiden(wxWindow & button, wxString const & label) {
  button.SetLabel(label);
  int const width = std::max(button.GetSize().x, button.GetBestSize().x);
  button.SetSize(width, button.GetSize().y);
}

}  // namespace

YesYesToAllCancelDialog::YesYesToAllCancelDialog(wxWindow * parent)
    : VxDialog(kTemplate, parent, static_cast<unsigned int>(-1)) {
  Bind(
      wxEVT_BUTTON,
      [this](wxCommandEvent &) {
        mYesToAllClicked = true;
        OnOK();
      },
      kYesToAllId);
  Bind(
      wxEVT_BUTTON,
      [this](wxCommandEvent &) {
        mSpecialClicked = true;
        EndDialog(kSpecialId);
      },
      kSpecialId);
}

int YesYesToAllCancelDialog::NewDoModal(wchar_t const * text, wchar_t const * caption,
                                        wchar_t const * specialText) {
  mYesToAllClicked = false;
  mText = text != nullptr ? text : L"";
  mCaption = caption != nullptr ? caption : L"";
  mSpecialText = specialText != nullptr ? specialText : L"";
  return DoModal();
}

bool YesYesToAllCancelDialog::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  if (wxWindow * special = GetDlgItem(kSpecialId)) {
    if (mSpecialText.empty())
      special->Hide();
    else
      SetLabelAndWiden(*special, mSpecialText);
  }
  if (!mCaption.empty()) SetTitle(mCaption);
  int const rowLeft = PackButtonRowRight(*this, {IDOK, kYesToAllId, kSpecialId, IDCANCEL});
  AddAnchor(kTextId, TOP_LEFT, BOTTOM_RIGHT);
  for (int id : {IDOK, kYesToAllId, kSpecialId, IDCANCEL}) AddAnchor(id, BOTTOM_RIGHT);
  WidenForButtonRow(*this, rowLeft, FromDIP(12));
  ShowWrappedText(*this, kTextId, mText);
  return result;
}
