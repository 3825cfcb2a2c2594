#pragma once
// The "HTML Format" clipboard block that spreadsheets and word processors
// read: a "Version:0.9" header with the byte offsets of the document and of
// the fragment, then an HTML document that wraps the fragment. The list and
// the tree list put their rows on the clipboard through it.

#include <cstddef>
#include <optional>
#include <string>

// The block around `fragment` (UTF-8, put in as it stands: nothing is
// escaped). Each offset is found by the first match from the start of the
// block, so a fragment holding "<!--EndFrag" moves EndFragment to that
// place. Nothing (no block) for a null fragment or when an offset would need
// more than its eight digits.
std::optional<std::string> MakeHTMLClipStringFromText(char const * fragment);

// The part of a finished block that the "text/html" target offers: the
// document from its StartHTML offset on. The whole block when the offset is
// unreadable or beyond the end.
std::string HtmlDocumentOfClipBlock(std::string const & block);
