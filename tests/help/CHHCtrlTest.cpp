// The help control in a real WebKit browser: pages by number and by name
// come from the help file through "its:", the tool bar walks the history,
// "app:" links reach the application, links written for other viewers open
// the file they name, a missing file is told once.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>

#include "ChmTestFiles.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "help/CHHCtrl.h"
#include "help/ChmAddress.h"
#include "help/ChmScheme.h"
#include "html/HtmlBrowser.h"

namespace {

constexpr int kLoadTimeoutMs = 20000;
constexpr int kRunCommand = 32123;

std::string HelpFile() {
  chmwriter::ChmProject project;
  project.defaultTopic = "/home.htm";
  project.aliases = {{10, "/home.htm"}, {20, "/topics/second page.htm"}};
  auto files = chmwriter::SystemStreams(project);
  files.push_back({"/home.htm",
                   "<html><head><title>Home</title></head><body>Home page "
                   "<a id='run' href='app:RunIt'>run</a> "
                   "<a id='other' href='ms-its:C:\\somewhere\\other.chm::/x.htm'>other</a>"
                   "</body></html>"});
  files.push_back({"/topics/second page.htm",
                   "<html><head><title>Second</title></head><body>Second page</body></html>"});
  std::string path =
      std::string(std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp") +
      "/control help.chm";
  chmtest::WriteFile(path, chmwriter::BuildChm(files));
  // A second file beside it, named by a link written for another viewer.
  chmtest::WriteFile(path.substr(0, path.rfind('/')) + "/other.chm",
                     chmwriter::BuildChm({{"/x.htm", "<html><title>Other</title>x</html>"}}));
  return path;
}

// What GTK sends when a tool bar button is pressed.
void PressButton(wxToolBar & toolBar, int id) {
  wxCommandEvent event(wxEVT_TOOL, id);
  event.SetEventObject(&toolBar);
  toolBar.GetEventHandler()->ProcessEvent(event);
}

class HelpControl : public testing::Test {
protected:
  void SetUp() override {
    mPath = HelpFile();
    mFrame = new wxFrame(nullptr, wxID_ANY, "Help control", wxDefaultPosition, wxSize(600, 400));
    mFrame->Bind(wxEVT_MENU, [this](wxCommandEvent & e) { mCommands.push_back(e.GetId()); });
    mControl = new CHHCtrl;
    std::wstring const wide(mPath.begin(), mPath.end());
    ASSERT_TRUE(mControl->Create(mFrame, wxRect(0, 0, 600, 400), 77, wide.c_str()));
    auto * sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mControl, 1, wxEXPAND);
    mFrame->SetSizer(sizer);
    ASSERT_TRUE(gui_test::ShowAndWait(*mFrame));
    ASSERT_NE(mControl->GetBrowser(), nullptr);
  }
  void TearDown() override {
    mFrame->Destroy();
    gui_test::Flush();
  }

  bool WaitLoaded(wxString const & url) {
    return gui_test::WaitUntil(
        [&] { return mControl->GetReadyState() == 4 && mControl->GetLocationURL() == url; },
        kLoadTimeoutMs);
  }
  wxString BodyText() {
    wxString text;
    mControl->GetBrowser()->RunScript("document.body.textContent", &text);
    return text;
  }

  std::string mPath;
  wxFrame * mFrame = nullptr;
  CHHCtrl * mControl = nullptr;
  std::vector<int> mCommands;
};

TEST_F(HelpControl, ShowsTopicsByNumberAndByNameAndWalksTheHistory) {
  EXPECT_TRUE(ChmScheme::Instance().IsRegistered(mPath));
  auto * toolBar = dynamic_cast<wxToolBar *>(mControl->FindWindow(CHHCtrl::kToolBarId));
  ASSERT_NE(toolBar, nullptr);
  EXPECT_EQ(toolBar->GetToolsCount(), 3U);
  EXPECT_EQ(toolBar->GetToolShortHelp(CHHCtrl::kHome), "Home");
  EXPECT_FALSE(toolBar->GetToolEnabled(CHHCtrl::kBack));

  ASSERT_EQ(mControl->NavigateChm(20U, L"someframe"), S_OK);
  wxString const second = wxString::FromUTF8(MakeChmAddress(mPath, "/topics/second page.htm"));
  ASSERT_TRUE(WaitLoaded(second)) << mControl->GetLocationURL();
  EXPECT_TRUE(BodyText().Contains("Second page"));
  EXPECT_FALSE(toolBar->GetToolEnabled(CHHCtrl::kBack)) << "only the blank start lies behind";
  EXPECT_EQ(mControl->GetLocationName(), "Second");

  ASSERT_EQ(mControl->NavigateChm(L"home.htm"), S_OK);
  wxString const home = wxString::FromUTF8(MakeChmAddress(mPath, "/home.htm"));
  ASSERT_TRUE(WaitLoaded(home));
  EXPECT_TRUE(gui_test::WaitUntil([&] { return toolBar->GetToolEnabled(CHHCtrl::kBack); }));

  PressButton(*toolBar, CHHCtrl::kBack);
  ASSERT_TRUE(WaitLoaded(second));
  EXPECT_TRUE(gui_test::WaitUntil([&] { return toolBar->GetToolEnabled(CHHCtrl::kForward); }));

  // Home is the file's default topic.
  PressButton(*toolBar, CHHCtrl::kHome);
  ASSERT_TRUE(WaitLoaded(home));

  EXPECT_EQ(mControl->NavigateChm(99U), E_FAIL);
  EXPECT_TRUE(mControl->GetHelpMap().IsLoaded());
}

TEST_F(HelpControl, Navigate2LoadsWhatTheBrowserCanAndRefusesPosting) {
  wxString const home = wxString::FromUTF8(MakeChmAddress(mPath, "/home.htm"));
  ASSERT_EQ(mControl->Navigate2(home, CHHCtrl::kNoHistory, nullptr, L"X-A: b"), S_OK);
  ASSERT_TRUE(WaitLoaded(home));
  wxString const second = wxString::FromUTF8(MakeChmAddress(mPath, "/topics/second page.htm"));
  std::vector<unsigned char> const form{'a', '=', '1'};
  EXPECT_EQ(mControl->Navigate2(second, 0, form), CHHCtrl::kNotImplemented);
  EXPECT_EQ(mControl->GoSearch(), CHHCtrl::kNotImplemented);
  gui_test::Flush();
  EXPECT_EQ(mControl->GetLocationURL(), home) << "a refused request loads nothing";

  std::string const page = mPath.substr(0, mPath.rfind('/')) + "/plain page.html";
  chmtest::WriteFile(page, "<html><body>On disk</body></html>");
  wxFileName const file(wxString::FromUTF8(page));
  ASSERT_EQ(mControl->Navigate2(file), S_OK);
  ASSERT_TRUE(WaitLoaded(wxFileName::FileNameToURL(file))) << mControl->GetLocationURL();
  EXPECT_EQ(BodyText(), "On disk");
}

TEST_F(HelpControl, BrowserCommandsRunWhenTheyCanAndRefreshReloads) {
  wxString const home = wxString::FromUTF8(MakeChmAddress(mPath, "/home.htm"));
  ASSERT_EQ(mControl->NavigateChm(10U), S_OK);
  ASSERT_TRUE(WaitLoaded(home));

  int const known = CHHCtrl::kCmdSupported;
  int const ready = CHHCtrl::kCmdSupported | CHHCtrl::kCmdEnabled;
  EXPECT_EQ(mControl->QueryStatusWB(CHHCtrl::kCmdCopy), known) << "nothing selected";
  EXPECT_EQ(mControl->ExecWB(CHHCtrl::kCmdCopy, 0), CHHCtrl::kCmdDisabled);
  EXPECT_EQ(mControl->ExecWB(CHHCtrl::kCmdSelectAll, 0), S_OK);
  EXPECT_TRUE(
      gui_test::WaitUntil([&] { return mControl->QueryStatusWB(CHHCtrl::kCmdCopy) == ready; }));
  EXPECT_EQ(mControl->ExecWB(CHHCtrl::kCmdClearSelection, 0), S_OK);
  EXPECT_TRUE(
      gui_test::WaitUntil([&] { return mControl->QueryStatusWB(CHHCtrl::kCmdCopy) == known; }));
  EXPECT_EQ(mControl->QueryStatusWB(9999), 0);
  EXPECT_EQ(mControl->ExecWB(9999, 0), CHHCtrl::kCmdNotSupported);

  wxVariant zoom;
  wxVariant const bigger(150L);
  EXPECT_EQ(mControl->ExecWB(CHHCtrl::kCmdZoom, 0, &bigger, &zoom), S_OK);
  EXPECT_EQ(zoom.GetLong(), 150);
  wxVariant const tiny(2L);
  EXPECT_EQ(mControl->ExecWB(CHHCtrl::kCmdZoom, 0, &tiny, &zoom), E_INVALIDARG);

  // A repaint keeps the page; the browser's refresh loads it again.
  auto const marked = [&] {
    wxString mark;
    mControl->GetBrowser()->RunScript("String(document.body.getAttribute('data-mark'))", &mark);
    return mark == "1";
  };
  mControl->GetBrowser()->RunScript("document.body.setAttribute('data-mark', '1')");
  ASSERT_TRUE(marked());
  mControl->Refresh();
  gui_test::Flush();
  EXPECT_TRUE(marked());
  mControl->Refresh(CHHCtrl::kRefreshCompletely);
  EXPECT_TRUE(gui_test::WaitUntil([&] { return !marked(); }, kLoadTimeoutMs));

  // Named values kept with the browser for its caller.
  mControl->PutProperty("owner", wxVariant(wxString("report")));
  EXPECT_EQ(mControl->GetProperty("owner").GetString(), "report");
  wxVariant absent("x");
  EXPECT_FALSE(mControl->GetProperty("never", absent));
  EXPECT_TRUE(absent.IsNull());
}

TEST_F(HelpControl, AppLinksPostTheirCommandToTheApplication) {
  mControl->SetCmdMap({{"RunIt", kRunCommand}, {"runit", kRunCommand + 1}}, mFrame);
  ASSERT_EQ(mControl->NavigateChm(10U), S_OK);
  wxString const home = wxString::FromUTF8(MakeChmAddress(mPath, "/home.htm"));
  ASSERT_TRUE(WaitLoaded(home));
  mControl->GetBrowser()->RunScript("document.getElementById('run').click()");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !mCommands.empty(); }, kLoadTimeoutMs));
  EXPECT_EQ(mCommands, std::vector<int>{kRunCommand});
  EXPECT_EQ(mControl->GetLocationURL(), home) << "the link goes nowhere else";
}

