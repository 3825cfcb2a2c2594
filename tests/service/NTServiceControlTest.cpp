// The service control against a service manager on a private bus: what
// installing writes (and systemd-analyze accepts), the answers and codes of
// start, stop, status and removal, and how the manager's failures map to
// the codes callers know.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "MockServiceManager.h"
#include "service/EventLog.h"
#include "service/NTServiceControl.h"
#include "service/ServiceUnit.h"
#include "service/ServiceUnitFile.h"
#include "utl/Log.h"
#include "utl/Utf.h"

namespace {

std::string ReadFile(std::string const & path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string OwnProgram() {
  char buffer[4096] = {};
  ssize_t const length = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
  return length > 0 ? std::string(buffer, static_cast<std::size_t>(length)) : std::string();
}

// An executable file of the given name in the test's temporary folder.
std::string MakeProgram(std::string const & name) {
  std::string path = std::string(std::getenv("TMPDIR")) + "/" + name;
  std::ofstream(path) << "#!/bin/sh\n";
  ::chmod(path.c_str(), 0755);
  return path;
}

class ServiceControlTest : public testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(manager.IsReady()) << "no private dbus-daemon"; }

  std::string UnitFile(wchar_t const * service) const {
    return manager.UnitFolder() + "/" + VxService::UnitNameOf(service);
  }
  void SetState(std::string const & unit, char const * active) {
    auto state = manager.GetUnit(unit);
    state.activeState = active;
    manager.SetUnit(unit, state);
  }

  MockServiceManager manager;
};

