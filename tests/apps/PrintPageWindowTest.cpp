// The sample's File › Print Page command, walked from the real main frame's
// menu: one window with the library's print page previewing the run list,
// its colour switch drawing the page anew, and its print button closing the
// window and printing, in the page's orientation, through the (scripted)
// print dialog.
#include <gtest/gtest.h>

#include <vector>

#include <wx/checkbox.h>
#include <wx/cmndata.h>
#include <wx/menu.h>
#include <wx/statusbr.h>

#include "MainFrame.h"
#include "controls/VxMenu.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "platform/WinUser.h"
#include "printing/BackstagePagePrint.h"
#include "printing/PrintDialog.h"
#include "printing/PrintPreviewPane.h"
#include "printing/PrinterDeviceDefaults.h"
#include "utl/VxSystemInfo.h"

namespace {

class PrintPageWindowTest : public testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication("PrintPageSample", "1.0");
    AppProfile::WriteProfileString("Printer", nullptr, nullptr);
    frame = new MainFrame;
  }
  void TearDown() override {
    // The orientation chosen on the page is the application's from then on.
    PrinterDeviceDefaults().SetOrientation(wxPORTRAIT);
    SetPrintDialogFunction({});
    VxMenu::SetTrackPopupMenuFunction(&VxMenu::ToolkitTrackPopupMenu);
    frame->Destroy();
    gui_test::Flush();
  }
  wxFrame * RunCommand() {
    wxMenu * file =
        frame->GetMenuBar()->GetMenu(static_cast<size_t>(frame->GetMenuBar()->FindMenu("File")));
    int const id = file->FindItem("Print Page...");
    EXPECT_NE(id, wxNOT_FOUND);
    wxCommandEvent command(wxEVT_MENU, id);
    frame->ProcessWindowEvent(command);
    return dynamic_cast<wxFrame *>(frame->FindWindowByName("SamplePrintPage", frame));
  }
  // Whether any pixel of `page` is clearly blue.
  static bool HasBlue(wxImage const & page) {
    for (int y = 0; y < page.GetHeight(); ++y)
      for (int x = 0; x < page.GetWidth(); ++x)
        if (page.GetBlue(x, y) > page.GetRed(x, y) + 40) return true;
    return false;
  }
  MainFrame * frame = nullptr;
};

TEST_F(PrintPageWindowTest, ThePagePreviewsTheRunsAndPrintsThemThroughTheDialog) {
  wxFrame * const window = RunCommand();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(RunCommand(), window);  // raised again, not a second one
  auto * page = dynamic_cast<BackstagePagePrint *>(
      window->FindWindow(static_cast<long>(BackstagePagePrint::kTemplate)));
  ASSERT_NE(page, nullptr);
  PrintPreviewPane * preview = page->GetPreview();
  ASSERT_NE(preview, nullptr);
  ASSERT_EQ(preview->PageCount(), 1);
  if (gui_test::ShowAndWait(*window)) gui_test::Snapshot(*window, "sample-print-page");

  // In colour the heading is blue; in black and white nothing is coloured.
  EXPECT_TRUE(HasBlue(preview->PageImage(0)));
  auto * colour =
      dynamic_cast<wxCheckBox *>(page->FindWindow(BackstagePagePrint::kPrintListInColorId));
  ASSERT_NE(colour, nullptr);
  EXPECT_TRUE(colour->IsShown());
  colour->SetValue(false);
  page->OnBnClickedPrintListInColor();
  EXPECT_FALSE(HasBlue(preview->PageImage(0)));

  // Landscape on the page, then Print: the window closes, the main window
  // asks the print dialog, which opens in landscape.
  VxMenu::SetTrackPopupMenuFunction([](wxMenu *, unsigned, int, int, wxWindow *, wxRect const *) {
    return static_cast<int>(BackstagePagePrint::kLandscapeCommand);
  });
  page->OnFilePrintPageOrientation();
  std::vector<short> asked;
  SetPrintDialogFunction([&asked](PRINTDLGW & data) {
    asked.push_back(data.hDevMode ? data.hDevMode->dmOrientation : short{0});
    return IDCANCEL;
  });
  page->OnFilePrint();
  gui_test::Flush();
  EXPECT_EQ(asked, std::vector<short>{DMORIENT_LANDSCAPE});
  EXPECT_EQ(frame->FindWindowByName("SamplePrintPage", frame), nullptr);
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), "The run list was not printed.");
}

}  // namespace
