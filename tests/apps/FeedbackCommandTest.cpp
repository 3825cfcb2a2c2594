// Help > Send feedback: with a mail program the message reaches it addressed
// to the sample's feedback address, naming the application; without one the
// user is told why and nothing is lost silently. xdg-email runs for real and
// hands the message to a hook on PATH that records its mailto address.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <string>

#include <wx/statusbr.h>

#include "BatchCommand.h"
#include "FeedbackCommand.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "harness/MailHook.h"
#include "harness/ModalDialogScript.h"
#include "platform/ResourceModule.h"

namespace {

using gui_test::ReadFile;
using gui_test::TempPath;

TEST(FeedbackCommand, ReachesTheMailProgramOrSaysWhyNot) {
  if (::access("/usr/bin/xdg-email", X_OK) != 0) GTEST_SKIP() << "xdg-utils is not installed";
  InstallStandardUserComm();
  std::string const formerPath = std::getenv("PATH");
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  struct Case {
    char const * path;  // PATH while the command runs
    bool mailProgram;
    wxString status;
    bool told;  // a box says why
  } const cases[] = {
      {"/nonexistent", false, "No feedback message was sent.", true},
      {"", true, "The feedback message is in your mail program.", false},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.status.utf8_string());
    if (c.mailProgram) {
      gui_test::WriteMailHook();
      ASSERT_TRUE(gui_test::InstallMailHandler());
    }
    std::string const path = *c.path ? c.path : TempPath("bin") + ":/usr/bin:/bin";
    ::setenv("PATH", path.c_str(), 1);
    VxSendMail::ForgetMailProgram();
    ::unlink(TempPath("mailto.txt").c_str());
    ModalDialogScript script;
    if (c.told) script.Answer(wxID_OK);
    wxCommandEvent command(wxEVT_MENU, kSendFeedbackCommand);
    frame->ProcessWindowEvent(command);
    ::setenv("PATH", formerPath.c_str(), 1);
    VxSendMail::ForgetMailProgram();
    EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), c.status);
    if (c.told) {
      ASSERT_EQ(script.Shown().size(), 1U);
      EXPECT_EQ(script.Shown()[0].message, LoadResourceString(61840)) << "no mail program";
      EXPECT_EQ(ReadFile(TempPath("mailto.txt")), "");
    } else {
      std::string const sent = ReadFile(TempPath("mailto.txt"));
      for (char const * part : {"mailto:?to=feedback@example.org&", "&subject=Feedback%20on%20",
                                "&body=Application%3A%20"})
        EXPECT_NE(sent.find(part), std::string::npos) << part << " in " << sent;
    }
  }
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
