// A small application of the family, built outside the library's project
// against what an installation provides. It asks one question in the
// family's message box (answered from outside the process), counts through
// a Progress, and checks its own resource module and catalog, the
// library's catalog and the XML module that the library loads on demand.
// It prints one line and exits 0 when everything held, 1 otherwise.
#include <wx/dialog.h>

#include <exception>
#include <iostream>
#include <string>

#include "dialogs/VxMessageBox.h"
#include "frame/VxApp.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"
#include "utl/XmlModule.h"
#include "work/Progress.h"

namespace {

constexpr unsigned kCountedString = 7001;
constexpr unsigned kCounterDialog = 7100;

class ConsumerApp : public VxApp {
public:
  bool OnInit() override {
    VxSystemInfo::SetApplication("TALVO Consumer", "1.0.0.0");
    vx3::TranslationSetup translation;
    translation.domains = {"consumer", "talvoutlwin"};
    translation.catalogPaths = vx3::DefaultCatalogPaths();
    translation.localeName = "de_DE.UTF-8";
    vx3::InstallTranslation(translation);
    return VxApp::OnInit();
  }

  // Everything runs before the main loop; the message box has its own.
  int OnRun() override {
    try {
      return Check();
    } catch (std::exception const & e) {
      std::cout << "consumer: failed: " << e.what() << std::endl;
      return 1;
    }
  }

private:
  static int Check() {
    int const answer = VxMessageBox(L"Consumer question", L"Count the samples now?",
                                    MB_OKCANCEL | MB_ICONQUESTION);

    Progress progress(nullptr, L"Counting", 0.0F, 100.0F, false, false, false);
    bool running = true;
    for (int step = 0; step <= 100 && running; ++step) running = progress.Set(float(step));

    wxString const counted = LoadResourceString(kCountedString);
    wxString const stop = vx3::Tr("Do you really want to stop?");
    wxDialog dialog;
    bool const built = LoadDialogTemplate(dialog, nullptr, kCounterDialog);
    wxString const title = built ? dialog.GetTitle() : wxString("-");
    vx3::GetXmlModule();  // throws when the module is not beside the library

    std::cout << "consumer: answer " << answer << ", progress " << progress.GetValue()
              << ", string \"" << counted.utf8_string() << "\", dialog \"" << title.utf8_string()
              << "\", library \"" << stop.utf8_string() << "\"" << std::endl;
    bool const ok = answer == IDOK && running && progress.GetValue() == 100.0F &&
                    counted == wxString::FromUTF8("Proben gezählt") &&
                    title == wxString::FromUTF8("Probenzähler") &&
                    stop == wxString::FromUTF8("Wirklich anhalten?");
    return ok ? 0 : 1;
  }
};

}  // namespace

wxIMPLEMENT_APP(ConsumerApp);
