#pragma once
// A list's rows on the clipboard, offered in one go in the forms other
// programs take: plain UTF-8 text (lines keep their "\r\n", so that a
// spreadsheet sees its rows), "text/html" (the document of the HTML block)
// and the whole block under the target "HTML Format" that office programs
// of the family's users ask for.

#include <optional>
#include <string>

#include <wx/string.h>

// The X selection target of the block, and of the bare document.
extern char const kHtmlFormatTarget[];
extern char const kHtmlTarget[];

// Replaces the clipboard's contents by `text` and, when given, the HTML
// block. False, with nothing changed, when the clipboard cannot be opened.
bool PutTextAndHtmlOnClipboard(wxString const & text, std::optional<std::string> const & block);
