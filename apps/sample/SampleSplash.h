#pragma once
// The sample's splash: VxSplash2013 on the customization package's
// "splash.png" when there is one, otherwise on the picture the build paints
// beside the executable (SampleSplash.png); magenta is cut away from both.
// Help > Splash window shows it again over the main window.

#include <wx/bitmap.h>

class VxSplash2013;
class wxFrame;
class wxMenu;
class wxWindow;

extern char const kSampleSplashFile[];

// The splash shown (it leaves and deletes itself), or null when there is no
// usable picture.
VxSplash2013 * ShowSampleSplash(wxWindow * parent, wxBitmap const & packagePicture,
                                unsigned long showTime, unsigned long style);

void AddSplashCommand(wxMenu & menu, wxFrame & frame);
