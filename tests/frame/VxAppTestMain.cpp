// main() of the application-object tests: a VxApp is the process's
// application object, as in every application of the family.
#include "frame/VxApp.h"
#include "harness/GuiTestRunner.h"
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
  VxSystemInfo::SetApplication("VxApp Test", "3.1.4.1");
  return RunGuiTests(argc, argv, new TestVxApp);
}
