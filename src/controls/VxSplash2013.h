#pragma once
// The family's current splash: the application's picture with its version
// and the rights lines along the bottom.
//
//   auto * splash = new VxSplash2013;
//   splash->SetSpecialVersion(L"Beta 2");   // optional
//   if (splash->Create(nullptr, 2000, VxSplashWindow::kCentreOnScreen |
//                                      VxSplashWindow::kFadeIn) &&
//       splash->SetBitmap(picture, RGB(255, 0, 255)))
//     splash->Show();

#include <wx/font.h>

#include <functional>
#include <string>

#include "controls/VxSplashWindow.h"

class VxSplash2013 : public VxSplashWindow {
public:
  VxSplash2013();

  // Shown after the version, e.g. "Beta 2".
  void SetSpecialVersion(std::wstring const & special);

  // The first face the system has: "Segoe UI", "Arial", then `fallback`
  // (the default GUI font's face).
  static wxString ChooseFace(std::function<bool(wxString const &)> const & hasFace,
                             wxString const & fallback);
  // Whether the system has a font of that family (not merely one that
  // stands in for it), asked of the font that text in it would be drawn
  // with: listing every family first costs the start-up milliseconds.
  static bool HasFace(wxString const & face);

protected:
  void OnPictureChanged() override;

private:
  void InitFonts();
  void InitSplashScreenText();

  std::wstring mSpecialVersion;
  wxFont mNameFont;     // 9 points, bold
  wxFont mVersionFont;  // 9 points
  wxFont mRightsFont;   // 7 points
};
