// The help engine and its windows on real wx windows, with a topic viewer
// that records what it is asked to show: the commands of the help front, the three
// tabs, remembered placements and the pop-up of a
// control asked for with F1.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/textctrl.h>
#include <wx/tipwin.h>
#include <wx/treectrl.h>

#include "MemoryHelpArchive.h"
#include "harness/GuiTestUtilities.h"
#include "help/ChmHelpEngine.h"
#include "help/ContextHelpBinding.h"
#include "help/HelpWindow.h"
#include "html/VxHtmlHelp.h"
#include "html/WindowContextHelpId.h"
#include "utl/VxSystemInfo.h"

namespace {

// What the windows' viewers were asked to show, last first.
std::vector<std::string> g_shown;

class RecordingViewer : public HelpTopicViewer {
public:
  explicit RecordingViewer(wxWindow * parent) : m_panel(new wxPanel(parent)) {}
  wxWindow * GetWindow() const override { return m_panel; }
  void Show(std::string const & chmPath, std::string const & innerPath) override {
    g_shown.insert(g_shown.begin(), chmPath + "::" + innerPath);
  }

private:
  wxPanel * m_panel;
};

std::unique_ptr<HelpTopicViewer> MakeRecordingViewer(wxWindow * parent) {
  return std::make_unique<RecordingViewer>(parent);
}

std::string Object(std::string const & name, std::string const & local) {
  return "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"" + name +
         "\"><param name=\"Local\" value=\"" + local + "\"></object>";
}

std::map<std::string, std::string> SampleFiles() {
  std::map<std::string, std::string> files{
      {"/#SYSTEM", SystemStream("toc.hhc", "keys.hhk", "start.htm", "Sample help")},
      {"/toc.hhc", "<ul>" + Object("Start", "start.htm") + "<ul>" + Object("Runs", "sub/runs.htm") +
                       "</ul></ul>"},
      {"/keys.hhk", "<ul>" + Object("calibration", "start.htm") + Object("runs", "sub/runs.htm") +
                        Object("run series", "sub/runs.htm") + "</ul>"},
      {"/start.htm", "<title>Start</title><p>Welcome to the calibration.</p>"},
      {"/sub/runs.htm", "<title>Runs</title><p>Runs and their series.</p>"},
      {"/popups.txt", ".topic 501\nThe name of the run.\n"},
  };
  AddNumberMap(files, {{100, "start.htm"}, {200, "sub/runs.htm"}});
  return files;
}

class HelpEngineWindows : public testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication("HelpWindowTest", "1.0.0.1");
    g_shown.clear();
    auto files = SampleFiles();
    m_engine = std::make_unique<ChmHelpEngine>(
        [files, this](std::string const & path,
                      std::string & error) -> std::unique_ptr<HelpArchive> {
          ++m_opened;
          if (path != "sample.chm") {
            error = "no such file";
            return nullptr;
          }
          return std::make_unique<MemoryHelpArchive>(files);
        },
        &MakeRecordingViewer, [] { return true; });
  }
  void TearDown() override {
    m_engine.reset();
    gui_test::Flush();
  }

  bool Run(wchar_t const * path, HelpCommand command, HelpValue value = 0) {
    return m_engine->Execute(HelpRequest{nullptr, path, command, std::move(value)});
  }

  std::unique_ptr<ChmHelpEngine> m_engine;
  int m_opened = 0;
};

