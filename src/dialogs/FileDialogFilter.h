#pragma once
// The filter string of the Windows file dialog ("Text files (*.txt)|*.txt|
// All files (*.*)|*.*||": pairs of a description and patterns, patterns
// separated by ";") in the form of wx's file chooser.

#include <wx/string.h>

// Pairs without patterns and the closing "||" go. "*.*", which on Windows
// matches every name, becomes "*": on Linux it would match only names with
// a point. An empty or null filter gives "".
wxString ToChooserWildcard(wchar_t const * filter);
