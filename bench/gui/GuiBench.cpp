#include "gui/GuiBench.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/window.h>

bool GuiStarted() {
  static bool const started = [] {
    if (wxTheApp) return true;
    static int argc = 1;
    static char name[] = "talvo-bench-gui";
    static char * argv[] = {name, nullptr};
    wxApp::SetInstance(new wxApp);
    return wxEntryStart(argc, argv) && wxTheApp->CallOnInit();
  }();
  return started;
}

void DestroyNow(wxWindow * window) {
  if (window == nullptr) return;
  window->Destroy();
  // Idle time deletes what Destroy only scheduled.
  wxTheApp->ProcessIdle();
}