TEST_F(HelpEngineWindows, CommandsShowTheirTopicsAndTabs) {
  ASSERT_TRUE(m_engine->IsAvailable());
  ASSERT_TRUE(Run(L"sample.chm", HelpCommand::DisplayToc));
  HelpWindow * window = m_engine->FindWindow("");
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->IsShown());
  EXPECT_EQ(window->GetTitle(), "Sample help");
  EXPECT_EQ(window->GetCurrentTopic(), "/start.htm") << "the default topic of #SYSTEM";
  EXPECT_EQ(window->GetShownTab(), HelpWindow::ContentsTab);
  ASSERT_FALSE(g_shown.empty());
  EXPECT_EQ(g_shown.front(), "sample.chm::/start.htm");

  EXPECT_TRUE(Run(L"sample.chm", HelpCommand::HelpContext, 200));
  EXPECT_EQ(window->GetCurrentTopic(), "/sub/runs.htm");
  EXPECT_FALSE(Run(L"sample.chm", HelpCommand::HelpContext, 999)) << "no such number";
  EXPECT_EQ(window->GetCurrentTopic(), "/sub/runs.htm");

  EXPECT_TRUE(Run(L"sample.chm", HelpCommand::DisplayIndex));
  EXPECT_EQ(window->GetShownTab(), HelpWindow::IndexTab);
  FullTextSearchQuery query;
  query.size = sizeof query;
  EXPECT_TRUE(Run(L"sample.chm", HelpCommand::DisplaySearch, query));
  EXPECT_EQ(window->GetShownTab(), HelpWindow::SearchTab);

  EXPECT_FALSE(Run(L"sample.chm::/missing.htm", HelpCommand::DisplayTopic));
  EXPECT_EQ(g_shown.front(), "sample.chm::/missing.htm") << "the viewer's page says so";

  EXPECT_TRUE(Run(L"sample.chm::/sub/runs.htm>side", HelpCommand::DisplayTopic));
  HelpWindow * side = m_engine->FindWindow("side");
  ASSERT_NE(side, nullptr);
  EXPECT_NE(side, window) << "one window for each window type";
  EXPECT_EQ(side->GetCurrentTopic(), "/sub/runs.htm");
  EXPECT_EQ(m_opened, 1) << "the file is opened once";

  EXPECT_FALSE(Run(L"other.chm", HelpCommand::DisplayToc));
  EXPECT_FALSE(Run(L"", HelpCommand::DisplayToc));
  EXPECT_EQ(m_engine->WindowCount(), 2u);

  EXPECT_TRUE(Run(L"", HelpCommand::CloseAll));
  EXPECT_TRUE(gui_test::WaitUntil([&] { return m_engine->WindowCount() == 0; }));
  EXPECT_EQ(m_engine->FindWindow(""), nullptr);
}

TEST_F(HelpEngineWindows, TabsAndLinksLeadToTopics) {
  ASSERT_TRUE(Run(L"sample.chm", HelpCommand::DisplayIndex));
  HelpWindow & window = *m_engine->FindWindow("");

  // Contents: selecting an entry shows its topic.
  wxTreeCtrl & tree = *window.GetContentsTree();
  wxTreeItemIdValue cookie;
  wxTreeItemId const start = tree.GetFirstChild(tree.GetRootItem(), cookie);
  tree.Expand(start);
  wxTreeItemId const runs = tree.GetFirstChild(start, cookie);
  ASSERT_EQ(tree.GetItemText(runs), "Runs");
  tree.SelectItem(runs);
  EXPECT_EQ(window.GetCurrentTopic(), "/sub/runs.htm");

  // Index: typing filters; Enter opens the selected keyword.
  window.GetIndexText()->SetValue("RUN");
  EXPECT_EQ(window.GetIndexList()->GetItemCount(), 2);
  EXPECT_EQ(window.GetIndexList()->GetItemText(0), "run series");
  window.GetIndexText()->SetValue("cal");
  EXPECT_EQ(window.GetIndexList()->GetItemCount(), 1);
  wxCommandEvent enter(wxEVT_TEXT_ENTER, window.GetIndexText()->GetId());
  enter.SetEventObject(window.GetIndexText());
  window.GetIndexText()->ProcessWindowEvent(enter);
  EXPECT_EQ(window.GetCurrentTopic(), "/start.htm");
  window.GetIndexText()->SetValue("zzz");
  EXPECT_EQ(window.GetIndexList()->GetItemCount(), 0);
  EXPECT_FALSE(window.OpenIndexRow(0));

  // Search: the topics with every word, by title.
  window.RunSearch("series RUNS");
  ASSERT_EQ(window.GetSearchResultCount(), 1u);
  EXPECT_EQ(window.GetSearchResults()->GetString(0), "Runs");
  window.RunSearch("welcome");
  ASSERT_TRUE(window.OpenSearchResult(0));
  EXPECT_EQ(window.GetCurrentTopic(), "/start.htm");
}

TEST_F(HelpEngineWindows, EachWindowTypeComesBackWhereItWasLeft) {
  ASSERT_TRUE(Run(L"sample.chm>placed", HelpCommand::DisplayToc));
  HelpWindow * window = m_engine->FindWindow("placed");
  ASSERT_TRUE(gui_test::ShowAndWait(*window));
  window->SetSize(wxSize(700, 500));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return window->GetSize() == wxSize(700, 500); }));
  gui_test::WaitUntilPlaced(*window);
  wxSize const left = window->GetSize();
  ASSERT_TRUE(Run(L"", HelpCommand::CloseAll));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return m_engine->WindowCount() == 0; }));

  ASSERT_TRUE(Run(L"sample.chm>placed", HelpCommand::DisplayToc));
  HelpWindow * again = m_engine->FindWindow("placed");
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(gui_test::WaitUntil([&] { return again->GetSize() == left; }))
      << again->GetSize().x << "x" << again->GetSize().y;
  ASSERT_TRUE(Run(L"sample.chm>fresh", HelpCommand::DisplayToc));
  EXPECT_NE(m_engine->FindWindow("fresh")->GetSize(), left) << "another type keeps its own";
}

