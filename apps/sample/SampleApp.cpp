// The sample application: starts like every application of the family
// (name and version, translation, customization package, settings location)
// and opens its main window where the user left it. Its own settings are
// read once the window has painted: the XML parser is loaded then, so the
// window appears without waiting for it.
//
//   talvo-sample [--screenshot FILE] [--exit-on-paint] [--splash] [--tour DIR]
//
// At start a splash shows the sample's painted picture (not in scripted
// runs). A customization package ("*.appconfig") beside the executable
// renames the application and gives it its own splash picture and icons;
// the build makes one in sample-package/ (see CMakeLists.txt), which is not
// put beside the executable unless you copy it there.
#include <wx/cmdline.h>
#include <wx/crt.h>
#include <wx/filefn.h>
#include <wx/iconbndl.h>
#include <wx/timer.h>

#include <memory>

#include "BatchCommand.h"
#include "MainFrame.h"
#include "SampleAbout.h"
#include "SampleSplash.h"
#include "TourWalk.h"
#include "controls/VxSplash2013.h"
#include "controls/WindowSnapshot.h"
#include "crash/MiniDumper.h"
#include "frame/MuteAskUserComm.h"
#include "frame/VxApp.h"
#include "frame/VxAppCustomization.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "settings/TopLevelWindowPlacement.h"
#include "settings/WindowPlacement.h"
#include "utl/ConfigurationSection.h"
#include "utl/Exception.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

using vx3::Tr;

namespace {

constexpr char kWindowSection[] = "MainFrame";
constexpr char kPlacementEntry[] = "WindowPlacement";

class SampleApp : public VxApp {
public:
  bool OnInit() override;
  int OnRun() override {
    int const code = VxApp::OnRun();
    return mExitCode != 0 ? mExitCode : code;
  }
  void OnInitCmdLine(wxCmdLineParser & parser) override;
  bool OnCmdLineParsed(wxCmdLineParser & parser) override;

protected:
  void PrepareAboutDialog(AboutDialog & dialog) override { PrepareSampleAbout(dialog); }

private:
  bool Scripted() const { return !mScreenshotPath.empty() || mExitOnPaint || !mTourFolder.empty(); }
  void Customize();
  void CountStart();
  void PlaceFrame();
  void SavePlacement(wxCloseEvent & event);
  void WatchFirstPaint();
  void AfterFirstPaint();
  void TakeScreenshotWhenPainted();
  void WalkTourAndExit();

