#include "controls/VxSplash2013.h"

#include <gtk/gtk.h>
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

bool VxSplash2013::HasFace(wxString const & face) {
  if (face.empty()) return false;
  PangoFontMap * map = pango_cairo_font_map_get_default();  // the one text is drawn with
  PangoContext * context = pango_font_map_create_context(map);
  PangoFontDescription * wanted = pango_font_description_new();
  pango_font_description_set_family(wanted, face.utf8_str());
  bool found = false;
  if (PangoFont * font = pango_font_map_load_font(map, context, wanted)) {
    PangoFontDescription * got = pango_font_describe(font);
    char const * family = pango_font_description_get_family(got);
    found = family != nullptr && face.CmpNoCase(wxString::FromUTF8(family)) == 0;
    pango_font_description_free(got);
    g_object_unref(font);
  }
  pango_font_description_free(wanted);
  g_object_unref(context);
  return found;
}

void VxSplash2013::InitFonts() {
  wxString const face =
      ChooseFace(&HasFace, wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetFaceName());
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
