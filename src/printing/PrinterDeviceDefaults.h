#pragma once
// The application's default printer settings (the printer's default device
// mode): printer, paper and orientation that printing and its previews
// start from, and that the print setup, the print dialog and the backstage
// print page change. One for the process; the GUI thread reads and writes
// it.

#include "printing/PageDevice.h"

class CPrintDialog;
class wxPrintData;
struct DEVMODEW;

wxPrintData & PrinterDeviceDefaults();

// The paper of `printer` with its orientation; A4 when it names none.
PaperFormat PaperOf(wxPrintData const & printer);
// `paper` and its orientation become `printer`'s: a paper of wx's list by
// its id, any other by its size.
void SetPaper(wxPrintData & printer, PaperFormat const & paper);

// The defaults' paper and orientation put into `mode`.
void ApplyPrinterDeviceDefaults(DEVMODEW & mode);

// Runs `dialog` as the application does: its device mode starts from the
// defaults, so the page's paper and orientation reach the job, and an
// accepted choice becomes the defaults. IDOK, IDCANCEL or 0 as DoModal.
int DoPrintDialog(CPrintDialog & dialog);
