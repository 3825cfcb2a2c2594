// The sample's report: its links reach the sample's commands, and the
// view's find bar, context menu and Save As work in it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/webview.h>

#include "ReportCommand.h"
#include "SampleCommands.h"
#include "controls/VxMenu.h"
#include "harness/GuiTestUtilities.h"
#include "html/HtmlFindBar.h"
#include "html/HtmlSaveChooser.h"
#include "html/VxHtmlView.h"

namespace {

TEST(ReportCommand, LinksRunSampleCommandsAndTheViewsToolsWork) {
  auto * owner = new wxFrame(nullptr, wxID_ANY, "owner");
  std::vector<int> commands;
  owner->Bind(wxEVT_MENU, [&](wxCommandEvent & event) { commands.push_back(event.GetId()); });
  wxMenu tools;
  AddReportCommand(tools, *owner);
  ASSERT_NE(tools.FindItem(kReportCommand), nullptr);
  wxFrame * report = OpenReportWindow(*owner);
  VxHtmlView * view = ReportView(*report);
  ASSERT_NE(view, nullptr);
  ASSERT_TRUE(gui_test::WaitUntil(
      [&] { return view->GetPageState() == VxHtmlView::PageState::Ready && !view->IsPending(); },
      20000));

  for (char const * link : {"run", "format"}) {
    size_t const before = commands.size();
    view->GetBrowser()->RunScript(wxString::Format("document.getElementById('%s').click()", link));
    EXPECT_TRUE(gui_test::WaitUntil([&] { return commands.size() > before; }, 5000)) << link;
  }
  EXPECT_EQ(commands, (std::vector<int>{kRunCalculationCommand, kDateFormatCommand}));

  int menus = 0;
  VxMenu::SetTrackPopupMenuFunction(
      [&menus](wxMenu *, unsigned int, int, int, wxWindow *, wxRect const *) { return ++menus; });
  wxContextMenuEvent context(wxEVT_CONTEXT_MENU, view->GetId(), wxPoint(10, 10));
  view->ProcessWindowEvent(context);
  VxMenu::SetTrackPopupMenuFunction(&VxMenu::ToolkitTrackPopupMenu);
  EXPECT_EQ(menus, 1);

  view->OnEditFind();
  EXPECT_TRUE(view->GetFindBar()->IsShown());

  std::string const path = std::string(std::getenv("TMPDIR")) + "/report.htm";
  SetHtmlSaveChooser([&path](HtmlSaveRequest const &) {
    HtmlSaveAnswer answer;
    answer.accepted = true;
    answer.path = path;
    answer.title = "report";
    return answer;
  });
  view->OnFileSaveAs();
  SetHtmlSaveChooser(nullptr);
  std::ifstream in(path);
  std::ostringstream saved;
  saved << in.rdbuf();
  EXPECT_NE(saved.str().find("Standard B"), std::string::npos);
  EXPECT_NE(saved.str().find("td.value { text-align: right }"), std::string::npos);
  owner->Destroy();
  gui_test::Flush();
}

}  // namespace
