#include "printing/PrinterDeviceDefaults.h"

#include <memory>

#include <wx/cmndata.h>

#include "platform/WinUser.h"
#include "printing/PrintDialog.h"

wxPrintData & PrinterDeviceDefaults() {
  static wxPrintData defaults;
  return defaults;
}

void ApplyPrinterDeviceDefaults(DEVMODEW & mode) {
  bool const landscape = PrinterDeviceDefaults().GetOrientation() == wxLANDSCAPE;
  mode.dmOrientation = landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  mode.paper.landscape = landscape;
}

int DoPrintDialog(CPrintDialog & dialog) {
  PRINTDLGW & pd = dialog.m_pd;
  // A copy: the mode may be shared with what GetSetup handed out earlier.
  auto mode = std::make_shared<DEVMODEW>(pd.hDevMode ? *pd.hDevMode : DEVMODEW{});
  ApplyPrinterDeviceDefaults(*mode);
  pd.hDevMode = mode;
  int const result = dialog.DoModal();
  if (result == IDOK && pd.hDevMode) {
    PrinterDeviceDefaults().SetOrientation(
        pd.hDevMode->dmOrientation == DMORIENT_LANDSCAPE ? wxLANDSCAPE : wxPORTRAIT);
  }
  return result;
}
