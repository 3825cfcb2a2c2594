#include "PrintPageWindow.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include "ColouredRunListPrintOut.h"
#include "SampleCommands.h"
#include "frame/AppProfile.h"
#include "printing/BackstagePagePrint.h"
#include "printing/PrintableView.h"
#include "printing/VXPrinter.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

constexpr char kWindowName[] = "SamplePrintPage";

class PrintPageWindow : public wxFrame, public PrintViewFrame, public PrintableView {
public:
  PrintPageWindow(wxFrame & owner, bool (*isRetired)(std::string const &))
      : wxFrame(&owner, wxID_ANY, Tr("Window title", "Print"), wxDefaultPosition, wxSize(820, 560),
                wxDEFAULT_FRAME_STYLE | wxFRAME_FLOAT_ON_PARENT, kWindowName),
        mIsRetired(isRetired) {
    mPage = new BackstagePagePrint([this](bool blackAndWhite) { mBlackAndWhite = blackAndWhite; },
                                   [] { return true; });
    if (!mPage->Create(this)) return;
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent & event) {
      mPage->OnKillActive();
      event.Skip();
    });
  }

  void Activate(std::vector<std::string> rows) {
    mRows = std::move(rows);
    Show();
    Raise();
    SendSizeEvent();
    mPage->OnSetActive();
  }

  PrintableView * GetActivePrintView() override { return this; }
  std::unique_ptr<PrintOut> CreatePrintOut() override {
    std::vector<PrintedRun> runs;
    for (std::string const & row : mRows) runs.push_back({row, mIsRetired(row)});
    return std::make_unique<ColouredRunListPrintOut>(std::move(runs), mBlackAndWhite);
  }

private:
  BackstagePagePrint * mPage = nullptr;
  bool (*mIsRetired)(std::string const &);
  std::vector<std::string> mRows;
  bool mBlackAndWhite = false;
};

}  // namespace

void AddPrintPageCommand(wxMenu & fileMenu, wxFrame & frame,
                         std::function<std::vector<std::string>()> const & rows,
                         bool (*isRetired)(std::string const &)) {
  fileMenu.Append(kPrintPageCommand, Tr("Menu command", "Print &Page..."));
  auto const showPage = [&frame, rows, isRetired](wxCommandEvent &) {
    auto * window = dynamic_cast<PrintPageWindow *>(frame.FindWindowByName(kWindowName, &frame));
    if (window == nullptr) window = new PrintPageWindow(frame, isRetired);
    window->Activate(rows());
  };
  frame.Bind(wxEVT_MENU, showPage, kPrintPageCommand);
  // What the page's buttons hand to the main window: the preview is the
  // page itself; printing goes through the print dialog.
  frame.Bind(wxEVT_MENU, showPage, BackstagePagePrint::kFilePrintPreviewCommand);
  frame.Bind(
      wxEVT_MENU,
      [&frame, rows, isRetired](wxCommandEvent &) {
        std::vector<PrintedRun> runs;
        for (std::string const & row : rows()) runs.push_back({row, isRetired(row)});
        bool const blackAndWhite = AppProfile::GetProfileInt("Printer", "PrintListInColor", 1) == 0;
        ColouredRunListPrintOut out(std::move(runs), blackAndWhite);
        VXPrinter printer;
        bool const printed = printer.Print(&frame, out, true);
        frame.SetStatusText(printed ? Tr("Status", "The run list was printed.")
                                    : Tr("Status", "The run list was not printed."));
      },
      BackstagePagePrint::kFilePrintCommand);
}
