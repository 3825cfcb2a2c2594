#include "printing/PrinterDeviceDefaults.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <wx/cmndata.h>
#include <wx/paper.h>

#include "platform/WinUser.h"
#include "printing/PrintDialog.h"

namespace {

// wx's paper list measures in tenths of a millimetre; a size from another
// road may be rounded to whole millimetres.
constexpr double kSameSizeMm = 1.0;

// The listed paper closest to `widthMm` by `heightMm` (upright), if one is
// near enough.
wxPrintPaperType const * ListedPaper(double widthMm, double heightMm) {
  if (wxThePrintPaperDatabase == nullptr) return nullptr;
  wxPrintPaperType const * closest = nullptr;
  double closestDistance = kSameSizeMm * 2;
  for (std::size_t i = 0; i < wxThePrintPaperDatabase->GetCount(); ++i) {
    wxPrintPaperType const * type = wxThePrintPaperDatabase->Item(i);
    double const dx = std::fabs(std::min(type->GetWidth(), type->GetHeight()) / 10.0 - widthMm);
    double const dy = std::fabs(std::max(type->GetWidth(), type->GetHeight()) / 10.0 - heightMm);
    if (dx <= kSameSizeMm && dy <= kSameSizeMm && dx + dy < closestDistance) {
      closest = type;
      closestDistance = dx + dy;
    }
  }
  return closest;
}

}  // namespace

wxPrintData & PrinterDeviceDefaults() {
  static wxPrintData defaults;
  return defaults;
}

PaperFormat PaperOf(wxPrintData const & printer) {
  PaperFormat paper;
  double width = 0.0;
  double height = 0.0;
  wxPrintPaperType const * type =
      printer.GetPaperId() != wxPAPER_NONE && wxThePrintPaperDatabase != nullptr
          ? wxThePrintPaperDatabase->FindPaperType(printer.GetPaperId())
          : nullptr;
  if (type != nullptr) {
    width = type->GetWidth() / 10.0;
    height = type->GetHeight() / 10.0;
  } else {
    width = printer.GetPaperSize().x;
    height = printer.GetPaperSize().y;
  }
  if (width > 0.0 && height > 0.0) {
    paper.widthMm = std::min(width, height);
    paper.heightMm = std::max(width, height);
  }
  paper.landscape = printer.GetOrientation() == wxLANDSCAPE;
  return paper;
}

void SetPaper(wxPrintData & printer, PaperFormat const & paper) {
  double const width = std::min(paper.widthMm, paper.heightMm);
  double const height = std::max(paper.widthMm, paper.heightMm);
  wxPrintPaperType const * type = ListedPaper(width, height);
  printer.SetPaperId(type != nullptr ? type->GetId() : wxPAPER_NONE);
  printer.SetPaperSize(type != nullptr ? type->GetSizeMM()
                                       : wxSize(int(std::lround(width)), int(std::lround(height))));
  printer.SetOrientation(paper.landscape ? wxLANDSCAPE : wxPORTRAIT);
}

void ApplyPrinterDeviceDefaults(DEVMODEW & mode) {
  mode.paper = PaperOf(PrinterDeviceDefaults());
  mode.dmOrientation = mode.paper.landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
}

int DoPrintDialog(CPrintDialog & dialog) {
  PRINTDLGW & pd = dialog.m_pd;
  // A copy: the mode may be shared with what GetSetup handed out earlier.
  auto mode = std::make_shared<DEVMODEW>(pd.hDevMode ? *pd.hDevMode : DEVMODEW{});
  ApplyPrinterDeviceDefaults(*mode);
  pd.hDevMode = mode;
  int const result = dialog.DoModal();
  if (result == IDOK && pd.hDevMode) SetPaper(PrinterDeviceDefaults(), PaperOf(*pd.hDevMode));
  return result;
}
