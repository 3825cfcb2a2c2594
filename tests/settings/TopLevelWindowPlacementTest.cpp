// Placements on real frames: applied, read back, kept while maximised, and
// brought back onto the screen when saved somewhere that no longer exists.
#include <gtest/gtest.h>
#include <wx/display.h>
#include <wx/frame.h>

#include <gtk/gtk.h>

#include "harness/GuiTestUtilities.h"
#include "settings/PlacementOnScreen.h"
#include "settings/RectPrinting.h"
#include "settings/TopLevelWindowPlacement.h"
#include "settings/WindowPlacement.h"

namespace {

RECT RectOf(wxTopLevelWindow const & window) {
  wxRect const r = window.GetRect();
  return RECT{r.x, r.y, r.x + r.width, r.y + r.height};
}

// Where the X server has the window, decorations included: what the user sees,
// not what wx was last told.
RECT FrameOnScreen(wxTopLevelWindow const & window) {
  GdkWindow * const gdk = gtk_widget_get_window(window.GetHandle());
  if (gdk == nullptr) return RECT{0, 0, 0, 0};
  GdkRectangle frame{};
  gdk_window_get_frame_extents(gdk, &frame);
  return RECT{frame.x, frame.y, frame.x + frame.width, frame.y + frame.height};
}

WINDOWPLACEMENT Placement(UINT showCmd, RECT normal) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  placement.showCmd = showCmd;
  placement.ptMinPosition = POINT{-1, -1};
  placement.ptMaxPosition = POINT{-1, -1};
  placement.rcNormalPosition = normal;
  return placement;
}

class PlacedFrame : public testing::Test {
protected:
  static void SetUpTestSuite() {
    // Maximising and minimising are the window manager's: wait until it has
    // taken the screen, which on a busy machine may be after the tests start.
    sWindowManager = gui_test::WaitUntil(gui_test::WindowManagerRunning, 30000);
    // wx learns the size of window decorations from the first window the
    // window manager decorates; a window maximised before that restores
    // without them (a limitation of wx on GTK). The tests see windows as an
    // application's later windows do.
    wxFrame * const first = new wxFrame(nullptr, wxID_ANY, "First");
    gui_test::ShowAndWait(*first);
    gui_test::WaitUntil([first] { return first->GetSize() != first->GetClientSize(); });
    first->Destroy();
    gui_test::Flush();
  }
  void SetUp() override {
    ASSERT_TRUE(sWindowManager) << "no window manager";
    mFrame = new wxFrame(nullptr, wxID_ANY, "Placed");
  }
  void TearDown() override {
    if (mFrame == nullptr) return;
    mFrame->Destroy();
    gui_test::Flush();
  }
  // Places the frame, shows it and waits until the window manager agrees.
  bool PlaceAndShow(WINDOWPLACEMENT const & placement, RECT const & expected) {
    VxSetWindowPlacement(*mFrame, placement);
    if (!gui_test::ShowAndWait(*mFrame)) return false;
    return gui_test::WaitUntil([&] { return RectOf(*mFrame) == expected; });
  }

  static bool sWindowManager;
  wxFrame * mFrame = nullptr;
};

bool PlacedFrame::sWindowManager = false;

TEST_F(PlacedFrame, ANormalPlacementRoundTripsThroughTheString) {
  RECT const normal{100, 120, 700, 520};
  ASSERT_TRUE(PlaceAndShow(Placement(SW_SHOWNORMAL, normal), normal)) << RectOf(*mFrame);
  EXPECT_TRUE(gui_test::WaitUntil([&] { return FrameOnScreen(*mFrame) == normal; }))
      << "the X server shows it at " << FrameOnScreen(*mFrame);
  WINDOWPLACEMENT const read = VxGetWindowPlacement(*mFrame);
  EXPECT_EQ(read.showCmd, SW_SHOWNORMAL);
  EXPECT_EQ(WindowPlacementToString(read), "0,1,-1,-1,-1,-1,100,120,700,520");
  // Moves while normal are tracked for the next maximise.
  RECT const moved{200, 150, 600, 450};
  mFrame->SetSize(wxRect(200, 150, 400, 300));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return FrameOnScreen(*mFrame) == moved; }))
      << FrameOnScreen(*mFrame);
  gui_test::Flush();
  mFrame->Maximize(true);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return mFrame->IsMaximized(); }));
  gui_test::WaitUntil([&] { return !(RectOf(*mFrame) == moved); });
  EXPECT_EQ(VxGetWindowPlacement(*mFrame).rcNormalPosition, moved);
}

