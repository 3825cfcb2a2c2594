// Mail through the desktop's xdg-email: the argument vector it is given,
// the three failures and their texts, and the real xdg-email handing the
// message on to a hook that records the mailto address it was given.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <string>

#include "controls/VxSendMail.h"
#include "harness/MailHook.h"
#include "platform/ResourceModule.h"

namespace {

using gui_test::ReadFile;
using gui_test::TempPath;

std::wstring Text(unsigned id) { return LoadResourceString(id).ToStdWstring(); }

// PATH with a folder of our own first, holding xdg-email's hook.
class MailTest : public testing::Test {
protected:
  static void SetUpTestSuite() {
    gui_test::WriteMailHook();
    ::setenv("PATH", (TempPath("bin") + ":/usr/bin:/bin").c_str(), 1);
    VxSendMail::ForgetMailProgram();
  }
  void SetUp() override {
    if (::access("/usr/bin/xdg-email", X_OK) != 0) GTEST_SKIP() << "xdg-utils is not installed";
    ::unlink(TempPath("mailto.txt").c_str());
  }
  static void InstallMailHandler() { ASSERT_TRUE(gui_test::InstallMailHandler()); }
};

TEST_F(MailTest, EveryAddressFollowsItsOptionAndEmptyPartsAreLeftOut) {
  VxSendMail mail(L"a@example.org", nullptr, L"");
  mail.AddTo("-odd@example.org");
  mail.AddCC("c@example.org");
  mail.AddTo("");
  mail.AddBCC("b@example.org");
  mail.AddAttachment("/tmp/dump 1.dmp");
  EXPECT_EQ(mail.Arguments(),
            (std::vector<std::string>{"--utf8", "--to", "a@example.org", "--to", "-odd@example.org",
                                      "--cc", "c@example.org", "--bcc", "b@example.org", "--attach",
                                      "/tmp/dump 1.dmp"}));
  mail.SetSubject("Grüße");
  mail.SetBody("Line 1\nLine 2");
  std::vector<std::string> const arguments = mail.Arguments();
  EXPECT_EQ(std::vector<std::string>(arguments.end() - 6, arguments.end()),
            (std::vector<std::string>{"--subject", "Grüße", "--body", "Line 1\nLine 2", "--attach",
                                      "/tmp/dump 1.dmp"}));
  EXPECT_EQ(VxSendMail().Arguments(), std::vector<std::string>{"--utf8"})
      << "nothing: the user fills it in";
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
  ::setenv("PATH", (TempPath("bin") + ":/usr/bin:/bin").c_str(), 1);
  VxSendMail::ForgetMailProgram();

  InstallMailHandler();
  mail.SetBody(std::string(VxSendMail::kMaxBody + 1, 'x'));
  EXPECT_FALSE(mail.Send());
  EXPECT_EQ(mail.GetLastError(), Text(61842));

  VxSendMail missing(L"a@example.org", L"Dump", L"See the file.");
  missing.AddAttachment(TempPath("no-such.dmp"));
  EXPECT_FALSE(missing.Send());
  EXPECT_EQ(missing.GetLastError(), Text(61842));
  EXPECT_EQ(ReadFile(TempPath("mailto.txt")), "") << "xdg-email stopped before the hook";

  ::setenv("HOOK_EXIT", "1", 1);
  VxSendMail refused(L"a@example.org", L"Dump", L"See the file.");
  EXPECT_FALSE(refused.Send());
  EXPECT_EQ(refused.GetLastError(), Text(61842));
  ::unsetenv("HOOK_EXIT");
  for (unsigned id : {61840U, 61841U, 61842U}) EXPECT_FALSE(Text(id).empty()) << id;
}

TEST_F(MailTest, TheMailProgramGetsEveryPartInUtf8) {
  InstallMailHandler();
  std::string const dump = TempPath("crash 1.dmp");
  gui_test::WriteFile(dump, "MDMP");
  VxSendMail mail(L"support@example.org", L"Gr\u00fc\u00dfe", L"Line 1\nLine 2");
  mail.AddTo("-odd@example.org");
  mail.AddCC("cc@example.org");
  mail.AddBCC("bcc@example.org");
  mail.AddAttachment(dump);
  ASSERT_TRUE(mail.Send()) << std::string(mail.GetLastError().begin(), mail.GetLastError().end());
  EXPECT_EQ(mail.GetLastError(), L"");
  std::string const sent = ReadFile(TempPath("mailto.txt"));
  // xdg-email encodes the texts (line ends as CR LF) and leaves "@" as it is.
  for (char const * part :
       {"mailto:?to=support@example.org&", "&to=-odd@example.org&", "&cc=cc@example.org&",
        "&bcc=bcc@example.org&", "&subject=Gr%C3%BC%C3%9Fe&", "&body=Line%201%0D%0ALine%202&",
        "&attach=/", "/crash%201.dmp"})
    EXPECT_NE(sent.find(part), std::string::npos) << part << " in " << sent;
}

}  // namespace
