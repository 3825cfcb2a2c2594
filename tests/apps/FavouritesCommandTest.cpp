// The sample's Tools › Open favourites, walked from the real main frame's
// menu: the command favourite runs, the kept file opens, and the one that
// has gone is told in a single failure report, the only line of its details.
#include <gtest/gtest.h>

#include <wx/filename.h>
#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/wfstream.h>

#include "BatchCommand.h"
#include "FavouritesCommand.h"
#include "MainFrame.h"
#include "favourites/FavouriteOpenFailures.h"
#include "harness/GuiTestUtilities.h"

namespace {

struct Report {
  wxString headline;
  wxString details;
};

class FavouritesCommandTest : public testing::Test {
protected:
  void SetUp() override {
    InstallStandardUserComm();
    frame = new MainFrame;
    mFormer = SetFavouriteOpenFailuresDisplay(
        [this](wxWindow *, wxString const & headline, wxString const & details) {
          reports.push_back({headline, details});
        });
  }
  void TearDown() override {
    SetFavouriteOpenFailuresDisplay(mFormer);
    frame->Destroy();
    gui_test::Flush();
  }
  void RunCommand() {
    wxMenu * tools =
        frame->GetMenuBar()->GetMenu(static_cast<size_t>(frame->GetMenuBar()->FindMenu("Tools")));
    int const id = tools->FindItem("Open favourites");
    ASSERT_NE(id, wxNOT_FOUND);
    wxCommandEvent command(wxEVT_MENU, id);
    frame->ProcessWindowEvent(command);
  }

  MainFrame * frame = nullptr;
  std::vector<Report> reports;

private:
  FavouriteOpenFailuresDisplay mFormer;
};

TEST_F(FavouritesCommandTest, OnlyTheMissingFileIsReportedInOneDialog) {
  // Left over from an earlier run, the moved file must still count as gone,
  // and the kept one is made again when it was deleted meanwhile.
  // wx reports a file it cannot remove in a box at idle time: only one there.
  if (wxFileName::FileExists(SampleFavouriteFile())) wxRemoveFile(SampleFavouriteFile());
  { wxFileOutputStream(SampleMissingFavouriteFile()).Write("x", 1); }

  RunCommand();

  ASSERT_EQ(reports.size(), 1U);
  EXPECT_EQ(reports[0].headline, "Not all favorites could be opened.");
  EXPECT_EQ(reports[0].details, "Old calibration notes: Not available.");
  EXPECT_TRUE(wxFileName::FileExists(SampleFavouriteFile()));
  EXPECT_FALSE(wxFileName::FileExists(SampleMissingFavouriteFile()));
  // The command favourite went through the frame's own command routing.
  EXPECT_NE(frame->FindWindowByName("SampleTreeView", frame), nullptr);
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), "The tree view window is open.");

  // Again: the same single report, nothing piles up.
  RunCommand();
  EXPECT_EQ(reports.size(), 2U);
}

}  // namespace
