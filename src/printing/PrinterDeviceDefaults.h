#pragma once
// The application's default printer settings (the printer's default device
// mode): printer, paper and orientation that printing and its previews
// start from, and that the print setup and the backstage print page change.
// One for the process; the GUI thread reads and writes it.

class wxPrintData;

wxPrintData & PrinterDeviceDefaults();
