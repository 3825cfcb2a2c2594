#pragma once
// The fonts of tree items that have a font of their own, made once and kept
// with the heights of the labels drawn in them. Making a font per row per
// paint costs the toolkit a font lookup each time, and measuring a label
// costs a text layout: a page of such rows painted over and over paid both
// for every row.
#include <map>
#include <string>
#include <tuple>

#include <wx/dc.h>
#include <wx/font.h>

#include "platform/WinGdi.h"

// The control's font changed by what `logFont` sets: an empty face name
// keeps the control's face; a negative height is a pixel size.
wxFont FontFromLogFont(LOGFONTW const & logFont, wxFont const & base);

class ItemFontCache {
public:
  // The font for `logFont` over `base`, in bold when `bold`. A change of
  // `base` drops everything made from the old one.
  wxFont const & Font(LOGFONTW const & logFont, bool bold, wxFont const & base);

  // The height `dc` gives `text` in `font` (a font this cache returned),
  // measured once per font and text.
  int TextHeight(wxDC & dc, wxFont const & font, wxString const & text);

  size_t FontCount() const { return mFonts.size(); }

private:
  // Only what FontFromLogFont reads: face, pixel height, bold, italic,
  // underline, strike-through.
  using Key = std::tuple<std::wstring, LONG, bool, bool, bool, bool>;
  struct Made {
    wxFont font;
    std::map<wxString, int> heights;
  };
  // Past this many labels a font's heights start over: item texts change.
  static constexpr size_t MaxHeightsPerFont = 4096;

  wxFont mBase;
  std::map<Key, Made> mFonts;
};
