#pragma once
// The optional customization package beside the executable (the first
// "*.appconfig" file there by name; see AppConfigPackage.h for its entries).
// It can rename the application, and gives the splash picture, numbered icons
// and the markup of the about pages.
//
// The application calls Instance() early in its start-up, before
// VxApp::SetRegistryLocation, because a new name changes every settings
// location. A package that cannot be read (no ZIP archive, truncated,
// damaged, an entry beyond the size limits, a picture that is no PNG or too
// large, an unusable name or support page) is not used at all: nothing of it
// is applied, the log gets the reason and the package's path, and the user
// is told once through the current UserComm. Without a package, or with a
// refused one, every getter gives an empty result.
//
// "appconfig.xml" may also name the support page of the internal-error
// dialog (VxSystemInfo::SetSupportPage).
//
// The singleton lives to the end of the process and is never destroyed: its
// bitmaps must not be released after the toolkit has shut down.

#include <map>
#include <memory>
#include <string>

#include <wx/bitmap.h>

#include "frame/VxImageManager.h"

class AppConfigPackage;

class VxAppCustomization : public VxImageManager {
public:
  static VxAppCustomization * Instance();
  // The package of `folder` read the way Instance() reads the executable's,
  // as a new object the caller owns: for tools and tests. It renames the
  // application just the same.
  static std::unique_ptr<VxAppCustomization> ReadFromFolder(std::string const & folder);

  ~VxAppCustomization() override;

  // UTF-8 path of the package; empty when there is none.
  std::string const & GetPackagePath() const { return mPackagePath; }
  // The bytes of one entry; empty without a package or such an entry.
  std::string ReadFile(char const * entry) const;
  // "about_us.xaml" and "help_backstage_page.xaml" with every "file://<icon
  // entry>" replaced by the icon's number.
  std::string GetAboutDialogMarkupSource() const;
  std::string GetBackstageAboutMarkupSource() const;
  // "file://<entry>" -> icon number, walked in key order.
  std::map<std::string, std::string> const & GetReplacements() const { return mReplacements; }
  // A new image manager with all the package's icons; the caller owns it.
  VxImageManager * GetImageManagerCopy() const;
  // The splash picture; an invalid bitmap when the package has none.
  wxBitmap const & GetSplashBitmap() const { return mSplash; }

private:
  explicit VxAppCustomization(std::string const & folder);
  // Reads and checks the package, then applies it; throws Exception, having
  // changed nothing outside this object, when it refuses the package.
  void Apply(std::string const & path);
  std::string MarkupSource(char const * entry) const;

  std::map<std::string, std::string> mReplacements;
  std::string mPackagePath;
  wxBitmap mSplash;
  std::unique_ptr<AppConfigPackage> mPackage;
};
