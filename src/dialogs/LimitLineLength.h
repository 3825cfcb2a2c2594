#pragma once
// Wraps text for the sized dialogs, tips and lists: at a number of
// user-perceived characters or at a width in pixels, breaking where the
// Unicode line-breaking rules allow. A piece (a word with what follows it)
// that cannot fit on a line of its own is not split: it stands whole on a
// line of its own, and the next piece starts a new line. Callers that must
// fit a width (the message box) cut such lines themselves.

#include <wx/dc.h>
#include <wx/font.h>
#include <wx/gdicmn.h>

#include <cstddef>
#include <string>

class LimitLineLength {
public:
  LimitLineLength() = delete;

  // Inserts "\n" so that no line holds more than `limit` grapheme clusters,
  // except a single piece longer than that.
  static std::wstring ByCharacters(std::wstring const & text, size_t limit);

  // Inserts "\n" so that no line is wider than `limit` pixels in the font of
  // `dc`. A negative width converted to size_t is huge: nothing is wrapped.
  static std::wstring ByPixels(std::wstring const & text, wxDC & dc, size_t limit);

  // The rectangle at (0, 0) that `text` (lines at "\n") needs in `font` on the
  // screen: the widest line's width, and the height of all lines.
  static wxRect GetBoundsRect(wchar_t const * text, wxFont const & font);
};
