// VxHtmlHelp on a recording engine: the path, command and value of each
// request; the control-to-topic table; the default engine that has no viewer.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "html/ContextHelpTable.h"
#include "html/HelpEngine.h"
#include "html/VxHtmlHelp.h"
#include "utl/Log.h"
#include "utl/VxSystemInfo.h"

namespace {

class RecordingEngine : public HelpEngine {
public:
  RecordingEngine(std::vector<HelpRequest> & requests, bool available)
      : m_requests(requests), m_available(available) {}
  bool IsAvailable() const override { return m_available; }
  bool Execute(HelpRequest const & request) override {
    m_requests.push_back(request);
    return m_available;
  }

private:
  std::vector<HelpRequest> & m_requests;
  bool m_available;
};

class VxHtmlHelpTest : public testing::Test {
protected:
  void Install(bool available) {
    VxSetHelpEngine(std::make_unique<RecordingEngine>(requests, available));
  }
  void SetUp() override { Install(true); }
  void TearDown() override { VxSetHelpEngine(nullptr); }

  std::vector<HelpRequest> requests;
};

unsigned Number(HelpCommand command) { return static_cast<unsigned>(command); }

struct OperationCase {
  char const * name;
  void (*operation)(VxHtmlHelp &);
  std::wstring path;
  unsigned command;
  int value;
};

TEST_F(VxHtmlHelpTest, EachOperationSendsItsPathCommandAndValue) {
  OperationCase const cases[] = {
      {"default topic", [](VxHtmlHelp & help) { help.DisplayDefaultTopic(); }, L"/d/App.chm", 1, 0},
      {"topic", [](VxHtmlHelp & help) { help.DisplayTopic(4711); }, L"/d/App.chm", 15, 4711},
      {"topic in a window", [](VxHtmlHelp & help) { help.DisplayTopic(20, L"Main"); },
       L"/d/App.chm>Main", 15, 20},
      {"no topic", [](VxHtmlHelp & help) { help.DisplayTopic(0); }, L"/d/App.chm", 0, 0},
      {"negative topic in a window", [](VxHtmlHelp & help) { help.DisplayTopic(-5, L"W"); },
       L"/d/App.chm>W", 0, 0},
      {"index", [](VxHtmlHelp & help) { help.DisplayIndex(); }, L"/d/App.chm", 2, 0},
  };
  for (OperationCase const & c : cases) {
    SCOPED_TRACE(c.name);
    requests.clear();
    VxHtmlHelp help;
    help.SetHelpFile(L"/d/App.chm");
    c.operation(help);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].path, c.path);
    EXPECT_EQ(Number(requests[0].command), c.command);
    ASSERT_TRUE(std::holds_alternative<int>(requests[0].value));
    EXPECT_EQ(std::get<int>(requests[0].value), c.value);
    EXPECT_EQ(requests[0].window, nullptr);
  }
}

TEST_F(VxHtmlHelpTest, SearchSendsAZeroedQueryWithItsSize) {
  VxHtmlHelp help;
  help.SetHelpFile(L"App.chm");
  help.Search();
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0].path, L"App.chm");
  EXPECT_EQ(Number(requests[0].command), 3u);
  ASSERT_TRUE(std::holds_alternative<FullTextSearchQuery>(requests[0].value));
  auto const & query = std::get<FullTextSearchQuery>(requests[0].value);
  EXPECT_EQ(query.size, 40);
  EXPECT_EQ(query.unicodeStrings | query.proximity | query.stemmedSearch | query.titleOnly |
                query.execute,
            0);
  EXPECT_EQ(query.searchQuery, nullptr);
  EXPECT_EQ(query.window, nullptr);
}

TEST_F(VxHtmlHelpTest, ContextHelpForAControlSendsThePopupFileAndTheTable) {
  VxHtmlHelp help;
  help.SetHelpFile(L"App.chm");
  HELPINFO info;
  info.iCtrlId = 1001;
  EXPECT_TRUE(help.DisplayContextHelp(nullptr, &info, L"popups.txt"));
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0].path, L"App.chm::/popups.txt");
  EXPECT_EQ(Number(requests[0].command), 17u);
  ASSERT_TRUE(std::holds_alternative<ContextHelpTable>(requests[0].value));
  // No dialog, no children: only the ending zero pair.
  EXPECT_EQ(std::get<ContextHelpTable>(requests[0].value).Pairs(),
            std::vector<ContextHelpPair>{ContextHelpPair{}});
}

TEST_F(VxHtmlHelpTest, ContextHelpForAMenuOrNoControlIsLeftToTheCaller) {
  VxHtmlHelp help;
  help.SetHelpFile(L"App.chm");
  HELPINFO menu;
  menu.iContextType = HELPINFO_MENUITEM;
  menu.iCtrlId = 32771;
  HELPINFO noControl;
  noControl.iCtrlId = 0;
  HELPINFO negative;
  negative.iCtrlId = -1;
  for (HELPINFO const * info : {&menu, &noControl, &negative, static_cast<HELPINFO *>(nullptr)})
    EXPECT_FALSE(help.DisplayContextHelp(nullptr, info, L"popups.txt"));
  EXPECT_TRUE(requests.empty());
}

