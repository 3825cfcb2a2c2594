#pragma once
// Every text for a person is an English message id translated at display.
// At start-up the application installs a Boost.Locale (ICU) global locale
// that carries its gettext catalogs; texts are looked up when they are
// shown. A missing catalog, or a missing entry, gives the English id.

#include <locale>
#include <string>
#include <vector>

#include <wx/string.h>

namespace vx3 {

struct TranslationSetup {
  // Catalog domains, searched in order; the first is Boost.Locale's default
  // domain, which `boost::locale::translate(...).str()` uses.
  std::vector<std::string> domains{"talvoutlwin"};
  // Folders that hold <language>/LC_MESSAGES/<domain>.mo.
  std::vector<std::string> catalogPaths;
  // ICU locale name ("de_DE.UTF-8"); empty takes it from the environment
  // (LC_ALL, LC_MESSAGES, LANG).
  std::string localeName;
};

// Builds the locale, makes it the global C++ locale and returns it.
std::locale InstallTranslation(TranslationSetup const & setup);

// Catalog folders beside an executable: <exe>/../share/locale, <exe>/locale,
// then the installed library's own (<prefix>/share/locale).
std::vector<std::string> DefaultCatalogPaths();

// The translation of `id` (with `context`, when given) in `locale`; `id`
// itself when no catalog has it or the locale carries no catalogs.
// Never throws.
std::string TranslateText(char const * id, std::locale const & locale) noexcept;
std::string TranslateText(char const * context, char const * id,
                          std::locale const & locale) noexcept;

// The same in the global locale, as a wxString for a window: the short form
// that user-interface code writes, `vx3::Tr("Ready")`,
// `vx3::Tr("Stop button", "Stop")`. The .pot extraction knows both forms.
wxString Tr(char const * id);
wxString Tr(char const * context, char const * id);

}  // namespace vx3
