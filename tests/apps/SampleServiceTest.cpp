// talvo-sample-service as systemd runs it (a notify socket bound here, a
// real SIGTERM) and as an administrator registers its event source.
#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "service/EventLog.h"
#include "service/NotifySocket.h"
#include "utl/Paths.h"

namespace {

std::string Program() { return VxGetExecutableDirectory() + "/talvo-sample-service"; }

TEST(SampleService, RunsUntilStoppedAndItsSwitchesMakeItFail) {
  struct Case {
    char const * option;
    char const * finalSpecific;
    int exit;
  } const cases[] = {{"", "0", 0}, {"--fail-init", "42", 42}, {"--fail-run", "0", 0}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.option);
    NotifySocket notify("sample-notify");
    ASSERT_TRUE(notify.IsBound());
    ChildProcess service;
    std::vector<std::string> command = {Program()};
    if (c.option[0] != '\0') command.emplace_back(c.option);
    ASSERT_TRUE(service.Start(command, {{"NOTIFY_SOCKET", notify.Path()}}));
    EXPECT_EQ(notify.Next()["X_STATE"], "2");
    if (std::string(c.option) != "--fail-init") {
      EXPECT_EQ(notify.Next()["READY"], "1");
      if (c.option[0] == '\0') {
        ::kill(service.pid, SIGTERM);
        EXPECT_EQ(notify.Next()["STOPPING"], "1");
      }
    }
    auto stopped = notify.Next();
    EXPECT_EQ(stopped["X_STATE"], "1");
    EXPECT_EQ(stopped["X_SPECIFIC_EXIT"], c.finalSpecific);
    EXPECT_EQ(service.Wait(), c.exit);
  }
}

TEST(SampleService, RegistersItsEventSourceOnce) {
  std::vector<int> exits;
  for (char const * option : {"--register", "--register", "--unregister", "--unregister"}) {
    ChildProcess tool;
    ASSERT_TRUE(tool.Start({Program(), option}));
    tool.ReadAll();
    exits.push_back(tool.Wait());
    if (exits.size() == 1) {
      EXPECT_EQ(EventLog::LogNameFromSourceName(L"TALVO-SAMPLE-SERVICE"), "Application");
    }
  }
  EXPECT_EQ(exits, (std::vector<int>{0, 1, 0, 1}));
  EXPECT_FALSE(EventLog::SourceExists(L"talvo-sample-service"));
}

}  // namespace
