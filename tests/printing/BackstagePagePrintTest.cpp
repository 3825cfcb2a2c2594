// The backstage print page on a real frame: what the profile keeps decides
// the orientation and colour it starts with, the orientation popup (through
// VxMenu's seam) and the print setup (through its replaceable dialog) change
// printer and profile together, the print commands reach the main window
// and close the backstage view, a view is previewed while the page is up,
// and the chosen orientation is that of the printed PDF.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <vector>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/cmndata.h>
#include <wx/dc.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/weakref.h>

#include "PdfTools.h"
#include "controls/VxMenu.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "platform/RunningApplication.h"
#include "platform/WinUser.h"
#include "printing/BackstagePagePrint.h"
#include "printing/PrintDialog.h"
#include "printing/PrintOut.h"
#include "printing/PrintPreviewPane.h"
#include "printing/PrintSetupDialog.h"
#include "printing/PrintableView.h"
#include "printing/PrinterDeviceDefaults.h"
#include "printing/VXPrinter.h"
#include "utl/VxSystemInfo.h"

namespace {

constexpr char kSection[] = "Printer";

// A printout of `pages` pages, each filled red, or grey in black and white;
// it logs the calls it gets.
class FilledPrintOut : public PrintOut {
public:
  FilledPrintOut(std::vector<std::string> & log, int pages, bool blackAndWhite)
      : mLog(log), mPages(pages), mBlackAndWhite(blackAndWhite) {}
  void BeginPrinting() override { mLog.push_back("BeginPrinting"); }
  std::string GetDocumentName() override {
    mLog.push_back("GetDocumentName");
    return "Filled";
  }
  bool ContinuePrinting(int page) override {
    mLog.push_back("ContinuePrinting " + std::to_string(page));
    return page <= mPages;
  }
  void PrintPage(int page, RECT const & printable, DWORD) override {
    mLog.push_back("PrintPage " + std::to_string(page));
    wxDC & dc = mDevice->GetDC();
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(mBlackAndWhite ? *wxGREY_BRUSH : *wxRED_BRUSH);
    dc.DrawRectangle(printable.left, printable.top, printable.right - printable.left,
                     printable.bottom - printable.top);
  }
  void GetPageInfo(int & minPage, int & maxPage, int & from, int & to) override {
    mLog.push_back("GetPageInfo");
    minPage = 1;
    maxPage = mPages;
    from = to = 0;
  }
  void Reserved() override {}
  void PrepareDevice(CDC & dc, wxSize const &) override {
    mLog.push_back("PrepareDevice");
    mDevice = &dc;
  }
  void StartDocument(int, int, DWORD) override { mLog.push_back("StartDocument"); }
  void EndDocument() override { mLog.push_back("EndDocument"); }
  void EndPrinting() override { mLog.push_back("EndPrinting"); }

private:
  std::vector<std::string> & mLog;
  int mPages;
  bool mBlackAndWhite;
  CDC * mDevice = nullptr;
};

class FilledView : public PrintableView {
public:
  std::unique_ptr<PrintOut> CreatePrintOut() override {
    if (pages == 0) return nullptr;
    log.clear();
    return std::make_unique<FilledPrintOut>(log, pages, blackAndWhite);
  }
  void OnEndPrintPreview() override { ++ended; }
  std::vector<std::string> log;
  int pages = 3;
  bool blackAndWhite = false;
  int ended = 0;
};

wxColour CentreOf(PrintPreviewPane const & preview, int page) {
  wxImage const image = preview.PageImage(page);
  if (!image.IsOk()) return wxNullColour;
  int const x = image.GetWidth() / 2;
  int const y = image.GetHeight() / 2;
  return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
}

// The backstage view: a frame holding the page, whose active view the test
// sets.
class BackstageFrame : public wxFrame, public PrintViewFrame {
public:
  BackstageFrame() : wxFrame(nullptr, wxID_ANY, "Backstage", wxDefaultPosition, wxSize(760, 520)) {}
  PrintableView * GetActivePrintView() override { return view; }
  PrintableView * view = nullptr;
};

class BackstagePagePrintTest : public testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication("BackstagePageTest", "1.0");
    AppProfile::WriteProfileString(kSection, nullptr, nullptr);
    PrinterDeviceDefaults() = wxPrintData();
    main = new wxFrame(nullptr, wxID_ANY, "Main");
    RunningApplicationHooks hooks;
    hooks.mainWindow = [this] { return main.get(); };
    formerHooks = SetRunningApplication(hooks);
    backstage = new BackstageFrame;
  }
  void TearDown() override {
    VxMenu::SetTrackPopupMenuFunction(&VxMenu::ToolkitTrackPopupMenu);
    SetPrintSetupDialogFunction({});
    SetPrintDialogFunction({});
    if (backstage) backstage->Destroy();
    if (main) main->Destroy();
    gui_test::Flush();
    SetRunningApplication(formerHooks);
  }
  BackstagePagePrint & MakePage() {
    page = new BackstagePagePrint(
        [this](bool blackAndWhite) {
          colourCalls.push_back(blackAndWhite);
          view.blackAndWhite = blackAndWhite;
        },
        [this] { return hasColour; });
    EXPECT_TRUE(page->Create(backstage));
    backstage->SendSizeEvent();
    return *page;
  }
  wxButton & Button(int id) { return *dynamic_cast<wxButton *>(page->FindWindow(id)); }
  wxCheckBox & ColourCheck() {
    return *dynamic_cast<wxCheckBox *>(page->FindWindow(BackstagePagePrint::kPrintListInColorId));
  }
  static int Profile(char const * entry) { return AppProfile::GetProfileInt(kSection, entry, -1); }

  wxWeakRef<wxFrame> main;
  wxWeakRef<BackstageFrame> backstage;
  BackstagePagePrint * page = nullptr;
  RunningApplicationHooks formerHooks;
  std::vector<bool> colourCalls;
  bool hasColour = true;
  FilledView view;
};

