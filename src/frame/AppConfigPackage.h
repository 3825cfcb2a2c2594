#pragma once
// The customization package of an application: a plain ZIP file named
// "*.appconfig" beside the executable. Entries the library knows (names
// matched without regard to ASCII case):
//
//   appconfig.xml              <AppConfig>
//                                <AppName>New name</AppName>
//                                <SupportPage>https://...</SupportPage>
//                              </AppConfig>
//   splash.png                 the splash picture
//   any other *.png            numbered icons, in archive order from 1
//   about_us.xaml              markup of the about dialog
//   help_backstage_page.xaml   markup of the backstage help page
//   anything else              read by name
//
// The package comes from outside, so it is read whole and checked once, when
// it is opened: a file that is no ZIP archive, is truncated or damaged (the
// checksum of every entry is verified), holds too many entries, or has an
// entry that inflates beyond the limit throws Exception naming the package.
// Inflating stops at the limit whatever the archive declares, so a
// compression bomb costs at most that much memory. Afterwards every read is
// served from memory and cannot fail. Needs no display.

#include <cstddef>
#include <map>
#include <string>
#include <vector>

// Generous for pictures and markup, small enough that a hostile package
// cannot exhaust memory.
struct AppConfigLimits {
  size_t maxPackageBytes = size_t(64) << 20;
  size_t maxEntryBytes = size_t(32) << 20;
  size_t maxTotalBytes = size_t(128) << 20;  // all entries inflated
  size_t maxEntries = 4096;
};

class AppConfigPackage {
public:
  using Limits = AppConfigLimits;

  // The first "*.appconfig" file in `folder`, by byte order of the names
  // (so that the choice does not depend on the file system); "" if none.
  static std::string FindPackage(std::string const & folder);

  // Reads the package at `path`.
  explicit AppConfigPackage(std::string const & path, Limits const & limits = Limits());
  // Reads a package held in memory; `source` names it in messages.
  AppConfigPackage(std::string const & bytes, std::string source, Limits const & limits = Limits());

  std::string const & Source() const { return mSource; }
  // Entry names in archive order.
  std::vector<std::string> EntryNames() const;
  bool HasEntry(char const * name) const;
  // The bytes of the first entry of that name; "" when there is none.
  std::string ReadFile(char const * name) const;

  // The "AppName" of "appconfig.xml"; "" when the entry or the name is
  // absent. Throws Exception when the entry is no such XML document, or the
  // name is unusable as an application name (it names folders and registry
  // keys: no "/", "\", control characters, "." or "..").
  std::string ReadAppName() const;
  // The "SupportPage" of "appconfig.xml" (the internal-error dialog's link);
  // "" when absent. Throws Exception like ReadAppName, and for anything but
  // an "http://" or "https://" address without blanks or control characters.
  std::string ReadSupportPage() const;
  // The entries that become numbered icons (extension "png", not
  // "splash.png"), in archive order: the first is icon 1.
  std::vector<std::string> IconEntryNames() const;
  // "file://<icon entry>" -> "<icon number>" for every icon entry.
  std::map<std::string, std::string> IconReplacements() const;

  // `text` with every occurrence of each key replaced by its value, keys in
  // map order.
  static std::string ApplyReplacements(std::string text,
                                       std::map<std::string, std::string> const & replacements);

private:
  struct Entry {
    std::string name;
    std::string bytes;
  };

  void Read(std::string const & bytes, Limits const & limits);
  // The text of the element `item` below the root of "appconfig.xml".
  std::string ReadConfigItem(char const * item) const;
  Entry const * Find(char const * name) const;

  std::string mSource;
  std::vector<Entry> mEntries;
};
