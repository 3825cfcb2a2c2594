#pragma once
// The application object of every application of the family. It fixes where
// the application keeps its settings (registry base, data folders, the XML
// settings file and its "AppSettings" section), holds the plug-in folder and
// the mute switch for information boxes, keeps the profile, and answers the
// about command.
//
// Start-up, in the application's OnInit:
//   VxSystemInfo::SetApplication(name, version);
//   VxAppCustomization::Instance();   // may rename the application
//   SetRegistryLocation();            // from here on the locations are fixed
// The settings file is read, and the XML parser loaded, when settings are
// first asked for: an application that reads them once its main window has
// painted shows that window without waiting for either. (Loading the parser
// in the background meanwhile was tried: on a busy machine it only slowed
// the start.) The destructor writes the settings back. A file that could
// not be read is never written over.
//
// The work that needs no display lies in VxAppCore (VxAppCore.h), in a
// library without GTK; this class adds the user interface and delegates the
// rest, so a service process holds a VxAppCore alone.

#include <string>

#include <wx/app.h>
#include <wx/string.h>

#include "favourites/DocumentFileOpener.h"
#include "frame/VxAppCore.h"
#include "platform/MessageBoxes.h"
#include "platform/WinReg.h"

class AboutDialog;
class ConfigurationSection;
class wxUpdateUIEvent;
class wxWindow;

class VxApp : public wxApp, public DocumentFileOpener {
public:
  // The framework's about command (ID_APP_ABOUT).
  static constexpr int kAboutCommand = 57664;
  static constexpr unsigned int kDefaultAboutBitmap = 13024;
  // "&About %1%...": the about entry's text.
  static constexpr unsigned int kAboutCommandText = 13195;

  // A non-null `appName` becomes the application's name (VxSystemInfo and
  // wx), its version kept. Installs the framework message-box handler that
  // routes to DoMessageBox; the destructor puts the former one back.
  explicit VxApp(wchar_t const * appName = nullptr);
  ~VxApp() override;

  // Damaged files met while the application starts (its package, settings,
  // registry hives) are told once the event loop runs, that is once the
  // main window that OnInit shows is up: a box before it would open with no
  // window to belong to and end up behind it.
  bool OnInit() override;

  void SetRegistryLocation();

  wxString GetAppDataDirectory() const;
  wxString GetCommonAppDataDirectory() const;
  wxString GetKarvinelCommonAppDataDirectory() const;
  wxString GetPluginDirectory() const;
  void SetPluginDirectory(wchar_t const * directory);
  wxString GetFilePathInExeFolder(wchar_t const * name) const;
  wxString GetUserSettingsFile() const;
  wxString GetCommonSettingsFile() const;

  // Empty here; applications with projects override it.
  virtual wxString GetProjectPath() const;
  // The settings of the subsystem `name` with defaults filled in (see
  // VxAppCore::GetAppSettings); the caller owns the result.
  virtual ConfigurationSection * GetAppSettings(char const * name, unsigned int resourceId) const;
  static void WriteAppInfo(ConfigurationSection * section);

  bool MuteInfoMessages(bool mute) { return mCore.MuteInfoMessages(mute); }
  bool MuteInfoMessages() const { return mCore.MuteInfoMessages(); }

  void SetAboutBitmap(unsigned int resourceId) { mAboutBitmap = resourceId; }
  unsigned int GetAboutBitmap() const { return mAboutBitmap; }
  // Shows the AboutDialog modally above the main window, with the
  // application's name and the about bitmap.
  void OnAppAbout();
  // Enables the about entry and names the application in it (string 13195).
  void OnUpdateAppAbout(wxUpdateUIEvent & event);

  // Opens a document as the recent-files list would (favourite files go
  // here); the frame it brought up, or null. Nothing here: applications
  // with documents override it.
  wxWindow * OpenDocumentFile(wchar_t const * path) override;

  // Every framework message box (AfxMessageBox) comes here. With the mute
  // switch on, a box with only an OK button returns IDOK unseen; any box
  // that asks a question is shown.
  virtual int DoMessageBox(wchar_t const * text, unsigned int type, unsigned int helpId);

  // The profile: HKEY_CURRENT_USER\<GetRegistryBaseKeyName()>\<section>.
  int GetProfileInt(char const * section, char const * entry, int defaultValue) const;
  wxString GetProfileString(char const * section, char const * entry,
                            wchar_t const * defaultValue = nullptr) const;
  bool WriteProfileInt(char const * section, char const * entry, int value);
  // A null `entry` removes the section, a null `value` the entry.
  bool WriteProfileString(char const * section, char const * entry, wchar_t const * value);
  // The application's registry key, opened for reading and writing; null
  // when the store refuses. The caller closes it.
  HKEY GetAppRegistryKey() const;
  wxString GetRegistryKey() const { return VxAppCore::RegistryKey(); }
  wxString GetProfileName() const;

  VxAppCore & Core() { return mCore; }
  VxAppCore const & Core() const { return mCore; }

protected:
  // Called by OnAppAbout before the dialog shows: an application adds its
  // details or its maker's page here. Nothing by default.
  virtual void PrepareAboutDialog(AboutDialog & dialog);

private:
  void OnAboutCommand(wxCommandEvent & event);

  unsigned int mAboutBitmap = kDefaultAboutBitmap;
  VxAppCore mCore;
  FrameworkMessageBoxHandler mFormerMessageBoxHandler;
};

// The running VxApp; null when there is none (or the application object is
// another wxApp).
VxApp * VxGetApp();
// The main window of the running application; null without an application
// object.
wxWindow * VxGetMainWnd();
