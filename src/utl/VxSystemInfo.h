#pragma once
// Who the running application is. The application sets its name and
// version once at start; everything else (registry and folder paths, the
// "Version" key, about boxes, crash reports) reads them here.

#include <string>

namespace VxSystemInfo {

enum EVersionFormat {
  VersionDisplay = 0,  // "6.3.2": major.minor.revision, for people
  VersionFull = 1,     // "6.3.2.1234": with the build number
  VersionPath = 2,     // "6.3": part of registry and folder paths, so that
                       // revisions of one version share their settings
};

// `version` is "major[.minor[.revision[.build]]]"; missing parts are 0, and
// anything that is no number counts as 0.
void SetApplication(std::string const & name, std::string const & version);

// "TALVOutlwin" until the application sets its own.
std::string GetApplicationName();
std::string GetApplicationVersion(EVersionFormat format);
// "6.3.2 (build 1234)".
std::string GetApplicationVersionAndBuild();

// Where a person gets help with a failure: the link of the internal-error
// dialog. The application sets its own (or its customization package does);
// until then it is this library's neutral page, kDefaultSupportPage. Only
// "https://" and "http://" addresses are taken; false (and nothing changed)
// for anything else, so a stray text never becomes something the desktop
// opens.
extern char const kDefaultSupportPage[];
bool IsUsableSupportPage(std::string const & address);
bool SetSupportPage(std::string const & address);
std::string GetSupportPage();

}  // namespace VxSystemInfo
