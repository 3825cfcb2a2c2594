#include "controls/VxSplash2013.h"

#include <wx/fontenum.h>
#include <wx/settings.h>

#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

constexpr int kMargin = 24;
constexpr COLORREF kTextColor = RGB(0x33, 0x33, 0x3A);
constexpr COLORREF kRightsColor = RGB(0x5C, 0x5C, 0x66);

}  // namespace

VxSplash2013::VxSplash2013() {
  InitFonts();
  InitSplashScreenText();
}

wxString VxSplash2013::ChooseFace(std::function<bool(wxString const &)> const & hasFace,
                                  wxString const & fallback) {
  for (char const * face : {"Segoe UI", "Arial"})
    if (hasFace(face)) return face;
  return fallback;
}

void VxSplash2013::InitFonts() {
  wxString const face =
      ChooseFace([](wxString const & name) { return wxFontEnumerator::IsValidFacename(name); },
                 wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetFaceName());
  std::wstring const & name = face.ToStdWstring();
  InitFont(mNameFont, name.c_str(), 9, 1);
  InitFont(mVersionFont, name.c_str(), 9, 0);
  InitFont(mRightsFont, name.c_str(), 7, 0);
}

void VxSplash2013::SetSpecialVersion(std::wstring const & special) {
  mSpecialVersion = special;
  InitSplashScreenText();
}

void VxSplash2013::OnPictureChanged() { InitSplashScreenText(); }

// Along the bottom of the picture, left to right: the application's name
// and version, then two rights lines in the smaller font.
void VxSplash2013::InitSplashScreenText() {
  std::wstring version =
      vx3::Tr("Version ").ToStdWstring() +
      wxString::FromUTF8(VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionDisplay))
          .ToStdWstring();
  if (!mSpecialVersion.empty()) version += L" " + mSpecialVersion;

  int const width = GetPictureWidth() - 2 * kMargin;
  int const bottom = GetPictureHeight() - kMargin;
  unsigned const format = DT_LEFT | DT_SINGLELINE | DT_END_ELLIPSIS;
  mTextLines.clear();
  mTextLines.push_back({wxString::FromUTF8(VxSystemInfo::GetApplicationName()).ToStdWstring(),
                        &mNameFont, wxRect(kMargin, bottom - 78, width, 18), format, kTextColor});
  mTextLines.push_back(
      {version, &mVersionFont, wxRect(kMargin, bottom - 60, width, 18), format, kTextColor});
  mTextLines.push_back({vx3::Tr("Copyright \u00A9 Karvinel. All rights reserved.").ToStdWstring(),
                        &mRightsFont, wxRect(kMargin, bottom - 32, width, 14), format,
                        kRightsColor});
  mTextLines.push_back(
      {vx3::Tr("This program is protected by copyright law and international treaties.")
           .ToStdWstring(),
       &mRightsFont, wxRect(kMargin, bottom - 16, width, 14), format, kRightsColor});
}
