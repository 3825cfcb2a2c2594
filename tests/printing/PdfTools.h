#pragma once
// The PDFs the printing code writes are read back by poppler's tools, as a
// user's viewer would read them.

#include <string>

namespace pdf_tools {

// The standard output of `command` (run through /bin/sh, arguments quoted
// by the caller with Quote); its exit status in `status` when given.
std::string Run(std::string const & command, int * status = nullptr);
std::string Quote(std::string const & text);

// pdfinfo's "Pages:" line; -1 when the file is not a readable PDF.
int PageCount(std::string const & pdf);
// pdfinfo's "Page size:" text, e.g. "595.28 x 841.89 pts (A4)".
std::string PageSize(std::string const & pdf);
// pdftotext of the whole file in physical layout.
std::string Text(std::string const & pdf);
// Rows of `pdfimages -list` below its two header lines.
std::string ImageList(std::string const & pdf);

}  // namespace pdf_tools
