// The help window with its real help control in WebKit: the engine's
// commands end with the topic loaded from the help file under its its:
// address, and a topic that is not there ends with the control's page
// saying so, never with the previous topic standing.
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/listctrl.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>

#include "ChmTestFiles.h"
#include "harness/GuiTestUtilities.h"
#include "help/CHHCtrl.h"
#include "help/ChmHelpArchive.h"
#include "help/ChmHelpEngine.h"
#include "help/HelpWindow.h"
#include "utl/Utf.h"

namespace {

constexpr int kLoadTimeoutMs = 20000;
constexpr int kRecalculate = 31007;

std::string WriteHelpFile() {
  chmwriter::ChmProject project;
  project.title = "WebKit help";
  project.defaultTopic = "/start.htm";
  project.contentsFile = "/toc.hhc";
  project.indexFile = "/keys.hhk";
  project.aliases = {{2, "/sub/second.htm"}};
  auto files = chmwriter::SystemStreams(project);
  files.push_back({"/start.htm",
                   "<html><title>Start</title><body><h1>Start</h1>"
                   "<p>The first topic.</p></body></html>"});
  files.push_back({"/sub/second.htm",
                   "<html><title>Second</title><body><h1>Second</h1>"
                   "<a id='back' href='../start.htm'>back</a> "
                   "<a id='run' href='APP:Recalculate'>run</a></body></html>"});
  files.push_back({"/toc.hhc",
                   "<ul><li><object type='text/sitemap'><param name='Name' value='Start'>"
                   "<param name='Local' value='start.htm'></object><ul><li><object "
                   "type='text/sitemap'><param name='Name' value='Second'><param name='Local' "
                   "value='sub/second.htm'></object></ul></ul>"});
  files.push_back({"/keys.hhk",
                   "<ul><li><object type='text/sitemap'><param name='Name' "
                   "value='second'><param name='Local' value='sub/second.htm'>"
                   "</object></ul>"});
  char const * temp = std::getenv("TMPDIR");
  std::string path = std::string(temp != nullptr ? temp : "/tmp") + "/webkit help.chm";
  chmtest::WriteFile(path, chmwriter::BuildChm(files));
  return path;
}

TEST(HelpWindowWebKit, TopicsLoadInTheHelpControl) {
  std::string const file = WriteHelpFile();
  ChmHelpEngine engine(&OpenChmHelpArchive, &MakeHelpControlViewer, [] { return true; });
  std::wstring const path = vx3::Utf8ToWide(file);
  ASSERT_TRUE(engine.Execute(HelpRequest{nullptr, path, HelpCommand::DisplayToc, 0}));
  HelpWindow * window = engine.FindWindow("");
  ASSERT_NE(window, nullptr);
  auto * control = dynamic_cast<CHHCtrl *>(window->GetViewer()->GetWindow());
  ASSERT_NE(control, nullptr);
  // The browser's own first page (about:blank) may finish after the topic was asked for.
  auto const loaded = [control] {
    return control->GetReadyState() == 4 && control->GetLocationURL().StartsWith("its:");
  };
  ASSERT_TRUE(gui_test::WaitUntil(loaded, kLoadTimeoutMs)) << control->GetLocationURL();
  EXPECT_TRUE(control->GetLocationURL().StartsWith("its:")) << control->GetLocationURL();
  EXPECT_TRUE(control->GetLocationURL().EndsWith("start.htm")) << control->GetLocationURL();
  wxString body;
  control->GetBrowser()->RunScript("document.body.textContent", &body);
  EXPECT_TRUE(body.Contains("The first topic.")) << body;
  // WebKit may tell the title after the load.
  EXPECT_TRUE(gui_test::WaitUntil([control] { return control->GetLocationName() == "Start"; }));
  gui_test::Snapshot(*window, "help-window-contents");

  ASSERT_TRUE(engine.Execute(HelpRequest{nullptr, path, HelpCommand::HelpContext, 2}));
  ASSERT_TRUE(gui_test::WaitUntil(
      [control] { return control->GetReadyState() == 4 && control->GetLocationName() == "Second"; },
      kLoadTimeoutMs));

  window->ShowTab(HelpWindow::IndexTab);
  window->GetIndexText()->SetValue("sec");
  EXPECT_EQ(window->GetIndexList()->GetItemCount(), 1);
  gui_test::Flush();
  gui_test::Snapshot(*window, "help-window-index");

  EXPECT_FALSE(
      engine.Execute(HelpRequest{nullptr, path + L"::/missing.htm", HelpCommand::DisplayTopic, 0}));
  EXPECT_TRUE(gui_test::WaitUntil(
      [control] { return control->GetReadyState() == 4 && control->GetLocationName() != "Second"; },
      kLoadTimeoutMs));
  engine.Execute(HelpRequest{nullptr, L"", HelpCommand::CloseAll, 0});
}

TEST(HelpWindowWebKit, LinksReachTheMainWindowAndTheContentsFollow) {
  std::string const file = WriteHelpFile();
  auto * mainWindow = new wxFrame(nullptr, wxID_ANY, "Main");
  wxTheApp->SetTopWindow(mainWindow);
  std::vector<int> commands;
  mainWindow->Bind(wxEVT_MENU, [&](wxCommandEvent & e) { commands.push_back(e.GetId()); });
  SetHelpWindowCommands({{"Recalculate", kRecalculate}, {"recalculate", kRecalculate + 1}});

  ChmHelpEngine engine(&OpenChmHelpArchive, &MakeHelpControlViewer, [] { return true; });
  std::wstring const path = vx3::Utf8ToWide(file);
  ASSERT_TRUE(engine.Execute(HelpRequest{nullptr, path, HelpCommand::HelpContext, 2}));
  HelpWindow * window = engine.FindWindow("");
  ASSERT_NE(window, nullptr);
  auto * control = dynamic_cast<CHHCtrl *>(window->GetViewer()->GetWindow());
  ASSERT_NE(control, nullptr);
  wxTreeCtrl * tree = window->GetContentsTree();
  auto const selected = [tree] {
    wxTreeItemId const item = tree->GetSelection();
    return item.IsOk() ? tree->GetItemText(item) : wxString();
  };
  ASSERT_TRUE(gui_test::WaitUntil(
      [control] { return control->GetReadyState() == 4 && control->GetLocationName() == "Second"; },
      kLoadTimeoutMs));
  EXPECT_EQ(selected(), "Second") << "a topic asked for by number is found in the contents";

  control->GetBrowser()->RunScript("document.getElementById('run').click()");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !commands.empty(); }, kLoadTimeoutMs));
  EXPECT_EQ(commands, std::vector<int>{kRecalculate});

  control->GetBrowser()->RunScript("document.getElementById('back').click()");
  ASSERT_TRUE(gui_test::WaitUntil(
      [control] { return control->GetReadyState() == 4 && control->GetLocationName() == "Start"; },
      kLoadTimeoutMs));
  EXPECT_EQ(selected(), "Start");
  gui_test::Snapshot(*window, "help-window-followed-link");
  EXPECT_EQ(window->GetCurrentTopic(), "/start.htm");
  gui_test::Flush();
  EXPECT_TRUE(control->GetLocationURL().EndsWith("start.htm"))
      << "selecting the entry does not load the topic again elsewhere";

  engine.Execute(HelpRequest{nullptr, L"", HelpCommand::CloseAll, 0});
  SetHelpWindowCommands({});
  mainWindow->Destroy();
  gui_test::Flush();
}

}  // namespace
