#pragma once
// Paths between wx's strings and the bytes the file system knows. A Linux
// name need not be UTF-8: wx keeps each byte that is none as a character of
// the private-use area, so utf8_string() of such a path names nothing on
// disk. These conversions give the very bytes back, and take them in.

#include <string>

#include <wx/string.h>

std::string ToFileSystemPath(wxString const & path);
wxString FromFileSystemPath(std::string const & bytes);
