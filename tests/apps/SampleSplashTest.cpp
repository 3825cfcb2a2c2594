// The sample's splash: Help > Splash window shows the painted picture cut
// along its magenta outline over the main window, a click sends it away,
// and a package's picture takes the painted one's place.
#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>

#include "MainFrame.h"
#include "SampleCommands.h"
#include "SampleSplash.h"
#include "controls/VxSplash2013.h"
#include "harness/GuiTestUtilities.h"

namespace {

wxFrame * ShownSplash() {
  for (wxWindow * window : wxTopLevelWindows)
    if (window->GetName() == VxSplashWindow::kWindowClass && window->IsShown())
      return dynamic_cast<wxFrame *>(window);
  return nullptr;
}

void Idle() {
  gui_test::Flush();
  wxTheApp->ProcessIdle();
  gui_test::Flush();
}

TEST(SampleSplash, MenuCommandShowsThePaintedSplashUntilClicked) {
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  wxCommandEvent command(wxEVT_MENU, kSplashCommand);
  ASSERT_TRUE(frame->ProcessWindowEvent(command));
  wxFrame * splash = ShownSplash();
  ASSERT_NE(splash, nullptr) << "no splash: is " << kSampleSplashFile << " beside the tests?";
  EXPECT_EQ(splash->GetSize(), wxSize(480, 300));
  // Centred on the main window.
  wxRect const around = frame->GetScreenRect();
  EXPECT_EQ(splash->GetPosition(),
            wxPoint(around.x + (around.width - 480) / 2, around.y + (around.height - 300) / 2));
  gui_test::Snapshot(*splash, "sample-splash");

  wxMouseEvent click(wxEVT_LEFT_DOWN);
  click.SetEventObject(splash);
  splash->ProcessWindowEvent(click);
  // Without a compositor there is no fade: gone at once.
  ASSERT_TRUE(gui_test::WaitUntil([] {
    Idle();
    return ShownSplash() == nullptr;
  }));
  frame->Destroy();
  Idle();
}

TEST(SampleSplash, PackagePictureReplacesThePaintedOne) {
  wxImage picture(120, 90);
  picture.SetRGB(wxRect(0, 0, 120, 90), 20, 60, 120);
  VxSplash2013 * splash = ShowSampleSplash(nullptr, wxBitmap(picture), 0, 0);
  ASSERT_NE(splash, nullptr);
  ASSERT_NE(ShownSplash(), nullptr);
  EXPECT_EQ(ShownSplash()->GetSize(), wxSize(120, 90));
  splash->Hide();
  Idle();
  EXPECT_EQ(ShownSplash(), nullptr);
}

}  // namespace
