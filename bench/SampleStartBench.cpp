// Start of the sample application to its first painted main window, beside
// the barest wx frame application doing the same: each iteration launches
// the process with --exit-on-paint and waits for it. The processes need an X
// server: the one in DISPLAY, or else an Xvfb of the benchmark's own; without
// either the figure is skipped with a message. Both run with private
// settings folders and registry hives, so nothing of the user's is touched.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "Figures.h"
#include "utl/Paths.h"

extern char ** environ;

namespace {

TALVO_RATIO_LIMIT("SampleStart", 1.3);

// An X server for the processes: DISPLAY if set, else an Xvfb started here
// (and stopped at exit), which reports its display number through a pipe.
class Display {
public:
  static Display & Get() {
    static Display display;
    return display;
  }
  ~Display() {
    if (mXvfb > 0) {
      ::kill(mXvfb, SIGTERM);
      ::waitpid(mXvfb, nullptr, 0);
    }
  }
  std::string const & Name() const { return mName; }

private:
  Display() {
    if (char const * display = std::getenv("DISPLAY"); display != nullptr && *display) {
      mName = display;
      return;
    }
    int fds[2];
    if (::pipe(fds) != 0) return;
    std::string const fd = std::to_string(fds[1]);
    std::vector<char const *> argv{"Xvfb", "-displayfd", fd.c_str(), "-screen", "0",
                                   "1280x1024x24", "-nolisten", "tcp", nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addclose(&actions, fds[0]);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    int const rc = posix_spawnp(&pid, "Xvfb", &actions, nullptr, const_cast<char **>(argv.data()),
                                environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(fds[1]);
    if (rc != 0) {
      ::close(fds[0]);
      return;
    }
    mXvfb = pid;
    char text[32] = {};
    ssize_t const got = ::read(fds[0], text, sizeof text - 1);  // "<number>\n" once ready
    ::close(fds[0]);
    if (got > 0) mName = ":" + std::string(text, static_cast<size_t>(got - 1));
  }

  std::string mName;
  pid_t mXvfb = 0;
};

// The environment of the launched processes: the display, and folders and
// hives of their own under TMPDIR.
std::vector<std::string> ChildEnvironment(std::string const & display) {
  char const * tmp = std::getenv("TMPDIR");
  std::string const root = std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-bench-start";
  VxCreateFolder(root + "/config");
  VxCreateFolder(root + "/system");
  VxCreateFolder(root + "/registry");
  std::vector<std::string> env{"DISPLAY=" + display,
                               "XDG_CONFIG_HOME=" + root + "/config",
                               "XDG_CONFIG_DIRS=" + root + "/system",
                               "XDG_STATE_HOME=" + root + "/state",
                               "TALVO_REGISTRY_USER_HIVE=" + root + "/registry/user.db",
                               "TALVO_REGISTRY_SYSTEM_HIVE=" + root + "/registry/system.db",
                               "NO_AT_BRIDGE=1",
                               "GDK_BACKEND=x11",
                               "LANG=C.UTF-8"};
  if (char const * home = std::getenv("HOME")) env.push_back(std::string("HOME=") + home);
  if (char const * path = std::getenv("PATH")) env.push_back(std::string("PATH=") + path);
  return env;
}

bool RunToFirstPaint(std::string const & program, std::vector<std::string> const & environment) {
  std::vector<char *> env;
  for (std::string const & item : environment) env.push_back(const_cast<char *>(item.c_str()));
  env.push_back(nullptr);
  char const * argv[] = {program.c_str(), "--exit-on-paint", nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  pid_t pid = 0;
  int const rc =
      posix_spawn(&pid, program.c_str(), &actions, nullptr, const_cast<char **>(argv), env.data());
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) return false;
  int status = 0;
  ::waitpid(pid, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void RunStartFigure(benchmark::State & state, char const * program) {
  std::string const & display = Display::Get().Name();
  if (display.empty()) {
    state.SkipWithError("no X server: DISPLAY is not set and Xvfb could not be started");
    return;
  }
  std::string const path = VxPathAppend(VxGetExecutableDirectory(), program);
  std::vector<std::string> const environment = ChildEnvironment(display);
  if (!RunToFirstPaint(path, environment)) {  // warm the file cache once
    state.SkipWithError((std::string(program) + " did not start and paint").c_str());
    return;
  }
  for (auto _ : state) {
    if (!RunToFirstPaint(path, environment)) {
      state.SkipWithError((std::string(program) + " failed").c_str());
      return;
    }
  }
}

void SampleStart_candidate(benchmark::State & state) { RunStartFigure(state, "talvo-sample"); }
BENCHMARK(SampleStart_candidate)
    ->Name("SampleStart/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10)
    ->UseRealTime();

void SampleStart_baseline(benchmark::State & state) {
  RunStartFigure(state, "talvo-bench-bare-frame");
}
BENCHMARK(SampleStart_baseline)
    ->Name("SampleStart/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10)
    ->UseRealTime();

}  // namespace