TEST_F(BackstagePagePrintTest, TheProfileDecidesHowThePageStarts) {
  struct Case {
    std::optional<int> portraitEntry, colourEntry;
    bool portrait, colour;
    char const * caption;
  };
  for (Case const & c : std::vector<Case>{
           {std::nullopt, std::nullopt, true, true, "Portrait"},
           {0, 0, true, false, "Portrait"},
           {1, 1, false, true, "Landscape"},
           {2, 7, false, true, "Landscape"},
       }) {
    AppProfile::WriteProfileString(kSection, nullptr, nullptr);
    if (c.portraitEntry)
      AppProfile::WriteProfileInt(kSection, "PortraitOrientation", *c.portraitEntry);
    if (c.colourEntry) AppProfile::WriteProfileInt(kSection, "PrintListInColor", *c.colourEntry);
    BackstagePagePrint & shown = MakePage();
    EXPECT_EQ(shown.IsPortrait(), c.portrait);
    EXPECT_EQ(shown.PrintListInColor(), c.colour);
    EXPECT_TRUE(Button(BackstagePagePrint::kPageOrientationId).GetLabel().StartsWith(c.caption));
    EXPECT_EQ(PrinterDeviceDefaults().GetOrientation(), c.portrait ? wxPORTRAIT : wxLANDSCAPE);
    shown.Destroy();
  }
}

TEST_F(BackstagePagePrintTest, WithoutAViewNothingCanBePrinted) {
  BackstagePagePrint & shown = MakePage();
  EXPECT_FALSE(shown.OnSetActive());
  EXPECT_FALSE(Button(BackstagePagePrint::kPrintButtonId).IsEnabled());
  EXPECT_FALSE(Button(BackstagePagePrint::kPageOrientationId).IsEnabled());
  EXPECT_FALSE(ColourCheck().IsShown());
  EXPECT_EQ(shown.GetPreview(), nullptr);
  EXPECT_TRUE(colourCalls.empty());
  EXPECT_TRUE(shown.OnKillActive());
}

