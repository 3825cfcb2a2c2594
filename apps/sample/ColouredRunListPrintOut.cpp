#include "ColouredRunListPrintOut.h"

#include <algorithm>

#include <wx/dc.h>

#include "utl/Translation.h"

namespace {

// In inches: the margins, the heading's and a row's height.
constexpr double kMargin = 0.8;
constexpr double kHeading = 0.7;
constexpr double kRow = 0.25;

wxColour const kHeadingColour(0x1F, 0x4E, 0x79);
wxColour const kShadeColour(0xDD, 0xEB, 0xF7);
wxColour const kRetiredColour(0xC0, 0x00, 0x00);
wxColour const kGreyShade(0xE6, 0xE6, 0xE6);
wxColour const kGreyText(0x60, 0x60, 0x60);

}  // namespace

ColouredRunListPrintOut::ColouredRunListPrintOut(std::vector<PrintedRun> rows, bool blackAndWhite)
    : mRows(std::move(rows)), mBlackAndWhite(blackAndWhite) {}

void ColouredRunListPrintOut::PrepareDevice(CDC & dc, wxSize const & pageSize) {
  mDevice = &dc;
  mPageHeight = pageSize.y;
  mUnitsPerInch = std::max(1, dc.GetDeviceCaps(LOGPIXELSY));
}

int ColouredRunListPrintOut::RowsPerPage() const {
  double const inches = static_cast<double>(mPageHeight) / mUnitsPerInch - 2 * kMargin - kHeading;
  return std::max(1, static_cast<int>(inches / kRow));
}

int ColouredRunListPrintOut::PageCount() const {
  int const rows = static_cast<int>(mRows.size());
  return std::max(1, (rows + RowsPerPage() - 1) / RowsPerPage());
}

void ColouredRunListPrintOut::GetPageInfo(int & minPage, int & maxPage, int & from, int & to) {
  minPage = 1;
  maxPage = PageCount();
  from = 0;  // nothing to select
  to = 0;
}

void ColouredRunListPrintOut::PrintPage(int page, RECT const & rect, DWORD) {
  if (mDevice == nullptr) return;
  wxDC & dc = mDevice->GetDC();
  auto const units = [this](double inches) { return static_cast<int>(inches * mUnitsPerInch); };
  int const left = rect.left + units(kMargin);
  int const width = rect.right - rect.left - 2 * units(kMargin);
  int y = rect.top + units(kMargin);

  dc.SetFont(mDevice->CreatePointFont(160, "Liberation Sans"));
  dc.SetTextForeground(mBlackAndWhite ? *wxBLACK : kHeadingColour);
  dc.DrawText(wxString::Format(vx3::Tr("Print", "Runs, page %d of %d"), page, PageCount()), left,
              y);
  y += units(kHeading);

  dc.SetFont(mDevice->CreatePointFont(100, "Liberation Sans"));
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(mBlackAndWhite ? kGreyShade : kShadeColour));
  int const firstRow = (page - 1) * RowsPerPage();
  int const endRow = std::min(static_cast<int>(mRows.size()), firstRow + RowsPerPage());
  for (int row = firstRow; row < endRow; ++row, y += units(kRow)) {
    if (row % 2 == 1) dc.DrawRectangle(left, y, width, units(kRow));
    bool const retired = mRows[row].retired;
    dc.SetTextForeground(!retired ? *wxBLACK : mBlackAndWhite ? kGreyText : kRetiredColour);
    wxString text = wxString::FromUTF8(mRows[row].name);
    if (retired) text += "  " + vx3::Tr("Print", "(retired)");
    dc.DrawText(text, left + units(0.05), y + units(0.04));
  }
}
