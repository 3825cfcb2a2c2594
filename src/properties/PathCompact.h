#pragma once
// Fitting a path into a cell of a given width in pixels, as the path cells
// show it: a path that fits stays whole; otherwise its last component is
// kept and whole components before it give way to "..." from the middle
// ("/home/ana/runs/2024/run 17.csv" -> "/home/.../run 17.csv"). Only when
// the last component alone is too wide is its end cut ("run 17 of the
// lo..."). When not even that fits, "..." is the result. Separators are "/".
//
// The rule takes its widths from a measuring function, so that it is the
// same on screen and in tests. On screen (the wxDC forms) each character is
// measured once per font and kept for the life of the process, and the
// result is checked as drawn: a path cell costs one short text layout rather
// than one of the whole path.

#include <functional>

#include <wx/string.h>

class wxDC;

// The width of a text in pixels.
using TextWidthFunction = std::function<int(wxString const & text)>;

// `path` compacted to `width` with the widths `measure` gives, which must
// not shrink when a text grows.
wxString CompactPath(wxString const & path, int width, TextWidthFunction const & measure);

// `path` compacted to `width` in the font of `dc`.
wxString CompactPath(wxDC const & dc, wxString const & path, int width);

// The platform's form: compacts the path in `path` (NUL-terminated) in place
// to `width` in the font of `dc`; the text never grows, except that a path
// of one or two characters too wide for "..." is left alone. Always true.
bool PathCompactPathW(wxDC const & dc, wchar_t * path, unsigned width);
