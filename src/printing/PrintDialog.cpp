#include "printing/PrintDialog.h"

#include <algorithm>

#include <boost/locale/encoding_utf.hpp>

#include "dialogs/PrinterList.h"
#include "platform/WinUser.h"

namespace {

PrintDialogFunction & CurrentFunction() {
  static PrintDialogFunction function;
  return function;
}

std::string Narrow(std::wstring const & text) {
  return boost::locale::conv::utf_to_utf<char>(text);
}

bool PrinterExists(std::string const & name) {
  PrinterListing const printers = ListPrinters();
  return std::find(printers.names.begin(), printers.names.end(), name) != printers.names.end();
}

}  // namespace

PrintDialogFunction SetPrintDialogFunction(PrintDialogFunction function) {
  std::swap(function, CurrentFunction());
  return function;
}

PaperFormat PaperOf(DEVMODEW const & mode) {
  PaperFormat paper = mode.paper;
  paper.landscape = mode.dmOrientation == DMORIENT_LANDSCAPE;
  return paper;
}

std::unique_ptr<PageDevice> CreateDC(DEVNAMES const & names, DEVMODEW const * mode) {
  PaperFormat const paper = mode != nullptr ? PaperOf(*mode) : PaperFormat{};
  if (names.driver == L"PDF") {
    return names.output.empty() ? nullptr : PageDevice::ForPdf(Narrow(names.output), paper);
  }
  if (names.device.empty() || !PrinterExists(Narrow(names.device))) {
    return nullptr;
  }
  return PageDevice::ForPrinter(Narrow(names.device), paper);
}

CPrintDialog::CPrintDialog(bool printSetupOnly, DWORD flags, wxWindow * parent) {
  m_pd.hwndOwner = parent;
  m_pd.Flags = flags | (printSetupOnly ? PD_PRINTSETUP : PD_RETURNDC);
}

CPrintDialog::~CPrintDialog() { delete m_pd.hDC; }

int CPrintDialog::DoModal() {
  mExtendedError = 0;
  delete m_pd.hDC;
  m_pd.hDC = nullptr;
  if (m_pd.hDevNames && m_pd.hDevNames->driver != L"PDF" &&
      !PrinterExists(Narrow(m_pd.hDevNames->device))) {
    mExtendedError = PDERR_PRINTERNOTFOUND;
    return 0;
  }
  int result = IDOK;
  if ((m_pd.Flags & PD_RETURNDEFAULT) != 0) {
    PrinterListing const printers = ListPrinters();
    if (printers.names.empty()) {
      mExtendedError = PDERR_PRINTERNOTFOUND;
      return 0;
    }
    m_pd.hDevNames = std::make_shared<DEVNAMES>(
        DEVNAMES{L"CUPS", boost::locale::conv::utf_to_utf<wchar_t>(printers.names.front()), L""});
  } else {
    PrintDialogFunction const & function = CurrentFunction();
    result = function ? function(m_pd) : RunDesktopPrintDialog(m_pd);
  }
  if (result == IDOK && (m_pd.Flags & PD_RETURNDC) != 0 && m_pd.hDevNames) {
    m_pd.hDC = CreateDC(*m_pd.hDevNames, m_pd.hDevMode.get()).release();
  }
  return result;
}

int CPrintDialog::GetCopies() const {
  if ((m_pd.Flags & PD_USEDEVMODECOPIESANDCOLLATE) != 0 && m_pd.hDevMode) {
    return m_pd.hDevMode->dmCopies;
  }
  return m_pd.nCopies;
}

bool CPrintDialog::PrintCollate() const {
  if ((m_pd.Flags & PD_USEDEVMODECOPIESANDCOLLATE) != 0 && m_pd.hDevMode) {
    return m_pd.hDevMode->dmCollate != 0;
  }
  return (m_pd.Flags & PD_COLLATE) != 0;
}

std::unique_ptr<CDC> CPrintDialog::TakeDC() {
  std::unique_ptr<CDC> dc(m_pd.hDC);
  m_pd.hDC = nullptr;
  return dc;
}