TEST_F(HelpEngineWindows, APathWithoutWindowOpensTheFilesDefaultWindow) {
  auto files = SampleFiles();
  files["/#SYSTEM"] = SystemStream("toc.hhc", "keys.hhk", "start.htm", "Sample help", "main");
  ChmHelpEngine engine(
      [files](std::string const &, std::string &) {
        return std::make_unique<MemoryHelpArchive>(files);
      },
      &MakeRecordingViewer, [] { return true; });
  ASSERT_TRUE(engine.Execute(HelpRequest{nullptr, L"sample.chm", HelpCommand::DisplayToc, 0}));
  EXPECT_NE(engine.FindWindow("main"), nullptr);
  ASSERT_TRUE(engine.Execute(HelpRequest{nullptr, L"sample.chm>side", HelpCommand::DisplayToc, 0}));
  EXPECT_EQ(engine.WindowCount(), 2u) << "a named window type wins";
  EXPECT_EQ(engine.FindWindow(""), nullptr);
}

TEST_F(HelpEngineWindows, NoBrowserMeansNoHelpAndIsTriedOnce) {
  int tries = 0;
  ChmHelpEngine engine(
      [](std::string const &, std::string &) {
        return std::make_unique<MemoryHelpArchive>(SampleFiles());
      },
      &MakeRecordingViewer,
      [&tries] {
        ++tries;
        return false;
      });
  EXPECT_FALSE(engine.IsAvailable());
  EXPECT_FALSE(engine.Execute(HelpRequest{nullptr, L"sample.chm", HelpCommand::DisplayToc, 0}));
  EXPECT_FALSE(engine.IsAvailable());
  EXPECT_EQ(tries, 1);
  EXPECT_EQ(engine.WindowCount(), 0u);
}

// The engine installed for the process, reached through the help front.
class EngineSlot {
public:
  explicit EngineSlot(std::unique_ptr<ChmHelpEngine> engine) : m_engine(engine.get()) {
    m_previous = VxSetHelpEngine(std::move(engine));
  }
  ~EngineSlot() { VxSetHelpEngine(std::move(m_previous)); }
  ChmHelpEngine & operator*() const { return *m_engine; }

private:
  ChmHelpEngine * m_engine;
  std::unique_ptr<HelpEngine> m_previous;
};

TEST_F(HelpEngineWindows, F1OnAControlShowsItsPopupBesideIt) {
  EngineSlot const engine(std::move(m_engine));
  VxHtmlHelp::Instance()->SetHelpFile(L"sample.chm");
  wxDialog dialog(nullptr, wxID_ANY, "Pop-ups");
  auto * named = new wxTextCtrl(&dialog, 1001, "", wxPoint(10, 10), wxSize(200, -1));
  auto * plain = new wxTextCtrl(&dialog, 1002, "", wxPoint(10, 50), wxSize(200, -1));
  new wxButton(&dialog, wxID_OK, "OK", wxPoint(10, 90));
  VxSetWindowContextHelpId(named, 501);
  VxBindContextHelp(dialog, L"popups.txt");
  ASSERT_TRUE(gui_test::ShowAndWait(dialog));

  named->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return wxWindow::FindFocus() == named; }));
  gui_test::PressKey(dialog, WXK_F1);
  wxTipWindow * popup = (*engine).GetPopup();
  ASSERT_NE(popup, nullptr);
  EXPECT_LE(
      std::abs(popup->GetScreenPosition().y - (named->GetScreenPosition().y + named->GetSize().y)),
      2)
      << "below the control";
  popup->Close();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return (*engine).GetPopup() == nullptr; }));

  plain->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return wxWindow::FindFocus() == plain; }));
  gui_test::PressKey(dialog, WXK_F1);
  EXPECT_EQ((*engine).GetPopup(), nullptr) << "a control without a context id has no pop-up";

  // A request about the dialog itself is not a control's: the caller's own.
  wxHelpEvent aboutDialog(wxEVT_HELP, dialog.GetId());
  aboutDialog.SetEventObject(&dialog);
  dialog.ProcessWindowEvent(aboutDialog);
  EXPECT_EQ((*engine).GetPopup(), nullptr);
  VxHtmlHelp::Instance()->SetHelpFile(L"");
}

}  // namespace
