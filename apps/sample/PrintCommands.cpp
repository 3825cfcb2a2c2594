#include "PrintCommands.h"

#include <algorithm>

#include <wx/dc.h>
#include <wx/frame.h>
#include <wx/menu.h>

#include "SampleCommands.h"
#include "printing/PrintFooter.h"
#include "printing/PrintWindow.h"
#include "printing/VXPrinter.h"
#include "utl/Exception.h"
#include "utl/Translation.h"

namespace {

// Margins and heading in device units (600 an inch): an inch around, the
// heading two lines, the footer one line above the bottom margin.
constexpr int kMargin = 600;
constexpr int kHeadingLines = 3;
constexpr int kFooterLines = 2;

}  // namespace

RunListPrintOut::RunListPrintOut(std::vector<std::string> runs) : mRuns(std::move(runs)) {}

std::string RunListPrintOut::GetDocumentName() {
  return vx3::Tr("Print job", "Run list").utf8_string();
}

void RunListPrintOut::GetPageInfo(int & minPage, int & maxPage, int & selectionFrom,
                                  int & selectionTo) {
  minPage = 1;
  maxPage = 0xFFFF;  // known once the device is: PrepareDevice
  selectionFrom = 0;
  selectionTo = 0;
}

void RunListPrintOut::PrepareDevice(CDC & dc, wxSize const & pageSize) {
  mDc = &dc;
  dc.GetDC().SetFont(dc.CreatePointFont(110, "Arial"));
  wxCoord width = 0;
  dc.GetDC().GetTextExtent("Run", &width, &mLineHeight);
  mLineHeight = std::max(mLineHeight, 1);
  int const lines =
      (pageSize.GetHeight() - 2 * kMargin) / mLineHeight - kHeadingLines - kFooterLines;
  mRunsPerPage = std::max(lines, 1);
}

int RunListPrintOut::PageCount() const {
  return std::max(1,
                  int((mRuns.size() + std::size_t(mRunsPerPage) - 1) / std::size_t(mRunsPerPage)));
}

void RunListPrintOut::StartDocument(int /*firstPage*/, int /*lastPage*/, DWORD /*flags*/) {
  mFooter = MakePrintFooter(GetDocumentName().c_str());
}

bool RunListPrintOut::ContinuePrinting(int page) { return page >= 1 && page <= PageCount(); }

void RunListPrintOut::PrintPage(int page, RECT const & printable, DWORD /*flags*/) {
  wxDC & dc = mDc->GetDC();
  dc.SetFont(mDc->CreatePointFont(140, "Arial"));
  dc.SetTextForeground(*wxBLACK);
  dc.DrawText(vx3::Tr("Print heading", "Runs of the sample"), kMargin, kMargin);
  dc.SetFont(mDc->CreatePointFont(110, "Arial"));
  wxString const pageText =
      wxString::Format(vx3::Tr("Print heading", "Page %d of %d"), page, PageCount());
  wxCoord width = 0;
  wxCoord height = 0;
  dc.GetTextExtent(pageText, &width, &height);
  dc.DrawText(pageText, printable.right - kMargin - width, kMargin);
  int y = kMargin + kHeadingLines * mLineHeight;
  std::size_t const first = std::size_t(page - 1) * std::size_t(mRunsPerPage);
  for (std::size_t i = first; i < std::min(mRuns.size(), first + std::size_t(mRunsPerPage)); ++i) {
    dc.DrawText(wxString::FromUTF8(mRuns[i]), kMargin, y);
    y += mLineHeight;
  }
  dc.SetFont(mDc->CreatePointFont(80, "Arial"));
  dc.DrawText(wxString::FromUTF8(mFooter), kMargin, printable.bottom - kMargin - mLineHeight);
}

void AddPrintCommands(wxFrame & frame, wxMenu & fileMenu,
                      std::function<std::vector<std::string>()> const & rows) {
  fileMenu.Append(kPrintCommand, vx3::Tr("Menu command", "&Print...\tCtrl+P"));
  fileMenu.Append(kPrintWindowCommand, vx3::Tr("Menu command", "Print &window..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame, rows](wxCommandEvent &) {
        RunListPrintOut out(rows());
        VXPrinter printer;
        try {
          if (printer.Print(&frame, out, true)) {
            frame.SetStatusText(vx3::Tr("Status", "The run list was printed."));
          }
        } catch (Exception const &) {
          frame.SetStatusText(vx3::Tr("Status", "There is no printer to print on."));
        }
      },
      kPrintCommand);
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        PrintWindow(&frame,
                    vx3::Tr("Print heading", "The sample's main window").utf8_string().c_str(),
                    vx3::Tr("Print job", "Main window").utf8_string().c_str());
      },
      kPrintWindowCommand);
}
