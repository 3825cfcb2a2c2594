#include "harness/GuiTestRunner.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/init.h>

#include <cstdio>

#include "harness/WxAssertToGTest.h"

int RunGuiTests(int argc, char ** argv, wxApp * application) {
  testing::InitGoogleTest(&argc, argv);
  wxApp::SetInstance(application);
  if (!wxEntryStart(argc, argv)) {
    std::fprintf(stderr, "gui test: cannot open the display (is DISPLAY set?)\n");
    return 2;
  }
  if (!wxTheApp->CallOnInit()) return 2;
  InstallWxAssertHandler();
  int const result = RUN_ALL_TESTS();
  wxTheApp->OnExit();
  wxEntryCleanup();
  return result;
}
