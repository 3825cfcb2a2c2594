#include "dialogs/PrinterList.h"

#include <utility>

#include <cups/cups.h>

namespace {

PrinterListFunction & Function() {
  static PrinterListFunction function;
  return function;
}

}  // namespace

PrinterListing ListPrinters() {
  PrinterListFunction const function = Function();
  return function ? function() : CupsPrinters();
}

PrinterListFunction SetPrinterListFunction(PrinterListFunction function) {
  return std::exchange(Function(), std::move(function));
}

PrinterListing CupsPrinters() {
  PrinterListing listing;
  cups_dest_t * dests = nullptr;
  int const count = cupsGetDests(&dests);
  for (int i = 0; i < count; ++i) {
    cups_dest_t const & dest = dests[i];
    if (dest.name == nullptr) continue;
    std::string name = dest.name;
    if (dest.instance != nullptr) name += std::string("/") + dest.instance;
    if (dest.is_default)
      listing.names.insert(listing.names.begin(), std::move(name));
    else
      listing.names.push_back(std::move(name));
  }
  cupsFreeDests(count, dests);
  // No destinations and an error: the scheduler could not be asked.
  if (count == 0 && cupsLastError() > IPP_STATUS_OK_EVENTS_COMPLETE) {
    char const * text = cupsLastErrorString();
    listing.error = text != nullptr ? text : "";
  }
  return listing;
}