TEST_F(BackstagePagePrintTest, ThePopupBelowTheButtonSwitchesPrinterAndProfile) {
  BackstagePagePrint & shown = MakePage();
  ASSERT_TRUE(gui_test::ShowAndWait(*backstage));
  struct Shown {
    std::vector<int> ids;
    std::vector<wxString> labels;
    bool bitmaps = true;
    unsigned flags = 0;
    wxPoint at;
  };
  std::vector<Shown> popups;
  int answer = 0;
  VxMenu::SetTrackPopupMenuFunction(
      [&](wxMenu * menu, unsigned flags, int x, int y, wxWindow *, wxRect const *) {
        Shown seen{{}, {}, true, flags, {x, y}};
        for (wxMenuItem * item : menu->GetMenuItems()) {
          seen.ids.push_back(item->GetId());
          seen.labels.push_back(item->GetItemLabelText());
          seen.bitmaps = seen.bitmaps && item->GetBitmap().IsOk();
        }
        popups.push_back(seen);
        return answer;
      });
  wxRect const button = Button(BackstagePagePrint::kPageOrientationId).GetScreenRect();

  struct Step {
    int answer;
    bool portrait;
    int profile;  // -1: not written
  };
  for (Step const & step : std::vector<Step>{{BackstagePagePrint::kLandscapeCommand, false, 1},
                                             {0, false, 1},
                                             {BackstagePagePrint::kPortraitCommand, true, 0}}) {
    answer = step.answer;
    gui_test::Click(shown, BackstagePagePrint::kPageOrientationId);
    EXPECT_EQ(shown.IsPortrait(), step.portrait) << step.answer;
    EXPECT_EQ(Profile("PortraitOrientation"), step.profile) << step.answer;
    EXPECT_EQ(PrinterDeviceDefaults().GetOrientation(), step.portrait ? wxPORTRAIT : wxLANDSCAPE);
    EXPECT_TRUE(Button(BackstagePagePrint::kPageOrientationId)
                    .GetLabel()
                    .StartsWith(step.portrait ? "Portrait" : "Landscape"));
  }
  ASSERT_EQ(popups.size(), 3u);
  EXPECT_EQ(popups[0].ids, (std::vector<int>{13196, 13197}));
  EXPECT_EQ(popups[0].labels, (std::vector<wxString>{"Portrait", "Landscape"}));
  EXPECT_TRUE(popups[0].bitmaps);
  EXPECT_TRUE(popups[0].flags & TPM_RETURNCMD);
  EXPECT_EQ(popups[0].at, wxPoint(button.GetLeft(), button.GetBottom() + 1));
  gui_test::Snapshot(*backstage, "backstage-print-page");
}

TEST_F(BackstagePagePrintTest, AnAcceptedSetupTakesItsOrientationACancelledOneNothing) {
  BackstagePagePrint & shown = MakePage();
  for (int const result : {IDCANCEL, IDOK}) {
    SetPrintSetupDialogFunction([result](wxWindow *, wxPrintData & data) {
      data.SetOrientation(wxLANDSCAPE);
      return result;
    });
    shown.OnFilePrintSetup();
    EXPECT_EQ(shown.IsPortrait(), result != IDOK);
    EXPECT_EQ(Profile("PortraitOrientation"), result == IDOK ? 1 : -1);
  }
  EXPECT_TRUE(Button(BackstagePagePrint::kPageOrientationId).GetLabel().StartsWith("Landscape"));
}

