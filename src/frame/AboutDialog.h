#pragma once
// The application's about dialog: its picture, name, version and build,
// two notices in one common font, a button for details (shown only when
// details were given; they open in the details dialog) and one for the
// maker's page (AboutKarvinelDialog).
//
// The maker's page shows the markup given with SetAboutCompany, else the
// customization package's "about_us.xaml" with its icons, else the
// library's own page.

#include <optional>

#include <wx/string.h>

#include "dialogs/VxDialog.h"
#include "frame/VxImageManager.h"

class wxCommandEvent;

class AboutDialog : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 13097;
  static constexpr int kFirstNoticeId = 13047;
  static constexpr int kSecondNoticeId = 13353;
  static constexpr int kDetailsButtonId = 13053;
  static constexpr int kCompanyButtonId = 13054;
  static constexpr int kPictureId = 13049;
  static constexpr int kNameId = 13050;
  static constexpr int kVersionId = 13051;

  // `appName` null: the application's name. `bitmapId`: a bitmap resource;
  // none shows no picture.
  AboutDialog(wxWindow * parent, char const * appName, unsigned int bitmapId);
  // With the two notices (null: the library's own) and whether the maker's
  // button shows.
  AboutDialog(wxWindow * parent, char const * appName, unsigned int bitmapId,
              wchar_t const * firstNotice, wchar_t const * secondNotice, bool companyButton);

  // The maker's button: its label (null: "About Us..."), the markup of its
  // page and the icons the markup names (copied; may be null).
  void SetAboutCompany(wchar_t const * caption, wchar_t const * markup,
                       VxImageManager const * images);
  void SetDetailsButtonText(wchar_t const * text);
  void SetDetailsText(wchar_t const * text);

  wxString GetTitleText() const;

  void OnDetailsButton(wxCommandEvent & event);
  void OnAboutKarvinButton(wxCommandEvent & event);

protected:
  bool OnInitDialog() override;
  // Notices and texts in the window colours, as the body of the dialog.
  void OnCtlColor();

private:
  wxString mAppName;
  unsigned int mBitmapId;
  wxString mFirstNotice;
  wxString mSecondNotice;
  bool mCompanyButton;
  wxString mDetailsButtonText;
  wxString mDetailsText;
  wxString mCompanyCaption;
  std::optional<std::wstring> mCompanyMarkup;
  std::optional<VxImageManager> mCompanyImages;
};
