#pragma once
// The printers a user can pick, from CUPS, through a replaceable function
// so that tests name their own.

#include <functional>
#include <string>
#include <vector>

struct PrinterListing {
  std::vector<std::string> names;  // the default printer first
  std::string error;               // empty when CUPS answered
};

using PrinterListFunction = std::function<PrinterListing()>;

PrinterListing ListPrinters();
// Install `function` (empty: CUPS again) and return the former.
PrinterListFunction SetPrinterListFunction(PrinterListFunction function);

// The destinations cupsGetDests knows (printers and classes, with
// instances as "printer/instance").
PrinterListing CupsPrinters();