TEST_F(BackstagePagePrintTest, PrintCommandsGoToTheMainWindowAndCloseTheBackstage) {
  BackstagePagePrint & shown = MakePage();
  std::vector<int> received;
  for (int command :
       {BackstagePagePrint::kFilePrintCommand, BackstagePagePrint::kFilePrintPreviewCommand})
    main->Bind(
        wxEVT_MENU, [&received](wxCommandEvent & event) { received.push_back(event.GetId()); },
        command);
  shown.OnFilePrintPreview();
  EXPECT_TRUE(received.empty());  // posted, not sent
  gui_test::Flush();
  EXPECT_EQ(received, std::vector<int>{BackstagePagePrint::kFilePrintPreviewCommand});
  EXPECT_FALSE(backstage);  // closed and gone

  backstage = new BackstageFrame;
  BackstagePagePrint & again = MakePage();
  gui_test::Click(again, BackstagePagePrint::kPrintButtonId);
  gui_test::Flush();
  EXPECT_EQ(received.back(), BackstagePagePrint::kFilePrintCommand);
  EXPECT_FALSE(backstage);
}

}  // namespace

namespace {

TEST_F(BackstagePagePrintTest, TheActiveViewIsPreviewedWhileThePageIsUp) {
  backstage->view = &view;
  BackstagePagePrint & shown = MakePage();
  ASSERT_TRUE(gui_test::ShowAndWait(*backstage));
  ASSERT_TRUE(shown.OnSetActive());
  EXPECT_TRUE(Button(BackstagePagePrint::kPrintButtonId).IsEnabled());
  EXPECT_TRUE(Button(BackstagePagePrint::kPageOrientationId).IsEnabled());
  EXPECT_TRUE(ColourCheck().IsShown());
  EXPECT_TRUE(ColourCheck().GetValue());
  EXPECT_EQ(colourCalls, std::vector<bool>{false});
  EXPECT_EQ(Profile("PortraitOrientation"), 0);

  // One page by default, drawn with the calls and in the order of a print job.
  PrintPreviewPane * preview = shown.GetPreview();
  ASSERT_NE(preview, nullptr);
  ASSERT_EQ(preview->PageCount(), 1);
  EXPECT_EQ(view.log,
            (std::vector<std::string>{"GetPageInfo", "PrepareDevice", "BeginPrinting",
                                      "GetDocumentName", "StartDocument", "ContinuePrinting 1",
                                      "PrintPage 1", "EndDocument", "EndPrinting"}));
  EXPECT_EQ(CentreOf(*preview, 0), *wxRED);
  EXPECT_LT(preview->PageSize().x, preview->PageSize().y);
  // Beside the options, not over them.
  EXPECT_GT(preview->GetRect().GetLeft(),
            Button(BackstagePagePrint::kPageOrientationId).GetRect().GetRight());
  gui_test::Snapshot(*backstage, "backstage-print-preview");

  // Landscape, and black and white: drawn anew each time.
  VxMenu::SetTrackPopupMenuFunction([](wxMenu *, unsigned, int, int, wxWindow *, wxRect const *) {
    return static_cast<int>(BackstagePagePrint::kLandscapeCommand);
  });
  gui_test::Click(shown, BackstagePagePrint::kPageOrientationId);
  EXPECT_GT(preview->PageSize().x, preview->PageSize().y);
  ColourCheck().SetValue(false);
  shown.OnBnClickedPrintListInColor();
  EXPECT_EQ(colourCalls.back(), true);
  EXPECT_EQ(Profile("PrintListInColor"), 0);
  wxColour const grey = CentreOf(*preview, 0);
  EXPECT_EQ(grey.Red(), grey.Blue());
  EXPECT_NE(grey, *wxRED);

  // Several pages, as many as the printout has.
  for (auto const & [asked, drawn] : std::vector<std::pair<int, int>>{{2, 2}, {4, 3}, {1, 1}}) {
    preview->SetPagesShown(asked);
    EXPECT_EQ(preview->PageCount(), drawn) << asked;
  }

  EXPECT_TRUE(shown.OnKillActive());
  EXPECT_EQ(view.ended, 1);
  EXPECT_EQ(shown.GetPreview(), nullptr);
}

TEST_F(BackstagePagePrintTest, AViewWithNothingToPrintOrNoColoursLimitsThePage) {
  backstage->view = &view;
  hasColour = false;
  BackstagePagePrint & shown = MakePage();
  ASSERT_TRUE(shown.OnSetActive());
  EXPECT_FALSE(ColourCheck().IsShown());
  shown.OnKillActive();

  view.pages = 0;  // no printout
  EXPECT_FALSE(shown.OnSetActive());
  EXPECT_FALSE(Button(BackstagePagePrint::kPrintButtonId).IsEnabled());
  EXPECT_EQ(shown.GetPreview(), nullptr);
  EXPECT_EQ(view.ended, 1);  // only the preview that was there ended
}

// From the popup to the paper: the orientation chosen on the page is the one
// the print dialog opens with and the one the PDF's pages have, and a choice
// made in the dialog itself becomes the printer's default.
TEST_F(BackstagePagePrintTest, TheChosenOrientationReachesThePrintedPages) {
  char const * folder = std::getenv("TMPDIR");
  std::string const path = std::string(folder != nullptr ? folder : "/tmp") + "/orientation.pdf";
  std::optional<short> dialogOpenedWith;
  std::optional<short> dialogChooses;  // the user's change in the dialog
  SetPrintDialogFunction([&](PRINTDLGW & data) {
    dialogOpenedWith =
        data.hDevMode ? std::optional<short>(data.hDevMode->dmOrientation) : std::nullopt;
    data.hDevNames =
        std::make_shared<DEVNAMES>(DEVNAMES{L"PDF", L"", std::wstring(path.begin(), path.end())});
    if (dialogChooses) data.hDevMode->dmOrientation = *dialogChooses;
    return IDOK;
  });
  // The main window prints the view as the applications do.
  bool printed = false;
  main->Bind(
      wxEVT_MENU,
      [&](wxCommandEvent &) {
        std::unique_ptr<PrintOut> out = view.CreatePrintOut();
        VXPrinter printer;
        printed = printer.Print(main, *out, true);
      },
      BackstagePagePrint::kFilePrintCommand);
  int answer = 0;
  VxMenu::SetTrackPopupMenuFunction(
      [&answer](wxMenu *, unsigned, int, int, wxWindow *, wxRect const *) { return answer; });

  struct Case {
    int popup;
    std::optional<short> inDialog;
    short opened;
    bool landscapePages;
    wxPrintOrientation afterwards;
  };
  for (Case const & c : std::vector<Case>{
           {BackstagePagePrint::kLandscapeCommand, std::nullopt, DMORIENT_LANDSCAPE, true,
            wxLANDSCAPE},
           {BackstagePagePrint::kPortraitCommand, std::nullopt, DMORIENT_PORTRAIT, false,
            wxPORTRAIT},
           {BackstagePagePrint::kPortraitCommand, DMORIENT_LANDSCAPE, DMORIENT_PORTRAIT, true,
            wxLANDSCAPE},
       }) {
    SCOPED_TRACE(c.popup);
    if (!backstage) backstage = new BackstageFrame;  // printing closed the former
    backstage->view = &view;
    BackstagePagePrint & shown = MakePage();
    ASSERT_TRUE(gui_test::ShowAndWait(*backstage));
    ASSERT_TRUE(shown.OnSetActive());
    answer = c.popup;
    gui_test::Click(shown, BackstagePagePrint::kPageOrientationId);
    std::remove(path.c_str());
    dialogChooses = c.inDialog;
    dialogOpenedWith.reset();
    printed = false;
    shown.OnFilePrint();
    gui_test::Flush();
    EXPECT_FALSE(backstage);
    EXPECT_TRUE(printed);
    EXPECT_EQ(dialogOpenedWith, c.opened);
    EXPECT_EQ(pdf_tools::PageCount(path), 3);
    std::string const size = pdf_tools::PageSize(path);
    double width = 0;
    double height = 0;
    ASSERT_EQ(std::sscanf(size.c_str(), "%lf x %lf", &width, &height), 2) << size;
    EXPECT_EQ(width > height, c.landscapePages) << size;
    EXPECT_EQ(PrinterDeviceDefaults().GetOrientation(), c.afterwards);
  }
}

}  // namespace
