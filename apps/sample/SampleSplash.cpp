#include "SampleSplash.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include <string>

#include "SampleCommands.h"
#include "controls/VxSplash2013.h"
#include "settings/VxExecutablePath.h"
#include "utl/Translation.h"

char const kSampleSplashFile[] = "SampleSplash.png";

VxSplash2013 * ShowSampleSplash(wxWindow * parent, wxBitmap const & packagePicture,
                                unsigned long showTime, unsigned long style) {
  auto * splash = new VxSplash2013;
  if (splash->Create(parent, showTime, style) == 0) {
    splash->Hide();  // never made: deletes the splash
    return nullptr;
  }
  constexpr COLORREF kMagenta = RGB(255, 0, 255);
  std::wstring const painted =
      std::wstring(VxGetExecutableDirectoryW()) + L"/" + wxString(kSampleSplashFile).ToStdWstring();
  int const pictured = packagePicture.IsOk() ? splash->SetBitmap(packagePicture, kMagenta)
                                             : splash->SetBitmap(painted.c_str(), kMagenta);
  if (pictured == 0) {
    splash->Hide();  // destroys the window, which deletes the splash
    return nullptr;
  }
  splash->Show();
  return splash;
}

void AddSplashCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kSplashCommand, vx3::Tr("Menu command", "&Splash window"));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        ShowSampleSplash(&frame, wxBitmap(), 2000,
                         VxSplash2013::kCentreOnParent | VxSplash2013::kFadeIn |
                             VxSplash2013::kFadeOut | VxSplash2013::kHideOnPress);
      },
      kSplashCommand);
}
