#include "dialogs/FileDialogFilter.h"

#include <wx/tokenzr.h>

namespace {

wxString LinuxPatterns(wxString const & windowsPatterns) {
  wxString patterns;
  for (wxString pattern : wxSplit(windowsPatterns, ';', '\0')) {
    pattern.Trim(true).Trim(false);
    if (pattern.empty()) continue;
    if (pattern == "*.*") pattern = "*";
    if (!patterns.empty()) patterns += ';';
    patterns += pattern;
  }
  return patterns;
}

}  // namespace

wxString ToChooserWildcard(wchar_t const * filter) {
  if (filter == nullptr) return wxString();
  wxArrayString const parts = wxSplit(wxString(filter), '|', '\0');
  wxString wildcard;
  for (size_t i = 0; i + 1 < parts.size(); i += 2) {
    wxString const patterns = LinuxPatterns(parts[i + 1]);
    if (parts[i].empty() || patterns.empty()) continue;
    if (!wildcard.empty()) wildcard += '|';
    wildcard += parts[i] + '|' + patterns;
  }
  return wildcard;
}
