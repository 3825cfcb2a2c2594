// main() of the `gui` test binaries: one wx application object for the
// whole binary, started before the first test and cleaned up after the last.
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/init.h>

#include "harness/WxAssertToGTest.h"

namespace {

class TestApplication : public wxApp {
public:
  bool OnInit() override {
    SetAppName("talvo-tests");
    // Tests decide when windows close; the application must not end when
    // the last one does.
    SetExitOnFrameDelete(false);
    return true;
  }
};

}  // namespace

int main(int argc, char ** argv) {
  testing::InitGoogleTest(&argc, argv);
  wxApp::SetInstance(new TestApplication);
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
