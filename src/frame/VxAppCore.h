#pragma once
// What an application object decides that needs no display: where the
// application keeps its settings (registry base, data folders, the XML
// settings files and their "AppSettings" section), the layered settings of
// each subsystem, the plug-in folder and the mute switch. VxApp (VxApp.h)
// holds one and delegates to it; a service process, which never starts GTK,
// holds one of its own.
//
// Locations, from the application name and its version in the path format
// (VxSystemInfo), with the registry key "Karvinel" and the profile name
// "<App>\<Ver>":
//   per-user data folder    <UserDataFolder()>/Karvinel/<App>/<Ver>
//   all-users data folder   <CommonDataFolder()>/Karvinel/<App>/<Ver>
//   maker's all-users       <CommonDataFolder()>/Karvinel
//   settings files          <data folder>/<App>.kvxml (user and all-users)

#include <boost/shared_ptr.hpp>

#include <functional>
#include <map>
#include <memory>
#include <string>

class ConfigurationSection;

class VxAppCore {
public:
  // The text of a defaults document in the resources, by its number; empty
  // (or an Exception) when there is none.
  using DefaultsReader = std::function<std::string(unsigned int resourceId)>;

  VxAppCore();
  // Flushes the "AppSettings" section's file, when SetRegistryLocation
  // named one (opening it now if nothing has asked for settings, so that the
  // first run still writes the application's info).
  ~VxAppCore();
  VxAppCore(VxAppCore const &) = delete;
  VxAppCore & operator=(VxAppCore const &) = delete;

  static char const * RegistryKey() { return "Karvinel"; }
  // "<App>\<Ver>".
  static std::string ProfileName();

  // Fixes both settings files; see VxApp.h. The user's file is opened when
  // settings are first asked for (GetSettingsSection, GetAppSettings), so
  // that an application can show its window before the XML parser has been
  // loaded. A file that cannot be read or parsed is left alone: no section
  // is kept, nothing is ever written over it, and GetAppSettings works on an
  // empty tree.
  void SetRegistryLocation();

  // The folders, created when absent. An all-users folder that this process
  // may not create is returned all the same; an empty string when no folder
  // can be named.
  std::string GetAppDataDirectory() const;
  std::string GetCommonAppDataDirectory() const;
  std::string GetKarvinelCommonAppDataDirectory() const;

  // The stored folder when it exists, else "Plugins" in the per-user data
  // folder (not created here).
  std::string GetPluginDirectory() const;
  void SetPluginDirectory(std::string directory) { mPluginDirectory = std::move(directory); }
  std::string GetFilePathInExeFolder(std::string const & name) const;

  std::string const & GetUserSettingsFile() const { return mUserSettingsFile; }
  std::string const & GetCommonSettingsFile() const { return mCommonSettingsFile; }
  // The "AppSettings" section of the user's file, opened on the first call;
  // null before SetRegistryLocation and when the file cannot be read. Like
  // the other settings calls, for one thread at a time.
  ConfigurationSection * GetSettingsSection() const;

  // The settings of the subsystem `name`, layered from (highest first) what
  // the user has, the all-users file and the defaults document `resourceId`
  // (0: none); the caller owns the result. The result shares the user's
  // document, so what is written to it is saved with the application's
  // settings.
  ConfigurationSection * GetAppSettings(char const * name, unsigned int resourceId) const;
  // Where GetAppSettings finds defaults documents; without one a non-zero
  // `resourceId` counts as an absent source. Documents are parsed once: the
  // resources do not change while the process runs.
  void SetDefaultsReader(DefaultsReader reader) {
    mDefaultsReader = std::move(reader);
    mDefaults.clear();
  }

  // Keys "AppName" and "Version" (path format) of the running application.
  static void WriteAppInfo(ConfigurationSection * section);

  // Sets the switch that silences boxes with only an OK button; returns its
  // former value.
  bool MuteInfoMessages(bool mute) {
    bool const former = mMuteInfoMessages;
    mMuteInfoMessages = mute;
    return former;
  }
  bool MuteInfoMessages() const { return mMuteInfoMessages; }

private:
  // The all-users file as last parsed, with what identifies that version of
  // the file; parsed again when the file changes.
  struct ParsedFile {
    std::string path;
    long long size = -1;
    long long modified = 0;  // nanoseconds
    unsigned long long inode = 0;
    std::shared_ptr<ConfigurationSection> root;
  };

  // Opens the user's file named by SetRegistryLocation, once.
  void OpenUserSettings() const;
  // A new section object on the parsed all-users file, or null.
  std::unique_ptr<ConfigurationSection> CommonSource() const;
  std::unique_ptr<ConfigurationSection> DefaultsSource(unsigned int resourceId) const;

  std::string mPluginDirectory;
  std::string mUserSettingsFile;
  std::string mCommonSettingsFile;
  bool mMuteInfoMessages = false;
  mutable bool mUserSettingsOpened = false;
  mutable boost::shared_ptr<ConfigurationSection> mSettings;
  DefaultsReader mDefaultsReader;
  mutable ParsedFile mCommon;
  // Parsed defaults documents by number; null for one that is absent.
  mutable std::map<unsigned int, std::shared_ptr<ConfigurationSection>> mDefaults;
};
