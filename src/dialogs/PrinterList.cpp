#include "dialogs/PrinterList.h"

#include <utility>

#include <cups/cups.h>

#include "settings/LibraryLoader.h"
#include "utl/Exception.h"

namespace {

// CUPS is loaded when the printers are first asked for, not with the
// library: it pulls in some twenty libraries (Kerberos, GnuTLS, Avahi) that
// every application would otherwise load at start for a list few users open.
struct Cups {
  LibraryLoader library;
  decltype(&cupsGetDests) getDests = nullptr;
  decltype(&cupsFreeDests) freeDests = nullptr;
  decltype(&cupsLastError) lastError = nullptr;
  decltype(&cupsLastErrorString) lastErrorString = nullptr;
  std::string failure;  // why it could not be loaded

  Cups() {
    try {
      library = LibraryLoader(L"libcups.so.2");
      Bind(getDests, "cupsGetDests");
      Bind(freeDests, "cupsFreeDests");
      Bind(lastError, "cupsLastError");
      Bind(lastErrorString, "cupsLastErrorString");
    } catch (Exception const & e) {
      failure = e.Why();
      getDests = nullptr;
    }
  }

  template <typename Function>
  void Bind(Function & function, char const * name) {
    function = reinterpret_cast<Function>(library.GetFunction(name));
    if (function == nullptr)
      throw Exception(ExceptionMessage::translate("CUPS has no {1}.") % name);
  }
};

Cups const & LoadedCups() {
  static Cups const cups;
  return cups;
}

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
  Cups const & cups = LoadedCups();
  if (cups.getDests == nullptr) {
    listing.error = cups.failure;
    return listing;
  }
  cups_dest_t * dests = nullptr;
  int const count = cups.getDests(&dests);
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
  cups.freeDests(count, dests);
  // No destinations and an error: the scheduler could not be asked.
  if (count == 0 && cups.lastError() > IPP_STATUS_OK_EVENTS_COMPLETE) {
    char const * text = cups.lastErrorString();
    listing.error = text != nullptr ? text : "";
  }
  return listing;
}