TEST_F(HelpControl, LinksForOtherViewersOpenTheFileBesideTheCurrentOne) {
  ASSERT_EQ(mControl->NavigateChm(10U), S_OK);
  ASSERT_TRUE(WaitLoaded(wxString::FromUTF8(MakeChmAddress(mPath, "/home.htm"))));
  mControl->GetBrowser()->RunScript("document.getElementById('other').click()");
  wxString text;
  std::string const other = mPath.substr(0, mPath.rfind('/')) + "/other.chm";
  ASSERT_TRUE(WaitLoaded(wxString::FromUTF8(MakeChmAddress(other, "/x.htm"))))
      << mControl->GetLocationURL();
  EXPECT_TRUE(mControl->GetBrowser()->RunScript("document.body.textContent", &text) && text == "x")
      << text;
  EXPECT_TRUE(ChmScheme::Instance().IsRegistered(other));
}

TEST_F(HelpControl, AMissingFileIsToldAndTheOldOneStays) {
  ModalDialogScript script;
  script.Answer(wxID_OK);
  EXPECT_FALSE(mControl->SetChmFile(L"nowhere/absent.chm"));
  ASSERT_EQ(script.Shown().size(), 1U);
  EXPECT_TRUE(script.Shown()[0].message.Contains("absent.chm")) << script.Shown()[0].message;
  EXPECT_EQ(std::wstring(mControl->GetChmFile()), std::wstring(mPath.begin(), mPath.end()));

  CHHCtrl empty;
  ASSERT_TRUE(empty.Create(mFrame, wxRect(0, 0, 10, 10), 78, nullptr));
  EXPECT_EQ(empty.NavigateChm(L"x.htm"), STG_E_FILENOTFOUND);
  EXPECT_EQ(empty.NavigateChm(1U), STG_E_PATHNOTFOUND);
}

TEST_F(HelpControl, ReplacesAPlaceholder) {
  auto * placeholder = new wxStaticText(mFrame, 4711, "help goes here", wxPoint(5, 5));
  mFrame->GetSizer()->Add(placeholder);
  auto * control = new CHHCtrl;
  ASSERT_TRUE(control->ReplaceControl(mFrame, 4711, 4712, nullptr));
  EXPECT_EQ(mFrame->FindWindow(4712), control);
  EXPECT_EQ(mFrame->FindWindow(4711), nullptr);
  EXPECT_NE(mFrame->GetSizer()->GetItem(control), nullptr);
}

}  // namespace
