// Frees the class-wide pens and fonts while the toolkit still runs: wx
// cleans its modules up before GTK shuts down, whereas static destructors
// would run after.
#include <wx/module.h>

#include "controls/StandardFont.h"
#include "controls/StandardPen.h"

namespace {

class DrawingResourcesModule : public wxModule {
public:
  bool OnInit() override { return true; }
  void OnExit() override {
    StandardPen::UnloadPens();
    StandardFont::UnloadFonts();
  }

private:
  wxDECLARE_DYNAMIC_CLASS(DrawingResourcesModule);
};

}  // namespace

wxIMPLEMENT_DYNAMIC_CLASS(DrawingResourcesModule, wxModule);
