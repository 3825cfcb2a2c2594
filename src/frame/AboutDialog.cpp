#include "frame/AboutDialog.h"

#include <wx/button.h>
#include <wx/settings.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "controls/WrapToWidth.h"
#include "dialogs/DetailsDialog.h"
#include "frame/AboutKarvinelDialog.h"
#include "frame/VxAppCustomization.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

namespace {

wxString FromWide(wchar_t const * text) { return text != nullptr ? wxString(text) : wxString(); }

// A native button rebuilds its label on every change, even to the same text.
void SetLabelIfNew(wxWindow & button, wxString const & label) {
  if (button.GetLabel() != label) button.SetLabel(label);
}

}  // namespace

AboutDialog::AboutDialog(wxWindow * parent, char const * appName, unsigned int bitmapId)
    : AboutDialog(parent, appName, bitmapId, nullptr, nullptr, true) {}

AboutDialog::AboutDialog(wxWindow * parent, char const * appName, unsigned int bitmapId,
                         wchar_t const * firstNotice, wchar_t const * secondNotice,
                         bool companyButton)
    : VxDialog(kTemplate, parent),
      mAppName(wxString::FromUTF8(appName != nullptr ? appName
                                                     : VxSystemInfo::GetApplicationName().c_str())),
      mBitmapId(bitmapId),
      mFirstNotice(FromWide(firstNotice)),
      mSecondNotice(FromWide(secondNotice)),
      mCompanyButton(companyButton) {}

void AboutDialog::SetAboutCompany(wchar_t const * caption, wchar_t const * markup,
                                  VxImageManager const * images) {
  mCompanyCaption = FromWide(caption);
  mCompanyMarkup.reset();
  if (markup != nullptr) mCompanyMarkup = std::wstring(markup);
  mCompanyImages.reset();
  if (images != nullptr) mCompanyImages = *images;
}

void AboutDialog::SetDetailsButtonText(wchar_t const * text) {
  mDetailsButtonText = FromWide(text);
}

void AboutDialog::SetDetailsText(wchar_t const * text) { mDetailsText = FromWide(text); }

wxString AboutDialog::GetTitleText() const {
  wxString title = vx3::Tr("About application", "About %1%");
  title.Replace("%1%", mAppName);
  return title;
}

bool AboutDialog::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  SetTitle(GetTitleText());

  if (auto * picture = dynamic_cast<wxStaticBitmap *>(GetDlgItem(kPictureId))) {
    wxBitmap const bitmap = LoadResourceBitmap(mBitmapId);
    if (bitmap.IsOk())
      picture->SetBitmap(bitmap);
    else
      picture->Hide();
  }
  // The texts keep the places and sizes of the template: measuring a text
  // again for each new font or label costs the opening more than it shows.
  // The dialog's font is the desktop's GUI font; asking a control for it
  // would build a throw-away widget to read its style.
  wxFont const dialogFont = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  if (auto * name = dynamic_cast<wxStaticText *>(GetDlgItem(kNameId))) {
    name->SetWindowStyleFlag(name->GetWindowStyleFlag() | wxST_NO_AUTORESIZE);
    name->SetLabelText(mAppName);
    name->SetFont(dialogFont.Bold().Scaled(1.3F));
  }
  if (auto * version = dynamic_cast<wxStaticText *>(GetDlgItem(kVersionId))) {
    version->SetWindowStyleFlag(version->GetWindowStyleFlag() | wxST_NO_AUTORESIZE);
    wxString text = vx3::Tr("Version %1%");
    text.Replace("%1%", wxString::FromUTF8(VxSystemInfo::GetApplicationVersionAndBuild()));
    version->SetLabelText(text);
  }

  // The two notices share one font, a little smaller than the dialog's.
  wxFont const noticeFont = dialogFont.Scaled(0.9F);
  struct Notice {
    int id;
    wxString text;
  } const notices[] = {
      {kFirstNoticeId, !mFirstNotice.empty()
                           ? mFirstNotice
                           : vx3::Tr("Copyright \u00a9 Karvinel. All rights reserved.")},
      {kSecondNoticeId,
       !mSecondNotice.empty()
           ? mSecondNotice
           : vx3::Tr("This program is protected by copyright law. Copying or passing on this "
                     "program, or any part of it, without permission is not allowed.")},
  };
  for (Notice const & notice : notices) {
    auto * text = dynamic_cast<wxStaticText *>(GetDlgItem(notice.id));
    if (text == nullptr) continue;
    text->SetWindowStyleFlag(text->GetWindowStyleFlag() | wxST_NO_AUTORESIZE);
    text->SetFont(noticeFont);
    text->SetLabelText(WrapToWidth(notice.text, noticeFont, text->GetSize().GetWidth()));
  }

  if (auto * details = dynamic_cast<wxButton *>(GetDlgItem(kDetailsButtonId))) {
    details->Show(!mDetailsText.empty());
    SetLabelIfNew(*details, mDetailsButtonText.empty() ? vx3::Tr("About application", "&Details...")
                                                       : mDetailsButtonText);
    Bind(wxEVT_BUTTON, &AboutDialog::OnDetailsButton, this, kDetailsButtonId);
  }
  if (auto * company = dynamic_cast<wxButton *>(GetDlgItem(kCompanyButtonId))) {
    company->Show(mCompanyButton);
    SetLabelIfNew(*company, mCompanyCaption.empty() ? vx3::Tr("About company", "About &Us...")
                                                    : mCompanyCaption);
    Bind(wxEVT_BUTTON, &AboutDialog::OnAboutKarvinButton, this, kCompanyButtonId);
  }
  OnCtlColor();
  if (wxWindow * ok = GetDlgItem(IDOK)) ok->SetFocus();
  return result;
}

void AboutDialog::OnCtlColor() {
  // The texts have no window of their own here: they stand on the dialog's
  // background in the window text colour, so the body is the one thing to
  // colour (each colour set on a control costs a style recalculation).
  SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
}

void AboutDialog::OnDetailsButton(wxCommandEvent &) {
  wxString const version = FindWindow(kVersionId) != nullptr
                               ? FindWindow(kVersionId)->GetLabel()
                               : wxString::FromUTF8(VxSystemInfo::GetApplicationVersionAndBuild());
  wxString const text = mAppName + "\n" + version;
  // The class, not the free function: details the user asked for show even
  // while a batch run has muted the details dialogs.
  DetailsDialogClass const shown(this, text.wc_str(), mDetailsText.wc_str(),
                                 GetTitleText().wc_str(), DetailsDialogClass::kIconAsterisk, true);
}

void AboutDialog::OnAboutKarvinButton(wxCommandEvent &) {
  AboutKarvinelDialog company(this);
  if (mCompanyMarkup) {
    company.SetMarkupText(mCompanyMarkup->c_str(), mCompanyImages ? &*mCompanyImages : nullptr);
  } else {
    // The package's page, with its icons for the pictures it names.
    VxAppCustomization * package = VxAppCustomization::Instance();
    std::string const markup = package->GetAboutDialogMarkupSource();
    if (!markup.empty()) company.SetMarkupText(vx3::Utf8ToWide(markup).c_str(), package);
  }
  company.DoModal();
}
