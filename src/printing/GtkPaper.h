#pragma once
// A PaperFormat in GTK's terms, for the print dialog and the print job. The
// desktop's own paper of the same measures is taken where there is one, so
// that CUPS is asked for "A4" or "Letter", which every printer knows; any
// other paper goes as a custom size.

#include <gtk/gtk.h>

#include "printing/PageDevice.h"

// A new page setup (the caller unrefs it) with the paper upright and its
// orientation; the same paper and orientation go into `settings` if given.
GtkPageSetup * NewPageSetup(PaperFormat const & paper, GtkPrintSettings * settings = nullptr);
