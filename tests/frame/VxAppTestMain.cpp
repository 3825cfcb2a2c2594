// main() of the application-object tests: a VxApp is the process's
// application object, as in every application of the family.
#include <gtest/gtest.h>
#include <wx/init.h>

#include "frame/VxApp.h"
#include "harness/WxAssertToGTest.h"
#include "utl/VxSystemInfo.h"

namespace {

class TestVxApp : public VxApp {
public:
  TestVxApp() : VxApp(L"VxApp Test") {}
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    return true;
  }
};

}  // namespace

int main(int argc, char ** argv) {
  testing::InitGoogleTest(&argc, argv);
  VxSystemInfo::SetApplication("VxApp Test", "3.1.4.1");
  wxApp::SetInstance(new TestVxApp);
  if (!wxEntryStart(argc, argv)) {
    fprintf(stderr, "gui test: cannot open the display (is DISPLAY set?)\n");
    return 2;
  }
  if (!wxTheApp->CallOnInit()) return 2;
  InstallWxAssertHandler();
  int const result = RUN_ALL_TESTS();
  wxTheApp->OnExit();
  wxEntryCleanup();
  return result;
}
