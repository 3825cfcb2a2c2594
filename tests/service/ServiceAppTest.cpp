// The service application as systemd runs it: a process of its own
// (ServiceTestChild.cpp) under a NOTIFY_SOCKET this test binds, controlled
// by real signals. Every status record it sends is read and checked.
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>

#include "NotifySocket.h"
#include "platform/ChildProcess.h"
#include "service/ServiceDispatcher.h"
#include "utl/Paths.h"

namespace {

using Record = NotifySocket::Record;
using Environment = std::map<std::string, std::string>;

std::string TempPath(std::string const & name) {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/" + name;
}

std::string LogText() {
  char const * state = std::getenv("XDG_STATE_HOME");
  std::ifstream file(std::string(state != nullptr ? state : "") +
                     "/Karvinel/TalvoServiceTest/TalvoServiceTest.log");
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

class ServiceRun : public ::testing::Test {
protected:
  void SetUp() override {
    mNotify = std::make_unique<NotifySocket>("notify-" + std::to_string(mNext++));
    ASSERT_TRUE(mNotify->IsBound());
    ::truncate(LogPath().c_str(), 0);
  }
  void TearDown() override {
    if (mChild.pid > 0 && mChild.output >= 0) {
      ::kill(mChild.pid, SIGKILL);
      mChild.Wait();
    }
    mNotify.reset();
  }

  static std::string LogPath() {
    char const * state = std::getenv("XDG_STATE_HOME");
    return std::string(state != nullptr ? state : "") +
           "/Karvinel/TalvoServiceTest/TalvoServiceTest.log";
  }

  void Start(Environment environment, bool notifySocket = true) {
    if (notifySocket) environment["NOTIFY_SOCKET"] = mNotify->Path();
    ASSERT_TRUE(mChild.Start({VxGetExecutableDirectory() + "/service_test_child"}, environment));
  }

  Record Next() { return mNotify->Next(); }
  bool NothingSent() { return mNotify->NothingSent(); }

  static void ExpectRecord(Record const & record, std::string const & state,
                           std::string const & controls, std::string const & win32 = "0",
                           std::string const & specific = "0") {
    ASSERT_FALSE(record.empty()) << "no status record came";
    EXPECT_EQ(record.at("X_STATE"), state);
    EXPECT_EQ(record.at("X_CONTROLS_ACCEPTED"), controls);
    EXPECT_EQ(record.at("X_WIN32_EXIT"), win32);
    EXPECT_EQ(record.at("X_SPECIFIC_EXIT"), specific);
    EXPECT_EQ(record.count("READY"), state == "4" ? 1u : 0u);
    EXPECT_EQ(record.count("STOPPING"), state == "3" ? 1u : 0u);
  }

  static void ExpectPending(Record const & record, std::string const & state) {
    ExpectRecord(record, state, "0");
    if (record.empty()) return;
    EXPECT_EQ(record.at("X_CHECKPOINT"), "1");
    EXPECT_EQ(record.at("X_WAIT_HINT"), "10000");
    EXPECT_EQ(record.at("EXTEND_TIMEOUT_USEC"), "10000000");
  }

  std::unique_ptr<NotifySocket> mNotify;
  ChildProcess mChild;
  static inline int mNext = 0;
};

TEST_F(ServiceRun, StartsRunsAndStopsCleanlyOnSigterm) {
  Start({});
  ExpectPending(Next(), "2");
  ExpectRecord(Next(), "4", "5");
  ASSERT_EQ(::kill(mChild.pid, SIGTERM), 0);
  ExpectPending(Next(), "3");
  Record const stopped = Next();
  ExpectRecord(stopped, "1", "5");
  EXPECT_EQ(stopped.count("EXTEND_TIMEOUT_USEC"), 0u);
  EXPECT_EQ(mChild.Wait(), 0);
  std::string const log = LogText();
  for (char const * line : {"1 NTServiceApp::StartDispatcher: Service dispatcher launched.",
                            "1 NTServiceApp::Start: Service started.",
                            "1 NTServiceApp::Handler: Stop message arrived at service handler.",
                            "1 NTServiceApp::Start: Service stopped."})
    EXPECT_NE(log.find(line), std::string::npos) << line << "\nin\n" << log;
}

TEST_F(ServiceRun, InterrogateReportsAgainAndOtherControlsChangeNothing) {
  Start({});
  Next();
  ExpectRecord(Next(), "4", "5");
  ::kill(mChild.pid, SIGUSR1);
  Record const again = Next();
  ExpectRecord(again, "4", "5");
  EXPECT_EQ(again.at("X_CHECKPOINT"), "0");
  ::kill(mChild.pid, SIGHUP);
  ::kill(mChild.pid, SIGTERM);
  ExpectPending(Next(), "3");  // the hang-up sent nothing before the stop
  ExpectRecord(Next(), "1", "5");
  EXPECT_EQ(mChild.Wait(), 0);
  std::string const log = LogText();
  EXPECT_NE(log.find("0 NTServiceApp::Handler: Interrogate message arrived"), std::string::npos);
  EXPECT_NE(log.find("0 NTServiceApp::Handler: Other message arrived"), std::string::npos);
}

TEST_F(ServiceRun, SigtermWhileTheManagerStopsIsAShutdown) {
  Start({{"TALVO_MANAGER_STATE", "stopping"}});
  Next();
  Next();
  ::kill(mChild.pid, SIGTERM);
  ExpectPending(Next(), "3");
  ExpectRecord(Next(), "1", "5");
  EXPECT_EQ(mChild.Wait(), 0);
  EXPECT_NE(LogText().find("1 NTServiceApp::Handler: Shutdown message arrived"), std::string::npos);
}

TEST_F(ServiceRun, AStopDuringTheStartWaitsUntilTheServiceRuns) {
  std::string const gate = TempPath("gate");
  ::unlink(gate.c_str());
  ASSERT_EQ(::mkfifo(gate.c_str(), 0600), 0);
  Start({{"TALVO_INIT_GATE", gate}});
  ExpectPending(Next(), "2");
  ::kill(mChild.pid, SIGTERM);
  EXPECT_TRUE(NothingSent());
  int const fd = ::open(gate.c_str(), O_WRONLY | O_CLOEXEC);  // the child holds it open
  ASSERT_EQ(::write(fd, "x", 1), 1);
  ::close(fd);
  ExpectRecord(Next(), "4", "5");
  ExpectPending(Next(), "3");
  ExpectRecord(Next(), "1", "5");
  EXPECT_EQ(mChild.Wait(), 0);
  ::unlink(gate.c_str());
}

TEST_F(ServiceRun, FailuresOfTheServiceGiveTheirExitStatus) {
  struct Case {
    char const * init;
    bool runFails;
    char const * win32;
    char const * specific;
    int exit;
    char const * logged;
  } const cases[] = {
      {"5", false, "1066", "5", 5, "4 NTServiceApp::Start: Service failed to initialize"},
      {"300", false, "1066", "300", 1, "error 300 leaves the process with status 1"},
      {"0", true, "0", "0", 0, "4 NTServiceApp::Start: Service failed while running"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.logged);
    TearDown();
    SetUp();
    Environment environment = {{"TALVO_INIT_RESULT", c.init}};
    if (c.runFails) environment["TALVO_RUN_FAILS"] = "1";
    Start(environment);
    ExpectPending(Next(), "2");
    if (c.runFails) ExpectRecord(Next(), "4", "5");
    Record const stopped = Next();
    ExpectRecord(stopped, "1", "5", c.win32, c.specific);
    if (!stopped.empty() && std::string(c.specific) != "0") {
      EXPECT_NE(stopped.at("STATUS").find(c.specific), std::string::npos) << stopped.at("STATUS");
    }
    EXPECT_EQ(mChild.Wait(), c.exit);
    std::string const log = LogText();
    EXPECT_NE(log.find(c.logged), std::string::npos) << log;
    EXPECT_EQ(log.find("Service started.") != std::string::npos, std::string(c.init) == "0");
  }
}

TEST_F(ServiceRun, ProcessesThatCannotRunAsThisServiceEndWithTheirCode) {
  struct Case {
    Environment environment;
    bool notifySocket;
    char const * logged;
  } const cases[] = {
      {{}, false, "StartServiceCtrlDispatcher returned error 1063"},
      {{{"TALVO_SERVICE_NAME", "-"}}, true, "returned error 13: The specified dispatch table"},
      {{{"TALVO_SERVICE_NAME", "a/b"}}, true, "returned error 123: The specified service name"},
      {{{"TALVO_SERVICE_NAME", "tab\there"}}, true, "returned error 123"},
      {{{"TALVO_SERVICE_NAME", std::string(300, 'x')}}, true, "returned error 123"},
      {{{"TALVO_SERVICE_UNIT", "other.service"}},
       true,
       "returned error 1060: The specified service"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.logged);
    TearDown();
    SetUp();
    Start(c.environment, c.notifySocket);
    std::string const output = mChild.ReadAll();
    EXPECT_EQ(mChild.Wait(), 1) << "wx's own status for a false OnInit leaked";
    EXPECT_TRUE(NothingSent()) << "nothing was reported to the manager";
    EXPECT_NE(LogText().find(c.logged), std::string::npos) << LogText();
    EXPECT_EQ(output.find("This application is a service") != std::string::npos, !c.notifySocket)
        << output;
  }
}

TEST_F(ServiceRun, TheUnitOfTheEscapedNameIsTheService) {
  Start({{"TALVO_SERVICE_NAME", "Data Logger-2"},
         {"TALVO_SERVICE_UNIT", "Data\\x20Logger\\x2d2.service"}});
  ExpectPending(Next(), "2");
  ExpectRecord(Next(), "4", "5");
  ::kill(mChild.pid, SIGTERM);
  Next();
  Next();
  EXPECT_EQ(mChild.Wait(), 0);
}

TEST_F(ServiceRun, ASecondServiceObjectLeavesTheFirstInCharge) {
  Start({{"TALVO_SECOND_OBJECT", "1"}});
  ExpectPending(Next(), "2");
  ExpectRecord(Next(), "4", "5");
  ::kill(mChild.pid, SIGTERM);
  ExpectPending(Next(), "3");
  ExpectRecord(Next(), "1", "5");
  EXPECT_EQ(mChild.Wait(), 0);
  EXPECT_NE(LogText().find("4 NTServiceApp::NTServiceApp: Application object already exist."),
            std::string::npos);
}

}  // namespace

namespace {

// One dispatcher a process: a second one, started while the first runs,
// gets 1056 and runs nothing.
TEST(ServiceDispatcherRules, ASecondDispatcherIsRefused) {
  NotifySocket notify("notify-dispatcher");
  ::setenv("NOTIFY_SOCKET", notify.Path().c_str(), 1);
  VxService::AtomicStatus status;
  uint32_t inner = 0;
  bool innerRan = false;
  VxService::ServiceDispatcher outer(
      status,
      [&] {
        VxService::ServiceDispatcher second(
            status, [&] { innerRan = true; }, [](uint32_t) {});
        inner = second.Run();
      },
      [](uint32_t) {});
  EXPECT_EQ(outer.Run(), 0u);
  EXPECT_EQ(inner, 1056u);
  EXPECT_FALSE(innerRan);
  ::unsetenv("NOTIFY_SOCKET");
  VxService::ServiceDispatcher unmanaged(
      status, [&] { innerRan = true; }, [](uint32_t) {});
  EXPECT_EQ(unmanaged.Run(), 1063u);
  EXPECT_FALSE(innerRan);
}

}  // namespace
