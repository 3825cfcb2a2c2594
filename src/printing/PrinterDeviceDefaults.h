#pragma once
// The application's default printer settings (the printer's default device
// mode): printer, paper and orientation that printing and its previews
// start from, and that the print setup and the backstage print page change.
// One for the process; the GUI thread reads and writes it.

class CPrintDialog;
class wxPrintData;
struct DEVMODEW;

wxPrintData & PrinterDeviceDefaults();

// The defaults' orientation put into `mode`, which keeps its paper.
void ApplyPrinterDeviceDefaults(DEVMODEW & mode);

// Runs `dialog` as the application does: its device mode starts from the
// defaults, so the page's orientation reaches the job, and an accepted
// choice becomes the defaults. IDOK, IDCANCEL or 0 as DoModal.
int DoPrintDialog(CPrintDialog & dialog);
