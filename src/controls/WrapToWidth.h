#pragma once
// Text broken into lines for a label of a given width, measured once.

#include <wx/font.h>
#include <wx/string.h>

// `text` broken at blanks into lines no wider than `width` pixels in `font`.
// The text is measured once; a label's own wrapping (wxStaticText::Wrap)
// measures it again for every word, some milliseconds for a paragraph.
wxString WrapToWidth(wxString const & text, wxFont const & font, int width);
