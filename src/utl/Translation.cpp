#include "utl/Translation.h"

#include <dlfcn.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>

#include <boost/locale/generator.hpp>
#include <boost/locale/message.hpp>

#include "utl/Paths.h"

namespace vx3 {

namespace {

// How many domains the installed locale carries (at least the default).
std::atomic<int> gDomainCount{1};

std::string LocaleNameFromEnvironment() {
  for (char const * variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    char const * value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return "C.UTF-8";
}

std::string Lookup(char const * context, char const * id, std::locale const & locale) {
  using Facet = boost::locale::message_format<char>;
  if (id == nullptr) return std::string();
  if (*id == '\0' || !std::has_facet<Facet>(locale)) return id;
  Facet const & facet = std::use_facet<Facet>(locale);
  // Domain 0 is the default; the others are asked in the order installed.
  int const domains = gDomainCount.load();
  for (int domain = 0; domain < domains; ++domain) {
    char const * found = facet.get(domain, context, id);
    if (found != nullptr) return found;
  }
  return id;
}

// Where the library's own catalogs are installed, relative to the folder of
// the library file (the build passes the installation's layout).
#ifndef TALVO_LIBRARY_TO_LOCALE_DIR
#define TALVO_LIBRARY_TO_LOCALE_DIR "../share/locale"
#endif

// The catalog folder of the installation this library belongs to, which an
// application installed elsewhere would not find beside its executable.
std::string LibraryCatalogPath() {
  Dl_info info{};
  if (::dladdr(reinterpret_cast<void *>(&DefaultCatalogPaths), &info) == 0 ||
      info.dli_fname == nullptr)
    return "";
  std::string const folder = VxGetDirectory(info.dli_fname);
  if (folder.empty()) return "";
  std::filesystem::path const path(VxPathAppend(folder, TALVO_LIBRARY_TO_LOCALE_DIR));
  return path.lexically_normal().string();
}

}  // namespace

std::locale InstallTranslation(TranslationSetup const & setup) {
  boost::locale::generator generator;
  generator.use_ansi_encoding(false);
  // Only what the library uses: catalogs, case conversion and the locale's
  // name. ICU's date and number formatters and its collators would cost
  // ~20 million instructions at start-up and nothing here reads them.
  generator.categories(boost::locale::message_facet | boost::locale::convert_facet |
                       boost::locale::information_facet | boost::locale::codepage_facet);
  for (auto const & path : setup.catalogPaths) generator.add_messages_path(path);
  for (auto const & domain : setup.domains) generator.add_messages_domain(domain);
  std::string const name =
      setup.localeName.empty() ? LocaleNameFromEnvironment() : setup.localeName;
  std::locale locale = generator(name);
  gDomainCount.store(setup.domains.empty() ? 1 : static_cast<int>(setup.domains.size()));
  std::locale::global(locale);
  return locale;
}

std::vector<std::string> DefaultCatalogPaths() {
  std::vector<std::string> paths;
  std::string const exeDirectory = VxGetExecutableDirectory();
  if (!exeDirectory.empty()) {
    paths.push_back(VxPathAppend(VxGetDirectory(exeDirectory), "share/locale"));
    paths.push_back(VxPathAppend(exeDirectory, "locale"));
  }
  std::string const library = LibraryCatalogPath();
  if (!library.empty() && std::find(paths.begin(), paths.end(), library) == paths.end())
    paths.push_back(library);
  return paths;
}

std::string TranslateText(char const * id, std::locale const & locale) noexcept {
  return TranslateText(nullptr, id, locale);
}

std::string TranslateText(char const * context, char const * id,
                          std::locale const & locale) noexcept {
  try {
    return Lookup(context, id, locale);
  } catch (...) {
    try {
      return id != nullptr ? id : "";
    } catch (...) {
      return std::string();
    }
  }
}

wxString Tr(char const * id) { return wxString::FromUTF8(TranslateText(id, std::locale())); }

wxString Tr(char const * context, char const * id) {
  return wxString::FromUTF8(TranslateText(context, id, std::locale()));
}

}  // namespace vx3
