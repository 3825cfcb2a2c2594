#pragma once
// A printout drawn for a preview: the same calls, in the same order, as a
// print job makes of it (VXPrinter::Print), on the page device's picture
// output instead of a printer, for the first pages only.

#include <memory>

#include "printing/PageDevice.h"

class PrintOut;

// Pages from the printout's first page on, at most `maxPages`, on `paper` at
// `pixelsPerInch`: the device that holds their pictures (PageSurface), fewer
// when the printout ends sooner. Null when the device or the printout fails.
std::unique_ptr<PageDevice> RenderPreviewPages(PrintOut & out, PaperFormat const & paper,
                                               double pixelsPerInch, int maxPages);
