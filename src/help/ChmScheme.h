#pragma once
// The "its:" scheme of the browser: the pages of the compiled help files
// that a live viewer (a help control or a help window) registered, and
// nothing else. An address is decoded and its inner path normalised
// (help/ChmAddress.h); a file not registered, a name not in the archive or
// a path that climbs out of it is "not found". Each registered file is
// opened once, on its first page, and closed with its last registration.

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "help/ChmArchive.h"

class ChmScheme {
public:
  static ChmScheme & Instance();

  // Registrations are counted: a file stays served until each Register has
  // had its Unregister.
  void Register(std::string const & chmPath);
  void Unregister(std::string const & chmPath);
  bool IsRegistered(std::string const & chmPath) const;

  // The bytes and MIME type of `url`; false with the reason in `error`.
  bool Serve(std::string const & url, std::string & bytes, std::string & mimeType,
             std::string & error);

  // Makes the browsers of the process ask this object for "its:"
  // addresses: once a process, on the first call (which loads the browser
  // library). False when there is no browser.
  bool InstallInBrowser();

private:
  ChmScheme() = default;
  struct Entry {
    int registrations = 0;
    std::shared_ptr<ChmArchive> archive;
  };
  std::shared_ptr<ChmArchive> ArchiveOf(std::string const & chmPath, ChmError & error);

  mutable std::mutex mMutex;
  std::map<std::string, Entry> mEntries;
};

// The MIME type for a name in an archive, by its extension;
// "application/octet-stream" for unknown ones.
char const * ChmMimeType(std::string_view name);
