#pragma once
// The texts an HTML view makes of its {html, style}: the page it shows and
// the page it saves.

#include <string>

#include <wx/string.h>

// The page shown for `html` with `css`: one document whose first style
// sheet is `css` and whose body is `html`.
wxString ComposeHtmlPage(wxString const & html, wxString const & css);

// The file a view writes for a page it made itself, as UTF-8: the body
// (the browser's outerHTML of it) inside an HTML 4.01 page titled `title`
// with the style; a body that holds "<HTML>" already is written alone.
// Both texts are trimmed.
std::string ComposeSavedPage(wxString const & title, wxString const & css, wxString const & body);

// Text for inside an element: & < > escaped.
wxString EscapeHtmlText(wxString const & text);
// Style text that cannot end its <style> element early ("</" written
// "<\/", which CSS reads as the same).
wxString EscapeStyleText(wxString const & css);