TEST_F(VxHtmlHelpTest, DestructionClosesTheWindowsOfAnEngineThatWasUsed) {
  { VxHtmlHelp unused; }
  EXPECT_TRUE(requests.empty()) << "nothing to close when nothing was asked";
  {
    VxHtmlHelp used;
    used.SetHelpFile(L"App.chm");
    used.DisplayIndex();
  }
  ASSERT_EQ(requests.size(), 2u);
  EXPECT_EQ(Number(requests[1].command), 18u);

  requests.clear();
  Install(false);
  {
    VxHtmlHelp unavailable;
    unavailable.DisplayIndex();
  }
  EXPECT_EQ(requests.size(), 1u) << "an engine that showed nothing has nothing to close";
}

TEST_F(VxHtmlHelpTest, AvailableOnlyWithAViewerAndAHelpFile) {
  VxHtmlHelp help;
  EXPECT_FALSE(help.IsAvailable()) << "no help file";
  help.SetHelpFile(L"App.chm");
  EXPECT_TRUE(help.IsAvailable());
  Install(false);
  EXPECT_FALSE(help.IsAvailable());
  VxSetHelpEngine(nullptr);
  EXPECT_FALSE(help.IsAvailable()) << "the default engine has no viewer";
}

TEST(DefaultHelpEngine, RefusesEveryRequestWithALogLine) {
  VxSystemInfo::SetApplication("DefaultHelpEngine", "1.0");
  VxSetHelpEngine(nullptr);
  HelpEngine & engine = VxGetHelpEngine();
  EXPECT_FALSE(engine.IsAvailable());
  EXPECT_FALSE(
      engine.Execute(HelpRequest{nullptr, L"Hilfe-\u00e4.chm", HelpCommand::HelpContext, 7}));
  std::ifstream in(Log::GetLogFilePath());
  std::string line, last;
  while (std::getline(in, line)) last = line;
  EXPECT_NE(last.find("Help is not available: no help viewer is installed (command 15, path "
                      "\"Hilfe-\xc3\xa4.chm\")"),
            std::string::npos)
      << last;
}

// The table as the engine reads it.
std::vector<ContextHelpPair> Controls(int first, int count) {
  std::vector<ContextHelpPair> children;
  for (int id = first; id < first + count; ++id)
    children.push_back({id, static_cast<uint32_t>(5000 + id)});
  return children;
}

TEST(ContextHelpTable, PassesOverOkCancelAndHelpAndEndsWithAZeroPair) {
  ContextHelpTable table;
  table.Fill({{1, 11}, {100, 1100}, {2, 22}, {9, 99}, {3, 33}, {-200, 7}});
  EXPECT_EQ(table.Pairs(), (std::vector<ContextHelpPair>{{100, 1100}, {3, 33}, {-200, 7}, {}}));
  EXPECT_EQ(table.Lookup(1), std::nullopt);
  EXPECT_EQ(table.Lookup(3), 33u);
  EXPECT_EQ(table.Lookup(-200), 7u);
  table.Fill({});
  EXPECT_EQ(table.Pairs(), std::vector<ContextHelpPair>{ContextHelpPair{}}) << "refilled anew";
}

TEST(ContextHelpTable, HoldsNinetyNineControlsAndNoMore) {
  ContextHelpTable table;
  table.Fill(Controls(10, 120));
  ASSERT_EQ(table.ControlCount(), 99u);
  ASSERT_EQ(table.Pairs().size(), 100u);
  EXPECT_EQ(table.Pairs().back(), ContextHelpPair{});
  struct {
    int32_t controlId;
    std::optional<uint32_t> expected;
  } const lookups[] = {
      {10, 5010u},           // first
      {108, 5108u},          // 99th, the last kept
      {109, std::nullopt},   // 100th: no pop-up
      {129, std::nullopt},   // the last child
      {4242, std::nullopt},  // not a child
      {0, std::nullopt},     // the end marker is no control
  };
  for (auto const & lookup : lookups)
    EXPECT_EQ(table.Lookup(lookup.controlId), lookup.expected) << lookup.controlId;

  // The skipped buttons do not count against the limit.
  std::vector<ContextHelpPair> withButtons{{1, 0}, {2, 0}, {9, 0}};
  for (ContextHelpPair const & pair : Controls(10, 99)) withButtons.push_back(pair);
  table.Fill(withButtons);
  EXPECT_EQ(table.ControlCount(), 99u);
  EXPECT_EQ(table.Lookup(108), 5108u);
}

}  // namespace
