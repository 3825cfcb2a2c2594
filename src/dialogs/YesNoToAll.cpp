#include "dialogs/YesNoToAll.h"

#include <wx/button.h>

#include "dialogs/ButtonRow.h"
#include "dialogs/WrappedText.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"

YesNoToAll::YesNoToAll(wxWindow * parent, bool yesFirst)
    : VxDialog(kTemplate, parent, static_cast<unsigned int>(-1)), mYesFirst(yesFirst) {
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Answer(kToAllId); }, kToAllId);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Answer(kLastId); }, kLastId);
}

int YesNoToAll::NewDoModal(wchar_t const * text, wchar_t const * caption) {
  mText = text != nullptr ? text : L"";
  mCaption = caption != nullptr ? caption : L"";
  return DoModal();
}

bool YesNoToAll::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  if (!mCaption.empty()) SetTitle(mCaption);
  wxString const yes = vx3::Tr("Yes button", "Yes");
  wxString const no = vx3::Tr("No button", "No");
  GetDlgItem(kFirstId)->SetLabel(mYesFirst ? yes : no);
  GetDlgItem(kToAllId)->SetLabel(mYesFirst ? vx3::Tr("Yes to all button", "Yes to All")
                                           : vx3::Tr("No to All button", "No to All"));
  GetDlgItem(kLastId)->SetLabel(mYesFirst ? no : yes);
  if (wxWindow * cancel = GetDlgItem(IDCANCEL)) cancel->Hide();
  int const rowLeft = PackButtonRowRight(*this, {kFirstId, kToAllId, kLastId, IDCANCEL});
  AddAnchor(kTextId, TOP_LEFT, BOTTOM_RIGHT);
  for (int id : {kFirstId, kToAllId, kLastId}) AddAnchor(id, BOTTOM_RIGHT);
  WidenForButtonRow(*this, rowLeft, FromDIP(12));
  ShowWrappedText(*this, kTextId, mText);
  return result;
}

void YesNoToAll::OnOK() { Answer(kFirstId); }

void YesNoToAll::Answer(int clickedId) {
  // The value names the answer; which button carried it depends on the order.
  int const yes = clickedId == kFirstId ? kYes : clickedId == kToAllId ? kYesToAll : kNo;
  int const no = clickedId == kFirstId ? kNo : clickedId == kToAllId ? kNoToAll : kYes;
  EndDialog(mYesFirst ? yes : no);
}
