// Start of the sample application to its first painted main window, beside
// the barest wx frame application doing the same: each launch runs the
// process with --exit-on-paint and times it until the process reports its
// first paint on stdout (its exit, which writes the settings back, is not
// part of the figure). The two are launched in alternation. The processes need an X
// server: the one in DISPLAY, or else an Xvfb of the benchmark's own; without
// either the figure is skipped with a message. Both run with private
// settings folders and registry hives, so nothing of the user's is touched.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "Figures.h"
#include "utl/Paths.h"

extern char ** environ;

namespace {

TALVO_RATIO_LIMIT("SampleStart", 1.15);

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
    std::vector<char const *> argv{"Xvfb",         "-displayfd", fd.c_str(), "-screen", "0",
                                   "1280x1024x24", "-nolisten",  "tcp",      nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addclose(&actions, fds[0]);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    int const rc =
        posix_spawnp(&pid, "Xvfb", &actions, nullptr, const_cast<char **>(argv.data()), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(fds[1]);
    if (rc != 0) {
      ::close(fds[0]);
      return;
    }
    mXvfb = pid;
    // "<number>\n" once the server is ready, possibly in pieces.
    std::string number;
    char c = 0;
    while (::read(fds[0], &c, 1) == 1 && c != '\n') number += c;
    ::close(fds[0]);
    if (!number.empty() && c == '\n') mName = ":" + number;
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

// Launches `program` and returns the seconds until it printed "painted",
// or a negative number when it could not be started or never painted. Waits
// for the process to end either way.
double TimeToFirstPaint(std::string const & program, std::vector<std::string> const & environment,
                        bool splash = false) {
  std::vector<char *> env;
  env.reserve(environment.size() + 1);
  for (std::string const & item : environment) env.push_back(const_cast<char *>(item.c_str()));
  env.push_back(nullptr);
  char const * argv[] = {program.c_str(), "--exit-on-paint", splash ? "--splash" : nullptr,
                         nullptr};
  int out[2];
  if (::pipe(out) != 0) return -1;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addclose(&actions, out[0]);
  posix_spawn_file_actions_adddup2(&actions, out[1], 1);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  pid_t pid = 0;
  auto const start = std::chrono::steady_clock::now();
  int const rc =
      posix_spawn(&pid, program.c_str(), &actions, nullptr, const_cast<char **>(argv), env.data());
  posix_spawn_file_actions_destroy(&actions);
  ::close(out[1]);
  if (rc != 0) {
    ::close(out[0]);
    return -1;
  }
  std::string said;
  char buffer[64];
  ssize_t got = 0;
  while (said.find("painted") == std::string::npos &&
         (got = ::read(out[0], buffer, sizeof buffer)) > 0)
    said.append(buffer, static_cast<size_t>(got));
  double const seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  ::close(out[0]);
  int status = 0;
  ::waitpid(pid, &status, 0);
  bool const ok =
      said.find("painted") != std::string::npos && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  return ok ? seconds : -1;
}

constexpr int kRuns = 12;

// The launch times of both programs and of the sample with its splash, in
// alternation (sample, bare, with splash, sample...) so that a change in the
// machine's load during the figure falls on all alike. Measured once, by whichever benchmark of the
// pair runs first; an error message instead when a launch failed.
struct StartTimes {
  std::vector<double> sample;
  std::vector<double> bare;
  std::vector<double> splash;  // the sample showing its start-up splash
  std::string error;
};

StartTimes const & MeasureStartTimes() {
  static StartTimes const times = [] {
    StartTimes result;
    std::string const & display = Display::Get().Name();
    if (display.empty()) {
      result.error = "no X server: DISPLAY is not set and Xvfb could not be started";
      return result;
    }
    std::string const folder = VxGetExecutableDirectory();
    std::string const programs[] = {VxPathAppend(folder, "talvo-sample"),
                                    VxPathAppend(folder, "talvo-bench-bare-frame")};
    std::vector<std::string> const environment = ChildEnvironment(display);
    // A first run of each warms the file cache and makes the settings files.
    for (std::string const & program : programs) {
      if (TimeToFirstPaint(program, environment) < 0) {
        result.error = program + " on display " + display + " did not start and paint";
        return result;
      }
    }
    for (int run = 0; run < kRuns; ++run) {
      for (int which = 0; which < 3; ++which) {
        double const seconds = TimeToFirstPaint(programs[which % 2], environment, which == 2);
        if (seconds < 0) {
          result.error = programs[which % 2] + " failed";
          return result;
        }
        (which == 0 ? result.sample : which == 1 ? result.bare : result.splash).push_back(seconds);
      }
    }
    return result;
  }();
  return times;
}

void ReportStartTimes(benchmark::State & state, std::vector<double> StartTimes::*which) {
  StartTimes const & times = MeasureStartTimes();
  if (!times.error.empty()) {
    state.SkipWithError(times.error.c_str());
    return;
  }
  std::vector<double> const & mine = times.*which;
  size_t next = 0;
  for (auto _ : state) state.SetIterationTime(mine[next++ % mine.size()]);
}

void SampleStart_candidate(benchmark::State & state) {
  ReportStartTimes(state, &StartTimes::sample);
}
BENCHMARK(SampleStart_candidate)
    ->Name("SampleStart/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRuns)
    ->UseManualTime();

void SampleStart_baseline(benchmark::State & state) { ReportStartTimes(state, &StartTimes::bare); }
BENCHMARK(SampleStart_baseline)
    ->Name("SampleStart/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRuns)
    ->UseManualTime();

// The same start with the splash up while the main window comes.
TALVO_RATIO_LIMIT("SplashSampleStart", 1.05);

void SplashSampleStart_candidate(benchmark::State & state) {
  ReportStartTimes(state, &StartTimes::splash);
}
BENCHMARK(SplashSampleStart_candidate)
    ->Name("SplashSampleStart/candidate")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRuns)
    ->UseManualTime();

void SplashSampleStart_baseline(benchmark::State & state) {
  ReportStartTimes(state, &StartTimes::sample);
}
BENCHMARK(SplashSampleStart_baseline)
    ->Name("SplashSampleStart/baseline")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRuns)
    ->UseManualTime();

}  // namespace
