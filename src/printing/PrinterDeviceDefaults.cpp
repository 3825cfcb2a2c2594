#include "printing/PrinterDeviceDefaults.h"

#include <wx/cmndata.h>

wxPrintData & PrinterDeviceDefaults() {
  static wxPrintData defaults;
  return defaults;
}
