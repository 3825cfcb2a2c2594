#pragma once
// Small icons of document files as the desktop shows them: the file's
// content type guessed from its name (GIO's shared MIME database), and that
// type's icon from the GTK icon theme at 16 pixels. Icons are cached per
// content type, so a list of many files of few types loads each icon once.
// GUI thread only.

#include <string>
#include <unordered_map>

#include <wx/icon.h>
#include <wx/string.h>

class FileTypeIcons {
public:
  static constexpr int kSize = 16;

  // The icon for `path`; an invalid icon when the theme has none for its
  // type. The file need not exist: only its name is read.
  wxIcon Get(wxString const & path);
  // The content type GIO guesses for the name of `path` ("text/plain").
  static std::string ContentType(wxString const & path);

  size_t CachedTypes() const { return mIcons.size(); }

private:
  static wxIcon Load(std::string const & contentType);

  std::unordered_map<std::string, wxIcon> mIcons;
};