TEST_F(ServiceControlTest, InstallWritesADemandStartedNotifyUnitThatSystemdAccepts) {
  NTServiceControl control(L"Sample Analyst", nullptr);
  EXPECT_FALSE(control.IsInstalled());
  EXPECT_EQ(control.GetLastError(), 1060U);

  ASSERT_TRUE(control.Install(nullptr, nullptr, true, nullptr, L"secret"));
  std::string const file = UnitFile(L"Sample Analyst");
  EXPECT_EQ(file.substr(file.rfind('/') + 1), "Sample\\x20Analyst.service");
  std::string const text = ReadFile(file);
  EXPECT_NE(text.find("Type=notify\n"), std::string::npos) << text;
  EXPECT_NE(text.find("ExecStart=\"" + OwnProgram() + "\"\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("User="), std::string::npos) << "root without an account";
  EXPECT_EQ(text.find("secret"), std::string::npos) << "never the password";
  EXPECT_EQ(text.find("[Install]"), std::string::npos) << "started on demand, never enabled";
  EXPECT_EQ(manager.Reloads(), 1);
  EXPECT_TRUE(control.IsInstalled());
  // The event source goes with it, with the program as its message file.
  EXPECT_EQ(EventLog::LogNameFromSourceName(L"Sample Analyst"), "Application");

  std::string const verify = "systemd-analyze verify --man=no '" + file + "' 2>&1";
  EXPECT_EQ(std::system(verify.c_str()), 0) << verify;

  EXPECT_FALSE(control.Install(nullptr, nullptr, true, nullptr, nullptr));
  EXPECT_EQ(control.GetLastError(), 1073U);
}

TEST_F(ServiceControlTest, InstallQuotesWhatSystemdReadsAndRefusesWhatItCannotRun) {
  struct Case {
    char const * program;  // made in TMPDIR when `runs`
    bool runs;
    unsigned long error;
  };
  Case const cases[] = {
      {"with space", true, 0},    {"per%cent", true, 0},      {"dollar$sign", true, 0},
      {"quote\"mark", false, 87}, {"back\\slash", false, 87}, {"new\nline", false, 87},
  };
  int index = 0;
  for (auto const & c : cases) {
    std::wstring const name = L"quoting" + std::to_wstring(index++);
    std::string const program =
        c.runs ? MakeProgram(c.program) : std::string(std::getenv("TMPDIR")) + "/" + c.program;
    NTServiceControl control(name.c_str(), nullptr);
    std::wstring const wide = vx3::Utf8ToWide(program);
    EXPECT_EQ(control.Install(wide.c_str(), nullptr, false, nullptr, nullptr), c.error == 0)
        << c.program;
    if (c.error != 0) {
      EXPECT_EQ(control.GetLastError(), c.error) << c.program;
      EXPECT_NE(::access(UnitFile(name.c_str()).c_str(), F_OK), 0) << "nothing written";
      continue;
    }
    std::string const verify =
        "systemd-analyze verify --man=no '" + UnitFile(name.c_str()) + "' 2>&1";
    EXPECT_EQ(std::system(verify.c_str()), 0) << c.program;
  }
}

TEST_F(ServiceControlTest, AnAccountNamesTheUserAndAnUnknownOneIsRefused) {
  NTServiceControl known(L"as-nobody", nullptr);
  ASSERT_TRUE(known.Install(L"/bin/true", nullptr, false, L"nobody", nullptr));
  EXPECT_NE(ReadFile(UnitFile(L"as-nobody")).find("User=nobody\n"), std::string::npos);

  NTServiceControl unknown(L"as-ghost", nullptr);
  EXPECT_FALSE(unknown.Install(L"/bin/true", nullptr, false, L"no-such-user-here", nullptr));
  EXPECT_EQ(unknown.GetLastError(), 1057U);
  EXPECT_FALSE(unknown.IsInstalled());
}

TEST_F(ServiceControlTest, StartStopAndStatusAnswerWithTheCodesCallersKnow) {
  NTServiceControl control(L"runner", nullptr);
  ASSERT_TRUE(control.Install(L"/bin/true", nullptr, false, nullptr, nullptr));
  std::string const unit = VxService::UnitNameOf(L"runner");

  unsigned long state = 0;
  EXPECT_TRUE(control.Status(state));  // stopped: the interrogation fails, the query answers
  EXPECT_EQ(state, 1U);
  EXPECT_EQ(control.GetLastError(), 1062U);
  EXPECT_FALSE(control.Stop());
  EXPECT_EQ(control.GetLastError(), 1062U);

  EXPECT_TRUE(control.Start());
  EXPECT_EQ(manager.GetUnit(unit).activeState, "active");
  EXPECT_FALSE(control.Start());
  EXPECT_EQ(control.GetLastError(), 1056U);

  EXPECT_TRUE(control.Status(state));
  EXPECT_EQ(state, 4U);
  EXPECT_EQ(manager.GetUnit(unit).signals, std::vector<int>{SIGUSR1});

  SERVICE_STATUS status{};
  ASSERT_TRUE(control.QueryStatus(status));
  EXPECT_EQ(status.dwServiceType, 16U);
  EXPECT_EQ(status.dwCurrentState, 4U);
  EXPECT_EQ(status.dwControlsAccepted, 5U);

  // Removal waits for a stop.
  EXPECT_FALSE(control.Uninstall());
  EXPECT_EQ(control.GetLastError(), 1056U);
  EXPECT_TRUE(control.IsInstalled());

  SetState(unit, "activating");
  EXPECT_FALSE(control.Stop());
  EXPECT_EQ(control.GetLastError(), 1061U);
  SetState(unit, "active");
  EXPECT_TRUE(control.Stop());
  EXPECT_EQ(manager.GetUnit(unit).stops, 1);

  EXPECT_TRUE(control.Uninstall());
  EXPECT_NE(::access(UnitFile(L"runner").c_str(), F_OK), 0);
  EXPECT_FALSE(control.IsInstalled());
  EXPECT_FALSE(EventLog::SourceExists(L"runner"));
  EXPECT_FALSE(control.Uninstall());
  EXPECT_EQ(control.GetLastError(), 1060U);
}

TEST_F(ServiceControlTest, AFailedStartGivesTheReasonAndTheStateRecordShowsIt) {
  struct Case {
    char const * name;
    std::string jobResult, error, result;
    int execMainStatus;
    unsigned long code;
  };
  Case const cases[] = {
      {"missing binary", "failed", "", "exit-code", 203, 3},
      {"exited before ready", "failed", "", "exit-code", 7, 1053},
      {"timed out", "timeout", "", "timeout", 0, 1053},
      {"dependency failed", "dependency", "", "success", 0, 1068},
      {"masked", "done", "org.freedesktop.systemd1.UnitMasked", "success", 0, 1058},
      {"no right", "done", "org.freedesktop.DBus.Error.AccessDenied", "success", 0, 5},
  };
  for (auto const & c : cases) {
    MockServiceManager::Unit unit;
    unit.startResult = c.jobResult;
    unit.startError = c.error;
    unit.result = c.result;
    unit.execMainStatus = c.execMainStatus;
    manager.SetUnit("failing.service", unit);
    NTServiceControl control(L"failing", nullptr);
    EXPECT_FALSE(control.Start()) << c.name;
    EXPECT_EQ(control.GetLastError(), c.code) << c.name;
  }
  SERVICE_STATUS status{};
  NTServiceControl control(L"failing", nullptr);
  MockServiceManager::Unit failed;
  failed.activeState = "failed";
  failed.result = "exit-code";
  failed.execMainStatus = 7;
  manager.SetUnit("failing.service", failed);
  ASSERT_TRUE(control.QueryStatus(status));
  EXPECT_EQ(status.dwCurrentState, 1U);
  EXPECT_EQ(status.dwWin32ExitCode, 1066U);
  EXPECT_EQ(status.dwServiceSpecificExitCode, 7U);
  EXPECT_EQ(status.dwControlsAccepted, 0U);

  struct StateCase {
    char const * active;
    char const * freezer;
    DWORD state;
  };
  StateCase const states[] = {{"activating", "running", 2}, {"deactivating", "running", 3},
                              {"reloading", "running", 4},  {"active", "freezing", 6},
                              {"active", "frozen", 7},      {"active", "thawing", 5}};
  for (auto const & s : states) {
    failed.activeState = s.active;
    failed.freezerState = s.freezer;
    manager.SetUnit("failing.service", failed);
    ASSERT_TRUE(control.QueryStatus(status));
    EXPECT_EQ(status.dwCurrentState, s.state) << s.active << " " << s.freezer;
  }

  NTServiceControl missing(L"not-there", nullptr);
  EXPECT_FALSE(missing.Start());
  EXPECT_EQ(missing.GetLastError(), 1060U);
  EXPECT_FALSE(missing.QueryStatus(status));
  EXPECT_EQ(status.dwCurrentState, 0U) << "the record is cleared";
}

TEST_F(ServiceControlTest, NamesThatNoUnitCanHaveAreRefusedBeforeTheManagerIsAsked) {
  for (wchar_t const * name : {L"", L"a/b", L"tab\there"}) {
    NTServiceControl control(name, nullptr);
    EXPECT_FALSE(control.Install(L"/bin/true", nullptr, false, nullptr, nullptr));
    EXPECT_EQ(control.GetLastError(), 123U);
  }
  EXPECT_EQ(manager.Reloads(), 0);
}

TEST(ServiceControl, WithoutAManagerOnTheBusEveryCallFailsWithACode) {
  MockServiceManager busOnly(false);
  ASSERT_TRUE(busOnly.IsReady());
  NTServiceControl control(L"orphan", nullptr);
  EXPECT_FALSE(control.Start());
  EXPECT_EQ(control.GetLastError(), 1065U);
  unsigned long state = 99;
  EXPECT_FALSE(control.Status(state));
  EXPECT_EQ(state, 99U);
}

TEST(ServiceControl, ManagerHandlesAreOpenedOnceAndNamedStatesHaveTheirTexts) {
  NTServiceControl control(L"x", nullptr);
  EXPECT_FALSE(control.CloseSCM());  // never opened
  EXPECT_EQ(NTServiceControl::CurrentStateToString(4), L"The service is running");
  EXPECT_EQ(NTServiceControl::CurrentStateToString(7), L"The service is paused");
  EXPECT_EQ(NTServiceControl::CurrentStateToString(0), L"Unknown state (0)");
  EXPECT_EQ(NTServiceControl::CurrentStateToString(8), L"Unknown state (8)");
}

}  // namespace
