#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/utils.h>
#include "controls/WindowSnapshot.h"
#include "harness/GuiTestUtilities.h"
#include "work/Progress.h"
#include "work/VxStatusBar.h"

TEST(ZzPole, Shot) {
  char const * dir = getenv("SNAPDIR");
  if (!dir) GTEST_SKIP();
  auto * frame = new wxFrame(nullptr, wxID_ANY, "Main", wxPoint(40, 40), wxSize(500, 200));
  auto * bar = new VxStatusBar(frame);
  frame->SetStatusBar(bar);
  wxTheApp->SetTopWindow(frame);
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  {
    Progress progress(L"Working...");
    for (int i = 0; i < 300; ++i) { progress.NextSpin(); wxMilliSleep(2); }
    SaveWindowSnapshot(*bar, wxString(dir) + "/pole.png");
  }
  frame->Destroy();
}
