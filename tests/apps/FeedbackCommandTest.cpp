// Help > Send feedback: with a mail program the message reaches it addressed
// to the sample's feedback address, naming the application; without one the
// user is told why and nothing is lost silently. xdg-email runs for real and
// hands the message to a hook on PATH that records its mailto address.
#include <gtest/gtest.h>

#include <gio/gio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include <wx/statusbr.h>

#include "BatchCommand.h"
#include "FeedbackCommand.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/ResourceModule.h"

namespace {

std::string Temp(char const * name) { return std::string(std::getenv("TMPDIR")) + "/" + name; }

void Write(std::string const & path, std::string const & text, mode_t mode = 0644) {
  std::ofstream(path) << text;
  ::chmod(path.c_str(), mode);
}

std::string Read(std::string const & path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// A mail program for mailto links, which xdg-email asks for, and its hook,
// which xdg-email hands the message to instead of starting the program.
bool InstallMailProgram() {
  ::mkdir(Temp("bin").c_str(), 0755);
  Write(Temp("bin/xdg-email-hook.sh"),
        "#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$TMPDIR/mailto.txt\"\n", 0755);
  std::string const data = std::getenv("XDG_DATA_HOME");
  ::mkdir((data + "/applications").c_str(), 0755);
  Write(data + "/applications/test-mail.desktop",
        "[Desktop Entry]\nType=Application\nName=Test Mail\nExec=true %u\n"
        "MimeType=x-scheme-handler/mailto;\n");
  Write(std::string(std::getenv("XDG_CONFIG_HOME")) + "/mimeapps.list",
        "[Default Applications]\nx-scheme-handler/mailto=test-mail.desktop\n");
  return gui_test::WaitUntil([] {
    GAppInfo * handler = g_app_info_get_default_for_uri_scheme("mailto");
    if (handler != nullptr) g_object_unref(handler);
    return handler != nullptr;
  });
}

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
      ASSERT_TRUE(InstallMailProgram());
    }
    std::string const path = *c.path ? c.path : Temp("bin") + ":/usr/bin:/bin";
    ::setenv("PATH", path.c_str(), 1);
    VxSendMail::ForgetMailProgram();
    ::unlink(Temp("mailto.txt").c_str());
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
      EXPECT_EQ(Read(Temp("mailto.txt")), "");
    } else {
      std::string const sent = Read(Temp("mailto.txt"));
      for (char const * part : {"mailto:?to=feedback@example.org&", "&subject=Feedback%20on%20",
                                "&body=Application%3A%20"})
        EXPECT_NE(sent.find(part), std::string::npos) << part << " in " << sent;
    }
  }
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
