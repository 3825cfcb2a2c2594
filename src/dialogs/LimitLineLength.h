#pragma once
// Wraps text for the sized dialogs, tips and lists: at a number of
// user-perceived characters or at a width in pixels, breaking where the
// Unicode line-breaking rules allow. A piece that cannot fit on a line of its
// own is split between grapheme clusters, so that no line overflows by more
// than one cluster and no cluster is ever cut.

#include <wx/dc.h>
#include <wx/font.h>
#include <wx/gdicmn.h>

#include <cstddef>
#include <string>

class LimitLineLength {
public:
  LimitLineLength() = delete;

  // Inserts "\n" so that no line holds more than `limit` grapheme clusters.
  static std::wstring ByCharacters(std::wstring const & text, size_t limit);

  // Inserts "\n" so that no line is wider than `limit` pixels in the font of
  // `dc`. A negative width converted to size_t is huge: nothing is wrapped.
  static std::wstring ByPixels(std::wstring const & text, wxDC & dc, size_t limit);

  // The rectangle at (0, 0) that `text` (lines at "\n") needs in `font` on the
  // screen: the widest line's width, and the height of all lines.
  static wxRect GetBoundsRect(wchar_t const * text, wxFont const & font);
};