  wxString mScreenshotPath;
  wxString mTourFolder;
  bool mExitOnPaint = false;
  bool mForceSplash = false;
  bool mPainted = false;
  bool mStartCounted = false;
  VxAppCustomization * mCustomization = nullptr;
  MainFrame * mFrame = nullptr;
  wxTimer mScreenshotTimer;
  int mScreenshotTries = 0;
  int mExitCode = 0;
};

void SampleApp::OnInitCmdLine(wxCmdLineParser & parser) {
  VxApp::OnInitCmdLine(parser);
  parser.AddOption("", "screenshot", "write a PNG of the main window to FILE and exit",
                   wxCMD_LINE_VAL_STRING);
  parser.AddSwitch("", "exit-on-paint",
                   "print \"painted\" when the main window has been painted once, then exit");
  parser.AddOption("", "tour",
                   "walk every command of the tour, write a PNG of each window it opens into "
                   "DIR, then exit (1 when a command failed)",
                   wxCMD_LINE_VAL_STRING);
  parser.AddSwitch("", "splash", "show the start-up splash also with the two options above");
}

bool SampleApp::OnCmdLineParsed(wxCmdLineParser & parser) {
  parser.Found("screenshot", &mScreenshotPath);
  parser.Found("tour", &mTourFolder);
  mExitOnPaint = parser.Found("exit-on-paint");
  mForceSplash = parser.Found("splash");
  return VxApp::OnCmdLineParsed(parser);
}

bool SampleApp::OnInit() {
  VxSystemInfo::SetApplication("TALVOutlwin Sample", "0.1.0.1");
  vx3::TranslationSetup translation;
  translation.catalogPaths = vx3::DefaultCatalogPaths();
  vx3::InstallTranslation(translation);
  SetAppName(wxString::FromUTF8(VxSystemInfo::GetApplicationName()));
  if (!VxApp::OnInit()) return false;

  // The package may rename the application, so it comes before the
  // settings location.
  Customize();
  SetRegistryLocation();
  MiniDumper::Initialize();  // a crash leaves a dump, then talvo-crash-report shows it
  if (!mScreenshotPath.empty() || mExitOnPaint) {
    // Nobody answers a box in a scripted run: what it would tell is logged.
    static MuteAskUserComm unattended;
    UserComm::SetUserComm(&unattended);
  } else {
    InstallStandardUserComm();
  }

  mFrame = new MainFrame;
  mFrame->SetTitle(wxString::FromUTF8(VxSystemInfo::GetApplicationName()));
  if (mCustomization != nullptr && mCustomization->HasIcon(1)) {
    wxIconBundle icons;
    for (int id : mCustomization->GetIconIds()) {
      wxIcon icon;
      icon.CopyFromBitmap(mCustomization->GetBitmap(id));
      icons.AddIcon(icon);
    }
    mFrame->SetIcons(icons);
  }
  PlaceFrame();
  mFrame->Bind(wxEVT_CLOSE_WINDOW, &SampleApp::SavePlacement, this);
  SetTopWindow(mFrame);
  // The main window is mapped first, so that its first paint does not wait
  // for the splash's picture; the splash stays above it.
  mFrame->Show();
  if (!Scripted() || mForceSplash)
    ShowSampleSplash(
        nullptr, mCustomization != nullptr ? mCustomization->GetSplashBitmap() : wxBitmap(), 2000,
        VxSplash2013::kCentreOnScreen | VxSplash2013::kFadeIn | VxSplash2013::kFadeOut |
            VxSplash2013::kHideOnPress);
  WatchFirstPaint();
  if (!mScreenshotPath.empty()) TakeScreenshotWhenPainted();
  return true;
}

// A damaged package is not used; the library logs it and tells the user
// once the main window is up.
void SampleApp::Customize() { mCustomization = VxAppCustomization::Instance(); }

void SampleApp::CountStart() {
  // A setting of the sample's own, kept in the settings file between runs.
  if (mStartCounted) return;
  mStartCounted = true;
  std::unique_ptr<ConfigurationSection> settings(GetAppSettings("Sample", 0));
  int starts = 0;
  settings->ReadInt("Starts", starts);
  settings->WriteInt("Starts", starts + 1);
}

void SampleApp::PlaceFrame() {
  wxString const text = GetProfileString(kWindowSection, kPlacementEntry);
  WINDOWPLACEMENT placement{};
  if (!text.empty() && ParseWindowPlacement(text.utf8_str(), placement))
    VxSetWindowPlacement(*mFrame, placement);
  else
    mFrame->Centre();  // first start: not wherever the window manager finds room
  VxTrackWindowPlacement(*mFrame);
}

void SampleApp::SavePlacement(wxCloseEvent & event) {
  CountStart();  // should the window close before it ever painted
  std::string const text = WindowPlacementToString(VxGetWindowPlacement(*mFrame));
  WriteProfileString(kWindowSection, kPlacementEntry, wxString::FromUTF8(text).wc_str());
  event.Skip();
}

void SampleApp::WatchFirstPaint() {
  // The frame's page covers it, so the first paint arrives at a child.
  for (wxWindow * child : mFrame->GetChildren()) {
    child->Bind(wxEVT_PAINT, [this](wxPaintEvent & event) {
      event.Skip();
      if (mPainted) return;
      mPainted = true;
      if (mExitOnPaint) {
        // The start-up figure stops its clock at this line, not at the exit.
        wxPrintf("painted\n");
        fflush(stdout);
      }
      CallAfter([this] { AfterFirstPaint(); });
    });
  }
}

void SampleApp::AfterFirstPaint() {
  CountStart();
  if (mExitOnPaint) mFrame->Close(true);
  if (!mTourFolder.empty()) WalkTourAndExit();
}

void SampleApp::WalkTourAndExit() {
  if (!wxDirExists(mTourFolder) && !wxMkdir(mTourFolder)) {
    wxFprintf(stderr, "could not make the folder %s\n", mTourFolder);
    mExitCode = 1;
    mFrame->Close(true);
    return;
  }
  TourWalkResult const result = WalkTour(*mFrame, mTourFolder);
  for (TourWalkResult::Shot const & shot : result.shots)
    wxPrintf("%s: %s \"%s\" %s\n", shot.link, shot.windowClass, shot.title, shot.file);
  for (wxString const & failure : result.failures) wxFprintf(stderr, "tour: %s\n", failure);
  wxPrintf("tour: %zu stops, %zu windows, %zu failures\n", result.walked.size(),
           result.shots.size(), result.failures.size());
  if (!result.failures.empty()) mExitCode = 1;
  mFrame->Close(true);
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
