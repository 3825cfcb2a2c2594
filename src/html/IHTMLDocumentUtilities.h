#pragma once
// Reading, replacing and completing the style sheets of an HTML view's
// document, on the view's style model (html/HtmlStyleSheet.h), so that the
// answers come at once and need no browser. Results are HRESULTs.

#include <wx/string.h>

#include "html/HtmlStyleSheet.h"
#include "platform/WinTypes.h"

namespace IHTMLDocumentUtilities {

// The text of the document's first style sheet; E_FAIL when it has none,
// E_POINTER for a null document or text.
HRESULT GetCSSText(HtmlDocumentStyle * document, wxString * text);
// Replaces the first sheet's rules, creating the sheet when there is none.
HRESULT SetCSSText(HtmlDocumentStyle * document, wxString const & text);

// The first rule of `selector` (compared without regard to case) in any of
// the document's sheets, or in the one sheet; E_FAIL when there is none.
HRESULT GetIHTMLRuleStyle(wxString const & selector, HtmlDocumentStyle * document,
                          HtmlStyleRule ** rule);
HRESULT GetIHTMLRuleStyle(wxString const & selector, HtmlStyleSheet * sheet, HtmlStyleRule ** rule);

// Appends every rule of `css` whose selector the sheet does not have yet;
// the sheet's own rules stay as they are.
void AddMissingHTMLRuleStyles(wxString const & css, HtmlStyleSheet * sheet);

}  // namespace IHTMLDocumentUtilities
