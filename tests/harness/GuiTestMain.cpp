// main() of the `gui` test binaries: one wx application object for the
// whole binary, started before the first test and cleaned up after the last.
#include <wx/app.h>

#include "harness/GuiTestRunner.h"

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

int main(int argc, char ** argv) { return RunGuiTests(argc, argv, new TestApplication); }
