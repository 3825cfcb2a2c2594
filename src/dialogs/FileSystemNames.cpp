#include "dialogs/FileSystemNames.h"

std::string ToFileSystemPath(wxString const & path) {
  wxCharBuffer const bytes = path.fn_str();
  return bytes.data() != nullptr ? std::string(bytes.data(), bytes.length()) : std::string();
}

wxString FromFileSystemPath(std::string const & bytes) {
  return wxString(bytes.c_str(), *wxConvFileName, bytes.size());
}
