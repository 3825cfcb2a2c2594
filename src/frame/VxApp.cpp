#include "frame/VxApp.h"

#include <wx/window.h>

#include "controls/GUIUtilities.h"
#include "frame/AboutDialog.h"
#include "frame/AppProfile.h"
#include "platform/GpuRendering.h"
#include "platform/ResourceModule.h"
#include "platform/RunningApplication.h"
#include "utl/FileProblemNotice.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

namespace {

wxString FromUtf8(std::string const & text) { return wxString::FromUTF8(text); }

std::string ToUtf8(wchar_t const * text) { return vx3::WideToUtf8(text != nullptr ? text : L""); }

// The string with its insert: "%1%" (the form of the library's tables) or
// "%1" (the form of older tables).
wxString FormatString1(wxString text, wxString const & insert) {
  if (!text.Replace("%1%", insert)) text.Replace("%1", insert);
  return text;
}

}  // namespace

bool VxApp::OnInit() {
  vx3::HoldFileProblems();
  CallAfter([] { vx3::ReleaseFileProblems(); });
  return wxApp::OnInit();
}

VxApp::VxApp(wchar_t const * appName) {
  // The application object is made before the toolkit starts.
  GpuRendering::SkipGlVisualsWithoutGpu();
  if (appName != nullptr) {
    VxSystemInfo::SetApplication(ToUtf8(appName),
                                 VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionFull));
    SetAppName(wxString(appName));
  }
  Bind(wxEVT_MENU, &VxApp::OnAboutCommand, this, kAboutCommand);
  Bind(wxEVT_UPDATE_UI, &VxApp::OnUpdateAppAbout, this, kAboutCommand);
  mCore.SetDefaultsReader([](unsigned int id) { return GUIUtilities::ReadResource(id); });
  mFormerMessageBoxHandler =
      SetFrameworkMessageBoxHandler([this](wxString const & text, UINT type, UINT helpId) {
        return DoMessageBox(text.wc_str(), type, helpId);
      });
  // The lower layers reach the application through these hooks, not through this class.
  SetRunningApplication({nullptr, [this] { return MuteInfoMessages(); },
                         [this] { return GetPluginDirectory().utf8_string(); }});
}

VxApp::~VxApp() {
  SetRunningApplication({});
  SetFrameworkMessageBoxHandler(mFormerMessageBoxHandler);
}

void VxApp::SetRegistryLocation() { mCore.SetRegistryLocation(); }

wxString VxApp::GetAppDataDirectory() const { return FromUtf8(mCore.GetAppDataDirectory()); }

wxString VxApp::GetCommonAppDataDirectory() const {
  return FromUtf8(mCore.GetCommonAppDataDirectory());
}

wxString VxApp::GetKarvinelCommonAppDataDirectory() const {
  return FromUtf8(mCore.GetKarvinelCommonAppDataDirectory());
}

wxString VxApp::GetPluginDirectory() const { return FromUtf8(mCore.GetPluginDirectory()); }

void VxApp::SetPluginDirectory(wchar_t const * directory) {
  mCore.SetPluginDirectory(ToUtf8(directory));
}

wxString VxApp::GetFilePathInExeFolder(wchar_t const * name) const {
  return FromUtf8(mCore.GetFilePathInExeFolder(ToUtf8(name)));
}

wxString VxApp::GetUserSettingsFile() const { return FromUtf8(mCore.GetUserSettingsFile()); }

wxString VxApp::GetCommonSettingsFile() const { return FromUtf8(mCore.GetCommonSettingsFile()); }

wxString VxApp::GetProjectPath() const { return wxString(); }

ConfigurationSection * VxApp::GetAppSettings(char const * name, unsigned int resourceId) const {
  return mCore.GetAppSettings(name, resourceId);
}

void VxApp::WriteAppInfo(ConfigurationSection * section) { VxAppCore::WriteAppInfo(section); }

void VxApp::OnAboutCommand(wxCommandEvent &) { OnAppAbout(); }

void VxApp::OnAppAbout() {
  AboutDialog dialog(VxGetMainWnd(), VxSystemInfo::GetApplicationName().c_str(), mAboutBitmap);
  PrepareAboutDialog(dialog);
  dialog.DoModal();
}

void VxApp::PrepareAboutDialog(AboutDialog &) {}

void VxApp::OnUpdateAppAbout(wxUpdateUIEvent & event) {
  event.Enable(true);
  event.SetText(FormatString1(LoadResourceString(kAboutCommandText),
                              FromUtf8(VxSystemInfo::GetApplicationName())));
}

wxWindow * VxApp::OpenDocumentFile(wchar_t const * /*path*/) { return nullptr; }

int VxApp::DoMessageBox(wchar_t const * text, unsigned int type, unsigned int helpId) {
  if (MuteInfoMessages() && (type & MB_TYPEMASK) == MB_OK) return IDOK;
  return ShowFrameworkMessageBox(wxString(text != nullptr ? text : L""), type, helpId);
}

int VxApp::GetProfileInt(char const * section, char const * entry, int defaultValue) const {
  return AppProfile::GetProfileInt(section, entry, defaultValue);
}

wxString VxApp::GetProfileString(char const * section, char const * entry,
                                 wchar_t const * defaultValue) const {
  std::string const fallback = ToUtf8(defaultValue);
  return FromUtf8(AppProfile::GetProfileString(section, entry, fallback.c_str()));
}

bool VxApp::WriteProfileInt(char const * section, char const * entry, int value) {
  return AppProfile::WriteProfileInt(section, entry, value);
}

bool VxApp::WriteProfileString(char const * section, char const * entry, wchar_t const * value) {
  if (value == nullptr) return AppProfile::WriteProfileString(section, entry, nullptr);
  return AppProfile::WriteProfileString(section, entry, ToUtf8(value).c_str());
}

HKEY VxApp::GetAppRegistryKey() const { return AppProfile::GetAppRegistryKey(); }

wxString VxApp::GetProfileName() const { return FromUtf8(VxAppCore::ProfileName()); }

VxApp * VxGetApp() { return dynamic_cast<VxApp *>(wxTheApp); }

wxWindow * VxGetMainWnd() { return AppMainWindow(); }
