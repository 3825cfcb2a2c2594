// The sample application: starts like every application of the family
// (name and version, translation) and opens its main window.
//
//   talvo-sample [--screenshot FILE]
#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/crt.h>
#include <wx/timer.h>

#include "MainFrame.h"
#include "controls/WindowSnapshot.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

class SampleApp : public wxApp {
public:
  bool OnInit() override;
  int OnRun() override {
    int const code = wxApp::OnRun();
    return mExitCode != 0 ? mExitCode : code;
  }
  void OnInitCmdLine(wxCmdLineParser & parser) override;
  bool OnCmdLineParsed(wxCmdLineParser & parser) override;

private:
  void TakeScreenshotWhenPainted();

  wxString mScreenshotPath;
  MainFrame * mFrame = nullptr;
  wxTimer mScreenshotTimer;
  int mScreenshotTries = 0;
  int mExitCode = 0;
};

void SampleApp::OnInitCmdLine(wxCmdLineParser & parser) {
  wxApp::OnInitCmdLine(parser);
  parser.AddOption("", "screenshot", "write a PNG of the main window to FILE and exit",
                   wxCMD_LINE_VAL_STRING);
}

bool SampleApp::OnCmdLineParsed(wxCmdLineParser & parser) {
  parser.Found("screenshot", &mScreenshotPath);
  return wxApp::OnCmdLineParsed(parser);
}

bool SampleApp::OnInit() {
  VxSystemInfo::SetApplication("TALVOutlwin Sample", "0.1.0.1");
  vx3::TranslationSetup translation;
  translation.catalogPaths = vx3::DefaultCatalogPaths();
  vx3::InstallTranslation(translation);
  SetAppName(wxString::FromUTF8(VxSystemInfo::GetApplicationName()));

  if (!wxApp::OnInit()) return false;
  mFrame = new MainFrame;
  mFrame->Show();
  if (!mScreenshotPath.empty()) TakeScreenshotWhenPainted();
  return true;
}

void SampleApp::TakeScreenshotWhenPainted() {
  // The window manager maps the frame some time after Show; poll until it is
  // on screen and has painted, then write the picture and quit.
  mScreenshotTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent &) {
    ++mScreenshotTries;
    if (!mFrame->IsShownOnScreen() && mScreenshotTries < 50) return;
    mFrame->Update();
    if (mScreenshotTries < 3) return;  // a few rounds for the first paints
    mScreenshotTimer.Stop();
    if (SaveWindowSnapshot(*mFrame, mScreenshotPath)) {
      wxPrintf("screenshot written to %s\n", mScreenshotPath);
    } else {
      wxFprintf(stderr, "could not write a screenshot to %s\n", mScreenshotPath);
      mExitCode = 1;
    }
    mFrame->Close(true);
  });
  mScreenshotTimer.Start(100);
}

}  // namespace

wxIMPLEMENT_APP(SampleApp);
