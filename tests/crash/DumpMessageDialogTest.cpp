// The crash report dialog, shown for real and answered by script: what it
// offers with and without a dump, what its links and buttons do.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/hyperlink.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "controls/VxSendMail.h"
#include "crash/CrashReportText.h"
#include "crash/VxDumpMessageDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "settings/LaunchURL.h"
#include "utl/VxSystemInfo.h"

namespace {

std::string ClipboardText() {
  std::string text;
  if (wxTheClipboard->Open()) {
    wxTextDataObject data;
    if (wxTheClipboard->GetData(data)) text = data.GetText().utf8_string();
    wxTheClipboard->Close();
  }
  return text;
}

std::vector<wxGenericHyperlinkCtrl *> Links(wxWindow & dialog) {
  std::vector<wxGenericHyperlinkCtrl *> links;
  for (wxWindow * child : dialog.GetChildren())
    if (auto * link = dynamic_cast<wxGenericHyperlinkCtrl *>(child)) links.push_back(link);
  return links;
}

class DumpMessageDialogTest : public testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
    mFormer = VxSetUrlLauncher([this](std::string const & url) {
      launched.push_back(url);
      return true;
    });
    VxDumpMessageDialog::SetFolderOpener([](std::string const &) { return false; });
  }
  void TearDown() override {
    VxSetUrlLauncher(mFormer);
    VxDumpMessageDialog::SetFolderOpener(nullptr);
  }
  std::vector<std::string> launched;

private:
  VxUrlLauncher mFormer;
};

TEST_F(DumpMessageDialogTest, WithADumpItOffersToSendItAndLinksTheFileAndTheAddress) {
  std::string const path = "/tmp/Karvinel/Analyzer/6.3/Crash diagnostics/Analyzer_6_3_2-77.dmp";
  VxDumpMessageDialog dialog(path);
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    EXPECT_EQ(d.GetTitle(), "Analyzer");
    EXPECT_EQ(d.GetClientSize().x, d.FromDIP(VxDumpMessageDialog::kWidth));
    auto * send = dynamic_cast<wxButton *>(d.FindWindow(VxDumpMessageDialog::kSendButton));
    auto * dontSend = dynamic_cast<wxButton *>(d.FindWindow(VxDumpMessageDialog::kDontSendButton));
    ASSERT_NE(send, nullptr);
    ASSERT_NE(dontSend, nullptr);
    EXPECT_EQ(send->GetLabel(), "Send error report");
    EXPECT_EQ(dontSend->GetLabel(), "Don't send");
    std::vector<wxGenericHyperlinkCtrl *> const links = Links(d);
    ASSERT_EQ(links.size(), 2U);
    EXPECT_EQ(links[0]->GetURL().utf8_string(), path);
    EXPECT_EQ(links[1]->GetURL().utf8_string(),
              std::string("mailto:") + crash_report::kDefaultSupportAddress);
    // Every piece lies inside the dialog's width.
    for (wxWindow * child : d.GetChildren())
      EXPECT_LE(child->GetRect().GetRight(), d.GetClientSize().x)
          << child->GetClassInfo()->GetClassName();
    gui_test::Click(d, VxDumpMessageDialog::kDontSendButton);
  });
  EXPECT_EQ(dialog.DoModal(), VxDumpMessageDialog::kDontSendButton);
  ASSERT_EQ(script.Shown().size(), 1U);
  EXPECT_NE(script.Shown()[0].message.Find("Unexpected error occurred"), wxNOT_FOUND);
  EXPECT_NE(script.Shown()[0].message.Find("Analyzer has encountered an error"), wxNOT_FOUND);
}

TEST_F(DumpMessageDialogTest, WithoutADumpOnlyCloseIsOffered) {
  VxDumpMessageDialog dialog("");
  ModalDialogScript script;
  script.Act([](wxDialog & d) {
    EXPECT_EQ(d.FindWindow(VxDumpMessageDialog::kSendButton), nullptr);
    auto * close = dynamic_cast<wxButton *>(d.FindWindow(VxDumpMessageDialog::kDontSendButton));
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(close->GetLabel(), "Close");
    ASSERT_EQ(Links(d).size(), 1U);  // the address only
    gui_test::Click(d, VxDumpMessageDialog::kDontSendButton);
  });
  EXPECT_EQ(dialog.DoModal(), VxDumpMessageDialog::kDontSendButton);
  EXPECT_NE(script.Shown()[0].message.Find("describes how to reproduce"), wxNOT_FOUND);
}

TEST_F(DumpMessageDialogTest, LinksCopyTheAddressAndThePathWhenNoFileManagerShowsIt) {
  struct Case {
    char const * target;
    char const * copied;
    char const * told;
  };
  Case const cases[] = {
      {"mailto:help@lab.example", "help@lab.example", "Email address copied to clipboard."},
      {"/tmp/a dump.dmp", "/tmp/a dump.dmp", "File path copied to clipboard."},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.target);
    VxDumpMessageDialog dialog("/tmp/a dump.dmp");
    ModalDialogScript script;
    script.Answer(wxID_OK);
    dialog.OnHyperlinkClicked(c.target);
    EXPECT_EQ(ClipboardText(), c.copied);
    ASSERT_EQ(script.Shown().size(), 1U);
    EXPECT_NE(script.Shown()[0].message.Find(c.told), wxNOT_FOUND) << script.Shown()[0].message;
  }
}

TEST_F(DumpMessageDialogTest, SendFallsBackToAMailtoLinkWithoutAMailProgram) {
  std::string const path = std::string(std::getenv("TMPDIR")) + "/x&y.dmp";
  ::setenv("PATH", "/nonexistent", 1);
  VxSendMail::ForgetMailProgram();
  VxDumpMessageDialog dialog(path);
  EXPECT_TRUE(dialog.OnButtonClicked(VxDumpMessageDialog::kSendButton));
  ::setenv("PATH", "/usr/bin:/bin", 1);
  VxSendMail::ForgetMailProgram();
  ASSERT_EQ(launched.size(), 1U);
  EXPECT_EQ(launched[0],
            crash_report::MailtoUrl(crash_report::kDefaultSupportAddress, "CRASH: Analyzer 6.3.2",
                                    crash_report::Body(), path));
  EXPECT_NE(launched[0].find(
                "?subject=CRASH%3A%20Analyzer%206.3.2&body=Please%20attach%20the%20file%20%22"),
            std::string::npos)
      << launched[0];
  EXPECT_NE(launched[0].find("x%26y.dmp%22.%20Please%20describe"), std::string::npos)
      << launched[0];
  EXPECT_FALSE(dialog.OnButtonClicked(1234));  // any other button leaves it open
}

}  // namespace
