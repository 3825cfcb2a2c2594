// The tour page: every subsystem has its links, every link names a command
// of the main frame's menus, and a click on a link in the real page runs
// that command. (check-sample-tour walks the commands in the application.)
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include <wx/menu.h>
#include <wx/webview.h>

#include "MainFrame.h"
#include "SampleCommands.h"
#include "SampleTour.h"
#include "harness/GuiTestUtilities.h"
#include "html/VxHtmlView.h"

namespace {

TEST(SampleTour, EverySubsystemHasLinksToCommandsOfTheMenus) {
  auto * frame = new MainFrame;
  std::vector<TourStop> const stops = TourStops();
  ASSERT_EQ(TourSubsystems().size(), 13u);
  std::set<int> covered;
  std::set<std::string> links;
  wxString const page = BuildTourPage();
  for (TourStop const & stop : stops) {
    SCOPED_TRACE(stop.link);
    covered.insert(stop.subsystem);
    EXPECT_TRUE(links.insert(stop.link).second) << "two stops share a link name";
    EXPECT_NE(frame->GetMenuBar()->FindItem(stop.command), nullptr) << "not a menu command";
    EXPECT_TRUE(page.Contains(wxString::Format("href='app:%s'", stop.link)));
    EXPECT_FALSE(stop.label.empty());
  }
  EXPECT_EQ(covered.size(), 13u);
  EXPECT_EQ(page.Freq('\n'), 0u);
  size_t anchors = 0;
  for (size_t at = page.find("href='app:"); at != wxString::npos;
       at = page.find("href='app:", at + 1))
    ++anchors;
  EXPECT_EQ(anchors, stops.size()) << "a link on the page without a stop, or the other way";
  frame->Destroy();
  gui_test::Flush();
}

TEST(SampleTour, ClickedLinksRunTheirCommandsOnTheMainFrame) {
  auto * frame = new MainFrame;
  frame->Show();
  std::vector<int> commands;
  // Bound last, so called first: the commands are noted, not run.
  frame->Bind(wxEVT_MENU, [&](wxCommandEvent & event) { commands.push_back(event.GetId()); });
  wxFrame * tour = OpenTourWindow(*frame);
  VxHtmlView * view = TourView(*tour);
  ASSERT_NE(view, nullptr);
  ASSERT_TRUE(gui_test::WaitUntil(
      [&] { return view->GetPageState() == VxHtmlView::PageState::Ready && !view->IsPending(); },
      20000));
  std::vector<int> expected;
  for (TourStop const & stop : TourStops()) {
    expected.push_back(stop.command);
    size_t const before = commands.size();
    view->GetBrowser()->RunScript(
        wxString::Format("document.getElementById('%s').click()", stop.link));
    EXPECT_TRUE(gui_test::WaitUntil([&] { return commands.size() > before; }, 5000)) << stop.link;
  }
  EXPECT_EQ(commands, expected);
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
