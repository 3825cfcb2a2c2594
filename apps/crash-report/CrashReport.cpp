// talvo-crash-report: the report a user sees after an application of the
// family crashed. The crashed process runs it (crash/MiniDumper.h) and waits:
// a crashed process must not start GTK, this one may.
//
//   talvo-crash-report --application NAME --version VERSION [DUMP]
//
// Exit codes: 101 sent, 8 not sent (Don't send, Close, Escape or the close
// box), 2 a bad command line.

#include <wx/app.h>

#include <cstdio>
#include <string>

#include "crash/VxDumpMessageDialog.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

constexpr int kBadCommandLine = 2;

class CrashReportApp : public wxApp {
public:
  bool OnInit() override {
    std::string application, version, dump;
    for (int i = 1; i < argc; ++i) {
      std::string const argument = argv[i].utf8_string();
      if ((argument == "--application" || argument == "--version") && i + 1 < argc) {
        (argument == "--application" ? application : version) = argv[++i].utf8_string();
      } else if (!argument.empty() && argument[0] != '-' && dump.empty()) {
        dump = argument;
      } else {
        return Usage();
      }
    }
    if (application.empty()) return Usage();
    VxSystemInfo::SetApplication(application, version);
    vx3::TranslationSetup translation;
    translation.domains = {"talvoutlwin"};
    translation.catalogPaths = vx3::DefaultCatalogPaths();
    vx3::InstallTranslation(translation);
    VxDumpMessageDialog dialog(dump);
    int const answer = dialog.DoModal();
    mResult =
        answer == VxDumpMessageDialog::kSendButton ? answer : VxDumpMessageDialog::kDontSendButton;
    return false;  // no main loop: the answer is the exit code
  }
  int Result() const { return mResult; }

private:
  bool Usage() {
    std::fputs("usage: talvo-crash-report --application NAME --version VERSION [DUMP]\n", stderr);
    mResult = kBadCommandLine;
    return false;
  }
  int mResult = 0;
};

}  // namespace

wxIMPLEMENT_APP_NO_MAIN(CrashReportApp);

int main(int argc, char ** argv) {
  wxApp::SetInstance(new CrashReportApp);
  int result = kBadCommandLine;
  if (wxEntryStart(argc, argv)) {
    wxTheApp->CallOnInit();  // shows the dialog and ends: no main loop
    result = static_cast<CrashReportApp *>(wxTheApp)->Result();
    wxEntryCleanup();
  }
  return result;
}
