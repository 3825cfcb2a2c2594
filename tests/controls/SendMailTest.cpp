// Mail through the desktop's xdg-email: the argument vector it is given,
// the three failures and their texts, and the real xdg-email handing the
// message on to a hook that records the mailto address it was given.
#include <gtest/gtest.h>

#include <gio/gio.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "controls/VxSendMail.h"
#include "harness/GuiTestUtilities.h"
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

std::wstring Text(unsigned id) { return LoadResourceString(id).ToStdWstring(); }

// PATH with a folder of our own first, holding xdg-email's hook.
class MailTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    ::mkdir(Temp("bin").c_str(), 0755);
    Write(Temp("bin/xdg-email-hook.sh"),
          "#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$TMPDIR/mailto.txt\"\nexit \"${HOOK_EXIT:-0}\"\n", 0755);
    ::setenv("PATH", (Temp("bin") + ":/usr/bin:/bin").c_str(), 1);
    VxSendMail::ForgetMailProgram();
  }
  void SetUp() override {
    if (::access("/usr/bin/xdg-email", X_OK) != 0) GTEST_SKIP() << "xdg-utils is not installed";
    ::unlink(Temp("mailto.txt").c_str());
  }
  // Makes a program the default for mailto links, and waits until GIO
  // has seen it.
  static void InstallMailHandler() {
    std::string const data = std::getenv("XDG_DATA_HOME");
    std::string const config = std::getenv("XDG_CONFIG_HOME");
    ::mkdir((data + "/applications").c_str(), 0755);
    Write(data + "/applications/test-mail.desktop",
          "[Desktop Entry]\nType=Application\nName=Test Mail\nExec=true %u\n"
          "MimeType=x-scheme-handler/mailto;\n");
    Write(config + "/mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=test-mail.desktop\n");
    ASSERT_TRUE(gui_test::WaitUntil([] {
      GAppInfo * handler = g_app_info_get_default_for_uri_scheme("mailto");
      if (handler != nullptr) g_object_unref(handler);
      return handler != nullptr;
    }));
  }
};

TEST_F(MailTest, EveryAddressFollowsItsOptionAndEmptyPartsAreLeftOut) {
  VxSendMail mail(L"a@example.org", nullptr, L"");
  mail.AddTo("-odd@example.org");
  mail.AddCC("c@example.org");
  mail.AddTo("");
  mail.AddBCC("b@example.org");
  mail.AddAttachment("/tmp/dump 1.dmp");
  EXPECT_EQ(mail.Arguments(),
            (std::vector<std::string>{"--utf8", "--to", "a@example.org", "--to", "-odd@example.org", "--cc",
                                      "c@example.org", "--bcc", "b@example.org", "--attach", "/tmp/dump 1.dmp"}));
  mail.SetSubject("Grüße");
  mail.SetBody("Line 1\nLine 2");
  std::vector<std::string> const arguments = mail.Arguments();
  EXPECT_EQ(std::vector<std::string>(arguments.end() - 6, arguments.end()),
            (std::vector<std::string>{"--subject", "Grüße", "--body", "Line 1\nLine 2", "--attach",
                                      "/tmp/dump 1.dmp"}));
  EXPECT_EQ(VxSendMail().Arguments(), std::vector<std::string>{"--utf8"}) << "nothing: the user fills it in";
}

// Runs first: no program is set up for mailto links yet.
TEST_F(MailTest, FailuresSayWhyAndNeverReachTheMailProgram) {
  VxSendMail mail(L"a@example.org", L"Subject", L"Body");
  EXPECT_FALSE(mail.Send());
  EXPECT_EQ(mail.GetLastError(), Text(61841));

  ::setenv("PATH", "/nonexistent", 1);
  VxSendMail::ForgetMailProgram();
  EXPECT_FALSE(mail.Send());
  EXPECT_EQ(mail.GetLastError(), Text(61840));
  ::setenv("PATH", (Temp("bin") + ":/usr/bin:/bin").c_str(), 1);
  VxSendMail::ForgetMailProgram();

  InstallMailHandler();
  mail.SetBody(std::string(VxSendMail::kMaxBody + 1, 'x'));
  EXPECT_FALSE(mail.Send());
  EXPECT_EQ(mail.GetLastError(), Text(61842));

  VxSendMail missing(L"a@example.org", L"Dump", L"See the file.");
  missing.AddAttachment(Temp("no-such.dmp"));
  EXPECT_FALSE(missing.Send());
  EXPECT_EQ(missing.GetLastError(), Text(61842));
  EXPECT_EQ(Read(Temp("mailto.txt")), "") << "xdg-email stopped before the hook";

  ::setenv("HOOK_EXIT", "1", 1);
  VxSendMail refused(L"a@example.org", L"Dump", L"See the file.");
  EXPECT_FALSE(refused.Send());
  EXPECT_EQ(refused.GetLastError(), Text(61842));
  ::unsetenv("HOOK_EXIT");
  for (unsigned id : {61840U, 61841U, 61842U}) EXPECT_FALSE(Text(id).empty()) << id;
}

TEST_F(MailTest, TheMailProgramGetsEveryPartInUtf8) {
  InstallMailHandler();
  std::string const dump = Temp("crash 1.dmp");
  Write(dump, "MDMP");
  VxSendMail mail(L"support@example.org", L"Gr\u00fc\u00dfe", L"Line 1\nLine 2");
  mail.AddTo("-odd@example.org");
  mail.AddCC("cc@example.org");
  mail.AddBCC("bcc@example.org");
  mail.AddAttachment(dump);
  ASSERT_TRUE(mail.Send()) << std::string(mail.GetLastError().begin(), mail.GetLastError().end());
  EXPECT_EQ(mail.GetLastError(), L"");
  std::string const sent = Read(Temp("mailto.txt"));
  // xdg-email encodes the texts (line ends as CR LF) and leaves "@" as it is.
  for (char const * part : {"mailto:?to=support@example.org&", "&to=-odd@example.org&", "&cc=cc@example.org&",
                            "&bcc=bcc@example.org&", "&subject=Gr%C3%BC%C3%9Fe&", "&body=Line%201%0D%0ALine%202&",
                            "&attach=/", "/crash%201.dmp"})
    EXPECT_NE(sent.find(part), std::string::npos) << part << " in " << sent;
}

}  // namespace