TEST_F(PlacedFrame, APlacementOffEveryScreenComesBackOntoOne) {
  std::vector<RECT> const areas = VxGetDisplayWorkAreas();
  ASSERT_FALSE(areas.empty());
  RECT const lost{9000, 7000, 9600, 7400};
  RECT const expected = VxBringOntoWorkArea(lost, areas);
  ASSERT_FALSE(expected == lost);
  ASSERT_TRUE(PlaceAndShow(Placement(SW_SHOWNORMAL, lost), expected)) << RectOf(*mFrame);
  EXPECT_TRUE(gui_test::WaitUntil([&] {
    RECT const seen = FrameOnScreen(*mFrame);
    return seen.left >= 0 && seen.right - seen.left >= 600 && VxIsOnAWorkArea(seen, areas, 600);
  })) << "the X server shows it at "
      << FrameOnScreen(*mFrame);
  EXPECT_EQ(VxGetWindowPlacement(*mFrame).rcNormalPosition, expected);
}

TEST_F(PlacedFrame, AMaximisedWindowKeepsItsNormalRectangle) {
  RECT const normal{50, 60, 450, 360};
  VxSetWindowPlacement(*mFrame, Placement(SW_SHOWMAXIMIZED, normal));
  ASSERT_TRUE(gui_test::ShowAndWait(*mFrame));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return mFrame->IsMaximized(); }));
  ASSERT_TRUE(gui_test::WaitUntil([&] {
    return RectOf(*mFrame).right - RectOf(*mFrame).left > 400;
  })) << "the window manager maximised it: "
      << RectOf(*mFrame) << " on screen " << FrameOnScreen(*mFrame);
  WINDOWPLACEMENT const read = VxGetWindowPlacement(*mFrame);
  EXPECT_EQ(read.showCmd, SW_SHOWMAXIMIZED);
  EXPECT_EQ(read.rcNormalPosition, normal) << "not the maximised rectangle " << RectOf(*mFrame);

  mFrame->Maximize(false);
  EXPECT_TRUE(gui_test::WaitUntil([&] {
    return !mFrame->IsMaximized() && FrameOnScreen(*mFrame) == normal;
  })) << "restored, decorations included, to "
      << FrameOnScreen(*mFrame) << ", wx says " << RectOf(*mFrame);
  EXPECT_EQ(VxGetWindowPlacement(*mFrame).showCmd, SW_SHOWNORMAL);
}

TEST_F(PlacedFrame, AMinimisedPlacementIconisesTheWindow) {
  RECT const normal{100, 100, 500, 400};
  WINDOWPLACEMENT placement = Placement(SW_SHOWMINIMIZED, normal);
  VxSetWindowPlacement(*mFrame, placement);
  mFrame->Show();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return mFrame->IsIconized(); }));
  WINDOWPLACEMENT const read = VxGetWindowPlacement(*mFrame);
  EXPECT_EQ(read.showCmd, SW_SHOWMINIMIZED);
  EXPECT_EQ(read.rcNormalPosition, normal);
  mFrame->Iconize(false);
  EXPECT_TRUE(gui_test::WaitUntil([&] {
    return !mFrame->IsIconized() && FrameOnScreen(*mFrame) == normal;
  })) << "restored to "
      << FrameOnScreen(*mFrame);
}

}  // namespace
