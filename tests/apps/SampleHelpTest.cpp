// The sample's help: the help file the build makes is whole (every number,
// contents entry, keyword and pop-up the sample uses leads somewhere), the
// Help commands ask the engine for what their items name, and F1 on a field
// of the pop-up dialog asks for that field's text.
#include <gtest/gtest.h>

#include <wx/frame.h>
#include <wx/menu.h>

#include "HelpPane.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "SampleHelp.h"
#include "harness/GuiTestUtilities.h"
#include "help/ChmHelpArchive.h"
#include "help/HelpFile.h"
#include "html/HelpEngine.h"
#include "utl/Paths.h"
#include "utl/Utf.h"

namespace {

std::string HelpFilePath() {
  return VxGetExecutableDirectory() + "/" + vx3::WideToUtf8(kSampleHelpFile);
}

void ExpectTopicsThere(HelpFile & file, std::vector<SitemapEntry> const & entries) {
  for (SitemapEntry const & entry : entries) {
    for (std::string const & local : entry.locals)
      EXPECT_TRUE(file.Contains(ResolveHelpLink("/", local))) << entry.name << ": " << local;
    ExpectTopicsThere(file, entry.children);
  }
}

TEST(SampleHelp, TheBuiltHelpFileIsWhole) {
  std::string error;
  std::unique_ptr<HelpArchive> archive = OpenChmHelpArchive(HelpFilePath(), error);
  ASSERT_TRUE(archive) << HelpFilePath() << ": " << error;
  HelpFile file(HelpFilePath(), std::move(archive));
  EXPECT_EQ(file.Title(), "Sample help");
  EXPECT_TRUE(file.Contains(file.DefaultTopic())) << file.DefaultTopic();
  for (int number : {1000, kRunsHelpTopic, 1002, 1003}) {
    std::optional<std::string> const topic = file.TopicOfNumber(static_cast<uint32_t>(number));
    ASSERT_TRUE(topic) << number;
    EXPECT_TRUE(file.Contains(*topic)) << *topic;
  }
  EXPECT_EQ(file.TopicOfNumber(kRunsHelpTopic), "/runs/runs.htm");
  ASSERT_FALSE(file.Contents().entries.empty());
  ExpectTopicsThere(file, file.Contents().entries);
  ASSERT_FALSE(file.Index().Rows().empty());
  for (HelpIndexRow const & row : file.Index().Rows())
    for (std::string const & local : row.locals)
      EXPECT_TRUE(file.Contains(ResolveHelpLink("/", local)));
  for (int popup : {PopupHelpDialog::kRunNamePopup, PopupHelpDialog::kInstrumentPopup,
                    PopupHelpDialog::kPointsPopup})
    EXPECT_TRUE(file.Popups("/popups.txt").Find(static_cast<uint32_t>(popup))) << popup;
  EXPECT_EQ(file.SearchIndex().Find("calibration curve").size(), 1u);
}

class RecordingHelpEngine : public HelpEngine {
public:
  explicit RecordingHelpEngine(std::vector<HelpRequest> & requests) : m_requests(requests) {}
  bool IsAvailable() const override { return true; }
  bool Execute(HelpRequest const & request) override {
    m_requests.push_back(request);
    return true;
  }

private:
  std::vector<HelpRequest> & m_requests;
};

class SampleHelpCommands : public testing::Test {
protected:
  void SetUp() override {
    m_former = VxSetHelpEngine(std::make_unique<RecordingHelpEngine>(requests));
    frame = new MainFrame;
  }
  void TearDown() override {
    VxSetHelpEngine(std::move(m_former));
    frame->Destroy();
    gui_test::Flush();
  }
  void Run(int command) {
    wxCommandEvent event(wxEVT_MENU, command);
    event.SetEventObject(frame);
    frame->ProcessWindowEvent(event);
  }

  std::vector<HelpRequest> requests;
  MainFrame * frame = nullptr;

private:
  std::unique_ptr<HelpEngine> m_former;
};

TEST_F(SampleHelpCommands, EachItemAsksForWhatItNames) {
  std::wstring const file = vx3::Utf8ToWide(HelpFilePath());
  struct Case {
    int command;
    HelpCommand asked;
    int number;
  };
  Case const cases[] = {
      {kHelpContentsCommand, HelpCommand::DisplayToc, 0},
      {kHelpIndexCommand, HelpCommand::DisplayIndex, 0},
      {kHelpOnRunsCommand, HelpCommand::HelpContext, kRunsHelpTopic},
  };
  for (Case const & c : cases) {
    requests.clear();
    Run(c.command);
    ASSERT_EQ(requests.size(), 1u) << c.command;
    EXPECT_EQ(requests[0].path, file);
    EXPECT_EQ(requests[0].command, c.asked);
    EXPECT_EQ(std::get<int>(requests[0].value), c.number);
  }
  requests.clear();
  Run(kHelpSearchCommand);
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0].command, HelpCommand::DisplaySearch);
}

TEST_F(SampleHelpCommands, F1OnAFieldAsksForItsPopup) {
  Run(kPopupHelpDialogCommand);
  PopupHelpDialog * dialog = nullptr;
  for (wxWindow * window : wxTopLevelWindows)
    if (auto * found = dynamic_cast<PopupHelpDialog *>(window)) dialog = found;
  ASSERT_NE(dialog, nullptr);
  ASSERT_TRUE(gui_test::ShowAndWait(*dialog));
  wxWindow * field = dialog->FindWindow(PopupHelpDialog::kInstrumentField);
  ASSERT_NE(field, nullptr);
  field->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntil([field] { return wxWindow::FindFocus() == field; }));
  requests.clear();
  gui_test::PressKey(*dialog, WXK_F1);
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0].command, HelpCommand::TextPopupForControl);
  EXPECT_EQ(requests[0].path, vx3::Utf8ToWide(HelpFilePath()) + L"::/popups.txt");
  EXPECT_EQ(requests[0].window, field);
  auto const & table = std::get<ContextHelpTable>(requests[0].value);
  EXPECT_EQ(table.Lookup(PopupHelpDialog::kInstrumentField),
            std::optional<uint32_t>(PopupHelpDialog::kInstrumentPopup));
  dialog->Destroy();
}

}  // namespace
