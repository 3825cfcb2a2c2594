#include "frame/VxAppCore.h"

#include <sys/stat.h>
#include <unistd.h>

#include <boost/make_shared.hpp>

#include <memory>

#include "frame/KnownFolders.h"
#include "utl/ConfigurationSection.h"
#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/Paths.h"
#include "utl/SettingsFileOpening.h"
#include "utl/VxSystemInfo.h"
#include "utl/XercesXMLSection.h"

namespace {

constexpr char kAppSettings[] = "AppSettings";

// `base`/Karvinel/<App>/<Ver>, created when absent; "" without a base.
std::string ApplicationFolder(std::string const & base) {
  if (base.empty()) return "";
  std::string folder = VxPathAppend(VxPathAppend(VxPathAppend(base, VxAppCore::RegistryKey()),
                                                 VxSystemInfo::GetApplicationName()),
                                    VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionPath));
  if (::access(folder.c_str(), F_OK) != 0) VxCreateFolder(folder);
  return folder;
}

std::string SettingsFileIn(std::string const & folder) {
  if (folder.empty()) return "";
  return VxPathAppend(
      folder, VxSystemInfo::GetApplicationName() + "." + XercesXMLSection::KarvinelXMLExtension());
}

}  // namespace

VxAppCore::VxAppCore() = default;

VxAppCore::~VxAppCore() {
  OpenUserSettings();
  if (mSettings) mSettings->Flush();
}

std::string VxAppCore::ProfileName() {
  return VxSystemInfo::GetApplicationName() + "\\" +
         VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionPath);
}

void VxAppCore::SetRegistryLocation() {
  mUserSettingsFile = SettingsFileIn(GetAppDataDirectory());
  mCommonSettingsFile = SettingsFileIn(GetCommonAppDataDirectory());
  mSettings.reset();
  mUserSettingsOpened = false;
  if (mUserSettingsFile.empty())
    Log::WriteMessage("VxAppCore", "SetRegistryLocation",
                      "No per-user data folder: the settings are not kept", Log::Notice, false);
}

void VxAppCore::OpenUserSettings() const {
  if (mUserSettingsOpened || mUserSettingsFile.empty()) return;
  mUserSettingsOpened = true;
  try {
    boost::shared_ptr<XercesXMLSection> root(vx3::OpenUserSettingsFile(mUserSettingsFile));
    if (!root) return;
    mSettings = root;
    if (!mSettings->ChangeSubSection(kAppSettings)) {
      mSettings.reset(root->CreateSubSection(kAppSettings));
      WriteAppInfo(mSettings.get());
    }
  } catch (Exception const &) {
    // A damaged file never stops the application, and is never overwritten.
    mSettings.reset();
  }
}

ConfigurationSection * VxAppCore::GetSettingsSection() const {
  OpenUserSettings();
  return mSettings.get();
}

std::string VxAppCore::GetAppDataDirectory() const {
  return ApplicationFolder(vx3::UserDataFolder());
}

std::string VxAppCore::GetCommonAppDataDirectory() const {
  return ApplicationFolder(vx3::CommonDataFolder());
}

std::string VxAppCore::GetKarvinelCommonAppDataDirectory() const {
  std::string const base = vx3::CommonDataFolder();
  if (base.empty()) return "";
  std::string folder = VxPathAppend(base, RegistryKey());
  if (::access(folder.c_str(), F_OK) != 0) VxCreateFolder(folder);
  return folder;
}

std::string VxAppCore::GetPluginDirectory() const {
  if (!mPluginDirectory.empty() && ::access(mPluginDirectory.c_str(), F_OK) == 0)
    return mPluginDirectory;
  return VxPathAppend(GetAppDataDirectory(), "Plugins");
}

std::string VxAppCore::GetFilePathInExeFolder(std::string const & name) const {
  return VxPathAppend(VxGetExecutableDirectory(), name);
}

std::unique_ptr<ConfigurationSection> VxAppCore::CommonSource() const {
  struct stat status {};
  if (mCommonSettingsFile.empty() || ::access(mCommonSettingsFile.c_str(), R_OK) != 0 ||
      ::stat(mCommonSettingsFile.c_str(), &status) != 0) {
    mCommon = ParsedFile();
    return nullptr;
  }
  long long const modified = status.st_mtim.tv_sec * 1000000000LL + status.st_mtim.tv_nsec;
  if (mCommon.path != mCommonSettingsFile || mCommon.size != status.st_size ||
      mCommon.modified != modified || mCommon.inode != status.st_ino) {
    mCommon = ParsedFile{mCommonSettingsFile, status.st_size, modified, status.st_ino, nullptr};
    mCommon.root = vx3::OpenSharedSettingsFile(mCommonSettingsFile);
  }
  return std::unique_ptr<ConfigurationSection>(mCommon.root ? mCommon.root->Copy() : nullptr);
}

std::unique_ptr<ConfigurationSection> VxAppCore::DefaultsSource(unsigned int resourceId) const {
  if (resourceId == 0 || !mDefaultsReader) return nullptr;
  auto found = mDefaults.find(resourceId);
  if (found == mDefaults.end()) {
    std::shared_ptr<ConfigurationSection> root;
    try {
      std::string const text = mDefaultsReader(resourceId);
      if (!text.empty()) root.reset(XercesXMLSection::CreateXMLSectionFromString(text.c_str()));
    } catch (Exception const &) {}
    found = mDefaults.emplace(resourceId, root).first;
  }
  return std::unique_ptr<ConfigurationSection>(found->second ? found->second->Copy() : nullptr);
}

ConfigurationSection * VxAppCore::GetAppSettings(char const * name, unsigned int resourceId) const {
  // The sources are only read: a parsed file or document serves every call
  // through a copy of its own.
  std::unique_ptr<ConfigurationSection> const common = CommonSource();
  std::unique_ptr<ConfigurationSection> const defaults = DefaultsSource(resourceId);

  // Without a user file (none set, or it could not be read) the layers go
  // onto an empty tree that is never written.
  OpenUserSettings();
  std::unique_ptr<ConfigurationSection> copy(mSettings ? mSettings->Copy()
                                                       : new XercesXMLSection());
  if (copy->HasSection(name, 1)) {
    copy->ChangeSubSection(name);
    return copy.release();
  }
  if (common && common->ChangeSubSection(kAppSettings) && common->HasSection(name, 1)) {
    // The all-users values are not copied: the new section starts empty, and
    // callers rely on their own defaults in this case.
    std::unique_ptr<ConfigurationSection> section(copy->CreateSubSection(name));
    section->WriteToSection(common.get());
    return section.release();
  }
  if (defaults) {
    defaults->ChangeSubSection(kAppSettings);
    if (defaults->HasSection(name, 1)) {
      std::unique_ptr<ConfigurationSection> section(copy->CreateSubSection(name));
      defaults->ChangeSubSection(name);
      defaults->WriteToSection(section.get());
      return section.release();
    }
  }
  return copy->CreateSubSection(name);
}

void VxAppCore::WriteAppInfo(ConfigurationSection * section) {
  section->WriteKey("AppName", VxSystemInfo::GetApplicationName());
  section->WriteKey("Version", VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionPath));
}
